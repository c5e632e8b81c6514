// Lesson keys, node keys and spelled-out texts.
#include "lessons/lesson_text.h"

#include "shell/lesson_file.h"
#include "shell/modGlobals.h"
#include "win32/text.h"

namespace modTyping {

using namespace modGlobals;

namespace {

std::wstring VariantKey(std::wstring_view start, Variant variant, std::wstring_view end, std::int16_t task) {
    return lesson_file::TaskKey(std::wstring(start) + (variant == Variant::Eng ? L"ENG" : L"USA") + std::wstring(end),
                                task);
}

}  // namespace

std::wstring KindTaskKey(std::int16_t task) { return lesson_file::TaskKey(L"KIND_TASK_", task); }

std::wstring PrintTaskKey(std::int16_t task, Variant variant) {
    return VariantKey(L"PRINT_", variant, L"_TASK_", task);
}

std::wstring SpellTaskKey(std::int16_t task, Variant variant) {
    return VariantKey(L"SPELL_", variant, L"_TASK_", task);
}

std::wstring ExplanationKey(std::int16_t task, Variant variant) {
    return VariantKey(L"EXPLN_", variant, L"_CHILD_", task);
}

std::wstring SpellOutTask(std::wstring_view kind, std::wstring_view text) {
    if (win32::LeadingNumber(kind) == kCommandKeysKind)
        // One pass only: three blanks in a row leave two separators.
        return win32::ReplaceAll(win32::ReplaceAll(text, L" ", gSep), gSep2, gSep) + gSep;
    std::wstring spelled;
    for (const wchar_t c : text) {
        if (c == L' ')
            spelled += L"Space";
        else
            spelled += c;
        spelled += gSep;
    }
    return spelled;
}

std::wstring WrittenKind(std::wstring_view kind) {
    return win32::LeadingNumber(kind) == kOlderPhraseKind ? std::to_wstring(kPhraseKind) : std::wstring(kind);
}

std::wstring RunRequestText(std::wstring_view listName, std::int16_t lesson, std::int16_t task) {
    const std::wstring body =
        lesson == 0 && task == 0 ? gNoSelection : std::to_wstring(lesson) + gSep + std::to_wstring(task);
    return std::wstring(listName) + gSep + body;
}

}  // namespace modTyping
