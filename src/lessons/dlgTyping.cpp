// The lesson picker.
#include "lessons/dlgTyping.h"

#include <string>
#include <vector>

#include "lessons/dlgLessonEdit.h"
#include "lessons/modTyping.h"
#include "shell/channel.h"
#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "win32/message_box.h"

using namespace modGlobals;

dlgTyping& dlgTyping::Default() {
    static dlgTyping form;
    return form;
}

dlgTyping::dlgTyping()
    : LessonPicker(
          L"dlgTyping", IDD_TYPING, {IDC_TYPING_TASKS, IDC_TYPING_ACCESSIBILITY, IDC_TYPING_NOTICE},
          {L"Select a lesson or task first", L"There are no lessons or tasks to select", L"TeachersLessons.bak"}) {
    OKButton.OnClick = [this] { OnOKButtonClick(); };
    cmdAddLesson.OnClick = [this] { OnAddLessonClick(); };
    cmdEditLesson.OnClick = [this] { OnEditLessonClick(); };
    cmdRemoveLesson.OnClick = [this] { OnRemoveLessonClick(); };
    parts.buttons = {&OKButton, &cmdAddLesson, &cmdEditLesson, &cmdRemoveLesson, &CancelButton};
}

int dlgTyping::ShowForm(std::wstring_view prefix) {
    channel::SendToScreenReader(std::wstring(prefix) + gSep + gNoSelection);
    const int result = ShowModal();
    if (result == win32::kResultOk) channel::EmptyTypingArea();
    return result;
}

void dlgTyping::TakeKey(std::wstring_view key) { modTyping::ParseSelection(key); }

std::int16_t dlgTyping::LoadTeachersList() { return modTyping::LoadLessons(gTeachersLessonsIni, tvTasks); }

void dlgTyping::OnOKButtonClick() {
    if (!TakeSelection()) return;
    modTyping::SendRunRequest(gCurLessonNbr, gCurTaskNbr, gCurSubTaskNbr);
    Close(win32::kResultOk);
}

void dlgTyping::Cancel() {
    modTyping::SendRunRequest(0, 0, 0);
    Close(win32::kResultCancelled);
}

void dlgTyping::OnAddLessonClick() {
    gCurLessonNbr = 0;
    gCurTaskNbr = 0;
    gLessonTitle.clear();
    gLessonIntro.clear();
    gTaskTerminator = L"Space";
    gTaskReps = 2;
    int result = win32::kResultCancelled;
    dlgLessonEdit& editor = dlgLessonEdit::Default();
    editor.ShowFormAdd(result);
    if (result == win32::kResultOk) Refill(editor.LessonNumber());
}

void dlgTyping::OnEditLessonClick() {
    if (!TakeSelection()) return;
    int result = win32::kResultCancelled;
    const std::int16_t lesson = gCurLessonNbr;
    dlgLessonEdit::Default().ShowFormEdit(lesson, result);
    if (result == win32::kResultOk) Refill(lesson);
}

void dlgTyping::OnRemoveLessonClick() {
    if (!TakeSelection()) return;
    const std::int16_t lesson = gCurLessonNbr;
    // No blank stands before the title, which is the selected node's text: listeners know the question so.
    if (win32::AskYesNoCancel(L"Are you sure you want to remove the lesson" + tvTasks.Text(tvTasks.Selected()) +
                              L"?") != win32::Answer::Yes)
        return;
    Remove(lesson, [lesson](std::vector<std::int16_t>& cutLessons) {
        modTyping::SaveNewLesson(lesson, &cutLessons);
        modUtils::PutTeachersLessonsToNetwork();
    });
}
