// The preferences dialog: hands one entry of the preferences file to the screen-reader side.
#pragma once

#include "resource_ids.h"
#include "win32/controls.h"
#include "win32/dialog.h"

class dlgPreferences final : public win32::Dialog {
public:
    static dlgPreferences& Default();

    /// Shows the dialog. `result` is always 2: what was chosen is known by its request alone.
    void ShowPreferencesDialog(int& result);

    /// The number of the chosen entry from 1 on: the first when none is selected, 0 when there is none.
    [[nodiscard]] int GetSelectedPreference() const;

    win32::ListBox lstPreferences{*this, IDC_PREFERENCES_LIST, L"lstPreferences"};

private:
    dlgPreferences();

    void OnLoad() override;
    win32::Control& FirstFocus() override { return lstPreferences; }
    bool OnKeyDown(const win32::KeyEvent& key) override;
    void Cancel() override;

    /// Sends the choice under a request name; false, after a message, when there is nothing to choose.
    bool Choose(const wchar_t* request);
};
