// Lesson keys, node keys and spelled-out texts: what of the lesson files needs no file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace modTyping {

// The counter section of a lesson file and what a lesson's section has beside the keys of all lesson files.
inline constexpr wchar_t kListSection[] = L"Lessons";
inline constexpr wchar_t kIntroKey[] = L"INTRO_LSN_JAWS";
inline constexpr wchar_t kRepetitionsKey[] = L"TaskReps";
inline constexpr wchar_t kTerminatorKey[] = L"TaskDL";

// The text variants that are only read; the task's number follows.
inline constexpr wchar_t kMagTextKey[] = L"PRINT_MAG_TASK_";
inline constexpr wchar_t kNonEngTextKey[] = L"PRINT_NONENG_TASK_";

/// Language variants that the editor writes.
enum class Variant { Usa, Eng };

/// The kind of a task of command keys.
inline constexpr std::int16_t kCommandKeysKind = 5;
/// The kind of a phrase, and an older number for the same.
inline constexpr std::int16_t kPhraseKind = 3;
inline constexpr std::int16_t kOlderPhraseKind = 4;

std::wstring KindTaskKey(std::int16_t task);
std::wstring PrintTaskKey(std::int16_t task, Variant variant);
std::wstring SpellTaskKey(std::int16_t task, Variant variant);
std::wstring ExplanationKey(std::int16_t task, Variant variant);

/// The task text spelled out item by item, each item followed by gSep. `kind` is the stored kind as text.
std::wstring SpellOutTask(std::wstring_view kind, std::wstring_view text);

/// The kind under which a task is written: an older phrase is written as a phrase.
std::wstring WrittenKind(std::wstring_view kind);

/// The run request: list name, gSep, and lesson and task, or gNoSelection when both are 0.
std::wstring RunRequestText(std::wstring_view listName, std::int16_t lesson, std::int16_t task);

}  // namespace modTyping
