// The main window: command buttons, information texts, the typing area and the keys of all commands.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "resource_ids.h"
#include "win32/controls.h"
#include "win32/form.h"

class frmMain final : public win32::Form {
public:
    static frmMain& Default();

    /// Loads and shows the window and runs messages until it is closed.
    void Run();

    void SetCaptions();
    void SetPresetCaptions();
    void SetTeacherCaptions();
    void ToggleMode();
    void CycleFontSize();
    void ToggleContrast();
    void ShowMultiRowText();
    void ShowSingleRowText();
    void ChangeUser();
    void ShowInsertALetter();
    void ShowRemoveALetter();
    void ShowPreferences();
    void ShowStudentProfile();

    win32::Label fraCommands{*this, IDC_MAIN_COMMANDS, L"fraCommands"};
    win32::Button cmdF1{*this, IDC_MAIN_F1, L"cmdF1"};
    win32::Button cmdF2{*this, IDC_MAIN_F2, L"cmdF2"};
    win32::Button cmdF3{*this, IDC_MAIN_F3, L"cmdF3"};
    win32::Button cmdF4{*this, IDC_MAIN_F4, L"cmdF4"};
    win32::Button cmdF5{*this, IDC_MAIN_F5, L"cmdF5"};
    win32::Button cmdF6{*this, IDC_MAIN_F6, L"cmdF6"};
    win32::CheckButton chkF11{*this, IDC_MAIN_F11, L"chkF11"};
    win32::Button cmdF12{*this, IDC_MAIN_F12, L"cmdF12"};
    win32::Label fraAppearance{*this, IDC_MAIN_APPEARANCE, L"fraAppearance"};
    win32::Button cmdChangeFont{*this, IDC_MAIN_CHANGE_FONT, L"cmdChangeFont"};
    win32::Button cmdChangeContrast{*this, IDC_MAIN_CHANGE_CONTRAST, L"cmdChangeContrast"};
    win32::Button cmdTest1{*this, IDC_MAIN_TEST1, L"cmdTest1"};
    win32::Button cmdAccessibility{*this, IDC_MAIN_ACCESSIBILITY, L"cmdAccessibility"};
    win32::Label lblTitle{*this, IDC_MAIN_TITLE, L"lblTitle"};
    win32::Label lblSubTitle{*this, IDC_MAIN_SUBTITLE, L"lblSubTitle"};
    win32::RichEdit rtfLessonTaskInfo{*this, IDC_MAIN_TASK_INFO, L"rtfLessonTaskInfo"};
    win32::RichEdit rtfMain{*this, IDC_MAIN_TEXT, L"rtfMain"};
    win32::RichEdit rtfEdit{*this, IDC_MAIN_EDIT, L"rtfEdit"};

private:
    struct CommandKey;
    struct ButtonCaption {
        const wchar_t* first;
        const wchar_t* second;
    };
    /// A command button: its key and its captions in the two modes.
    struct CommandButton {
        win32::Button* button;
        const wchar_t* key;
        ButtonCaption preset;
        ButtonCaption teacher;
    };
    static const std::array<CommandKey, 15> kCommandKeys;

    frmMain();

    void OnPlace() override;
    void OnLoad() override;
    void OnLayout() override;
    bool OnKeyDown(const win32::KeyEvent& key) override;
    void OnClose() override;
    void OnTimer(std::uintptr_t id) override;
    void OnColoursChanged() override;
    std::optional<win32::ControlColours> OnControlColours(win32::WindowHandle control) override;
    void OnUnloaded() override { open_ = false; }

    static std::wstring ShownCaption(const CommandButton& command, const ButtonCaption& caption);
    static void SetButtonCaption(const CommandButton& command, const ButtonCaption& caption);
    /// Places the two frames and what stands in them; returns the frames' height. All in twips.
    int LayOutCommands(win32::Placer& placer, int width);
    void ColourTaskInfo();
    [[nodiscard]] bool IsContrastOn() const;
    void ShowLogin();
    void ShowLessonList();
    void ShowTeachersLessonList();
    void ShowCustomLessonList();
    void ShowDictationList();
    void ShowTeachersDictationList();
    void ShowAcademicList();
    void ShowChannelText();

    // In the order of the buttons.
    const std::array<CommandButton, 8> commands_{{
        {&cmdF1, L"F1", {L"Repeat", L"Instructions"}, {L"Repeat", L"Instructions"}},
        {&cmdF2, L"F2", {L"Next", L"or Repeat"}, {L"Next", L"or Repeat"}},
        {&cmdF3, L"F3", {L"Keyboarding", L"Lesson List"}, {L"Teacher's", L"Lesson List"}},
        {&cmdF4, L"F4", {L"Dictation", L"Lesson List"}, {L"Teacher's", L"Dictation List"}},
        {&cmdF5, L"F5", {L"Race", L"Keyboarding"}, {L"Race", L"Keyboarding"}},
        {&cmdF6, L"F6", {L"Academic", L"Lesson List"}, {L"Academic", L"Lesson List"}},
        {&chkF11, L"F11", {L"Preset", L"Mode"}, {L"Teacher's", L"Mode"}},
        {&cmdF12, L"F12", {L"Progress", L"Reports"}, {L"Progress", L"Reports"}},
    }};

    bool PresetMode = true;
    int StartFontSize = 0;  // points
    bool open_ = false;
};
