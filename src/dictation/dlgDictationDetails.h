// The dictation title dialog.
#pragma once

#include <cstdint>
#include <string>

#include "resource_ids.h"
#include "win32/controls.h"
#include "win32/dialog.h"

class dlgDictationDetails final : public win32::Dialog {
public:
    static dlgDictationDetails& Default();

    /// Shows the dialog, empty; `result` is 1 when gDictationTitle holds the title, 2 when it was left as it was.
    void ShowFormAdd(std::int16_t lessonNbr, int& result);
    /// Shows the dialog on gDictationTitle; `result` as for a new one.
    void ShowFormEdit(std::int16_t lessonNbr, int& result);

    win32::Label lblTitle{*this, IDC_DICTATION_DETAILS_NUMBER, L"lblTitle"};
    win32::ValueBox txtLessonTitle{*this, IDC_DICTATION_DETAILS_TITLE, L"txtLessonTitle"};
    win32::NoticeLine lblNotice{*this, IDC_DICTATION_DETAILS_NOTICE, L"lblNotice"};

private:
    dlgDictationDetails();

    win32::Control& FirstFocus() override { return txtLessonTitle; }

    void Show(const wchar_t* editorCaption, std::int16_t lesson, const std::wstring& title, int& result);
    void OnOKButtonClick();
    void UpdateNotice();
};
