// The system's message boxes of another process: what they say, how they look, and answering them.
#include "driver/box.h"

#include "driver/controls.h"
#include "driver/wait.h"

namespace e2e {

namespace {

constexpr int kTextId = 0xFFFF;

Window IconOf(const Window& box) {
    for (const Window& child : box.Children()) {
        if (child.IsStatic() && (child.Style() & SS_TYPEMASK) == SS_ICON) return child;
    }
    return {};
}

}  // namespace

std::vector<int> Box::ButtonIds() const {
    std::vector<int> ids;
    for (const BoxButton& button : buttons) ids.push_back(button.id);
    return ids;
}

bool Box::HasStopIcon() const {
    const Window icon = IconOf(window);
    return hasIcon && WaitUntil([&] { return HasRedPixels(icon.ScreenRect()); }, std::chrono::seconds(2));
}

bool Box::Answer(int buttonId) const {
    const Window button(GetDlgItem(window.Handle(), buttonId));
    return button && button.Click() && WaitUntil([&] { return !window; });
}

std::optional<Box> FindBox(DWORD processId) {
    for (const Window& window : TopLevelWindows(processId)) {
        if (!window.Visible() || window.ClassName() != L"#32770" || !window.Name().empty()) continue;
        Box box;
        box.window = window;
        box.title = window.Text();
        const Window text(GetDlgItem(window.Handle(), kTextId));
        if (!text) continue;
        box.text = text.Text();
        for (const Window& child : window.Children()) {
            if (child.IsPushButton() && child.Shown()) box.buttons.push_back({child.Id(), child.Text()});
        }
        const Window icon = IconOf(window);
        box.hasIcon = icon && icon.Shown() && icon.Send(STM_GETICON) != 0;
        box.owner = window.Owner();
        return box;
    }
    return std::nullopt;
}

}  // namespace e2e
