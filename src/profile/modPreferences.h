// The preferences file: the entries that a learner can choose from.
#pragma once

#include <cstdint>
#include <string>

#include "win32/controls.h"

namespace modPreferences {

/// Adds the value of each line of the preferences to the list, as far as they fit into 4096 bytes, and selects the
/// first; returns how many entries the list has. Raises file-not-found as "LoadPreferences" and error 9 for a line
/// without "=".
std::int16_t LoadPreferences(const std::wstring& file, win32::ListBox& list);

}  // namespace modPreferences
