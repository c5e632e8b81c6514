// The controls of a form: each is a form and an identifier, and asks for its window at every use.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "win32/form.h"
#include "win32/handles.h"

namespace win32 {

/// A colour that is either fixed or follows the desktop.
class Colour {
public:
    static Colour System(int index) { return {true, static_cast<std::uint32_t>(index)}; }
    static Colour Rgb(std::uint32_t value) { return {false, value}; }

    /// The present value as 0x00BBGGRR.
    [[nodiscard]] std::uint32_t Value() const;
    bool operator==(const Colour&) const = default;

private:
    Colour(bool system, std::uint32_t value) : system_(system), value_(value) {}

    bool system_;
    std::uint32_t value_;
};

/// Whether the desktop is in its high-contrast mode.
bool IsHighContrastDesktop();

/// Any control. `name` is what outside programs find it by; a static that only names its neighbour has none.
class Control {
public:
    Control(Form& form, int id, const wchar_t* name = nullptr);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control();

    [[nodiscard]] WindowHandle Handle() const;
    [[nodiscard]] int Id() const { return id_; }
    [[nodiscard]] const wchar_t* Name() const { return name_; }
    [[nodiscard]] Form& Owner() const { return form_; }

    [[nodiscard]] std::wstring Text() const;
    void SetText(const std::wstring& text) const;
    [[nodiscard]] bool IsShown() const;
    void Show(bool shown) const;
    [[nodiscard]] bool IsEnabled() const;
    void Enable(bool enabled) const;
    /// Whether Tab stops here.
    void SetTabStop(bool stop) const;
    [[nodiscard]] bool HasFocus() const;
    /// Moves the focus here the way the dialog manager does.
    void Focus() const;
    /// Height in twips.
    [[nodiscard]] int HeightTwips() const;

    /// What is spoken instead of the text, and the key spoken with it.
    void SetSpokenName(std::wstring_view name, std::wstring_view shortcut);

protected:
    friend class Form;

    /// The control's window was created, or is about to go.
    virtual void OnAttach() {}
    virtual void OnDetach();
    virtual void OnDpiChanged() {}
    /// The desktop's colours changed.
    virtual void OnColoursChanged() {}
    /// A WM_COMMAND notification of this control.
    virtual void OnNotification(unsigned code);

    std::intptr_t Send(unsigned message, std::uintptr_t wParam = 0, std::intptr_t lParam = 0) const;

private:
    Form& form_;
    int id_;
    const wchar_t* name_;
    bool hasSpokenName_ = false;
};

using Label = Control;

/// A command button.
class Button : public Control {
public:
    using Control::Control;
    std::function<void()> OnClick;

protected:
    void OnNotification(unsigned code) override;
};

/// A check box or option button whose state the program or its group sets.
class CheckButton : public Button {
public:
    using Button::Button;
    [[nodiscard]] bool IsChecked() const;
    void SetChecked(bool checked) const;
};

/// A single-line text box.
class TextBox : public Control {
public:
    using Control::Control;
    std::function<void()> OnChange;
    std::function<void()> OnFocus;

    /// Puts the caret behind the last character.
    void MoveToEnd() const;

protected:
    void OnNotification(unsigned code) override;
};

/// A text box for one INI value: CR and LF are dropped whether typed, pasted or set.
class ValueBox : public TextBox {
public:
    using TextBox::TextBox;
    /// Decides whether a typed character is taken; all are when this is empty.
    std::function<bool(wchar_t)> TakesCharacter;
    /// Decides whether something may be pasted; it may when this is empty.
    std::function<bool()> TakesPaste;

protected:
    void OnAttach() override;

private:
    struct Procedure;  // the subclass procedure

    void Paste() const;
};

/// A rich edit that shows plain text in one size and one pair of colours, which hold for later text too.
class RichEdit : public Control {
public:
    RichEdit(Form& form, int id, const wchar_t* name = nullptr);

    /// Runs when the user changed the text; a set text is not told.
    std::function<void()> OnChange;

    [[nodiscard]] int FontPoints() const;
    void SetFontPoints(int points);
    [[nodiscard]] Colour BackColour() const { return back_; }
    void SetColours(Colour text, Colour back);
    /// Applies the colours again after the desktop's changed.
    void Refresh() const;
    /// Types a text at the caret, as one step that can be undone.
    void Insert(const wchar_t* text) const;

protected:
    void OnAttach() override;
    void OnDpiChanged() override;
    void OnNotification(unsigned code) override;
    void OnColoursChanged() override { Refresh(); }

private:
    Colour text_ = Colour::System(8);
    Colour back_ = Colour::System(5);
    int points_ = kFontPoints;
};

/// A rich edit that is only read: Tab, Enter and Esc are the dialog's, and arriving selects nothing.
class InfoText : public RichEdit {
public:
    using RichEdit::RichEdit;

protected:
    void OnAttach() override;

private:
    struct Procedure;  // the subclass procedure
};

/// A label whose new texts are announced.
class LiveLabel : public Control {
public:
    using Control::Control;
    void Say(const std::wstring& text) const;

protected:
    void OnAttach() override;
    void OnDetach() override;
};

/// The line of a dialog that says what would not be kept: hidden while empty.
class NoticeLine : public LiveLabel {
public:
    using LiveLabel::LiveLabel;
    void Say(const std::wstring& text) const;
};

/// A list box of texts, which scrolls sideways when a text is wider than the list.
class ListBox : public Control {
public:
    using Control::Control;

    std::function<void()> OnSelect;

    [[nodiscard]] int Count() const;
    [[nodiscard]] int Selected() const;  ///< -1 when nothing is selected
    void Select(int index) const;
    void Clear() const;
    void Add(const std::wstring& text) const;
    void Remove(int index) const;
    /// Stops painting while it is filled.
    void SetRedraw(bool redraw) const;

protected:
    void OnDpiChanged() override;
    void OnNotification(unsigned code) override;

private:
    void MakeRoomFor(const std::wstring& text) const;
};

/// A drop-down list of texts.
class ComboBox : public Control {
public:
    using Control::Control;

    [[nodiscard]] int Count() const;
    [[nodiscard]] int Selected() const;  ///< -1 when nothing is selected
    void Add(const std::wstring& text) const;
    /// Whether the list is open now.
    [[nodiscard]] bool IsDropped() const;

protected:
    void OnAttach() override;
};

/// A tree whose nodes carry a key beside their text.
class TreeView : public Control {
public:
    using Control::Control;

    struct NodeTag;
    using Node = NodeTag*;

    [[nodiscard]] int Count() const;
    void Clear();
    /// Adds a node as the last child of `parent`, or as the last root when that is null.
    Node Add(Node parent, std::wstring key, const std::wstring& text);
    [[nodiscard]] Node Selected() const;
    void Select(Node node) const;
    [[nodiscard]] Node FindKey(std::wstring_view key) const;
    [[nodiscard]] std::wstring Key(Node node) const;
    [[nodiscard]] std::wstring Text(Node node) const;
    using Control::Text;

protected:
    void OnAttach() override {
        keys_.clear();
        nodes_.clear();
        window_ = Handle();
    }
    void OnDetach() override {
        window_ = nullptr;
        Control::OnDetach();
    }

private:
    // Looking the window up anew for each of many thousand nodes would take most of the time of filling the tree.
    WindowHandle window_ = nullptr;
    std::vector<std::wstring> keys_;
    std::vector<Node> nodes_;
};

/// Hides a tree and shows it again at the end of the scope, whatever happens in it: filling it is much faster so.
class HiddenTree {
public:
    explicit HiddenTree(const TreeView& tree) : tree_(tree) { tree_.Show(false); }
    HiddenTree(const HiddenTree&) = delete;
    HiddenTree& operator=(const HiddenTree&) = delete;
    ~HiddenTree() { tree_.Show(true); }

private:
    const TreeView& tree_;
};

}  // namespace win32
