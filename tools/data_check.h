// The rules for the shipped data files, over files that were read already: each gives one finding a breach.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "lessons/modTyping.h"
#include "tools/finding.h"
#include "tools/ini_text.h"
#include "tools/lesson_source.h"

namespace data_files {

/// A file of lessons: counts and numbers, keys that are missing or unknown, texts that no learner could work with,
/// spelled-out texts that are not what the program makes, chord names, titles that stand twice, sections too long.
Findings CheckLessons(const IniFile& file, std::size_t fewestLessons);

/// The lessons as the program lists them against what the file holds. `switches` names the learner's settings.
Findings CheckCatalogue(const IniFile& file, std::span<const modTyping::CatalogueLesson> catalogue,
                        std::wstring_view switches);

/// What only the source tells: a key that a drill uses before a lesson introduced it, and what has no default.
Findings CheckLessonSource(std::wstring_view name, std::span<const SourceLesson> lessons);

/// A file of dictations.
Findings CheckDictations(const IniFile& file, std::size_t fewestLessons);

/// The catalogue of quizzes and the quiz files below its folder. Their names are relative to the folder, and stand
/// below `folder` in the findings.
Findings CheckQuizzes(const IniFile& catalogue, std::span<const IniFile> quizFiles, std::wstring_view folder);

/// A subject as the program lists it: topics by name, quizzes by title.
struct ListedTopic {
    std::wstring name;
    std::vector<std::wstring> quizzes;
};
struct ListedSubject {
    std::wstring name;
    std::vector<ListedTopic> topics;
};

/// The subjects as the program lists them against what the files of CheckQuizzes hold.
Findings CheckListedQuizzes(const IniFile& catalogue, std::span<const IniFile> quizFiles, std::wstring_view folder,
                            std::span<const ListedSubject> listed);

/// The section of the preferences, and the buffer that the program reads it through: what does not fit is not listed.
inline constexpr wchar_t kPreferencesSection[] = L"UserPreferences";
inline constexpr std::size_t kPreferencesBytes = 4096;

/// The list of preferences.
Findings CheckPreferences(const IniFile& file);

/// The preferences as the program reads them, line by line, against what the file holds.
Findings CheckListedPreferences(const IniFile& file, std::span<const std::wstring> lines);

/// The texts of the main window and the dialogs.
Findings CheckGeneral(const IniFile& file);

/// A generated file that is not what its source makes today.
Findings CheckGenerated(std::wstring_view name, std::string_view bytes, std::string_view made);

}  // namespace data_files
