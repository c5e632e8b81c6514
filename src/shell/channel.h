// The way to the screen-reader side: request texts in a hidden caption of the main window, and its typing area.
#pragma once

#include <string>

namespace channel {

/// Hands one request text over; a second one replaces the first. Loads the main window if it is not loaded yet.
void SendToScreenReader(const std::wstring& text);

/// Empties the area in which the learner types.
void EmptyTypingArea();

}  // namespace channel
