// The lesson details dialog.
#include "lessons/dlgLessonDetails.h"

#include "shell/channel.h"
#include "shell/modGlobals.h"
#include "shell/notices.h"

using namespace modGlobals;

namespace {

constexpr wchar_t kEnter[] = L"Enter";
constexpr wchar_t kSpace[] = L"Space";
constexpr wchar_t kNothing[] = L"Nothing";

}  // namespace

dlgLessonDetails& dlgLessonDetails::Default() {
    static dlgLessonDetails form;
    return form;
}

dlgLessonDetails::dlgLessonDetails() : Dialog(L"dlgLessonDetails", IDD_LESSON_DETAILS) {
    OKButton.OnClick = [this] { OnOKButtonClick(); };
    const auto updateNotice = [this] { UpdateNotice(); };
    txtLessonTitle.OnChange = updateNotice;
    txtLessonIntro.OnChange = updateNotice;
    option2Repetitions.OnClick = updateNotice;
    option4Repetitions.OnClick = updateNotice;
    parts.above = {&txtLessonTitle};
    parts.main = &txtLessonIntro;
    parts.frames = {{&fraTerminator, {&optionEnterTerminator, &optionSpaceTerminator, &optionNoTerminator}},
                    {&fraRepetitions, {&option2Repetitions, &option4Repetitions}}};
    parts.notice = &lblNotice;
    parts.buttons = {&OKButton, &CancelButton};
}

void dlgLessonDetails::OnLoad() { option2Repetitions.SetChecked(true); }

void dlgLessonDetails::ShowForm(std::int16_t lesson, const std::wstring& title, const std::wstring& intro,
                                const std::wstring& terminator, int& result) {
    const win32::UnloadAtExit unload(*this);
    Load();
    SetCaption(L"Lesson " + std::to_wstring(lesson));
    txtLessonTitle.SetText(title);
    txtLessonIntro.SetText(intro);
    optionEnterTerminator.SetChecked(terminator == kEnter);
    optionNoTerminator.SetChecked(terminator == kNothing);
    optionSpaceTerminator.SetChecked(terminator != kEnter && terminator != kNothing);
    UpdateNotice();
    result = ShowModal();
}

void dlgLessonDetails::UpdateNotice() {
    lblNotice.Say(notices::JoinNotices({notices::ValueNotice(L"The title", txtLessonTitle.Text()),
                                        notices::ValueNotice(L"The introduction", txtLessonIntro.Text()),
                                        notices::RepetitionsNotice(gTaskReps, option2Repetitions.IsChecked())}));
}

void dlgLessonDetails::OnOKButtonClick() {
    gLessonTitle = txtLessonTitle.Text();
    gLessonIntro = txtLessonIntro.Text();
    gTaskTerminator = optionEnterTerminator.IsChecked() ? kEnter : optionNoTerminator.IsChecked() ? kNothing : kSpace;
    gTaskReps = option2Repetitions.IsChecked() ? 2 : 4;
    Close(win32::kResultOk);
}

void dlgLessonDetails::Cancel() {
    // The empty text tells the screen-reader side that nothing was entered.
    channel::SendToScreenReader({});
    Close(win32::kResultCancelled);
}
