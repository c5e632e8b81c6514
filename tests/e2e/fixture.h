// What every end-to-end test starts from: fresh data folders with known files, and one run of the program that always
// ends.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "driver/data_folders.h"
#include "driver/session.h"
#include "driver/text.h"
#include "driver/wait.h"

namespace e2e {

void SetProgramPath(const std::filesystem::path& program);
/// The program under test: the path given on the command line, else KEYSTRIDE_EXE, else keystride.exe beside the tests.
std::filesystem::path ProgramPath();
/// The folder of the sources, for the documents and shipped files that tests compare with.
std::filesystem::path SourceFolder();
/// The network folder that tests use; fresh for each test that asks for it.
std::filesystem::path NetworkFolder();

/// The texts of KSGeneral.ini's section Main, in the program's code page; \x07 stands for a line break.
struct MainTexts {
    std::string singleRow = "The single row.";
    std::string multiRow =
        "The multi row.\x07"
        "Its second line.";
    std::string defSingleRow = "Welcome, learner.";
    std::string defMultiRow = "First line.\x07Second line.";
};
/// All of KSGeneral.ini: these texts, and always the same ones in the sections General and StudentProfile.
std::string GeneralIni(const MainTexts& texts);
/// A catalogue of two subjects: Geography with Capitals (2 quizzes) and Rivers (3, in a folder below), Math with
/// Fractions (none).
void WriteQuizFiles();
std::string UserInfoIni(std::string_view networkFolder);
std::string KeystrideIni(std::string_view userData, int language, int magic);

/// The lessons that the fixture ships: the built-in ones and the teacher's.
std::vector<LessonText> ShippedLessons();
std::vector<LessonText> TeachersLessons();

/// Puts a text on the clipboard.
bool CopyToClipboard(std::wstring_view text);

/// The resolution that Wine gives to programs started from now on.
class DisplayResolution {
public:
    explicit DisplayResolution(DWORD dpi);
    ~DisplayResolution();
    DisplayResolution(const DisplayResolution&) = delete;
    DisplayResolution& operator=(const DisplayResolution&) = delete;
};

class KeystrideTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Starts the program and waits for its main window.
    void Start();
    /// Starts, waits for the sign-on dialog and leaves it with Esc.
    void StartUnsigned();
    /// Starts and signs on.
    void StartSignedOn(std::wstring_view name = L"Ann Baker");
    /// Opens the sign-on dialog when it is not open yet, types a name and presses Enter.
    void SignOn(std::wstring_view name);
    /// Ends the program with Alt+F4 and forgets it.
    void Leave();

    /// Presses a key that opens the lesson list and waits until it is ready.
    Window OpenPicker(std::string_view chord);
    void ClosePicker(std::string_view chord = "Esc");

    /// Presses a key of the main window and waits until the form that it opens has the focus on that control.
    Window OpenForm(std::string_view chord, std::wstring_view form, std::wstring_view focus);
    /// Closes it; the focus is then on a control of the form that opened it.
    void CloseForm(std::wstring_view form, std::string_view chord = "Esc");
    /// The error box that is open now says this; it is answered, and the focus is back in the typing area.
    void ExpectErrorBox(std::wstring_view text);
    /// A plain message box over that form says this; it is answered.
    void ExpectMessage(std::wstring_view form, std::wstring_view text);

    /// True once every key pressed before has been dealt with: sends a text on its way round through F5.
    bool KeysDealtWith();
    Window In(std::wstring_view form, std::wstring_view control) { return App().Control(form, control); }
    /// Puts a text into a box at once, as another program would.
    void SetTextOf(std::wstring_view form, std::wstring_view box, const std::wstring& text);
    std::wstring Notice(std::wstring_view form);
    bool WaitForNotice(std::wstring_view form, std::wstring_view text);
    bool Checked(std::wstring_view form, std::wstring_view option);

    /// Moves the focus with Tab until it is on that control.
    void TabTo(std::wstring_view control);
    /// Presses a button by the keyboard.
    void PressButton(std::wstring_view control);
    /// Empties the box that has the focus and types a text.
    void Retype(std::wstring_view form, std::wstring_view box, std::wstring_view text);
    /// Clicks a control of a form without waiting for what it opens.
    void Click(std::wstring_view form, std::wstring_view control);

    // What a screen reader needs.

    /// The controls in z-order; a static without a name of its own that only names the next control is "h:" and its
    /// text.
    static std::vector<std::wstring> Order(const Window& form);
    /// The focus goes round in this order, and the same way back.
    void ExpectTabOrder(const std::vector<std::wstring>& expected);
    static void ExpectGroup(const Window& form, std::wstring_view group, const std::vector<std::wstring>& members);
    static void ExpectOneDefaultButton(const Window& dialog, std::wstring_view name = L"OKButton");
    /// Nothing overlaps, leaves the dialog or the screen, or is clipped.
    static void ExpectEverythingReadable(const Window& dialog, int dpi);

    /// The names of the program's visible windows, "?" for one without a name.
    std::vector<std::wstring> OpenWindows() const;

    Session& App();
    bool Started() const { return app_.has_value(); }
    /// After a test in which the program's end with this code is no crash.
    void ForgetProgram() { app_.reset(); }

private:
    std::vector<std::wstring> TabRound(const char* chord);

    std::optional<Session> app_;
    int round_ = 0;
};

}  // namespace e2e
