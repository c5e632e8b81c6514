// What a form learns of a key stroke before its controls do.
#pragma once

namespace win32 {

/// The modifier keys that are held.
struct Modifiers {
    bool ctrl = false;
    bool alt = false;
    bool shift = false;

    bool operator==(const Modifiers&) const = default;
};

/// One key that goes down or up: its virtual-key code and the modifiers.
struct KeyEvent {
    int virtualKey = 0;
    Modifiers modifiers;
};

}  // namespace win32
