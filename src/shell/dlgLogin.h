// The sign-on dialog: asks for the learner's full name.
#pragma once

#include <string>

#include "resource_ids.h"
#include "win32/controls.h"
#include "win32/dialog.h"

class dlgLogin final : public win32::Dialog {
public:
    static dlgLogin& Default();

    /// Shows the dialog over the main window; 1 when a learner was signed on, 2 otherwise.
    int ShowLoginDialog();
    /// Why the last name was refused; "" when it was not.
    std::wstring ValidationMessage;

    win32::Label lblLoginInstructions{*this, IDC_LOGIN_INSTRUCTIONS, L"lblLoginInstructions"};
    win32::TextBox txtLoginName{*this, IDC_LOGIN_NAME, L"txtLoginName"};

private:
    dlgLogin();

    void OnPlace() override;
    void OnLayout() override;
    win32::Control& FirstFocus() override { return txtLoginName; }
    void Cancel() override { CancelSignOn(); }

    void SignOn();
    void CancelSignOn();
    int ContentHeight();
};
