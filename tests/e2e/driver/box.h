// The system's message boxes of another process: what they say, how they look, and answering them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "driver/window.h"

namespace e2e {

struct BoxButton {
    int id = 0;
    std::wstring text;
};

struct Box {
    Window window;
    std::wstring title;
    std::wstring text;
    std::vector<BoxButton> buttons;
    bool hasIcon = false;
    Window owner;

    /// The buttons' identifiers in their order.
    std::vector<int> ButtonIds() const;
    /// The stop icon is the red one; waits a little for the box to be painted.
    bool HasStopIcon() const;
    /// Presses one of the buttons and waits until the box is gone.
    bool Answer(int buttonId) const;
};

/// The topmost message box of the process: a dialog without a name of the program's own.
std::optional<Box> FindBox(DWORD processId);

}  // namespace e2e
