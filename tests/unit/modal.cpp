// Acting on a modal dialog.
#include "unit/modal.h"

#include <utility>

#include "win32/windows_api.h"

namespace unit {

namespace {

std::function<void()>& OnceOpen() {
    static std::function<void()> action;
    return action;
}

void CALLBACK RunOnceOpen(HWND /*window*/, UINT /*message*/, UINT_PTR id, DWORD /*time*/) {
    KillTimer(nullptr, id);
    OnceOpen()();
}

}  // namespace

void During(const std::function<void()>& show, std::function<void()> act) {
    OnceOpen() = std::move(act);
    SetTimer(nullptr, 0, USER_TIMER_MINIMUM, &RunOnceOpen);
    show();
}

void Click(const win32::Control& control) {
    SendMessageW(control.Owner().Handle(), WM_COMMAND, MAKEWPARAM(control.Id(), BN_CLICKED),
                 reinterpret_cast<LPARAM>(control.Handle()));
}

}  // namespace unit
