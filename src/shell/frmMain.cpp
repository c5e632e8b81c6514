// The main window.
#include "shell/frmMain.h"

#include <algorithm>
#include <exception>
#include <functional>
#include <string>
#include <tuple>
#include <utility>

#include "academics/show_academics.h"
#include "dictation/dictation_lists.h"
#include "lessons/lesson_lists.h"
#include "profile/dlgGeneral.h"
#include "profile/dlgPreferences.h"
#include "profile/dlgStudentProfile.h"
#include "shell/ModMain.h"
#include "shell/dlgLogin.h"
#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "win32/error.h"
#include "win32/message_box.h"
#include "win32/windows_api.h"

using namespace modGlobals;

struct frmMain::CommandKey {
    enum class Held {
        AltAndAny,     // Alt, whatever else
        CtrlAltShift,  // all three
        CtrlOnly,      // Ctrl alone
        NoCtrlNoAlt,   // neither; Shift may be held
    };

    Held held;
    int virtualKey;
    void (frmMain::*run)();

    [[nodiscard]] bool Matches(const win32::KeyEvent& key) const {
        const win32::Modifiers& now = key.modifiers;
        if (key.virtualKey != virtualKey) return false;
        switch (held) {
            case Held::AltAndAny:
                return now.alt;
            case Held::CtrlAltShift:
                return now.ctrl && now.alt && now.shift;
            case Held::CtrlOnly:
                return now == win32::Modifiers{.ctrl = true};
            case Held::NoCtrlNoAlt:
                return !now.ctrl && !now.alt;
        }
        return false;
    }
};

// Tested from the first row to the last; the first that matches runs.
const std::array<frmMain::CommandKey, 15> frmMain::kCommandKeys{{
    {CommandKey::Held::AltAndAny, VK_F4, &frmMain::OnClose},
    {CommandKey::Held::CtrlAltShift, VK_F8, &frmMain::ShowCustomLessonList},
    {CommandKey::Held::CtrlAltShift, VK_F9, &frmMain::ChangeUser},
    {CommandKey::Held::CtrlAltShift, VK_F10, &frmMain::ShowInsertALetter},
    {CommandKey::Held::CtrlAltShift, VK_F11, &frmMain::ShowRemoveALetter},
    {CommandKey::Held::CtrlAltShift, VK_F12, &frmMain::ShowStudentProfile},
    {CommandKey::Held::CtrlOnly, 'U', &frmMain::ShowPreferences},
    {CommandKey::Held::NoCtrlNoAlt, VK_F3, &frmMain::ShowLessonList},
    {CommandKey::Held::NoCtrlNoAlt, VK_F4, &frmMain::ShowDictationList},
    {CommandKey::Held::NoCtrlNoAlt, VK_F5, &frmMain::ShowSingleRowText},
    {CommandKey::Held::NoCtrlNoAlt, VK_F6, &frmMain::ShowAcademicList},
    {CommandKey::Held::NoCtrlNoAlt, VK_F7, &frmMain::ShowTeachersLessonList},
    {CommandKey::Held::NoCtrlNoAlt, VK_F8, &frmMain::ShowTeachersDictationList},
    {CommandKey::Held::NoCtrlNoAlt, VK_F11, &frmMain::ToggleMode},
    {CommandKey::Held::NoCtrlNoAlt, VK_F12, &frmMain::ShowMultiRowText},
}};

namespace {

constexpr wchar_t kWindowClass[] = L"frmMain";
constexpr wchar_t kTextSection[] = L"Main";
constexpr UINT kLoginDelay = 500;  // milliseconds

// Font sizes of the typing area, in points.
constexpr int kLargeFont = 48;
constexpr int kLargestFont = 72;

constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kRed = RGB(255, 0, 0);

// Twips.
constexpr int kFrameMargin = 100;
constexpr int kCommandGap = 60;
constexpr int kCommandPadding = 160;
constexpr int kCheckMark = 300;
constexpr int kInfoPadding = 120;
constexpr int kTitlePadding = 40;

constexpr int kCommandLines = 3;
constexpr int kInfoLines = 2;
constexpr int kSmallestCommandFont = 9;  // points

win32::Colour System(int index) { return win32::Colour::System(index); }

void RegisterWindowClass() {
    // The dialog manager's own procedure keeps the focus for the window and gives its controls their keys.
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = DefDlgProcW;
    windowClass.cbWndExtra = DLGWINDOWEXTRA;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hIcon = LoadIconW(windowClass.hInstance, MAKEINTRESOURCEW(IDI_KEYSTRIDE));
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassExW(&windowClass);
}

/// Reports errors of steps that stand alone, the same text not twice in a row.
class StepReporter {
public:
    void operator()(const std::exception& error) {
        std::wstring text = win32::DescribeError(error);
        if (text == last_) return;
        last_ = std::move(text);
        win32::ReportError(error);
    }

private:
    std::wstring last_;
};

}  // namespace

frmMain& frmMain::Default() {
    static frmMain form;
    return form;
}

frmMain::frmMain() : Form(kWindowClass, IDD_MAIN) {
    RegisterWindowClass();
    cmdF3.OnClick = [this] { ShowLessonList(); };
    cmdF4.OnClick = [this] { ShowDictationList(); };
    cmdF6.OnClick = [this] { ShowAcademicList(); };
    chkF11.OnClick = [this] { ToggleMode(); };
    cmdChangeFont.OnClick = [this] { CycleFontSize(); };
    cmdChangeContrast.OnClick = [this] { ToggleContrast(); };
    cmdTest1.OnClick = [this] { ShowChannelText(); };
    cmdAccessibility.OnClick = [this] { ShowChannelText(); };
}

void frmMain::Run() {
    Load();
    open_ = true;
    const win32::ActiveScope active(*this);
    ShowWindow(Handle(), SW_SHOWNORMAL);
    UpdateWindow(Handle());
    rtfEdit.Focus();
    win32::RunMessages(*this, open_);
}

void frmMain::OnPlace() {
    const win32::Box area = win32::AreaAboveTaskbar();
    SetWindowPos(Handle(), nullptr, area.left, area.top, area.width, area.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void frmMain::OnLoad() {
    PresetMode = true;
    // A themed check box would not take the colour that marks the teacher's mode.
    SetWindowTheme(chkF11.Handle(), L"", L"");
    StartFontSize = rtfEdit.FontPoints();
    StepReporter reporter;
    const win32::ErrorSink report = std::ref(reporter);
    const win32::ActiveScope active(*this);
    ModMain::SetupDataFolders(report);
    SetCaptions();
    rtfMain.SetColours(System(COLOR_WINDOWTEXT), System(COLOR_3DLIGHT));
    ColourTaskInfo();
    win32::RunStep(report,
                   [this] { rtfLessonTaskInfo.SetText(modUtils::LoadLabel1Text(gGeneralIni, kTextSection, true)); });
    win32::RunStep(report, [this] { rtfMain.SetText(modUtils::LoadMultiRowText(gGeneralIni, kTextSection, true)); });
    cmdAccessibility.Show(false);
    SetTimer(Handle(), IDT_MAIN_LOGIN, kLoginDelay, nullptr);
}

void frmMain::OnTimer(std::uintptr_t id) {
    // Behind a dialog or a message box the window is disabled: the timer then waits for another tick.
    if (id != IDT_MAIN_LOGIN || IsWindowEnabled(Handle()) == FALSE) return;
    KillTimer(Handle(), IDT_MAIN_LOGIN);
    ShowLogin();
}

void frmMain::OnClose() {
    modUtils::PutStudentRecordsToNetwork();
    Unload();
}

std::wstring frmMain::ShownCaption(const CommandButton& command, const ButtonCaption& caption) {
    return L"< " + std::wstring(command.key) + L" >\r\n" + caption.first + L"\r\n" + caption.second;
}

void frmMain::SetButtonCaption(const CommandButton& command, const ButtonCaption& caption) {
    const std::wstring shown = ShownCaption(command, caption);
    // A caption set again would be spoken again.
    if (command.button->Text() == shown) return;
    command.button->SetText(shown);
    command.button->SetSpokenName(std::wstring(caption.first) + L" " + caption.second, command.key);
}

void frmMain::SetCaptions() { SetPresetCaptions(); }

void frmMain::SetPresetCaptions() {
    for (const CommandButton& command : commands_) SetButtonCaption(command, command.preset);
    chkF11.SetChecked(false);
}

void frmMain::SetTeacherCaptions() {
    for (const CommandButton& command : commands_) SetButtonCaption(command, command.teacher);
    chkF11.SetChecked(true);
}

void frmMain::ToggleMode() {
    PresetMode = !PresetMode;
    if (PresetMode)
        SetPresetCaptions();
    else
        SetTeacherCaptions();
}

std::optional<win32::ControlColours> frmMain::OnControlColours(win32::WindowHandle control) {
    if (control == chkF11.Handle())
        return win32::ControlColours{PresetMode ? GetSysColor(COLOR_BTNTEXT) : kRed, GetSysColorBrush(COLOR_3DFACE)};
    // The title row holds two labels; without a background neither wipes the other's text.
    if (control == lblTitle.Handle())
        return win32::ControlColours{GetSysColor(COLOR_BTNTEXT), static_cast<HBRUSH>(GetStockObject(NULL_BRUSH))};
    return std::nullopt;
}

void frmMain::CycleFontSize() {
    const int size = rtfEdit.FontPoints();
    if (size == StartFontSize)
        rtfEdit.SetFontPoints(kLargeFont);
    else if (size == kLargeFont)
        rtfEdit.SetFontPoints(kLargestFont);
    else
        rtfEdit.SetFontPoints(StartFontSize);
    if (IsContrastOn()) rtfEdit.SetColours(System(COLOR_WINDOW), System(COLOR_WINDOWTEXT));
}

bool frmMain::IsContrastOn() const { return rtfEdit.BackColour() != System(COLOR_WINDOW); }

void frmMain::ToggleContrast() {
    if (!IsContrastOn()) {
        rtfMain.SetColours(System(COLOR_3DLIGHT), System(COLOR_WINDOWTEXT));
        rtfEdit.SetColours(System(COLOR_WINDOW), System(COLOR_WINDOWTEXT));
    } else {
        rtfMain.SetColours(System(COLOR_WINDOWTEXT), System(COLOR_3DLIGHT));
        rtfEdit.SetColours(System(COLOR_WINDOWTEXT), System(COLOR_WINDOW));
    }
    ColourTaskInfo();
}

void frmMain::ColourTaskInfo() {
    // Blue on a dark desktop can hardly be read.
    rtfLessonTaskInfo.SetColours(win32::IsHighContrastDesktop() ? System(COLOR_HOTLIGHT) : win32::Colour::Rgb(kBlue),
                                 System(COLOR_WINDOW));
}

void frmMain::OnColoursChanged() {
    ColourTaskInfo();
    InvalidateRect(Handle(), nullptr, TRUE);
}

void frmMain::ShowMultiRowText() { rtfMain.SetText(modUtils::LoadMultiRowText(gGeneralIni, kTextSection, false)); }

void frmMain::ShowSingleRowText() {
    rtfLessonTaskInfo.SetText(modUtils::LoadLabel1Text(gGeneralIni, kTextSection, false));
    ColourTaskInfo();
}

void frmMain::ChangeUser() { ShowLogin(); }

void frmMain::ShowLogin() {
    dlgLogin& login = dlgLogin::Default();
    if (login.ShowLoginDialog() != win32::kResultOk && !login.ValidationMessage.empty())
        win32::ShowMessage(login.ValidationMessage);
}

void frmMain::ShowLessonList() {
    if (PresetMode)
        modTyping::ShowLessons();
    else
        modTyping::ShowTeachersLessons();
}

void frmMain::ShowTeachersLessonList() { modTyping::ShowTeachersLessons(); }

void frmMain::ShowCustomLessonList() { modTyping::ShowCustomLessons(); }

void frmMain::ShowDictationList() {
    if (PresetMode)
        modDictation::ShowDictationLessons();
    else
        modDictation::ShowTeachersDictationLessons();
}

void frmMain::ShowTeachersDictationList() { modDictation::ShowTeachersDictationLessons(); }

void frmMain::ShowAcademicList() { modAcademics::ShowAcademics(); }

// What these dialogs find out goes to the screen-reader side by their requests; their results change nothing here.

void frmMain::ShowInsertALetter() {
    int result = win32::kResultCancelled;
    dlgGeneral::Default().ShowInsertALetterDialog(result);
}

void frmMain::ShowRemoveALetter() {
    int result = win32::kResultCancelled;
    dlgGeneral::Default().ShowRemoveALetterDialog(result);
}

void frmMain::ShowPreferences() {
    int result = win32::kResultCancelled;
    dlgPreferences::Default().ShowPreferencesDialog(result);
}

void frmMain::ShowStudentProfile() {
    int result = win32::kResultCancelled;
    dlgStudentProfile::Default().ShowStudentProfileDialog(L"StudentProfile", L"Student Profile", result);
}

void frmMain::ShowChannelText() { win32::ShowMessage(L"cmdAccessibility:" + cmdAccessibility.Text()); }

bool frmMain::OnKeyDown(const win32::KeyEvent& key) {
    const auto command =
        std::find_if(kCommandKeys.begin(), kCommandKeys.end(), [&](const CommandKey& row) { return row.Matches(key); });
    if (command != kCommandKeys.end()) {
        (this->*command->run)();
        return true;
    }
    const win32::Modifiers& held = key.modifiers;
    if (key.virtualKey == VK_TAB && !held.alt) {
        // A rich edit keeps Tab for itself, so the window moves the focus; Ctrl+Tab is how a tab is typed.
        if (!held.ctrl)
            SendMessageW(Handle(), WM_NEXTDLGCTL, held.shift ? TRUE : FALSE, FALSE);
        else if (rtfEdit.HasFocus())
            rtfEdit.Insert(L"\t");
        return true;
    }
    return key.virtualKey == VK_ESCAPE && !held.ctrl && !held.alt;
}

int frmMain::LayOutCommands(win32::Placer& placer, int width) {
    const std::array<win32::Button*, 3> settings{&cmdChangeFont, &cmdChangeContrast, &cmdTest1};
    std::array<int, std::tuple_size_v<decltype(commands_)>> commandWidths{};
    int points = win32::kFontPoints;
    int commandsWidth = 0;
    int settingsWidth = 0;
    // The largest size at which the captions of both modes stand side by side.
    for (;; --points) {
        commandsWidth = 2 * kFrameMargin - kCommandGap;
        for (std::size_t i = 0; i < commands_.size(); ++i) {
            const CommandButton& command = commands_[i];
            commandWidths[i] =
                kCommandPadding + std::max(TextTwips(ShownCaption(command, command.preset), points).width,
                                           TextTwips(ShownCaption(command, command.teacher), points).width);
            if (command.button == &chkF11) commandWidths[i] += kCheckMark;
            commandsWidth += commandWidths[i] + kCommandGap;
        }
        settingsWidth = 0;
        for (const win32::Button* button : settings)
            settingsWidth = std::max(settingsWidth, TextTwips(button->Text(), points).width + kCommandPadding);
        settingsWidth += 2 * kFrameMargin;
        if (points == kSmallestCommandFont || commandsWidth + settingsWidth <= width) break;
    }
    for (const CommandButton& command : commands_) SetFontPoints(*command.button, points);
    for (const win32::Button* button : settings) SetFontPoints(*button, points);
    SetFontPoints(fraCommands, points);
    SetFontPoints(fraAppearance, points);

    const int lineHeight = TextTwips(L"A", points).height;
    const int top = lineHeight + kCommandGap;
    const int settingHeight = lineHeight + kCommandPadding / 2;
    const int innerHeight = kCommandLines * settingHeight + (kCommandLines - 1) * kCommandGap;
    const int frameHeight = top + innerHeight + kFrameMargin;

    placer.Put(fraCommands, {0, 0, commandsWidth, frameHeight});
    int left = kFrameMargin;
    for (std::size_t i = 0; i < commands_.size(); ++i) {
        placer.Put(*commands_[i].button, {left, top, commandWidths[i], innerHeight});
        left += commandWidths[i] + kCommandGap;
    }
    placer.Put(fraAppearance, {commandsWidth, 0, settingsWidth, frameHeight});
    int settingTop = top;
    for (const win32::Button* button : settings) {
        placer.Put(*button,
                   {commandsWidth + kFrameMargin, settingTop, settingsWidth - 2 * kFrameMargin, settingHeight});
        settingTop += settingHeight + kCommandGap;
    }
    return frameHeight;
}

void frmMain::OnLayout() {
    const win32::Box client = ClientTwips();
    win32::Placer placer(*this);
    win32::MainLayoutInput input;
    input.width = client.width;
    input.height = client.height;
    input.commandsHeight = LayOutCommands(placer, client.width);
    const win32::Box line = TextTwips(L"A");
    input.titleHeight = line.height + kTitlePadding;
    input.infoHeight = kInfoLines * line.height + kInfoPadding;
    input.textHeight = rtfMain.HeightTwips();
    const win32::MainLayout layout = LayOutMain(input);
    placer.Put(lblTitle, {0, input.commandsHeight, layout.width, input.titleHeight});
    const int subTitleLeft = layout.width / 2;
    placer.Put(lblSubTitle, {subTitleLeft, input.commandsHeight, layout.width - subTitleLeft, input.titleHeight});
    placer.Put(rtfLessonTaskInfo, {0, layout.infoTop, layout.width, input.infoHeight});
    placer.Put(rtfMain, {0, layout.textTop, layout.width, layout.textHeight});
    placer.Put(rtfEdit, {0, layout.editTop, layout.width, layout.editHeight});
}
