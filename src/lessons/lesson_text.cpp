// Lesson keys, node keys and spelled-out texts.
#include "lessons/lesson_text.h"

#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "win32/error.h"
#include "win32/text.h"

namespace modTyping {

using namespace modGlobals;

namespace {

std::wstring TaskKey(std::wstring_view start, Variant variant, std::wstring_view end, std::int16_t task) {
    return std::wstring(start) + (variant == Variant::Eng ? L"ENG" : L"USA") + std::wstring(end) +
           modUtils::ZeroPad(task, 2);
}

}  // namespace

std::wstring LessonSectionName(std::int16_t lesson) { return L"L" + modUtils::ZeroPad(lesson, 2); }

std::wstring KindTaskKey(std::int16_t task) { return L"KIND_TASK_" + modUtils::ZeroPad(task, 2); }

std::wstring PrintTaskKey(std::int16_t task, Variant variant) { return TaskKey(L"PRINT_", variant, L"_TASK_", task); }

std::wstring SpellTaskKey(std::int16_t task, Variant variant) { return TaskKey(L"SPELL_", variant, L"_TASK_", task); }

std::wstring ExplanationKey(std::int16_t task, Variant variant) {
    return TaskKey(L"EXPLN_", variant, L"_CHILD_", task);
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

std::wstring TaskNodeKey(std::int16_t lesson, std::int16_t task) {
    return LessonSectionName(lesson) + gSep + modUtils::ZeroPad(task, 2);
}

Selection ParseNodeKey(std::wstring_view key) {
    if (key.empty()) return {};
    const auto fields = win32::Split(key.substr(1), gSep.front());
    const auto number = [&](std::size_t i) {
        return i < fields.size() ? win32::ToInt16(win32::LeadingNumber(fields[i])) : std::int16_t{0};
    };
    return {number(0), number(1), number(2)};
}

std::wstring RunRequestText(std::wstring_view listName, std::int16_t lesson, std::int16_t task) {
    const std::wstring body =
        lesson == 0 && task == 0 ? gNoSelection : std::to_wstring(lesson) + gSep + std::to_wstring(task);
    return std::wstring(listName) + gSep + body;
}

}  // namespace modTyping
