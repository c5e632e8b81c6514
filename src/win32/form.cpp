// The one dialog procedure, the key preview, names, fonts and DPI of every window.
#include "win32/form.h"

#include <algorithm>
#include <sstream>

#include "win32/accessible.h"
#include "win32/controls.h"
#include "win32/error.h"
#include "win32/message_box.h"
#include "win32/text.h"
#include "win32/unique_handle.h"
#include "win32/windows_api.h"

namespace win32 {

namespace {

std::vector<Form*>& ActiveForms() {
    static std::vector<Form*> forms;
    return forms;
}

void SetNameProperty(HWND window, const wchar_t* name) {
    const ATOM atom = GlobalAddAtomW(name);
    SetPropW(window, kNameProperty, reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(atom)));
}

void RemoveNameProperty(HWND window) {
    const auto atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(RemovePropW(window, kNameProperty)));
    if (atom != 0) GlobalDeleteAtom(atom);
}

bool IsHeld(int virtualKey) { return GetKeyState(virtualKey) < 0; }

/// Whether Enter went down in another window and only repeats in this one, where it would choose before anything was
/// spoken.
bool IsHeldFromAnotherWindow(HWND window, LPARAM keyData) {
    constexpr LPARAM kWasDown = 1 << 30;
    static HWND pressedIn = nullptr;
    if ((keyData & kWasDown) == 0) pressedIn = window;
    return pressedIn != window;
}

Box ToBox(const RECT& rectangle) {
    return {rectangle.left, rectangle.top, rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
}

/// A device context of the screen with a font selected, for measuring.
class MeasuringContext {
public:
    explicit MeasuringContext(FontHandle font) : context_(GetDC(nullptr)), former_(SelectObject(context_, font)) {}
    MeasuringContext(const MeasuringContext&) = delete;
    MeasuringContext& operator=(const MeasuringContext&) = delete;
    ~MeasuringContext() {
        SelectObject(context_, former_);
        ReleaseDC(nullptr, context_);
    }

    /// The text's size; wrapped at `width` when that is not 0.
    [[nodiscard]] SIZE Measure(std::wstring_view text, int width = 0) const {
        RECT bounds{0, 0, width, 0};
        DrawTextW(context_, text.data(), static_cast<int>(text.size()), &bounds,
                  DT_CALCRECT | DT_NOPREFIX | (width == 0 ? 0U : DT_WORDBREAK));
        return {bounds.right, bounds.bottom};
    }

private:
    HDC context_;
    HGDIOBJ former_;
};

void KeepOwnScaling(HWND dialog) {
    // The system would scale dialogs on a DPI change by itself, against the forms' own layout; older systems lack the
    // call.
    using SetBehaviour = BOOL(WINAPI*)(HWND, int, int);
    constexpr int kDisableAll = 1;
    const auto set = reinterpret_cast<SetBehaviour>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetDialogDpiChangeBehavior")));
    if (set != nullptr) set(dialog, kDisableAll, kDisableAll);
}

}  // namespace

struct FormProcedure {
    static INT_PTR CALLBACK Run(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrW(window, DWLP_USER, lParam);
            RunReported([&] { reinterpret_cast<Form*>(lParam)->Attach(window); });
            return FALSE;
        }
        auto* form = reinterpret_cast<Form*>(GetWindowLongPtrW(window, DWLP_USER));
        if (form == nullptr || form->handle_ != window) return FALSE;
        INT_PTR result = TRUE;
        RunReported([&] { result = form->OnMessage(message, wParam, lParam); });
        return result;
    }
};

Form::Form(const wchar_t* name, int templateId) : name_(name), templateId_(templateId) {}

Form::~Form() { Unload(); }

void Form::FontDeleter::operator()(FontHandle font) const { DeleteObject(font); }

void Form::Load() {
    if (handle_ != nullptr) return;
    const Form* owner = ActiveForm();
    const HWND created = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(templateId_),
                                            owner == nullptr ? nullptr : owner->handle_, &FormProcedure::Run,
                                            reinterpret_cast<LPARAM>(this));
    if (created == nullptr) ThrowLastError("CreateDialogParam");
    try {
        OnPlace();
        OnLoad();
        LayOut();
    } catch (...) {
        Unload();
        throw;
    }
}

void Form::Unload() {
    if (handle_ != nullptr) DestroyWindow(handle_);
}

void Form::Attach(WindowHandle window) {
    handle_ = window;
    dpi_ = static_cast<int>(GetDpiForWindow(window));
    if (dpi_ <= 0) dpi_ = kStandardDpi;
    KeepOwnScaling(window);
    SetNameProperty(window, name_);
    ApplyFonts();
    for (Control* control : controls_) {
        if (control->Name() != nullptr) SetNameProperty(control->Handle(), control->Name());
        control->OnAttach();
    }
}

void Form::Detach() {
    if (std::exchange(hasSpokenName_, false)) Accessibility().Clear(handle_);
    for (Control* control : controls_) {
        control->OnDetach();
        if (control->Name() != nullptr) RemoveNameProperty(control->Handle());
    }
    RemoveNameProperty(handle_);
    handle_ = nullptr;
    fontPoints_.clear();
    fonts_.clear();
    OnUnloaded();
}

std::wstring Form::Caption() const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(handle_)), L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(handle_, text.data(), static_cast<int>(text.size()) + 1)));
    return text;
}

void Form::SetCaption(const std::wstring& text) { SetWindowTextW(handle_, text.c_str()); }

void Form::SetSpokenName(std::wstring_view name) {
    Accessibility().SetName(handle_, name, {});
    hasSpokenName_ = true;
}

Box Form::ClientTwips() const {
    RECT client{};
    GetClientRect(handle_, &client);
    return {0, 0, ToTwips(client.right), ToTwips(client.bottom)};
}

Box Form::TextTwips(std::wstring_view text, int points) {
    const SIZE size = MeasuringContext(FontOf(points)).Measure(text);
    return {0, 0, ToTwips(size.cx), ToTwips(size.cy)};
}

int Form::WrappedHeight(std::wstring_view text, int widthTwips, int points) {
    // Places are rounded to pixels on the way from twips, so a control can come out a little narrower than asked for.
    constexpr int kRounding = 2;
    return ToTwips(MeasuringContext(FontOf(points)).Measure(text, ToPixels(widthTwips) - kRounding).cy);
}

CaptionWidths Form::MeasureCaption(std::wstring_view caption, int points) {
    const MeasuringContext context(FontOf(points));
    CaptionWidths widths;
    widths.blank = context.Measure(L" ").cx;
    std::wistringstream words{std::wstring(caption)};
    for (std::wstring word; words >> word;) widths.words.push_back(context.Measure(word).cx);
    return widths;
}

FontHandle Form::FontOf(int points) {
    Font& font = fonts_[{points, dpi_}];
    if (!font)
        font.reset(CreateFontW(-MulDiv(points, dpi_, kPointsPerInch), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                               DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                               DEFAULT_PITCH | FF_DONTCARE, kFontFace));
    return font.get();
}

void Form::ApplyFonts() {
    for (HWND child = GetWindow(handle_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const auto own = fontPoints_.find(GetDlgCtrlID(child));
        const FontHandle font = FontOf(own == fontPoints_.end() ? kFontPoints : own->second);
        SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    }
}

void Form::SetFontPoints(const Control& control, int points) {
    int& present = fontPoints_[control.Id()];
    if (present == points) return;
    present = points;
    SendMessageW(control.Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(FontOf(points)), TRUE);
}

void Form::LayOut() {
    if (handle_ != nullptr && IsIconic(handle_) == FALSE) OnLayout();
}

void Form::MoveToDpi(int dpi, const RECT& suggested) {
    dpi_ = dpi;
    ApplyFonts();
    for (Control* control : controls_) control->OnDpiChanged();
    const Box box = ToBox(suggested);
    SetWindowPos(handle_, nullptr, box.left, box.top, box.width, box.height, SWP_NOZORDER | SWP_NOACTIVATE);
    LayOut();
    InvalidateRect(handle_, nullptr, TRUE);
}

void Form::RefreshColours(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
    // Common controls learn of the change from their parent only.
    if (message == WM_SYSCOLORCHANGE)
        for (HWND child = GetWindow(handle_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
            SendMessageW(child, message, wParam, lParam);
    for (Control* control : controls_) control->OnColoursChanged();
    OnColoursChanged();
}

bool Form::PreviewKey(const MSG& message) {
    const bool down = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
    const bool up = message.message == WM_KEYUP || message.message == WM_SYSKEYUP;
    if (!down && !up) return false;
    if (message.hwnd != handle_ && IsChild(handle_, message.hwnd) == FALSE) return false;
    if (down && message.wParam == VK_RETURN && IsHeldFromAnotherWindow(handle_, message.lParam)) return true;
    const KeyEvent key{static_cast<int>(message.wParam), {IsHeld(VK_CONTROL), IsHeld(VK_MENU), IsHeld(VK_SHIFT)}};
    bool used = true;
    RunReported([&] { used = down ? OnKeyDown(key) : OnKeyUp(key); });
    return used;
}

bool Form::OnKeyDown(const KeyEvent& /*key*/) { return false; }

bool Form::OnKeyUp(const KeyEvent& /*key*/) { return false; }

void Form::OnTimer(std::uintptr_t /*id*/) {}

std::optional<ControlColours> Form::OnControlColours(WindowHandle /*control*/) { return std::nullopt; }

MessageResult Form::OnMessage(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
    switch (message) {
        case WM_COMMAND: {
            const int id = LOWORD(wParam);
            const auto found = std::find_if(controls_.begin(), controls_.end(),
                                            [&](const Control* control) { return control->Id() == id; });
            if (found == controls_.end()) return FALSE;
            (*found)->OnNotification(HIWORD(wParam));
            return TRUE;
        }
        case WM_TIMER:
            OnTimer(wParam);
            return TRUE;
        case WM_SIZE:
            LayOut();
            return FALSE;
        case WM_CTLCOLORSTATIC:
            if (const auto colours = OnControlColours(reinterpret_cast<HWND>(lParam))) {
                SetTextColor(reinterpret_cast<HDC>(wParam), colours->text);
                SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
                return reinterpret_cast<INT_PTR>(colours->background);
            }
            return FALSE;
        case WM_DPICHANGED:
            MoveToDpi(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
            return TRUE;
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
        case WM_SETTINGCHANGE:
            RefreshColours(message, wParam, lParam);
            return FALSE;
        case WM_CLOSE:
            // A window behind a modal one cannot be closed: what is being edited in front would be lost.
            if (IsWindowEnabled(handle_) != FALSE) OnClose();
            return TRUE;
        case WM_DESTROY:
            Detach();
            return FALSE;
        default:
            return FALSE;
    }
}

Placer::Placer(const Form& form) : form_(form) {}

Placer::~Placer() {
    HDWP batch = BeginDeferWindowPos(static_cast<int>(places_.size()));
    for (const auto& [control, box] : places_) {
        if (batch == nullptr) break;
        const int left = form_.ToPixels(box.left);
        const int top = form_.ToPixels(box.top);
        batch = DeferWindowPos(batch, control->Handle(), nullptr, left, top, form_.ToPixels(box.Right()) - left,
                               form_.ToPixels(box.Bottom()) - top, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (batch != nullptr) EndDeferWindowPos(batch);
    // Group boxes and transparent labels leave their former places to the form's background.
    RedrawWindow(form_.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void Placer::Put(const Control& control, const Box& twips) { places_.emplace_back(&control, twips); }

Form* ActiveForm() { return ActiveForms().empty() ? nullptr : ActiveForms().back(); }

ActiveScope::ActiveScope(Form& form) { ActiveForms().push_back(&form); }

ActiveScope::~ActiveScope() { ActiveForms().pop_back(); }

Box AreaAboveTaskbar() {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY), &monitor);
    std::optional<Box> taskbar;
    const HWND window = FindWindowA("Shell_traywnd", nullptr);
    RECT rectangle{};
    if (window != nullptr && IsWindowVisible(window) != FALSE && GetWindowRect(window, &rectangle) != FALSE)
        taskbar = ToBox(rectangle);
    return AreaAboveTaskbar(ToBox(monitor.rcMonitor), taskbar, ToBox(monitor.rcWork));
}

void RunMessages(Form& form, const bool& open) {
    for (MSG message{}; open;) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        // The loop further out has to see the end of the program too.
        if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));
        if (got <= 0) break;
        if (form.PreviewKey(message) || (form.IsLoaded() && IsDialogMessageW(form.Handle(), &message) != FALSE))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace win32
