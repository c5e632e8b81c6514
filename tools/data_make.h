// The generated data files: what the sources of the shipped lessons and dictations become.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tools/lesson_source.h"

namespace data_files {

// Spelled-out texts and explanations that the program never writes: for the screen-reader side, which plays the
// variants. The task's number follows.
inline constexpr wchar_t kMagSpellingKey[] = L"SPELL_MAG_TASK_";
inline constexpr wchar_t kNonEngSpellingKey[] = L"SPELL_NONENG_TASK_";
inline constexpr wchar_t kNonEngExplanationKey[] = L"EXPLN_NONENG_CHILD_";

/// A task's text as it is stored: key chords are parted as the task editor parts them.
std::wstring StoredText(std::wstring_view kind, std::wstring_view sourceText);

/// A dictation's label as the file gives it back: without the final CR that the program writes.
std::wstring ReadBackLabel(std::wstring_view text);

/// The bytes of KSLessons.ini and KSDictations.ini.
std::string MakeLessonFile(std::span<const SourceLesson> lessons);
std::string MakeDictationFile(std::span<const SourceDictationLesson> lessons);

}  // namespace data_files
