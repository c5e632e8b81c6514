// The mark of the first copy, COM and the common controls.
#include "win32/process.h"

#include "win32/windows_api.h"

namespace win32 {

SingleInstance::SingleInstance(const wchar_t* mutexName)
    : mutex_(CreateMutexW(nullptr, FALSE, mutexName)), first_(GetLastError() != ERROR_ALREADY_EXISTS) {}

UserInterface::UserInterface() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    INITCOMMONCONTROLSEX controls{};
    controls.dwSize = sizeof controls;
    controls.dwICC = ICC_TREEVIEW_CLASSES | ICC_STANDARD_CLASSES;
    InitCommonControlsEx(&controls);
}

UserInterface::~UserInterface() { CoUninitialize(); }

}  // namespace win32
