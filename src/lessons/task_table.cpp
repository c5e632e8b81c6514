// The tasks of the lesson that is being edited.
#include "lessons/task_table.h"

#include <algorithm>
#include <utility>

#include "win32/error.h"

namespace modTyping {

std::size_t TaskTable::UsedRows() const {
    const auto* end = rows_.data() + kSavedRows;
    return static_cast<std::size_t>(std::count_if(rows_.data(), end, [](const TaskRow& row) { return row.InUse(); }));
}

bool TaskTable::Load(TaskRow row) {
    if (row.spelling.empty() && row.text.empty() && row.explanation.empty()) return false;
    if (count_ == kRows) throw win32::SubscriptError(L"LoadTaskForEdit");
    if (row.spelling.empty()) row.spelling = kNewTaskSpelling;
    rows_[count_++] = std::move(row);
    return true;
}

bool TaskTable::Append(std::wstring kind, std::wstring text, std::wstring explanation) {
    if (IsFull()) return false;
    Replace(count_++, std::move(kind), std::move(text), std::move(explanation));
    return true;
}

void TaskTable::Replace(std::size_t row, std::wstring kind, std::wstring text, std::wstring explanation) {
    rows_.at(row) = {kNewTaskSpelling, std::move(explanation), std::move(kind), std::move(text), false, false};
}

void TaskTable::Delete(std::size_t row) {
    if (row >= count_) return;
    std::move(rows_.begin() + static_cast<std::ptrdiff_t>(row) + 1, rows_.end(),
              rows_.begin() + static_cast<std::ptrdiff_t>(row));
    rows_.back() = {};
    --count_;
}

std::vector<std::size_t> TaskTable::RowsWithText() const {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < kRows; ++row)
        if (!rows_[row].text.empty()) rows.push_back(row);
    return rows;
}

}  // namespace modTyping
