// The lesson picker.
#include "lessons/dlgTyping.h"

#include <algorithm>
#include <vector>

#include "lessons/dlgLessonEdit.h"
#include "lessons/modTyping.h"
#include "shell/channel.h"
#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "shell/tree_selection.h"
#include "win32/message_box.h"

using namespace modGlobals;

namespace {

/// What the notice line says when lessons lost their end on moving.
std::wstring CutNotice(const std::vector<std::int16_t>& lessons) {
    if (lessons.empty()) return {};
    std::wstring numbers;
    for (const std::int16_t lesson : lessons) numbers += (numbers.empty() ? L"" : L", ") + std::to_wstring(lesson);
    return (lessons.size() == 1 ? L"Lesson " : L"Lessons ") + numbers +
           L" lost the end beyond 4000 bytes. TeachersLessons.bak holds the file as it was.";
}

}  // namespace

dlgTyping& dlgTyping::Default() {
    static dlgTyping form;
    return form;
}

dlgTyping::dlgTyping() : Dialog(L"dlgTyping", IDD_TYPING) {
    OKButton.OnClick = [this] { OnOKButtonClick(); };
    cmdAddLesson.OnClick = [this] { OnAddLessonClick(); };
    cmdEditLesson.OnClick = [this] { OnEditLessonClick(); };
    cmdRemoveLesson.OnClick = [this] { OnRemoveLessonClick(); };
    parts.main = &tvTasks;
    parts.notice = &lblNotice;
    parts.buttons = {&OKButton, &cmdAddLesson, &cmdEditLesson, &cmdRemoveLesson, &CancelButton};
}

int dlgTyping::ShowForm(std::wstring_view prefix) {
    channel::SendToScreenReader(std::wstring(prefix) + gSep + gNoSelection);
    const int result = ShowModal();
    if (result == win32::kResultOk) channel::EmptyTypingArea();
    return result;
}

void dlgTyping::OnLoad() { cmdAccessibility.Show(false); }

void dlgTyping::ShowLessonButtons(bool shown) {
    cmdAddLesson.Show(shown);
    cmdEditLesson.Show(shown);
    cmdRemoveLesson.Show(shown);
    LayOut();
}

bool dlgTyping::TakeSelection() {
    const auto key = tree_selection::SelectedKey(tvTasks, L"Select a lesson or task first",
                                                 L"There are no lessons or tasks to select");
    if (key) modTyping::ParseSelection(*key);
    return key.has_value();
}

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
    std::vector<std::int16_t> cutLessons;
    modTyping::SaveNewLesson(lesson, &cutLessons);
    modUtils::PutTeachersLessonsToNetwork();
    Refill(lesson);
    lblNotice.Say(CutNotice(cutLessons));
}

void dlgTyping::Refill(std::int16_t lesson) {
    tvTasks.Clear();
    const std::int16_t count = modTyping::LoadLessons(gTeachersLessonsIni, tvTasks);
    const std::int16_t nearest = std::min(lesson, count);
    if (nearest > 0) tvTasks.Select(tvTasks.FindKey(modTyping::LessonSectionName(nearest)));
    tvTasks.Focus();
}
