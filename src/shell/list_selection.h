// What is selected in a list that a learner chooses from.
#pragma once

#include "win32/controls.h"

namespace list_selection {

/// The number of the selected entry from 1 on; with none selected 1, in an empty list 0.
[[nodiscard]] int SelectedNumber(const win32::ListBox& list);

}  // namespace list_selection
