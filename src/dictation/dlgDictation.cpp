// The dictation picker.
#include "dictation/dlgDictation.h"

#include <vector>

#include "dictation/dlgDictationEdit.h"
#include "dictation/modDictation.h"
#include "shell/channel.h"
#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "win32/message_box.h"

using namespace modGlobals;

dlgDictation& dlgDictation::Default() {
    static dlgDictation form;
    return form;
}

dlgDictation::dlgDictation()
    : LessonPicker(L"dlgDictation", IDD_DICTATION,
                   {IDC_DICTATION_TASKS, IDC_DICTATION_ACCESSIBILITY, IDC_DICTATION_NOTICE},
                   {L"Select a dictation lesson or task first", L"There are no dictation lessons or tasks to select",
                    L"TeachersDictations.bak"},
                   {.closesDirectly = true, .selectsAll = false}) {
    OKButton.OnClick = [this] { OnOKButtonClick(); };
    cmdAddDictation.OnClick = [this] { OnAddDictationClick(); };
    cmdEditDictation.OnClick = [this] { OnEditDictationClick(); };
    cmdRemoveDictation.OnClick = [this] { OnRemoveDictationClick(); };
    parts.buttons = {&OKButton, &cmdAddDictation, &cmdEditDictation, &cmdRemoveDictation, &CancelButton};
}

void dlgDictation::ShowForm(bool isShipped, int& result) {
    mKind = isShipped ? modDictation::kShippedKind : modDictation::kTeachersKind;
    SetCaption(isShipped ? L"Pick a Dictation Lesson" : L"Pick a Teacher's Dictation Lesson");
    channel::SendToScreenReader(mKind + gSep + gNoSelection);
    result = ShowModal();
    if (result == win32::kResultOk) channel::EmptyTypingArea();
}

void dlgDictation::TakeKey(std::wstring_view key) {
    modDictation::GetSelectedDictation(key);
    cmdAccessibility.SetText(std::to_wstring(gCurLessonNbr) + gSep + std::to_wstring(gCurTaskNbr));
}

std::int16_t dlgDictation::LoadTeachersList() { return modDictation::LoadDictations(gTeachersDictationsIni, tvTasks); }

void dlgDictation::OnOKButtonClick() {
    if (!TakeSelection()) return;
    modDictation::RunDictation(gCurLessonNbr, gCurTaskNbr);
    Close(win32::kResultOk);
}

void dlgDictation::OnAddDictationClick() {
    int result = win32::kResultCancelled;
    dlgDictationEdit& editor = dlgDictationEdit::Default();
    editor.ShowFormAdd(result);
    if (result == win32::kResultOk) Refill(editor.LessonNumber());
}

void dlgDictation::OnEditDictationClick() {
    if (!TakeSelection()) return;
    int result = win32::kResultCancelled;
    const std::int16_t lesson = gCurLessonNbr;
    dlgDictationEdit::Default().ShowFormEdit(lesson, result);
    if (result == win32::kResultOk) Refill(lesson);
}

void dlgDictation::OnRemoveDictationClick() {
    if (!TakeSelection()) return;
    const std::int16_t lesson = gCurLessonNbr;
    if (win32::AskYesNoCancel(L"Are you sure you want to remove dictation lesson " + std::to_wstring(lesson) + L"?") !=
        win32::Answer::Yes)
        return;
    Remove(lesson, [lesson](std::vector<std::int16_t>& cutLessons) {
        modDictation::RemoveLesson(lesson, &cutLessons);
        modUtils::PutTeachersDictationsToNetwork();
    });
}
