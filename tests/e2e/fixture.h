// What every end-to-end test starts from: fresh data folders with known files, and one run of the program that always
// ends.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

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
std::string GeneralIni(const MainTexts& texts);
std::string UserInfoIni(std::string_view networkFolder);
std::string KeystrideIni(std::string_view userData, int language, int magic);

/// The lessons that the fixture ships: the built-in ones and the teacher's.
std::vector<LessonText> ShippedLessons();
std::vector<LessonText> TeachersLessons();

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

    /// True once every key pressed before has been dealt with: sends a text on its way round through F5.
    bool KeysDealtWith();
    /// The names of the program's visible windows, "?" for one without a name.
    std::vector<std::wstring> OpenWindows() const;

    Session& App();
    bool Started() const { return app_.has_value(); }
    /// After a test in which the program's end with this code is no crash.
    void ForgetProgram() { app_.reset(); }

private:
    std::optional<Session> app_;
    int round_ = 0;
};

}  // namespace e2e
