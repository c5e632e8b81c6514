// The lesson editor: one teacher's lesson with its tasks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "lessons/modTyping.h"
#include "lessons/task_table.h"
#include "resource_ids.h"
#include "win32/controls.h"
#include "win32/dialog.h"

class dlgLessonEdit final : public win32::Dialog {
public:
    static dlgLessonEdit& Default();

    /// Asks for the details of a new lesson, then shows the editor; `result` is 1 when the lesson was saved, 2
    /// otherwise. Says so, and opens nothing, when the list has no room for another lesson. Raises what the numbering
    /// raises.
    void ShowFormAdd(int& result);
    /// Shows the editor on a stored lesson; `result` as for a new one. Raises what the loading raises.
    void ShowFormEdit(std::int16_t lesson, int& result);
    /// The number of the lesson that was last edited.
    [[nodiscard]] std::int16_t LessonNumber() const { return lesson_; }

    win32::Label lblLessonTitle{*this, IDC_LESSON_EDIT_TITLE, L"lblLessonTitle"};
    win32::ListBox lstTasks{*this, IDC_LESSON_EDIT_TASKS, L"lstTasks"};
    win32::Button cmdCreateTask{*this, IDC_LESSON_EDIT_CREATE_TASK, L"cmdCreateTask"};
    win32::Button cmdEditTask{*this, IDC_LESSON_EDIT_EDIT_TASK, L"cmdEditTask"};
    win32::Button cmdDeleteTask{*this, IDC_LESSON_EDIT_DELETE_TASK, L"cmdDeleteTask"};
    win32::Button cmdEditLesson{*this, IDC_LESSON_EDIT_EDIT_LESSON, L"cmdEditLesson"};
    win32::NoticeLine lblNotice{*this, IDC_LESSON_EDIT_NOTICE, L"lblNotice"};

private:
    dlgLessonEdit();

    win32::Control& FirstFocus() override;

    void OnCreateTaskClick();
    void OnEditTaskClick();
    void OnDeleteTaskClick();
    void OnEditLessonClick();
    void OnOKButtonClick();

    void Start(std::int16_t lesson);
    /// Shows the lesson details; true when they were confirmed.
    bool ShowDetails();
    void ShowTitle();
    /// Fills the list with the texts of the table, leaving out rows without one.
    void RefillList();
    void UpdateTaskButtons();
    void UpdateNotice();

    std::int16_t lesson_ = 0;
    modTyping::TaskTable tasks_;
    std::vector<std::size_t> lineRows_;  // the table's row of each line of the list
    modTyping::CutDetails cut_;
};
