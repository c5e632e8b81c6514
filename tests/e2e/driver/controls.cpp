// What stands in the list, tree and rich edit controls of another process.
#include "driver/controls.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <map>
#include <memory>
#include <stdexcept>

namespace e2e {

namespace {

/// Memory inside the other process, given back at the end.
class RemoteMemory {
public:
    RemoteMemory(HANDLE process, std::size_t size)
        : process_(process), address_(VirtualAllocEx(process, nullptr, size, MEM_COMMIT, PAGE_READWRITE)) {
        if (address_ == nullptr) throw std::runtime_error("no memory in the other process");
    }
    ~RemoteMemory() { VirtualFreeEx(process_, address_, 0, MEM_RELEASE); }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    std::byte* Address() const { return static_cast<std::byte*>(address_); }
    void Write(std::size_t offset, const void* data, std::size_t size) const {
        WriteProcessMemory(process_, Address() + offset, data, size, nullptr);
    }
    void Read(std::size_t offset, void* data, std::size_t size) const {
        ReadProcessMemory(process_, Address() + offset, data, size, nullptr);
    }

private:
    HANDLE process_;
    void* address_;
};

RichFormat ReadFormat(HANDLE process, const Window& window) {
    const RemoteMemory memory(process, sizeof(CHARFORMAT2W));
    CHARFORMAT2W format{};
    format.cbSize = sizeof(format);
    memory.Write(0, &format, sizeof(format));
    window.Send(EM_GETCHARFORMAT, SCF_SELECTION, std::bit_cast<LPARAM>(memory.Address()));
    memory.Read(0, &format, sizeof(format));

    constexpr int kTwipsPerPoint = 20;
    RichFormat result;
    const bool automatic = (format.dwEffects & CFE_AUTOCOLOR) != 0;
    result.colour = automatic ? GetSysColor(COLOR_WINDOWTEXT) : format.crTextColor;
    result.oneColour = (format.dwMask & CFM_COLOR) != 0;
    result.points = static_cast<int>(format.yHeight) / kTwipsPerPoint;
    result.oneSize = (format.dwMask & CFM_SIZE) != 0;
    result.underlined = (format.dwEffects & CFE_UNDERLINE) != 0;
    result.face = format.szFaceName;
    return result;
}

/// The messages that read a list box or the list of a combo box.
struct ListMessages {
    UINT count;
    UINT length;
    UINT text;
    UINT selected;
};
constexpr ListMessages kListBox{LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT, LB_GETCURSEL};
constexpr ListMessages kDropDown{CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_GETCURSEL};

ListContent ReadEntries(const Window& list, const ListMessages& messages) {
    ListContent content;
    const LRESULT count = list.Send(messages.count);
    for (LRESULT line = 0; line < count; ++line) {
        const auto index = static_cast<WPARAM>(line);
        std::wstring text(static_cast<std::size_t>(list.Send(messages.length, index)) + 1, L'\0');
        text.resize(static_cast<std::size_t>(list.Send(messages.text, index, std::bit_cast<LPARAM>(text.data()))));
        content.lines.push_back(text);
    }
    content.selected = static_cast<int>(list.Send(messages.selected));
    return content;
}

template <class Visit>
void ForEachPixel(const RECT& area, Visit&& visit) {
    const HDC screen = GetDC(nullptr);
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HDC memory = CreateCompatibleDC(screen);
    const HGDIOBJ previous = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
    GdiFlush();
    std::vector<RGBQUAD> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    if (bits != nullptr) std::memcpy(pixels.data(), bits, pixels.size() * sizeof(RGBQUAD));
    for (const RGBQUAD& pixel : pixels) visit(RGB(pixel.rgbRed, pixel.rgbGreen, pixel.rgbBlue));
    SelectObject(memory, previous);
    DeleteDC(memory);
    DeleteObject(bitmap);
    ReleaseDC(nullptr, screen);
}

}  // namespace

TreeNode Tree::Read(LPARAM item, LPARAM selected) const {
    constexpr int kTextLimit = 1024;
    const RemoteMemory memory(process_, sizeof(TVITEMW) + kTextLimit * sizeof(wchar_t));
    TVITEMW request{};
    request.mask = TVIF_TEXT | TVIF_STATE | TVIF_HANDLE;
    request.hItem = std::bit_cast<HTREEITEM>(item);
    request.stateMask = TVIS_EXPANDED;
    request.pszText = std::bit_cast<wchar_t*>(memory.Address() + sizeof(TVITEMW));
    request.cchTextMax = kTextLimit;
    memory.Write(0, &request, sizeof(request));
    window_.Send(TVM_GETITEMW, 0, std::bit_cast<LPARAM>(memory.Address()));
    memory.Read(0, &request, sizeof(request));
    std::array<wchar_t, kTextLimit> text{};
    memory.Read(sizeof(TVITEMW), text.data(), text.size() * sizeof(wchar_t));

    TreeNode node;
    node.text = std::wstring(text.data(), wcsnlen(text.data(), text.size()));
    node.selected = item == selected;
    node.expanded = (request.state & TVIS_EXPANDED) != 0;
    node.children = ReadSiblings(window_.Send(TVM_GETNEXTITEM, TVGN_CHILD, item), selected);
    return node;
}

std::vector<TreeNode> Tree::ReadSiblings(LPARAM first, LPARAM selected) const {
    std::vector<TreeNode> nodes;
    for (LPARAM item = first; item != 0; item = window_.Send(TVM_GETNEXTITEM, TVGN_NEXT, item))
        nodes.push_back(Read(item, selected));
    return nodes;
}

std::vector<TreeNode> Tree::Roots() const {
    return ReadSiblings(window_.Send(TVM_GETNEXTITEM, TVGN_ROOT), window_.Send(TVM_GETNEXTITEM, TVGN_CARET));
}

std::vector<std::wstring> Tree::RootTexts() const {
    std::vector<std::wstring> texts;
    for (const TreeNode& root : Roots()) texts.push_back(root.text);
    return texts;
}

int Tree::Count() const { return static_cast<int>(window_.Send(TVM_GETCOUNT)); }

std::wstring Tree::SelectedText() const {
    const LRESULT selected = window_.Send(TVM_GETNEXTITEM, TVGN_CARET);
    return selected == 0 ? std::wstring() : Read(selected, selected).text;
}

bool Tree::HasSelection() const { return window_.Send(TVM_GETNEXTITEM, TVGN_CARET) != 0; }

void Tree::SelectNothing() const { window_.Send(TVM_SELECTITEM, TVGN_CARET, 0); }

ListContent ReadList(const Window& list) { return ReadEntries(list, kListBox); }

ListContent ReadDropDown(const Window& list) { return ReadEntries(list, kDropDown); }

RichFormat RichText::FormatOfAll() const {
    const auto [first, last] = Selection();
    Select(0, -1);
    const RichFormat format = ReadFormat(process_, window_);
    Select(first, last);
    return format;
}

RichFormat RichText::FormatAtCaret() const { return ReadFormat(process_, window_); }

COLORREF RichText::Background() const { return MainColour(window_.ScreenRect()); }

std::pair<int, int> RichText::Selection() const { return EditSelection(window_); }

void RichText::Select(int first, int last) const { window_.Send(EM_SETSEL, static_cast<WPARAM>(first), last); }

bool RichText::ReadOnly() const { return (window_.Style() & ES_READONLY) != 0; }

std::pair<int, int> EditSelection(const Window& edit) {
    const LRESULT packed = edit.Send(EM_GETSEL);
    return {static_cast<int>(LOWORD(packed)), static_cast<int>(HIWORD(packed))};
}

bool HasRedPixels(const RECT& area) {
    int red = 0;
    ForEachPixel(area, [&](COLORREF colour) {
        if (GetRValue(colour) > 180 && GetGValue(colour) < 80 && GetBValue(colour) < 80) ++red;
    });
    return red >= 10;
}

COLORREF MainColour(const RECT& area) {
    std::map<COLORREF, int> counts;
    ForEachPixel(area, [&](COLORREF colour) { ++counts[colour]; });
    const auto most = std::max_element(counts.begin(), counts.end(),
                                       [](const auto& left, const auto& right) { return left.second < right.second; });
    return most == counts.end() ? CLR_INVALID : most->first;
}

}  // namespace e2e
