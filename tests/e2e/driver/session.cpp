// One run of the program as a user has it: its forms and controls by name, its focus, its boxes, and keys pressed into
// it.
#include "driver/session.h"

#include <algorithm>

#include "driver/keyboard.h"

namespace e2e {

Window Session::Form(std::wstring_view name) const {
    for (const Window& window : TopLevelWindows(program_.Id())) {
        if (window.Visible() && window.Name() == name) return window;
    }
    return {};
}

Window Session::WaitForForm(std::wstring_view name, std::chrono::milliseconds patience) const {
    Window form;
    WaitUntil(
        [&] {
            form = Form(name);
            return static_cast<bool>(form) || !program_.Running();
        },
        patience);
    return form;
}

bool Session::WaitForNoForm(std::wstring_view name) const {
    return WaitUntil([&] {
        const std::vector<Window> windows = TopLevelWindows(program_.Id());
        return std::none_of(windows.begin(), windows.end(),
                            [&](const Window& window) { return window.Name() == name; });
    });
}

Window Session::Control(std::wstring_view form, std::wstring_view control) const {
    const Window window = Form(form);
    return window ? window.Descendant(control) : Window();
}

std::wstring Session::Text(std::wstring_view form, std::wstring_view control) const {
    const Window window = Control(form, control);
    return window ? window.Text() : std::wstring(L"(no such control)");
}

bool Session::WaitForText(std::wstring_view form, std::wstring_view control, std::wstring_view expected) const {
    return WaitUntil([&] { return Text(form, control) == expected; });
}

Tree Session::TreeOf(std::wstring_view form, std::wstring_view control) const {
    return {program_.Process(), Control(form, control)};
}

RichText Session::RichTextOf(std::wstring_view form, std::wstring_view control) const {
    return {program_.Process(), Control(form, control)};
}

std::wstring Session::Request() const { return Text(L"frmMain", L"cmdAccessibility"); }

bool Session::WaitForRequest(std::wstring_view expected, std::chrono::milliseconds patience) const {
    return WaitUntil([&] { return Request() == expected; }, patience);
}

Window Session::Focus() const {
    for (const Window& window : TopLevelWindows(program_.Id())) {
        GUITHREADINFO information{};
        information.cbSize = sizeof(information);
        if (GetGUIThreadInfo(window.ThreadId(), &information) && information.hwndFocus != nullptr)
            return Window(information.hwndFocus);
    }
    return {};
}

std::wstring Session::FocusName() const {
    const Window focus = Focus();
    return focus ? focus.Name() : std::wstring();
}

bool Session::WaitForFocus(std::wstring_view control, std::chrono::milliseconds patience) const {
    return WaitUntil([&] { return FocusName() == control; }, patience);
}

std::optional<Box> Session::WaitForBox(std::chrono::milliseconds patience) const {
    std::optional<Box> box;
    WaitUntil(
        [&] {
            box = TopBox();
            return box.has_value() || !program_.Running();
        },
        patience);
    return box;
}

Window Session::Active() const {
    const Window foreground(GetForegroundWindow());
    return foreground && foreground.ProcessId() == program_.Id() ? foreground : Window();
}

bool Session::WaitForKeyboard() const {
    return WaitUntil([&] {
        const Window active = Active();
        // A disabled window in front is one whose dialog is just opening: the keys belong to that one.
        return active && active.Enabled();
    });
}

bool Session::Press(std::string_view chord) const {
    if (!WaitForKeyboard()) return false;
    PressKeys(chord);
    return true;
}

bool Session::Type(std::wstring_view text) const {
    if (!WaitForKeyboard()) return false;
    TypeKeys(text);
    return true;
}

}  // namespace e2e
