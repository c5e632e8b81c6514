// The program's run: one copy only, COM and common controls ready, the main window until it is closed.
#include "shell/ModMain.h"

#include "shell/frmMain.h"
#include "shell/running.h"
#include "win32/message_box.h"
#include "win32/process.h"

namespace ModMain {

int Main() {
    const win32::SingleInstance instance(kRunningMutex);
    if (!instance.IsFirst()) {
        win32::ShowCritical(L"Keystride is already running");
        return 0;
    }
    const win32::UserInterface userInterface;
    win32::RunReported([] { frmMain::Default().Run(); });
    return 0;
}

}  // namespace ModMain
