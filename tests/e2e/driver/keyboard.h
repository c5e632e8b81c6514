// Real key presses through the system's input queue.
#pragma once

#include <string_view>

namespace e2e {

/// Presses one chord, written like "Ctrl+Alt+Shift+F8", "Alt+F4", "Enter", "A"; an unknown key name throws
/// std::invalid_argument.
void PressKeys(std::string_view chord);

/// Types each character with the keys that the keyboard layout gives for it.
void TypeKeys(std::wstring_view text);

}  // namespace e2e
