// The quiz picker.
#include "academics/dlgQuizzes.h"

#include "academics/modAcademics.h"
#include "shell/channel.h"
#include "shell/list_selection.h"
#include "shell/modGlobals.h"
#include "win32/message_box.h"

using namespace modGlobals;

dlgQuizzes& dlgQuizzes::Default() {
    static dlgQuizzes form;
    return form;
}

dlgQuizzes::dlgQuizzes() : Dialog(L"dlgQuizzes", IDD_QUIZZES) {
    OKButton.OnClick = [this] { OnOKButtonClick(); };
    parts.above = {&lblQuizSelection};
    parts.main = &lstQuizzes;
    parts.frames = {{&frmQuizOptions, {&optionGiveHelp, &optionGradeOnly}}};
    parts.buttons = {&OKButton, &CancelButton};
}

void dlgQuizzes::ShowForm(bool isProduct, const std::wstring& sectionKey, const std::wstring& topicKey,
                          std::int16_t quizCount, const std::vector<std::wstring>& titles, std::int16_t& result) {
    result = win32::kResultCancelled;
    const win32::UnloadAtExit unload(*this);
    Load();
    kind_ = modAcademics::KindCode(isProduct);
    sectionKey_ = sectionKey;
    topicKey_ = topicKey;
    optionGiveHelp.SetChecked(true);
    optionGradeOnly.SetChecked(false);
    AddQuizzesToList(quizCount, titles);
    if (quizCount > 0) lstQuizzes.Select(0);
    result = static_cast<std::int16_t>(ShowModal());
}

void dlgQuizzes::AddQuizzesToList(std::int16_t quizCount, const std::vector<std::wstring>& titles) {
    lstQuizzes.SetRedraw(false);
    for (std::int16_t quiz = 0; quiz < quizCount; ++quiz) lstQuizzes.Add(titles.at(static_cast<std::size_t>(quiz)));
    lstQuizzes.SetRedraw(true);
}

int dlgQuizzes::GetSelectedQuiz() const { return list_selection::SelectedNumber(lstQuizzes); }

void dlgQuizzes::OnOKButtonClick() {
    const int quiz = GetSelectedQuiz();
    if (quiz == 0) {
        win32::ShowMessage(L"There are no quizzes to select");
        return;
    }
    gQuizGiveHelp = optionGiveHelp.IsChecked();
    const wchar_t* mode = gQuizGiveHelp ? L"1" : L"2";
    channel::SendToScreenReader(kind_ + gSep + mode + gSep + sectionKey_ + gSep + topicKey_ + gSep +
                                std::to_wstring(quiz));
    Close(win32::kResultOk);
}

void dlgQuizzes::Cancel() {
    channel::SendToScreenReader(kind_ + gSep + gNoSelection);
    Close(win32::kResultCancelled);
}
