// The way to the screen-reader side, through the main window's controls.
#include "shell/channel.h"

#include "shell/frmMain.h"

namespace channel {

void SendToScreenReader(const std::wstring& text) {
    frmMain& main = frmMain::Default();
    main.Load();
    main.cmdAccessibility.SetText(text);
}

void EmptyTypingArea() { frmMain::Default().rtfEdit.SetText(L""); }

}  // namespace channel
