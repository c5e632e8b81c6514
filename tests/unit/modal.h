// Acting on a modal dialog of the program from a unit test.
#pragma once

#include <functional>

#include "win32/controls.h"

namespace unit {

/// Shows a modal dialog and acts on it as soon as it waits for messages; whoever acts must close it.
void During(const std::function<void()>& show, std::function<void()> act);

/// Clicks a button.
void Click(const win32::Control& control);

}  // namespace unit
