// The sources of the shipped lessons and dictations, as people write them: UTF-8 text of "name: value" lines.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/finding.h"

namespace data_files {

/// A value and the line that it stands in.
struct SourceText {
    std::wstring text;
    std::size_t line = 0;
};

struct SourceTask {
    std::wstring kind;
    SourceText text;
    std::optional<SourceText> explanation;
    std::optional<SourceText> eng;
    std::optional<SourceText> nonEng;
    std::optional<SourceText> mag;
    std::optional<SourceText> engExplanation;
    std::optional<SourceText> nonEngExplanation;
};

struct SourceLesson {
    SourceText title;
    std::optional<SourceText> introduces;
    std::optional<SourceText> intro;
    std::optional<SourceText> ends;
    std::optional<SourceText> repeats;
    std::vector<SourceTask> tasks;
};

struct SourceDictationLesson {
    SourceText title;
    /// The lines of each text, joined by CR LF.
    std::vector<SourceText> dictations;
};

/// Reads a source; what cannot be understood or kept is told in the findings under the file's name.
std::vector<SourceLesson> ParseLessons(std::wstring_view name, std::string_view bytes, Findings& findings);
std::vector<SourceDictationLesson> ParseDictations(std::wstring_view name, std::string_view bytes, Findings& findings);

/// What ends a task and how often it is typed where the source does not say.
inline constexpr wchar_t kDefaultEnds[] = L"Space";
inline constexpr wchar_t kDefaultRepeats[] = L"2";

/// The fields between blanks.
std::vector<std::wstring> Words(std::wstring_view text);

}  // namespace data_files
