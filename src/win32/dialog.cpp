// The modal loop, placement, picker layout and shared keys of all dialogs.
#include "win32/dialog.h"

#include <algorithm>
#include <array>

#include "win32/layout.h"
#include "win32/windows_api.h"

namespace win32 {

namespace {

constexpr int kLabelTop = 200;
constexpr int kSideMargins = 400;
constexpr int kFrameMargin = 120;
constexpr int kOptionMark = 400;
constexpr int kButtonPadding = 440;
constexpr int kButtonGap = 100;
constexpr int kButtonVerticalPadding = 160;

bool IsTextBox(HWND window) {
    std::array<wchar_t, 32> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return lstrcmpiW(name.data(), L"Edit") == 0 || lstrcmpiW(name.data(), MSFTEDIT_CLASS) == 0;
}

/// Lets pending messages be processed, all but key strokes: they stay in the queue, so none runs a command twice.
void PumpPendingMessages() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, WM_KEYFIRST - 1, PM_REMOVE) != FALSE ||
           PeekMessageW(&message, nullptr, WM_KEYLAST + 1, 0xFFFF, PM_REMOVE) != FALSE) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        DispatchMessageW(&message);
    }
}

}  // namespace

Dialog::Dialog(const wchar_t* name, int templateId, DialogStyle style)
    : Form(name, templateId), OKButton(*this, IDOK, style.okName), style_(style) {
    CancelButton.OnClick = [this] { Cancel(); };
}

int Dialog::ShowModal() {
    const HWND owner = GetWindow(Handle(), GW_OWNER);
    const HWND formerFocus = GetFocus();
    mResult = kResultCancelled;
    open_ = true;
    {
        const ActiveScope active(*this);
        if (owner != nullptr) EnableWindow(owner, FALSE);
        // On showing, the dialog manager would give the focus to the first tab stop, and that would be spoken first.
        FirstFocus().Focus();
        ShowWindow(Handle(), SW_SHOW);
        SetForegroundWindow(Handle());
        RunMessages(*this, open_);
        open_ = false;
    }
    // The owner comes first: destroying a dialog over a disabled owner would activate another program.
    if (owner != nullptr) EnableWindow(owner, TRUE);
    Unload();
    if (formerFocus != nullptr && IsWindow(formerFocus) != FALSE) SetFocus(formerFocus);
    return mResult;
}

void Dialog::Close(int result) {
    mResult = result;
    open_ = false;
}

void Dialog::Cancel() { Close(kResultCancelled); }

void Dialog::OnClose() {
    if (style_.closesDirectly)
        Close(kResultCancelled);
    else
        Cancel();
}

void Dialog::OnPlace() {
    const Box box = PlaceDialog(AreaAboveTaskbar(), Dpi());
    SetWindowPos(Handle(), nullptr, box.left, box.top, box.width, box.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void Dialog::PlaceInMiddle(int widthTwips, int heightTwips) {
    const Box area = AreaAboveTaskbar();
    RECT outer{0, 0, ToPixels(widthTwips), ToPixels(heightTwips)};
    AdjustWindowRectExForDpi(&outer, static_cast<DWORD>(GetWindowLongPtrW(Handle(), GWL_STYLE)), FALSE,
                             static_cast<DWORD>(GetWindowLongPtrW(Handle(), GWL_EXSTYLE)), static_cast<UINT>(Dpi()));
    const int width = outer.right - outer.left;
    const int height = outer.bottom - outer.top;
    SetWindowPos(Handle(), nullptr, area.left + (area.width - width) / 2, area.top + (area.height - height) / 2, width,
                 height, SWP_NOZORDER | SWP_NOACTIVATE);
}

std::vector<Dialog::PlacedButton> Dialog::MeasureButtons(const std::vector<Control*>& buttons, int leftTwips,
                                                         int availableTwips) {
    std::vector<Control*> shown;
    std::vector<CaptionWidths> captions;
    for (Control* button : buttons) {
        if (!button->IsShown()) continue;
        shown.push_back(button);
        captions.push_back(MeasureCaption(button->Text()));
    }
    const ButtonRow row =
        FitButtons(captions, ToPixels(availableTwips), ToPixels(kButtonPadding), ToPixels(kButtonGap));
    const int height = static_cast<int>(row.lines) * TextTwips(L"A").height + kButtonVerticalPadding;
    std::vector<PlacedButton> placed;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const int width = ToTwips(row.widths[i]);
        placed.push_back({shown[i], {leftTwips, 0, width, height}});
        leftTwips += width + kButtonGap;
    }
    return placed;
}

int Dialog::FrameHeight(const OptionFrame& frame, int width) {
    int height = TextTwips(L"A").height + kFrameMargin;
    for (const Control* option : frame.options)
        height += WrappedHeight(option->Text(), width - 2 * kFrameMargin - kOptionMark) + kLineGap;
    return height;
}

void Dialog::LayOutFrame(Placer& placer, const OptionFrame& frame, const Box& box) {
    placer.Put(*frame.frame, box);
    int top = box.top + TextTwips(L"A").height;
    for (const Control* option : frame.options) {
        const int width = box.width - 2 * kFrameMargin;
        const int height = WrappedHeight(option->Text(), width - kOptionMark);
        placer.Put(*option, {box.left + kFrameMargin, top, width, height});
        top += height + kLineGap;
    }
}

std::vector<Dialog::PlacedLine> Dialog::MeasureLines(const std::vector<Control*>& lines, int top) {
    const int width = ClientTwips().width;
    std::vector<PlacedLine> measured;
    for (const Control* control : lines) {
        if (!control->IsShown()) continue;
        const bool isBox = dynamic_cast<const TextBox*>(control) != nullptr;
        const int lineWidth = width - (isBox ? kPickerWidthLoss : kSideMargins);
        const int height = isBox ? BoxHeight() : WrappedHeight(control->Text(), lineWidth);
        measured.push_back({control, {kPickerLeft, top, lineWidth, height}});
        top += height + kLineGap;
    }
    return measured;
}

void Dialog::LowerTallest(std::vector<PlacedLine>& lines, int excess) {
    const auto tallest = std::max_element(
        lines.begin(), lines.end(),
        [](const PlacedLine& one, const PlacedLine& other) { return one.second.height < other.second.height; });
    if (tallest == lines.end()) return;
    const int taken = std::clamp(excess, 0, std::max(0, tallest->second.height - TextTwips(L"A").height));
    tallest->second.height -= taken;
    for (auto later = tallest + 1; later != lines.end(); ++later) later->second.top -= taken;
}

void Dialog::OnLayout() {
    if (parts.main == nullptr) return;
    const Box client = ClientTwips();
    const int width = client.width - kSideMargins;
    Placer placer(*this);
    int top = kLabelTop;
    for (const auto& [control, box] : MeasureLines(parts.above, top)) {
        placer.Put(*control, box);
        top = box.Bottom() + kLineGap;
    }
    const auto buttons = MeasureButtons(parts.buttons, kPickerLeft, width);
    const int buttonHeight = buttons.front().box.height;

    const auto frameCount = static_cast<int>(parts.frames.size());
    const int frameWidth =
        frameCount == 0 ? 0 : (client.width - kPickerWidthLoss - (frameCount - 1) * kPickerLeft) / frameCount;
    int framesHeight = 0;
    for (const OptionFrame& frame : parts.frames) framesHeight = std::max(framesHeight, FrameHeight(frame, frameWidth));
    const bool notes = parts.notice != nullptr && parts.notice->IsShown();
    const int noticeHeight = notes ? WrappedHeight(parts.notice->Text(), width) : 0;
    const int belowLines = (frameCount == 0 ? 0 : framesHeight + kLineGap) + (notes ? noticeHeight + kLineGap : 0);
    const auto layOut = [&](int linesHeight) {
        return LayOutPicker(client.width, client.height, top, buttonHeight, linesHeight + belowLines);
    };
    auto below = MeasureLines(parts.below, kLineGap);
    const auto linesHeight = [&] { return below.empty() ? 0 : below.back().second.Bottom(); };
    // No text is so long that it may push the boxes and buttons below it out of the window.
    LowerTallest(below, linesHeight() + BoxHeight() - layOut(0).main.height);

    const PickerLayout layout = layOut(linesHeight());
    placer.Put(*parts.main, layout.main);
    for (auto [control, box] : below) {
        box.top += layout.main.Bottom();
        placer.Put(*control, box);
    }
    top = layout.main.Bottom() + linesHeight() + kLineGap;
    for (int i = 0; i < frameCount; ++i)
        LayOutFrame(placer, parts.frames[static_cast<std::size_t>(i)],
                    {kPickerLeft + i * (frameWidth + kPickerLeft), top, frameWidth, framesHeight});
    if (frameCount != 0) top += framesHeight + kLineGap;
    if (notes) placer.Put(*parts.notice, {kPickerLeft, top, width, noticeHeight});
    for (const PlacedButton& placed : buttons) {
        Box box = placed.box;
        box.top = layout.buttonTop;
        placer.Put(*placed.button, box);
    }
}

bool Dialog::OnKeyDown(const KeyEvent& key) {
    const Modifiers& held = key.modifiers;
    if (key.virtualKey == VK_F4 && held.alt) {
        OnClose();
        return true;
    }
    if (style_.selectsAll && key.virtualKey == 'A' && held.ctrl && !held.alt) {
        if (!IsTextBox(GetFocus())) return false;
        // With Shift too the box would select by itself, so the key ends here.
        if (!held.shift) SelectAllText();
        return true;
    }
    if (key.virtualKey == VK_ESCAPE) {
        // The dialog manager would cancel with any modifier, so a refused Esc ends here.
        if (style_.escWithAnyModifier || (!held.ctrl && !held.alt)) OnClose();
        return true;
    }
    return false;
}

void Dialog::SelectAllText() {
    const HWND box = GetFocus();
    SendMessageW(box, EM_SETSEL, 0, -1);
    const bool wasLocked = (GetWindowLongPtrW(box, GWL_STYLE) & ES_READONLY) != 0;
    if (wasLocked) return;
    // Locked while messages run, the same key stroke cannot type over the new selection.
    SendMessageW(box, EM_SETREADONLY, TRUE, 0);
    PumpPendingMessages();
    SendMessageW(box, EM_SETREADONLY, FALSE, 0);
}

}  // namespace win32
