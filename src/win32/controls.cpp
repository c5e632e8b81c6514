// The controls of a form over their native windows.
#include "win32/controls.h"

#include <algorithm>
#include <cwchar>
#include <utility>

#include "win32/accessible.h"
#include "win32/layout.h"
#include "win32/text.h"
#include "win32/windows_api.h"

namespace win32 {

namespace {

constexpr int kTwipsPerPoint = 20;
constexpr LPARAM kMaxTextLength = 0x7FFFFFFE;

HTREEITEM ToItem(TreeView::Node node) { return reinterpret_cast<HTREEITEM>(node); }

TreeView::Node ToNode(LRESULT item) { return reinterpret_cast<TreeView::Node>(item); }

}  // namespace

std::uint32_t Colour::Value() const { return system_ ? GetSysColor(static_cast<int>(value_)) : value_; }

bool IsHighContrastDesktop() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != FALSE &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

Control::Control(Form& form, int id, const wchar_t* name) : form_(form), id_(id), name_(name) {
    form.controls_.push_back(this);
}

Control::~Control() { std::erase(form_.controls_, this); }

WindowHandle Control::Handle() const { return GetDlgItem(form_.Handle(), id_); }

std::intptr_t Control::Send(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) const {
    return SendMessageW(Handle(), message, wParam, lParam);
}

std::wstring Control::Text() const {
    std::wstring text(static_cast<std::size_t>(Send(WM_GETTEXTLENGTH)), L'\0');
    text.resize(static_cast<std::size_t>(Send(WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

void Control::SetText(const std::wstring& text) const { SetWindowTextW(Handle(), text.c_str()); }

bool Control::IsShown() const { return (GetWindowLongPtrW(Handle(), GWL_STYLE) & WS_VISIBLE) != 0; }

void Control::Show(bool shown) const { ShowWindow(Handle(), shown ? SW_SHOWNA : SW_HIDE); }

bool Control::IsEnabled() const { return IsWindowEnabled(Handle()) != FALSE; }

void Control::Enable(bool enabled) const { EnableWindow(Handle(), enabled ? TRUE : FALSE); }

void Control::SetTabStop(bool stop) const {
    const LONG_PTR style = GetWindowLongPtrW(Handle(), GWL_STYLE);
    SetWindowLongPtrW(Handle(), GWL_STYLE, stop ? style | WS_TABSTOP : style & ~LONG_PTR{WS_TABSTOP});
}

bool Control::HasFocus() const { return GetFocus() == Handle(); }

void Control::Focus() const { SendMessageW(form_.Handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Handle()), TRUE); }

int Control::HeightTwips() const {
    RECT rectangle{};
    GetWindowRect(Handle(), &rectangle);
    return form_.ToTwips(rectangle.bottom - rectangle.top);
}

void Control::SetSpokenName(std::wstring_view name, std::wstring_view shortcut) {
    Accessibility().SetName(Handle(), name, shortcut);
    hasSpokenName_ = true;
}

void Control::OnDetach() {
    if (std::exchange(hasSpokenName_, false)) Accessibility().Clear(Handle());
}

void Control::OnNotification(unsigned /*code*/) {}

void Button::OnNotification(unsigned code) {
    if (code == BN_CLICKED && OnClick) OnClick();
}

bool CheckButton::IsChecked() const { return Send(BM_GETCHECK) == BST_CHECKED; }

void CheckButton::SetChecked(bool checked) const { Send(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED); }

void TextBox::OnNotification(unsigned code) {
    if (code == EN_CHANGE && OnChange) OnChange();
    if (code == EN_SETFOCUS && OnFocus) OnFocus();
}

void TextBox::MoveToEnd() const {
    const auto length = Send(WM_GETTEXTLENGTH);
    Send(EM_SETSEL, static_cast<WPARAM>(length), length);
    Send(EM_SCROLLCARET);
}

struct ValueBox::Procedure {
    static LRESULT CALLBACK Run(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id, DWORD_PTR box) {
        const auto& self = *reinterpret_cast<const ValueBox*>(box);
        const auto character = static_cast<wchar_t>(wParam);
        switch (message) {
            case WM_NCDESTROY:
                RemoveWindowSubclass(window, &Run, id);
                break;
            case WM_CHAR:
                if (character == L'\r' || character == L'\n') return 0;
                if (self.TakesCharacter && !self.TakesCharacter(character)) return 0;
                break;
            case WM_KEYDOWN:
                // Not every system's control pastes through WM_PASTE on this key.
                if (wParam == VK_INSERT && GetKeyState(VK_SHIFT) < 0 && GetKeyState(VK_CONTROL) >= 0)
                    return SendMessageW(window, WM_PASTE, 0, 0);
                break;
            case WM_PASTE:
                if (!self.TakesPaste || self.TakesPaste()) self.Paste();
                return 0;
            case WM_SETTEXT:
            case EM_REPLACESEL:
                if (lParam != 0) {
                    const std::wstring kept = DropLineBreaks(reinterpret_cast<const wchar_t*>(lParam));
                    return DefSubclassProc(window, message, wParam, reinterpret_cast<LPARAM>(kept.c_str()));
                }
                break;
            default:
                break;
        }
        return DefSubclassProc(window, message, wParam, lParam);
    }
};

void ValueBox::OnAttach() {
    Send(EM_SETLIMITTEXT, static_cast<WPARAM>(kMaxTextLength));
    SetWindowSubclass(Handle(), &Procedure::Run, 1, reinterpret_cast<DWORD_PTR>(this));
}

void ValueBox::Paste() const {
    // The control itself would end at the first line break.
    if (OpenClipboard(Handle()) == FALSE) return;
    std::wstring text;
    if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
        if (const auto* locked = static_cast<const wchar_t*>(GlobalLock(data))) {
            text.assign(locked, wcsnlen(locked, GlobalSize(data) / sizeof(wchar_t)));
            GlobalUnlock(data);
        }
    }
    CloseClipboard();
    Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

RichEdit::RichEdit(Form& form, int id, const wchar_t* name) : Control(form, id, name) {
    // The window class comes with this library; without it no form with a rich edit can be created.
    LoadLibraryW(L"msftedit.dll");
}

void RichEdit::OnAttach() {
    text_ = Colour::System(COLOR_WINDOWTEXT);
    back_ = Colour::System(COLOR_WINDOW);
    points_ = kFontPoints;
    // Plain text has one format for all its text, so that later text gets it too.
    Send(EM_SETTEXTMODE, TM_PLAINTEXT | TM_MULTILEVELUNDO);
    Send(EM_EXLIMITTEXT, 0, kMaxTextLength);
    if (OnChange) Send(EM_SETEVENTMASK, 0, ENM_CHANGE);
    Refresh();
    OnDpiChanged();
}

int RichEdit::FontPoints() const {
    CHARFORMATW format{};
    format.cbSize = sizeof format;
    Send(EM_GETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
    return (format.yHeight + kTwipsPerPoint / 2) / kTwipsPerPoint;
}

void RichEdit::SetFontPoints(int points) {
    points_ = points;
    Refresh();
}

void RichEdit::SetColours(Colour text, Colour back) {
    text_ = text;
    back_ = back;
    Refresh();
}

void RichEdit::Refresh() const {
    Send(EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(back_.Value()));
    CHARFORMATW format{};
    format.cbSize = sizeof format;
    format.dwMask = CFM_SIZE | CFM_COLOR | CFM_FACE | CFM_BOLD;
    format.yHeight = points_ * kTwipsPerPoint;
    format.crTextColor = text_.Value();
    std::copy_n(kFontFace, std::size(kFontFace), format.szFaceName);
    Send(EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
    Send(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format));
}

void RichEdit::OnDpiChanged() {
    // The control measures its text by the DPI that the system started with.
    const int systemDpi = static_cast<int>(GetDpiForSystem());
    if (systemDpi > 0 && systemDpi != Owner().Dpi())
        Send(EM_SETZOOM, static_cast<WPARAM>(Owner().Dpi()), systemDpi);
    else
        Send(EM_SETZOOM, 0, 0);
}

void RichEdit::OnNotification(unsigned code) {
    if (code == EN_CHANGE && OnChange) OnChange();
}

void RichEdit::Insert(const wchar_t* text) const { Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text)); }

struct InfoText::Procedure {
    static LRESULT CALLBACK Run(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                DWORD_PTR /*data*/) {
        // The control itself would keep Tab, and a read-only text in which it selects all is read out as a selection.
        if (message == WM_GETDLGCODE) return DLGC_WANTARROWS;
        if (message == WM_NCDESTROY) RemoveWindowSubclass(window, &Run, id);
        return DefSubclassProc(window, message, wParam, lParam);
    }
};

void InfoText::OnAttach() {
    RichEdit::OnAttach();
    SetWindowSubclass(Handle(), &Procedure::Run, 1, 0);
}

void LiveLabel::OnAttach() { Accessibility().SetLiveRegion(Handle()); }

void LiveLabel::OnDetach() {
    Accessibility().Clear(Handle());
    Control::OnDetach();
}

void LiveLabel::Say(const std::wstring& text) const {
    if (text == Text()) return;
    SetText(text);
    if (!text.empty()) Accessibility().AnnounceLiveRegion(Handle());
}

void NoticeLine::Say(const std::wstring& text) const {
    if (text == Text()) return;
    Show(!text.empty());
    LiveLabel::Say(text);
    Owner().LayOut();
}

int ListBox::Count() const { return static_cast<int>(Send(LB_GETCOUNT)); }

int ListBox::Selected() const { return static_cast<int>(Send(LB_GETCURSEL)); }

void ListBox::Select(int index) const { Send(LB_SETCURSEL, static_cast<WPARAM>(index)); }

void ListBox::Clear() const {
    Send(LB_RESETCONTENT);
    Send(LB_SETHORIZONTALEXTENT, 0);
}

void ListBox::Add(const std::wstring& text) const {
    Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    MakeRoomFor(text);
}

void ListBox::MakeRoomFor(const std::wstring& text) const {
    constexpr int kMargin = 8;  // pixels
    const int width = Owner().ToPixels(Owner().TextTwips(text).width) + kMargin;
    if (width > static_cast<int>(Send(LB_GETHORIZONTALEXTENT)))
        Send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width));
}

void ListBox::OnDpiChanged() {
    Send(LB_SETHORIZONTALEXTENT, 0);
    for (int index = 0; index < Count(); ++index) {
        const auto line = static_cast<WPARAM>(index);
        std::wstring text(static_cast<std::size_t>(Send(LB_GETTEXTLEN, line)), L'\0');
        Send(LB_GETTEXT, line, reinterpret_cast<LPARAM>(text.data()));
        MakeRoomFor(text);
    }
}

void ListBox::Remove(int index) const { Send(LB_DELETESTRING, static_cast<WPARAM>(index)); }

void ListBox::SetRedraw(bool redraw) const {
    Send(WM_SETREDRAW, redraw ? TRUE : FALSE);
    if (redraw) InvalidateRect(Handle(), nullptr, TRUE);
}

void ListBox::OnNotification(unsigned code) {
    if (code == LBN_SELCHANGE && OnSelect) OnSelect();
}

void ComboBox::OnAttach() {
    // The system's own thirty lines would cover the whole dialog on a small screen.
    constexpr WPARAM kOpenLines = 10;
    Send(CB_SETMINVISIBLE, kOpenLines);
}

int ComboBox::Count() const { return static_cast<int>(Send(CB_GETCOUNT)); }

int ComboBox::Selected() const { return static_cast<int>(Send(CB_GETCURSEL)); }

void ComboBox::Add(const std::wstring& text) const { Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())); }

bool ComboBox::IsDropped() const { return Send(CB_GETDROPPEDSTATE) != FALSE; }

int TreeView::Count() const { return static_cast<int>(Send(TVM_GETCOUNT)); }

void TreeView::Clear() {
    Send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
    keys_.clear();
    nodes_.clear();
}

TreeView::Node TreeView::Add(Node parent, std::wstring key, const std::wstring& text) {
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent == nullptr ? TVI_ROOT : ToItem(parent);
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM;
    insert.item.pszText = const_cast<wchar_t*>(text.c_str());  // only read by the control
    insert.item.lParam = static_cast<LPARAM>(keys_.size());
    const Node node = ToNode(SendMessageW(window_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
    keys_.push_back(std::move(key));
    nodes_.push_back(node);
    return node;
}

TreeView::Node TreeView::Selected() const { return ToNode(Send(TVM_GETNEXTITEM, TVGN_CARET)); }

void TreeView::Select(Node node) const {
    Send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(node));
    if (node != nullptr) Send(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(node));
}

TreeView::Node TreeView::FindKey(std::wstring_view key) const {
    const auto found = std::find(keys_.begin(), keys_.end(), key);
    return found == keys_.end() ? nullptr : nodes_[static_cast<std::size_t>(found - keys_.begin())];
}

std::wstring TreeView::Key(Node node) const {
    TVITEMW item{};
    item.mask = TVIF_PARAM | TVIF_HANDLE;
    item.hItem = ToItem(node);
    if (Send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) == FALSE) return {};
    return keys_.at(static_cast<std::size_t>(item.lParam));
}

std::wstring TreeView::Text(Node node) const {
    constexpr int kMaxText = 512;
    std::wstring text(kMaxText, L'\0');
    TVITEMW item{};
    item.mask = TVIF_TEXT | TVIF_HANDLE;
    item.hItem = ToItem(node);
    item.pszText = text.data();
    item.cchTextMax = kMaxText;
    if (Send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) == FALSE) return {};
    return item.pszText;
}

}  // namespace win32
