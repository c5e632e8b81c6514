// One window of another process, seen from outside: name property, text, class, identifier, place, neighbours.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "win32/windows_api.h"

namespace e2e {

class Window {
public:
    Window() = default;
    explicit Window(HWND handle) : handle_(handle) {}

    HWND Handle() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr && IsWindow(handle_) != FALSE; }

    /// The name that the program hangs on its forms and controls (window property Keystride.Name), or nothing.
    std::wstring Name() const;
    std::wstring Text() const;
    /// Class names ignore case: a native class comes in the spelling that the contract uses.
    std::wstring ClassName() const;
    int Id() const;
    DWORD Style() const;
    DWORD ProcessId() const;
    DWORD ThreadId() const;

    /// Visible together with all its parents.
    bool Visible() const;
    /// Its own visible bit, whatever its parents have.
    bool Shown() const;
    bool Enabled() const;

    RECT ScreenRect() const;
    /// In the coordinates of the parent's client area.
    RECT RectInParent() const;
    SIZE ClientSize() const;

    Window Owner() const;
    Window Parent() const;
    Window Previous() const;
    Window Next() const;
    /// The direct children in z-order, which is also the tab order.
    std::vector<Window> Children() const;
    /// The first descendant with that name; no window when there is none.
    Window Descendant(std::wstring_view name) const;

    bool IsStatic() const;
    bool IsGroupBox() const;
    bool IsPushButton() const;
    bool IsTextOrListControl() const;

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    bool Post(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    /// Presses a button without waiting for what it opens.
    bool Click() const;

    friend bool operator==(const Window& left, const Window& right) { return left.handle_ == right.handle_; }

private:
    HWND handle_ = nullptr;
};

void PrintTo(const Window& window, std::ostream* stream);

/// All top-level windows of a process in z-order.
std::vector<Window> TopLevelWindows(DWORD processId);

/// A dump of the process's visible windows for a failed test's report.
std::string Describe(DWORD processId);

}  // namespace e2e
