// Waits for a dialog, prints what is written in it as a screen reader would find it, and presses one of its buttons.
//
// usage: press BUTTON TEXT [CLASS]   the first visible dialog with that button that holds the text anywhere, title
//                                    included; before the button is pressed, the program with a window of CLASS is
//                                    ended
#include <chrono>
#include <iostream>
#include <string>
#include <thread>

#include "win32/windows_api.h"

namespace {

constexpr std::chrono::seconds kPatience{30};
constexpr std::chrono::milliseconds kPause{50};

struct Found {
    std::wstring button;
    std::wstring text;
    std::wstring read;
    HWND press = nullptr;
};

/// A wide stream would stop at the first character outside of ASCII.
void Say(const std::wstring& text) {
    std::string bytes(text.size() * 3, '\0');
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                           static_cast<int>(bytes.size()), nullptr, nullptr);
    std::cout.write(bytes.data(), length).flush();
}

std::wstring TextOf(HWND window) {
    std::wstring text(4096, L'\0');
    DWORD_PTR length = 0;
    // A window that is just closing must not hold us up.
    if (SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_ABORTIFHUNG,
                            2000, &length) == 0)
        return {};
    text.resize(length);
    return text;
}

std::wstring WithoutMark(std::wstring text) {
    const std::size_t mark = text.find(L'&');
    return mark == std::wstring::npos ? text : text.erase(mark, 1);
}

BOOL CALLBACK ReadControl(HWND control, LPARAM data) {
    auto& found = *reinterpret_cast<Found*>(data);
    if (IsWindowVisible(control) == FALSE) return TRUE;
    const std::wstring text = TextOf(control);
    if (!text.empty()) found.read += text + L"\n";
    if (IsWindowEnabled(control) != FALSE && WithoutMark(text) == found.button) found.press = control;
    return TRUE;
}

BOOL CALLBACK ReadDialog(HWND window, LPARAM data) {
    auto& found = *reinterpret_cast<Found*>(data);
    wchar_t name[16]{};
    GetClassNameW(window, name, 16);
    if (std::wstring(name) != L"#32770" || IsWindowVisible(window) == FALSE || IsWindowEnabled(window) == FALSE)
        return TRUE;
    found.read = TextOf(window) + L"\n";
    found.press = nullptr;
    EnumChildWindows(window, &ReadControl, data);
    return found.press == nullptr || found.read.find(found.text) == std::wstring::npos ? TRUE : FALSE;
}

/// Ends a program and comes back when nothing is left of it.
bool EndProgram(const wchar_t* windowClass) {
    DWORD id = 0;
    GetWindowThreadProcessId(FindWindowW(windowClass, nullptr), &id);
    const HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id);
    if (process == nullptr) return false;
    const bool ended = TerminateProcess(process, 1) != FALSE && WaitForSingleObject(process, 10000) == WAIT_OBJECT_0;
    CloseHandle(process);
    return ended;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 3 || count > 4) return 2;
    const auto end = std::chrono::steady_clock::now() + kPatience;
    const auto inTime = [&] {
        std::this_thread::sleep_for(kPause);
        return std::chrono::steady_clock::now() < end;
    };
    Found found{arguments[1], arguments[2], {}, nullptr};
    while (EnumWindows(&ReadDialog, reinterpret_cast<LPARAM>(&found)) != FALSE) {
        if (inTime()) continue;
        Say(L"No dialog with the button " + found.button + L" and the text " + found.text + L"\n");
        return 1;
    }
    Say(found.read);
    if (count > 3 && !EndProgram(arguments[3])) return 1;
    // A dialog that is just opening may miss the first press; one that closes takes no second.
    while (IsWindowVisible(found.press) != FALSE && IsWindowEnabled(found.press) != FALSE) {
        PostMessageW(GetParent(found.press), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(found.press), BN_CLICKED),
                     reinterpret_cast<LPARAM>(found.press));
        for (int pause = 0;
             pause < 20 && IsWindowVisible(found.press) != FALSE && IsWindowEnabled(found.press) != FALSE; ++pause) {
            if (!inTime()) return 1;
        }
    }
    return 0;
}
