// Layout arithmetic without windows: twips and pixels, the area above the taskbar, rows of buttons.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace win32 {

inline constexpr int kTwipsPerInch = 1440;
inline constexpr int kPointsPerInch = 72;
inline constexpr int kStandardDpi = 96;

/// A rectangle by place and size; the unit is the user's (twips or pixels).
struct Box {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    [[nodiscard]] int Right() const { return left + width; }
    [[nodiscard]] int Bottom() const { return top + height; }
    bool operator==(const Box&) const = default;
};

/// Twips to pixels and back, rounded to the nearest.
int TwipsToPixels(int twips, int dpi);
int PixelsToTwips(int pixels, int dpi);

/// The part of the screen above a taskbar along its bottom edge; the work area when the taskbar is elsewhere, hidden or
/// absent. All in pixels.
Box AreaAboveTaskbar(const Box& screen, const std::optional<Box>& taskbar, const Box& workArea);

/// Where a dialog that fills the area goes: a margin of 300 twips at the left, right and top, and 300 above the
/// taskbar. Area in pixels, result in pixels.
Box PlaceDialog(const Box& area, int dpi);

// Where a dialog's main control stands, in twips.
inline constexpr int kPickerLeft = 200;
inline constexpr int kPickerWidthLoss = 800;

/// The main control of a dialog and the top of the button row below it, in twips.
struct PickerLayout {
    Box main;
    int buttonTop = 0;
};

/// Places the main control in a client area of width x height: left 200, from `top` down to 1.75 button heights above
/// the bottom, less `belowMain` for what stands between it and the buttons. All in twips.
PickerLayout LayOutPicker(int width, int height, int top, int buttonHeight, int belowMain);

/// The vertical places of the main window, in twips.
struct MainLayoutInput {
    int width = 0;
    int height = 0;
    int titleHeight = 0;
    int commandsHeight = 0;
    int infoHeight = 0;
    int textHeight = 0;  ///< the present height of the multi-row text, kept when there is no room
};

struct MainLayout {
    int width = 0;
    int infoTop = 0;
    int textTop = 0;
    int textHeight = 0;
    int editTop = 0;
    int editHeight = 0;
};

MainLayout LayOutMain(const MainLayoutInput& input);

/// One button's caption as the widths of its words, and the width of a blank, in pixels.
struct CaptionWidths {
    std::vector<int> words;
    int blank = 0;
};

/// A row of buttons: how many text lines they need and how wide each is.
struct ButtonRow {
    std::size_t lines = 1;
    std::vector<int> widths;
};

/// All captions on one line where they fit side by side in `available` pixels, each with `padding` around its text and
/// `gap` between two; otherwise each as narrow as its widest word. Forms in between are left out: not every system
/// breaks such a caption where it was measured.
ButtonRow FitButtons(std::span<const CaptionWidths> captions, int available, int padding, int gap);

}  // namespace win32
