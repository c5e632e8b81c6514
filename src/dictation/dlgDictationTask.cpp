// The dictation text entry.
#include "dictation/dlgDictationTask.h"

#include "dictation/dictation_text.h"
#include "dictation/dlgDictationEdit.h"
#include "shell/modGlobals.h"
#include "shell/notices.h"
#include "shell/row_table.h"
#include "win32/windows_api.h"

using namespace modGlobals;

namespace {

constexpr wchar_t kInstructions[] =
    L"1. Type or paste your dictation.\r\n"
    L"2. You can use the TAB and ENTER keys in your dictation.\r\n"
    L"3. To Save your dictation, press CONTROL + ENTER.\r\n"
    L"4. To Cancel, press ESCAPE.";

}  // namespace

dlgDictationTask& dlgDictationTask::Default() {
    static dlgDictationTask form;
    return form;
}

dlgDictationTask::dlgDictationTask() : Dialog(L"dlgDictationTask", IDD_DICTATION_TASK, {.escWithAnyModifier = true}) {
    OKButton.OnClick = [this] { SaveDictationText(); };
    rtfEdit.OnChange = [this] { UpdateNotice(); };
    parts.above = {&lblInstructions};
    parts.main = &rtfEdit;
    parts.notice = &lblNotice;
    parts.buttons = {&OKButton, &CancelButton};
}

void dlgDictationTask::OnLoad() { lblInstructions.SetText(kInstructions); }

void dlgDictationTask::ShowFormAdd(std::int16_t task, int& result) {
    task_ = task;
    Show(L"Add dictation", {}, result);
}

void dlgDictationTask::ShowFormEdit(std::int16_t /*first*/, std::int16_t /*second*/, std::wstring_view text,
                                    int& result) {
    task_ = 0;
    Show(L"Edit dictation", modDictation::DecodeText(text), result);
}

void dlgDictationTask::Show(const wchar_t* editorCaption, const std::wstring& text, int& result) {
    const win32::UnloadAtExit unload(*this);
    Load();
    // The editor's title tells a listener what is going on in front of it; this dialog keeps its own.
    dlgDictationEdit::Default().SetCaption(editorCaption);
    rtfEdit.SetText(text);
    UpdateNotice();
    result = ShowModal();
}

std::wstring dlgDictationTask::TypedText() const { return modDictation::WithFullLineBreaks(rtfEdit.Text()); }

void dlgDictationTask::SaveDictationText() {
    const std::wstring text = TypedText();
    gEditTaskText = modDictation::EncodeText(text);
    gEditDictationText = modDictation::LabelText(text);
    Close(win32::kResultOk);
}

void dlgDictationTask::CloseDictationText() { Close(win32::kResultCancelled); }

bool dlgDictationTask::OnKeyDown(const win32::KeyEvent& key) {
    const win32::Modifiers& held = key.modifiers;
    if (key.virtualKey == VK_RETURN && held.ctrl) {
        SaveDictationText();
        return true;
    }
    if (!held.alt && rtfEdit.HasFocus()) {
        // Not every system's box keeps the soft break of Shift+Enter; it counts as a line break anyway.
        if (key.virtualKey == VK_RETURN && held.shift) {
            TypeInto(L"\r\n");
            return true;
        }
        if (key.virtualKey == VK_TAB) {
            // The text takes Tab, so Ctrl+Tab and Shift+Tab are the ways out of it.
            if (held.ctrl || held.shift)
                SendMessageW(Handle(), WM_NEXTDLGCTL, held.shift ? TRUE : FALSE, FALSE);
            else
                TypeInto(L"\t");
            return true;
        }
    }
    return Dialog::OnKeyDown(key);
}

void dlgDictationTask::TypeInto(const wchar_t* text) {
    rtfEdit.Insert(text);
    UpdateNotice();
}

void dlgDictationTask::UpdateNotice() {
    const bool beyondSaved = static_cast<std::size_t>(task_) > kSavedRows;
    lblNotice.Say(
        notices::JoinNotices({notices::FullTableNotice(L"dictations", beyondSaved),
                              notices::ValueNotice(L"The dictation", modDictation::EncodeText(TypedText()))}));
}
