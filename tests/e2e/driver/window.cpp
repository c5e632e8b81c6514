// One window of another process, seen from outside: name property, text, class, identifier, place, neighbours.
#include "driver/window.h"

#include <array>
#include <bit>
#include <ostream>
#include <sstream>

#include "driver/text.h"

namespace e2e {

namespace {

constexpr wchar_t kNameProperty[] = L"Keystride.Name";
constexpr UINT kMessageTimeLimit = 5000;
constexpr std::array<const wchar_t*, 7> kNativeClasses{L"Button",   L"Edit",          L"Static",     L"ListBox",
                                                       L"ComboBox", L"SysTreeView32", L"RICHEDIT50W"};

BOOL CALLBACK CollectWindow(HWND handle, LPARAM list) {
    std::bit_cast<std::vector<Window>*>(list)->emplace_back(handle);
    return TRUE;
}

void DescribeInto(std::ostream& stream, const Window& window, int depth) {
    const RECT rect = window.ScreenRect();
    stream << std::string(static_cast<std::size_t>(depth) * 2, ' ') << ToUtf8(window.Name()) << " [" << window.Id()
           << "] " << ToUtf8(window.ClassName()) << " '" << Readable(window.Text().substr(0, 100)) << "' " << rect.left
           << ',' << rect.top << ' ' << rect.right - rect.left << 'x' << rect.bottom - rect.top
           << (window.Shown() ? "" : " hidden") << (window.Enabled() ? "" : " disabled") << '\n';
    for (const Window& child : window.Children()) DescribeInto(stream, child, depth + 1);
}

}  // namespace

std::wstring Window::Name() const {
    const auto value = std::bit_cast<ULONG_PTR>(GetPropW(handle_, kNameProperty));
    if (value == 0) return {};
    std::array<wchar_t, 256> name{};
    const UINT length = GlobalGetAtomNameW(static_cast<ATOM>(value), name.data(), static_cast<int>(name.size()));
    return {name.data(), length};
}

std::wstring Window::Text() const {
    const auto length = static_cast<std::size_t>(Send(WM_GETTEXTLENGTH));
    // A control may report fewer characters than it gives back once line ends are written out.
    std::wstring text(length * 2 + 16, L'\0');
    const LRESULT copied = Send(WM_GETTEXT, text.size(), std::bit_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied < 0 ? 0 : copied));
    return text;
}

std::wstring Window::ClassName() const {
    std::array<wchar_t, 256> name{};
    const int length = GetClassNameW(handle_, name.data(), static_cast<int>(name.size()));
    for (const wchar_t* native : kNativeClasses) {
        if (CompareStringOrdinal(name.data(), length, native, -1, TRUE) == CSTR_EQUAL) return native;
    }
    return {name.data(), static_cast<std::size_t>(length)};
}

int Window::Id() const { return GetDlgCtrlID(handle_); }

DWORD Window::Style() const { return static_cast<DWORD>(GetWindowLongPtrW(handle_, GWL_STYLE)); }

DWORD Window::ProcessId() const {
    DWORD id = 0;
    GetWindowThreadProcessId(handle_, &id);
    return id;
}

DWORD Window::ThreadId() const { return GetWindowThreadProcessId(handle_, nullptr); }

bool Window::Visible() const { return IsWindowVisible(handle_) != FALSE; }

bool Window::Shown() const { return (Style() & WS_VISIBLE) != 0; }

bool Window::Enabled() const { return IsWindowEnabled(handle_) != FALSE; }

RECT Window::ScreenRect() const {
    RECT rect{};
    GetWindowRect(handle_, &rect);
    return rect;
}

RECT Window::RectInParent() const {
    const RECT screen = ScreenRect();
    POINT origin{};
    ClientToScreen(Parent().Handle(), &origin);
    return {screen.left - origin.x, screen.top - origin.y, screen.right - origin.x, screen.bottom - origin.y};
}

SIZE Window::ClientSize() const {
    RECT rect{};
    GetClientRect(handle_, &rect);
    return {rect.right, rect.bottom};
}

Window Window::Owner() const { return Window(GetWindow(handle_, GW_OWNER)); }

Window Window::Parent() const { return Window(GetAncestor(handle_, GA_PARENT)); }

Window Window::Previous() const { return Window(GetWindow(handle_, GW_HWNDPREV)); }

Window Window::Next() const { return Window(GetWindow(handle_, GW_HWNDNEXT)); }

std::vector<Window> Window::Children() const {
    std::vector<Window> children;
    for (HWND child = GetWindow(handle_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        children.emplace_back(child);
    return children;
}

Window Window::Descendant(std::wstring_view name) const {
    std::vector<Window> all;
    EnumChildWindows(handle_, CollectWindow, std::bit_cast<LPARAM>(&all));
    for (const Window& window : all) {
        if (window.Name() == name) return window;
    }
    return {};
}

bool Window::IsStatic() const { return ClassName() == L"Static"; }

bool Window::IsGroupBox() const { return ClassName() == L"Button" && (Style() & BS_TYPEMASK) == BS_GROUPBOX; }

bool Window::IsPushButton() const {
    const DWORD type = Style() & BS_TYPEMASK;
    return ClassName() == L"Button" && (type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON);
}

bool Window::IsTextOrListControl() const {
    const std::wstring name = ClassName();
    return name == L"Edit" || name == L"RICHEDIT50W" || name == L"ListBox" || name == L"ComboBox" ||
           name == L"SysTreeView32";
}

LRESULT Window::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    DWORD_PTR result = 0;
    SendMessageTimeoutW(handle_, message, wParam, lParam, SMTO_NORMAL, kMessageTimeLimit, &result);
    return static_cast<LRESULT>(result);
}

bool Window::Post(UINT message, WPARAM wParam, LPARAM lParam) const {
    return PostMessageW(handle_, message, wParam, lParam) != FALSE;
}

bool Window::Click() const { return Post(BM_CLICK); }

void PrintTo(const Window& window, std::ostream* stream) {
    if (!window)
        *stream << "no window";
    else
        *stream << ToUtf8(window.Name()) << " (" << ToUtf8(window.ClassName()) << ')';
}

std::vector<Window> TopLevelWindows(DWORD processId) {
    std::vector<Window> windows;
    EnumWindows(CollectWindow, std::bit_cast<LPARAM>(&windows));
    std::erase_if(windows, [&](const Window& window) { return window.ProcessId() != processId; });
    return windows;
}

std::string Describe(DWORD processId) {
    std::ostringstream stream;
    for (const Window& window : TopLevelWindows(processId)) {
        if (window.Visible()) DescribeInto(stream, window, 0);
    }
    return stream.str();
}

}  // namespace e2e
