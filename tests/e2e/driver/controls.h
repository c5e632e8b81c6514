// What stands in the list, tree and rich edit controls of another process.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "driver/window.h"

namespace e2e {

struct TreeNode {
    std::wstring text;
    bool selected = false;
    bool expanded = false;
    std::vector<TreeNode> children;

    friend bool operator==(const TreeNode&, const TreeNode&) = default;
};

class Tree {
public:
    /// process: a handle with the right to write memory there, since item texts travel through the other process.
    Tree(HANDLE process, Window window) : process_(process), window_(window) {}

    std::vector<TreeNode> Roots() const;
    std::vector<std::wstring> RootTexts() const;
    int Count() const;
    /// Nothing when no node is selected.
    std::wstring SelectedText() const;
    bool HasSelection() const;
    void SelectNothing() const;

private:
    TreeNode Read(LPARAM item, LPARAM selected) const;
    std::vector<TreeNode> ReadSiblings(LPARAM first, LPARAM selected) const;

    HANDLE process_;
    Window window_;
};

struct ListContent {
    std::vector<std::wstring> lines;
    int selected = -1;
};

ListContent ReadList(const Window& list);
/// What a drop-down list offers, and which entry is chosen.
ListContent ReadDropDown(const Window& list);

/// The look of a piece of rich text; a value that differs within the piece is marked as mixed.
struct RichFormat {
    COLORREF colour = 0;
    bool oneColour = false;
    int points = 0;
    bool oneSize = false;
    bool underlined = false;
    std::wstring face;
};

class RichText {
public:
    RichText(HANDLE process, Window window) : process_(process), window_(window) {}

    RichFormat FormatOfAll() const;
    /// How text typed at the caret would look.
    RichFormat FormatAtCaret() const;
    /// As it is seen on the screen: the control gives its colour away only in exchange for another one.
    COLORREF Background() const;
    /// First and last character position of the selection.
    std::pair<int, int> Selection() const;
    void Select(int first, int last) const;
    bool ReadOnly() const;

private:
    HANDLE process_;
    Window window_;
};

/// The selection of a plain edit control.
std::pair<int, int> EditSelection(const Window& edit);

/// Whether some text or picture in an area of the screen is plainly red.
bool HasRedPixels(const RECT& area);
/// The most frequent colour of an area.
COLORREF MainColour(const RECT& area);

}  // namespace e2e
