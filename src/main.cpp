// The program's entry from Windows.
#include "shell/ModMain.h"
#include "win32/windows_api.h"

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, PWSTR /*commandLine*/, int /*show*/) {
    return ModMain::Main();
}
