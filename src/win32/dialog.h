// What every dialog shares: modal showing, placement, the picker layout and the keys, with the variants as data.
#pragma once

#include <utility>
#include <vector>

#include "win32/controls.h"
#include "win32/form.h"

namespace win32 {

inline constexpr int kResultOk = 1;
inline constexpr int kResultCancelled = 2;

// Twips.
inline constexpr int kBoxPadding = 140;
inline constexpr int kLineGap = 60;

/// A group box and the option buttons in it.
struct OptionFrame {
    Control* frame = nullptr;
    std::vector<Control*> options;
};

/// How a dialog differs from the others in what they share.
struct DialogStyle {
    /// Esc cancels with any modifier, not only with neither Ctrl nor Alt.
    bool escWithAnyModifier = false;
    /// Esc and Alt+F4 close the dialog without its cancel procedure.
    bool closesDirectly = false;
    /// Ctrl+A selects all the text of the text box that has the focus.
    bool selectsAll = true;
    /// What the button with the identifier of OK is called.
    const wchar_t* okName = L"OKButton";
};

/// A modal dialog with OKButton and CancelButton.
class Dialog : public Form {
public:
    Button OKButton;
    Button CancelButton{*this, 2, L"CancelButton"};

protected:
    Dialog(const wchar_t* name, int templateId, DialogStyle style = {});

    /// Shows the loaded dialog until it is closed and returns its result: 1 after OK, 2 otherwise. The focus is then
    /// back where it was.
    int ShowModal();
    /// Ends the dialog with a result.
    void Close(int result);

    /// The control that has the focus when the dialog opens.
    virtual Control& FirstFocus() = 0;
    /// The procedure of CancelButton, Esc, Alt+F4 and the window's close.
    virtual void Cancel();

    /// The parts that the picker layout places, from top to bottom: labels and one-line boxes, the main control, more
    /// labels and boxes, the frames that stand below it side by side, the notice line and the buttons in their order.
    /// Hidden labels and boxes take no place.
    struct Parts {
        std::vector<Control*> above;
        Control* main = nullptr;
        std::vector<Control*> below;
        std::vector<OptionFrame> frames;
        NoticeLine* notice = nullptr;
        std::vector<Control*> buttons;
    };
    Parts parts;

    void OnLayout() override;
    bool OnKeyDown(const KeyEvent& key) override;
    void OnClose() override;

    /// Fills the screen above the taskbar but for a margin.
    void OnPlace() override;
    /// Places the dialog in the middle of that area with an inner size in twips, for a dialog that does not fill it.
    void PlaceInMiddle(int widthTwips, int heightTwips);
    void OnUnloaded() override { open_ = false; }

    /// The height of a frame around its options, one below the other, in a width. All in twips.
    int FrameHeight(const OptionFrame& frame, int width);
    /// Places a frame and its options.
    void LayOutFrame(Placer& placer, const OptionFrame& frame, const Box& box);
    /// The height of a one-line box in twips.
    int BoxHeight() { return TextTwips(L"A").height + kBoxPadding; }

    /// A button of a row and its place in twips; the row's top is 0.
    struct PlacedButton {
        Control* button;
        Box box;
    };
    /// Gives a row of buttons one height and each the width of its caption, within `availableTwips` from `leftTwips`
    /// on. Hidden buttons take no place.
    std::vector<PlacedButton> MeasureButtons(const std::vector<Control*>& buttons, int leftTwips, int availableTwips);

private:
    static void SelectAllText();

    using PlacedLine = std::pair<const Control*, Box>;

    /// Labels and one-line boxes one below the other, in twips, with the top of the first at `top`.
    std::vector<PlacedLine> MeasureLines(const std::vector<Control*>& lines, int top);
    /// Takes `excess` twips, but at most all lines of text but one, from the tallest, and moves up those below it.
    void LowerTallest(std::vector<PlacedLine>& lines, int excess);

    DialogStyle style_;
    int mResult = kResultCancelled;
    bool open_ = false;
};

}  // namespace win32
