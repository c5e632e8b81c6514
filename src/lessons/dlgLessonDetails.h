// The lesson details dialog: title, introduction, the key that ends a task, and repetitions.
#pragma once

#include <cstdint>
#include <string>

#include "resource_ids.h"
#include "win32/controls.h"
#include "win32/dialog.h"

class dlgLessonDetails final : public win32::Dialog {
public:
    static dlgLessonDetails& Default();

    /// Shows the dialog; `result` is 1 when the values were taken into the session state, 2 when they were left as they
    /// were.
    void ShowForm(std::int16_t lesson, const std::wstring& title, const std::wstring& intro,
                  const std::wstring& terminator, int& result);

    win32::ValueBox txtLessonTitle{*this, IDC_LESSON_DETAILS_TITLE, L"txtLessonTitle"};
    win32::ValueBox txtLessonIntro{*this, IDC_LESSON_DETAILS_INTRO, L"txtLessonIntro"};
    win32::Label fraTerminator{*this, IDC_LESSON_DETAILS_TERMINATOR, L"fraTerminator"};
    win32::CheckButton optionEnterTerminator{*this, IDC_LESSON_DETAILS_ENTER, L"optionEnterTerminator"};
    win32::CheckButton optionSpaceTerminator{*this, IDC_LESSON_DETAILS_SPACE, L"optionSpaceTerminator"};
    win32::CheckButton optionNoTerminator{*this, IDC_LESSON_DETAILS_NOTHING, L"optionNoTerminator"};
    win32::Label fraRepetitions{*this, IDC_LESSON_DETAILS_REPETITIONS, L"fraRepetitions"};
    win32::CheckButton option2Repetitions{*this, IDC_LESSON_DETAILS_TWICE, L"option2Repetitions"};
    win32::CheckButton option4Repetitions{*this, IDC_LESSON_DETAILS_FOUR_TIMES, L"option4Repetitions"};
    win32::NoticeLine lblNotice{*this, IDC_LESSON_DETAILS_NOTICE, L"lblNotice"};

private:
    dlgLessonDetails();

    void OnLoad() override;
    win32::Control& FirstFocus() override { return txtLessonTitle; }
    void Cancel() override;

    void OnOKButtonClick();
    void UpdateNotice();
};
