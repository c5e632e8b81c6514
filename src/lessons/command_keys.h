// The written names of key chords, letter for letter as lessons store them.
#pragma once

#include <span>
#include <string>

#include "win32/keys.h"

namespace command_keys {

/// Keys with codes in a row and their name: `name`, and behind it the character `counted` plus the distance from the
/// first code when `counted` is not 0. `stops` tells that the text box must not act on the key.
struct KeyName {
    int first;
    int last;
    const wchar_t* name;
    wchar_t counted;
    bool stops;
};

/// Between two chords.
inline constexpr wchar_t kChordSeparator[] = L"  ";

/// All names, in the order in which they are tried.
std::span<const KeyName> KeyNames();

/// The row of a virtual-key code; null when the key has no name.
const KeyName* FindKey(int virtualKey);

/// What stands before a key's name: Control, Alt, Shift and JawsKey in this order, whichever was pressed first.
std::wstring ChordPrefix(const win32::Modifiers& held, bool jawsKeyDown);

/// The text after one more key: a key without a name leaves the separator alone.
std::wstring AppendChord(std::wstring text, const win32::KeyEvent& key, bool jawsKeyDown);

/// Whether a typed character may reach the text box while a task of command keys is taken.
bool PassesFilter(wchar_t character);

}  // namespace command_keys
