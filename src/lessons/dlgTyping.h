// The lesson picker: chooses a lesson or task to run; for the teacher's list also adds, edits and removes lessons.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "resource_ids.h"
#include "win32/controls.h"
#include "win32/dialog.h"

class dlgTyping final : public win32::Dialog {
public:
    static dlgTyping& Default();

    /// Shows the loaded and filled dialog over the active form; 1 when a request was sent, 2 otherwise.
    int ShowForm(std::wstring_view prefix);
    void ShowLessonButtons(bool shown);

    win32::TreeView tvTasks{*this, IDC_TYPING_TASKS, L"tvTasks"};
    win32::Button cmdAddLesson{*this, IDC_TYPING_ADD_LESSON, L"cmdAddLesson"};
    win32::Button cmdEditLesson{*this, IDC_TYPING_EDIT_LESSON, L"cmdEditLesson"};
    win32::Button cmdRemoveLesson{*this, IDC_TYPING_REMOVE_LESSON, L"cmdRemoveLesson"};
    win32::Button cmdAccessibility{*this, IDC_TYPING_ACCESSIBILITY, L"cmdAccessibility"};
    win32::NoticeLine lblNotice{*this, IDC_TYPING_NOTICE, L"lblNotice"};

private:
    dlgTyping();

    void OnLoad() override;
    win32::Control& FirstFocus() override { return tvTasks; }
    void Cancel() override;

    void OnOKButtonClick();
    void OnAddLessonClick();
    void OnEditLessonClick();
    void OnRemoveLessonClick();

    /// Reads the selected node into the session state; false, after a message, when no node is selected.
    bool TakeSelection();
    /// Fills the tree from the teacher's file again and selects `lesson`, or its nearest neighbour.
    void Refill(std::int16_t lesson);
};
