// The sign-on dialog.
#include "shell/dlgLogin.h"

#include "shell/channel.h"
#include "shell/modGlobals.h"
#include "shell/sign_on.h"

using namespace modGlobals;

namespace {

constexpr wchar_t kRequest[] = L"Signon";
constexpr wchar_t kInstructions[] = L"Type your first and last name.\r\nThat way I'll know what to call you.";

// Twips.
constexpr int kMargin = 300;
constexpr int kGap = 200;

}  // namespace

dlgLogin& dlgLogin::Default() {
    static dlgLogin form;
    return form;
}

dlgLogin::dlgLogin() : Dialog(L"dlgLogin", IDD_LOGIN) {
    OKButton.OnClick = [this] { SignOn(); };
}

int dlgLogin::ShowLoginDialog() {
    const win32::UnloadAtExit unload(*this);
    Load();
    ValidationMessage.clear();
    return ShowModal();
}

void dlgLogin::OnPlace() {
    lblLoginInstructions.SetText(kInstructions);
    const win32::Box text = TextTwips(kInstructions);
    PlaceInMiddle(text.width + 2 * kMargin, ContentHeight());
}

int dlgLogin::ContentHeight() {
    const auto buttons = MeasureButtons({&OKButton, &CancelButton}, kMargin, TextTwips(kInstructions).width);
    return kMargin + TextTwips(kInstructions).height + kGap + BoxHeight() + kGap + buttons.front().box.height + kMargin;
}

void dlgLogin::OnLayout() {
    const int width = ClientTwips().width - 2 * kMargin;
    win32::Placer placer(*this);
    int top = kMargin;
    const int textHeight = TextTwips(kInstructions).height;
    placer.Put(lblLoginInstructions, {kMargin, top, width, textHeight});
    top += textHeight + kGap;
    placer.Put(txtLoginName, {kMargin, top, width, BoxHeight()});
    top += BoxHeight() + kGap;
    for (const PlacedButton& placed : MeasureButtons({&OKButton, &CancelButton}, kMargin, width)) {
        win32::Box box = placed.box;
        box.top = top;
        placer.Put(*placed.button, box);
    }
}

void dlgLogin::SignOn() {
    const std::wstring name = txtLoginName.Text();
    // Sent before the name is checked: the screen-reader side hears every name that is confirmed.
    channel::SendToScreenReader(kRequest + gSep + name);
    ValidationMessage = sign_on::ValidateName(name);
    if (!ValidationMessage.empty()) {
        Close(win32::kResultCancelled);
        return;
    }
    // Closed whatever follows: the learner is signed on even when the folder cannot be made.
    Close(win32::kResultOk);
    sign_on::SignOnLearner(name);
}

void dlgLogin::CancelSignOn() {
    channel::SendToScreenReader(kRequest + gSep + gNoSelection);
    Close(win32::kResultCancelled);
}
