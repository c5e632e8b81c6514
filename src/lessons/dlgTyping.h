// The lesson picker: chooses a lesson or task to run; for the teacher's list also adds, edits and removes lessons.
#pragma once

#include <cstdint>
#include <string_view>

#include "resource_ids.h"
#include "shell/lesson_picker.h"
#include "win32/controls.h"

class dlgTyping final : public LessonPicker {
public:
    static dlgTyping& Default();

    /// Shows the loaded and filled dialog over the active form; 1 when a request was sent, 2 otherwise.
    int ShowForm(std::wstring_view prefix);

    win32::Button cmdAddLesson{*this, IDC_TYPING_ADD_LESSON, L"cmdAddLesson"};
    win32::Button cmdEditLesson{*this, IDC_TYPING_EDIT_LESSON, L"cmdEditLesson"};
    win32::Button cmdRemoveLesson{*this, IDC_TYPING_REMOVE_LESSON, L"cmdRemoveLesson"};

private:
    dlgTyping();

    void Cancel() override;
    void TakeKey(std::wstring_view key) override;
    std::int16_t LoadTeachersList() override;

    void OnOKButtonClick();
    void OnAddLessonClick();
    void OnEditLessonClick();
    void OnRemoveLessonClick();
};
