// The text of a dictation.
#include "dictation/dictation_text.h"

#include <algorithm>

#include "shell/lesson_file.h"
#include "shell/modGlobals.h"
#include "win32/text.h"

namespace modDictation {

using namespace modGlobals;

namespace {

constexpr wchar_t kTab[] = L"\t";
constexpr wchar_t kLineBreak[] = L"\r\n";
constexpr std::wstring_view kNothingToSay = L" \t\r\n";

}  // namespace

std::wstring PrintTaskKey(std::int16_t task) { return lesson_file::TaskKey(L"PRINT_USA_TASK_", task); }

std::wstring SpellTaskKey(std::int16_t task) { return lesson_file::TaskKey(L"SPELL_USA_TASK_", task); }

std::wstring EncodeText(std::wstring_view text) {
    return win32::ReplaceAll(win32::ReplaceAll(text, kTab, gMark6), kLineBreak, gLineBreakMark);
}

std::wstring DecodeText(std::wstring_view stored) {
    return win32::ReplaceAll(win32::ReplaceAll(stored, gMark6, kTab), gLineBreakMark, kLineBreak);
}

std::wstring WithFullLineBreaks(std::wstring_view text) {
    std::wstring full;
    full.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const wchar_t c = text[i];
        // A soft break comes as a vertical tab.
        if (c != L'\r' && c != L'\n' && c != L'\v') {
            full += c;
            continue;
        }
        full += kLineBreak;
        if (c == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') ++i;
    }
    return full;
}

bool IsBlankText(std::wstring_view text) { return text.find_first_not_of(kNothingToSay) == std::wstring_view::npos; }

std::wstring LabelText(std::wstring_view text) {
    const std::size_t lineBreak = text.find(kLineBreak);
    // The CR stays in the label, as in those already stored.
    const bool endsInLine = lineBreak != std::wstring_view::npos && lineBreak < kLabelLength;
    return win32::TrimBlanks(text.substr(0, endsInLine ? lineBreak + 1 : kLabelLength));
}

std::wstring FirstSpokenLine(std::wstring_view text) {
    return LabelText(text.substr(std::min(text.size(), text.find_first_not_of(kNothingToSay))));
}

std::wstring UsableLabel(std::wstring_view text) {
    std::wstring label = LabelText(text);
    return label.empty() ? FirstSpokenLine(text) : label;
}

std::wstring NodeText(std::wstring_view storedLabel) {
    return std::wstring(storedLabel.substr(0, std::min(storedLabel.find(gLineBreakMark), kLabelLength)));
}

}  // namespace modDictation
