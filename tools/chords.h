// The names of key chords, as a task of command keys may hold them.
#pragma once

#include <string>
#include <string_view>

namespace data_files {

/// Whether a task of this stored kind holds chords.
bool IsChords(std::wstring_view kind);

/// Whether a chord may end in this name.
bool IsChordKey(const std::wstring& name);

/// What is wrong with a chord's name; "" when it is one that the task editor could have written.
std::wstring ChordProblem(std::wstring_view chord);

}  // namespace data_files
