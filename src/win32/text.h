// Text helpers: trimming, replacing, splitting, and the way to and from the ANSI code page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace win32 {

/// The text without blanks (character 32 only) at both ends.
std::wstring TrimBlanks(std::wstring_view text);

/// Every occurrence of a non-empty `from`, in one pass from left to right, becomes `to`.
std::wstring ReplaceAll(std::wstring_view text, std::wstring_view from, std::wstring_view to);

/// The fields between separators; an empty text is one empty field.
std::vector<std::wstring> Split(std::wstring_view text, wchar_t separator);

/// The whole number at the start of the text after blanks; 0 when there is none. Saturates far outside 32 bits.
std::int64_t LeadingNumber(std::wstring_view text);

/// The text without the characters that cannot enter an INI value: CR, LF and NUL.
std::wstring DropLineBreaks(std::wstring_view text);

/// The text without any control character.
std::wstring DropControlCharacters(std::wstring_view text);

/// ANSI bytes of the text; a character outside the code page becomes the system's nearest or "?".
std::string ToAnsi(std::wstring_view text);
std::wstring FromAnsi(std::string_view bytes);

/// Whether a pair of like quotation marks stands around the whole text.
template <typename Text>
bool IsQuoted(const Text& text) {
    return text.size() >= 2 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
}

/// How many ANSI bytes the text takes.
std::size_t AnsiLength(std::wstring_view text);

/// Whether every character survives the way to the ANSI code page and back.
bool FitsAnsi(std::wstring_view text);

}  // namespace win32
