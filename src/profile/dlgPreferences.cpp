// The preferences dialog.
#include "profile/dlgPreferences.h"

#include <string>

#include "profile/modPreferences.h"
#include "shell/channel.h"
#include "shell/list_selection.h"
#include "shell/modGlobals.h"
#include "win32/message_box.h"
#include "win32/windows_api.h"

using namespace modGlobals;

namespace {

// The Enter key in the list has a spelling of its own; listeners know both.
constexpr wchar_t kRequest[] = L"Preferences";
constexpr wchar_t kEnterRequest[] = L"Preference";

}  // namespace

dlgPreferences& dlgPreferences::Default() {
    static dlgPreferences form;
    return form;
}

dlgPreferences::dlgPreferences() : Dialog(L"dlgPreferences", IDD_PREFERENCES) {
    OKButton.OnClick = [this] { Choose(kRequest); };
    parts.main = &lstPreferences;
    parts.buttons = {&OKButton, &CancelButton};
}

void dlgPreferences::ShowPreferencesDialog(int& result) {
    result = win32::kResultCancelled;
    const win32::UnloadAtExit unload(*this);
    Load();
    SetCaption(L"User Preferences");
    result = ShowModal();
}

void dlgPreferences::OnLoad() { modPreferences::LoadPreferences(gUserPrefsIni, lstPreferences); }

int dlgPreferences::GetSelectedPreference() const { return list_selection::SelectedNumber(lstPreferences); }

bool dlgPreferences::Choose(const wchar_t* request) {
    const int number = GetSelectedPreference();
    if (number == 0) {
        win32::ShowMessage(L"There are no preferences or tasks to select");
        return false;
    }
    channel::SendToScreenReader(request + gSep + std::to_wstring(number));
    Close(win32::kResultCancelled);
    return true;
}

bool dlgPreferences::OnKeyDown(const win32::KeyEvent& key) {
    const win32::Modifiers& held = key.modifiers;
    if (key.virtualKey == VK_RETURN && !held.ctrl && !held.alt && lstPreferences.HasFocus()) {
        if (Choose(kEnterRequest)) channel::EmptyTypingArea();
        return true;
    }
    return Dialog::OnKeyDown(key);
}

void dlgPreferences::Cancel() {
    channel::SendToScreenReader(kRequest + gSep + gNoSelection);
    Close(win32::kResultCancelled);
}
