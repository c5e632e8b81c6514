// Message boxes and the one error report.
#include "win32/message_box.h"

#include "win32/error.h"
#include "win32/form.h"
#include "win32/windows_api.h"

namespace win32 {

namespace {

int Show(const std::wstring& text, UINT style) {
    const Form* owner = ActiveForm();
    return MessageBoxW(owner == nullptr ? nullptr : owner->Handle(), text.c_str(), kApplicationTitle, style);
}

}  // namespace

void ShowMessage(const std::wstring& text) { Show(text, MB_OK); }

Answer AskYesNoCancel(const std::wstring& text) {
    switch (Show(text, MB_YESNOCANCEL)) {
        case IDYES:
            return Answer::Yes;
        case IDNO:
            return Answer::No;
        default:
            return Answer::Cancel;
    }
}

void ShowCritical(const std::wstring& text) { Show(text, MB_OK | MB_ICONERROR); }

void ReportError(const std::exception& error) { ShowCritical(DescribeError(error)); }

void RunReported(const std::function<void()>& command) {
    try {
        command();
    } catch (const std::exception& error) {
        ReportError(error);
    }
}

}  // namespace win32
