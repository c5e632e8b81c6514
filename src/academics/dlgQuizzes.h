// The quiz picker: chooses a quiz of a topic and how to take it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "resource_ids.h"
#include "win32/controls.h"
#include "win32/dialog.h"

class dlgQuizzes final : public win32::Dialog {
public:
    static dlgQuizzes& Default();

    /// Shows the dialog on the first `quizCount` titles; `result` is 1 when a quiz was requested, 2 otherwise.
    void ShowForm(bool isProduct, const std::wstring& sectionKey, const std::wstring& topicKey, std::int16_t quizCount,
                  const std::vector<std::wstring>& titles, std::int16_t& result);

    /// The number of the chosen quiz from 1 on: the first when none is selected, 0 when there is none.
    [[nodiscard]] int GetSelectedQuiz() const;

    win32::Label lblQuizSelection{*this, IDC_QUIZZES_SELECTION, L"lblQuizSelection"};
    win32::ListBox lstQuizzes{*this, IDC_QUIZZES_LIST, L"lstQuizzes"};
    win32::Label frmQuizOptions{*this, IDC_QUIZZES_OPTIONS, L"frmQuizOptions"};
    win32::CheckButton optionGiveHelp{*this, IDC_QUIZZES_GIVE_HELP, L"optionGiveHelp"};
    win32::CheckButton optionGradeOnly{*this, IDC_QUIZZES_GRADE_ONLY, L"optionGradeOnly"};

private:
    dlgQuizzes();

    win32::Control& FirstFocus() override { return lstQuizzes; }
    void Cancel() override;

    void AddQuizzesToList(std::int16_t quizCount, const std::vector<std::wstring>& titles);
    void OnOKButtonClick();

    std::wstring kind_;
    std::wstring sectionKey_;
    std::wstring topicKey_;
};
