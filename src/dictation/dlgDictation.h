// The dictation picker: chooses a dictation lesson or dictation to run; for the teacher's catalogue also adds, edits
// and removes lessons.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "resource_ids.h"
#include "shell/lesson_picker.h"
#include "win32/controls.h"

class dlgDictation final : public LessonPicker {
public:
    static dlgDictation& Default();

    /// Shows the loaded and filled dialog over the active form; `result` is 1 when a request was sent, 2 otherwise.
    void ShowForm(bool isShipped, int& result);

    win32::Button cmdAddDictation{*this, IDC_DICTATION_ADD, L"cmdAddDictation"};
    win32::Button cmdEditDictation{*this, IDC_DICTATION_EDIT, L"cmdEditDictation"};
    win32::Button cmdRemoveDictation{*this, IDC_DICTATION_REMOVE, L"cmdRemoveDictation"};

private:
    dlgDictation();

    void TakeKey(std::wstring_view key) override;
    std::int16_t LoadTeachersList() override;

    void OnOKButtonClick();
    void OnAddDictationClick();
    void OnEditDictationClick();
    void OnRemoveDictationClick();

    std::wstring mKind;
};
