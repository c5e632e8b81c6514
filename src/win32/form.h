// The base of every window: a dialog template with named controls, one dialog procedure and one key preview.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "win32/handles.h"
#include "win32/keys.h"
#include "win32/layout.h"

struct tagMSG;
struct tagRECT;

namespace win32 {

class Control;

inline constexpr wchar_t kApplicationTitle[] = L"Keystride";
inline constexpr wchar_t kNameProperty[] = L"Keystride.Name";
inline constexpr wchar_t kFontFace[] = L"Arial";
inline constexpr int kFontPoints = 16;

/// What a control looks like when it draws its background: a text colour and a background brush.
struct ControlColours {
    unsigned long text = 0;
    HBRUSH__* background = nullptr;
};

/// One window of the program. Its controls are members that register themselves; it can be loaded and unloaded many
/// times.
class Form {
public:
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form();

    [[nodiscard]] WindowHandle Handle() const { return handle_; }
    [[nodiscard]] bool IsLoaded() const { return handle_ != nullptr; }

    /// Creates the window, hidden and owned by the form that is active now, and runs OnLoad; an error in OnLoad
    /// destroys it again and goes on to the caller. Does nothing when the window exists.
    void Load();
    /// Destroys the window, if there is one.
    void Unload();

    [[nodiscard]] std::wstring Caption() const;
    void SetCaption(const std::wstring& text);
    /// What is spoken instead of the caption while the window lives.
    void SetSpokenName(std::wstring_view name);

    [[nodiscard]] int Dpi() const { return dpi_; }
    [[nodiscard]] int ToTwips(int pixels) const { return PixelsToTwips(pixels, dpi_); }
    [[nodiscard]] int ToPixels(int twips) const { return TwipsToPixels(twips, dpi_); }
    /// Inner size in twips.
    [[nodiscard]] Box ClientTwips() const;
    /// The size of a text in twips, in Arial of `points`, its line breaks counted.
    [[nodiscard]] Box TextTwips(std::wstring_view text, int points = kFontPoints);
    /// The height of a text in twips when it is wrapped at a width, in Arial of `points`.
    [[nodiscard]] int WrappedHeight(std::wstring_view text, int widthTwips, int points = kFontPoints);
    /// The word widths of a caption, in pixels.
    [[nodiscard]] CaptionWidths MeasureCaption(std::wstring_view caption, int points = kFontPoints);
    /// Gives one control the font size `points`; the others have kFontPoints.
    void SetFontPoints(const Control& control, int points);

    /// Places all controls again, now.
    void LayOut();

    /// Runs the form's own key handling for a message of this form; true when it was used up.
    bool PreviewKey(const tagMSG& message);

protected:
    Form(const wchar_t* name, int templateId);

    /// Sizes and places the new window; runs before OnLoad.
    virtual void OnPlace() {}
    virtual void OnLoad() {}
    virtual void OnLayout() {}
    /// A key goes down, or up, in the form or one of its controls; true when no control may see it.
    virtual bool OnKeyDown(const KeyEvent& key);
    virtual bool OnKeyUp(const KeyEvent& key);
    /// The system or the user asks the window to close.
    virtual void OnClose() = 0;
    virtual void OnTimer(std::uintptr_t id);
    /// The window is gone.
    virtual void OnUnloaded() {}
    /// The desktop's colours or theme changed.
    virtual void OnColoursChanged() {}
    /// The colours of a static or check box that has its own; none for the system's.
    virtual std::optional<ControlColours> OnControlColours(WindowHandle control);

private:
    friend class Control;
    friend struct FormProcedure;  // the dialog procedure

    struct FontDeleter {
        void operator()(FontHandle font) const;
    };
    using Font = std::unique_ptr<HFONT__, FontDeleter>;

    void Attach(WindowHandle window);
    void Detach();
    void ApplyFonts();
    FontHandle FontOf(int points);
    void MoveToDpi(int dpi, const tagRECT& suggested);
    void RefreshColours(unsigned message, std::uintptr_t wParam, std::intptr_t lParam);
    MessageResult OnMessage(unsigned message, std::uintptr_t wParam, std::intptr_t lParam);

    const wchar_t* name_;
    int templateId_;
    WindowHandle handle_ = nullptr;
    std::vector<Control*> controls_;
    bool hasSpokenName_ = false;
    int dpi_ = kStandardDpi;
    std::map<int, int> fontPoints_;              // by control identifier
    std::map<std::pair<int, int>, Font> fonts_;  // by points and DPI
};

/// Unloads a form at the end of a scope in which building or showing it may fail.
class UnloadAtExit {
public:
    explicit UnloadAtExit(Form& form) : form_(form) {}
    UnloadAtExit(const UnloadAtExit&) = delete;
    UnloadAtExit& operator=(const UnloadAtExit&) = delete;
    ~UnloadAtExit() { form_.Unload(); }

private:
    Form& form_;
};

/// Collects new places of a form's controls, in twips, and applies them in one go at its end.
class Placer {
public:
    explicit Placer(const Form& form);
    Placer(const Placer&) = delete;
    Placer& operator=(const Placer&) = delete;
    ~Placer();

    void Put(const Control& control, const Box& twips);

private:
    const Form& form_;
    std::vector<std::pair<const Control*, Box>> places_;
};

/// The form that is on top now: owner of message boxes and of the next dialog.
Form* ActiveForm();

/// Makes a form the active one for a scope.
class ActiveScope {
public:
    explicit ActiveScope(Form& form);
    ActiveScope(const ActiveScope&) = delete;
    ActiveScope& operator=(const ActiveScope&) = delete;
    ~ActiveScope();
};

/// The area of the primary screen above the taskbar, in pixels.
Box AreaAboveTaskbar();

/// Runs messages while `open` holds: each goes through the form's key preview and the dialog manager, then on to its
/// window.
void RunMessages(Form& form, const bool& open);

}  // namespace win32
