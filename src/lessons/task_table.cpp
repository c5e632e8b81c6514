// The tasks of the lesson that is being edited.
#include "lessons/task_table.h"

#include <algorithm>

namespace modTyping {

std::size_t TaskTable::UsedRows() const {
    const auto* end = rows_.data() + kSavedRows;
    return static_cast<std::size_t>(std::count_if(rows_.data(), end, [](const TaskRow& row) { return row.InUse(); }));
}

}  // namespace modTyping
