// The text of a dictation: its form in the file, its label, and the keys of both; needs no file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace modDictation {

/// The section that counts the lessons of a dictation file.
inline constexpr wchar_t kListSection[] = L"Dictations";

/// A label is at most this many characters of the text's first line.
inline constexpr std::size_t kLabelLength = 65;

std::wstring PrintTaskKey(std::int16_t task);
std::wstring SpellTaskKey(std::int16_t task);

/// The text for the file: tabs and line breaks (CR LF) become their marks; a bare CR or LF stays.
std::wstring EncodeText(std::wstring_view text);
/// The text for the eye: the marks become tabs and line breaks again.
std::wstring DecodeText(std::wstring_view stored);

/// The text with every kind of line break that a text box knows as CR LF.
std::wstring WithFullLineBreaks(std::wstring_view text);

/// Whether a text has nothing to dictate: only blanks, tabs and line breaks.
bool IsBlankText(std::wstring_view text);

/// The label of a text with full line breaks: its first 65 characters up to and with the CR of its first line break,
/// without blanks at their ends.
std::wstring LabelText(std::wstring_view text);
/// The label of the first line that is not blank, "" when there is none.
std::wstring FirstSpokenLine(std::wstring_view text);
/// LabelText, or FirstSpokenLine where that would be empty.
std::wstring UsableLabel(std::wstring_view text);

/// What a tree shows of a stored label: the part before the first line-break mark, at most 65 characters.
std::wstring NodeText(std::wstring_view storedLabel);

}  // namespace modDictation
