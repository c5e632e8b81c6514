// The task editor.
#include "lessons/dlgTaskEdit.h"

#include <algorithm>
#include <array>

#include "lessons/command_keys.h"
#include "lessons/lesson_text.h"
#include "lessons/task_table.h"
#include "shell/modGlobals.h"
#include "shell/notices.h"
#include "win32/accessible.h"
#include "win32/text.h"
#include "win32/windows_api.h"

using namespace modGlobals;

struct dlgTaskEdit::KindOption {
    std::int16_t kind;
    win32::CheckButton dlgTaskEdit::*option;
    const wchar_t* prompt;
};

const std::array<dlgTaskEdit::KindOption, 4> dlgTaskEdit::kKinds{{
    {1, &dlgTaskEdit::optionLetters, L"TYPE YOUR NEW TASK"},
    {2, &dlgTaskEdit::optionSingleWord, L"TYPE YOUR WORD"},
    {modTyping::kPhraseKind, &dlgTaskEdit::optionWords, L"TYPE YOUR PHRASE"},
    {modTyping::kCommandKeysKind, &dlgTaskEdit::optionCommandKeys,
     L"Press Control+F3, then TYPE YOUR HOTKEYS, then press Control+F3 again"},
}};

namespace {

// Twips.
constexpr int kMargin = 160;
constexpr int kGap = 70;
constexpr int kScreenMargin = 900;
constexpr int kOptionSpace = 700;

constexpr wchar_t kCapturePrompt[] = L"Type Your New Task of Command Keys";

}  // namespace

dlgTaskEdit& dlgTaskEdit::Default() {
    static dlgTaskEdit form;
    return form;
}

dlgTaskEdit::dlgTaskEdit() : Dialog(L"dlgTaskEdit", IDD_TASK_EDIT, {.escWithAnyModifier = true}) {
    OKButton.OnClick = [this] { OnOKButtonClick(); };
    for (win32::CheckButton* option : {&optionLetters, &optionSingleWord, &optionWords, &optionCommandKeys})
        option->OnClick = [this] { OnOptionClick(); };
    txtTask.OnChange = [this] { UpdateNotice(); };
    txtTaskExplanation.OnChange = [this] { UpdateNotice(); };
    txtTask.OnFocus = [this] {
        if (!mbCommandKeysTask) mbCaptureKeys = false;
    };
    // Only what the key handling writes may reach the box while command keys are taken.
    txtTask.TakesCharacter = [this](wchar_t c) { return !mbCommandKeysTask || command_keys::PassesFilter(c); };
    txtTask.TakesPaste = [this] { return !mbCommandKeysTask; };
}

const dlgTaskEdit::KindOption& dlgTaskEdit::SelectedKind() const {
    return *std::find_if(kKinds.begin(), kKinds.end() - 1,
                         [&](const KindOption& row) { return (this->*row.option).IsChecked(); });
}

void dlgTaskEdit::SelectKind(std::int16_t kind) {
    if (kind == modTyping::kOlderPhraseKind) kind = modTyping::kPhraseKind;
    const auto* chosen =
        std::find_if(kKinds.begin(), kKinds.end() - 1, [&](const KindOption& row) { return row.kind == kind; });
    for (const KindOption& row : kKinds) (this->*row.option).SetChecked(&row == &*chosen);
    shownKind_ = chosen->kind;
    lblTask.Say(chosen->prompt);
}

void dlgTaskEdit::ShowFormAdd(std::int16_t task, int& result) {
    const win32::UnloadAtExit unload(*this);
    task_ = task;
    Load();
    SetCaption(L"Create New Task");
    lblTaskNumber.SetText(L"Task " + std::to_wstring(task));
    SelectKind(kKinds.front().kind);
    UpdateNotice();
    result = ShowModal();
}

void dlgTaskEdit::ShowFormEdit(std::int16_t task, int& result) {
    const win32::UnloadAtExit unload(*this);
    task_ = task;
    Load();
    SetCaption(L"Edit Task");
    lblTaskNumber.SetText(L"Task " + std::to_wstring(task));
    SelectKind(gEditTaskKind);
    txtTask.SetText(gEditTaskText);
    txtTaskExplanation.SetText(gEditTaskExplanation);
    UpdateNotice();
    result = ShowModal();
}

void dlgTaskEdit::OnLoad() {
    EndCommandKeys();
    mbJawsKeyDown = false;
}

void dlgTaskEdit::BeginCommandKeys() {
    lblTask.Say(kCapturePrompt);
    mbCommandKeysTask = true;
}

void dlgTaskEdit::EndCommandKeys() {
    mbCaptureKeys = false;
    mbCommandKeysTask = false;
}

void dlgTaskEdit::OnOptionClick() {
    const KindOption& selected = SelectedKind();
    // A selected option that only gets the focus reports a click too: what was typed must stay.
    if (selected.kind == shownKind_) return;
    shownKind_ = selected.kind;
    EndCommandKeys();
    lblExplanation.Show(true);
    txtTaskExplanation.Show(true);
    txtTask.SetText({});
    txtTaskExplanation.SetText({});
    lblTask.Say(selected.prompt);
    txtTask.Focus();
}

void dlgTaskEdit::OnOKButtonClick() {
    gEditTaskText = win32::TrimBlanks(txtTask.Text());
    gEditTaskExplanation = txtTaskExplanation.Text();
    gEditTaskKind = SelectedKind().kind;
    Close(win32::kResultOk);
}

void dlgTaskEdit::UpdateNotice() {
    const bool beyondSaved = static_cast<std::size_t>(task_) > kSavedRows;
    lblNotice.Say(notices::JoinNotices({notices::FullTableNotice(L"tasks", beyondSaved),
                                        notices::ValueNotice(L"The task", win32::TrimBlanks(txtTask.Text())),
                                        notices::ValueNotice(L"The explanation", txtTaskExplanation.Text())}));
}

void dlgTaskEdit::ToggleCapture() {
    if (mbCaptureKeys) {
        EndCommandKeys();
        lblTask.Say(SelectedKind().prompt);
        return;
    }
    mbCaptureKeys = true;
    BeginCommandKeys();
    txtTask.Focus();
    // Getting the focus selects all, and the next key would replace what is captured already.
    txtTask.MoveToEnd();
}

bool dlgTaskEdit::OnKeyDown(const win32::KeyEvent& key) {
    if (key.virtualKey == VK_F3 && key.modifiers == win32::Modifiers{.ctrl = true}) {
        if (optionCommandKeys.IsChecked()) ToggleCapture();
        return true;
    }
    if (mbCaptureKeys && txtTask.HasFocus()) return CaptureKey(key);
    return Dialog::OnKeyDown(key);
}

bool dlgTaskEdit::CaptureKey(const win32::KeyEvent& key) {
    const win32::Modifiers& held = key.modifiers;
    if (key.virtualKey == VK_TAB && !held.ctrl && !held.alt) return false;
    mbNumLockOn = GetKeyState(VK_NUMLOCK) != 0;
    if (key.virtualKey == VK_INSERT) mbJawsKeyDown = true;
    const std::array modifierKeys{VK_INSERT, VK_SHIFT, VK_CONTROL, VK_MENU};
    // Alt on its own goes no further either: its release would open the window's menu.
    if (std::find(modifierKeys.begin(), modifierKeys.end(), key.virtualKey) != modifierKeys.end()) return held.alt;
    txtTask.SetText(command_keys::AppendChord(txtTask.Text(), key, mbJawsKeyDown));
    txtTask.MoveToEnd();
    const command_keys::KeyName* name = command_keys::FindKey(key.virtualKey);
    // The dialog manager and the system would act on Esc, Tab, F10 and Alt chords.
    return (name != nullptr && name->stops) || held.alt || key.virtualKey == VK_ESCAPE || key.virtualKey == VK_TAB ||
           key.virtualKey == VK_F10;
}

bool dlgTaskEdit::OnKeyUp(const win32::KeyEvent& key) {
    if (!mbCaptureKeys) return false;
    if (key.virtualKey == VK_INSERT) mbJawsKeyDown = false;
    return txtTask.HasFocus() && (key.virtualKey == VK_MENU || key.virtualKey == VK_F10);
}

int dlgTaskEdit::PromptHeight(int width) {
    int height = WrappedHeight(kCapturePrompt, width);
    for (const KindOption& row : kKinds) height = std::max(height, WrappedHeight(row.prompt, width));
    return height;
}

int dlgTaskEdit::ContentHeight(int width, int promptHeight) {
    const int line = TextTwips(L"A").height;
    const int buttonHeight = MeasureButtons({&OKButton, &CancelButton}, kMargin, width).front().box.height;
    const int notice = lblNotice.IsShown() ? WrappedHeight(lblNotice.Text(), width) + kGap : 0;
    return FrameHeight(kindFrame_, width) + kGap + line + kGap + promptHeight + BoxHeight() + kGap + line +
           BoxHeight() + kGap + notice + buttonHeight;
}

void dlgTaskEdit::OnPlace() {
    int widest = 0;
    for (const KindOption& row : kKinds) {
        widest = std::max(widest, TextTwips((this->*row.option).Text()).width + kOptionSpace);
        widest = std::max(widest, TextTwips(row.prompt).width + kMargin);
    }
    const int width = std::min(widest, ToTwips(win32::AreaAboveTaskbar().width) - kScreenMargin);
    PlaceInMiddle(width + 2 * kMargin, ContentHeight(width, PromptHeight(width)) + 2 * kMargin);
}

void dlgTaskEdit::OnLayout() {
    const int width = ClientTwips().width - 2 * kMargin;
    const int promptHeight = PromptHeight(width);
    // A notice needs room that the dialog did not have before.
    const int missing = ContentHeight(width, promptHeight) + 2 * kMargin - ClientTwips().height;
    if (missing > kMargin) {
        PlaceInMiddle(ClientTwips().width, ClientTwips().height + missing);
        return;
    }
    const int line = TextTwips(L"A").height;
    win32::Placer placer(*this);
    int top = kMargin;
    const auto put = [&](const win32::Control& control, int height, int gap) {
        placer.Put(control, {kMargin, top, width, height});
        top += height + gap;
    };
    const int frameHeight = FrameHeight(kindFrame_, width);
    LayOutFrame(placer, kindFrame_, {kMargin, top, width, frameHeight});
    top += frameHeight + kGap;
    put(lblTaskNumber, line, kGap);
    put(lblTask, promptHeight, 0);
    put(txtTask, BoxHeight(), kGap);
    put(lblExplanation, line, 0);
    put(txtTaskExplanation, BoxHeight(), kGap);
    if (lblNotice.IsShown()) put(lblNotice, WrappedHeight(lblNotice.Text(), width), kGap);
    for (const PlacedButton& placed : MeasureButtons({&OKButton, &CancelButton}, kMargin, width)) {
        win32::Box box = placed.box;
        box.top = top;
        placer.Put(*placed.button, box);
    }
}
