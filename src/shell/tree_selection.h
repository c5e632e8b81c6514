// What is selected in a picker's tree.
#pragma once

#include <optional>
#include <string>

#include "win32/controls.h"

namespace tree_selection {

/// The key of the selected node; none, after a message, when no node is selected: `selectFirst` while the tree has
/// nodes, else `nothingToSelect`.
std::optional<std::wstring> SelectedKey(const win32::TreeView& tree, const wchar_t* selectFirst,
                                        const wchar_t* nothingToSelect);

}  // namespace tree_selection
