// Layout arithmetic without windows.
#include "win32/layout.h"

#include <algorithm>
#include <numeric>

namespace win32 {

namespace {

constexpr int kDialogMargin = 300;
constexpr int kGap = 5;

/// value * factor / divisor, rounded to the nearest.
int Scale(int value, int factor, int divisor) {
    const long long product = static_cast<long long>(value) * factor;
    const long long half = divisor / 2;
    return static_cast<int>((product >= 0 ? product + half : product - half) / divisor);
}

/// How many lines the words take when each line is filled up to `width`.
std::size_t LinesAt(const CaptionWidths& caption, int width) {
    std::size_t lines = 1;
    int used = 0;
    for (const int word : caption.words) {
        const int wanted = used == 0 ? word : used + caption.blank + word;
        if (used != 0 && wanted > width) {
            ++lines;
            used = word;
        } else {
            used = wanted;
        }
    }
    return lines;
}

int LineWidth(const CaptionWidths& caption) {
    const int blanks = std::max(0, static_cast<int>(caption.words.size()) - 1);
    return std::accumulate(caption.words.begin(), caption.words.end(), 0) + caption.blank * blanks;
}

int WidestWord(const CaptionWidths& caption) {
    return caption.words.empty() ? 0 : *std::max_element(caption.words.begin(), caption.words.end());
}

/// How wide a button is whose caption takes as little room as it can. Two words that would share a line only thanks to
/// the padding break elsewhere on some systems than they were measured, so their line may not fit.
int NarrowWidth(const CaptionWidths& caption, int padding) {
    const int widest = WidestWord(caption);
    int width = widest + padding;
    for (std::size_t first = 0; first < caption.words.size(); ++first) {
        int line = caption.words[first];
        for (std::size_t word = first + 1; word < caption.words.size(); ++word) {
            line += caption.blank + caption.words[word];
            if (line > widest) width = std::min(width, line);
        }
    }
    return width;
}

}  // namespace

int TwipsToPixels(int twips, int dpi) { return Scale(twips, dpi, kTwipsPerInch); }

int PixelsToTwips(int pixels, int dpi) { return Scale(pixels, kTwipsPerInch, dpi); }

Box AreaAboveTaskbar(const Box& screen, const std::optional<Box>& taskbar, const Box& workArea) {
    const bool alongBottom = taskbar && taskbar->height > 0 && taskbar->Bottom() == screen.Bottom() &&
                             taskbar->top > screen.top && taskbar->left <= screen.left &&
                             taskbar->Right() >= screen.Right();
    if (!alongBottom) return workArea;
    return {screen.left, screen.top, screen.width, screen.height - taskbar->height};
}

Box PlaceDialog(const Box& area, int dpi) {
    const int margin = TwipsToPixels(kDialogMargin, dpi);
    const int bothMargins = TwipsToPixels(2 * kDialogMargin, dpi);
    return {area.left + margin, area.top + margin, area.width - bothMargins, area.height - bothMargins};
}

PickerLayout LayOutPicker(int width, int height, int top, int buttonHeight, int belowMain) {
    PickerLayout layout;
    const int mainHeight = height - top - buttonHeight * 7 / 4 - belowMain;
    layout.main = {kPickerLeft, top, std::max(0, width - kPickerWidthLoss), std::max(0, mainHeight)};
    layout.buttonTop = layout.main.Bottom() + belowMain + buttonHeight / 4;
    return layout;
}

MainLayout LayOutMain(const MainLayoutInput& input) {
    MainLayout layout;
    layout.width = input.width;
    layout.infoTop = input.commandsHeight + input.titleHeight;
    layout.textTop = layout.infoTop + input.infoHeight + kGap;
    const int rest = input.height - input.titleHeight - input.commandsHeight - input.infoHeight - 4 * kGap;
    const int shared = std::max(rest, 0);
    layout.textHeight = rest >= 1 ? shared * 2 / 5 : input.textHeight;
    layout.editTop = layout.textTop + layout.textHeight + kGap;
    layout.editHeight = shared * 3 / 5;
    return layout;
}

ButtonRow FitButtons(std::span<const CaptionWidths> captions, int available, int padding, int gap) {
    ButtonRow row;
    int total = gap * (static_cast<int>(captions.size()) - 1);
    for (const CaptionWidths& caption : captions) {
        row.widths.push_back(LineWidth(caption) + padding);
        total += row.widths.back();
    }
    if (total <= available) return row;
    for (std::size_t i = 0; i < captions.size(); ++i) {
        row.widths[i] = NarrowWidth(captions[i], padding);
        row.lines = std::max(row.lines, LinesAt(captions[i], WidestWord(captions[i])));
    }
    return row;
}

}  // namespace win32
