// The dictation editor: one teacher's dictation lesson with its dictations.
#pragma once

#include <cstdint>
#include <string>

#include "dictation/modDictation.h"
#include "resource_ids.h"
#include "win32/controls.h"
#include "win32/dialog.h"

class dlgDictationEdit final : public win32::Dialog {
public:
    static dlgDictationEdit& Default();

    /// Asks for the title of a new lesson, then shows the editor; `result` is 1 when the lesson was saved, 2 otherwise.
    /// Raises what the numbering raises.
    void ShowFormAdd(int& result);
    /// Shows the editor on a stored lesson; `result` as for a new one. Raises what the loading raises.
    void ShowFormEdit(std::int16_t lessonNbr, int& result);
    /// The number of the lesson that was last edited.
    [[nodiscard]] std::int16_t LessonNumber() const { return mLessonNbr; }

    win32::Label lblDictationTitle{*this, IDC_DICTATION_EDIT_TITLE, L"lblDictationTitle"};
    win32::Label lblListTasks{*this, IDC_DICTATION_EDIT_TASKS_NAME, L"lblListTasks"};
    win32::ListBox lstTasks{*this, IDC_DICTATION_EDIT_TASKS, L"lstTasks"};
    win32::Button cmdEditDictation{*this, IDC_DICTATION_EDIT_EDIT_TITLE, L"cmdEditDictation"};
    win32::Button cmdDeleteTask{*this, IDC_DICTATION_EDIT_DELETE_TASK, L"cmdDeleteTask"};
    win32::Button cmdCreateTask{*this, IDC_DICTATION_EDIT_CREATE_TASK, L"cmdCreateTask"};
    win32::Button cmdEditTask{*this, IDC_DICTATION_EDIT_EDIT_TASK, L"cmdEditTask"};
    win32::Button& cmdSaveDictation = OKButton;
    win32::NoticeLine lblNotice{*this, IDC_DICTATION_EDIT_NOTICE, L"lblNotice"};

private:
    dlgDictationEdit();

    win32::Control& FirstFocus() override;

    void OnEditDictationClick();
    void OnDeleteTaskClick();
    void OnCreateTaskClick();
    void OnEditTaskClick();
    void OnSaveDictationClick();

    void Start(std::int16_t lesson);
    void TakeTitle();
    /// Fills the list with a line for each row of the table.
    void RefillList();
    void UpdateNotice();

    std::int16_t mLessonNbr = 0;
    modDictation::DictationTable mTasks;
    bool titleCut_ = false;
};
