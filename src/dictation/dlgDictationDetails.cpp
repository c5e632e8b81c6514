// The dictation title dialog.
#include "dictation/dlgDictationDetails.h"

#include "dictation/dlgDictationEdit.h"
#include "shell/modGlobals.h"
#include "shell/notices.h"

using namespace modGlobals;

dlgDictationDetails& dlgDictationDetails::Default() {
    static dlgDictationDetails form;
    return form;
}

dlgDictationDetails::dlgDictationDetails()
    : Dialog(L"dlgDictationDetails", IDD_DICTATION_DETAILS, {.escWithAnyModifier = true}) {
    OKButton.OnClick = [this] { OnOKButtonClick(); };
    txtLessonTitle.OnChange = [this] { UpdateNotice(); };
    parts.above = {&lblTitle};
    parts.main = &txtLessonTitle;
    parts.notice = &lblNotice;
    parts.buttons = {&OKButton, &CancelButton};
}

void dlgDictationDetails::ShowFormAdd(std::int16_t lessonNbr, int& result) {
    Show(L"Add Dictation Lesson Details", lessonNbr, {}, result);
}

void dlgDictationDetails::ShowFormEdit(std::int16_t lessonNbr, int& result) {
    Show(L"Edit Dictation Lesson Details", lessonNbr, gDictationTitle, result);
}

void dlgDictationDetails::Show(const wchar_t* editorCaption, std::int16_t lesson, const std::wstring& title,
                               int& result) {
    const win32::UnloadAtExit unload(*this);
    Load();
    // The editor's title tells a listener what is going on in front of it; this dialog keeps its own.
    dlgDictationEdit::Default().SetCaption(editorCaption);
    lblTitle.SetText(L"Dictation Lesson " + std::to_wstring(lesson));
    txtLessonTitle.SetText(title);
    UpdateNotice();
    result = ShowModal();
}

void dlgDictationDetails::OnOKButtonClick() {
    gDictationTitle = txtLessonTitle.Text();
    Close(win32::kResultOk);
}

void dlgDictationDetails::UpdateNotice() { lblNotice.Say(notices::ValueNotice(L"The title", txtLessonTitle.Text())); }
