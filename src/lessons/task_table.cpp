// The tasks of the lesson that is being edited.
#include "lessons/task_table.h"

#include <algorithm>
#include <utility>

#include "win32/error.h"

namespace modTyping {

namespace {

TaskRow WrittenNow(std::wstring kind, std::wstring text, std::wstring explanation) {
    return {kNewTaskSpelling, std::move(explanation), std::move(kind), std::move(text), false, false};
}

}  // namespace

std::size_t TaskTable::UsedRows() const {
    std::size_t used = 0;
    for (std::size_t row = 0; row < std::min(Count(), kSavedRows); ++row)
        if ((*this)[row].InUse()) ++used;
    return used;
}

bool TaskTable::Load(TaskRow row) {
    if (row.spelling.empty() && row.text.empty() && row.explanation.empty()) return false;
    if (row.spelling.empty()) row.spelling = kNewTaskSpelling;
    if (!Add(std::move(row))) throw win32::SubscriptError(L"LoadTaskForEdit");
    return true;
}

bool TaskTable::Append(std::wstring kind, std::wstring text, std::wstring explanation) {
    return !IsFull() && Add(WrittenNow(std::move(kind), std::move(text), std::move(explanation)));
}

void TaskTable::Replace(std::size_t row, std::wstring kind, std::wstring text, std::wstring explanation) {
    const TaskRow& before = (*this)[row];
    TaskRow written = WrittenNow(std::move(kind), std::move(text), std::move(explanation));
    // Saved as they were shown, they still lack their end.
    written.textCut = before.textCut && written.text == before.text;
    written.explanationCut = before.explanationCut && written.explanation == before.explanation;
    RowTable::Replace(row, std::move(written));
}

std::vector<std::size_t> TaskTable::RowsWithText() const {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < Count(); ++row)
        if (!(*this)[row].text.empty()) rows.push_back(row);
    return rows;
}

}  // namespace modTyping
