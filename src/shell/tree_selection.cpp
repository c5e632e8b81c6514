// What is selected in a picker's tree.
#include "shell/tree_selection.h"

#include "win32/message_box.h"

namespace tree_selection {

std::optional<std::wstring> SelectedKey(const win32::TreeView& tree, const wchar_t* selectFirst,
                                        const wchar_t* nothingToSelect) {
    if (const auto node = tree.Selected(); node != nullptr) return tree.Key(node);
    win32::ShowMessage(tree.Count() != 0 ? selectFirst : nothingToSelect);
    return std::nullopt;
}

}  // namespace tree_selection
