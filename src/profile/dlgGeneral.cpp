// The small dialog for a short typed answer.
#include "profile/dlgGeneral.h"

#include "shell/channel.h"
#include "shell/modGlobals.h"
#include "shell/modUtils.h"

using namespace modGlobals;

namespace {

constexpr wchar_t kTextSection[] = L"General";
constexpr wchar_t kInsertKind[] = L".";
constexpr wchar_t kRemoveKind[] = L"..";

}  // namespace

dlgGeneral& dlgGeneral::Default() {
    static dlgGeneral form;
    return form;
}

dlgGeneral::dlgGeneral() : Dialog(L"dlgGeneral", IDD_GENERAL) {
    OKButton.OnClick = [this] { OnOKButtonClick(); };
    parts.main = &rtfLessonTaskInfo;
    parts.below = {&lblInstructions, &lblBox1, &txtGeneral, &lblBox2, &txtGeneral2};
    parts.buttons = {&OKButton, &CancelButton};
}

void dlgGeneral::OnLoad() { rtfLessonTaskInfo.SetText(modUtils::LoadLabel1Text(gGeneralIni, kTextSection, false)); }

void dlgGeneral::ShowInsertALetterDialog(int& result) {
    ShowLetterDialog(kInsertKind, L"Insert a letter", false, result);
}

void dlgGeneral::ShowRemoveALetterDialog(int& result) {
    ShowLetterDialog(kRemoveKind, L"Remove a letter", true, result);
}

void dlgGeneral::ShowLetterDialog(const std::wstring& kind, const wchar_t* spokenName, bool twoBoxes, int& result) {
    result = win32::kResultCancelled;
    const win32::UnloadAtExit unload(*this);
    Load();
    // The caption is a mark for the screen-reader side; nobody would understand it spoken.
    SetCaption(kind);
    SetSpokenName(spokenName);
    lblInstructions.SetText(modUtils::LoadInstructionsCaption(gGeneralIni, kTextSection));
    lblInstructions.Show(true);
    lblBox1.Show(twoBoxes);
    lblBox2.Show(twoBoxes);
    txtGeneral2.Show(twoBoxes);
    txtGeneral2.SetTabStop(twoBoxes);
    kind_ = kind;
    LayOut();
    result = ShowModal();
}

void dlgGeneral::ShowGeneralDialog(const std::wstring& kind, const std::wstring& caption, int& result) {
    result = win32::kResultCancelled;
    const win32::UnloadAtExit unload(*this);
    Load();
    SetCaption(caption);
    kind_ = kind;
    result = ShowModal();
}

void dlgGeneral::OnOKButtonClick() {
    // Of two boxes the second one holds the answer.
    const win32::ValueBox& answer = kind_ == kRemoveKind ? txtGeneral2 : txtGeneral;
    channel::SendToScreenReader(kind_ + gSep + answer.Text());
    Close(win32::kResultOk);
}

void dlgGeneral::Cancel() {
    channel::SendToScreenReader(kind_ + gSep + gNoSelection);
    Close(win32::kResultCancelled);
}
