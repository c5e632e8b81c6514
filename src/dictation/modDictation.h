// The dictation files: reading dictation lessons into the tree and for editing, writing, removing and numbering a
// teacher's own, and the run request.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dictation/dictation_text.h"
#include "shell/row_table.h"
#include "win32/controls.h"
#include "win32/profile.h"

namespace modDictation {

/// The two catalogues, by the names of their run requests.
inline constexpr wchar_t kShippedKind[] = L"DICP";
inline constexpr wchar_t kTeachersKind[] = L"DICT";
/// The catalogue that was opened last.
inline std::wstring mDictationKind;

/// One dictation of the lesson that is being edited.
struct DictationRow {
    std::wstring label;
    std::wstring text;     ///< as the file holds it
    bool textCut = false;  ///< stored longer than what is read back
    bool operator==(const DictationRow&) const = default;
};
using DictationTable = RowTable<DictationRow>;

/// The row of a text that was written now; a label without text is made from its first line that is not blank. None
/// when the text has nothing to dictate.
std::optional<DictationRow> WrittenRow(std::wstring label, std::wstring text);

/// Adds the file's lessons and dictations to the emptied tree, which is hidden meanwhile; returns the number of
/// lessons. Raises file-not-found as "LoadDictations", error 6 for a count that does not fit 16 bits.
std::int16_t LoadDictations(const std::wstring& file, win32::TreeView& tree);
/// Adds one lesson with its dictations; returns how many it states. Raises file-not-found as "LoadDictation", error 6.
std::int16_t LoadDictation(const std::wstring& file, std::int16_t lesson, win32::TreeView& tree);
/// Adds one dictation of a section below its lesson's node. Raises file-not-found as "LoadTask".
void LoadTask(const std::wstring& file, std::wstring_view section, std::int16_t task, win32::TreeView& tree);

/// Reads a stored lesson into gDictationTitle and the emptied table; returns how many dictations the table holds. A
/// dictation without a label gets one made from its text; one without both is left out. `titleCut` tells whether the
/// title was stored longer than what is read back. Raises file-not-found as "LoadDictation", error 6 for a count that
/// does not fit 16 bits, error 9 for the 102nd dictation.
std::int16_t LoadDictationForEdit(const std::wstring& file, std::int16_t lesson, DictationTable& tasks,
                                  bool* titleCut = nullptr);

/// How many ANSI bytes the lesson's section would take.
std::size_t LessonBytes(std::wstring_view title, const DictationTable& tasks);

/// Writes a teacher's dictation lesson after keeping the file as it was; returns how many dictations were written, at
/// most 100. Raises file-not-found and what the system refuses as "SaveLesson".
std::int16_t SaveLesson(std::int16_t lesson, std::wstring_view title, const DictationTable& tasks);

/// Removes a teacher's dictation lesson after keeping the file as it was, and closes the gap; returns its number, or 0
/// when there is no such lesson. Adds to `cutLessons` the new numbers of lessons that lost their end on moving. Raises
/// file-not-found and what the system refuses as "SaveNewLesson": the reports have always named it so.
std::int16_t RemoveLesson(std::int16_t lesson, std::vector<std::int16_t>* cutLessons = nullptr);

/// The number of the next teacher's dictation lesson. Raises error 6 after 32767, file-not-found as
/// "GetNextTeachersDictationNbr".
std::int16_t GetNextTeachersDictationNbr();

/// Reads a node key into the selected-lesson fields; returns the key without its first character.
std::wstring GetSelectedDictation(std::wstring_view nodeKey);

/// Stores the run values and hands the run request of the open catalogue to the screen-reader side.
void RunDictation(std::int16_t lesson, std::int16_t task);

}  // namespace modDictation
