// The lesson files: reading lessons into the tree, and writing, removing and numbering a teacher's own.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "lessons/lesson_text.h"
#include "lessons/task_table.h"
#include "win32/controls.h"

namespace modTyping {

/// A lesson list holds at most this many lessons, and a lesson as many tasks; one more is error 9.
inline constexpr std::int16_t kMaxListedLessons = 201;
inline constexpr std::int16_t kMaxListedTasks = 101;

/// The variant that the editor reads and writes, by the language switches.
Variant WritingVariant();

/// The lesson's title in the variant of the switches, "" when it has none. Raises file-not-found as "GetLessonTitle".
std::wstring GetLessonTitle(const std::wstring& file, std::int16_t lesson);
/// The lesson's introduction. A lesson with a title variant shows that instead. Raises file-not-found as
/// "GetLessonIntro".
std::wstring GetLessonIntro(const std::wstring& file, std::int16_t lesson);
/// The task's text in the variant of the switches, "" when it has none. Raises file-not-found as "GetTaskDisplay".
std::wstring GetTaskDisplay(const std::wstring& file, std::wstring_view section, std::int16_t task);

/// One lesson as the tree shows it.
struct CatalogueTask {
    std::wstring key;
    std::wstring text;
};
struct CatalogueLesson {
    std::wstring key;
    std::wstring text;
    std::vector<CatalogueTask> tasks;
};

/// Reads what the tree shows, with one profile call a lesson and one more. Raises error 6 for a count that does not fit
/// 16 bits and error 9 for lesson 202 or task 102.
std::vector<CatalogueLesson> ReadCatalogue(const std::wstring& file);

/// Adds the file's lessons and tasks to the emptied tree, which is hidden meanwhile; returns the number of lessons.
/// Raises file-not-found as "LoadLessons", and what ReadCatalogue raises; the tree is shown again in any case.
std::int16_t LoadLessons(const std::wstring& file, win32::TreeView& tree);

/// The number of the next teacher's lesson. Raises error 6 after 32767, file-not-found as "GetNextTeachersLessonNbr".
std::int16_t GetNextTeachersLessonNbr();

/// Which lesson-level values were stored longer than what is read back.
struct CutDetails {
    bool title = false;
    bool intro = false;
};

/// Reads a stored lesson into the session state (title, introduction, terminator, repetitions) and the emptied table,
/// and adds the tasks' texts to the list; returns how many tasks the table holds. What was stored longer than 254 bytes
/// is marked in `cut` and in the rows. Raises file-not-found as "LoadLessonForEdit", error 6 for a count or number that
/// does not fit 16 bits, error 9 for the 102nd task.
std::int16_t LoadLessonForEdit(const std::wstring& file, std::int16_t lesson, TaskTable& tasks, win32::ListBox& list,
                               CutDetails* cut = nullptr);
/// Reads one stored task into the table's next row and adds its text to the list; a task with nothing at all is left
/// out. Raises file-not-found as "LoadTaskForEdit", error 9 for the 102nd task.
void LoadTaskForEdit(const std::wstring& file, std::wstring_view section, std::int16_t task, TaskTable& tasks,
                     win32::ListBox& list);

/// How many ANSI bytes the lesson's section would take.
std::size_t LessonBytes(std::wstring_view title, std::wstring_view intro, std::wstring_view terminator,
                        std::int16_t repetitions, const TaskTable& tasks);

/// Writes a teacher's lesson after keeping the file as it was; returns how many tasks were written. Raises
/// file-not-found and what the system refuses as "SaveLesson".
std::int16_t SaveLesson(std::int16_t lesson, std::wstring_view title, std::wstring_view intro,
                        std::wstring_view terminator, std::int16_t repetitions, const TaskTable& tasks);

/// Removes a teacher's lesson after keeping the file as it was, and closes the gap; returns its number, or 0 when there
/// is no such lesson. Adds to `cutLessons` the new numbers of lessons that lost their end on moving. Raises
/// file-not-found and what the system refuses as "SaveNewLesson".
std::int16_t SaveNewLesson(std::int16_t lesson, std::vector<std::int16_t>* cutLessons = nullptr);

/// Reads a node key into the selected-lesson fields; returns lesson, gSep, task as text.
std::wstring ParseSelection(std::wstring_view nodeKey);

/// Stores the run values and hands the run request of the open list to the screen-reader side.
void SendRunRequest(std::int16_t lesson, std::int16_t task, std::int16_t subTask);

}  // namespace modTyping
