// The tasks of the lesson that is being edited: one row a task.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "shell/row_table.h"

namespace modTyping {

/// What stands for the spelled-out text of a task written in this session: it only marks the row as used.
inline constexpr wchar_t kNewTaskSpelling[] = L"task spelling";

/// One task.
struct TaskRow {
    std::wstring spelling;
    std::wstring explanation;
    std::wstring kind;
    std::wstring text;
    // Stored longer than what is read back.
    bool textCut = false;
    bool explanationCut = false;

    [[nodiscard]] bool InUse() const { return !spelling.empty(); }
    bool operator==(const TaskRow&) const = default;
};

/// The lesson's tasks, of which the first hundred are saved.
class TaskTable : public RowTable<TaskRow> {
public:
    /// How many of the saved rows are in use.
    [[nodiscard]] std::size_t UsedRows() const;

    /// Takes a stored task as it was read; one that has a text or an explanation counts as in use even when it is not
    /// spelled out. A task with nothing at all is left out. Returns whether it was taken. Raises error 9 beyond row
    /// 100.
    bool Load(TaskRow row);
    /// Adds a task written now; false, and nothing changed, when it would not be saved.
    bool Append(std::wstring kind, std::wstring text, std::wstring explanation);
    /// Puts a task written now in the place of another.
    void Replace(std::size_t row, std::wstring kind, std::wstring text, std::wstring explanation);

    /// The rows that have a text, in order.
    [[nodiscard]] std::vector<std::size_t> RowsWithText() const;
};

}  // namespace modTyping
