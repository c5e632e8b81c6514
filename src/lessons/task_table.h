// The tasks of the lesson that is being edited: one row a task.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

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

/// Rows 0 to 100, of which the first hundred are saved, and how many are taken.
class TaskTable {
public:
    static constexpr std::size_t kRows = 101;
    static constexpr std::size_t kSavedRows = 100;

    [[nodiscard]] const TaskRow& operator[](std::size_t row) const { return rows_.at(row); }
    /// How many tasks the table holds.
    [[nodiscard]] std::size_t Count() const { return count_; }
    /// How many of the saved rows are in use.
    [[nodiscard]] std::size_t UsedRows() const;
    /// Whether another task would not be saved.
    [[nodiscard]] bool IsFull() const { return count_ >= kSavedRows; }

    /// Takes a stored task as it was read; one that has a text or an explanation counts as in use even when it is not
    /// spelled out. A task with nothing at all is left out. Returns whether it was taken. Raises error 9 beyond row
    /// 100.
    bool Load(TaskRow row);
    /// Adds a task written now; false, and nothing changed, when the table is full.
    bool Append(std::wstring kind, std::wstring text, std::wstring explanation);
    /// Puts a task written now in the place of another.
    void Replace(std::size_t row, std::wstring kind, std::wstring text, std::wstring explanation);
    /// Removes a task: the rows behind it move up, the last becomes empty.
    void Delete(std::size_t row);

    /// The rows that have a text, in order.
    [[nodiscard]] std::vector<std::size_t> RowsWithText() const;

private:
    std::array<TaskRow, kRows> rows_;
    std::size_t count_ = 0;
};

}  // namespace modTyping
