// Seams of the tests with windows: a recorder of spoken names, a watch that answers message boxes, a log of the focus,
// held modifier keys.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "win32/accessible.h"
#include "win32/keys.h"
#include "win32/windows_api.h"

namespace unit {

/// What was asked of the accessibility services while this lives.
class SpokenRecorder {
public:
    SpokenRecorder();
    SpokenRecorder(const SpokenRecorder&) = delete;
    SpokenRecorder& operator=(const SpokenRecorder&) = delete;
    ~SpokenRecorder();

    struct Name {
        std::wstring name;
        std::wstring shortcut;
        bool operator==(const Name&) const = default;
    };

    std::map<HWND, Name> names;
    std::vector<HWND> liveRegions;
    std::vector<HWND> announced;
    std::vector<HWND> cleared;

private:
    std::unique_ptr<win32::AccessibleProperties> former_;
};

/// Answers every message box of this thread and notes it; while none lives, a box waits for a user.
class BoxWatch {
public:
    /// `answer` is the identifier of the button that is pressed in every box.
    explicit BoxWatch(int answer = IDOK);
    BoxWatch(const BoxWatch&) = delete;
    BoxWatch& operator=(const BoxWatch&) = delete;
    ~BoxWatch();

    struct Box {
        std::wstring text;
        std::wstring title;
        std::vector<int> buttons;
        bool errorIcon = false;
        HWND owner = nullptr;
    };

    std::vector<Box> boxes;

private:
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);
    void Note(HWND window);

    int answer_;
    HHOOK hook_;
    std::vector<HWND> seen_;
};

/// The windows of this thread that got the focus while this lives, one after the other.
class FocusLog {
public:
    FocusLog();
    FocusLog(const FocusLog&) = delete;
    FocusLog& operator=(const FocusLog&) = delete;
    ~FocusLog();

    std::vector<HWND> windows;

private:
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);

    HHOOK hook_;
};

/// Holds modifier keys down for the key state that this thread sees.
class HeldKeys {
public:
    explicit HeldKeys(const win32::Modifiers& held);
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;
    ~HeldKeys();

private:
    static void Set(const win32::Modifiers& held);
};

/// The name that the window carries for outside programs, "" when it has none.
std::wstring NameProperty(HWND window);

/// Lets the messages that wait now be processed.
void PumpMessages();

/// A window's rectangle in the client area of its parent.
RECT PlaceOf(HWND control);

}  // namespace unit
