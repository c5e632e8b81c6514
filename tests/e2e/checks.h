// Checks that several tests make of a window: its place, the layout rules, nothing overlapping, nothing clipped.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "driver/session.h"

namespace e2e {

/// Twips to pixels at a resolution, rounded.
int Pixels(double twips, int dpi);

/// The screen above the taskbar: the taskbar's rectangle tells its height.
RECT ScreenAboveTaskbar();

void CheckMainWindowPlace(const Window& main);
void CheckMainWindowLayout(const Window& main, int dpi);
void CheckDialogPlace(const Window& dialog, int dpi);
void CheckPickerLayout(const Window& picker, int dpi);
/// No two visible controls share a pixel; a control lies inside a group box or apart from it.
void CheckNothingOverlaps(const Window& form);
/// Every visible control lies inside its form.
void CheckEverythingInside(const Window& form);
/// Every visible label and button has room for its text in Arial of that size.
void CheckNothingClipped(const Window& form, int points, int dpi);

/// A control's name and what is spoken for it.
using SpokenNames = std::vector<std::pair<std::wstring, std::wstring>>;
/// Boxes, lists and trees are named by the static directly before them, in this order.
void CheckSpokenNames(const Window& form, const SpokenNames& names);
/// A group box stands directly before its members, as their sibling, and surrounds them.
void CheckGroup(const Window& form, std::wstring_view group, const std::vector<std::wstring>& members);

}  // namespace e2e
