// The lesson editor.
#include "lessons/dlgLessonEdit.h"

#include <algorithm>
#include <utility>

#include "lessons/dlgLessonDetails.h"
#include "lessons/dlgTaskEdit.h"
#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "shell/notices.h"
#include "win32/error.h"
#include "win32/message_box.h"
#include "win32/text.h"

using namespace modGlobals;

namespace {

constexpr wchar_t kTitle[] = L"The title";
constexpr wchar_t kIntro[] = L"The introduction";

}  // namespace

dlgLessonEdit& dlgLessonEdit::Default() {
    static dlgLessonEdit form;
    return form;
}

dlgLessonEdit::dlgLessonEdit() : Dialog(L"dlgLessonEdit", IDD_LESSON_EDIT) {
    cmdCreateTask.OnClick = [this] { OnCreateTaskClick(); };
    cmdEditTask.OnClick = [this] { OnEditTaskClick(); };
    cmdDeleteTask.OnClick = [this] { OnDeleteTaskClick(); };
    cmdEditLesson.OnClick = [this] { OnEditLessonClick(); };
    OKButton.OnClick = [this] { OnOKButtonClick(); };
    parts.above = {&lblLessonTitle};
    parts.main = &lstTasks;
    parts.notice = &lblNotice;
    parts.buttons = {&cmdCreateTask, &cmdEditTask, &cmdDeleteTask, &cmdEditLesson, &OKButton, &CancelButton};
}

void dlgLessonEdit::Start(std::int16_t lesson) {
    lesson_ = lesson;
    tasks_ = {};
    lineRows_.clear();
    cut_ = {};
    Load();
}

void dlgLessonEdit::ShowFormAdd(int& result) {
    result = win32::kResultCancelled;
    const std::int16_t lesson = modTyping::GetNextTeachersLessonNbr();
    if (lesson > modTyping::kMaxListedLessons) {
        win32::ShowMessage(L"There is no room for another lesson. Remove one first.");
        return;
    }
    const win32::UnloadAtExit unload(*this);
    Start(lesson);
    SetCaption(L"Add New Lesson");
    // The editor follows also when the details were cancelled: the title is then empty.
    if (ShowDetails()) ShowTitle();
    UpdateTaskButtons();
    UpdateNotice();
    result = ShowModal();
}

void dlgLessonEdit::ShowFormEdit(std::int16_t lesson, int& result) {
    result = win32::kResultCancelled;
    const win32::UnloadAtExit unload(*this);
    Start(lesson);
    SetCaption(L"Edit Lesson " + std::to_wstring(lesson));
    lstTasks.SetRedraw(false);
    modTyping::LoadLessonForEdit(gTeachersLessonsIni, lesson, tasks_, lstTasks, &cut_);
    lstTasks.SetRedraw(true);
    for (std::size_t row = 0; row < tasks_.Count(); ++row) lineRows_.push_back(row);
    ShowTitle();
    if (lstTasks.Count() > 0) lstTasks.Select(0);
    UpdateTaskButtons();
    UpdateNotice();
    result = ShowModal();
}

win32::Control& dlgLessonEdit::FirstFocus() {
    if (lstTasks.Count() > 0) return lstTasks;
    return cmdCreateTask;
}

bool dlgLessonEdit::ShowDetails() {
    int result = win32::kResultCancelled;
    dlgLessonDetails::Default().ShowForm(lesson_, gLessonTitle, gLessonIntro, gTaskTerminator, result);
    return result == win32::kResultOk;
}

void dlgLessonEdit::ShowTitle() {
    lblLessonTitle.SetText(gLessonTitle);
    LayOut();
}

void dlgLessonEdit::OnCreateTaskClick() {
    int result = win32::kResultCancelled;
    dlgTaskEdit::Default().ShowFormAdd(win32::ToInt16(static_cast<std::int64_t>(tasks_.Count()) + 1), result);
    if (result != win32::kResultOk) return;
    if (tasks_.Append(std::to_wstring(gEditTaskKind), gEditTaskText, gEditTaskExplanation)) {
        lineRows_.push_back(tasks_.Count() - 1);
        lstTasks.Add(gEditTaskText);
        lstTasks.Select(lstTasks.Count() - 1);
    }
    UpdateTaskButtons();
    UpdateNotice();
}

void dlgLessonEdit::OnEditTaskClick() {
    const int line = lstTasks.Selected();
    if (line < 0) return;
    const std::size_t row = lineRows_.at(static_cast<std::size_t>(line));
    gEditTaskExplanation = tasks_[row].explanation;
    gEditTaskKind = win32::ToInt16(win32::LeadingNumber(tasks_[row].kind));
    gEditTaskText = tasks_[row].text;
    int result = win32::kResultCancelled;
    dlgTaskEdit::Default().ShowFormEdit(static_cast<std::int16_t>(row + 1), result);
    if (result != win32::kResultOk) return;
    tasks_.Replace(row, std::to_wstring(gEditTaskKind), gEditTaskText, gEditTaskExplanation);
    RefillList();
    const auto edited = std::find(lineRows_.begin(), lineRows_.end(), row);
    const auto last = static_cast<std::ptrdiff_t>(lineRows_.size()) - 1;
    lstTasks.Select(static_cast<int>(edited != lineRows_.end() ? edited - lineRows_.begin()
                                                               : std::min<std::ptrdiff_t>(line, last)));
    UpdateTaskButtons();
    UpdateNotice();
}

void dlgLessonEdit::OnDeleteTaskClick() {
    const int line = lstTasks.Selected();
    if (line < 0) return;
    const std::size_t row = lineRows_.at(static_cast<std::size_t>(line));
    tasks_.Delete(row);
    lstTasks.Remove(line);
    lineRows_.erase(lineRows_.begin() + line);
    for (std::size_t& later : lineRows_)
        if (later > row) --later;
    lstTasks.Select(std::max(0, lstTasks.Count() - 1));
    UpdateTaskButtons();
    UpdateNotice();
}

void dlgLessonEdit::OnEditLessonClick() {
    if (!ShowDetails()) return;
    cut_ = {};
    ShowTitle();
    UpdateNotice();
}

void dlgLessonEdit::OnOKButtonClick() {
    modTyping::SaveLesson(lesson_, gLessonTitle, gLessonIntro, gTaskTerminator, gTaskReps, tasks_);
    modUtils::PutTeachersLessonsToNetwork();
    Close(win32::kResultOk);
}

void dlgLessonEdit::RefillList() {
    lineRows_ = tasks_.RowsWithText();
    lstTasks.SetRedraw(false);
    lstTasks.Clear();
    for (const std::size_t row : lineRows_) lstTasks.Add(tasks_[row].text);
    lstTasks.SetRedraw(true);
}

void dlgLessonEdit::UpdateTaskButtons() {
    const bool hasLines = lstTasks.Count() > 0;
    // A button that is disabled under the focus would leave the keyboard dead.
    if (!hasLines && (cmdEditTask.HasFocus() || cmdDeleteTask.HasFocus() || lstTasks.HasFocus())) cmdCreateTask.Focus();
    cmdEditTask.Enable(hasLines);
    cmdDeleteTask.Enable(hasLines);
}

void dlgLessonEdit::UpdateNotice() {
    std::vector<std::wstring> cut;
    if (cut_.title) cut.emplace_back(kTitle);
    if (cut_.intro) cut.emplace_back(kIntro);
    std::vector<std::wstring> sentences{notices::ValueNotice(kTitle, gLessonTitle),
                                        notices::ValueNotice(kIntro, gLessonIntro)};
    for (std::size_t row = 0; row < tasks_.Count(); ++row) {
        const modTyping::TaskRow& task = tasks_[row];
        const std::wstring text = L"The text of task " + std::to_wstring(row + 1);
        const std::wstring explanation = L"The explanation of task " + std::to_wstring(row + 1);
        if (task.textCut) cut.push_back(text);
        if (task.explanationCut) cut.push_back(explanation);
        sentences.push_back(notices::ValueNotice(text, task.text));
        sentences.push_back(notices::ValueNotice(explanation, task.explanation));
        if (std::find(lineRows_.begin(), lineRows_.end(), row) == lineRows_.end())
            sentences.push_back(L"Task " + std::to_wstring(row + 1) + L" has no text: it is saved, but not listed.");
    }
    sentences.push_back(notices::CutValueNotice(cut));
    sentences.push_back(notices::UnsavedNotice(L"tasks", tasks_.Count()));
    sentences.push_back(notices::FullTableNotice(L"tasks", tasks_.IsFull()));
    sentences.push_back(notices::LessonSizeNotice(
        modTyping::LessonBytes(gLessonTitle, gLessonIntro, gTaskTerminator, gTaskReps, tasks_)));
    lblNotice.Say(notices::JoinNotices(sentences));
}
