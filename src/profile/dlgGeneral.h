// The small dialog for a short typed answer: inserting a letter, removing a letter, or a request of any other kind.
#pragma once

#include <string>

#include "resource_ids.h"
#include "win32/controls.h"
#include "win32/dialog.h"

class dlgGeneral final : public win32::Dialog {
public:
    static dlgGeneral& Default();

    // Each shows the dialog; `result` is 1 when an answer was sent, 2 when the dialog was cancelled.
    void ShowInsertALetterDialog(int& result);
    void ShowRemoveALetterDialog(int& result);
    /// A request of any kind, under a caption of the caller's.
    void ShowGeneralDialog(const std::wstring& kind, const std::wstring& caption, int& result);

    win32::InfoText rtfLessonTaskInfo{*this, IDC_GENERAL_INFO, L"rtfLessonTaskInfo"};
    win32::Label lblInstructions{*this, IDC_GENERAL_INSTRUCTIONS, L"lblInstructions"};
    win32::Label lblBox1{*this, IDC_GENERAL_BOX1_NAME, L"lblBox1"};
    win32::ValueBox txtGeneral{*this, IDC_GENERAL_BOX1, L"txtGeneral"};
    win32::Label lblBox2{*this, IDC_GENERAL_BOX2_NAME, L"lblBox2"};
    win32::ValueBox txtGeneral2{*this, IDC_GENERAL_BOX2, L"txtGeneral2"};

private:
    dlgGeneral();

    void OnLoad() override;
    win32::Control& FirstFocus() override { return txtGeneral; }
    void Cancel() override;

    void ShowLetterDialog(const std::wstring& kind, const wchar_t* spokenName, bool twoBoxes, int& result);
    void OnOKButtonClick();

    std::wstring kind_;
};
