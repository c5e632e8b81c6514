// The written names of key chords.
#include "lessons/command_keys.h"

#include <algorithm>
#include <array>

namespace command_keys {

namespace {

// The punctuation names are those of a US keyboard, whatever the layout. "Numpad0" and "NumPad5" differ in their
// letters, and "Insert" is never reached, since that key only ever stands for JawsKey.
constexpr std::array kKeyNames{
    KeyName{65, 90, L"", L'A', false},           KeyName{48, 57, L"", L'0', false},
    KeyName{96, 105, L"Numpad", L'0', false},    KeyName{12, 12, L"NumPad5", 0, false},
    KeyName{112, 120, L"F", L'1', false},        KeyName{121, 123, L"F1", L'0', false},
    KeyName{32, 32, L"Space", 0, false},         KeyName{186, 186, L";", 0, false},
    KeyName{187, 187, L"=", 0, false},           KeyName{188, 188, L",", 0, false},
    KeyName{189, 189, L"-", 0, false},           KeyName{190, 190, L".", 0, false},
    KeyName{191, 191, L"/", 0, false},           KeyName{192, 192, L"`", 0, false},
    KeyName{219, 219, L"[", 0, false},           KeyName{220, 220, L"\\", 0, false},
    KeyName{221, 221, L"]", 0, false},           KeyName{222, 222, L"'", 0, false},
    KeyName{8, 8, L"BackSpace", 0, false},       KeyName{13, 13, L"Enter", 0, true},
    KeyName{20, 20, L"CapsLock", 0, false},      KeyName{33, 33, L"PageUp", 0, false},
    KeyName{34, 34, L"PageDown", 0, false},      KeyName{35, 35, L"End", 0, true},
    KeyName{36, 36, L"Home", 0, false},          KeyName{37, 37, L"LeftArrow", 0, true},
    KeyName{39, 39, L"RightArrow", 0, true},     KeyName{38, 38, L"UpArrow", 0, true},
    KeyName{40, 40, L"DownArrow", 0, true},      KeyName{44, 44, L"PrintScreen", 0, false},
    KeyName{45, 45, L"Insert", 0, false},        KeyName{46, 46, L"Delete", 0, true},
    KeyName{144, 144, L"NumLock", 0, false},     KeyName{106, 106, L"NumPadStar", 0, false},
    KeyName{107, 107, L"NumPadPlus", 0, false},  KeyName{108, 108, L"NumPadEnter", 0, true},
    KeyName{109, 109, L"NumPadMinus", 0, false}, KeyName{110, 110, L"NumPadDot", 0, false},
    KeyName{111, 111, L"NumPadSlash", 0, false}, KeyName{19, 19, L"Pause", 0, false},
    KeyName{91, 91, L"LeftWindows", 0, false},   KeyName{92, 92, L"RightWindows", 0, false},
    KeyName{93, 93, L"ContextMenu", 0, false},   KeyName{145, 145, L"ScrollLock", 0, false},
};

}  // namespace

std::span<const KeyName> KeyNames() { return kKeyNames; }

const KeyName* FindKey(int virtualKey) {
    const auto* found = std::find_if(kKeyNames.begin(), kKeyNames.end(), [&](const KeyName& row) {
        return virtualKey >= row.first && virtualKey <= row.last;
    });
    return found == kKeyNames.end() ? nullptr : &*found;
}

std::wstring ChordPrefix(const win32::Modifiers& held, bool jawsKeyDown) {
    std::wstring prefix;
    if (held.ctrl) prefix += L"Control+";
    if (held.alt) prefix += L"Alt+";
    if (held.shift) prefix += L"Shift+";
    if (jawsKeyDown) prefix += L"JawsKey+";
    return prefix;
}

std::wstring AppendChord(std::wstring text, const win32::KeyEvent& key, bool jawsKeyDown) {
    if (!text.empty()) text += kChordSeparator;
    const KeyName* name = FindKey(key.virtualKey);
    if (name == nullptr) return text;
    text += ChordPrefix(key.modifiers, jawsKeyDown) + name->name;
    if (name->counted != 0) text += static_cast<wchar_t>(name->counted + (key.virtualKey - name->first));
    return text;
}

bool PassesFilter(wchar_t character) {
    constexpr wchar_t kFirstTyped = 32;
    constexpr wchar_t kLastTyped = 126;
    const bool typed = character >= kFirstTyped && character <= kLastTyped;
    return !typed && character != L'\b' && character != L'\r';
}

}  // namespace command_keys
