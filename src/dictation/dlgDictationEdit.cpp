// The dictation editor.
#include "dictation/dlgDictationEdit.h"

#include <vector>

#include "dictation/dlgDictationDetails.h"
#include "dictation/dlgDictationTask.h"
#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "shell/notices.h"
#include "win32/error.h"

using namespace modGlobals;

namespace {

constexpr wchar_t kTitle[] = L"The title";
constexpr wchar_t kItems[] = L"dictations";
constexpr notices::RowNames kTexts{L"The text of dictation ", L"The texts of dictations "};

/// What the list shows of a dictation: its label, or the start of its text where the label has nothing to read out. The
/// CR that may end a label stays out: fonts draw a box for it.
std::wstring ListLine(const modDictation::DictationRow& row) {
    std::wstring line = row.label;
    if (modDictation::IsBlankText(line)) line = modDictation::FirstSpokenLine(modDictation::DecodeText(row.text));
    if (line.ends_with(L'\r')) line.pop_back();
    return line;
}

}  // namespace

dlgDictationEdit& dlgDictationEdit::Default() {
    static dlgDictationEdit form;
    return form;
}

dlgDictationEdit::dlgDictationEdit()
    : Dialog(L"dlgDictationEdit", IDD_DICTATION_EDIT, {.okName = L"cmdSaveDictation"}) {
    cmdEditDictation.OnClick = [this] { OnEditDictationClick(); };
    cmdDeleteTask.OnClick = [this] { OnDeleteTaskClick(); };
    cmdCreateTask.OnClick = [this] { OnCreateTaskClick(); };
    cmdEditTask.OnClick = [this] { OnEditTaskClick(); };
    cmdSaveDictation.OnClick = [this] { OnSaveDictationClick(); };
    parts.above = {&lblDictationTitle, &lblListTasks};
    parts.main = &lstTasks;
    parts.notice = &lblNotice;
    parts.buttons = {&cmdCreateTask, &cmdEditTask, &cmdDeleteTask, &cmdEditDictation, &cmdSaveDictation, &CancelButton};
}

void dlgDictationEdit::Start(std::int16_t lesson) {
    mLessonNbr = lesson;
    mTasks = {};
    titleCut_ = false;
    Load();
}

void dlgDictationEdit::ShowFormAdd(int& result) {
    result = win32::kResultCancelled;
    const std::int16_t lesson = modDictation::GetNextTeachersDictationNbr();
    const win32::UnloadAtExit unload(*this);
    Start(lesson);
    SetCaption(L"Add New Dictation");
    // A cancelled title dialog must leave no other lesson's title.
    gDictationTitle.clear();
    int details = win32::kResultCancelled;
    dlgDictationDetails::Default().ShowFormAdd(lesson, details);
    if (details == win32::kResultOk) TakeTitle();
    result = ShowModal();
}

void dlgDictationEdit::ShowFormEdit(std::int16_t lessonNbr, int& result) {
    result = win32::kResultCancelled;
    const win32::UnloadAtExit unload(*this);
    Start(lessonNbr);
    SetCaption(L"Edit Dictation " + std::to_wstring(lessonNbr));
    modDictation::LoadDictationForEdit(gTeachersDictationsIni, lessonNbr, mTasks, &titleCut_);
    RefillList();
    if (mTasks.Count() > 0) lstTasks.Select(0);
    TakeTitle();
    result = ShowModal();
}

win32::Control& dlgDictationEdit::FirstFocus() {
    if (lstTasks.Count() > 0) return lstTasks;
    return cmdCreateTask;
}

void dlgDictationEdit::TakeTitle() {
    lblDictationTitle.SetText(gDictationTitle);
    UpdateNotice();
    LayOut();
}

void dlgDictationEdit::OnEditDictationClick() {
    int result = win32::kResultCancelled;
    const std::wstring title = gDictationTitle;
    dlgDictationDetails::Default().ShowFormEdit(mLessonNbr, result);
    if (result != win32::kResultOk) return;
    titleCut_ = titleCut_ && gDictationTitle == title;
    TakeTitle();
}

void dlgDictationEdit::OnCreateTaskClick() {
    int result = win32::kResultCancelled;
    dlgDictationTask::Default().ShowFormAdd(win32::ToInt16(static_cast<std::int64_t>(mTasks.Count()) + 1), result);
    if (result != win32::kResultOk) return;
    const auto row = modDictation::WrittenRow(gEditDictationText, gEditTaskText);
    if (!row || !mTasks.Add(*row)) return;
    lstTasks.Add(ListLine(*row));
    lstTasks.Select(lstTasks.Count() - 1);
    UpdateNotice();
}

void dlgDictationEdit::OnEditTaskClick() {
    const int line = lstTasks.Selected();
    if (line < 0) return;
    const auto index = static_cast<std::size_t>(line);
    gEditDictationText = mTasks[index].label;
    gEditTaskText = mTasks[index].text;
    const auto number = static_cast<std::int16_t>(line + 1);
    int result = win32::kResultCancelled;
    dlgDictationTask::Default().ShowFormEdit(mLessonNbr, number, gEditTaskText, result);
    if (result != win32::kResultOk) return;
    auto row = modDictation::WrittenRow(gEditDictationText, gEditTaskText);
    if (!row) return;
    // Saved as it was shown, the text still lacks its end.
    row->textCut = mTasks[index].textCut && row->text == mTasks[index].text;
    mTasks.Replace(index, *row);
    RefillList();
    lstTasks.Select(line);
    UpdateNotice();
}

void dlgDictationEdit::OnDeleteTaskClick() {
    const int line = lstTasks.Selected();
    if (line < 0) return;
    mTasks.Delete(static_cast<std::size_t>(line));
    lstTasks.Remove(line);
    // After the first one nothing is selected: listeners know from the silence that they are at the top.
    lstTasks.Select(line - 1);
    UpdateNotice();
}

void dlgDictationEdit::OnSaveDictationClick() {
    modDictation::SaveLesson(mLessonNbr, gDictationTitle, mTasks);
    modUtils::PutTeachersDictationsToNetwork();
    Close(win32::kResultOk);
}

void dlgDictationEdit::RefillList() {
    lstTasks.SetRedraw(false);
    lstTasks.Clear();
    for (std::size_t row = 0; row < mTasks.Count(); ++row) lstTasks.Add(ListLine(mTasks[row]));
    lstTasks.SetRedraw(true);
}

void dlgDictationEdit::UpdateNotice() {
    std::vector<std::wstring_view> texts;
    std::vector<std::size_t> cutTexts;
    for (std::size_t row = 0; row < mTasks.Count(); ++row) {
        texts.push_back(mTasks[row].text);
        if (mTasks[row].textCut) cutTexts.push_back(row + 1);
    }
    std::vector<notices::Subject> cut;
    if (titleCut_) cut.push_back({kTitle});
    if (!cutTexts.empty()) cut.push_back(notices::Numbered(kTexts, cutTexts));
    lblNotice.Say(notices::JoinNotices(
        {notices::ValueNotice(kTitle, gDictationTitle), notices::RowNotice(kTexts, texts), notices::CutValueNotice(cut),
         notices::UnsavedNotice(kItems, mTasks.Count()), notices::FullTableNotice(kItems, mTasks.IsFull()),
         notices::LessonSizeNotice(modDictation::LessonBytes(gDictationTitle, mTasks))}));
}
