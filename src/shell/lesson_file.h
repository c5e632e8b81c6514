// What lesson and dictation files share: a counter and one numbered section a lesson, its keys, moving and writing.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "win32/profile.h"

namespace lesson_file {

inline constexpr wchar_t kLessonCountKey[] = L"NbrOfLessons";
inline constexpr wchar_t kTitleKey[] = L"DefTitle";
inline constexpr wchar_t kTaskCountKey[] = L"NbrOfTasks";

/// A section is moved through a buffer of this many ANSI bytes; what does not fit is cut.
inline constexpr std::size_t kMovedSectionBytes = 4000;

/// "L" and the number, at least two digits.
std::wstring SectionName(std::int16_t lesson);
/// The key of one task's value: `name` and the number, at least two digits.
std::wstring TaskKey(std::wstring_view name, std::int16_t task);

/// The key of a task's tree node; a lesson's node has its section's name as key.
std::wstring TaskNodeKey(std::int16_t lesson, std::int16_t task);

/// The numbers of a tree node's key.
struct Selection {
    std::int16_t lesson = 0;
    std::int16_t task = 0;
    std::int16_t subTask = 0;
};

/// Reads a node key: its first character dropped, then up to three numbers; what is absent or no number is 0.
Selection ParseNodeKey(std::wstring_view key);

/// A value of a section without blanks at its ends, "" when it is missing.
std::wstring ReadText(const win32::profile::Section& section, std::wstring_view key);

/// A file of lessons: its path and the section that counts them.
struct File {
    const std::wstring& path;
    const wchar_t* listSection;
};

/// How many lessons the file states; less than none counts as none. Raises error 6 for a count that does not fit 16
/// bits.
std::int16_t LessonCount(const File& file);
/// The number that the next new lesson gets. Raises like RequireFile, and error 6 after 32767.
std::int16_t NextLesson(const File& file, std::wstring_view source);

/// Writes a lesson's whole section, and the counter when the lesson is a new one, after keeping the file as it was.
/// Raises like RequireFile, and what the system refuses, under `source`.
void WriteLesson(const File& file, std::int16_t lesson, std::span<const win32::profile::Line> lines,
                 std::wstring_view source);

/// Removes a lesson after keeping the file as it was, and closes the gap; returns its number, or 0 when there is no
/// such lesson. Adds to `cutLessons` the new numbers of lessons that lost their end on moving. Raises like
/// RequireFile, and what the system refuses, under `source`: then some lessons may stand twice in the file, none is
/// missing.
std::int16_t RemoveLesson(const File& file, std::int16_t lesson, std::vector<std::int16_t>* cutLessons,
                          std::wstring_view source);

}  // namespace lesson_file
