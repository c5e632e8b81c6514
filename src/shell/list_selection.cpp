// What is selected in a list that a learner chooses from.
#include "shell/list_selection.h"

#include <algorithm>

namespace list_selection {

int SelectedNumber(const win32::ListBox& list) { return list.Count() == 0 ? 0 : std::max(list.Selected(), 0) + 1; }

}  // namespace list_selection
