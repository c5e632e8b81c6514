// The tasks of the lesson that is being edited: one row a task.
#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace modTyping {

/// What stands for the spelled-out text of a task written in this session: it only marks the row as used.
inline constexpr wchar_t kNewTaskSpelling[] = L"task spelling";

/// One task.
struct TaskRow {
    std::wstring spelling;
    std::wstring explanation;
    std::wstring kind;
    std::wstring text;

    [[nodiscard]] bool InUse() const { return !spelling.empty(); }
    bool operator==(const TaskRow&) const = default;
};

/// Rows 0 to 100, of which the first hundred are saved.
class TaskTable {
public:
    static constexpr std::size_t kRows = 101;
    static constexpr std::size_t kSavedRows = 100;

    [[nodiscard]] TaskRow& operator[](std::size_t row) { return rows_.at(row); }
    [[nodiscard]] const TaskRow& operator[](std::size_t row) const { return rows_.at(row); }

    /// How many of the saved rows are in use.
    [[nodiscard]] std::size_t UsedRows() const;

private:
    std::array<TaskRow, kRows> rows_;
};

}  // namespace modTyping
