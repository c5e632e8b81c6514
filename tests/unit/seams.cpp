// Seams of the tests with windows: a recorder of spoken names, a watch that answers message boxes, a log of the focus,
// held modifier keys.
#include "unit/seams.h"

#include <algorithm>
#include <array>

#include "win32/form.h"

namespace unit {

namespace {

class Forwarder final : public win32::AccessibleProperties {
public:
    explicit Forwarder(SpokenRecorder& recorder) : recorder_(recorder) {}

    void SetName(win32::WindowHandle window, std::wstring_view name, std::wstring_view shortcut) override {
        recorder_.names[window] = {std::wstring(name), std::wstring(shortcut)};
    }
    void SetLiveRegion(win32::WindowHandle window) override { recorder_.liveRegions.push_back(window); }
    void AnnounceLiveRegion(win32::WindowHandle window) override { recorder_.announced.push_back(window); }
    void Clear(win32::WindowHandle window) override { recorder_.cleared.push_back(window); }

private:
    SpokenRecorder& recorder_;
};

BoxWatch* watching = nullptr;
FocusLog* logging = nullptr;

std::wstring TextOf(HWND window) {
    std::array<wchar_t, 2048> text{};
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return text.data();
}

std::wstring ClassOf(HWND window) {
    std::array<wchar_t, 64> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

}  // namespace

SpokenRecorder::SpokenRecorder() : former_(win32::ReplaceAccessibility(std::make_unique<Forwarder>(*this))) {}

SpokenRecorder::~SpokenRecorder() { win32::ReplaceAccessibility(std::move(former_)); }

BoxWatch::BoxWatch(int answer)
    : answer_(answer), hook_(SetWindowsHookExW(WH_CBT, &BoxWatch::Hook, nullptr, GetCurrentThreadId())) {
    watching = this;
}

BoxWatch::~BoxWatch() {
    UnhookWindowsHookEx(hook_);
    watching = nullptr;
}

LRESULT CALLBACK BoxWatch::Hook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE && watching != nullptr) watching->Note(reinterpret_cast<HWND>(wParam));
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void BoxWatch::Note(HWND window) {
    // A dialog of the program carries a name; a message box does not, and only it has a text of identifier -1.
    if (ClassOf(window) != L"#32770" || GetPropW(window, win32::kNameProperty) != nullptr) return;
    if (std::find(seen_.begin(), seen_.end(), window) != seen_.end()) return;
    seen_.push_back(window);
    Box box;
    box.title = TextOf(window);
    box.owner = GetWindow(window, GW_OWNER);
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if ((GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE) == 0) continue;
        const auto icon = reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
        if (ClassOf(child) == L"Button")
            box.buttons.push_back(GetDlgCtrlID(child));
        else if (icon != nullptr)
            box.errorIcon = icon == LoadIconW(nullptr, IDI_ERROR);
        else
            box.text = TextOf(child);
    }
    std::sort(box.buttons.begin(), box.buttons.end());
    boxes.push_back(std::move(box));
    PostMessageW(window, WM_COMMAND, MAKEWPARAM(answer_, BN_CLICKED), 0);
}

FocusLog::FocusLog() : hook_(SetWindowsHookExW(WH_CBT, &FocusLog::Hook, nullptr, GetCurrentThreadId())) {
    logging = this;
}

FocusLog::~FocusLog() {
    UnhookWindowsHookEx(hook_);
    logging = nullptr;
}

LRESULT CALLBACK FocusLog::Hook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_SETFOCUS && wParam != 0 && logging != nullptr)
        logging->windows.push_back(reinterpret_cast<HWND>(wParam));
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

HeldKeys::HeldKeys(const win32::Modifiers& held) { Set(held); }

HeldKeys::~HeldKeys() { Set({}); }

void HeldKeys::Set(const win32::Modifiers& held) {
    std::array<BYTE, 256> state{};
    GetKeyboardState(state.data());
    const auto set = [&](std::size_t key, bool down) { state.at(key) = down ? BYTE{0x80} : BYTE{0}; };
    set(VK_CONTROL, held.ctrl);
    set(VK_LCONTROL, held.ctrl);
    set(VK_MENU, held.alt);
    set(VK_LMENU, held.alt);
    set(VK_SHIFT, held.shift);
    set(VK_LSHIFT, held.shift);
    SetKeyboardState(state.data());
}

std::wstring NameProperty(HWND window) {
    const auto atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(GetPropW(window, win32::kNameProperty)));
    std::array<wchar_t, 256> name{};
    if (atom == 0 || GlobalGetAtomNameW(atom, name.data(), static_cast<int>(name.size())) == 0) return {};
    return name.data();
}

void PumpMessages() {
    for (MSG message{}; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

RECT PlaceOf(HWND control) {
    RECT rectangle{};
    GetWindowRect(control, &rectangle);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&rectangle), 2);
    return rectangle;
}

}  // namespace unit
