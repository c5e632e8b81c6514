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
constexpr wchar_t kItems[] = L"tasks";
constexpr notices::RowNames kTexts{L"The text of task ", L"The texts of tasks "};
constexpr notices::RowNames kExplanations{L"The explanation of task ", L"The explanations of tasks "};

/// Tasks that the list of texts cannot show.
std::wstring UnlistedNotice(const std::vector<std::size_t>& tasks) {
    if (tasks.empty()) return {};
    const notices::Subject subject = notices::Numbered({L"Task ", L"Tasks "}, tasks);
    return subject.name + (subject.isMany ? L" have no text: they are saved" : L" has no text: it is saved") +
           L", but not listed.";
}

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
    const std::wstring title = gLessonTitle;
    const std::wstring intro = gLessonIntro;
    if (!ShowDetails()) return;
    // Saved as they were shown, they still lack their end.
    cut_ = {cut_.title && gLessonTitle == title, cut_.intro && gLessonIntro == intro};
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
    std::vector<std::wstring_view> texts;
    std::vector<std::wstring_view> explanations;
    std::vector<std::size_t> cutTexts;
    std::vector<std::size_t> cutExplanations;
    std::vector<std::size_t> unlisted;
    for (std::size_t row = 0; row < tasks_.Count(); ++row) {
        const modTyping::TaskRow& task = tasks_[row];
        texts.push_back(task.text);
        explanations.push_back(task.explanation);
        if (task.textCut) cutTexts.push_back(row + 1);
        if (task.explanationCut) cutExplanations.push_back(row + 1);
        if (std::find(lineRows_.begin(), lineRows_.end(), row) == lineRows_.end()) unlisted.push_back(row + 1);
    }
    std::vector<notices::Subject> cut;
    if (cut_.title) cut.push_back({kTitle});
    if (cut_.intro) cut.push_back({kIntro});
    if (!cutTexts.empty()) cut.push_back(notices::Numbered(kTexts, cutTexts));
    if (!cutExplanations.empty()) cut.push_back(notices::Numbered(kExplanations, cutExplanations));
    lblNotice.Say(notices::JoinNotices({notices::ValueNotice(kTitle, gLessonTitle),
                                        notices::ValueNotice(kIntro, gLessonIntro), notices::RowNotice(kTexts, texts),
                                        notices::RowNotice(kExplanations, explanations), UnlistedNotice(unlisted),
                                        notices::CutValueNotice(cut), notices::UnsavedNotice(kItems, tasks_.Count()),
                                        notices::FullTableNotice(kItems, tasks_.IsFull()),
                                        notices::LessonSizeNotice(modTyping::LessonBytes(
                                            gLessonTitle, gLessonIntro, gTaskTerminator, gTaskReps, tasks_))}));
}
