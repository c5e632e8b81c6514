// The least that the program's start could be: a window with the controls of its main window that has asked the shell
// for the same three folders. The benchmark compares the program with it.
#include "resource_ids.h"
#include "win32/windows_api.h"

#include <shldisp.h>

#include <array>

namespace {

// Numbers of the shell.
constexpr std::array kFolders{26, 35, 5};

constexpr int kRowHeight = 90;
constexpr int kButtonWidth = 130;
constexpr int kTextHeight = 250;

void AskForFolder(IShellDispatch* shell, long number) {
    VARIANT which{};
    which.vt = VT_I4;
    which.lVal = number;
    Folder* folder = nullptr;
    if (shell->NameSpace(which, &folder) != S_OK) return;
    Folder2* folder2 = nullptr;
    FolderItem* item = nullptr;
    BSTR path = nullptr;
    folder->QueryInterface(IID_Folder2, reinterpret_cast<void**>(&folder2));
    if (folder2 != nullptr && SUCCEEDED(folder2->get_Self(&item)) && SUCCEEDED(item->get_Path(&path)))
        SysFreeString(path);
    if (item != nullptr) item->Release();
    if (folder2 != nullptr) folder2->Release();
    folder->Release();
}

void AskForFolders() {
    IShellDispatch* shell = nullptr;
    if (FAILED(CoCreateInstance(CLSID_Shell, nullptr, CLSCTX_INPROC_SERVER, IID_IShellDispatch,
                                reinterpret_cast<void**>(&shell))))
        return;
    for (const int number : kFolders) AskForFolder(shell, number);
    shell->Release();
}

/// Places the buttons in a row and the text areas below each other.
void PlaceControls(HWND window) {
    for (int i = 0; i < IDC_MAIN_TITLE - IDC_MAIN_F1; ++i)
        MoveWindow(GetDlgItem(window, IDC_MAIN_F1 + i), i % 8 * kButtonWidth, i / 8 * kRowHeight, kButtonWidth,
                   kRowHeight, FALSE);
    int top = 2 * kRowHeight;
    for (const int text : {IDC_MAIN_TITLE, IDC_MAIN_TASK_INFO, IDC_MAIN_TEXT, IDC_MAIN_EDIT}) {
        MoveWindow(GetDlgItem(window, text), 0, top, GetSystemMetrics(SM_CXSCREEN), kTextHeight, FALSE);
        top += kTextHeight;
    }
}

INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM /*wParam*/, LPARAM /*lParam*/) {
    if (message == WM_CLOSE) DestroyWindow(window);
    if (message == WM_DESTROY) PostQuitMessage(0);
    return FALSE;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, PWSTR /*commandLine*/, int /*show*/) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    LoadLibraryW(L"msftedit.dll");
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = DefDlgProcW;
    windowClass.cbWndExtra = DLGWINDOWEXTRA;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(IDI_KEYSTRIDE));
    windowClass.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
    windowClass.lpszClassName = L"frmMain";
    RegisterClassW(&windowClass);
    const HWND window = CreateDialogParamW(instance, MAKEINTRESOURCEW(IDD_MAIN), nullptr, &DialogProcedure, 0);
    AskForFolders();
    MoveWindow(window, 0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN), FALSE);
    PlaceControls(window);
    ShowWindow(window, SW_SHOWNORMAL);
    UpdateWindow(window);
    for (MSG message{}; GetMessageW(&message, nullptr, 0, 0) > 0;) {
        if (IsDialogMessageW(window, &message) != FALSE) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    CoUninitialize();
    return 0;
}
