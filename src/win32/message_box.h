// Message boxes of the program and its one error report.
#pragma once

#include <exception>
#include <functional>
#include <string>

namespace win32 {

enum class Answer { Yes, No, Cancel };

/// A plain message box with an OK button only, owned by the active form.
void ShowMessage(const std::wstring& text);
/// A question with Yes, No and Cancel, owned by the active form.
Answer AskYesNoCancel(const std::wstring& text);
/// A box with the critical-stop icon and an OK button only (style 16).
void ShowCritical(const std::wstring& text);

/// Shows a raised error that nobody handled.
void ReportError(const std::exception& error);

/// Runs a command; what it raises is reported. The boundary that no exception crosses.
void RunReported(const std::function<void()>& command);

}  // namespace win32
