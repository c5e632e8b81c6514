// Small forms for tests.
#include "unit/test_forms.h"

#include "win32/windows_api.h"

namespace unit {

std::vector<TreeForm::Shown> TreeForm::Nodes() const {
    std::vector<Shown> nodes;
    const auto next = [&](HTREEITEM item, UINT relation) {
        return reinterpret_cast<HTREEITEM>(
            SendMessageW(tvTasks.Handle(), TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
    };
    const auto note = [&](HTREEITEM item, int depth) {
        const auto node = reinterpret_cast<win32::TreeView::Node>(item);
        nodes.push_back({tvTasks.Key(node), tvTasks.Text(node), depth});
    };
    for (HTREEITEM root = next(nullptr, TVGN_ROOT); root != nullptr; root = next(root, TVGN_NEXT)) {
        note(root, 0);
        for (HTREEITEM child = next(root, TVGN_CHILD); child != nullptr; child = next(child, TVGN_NEXT)) note(child, 1);
    }
    return nodes;
}

}  // namespace unit
