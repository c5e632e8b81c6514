// The main window's command keys, with and without modifiers.
#include "fixture.h"

namespace e2e {
namespace {

class CommandKeys : public KeystrideTest {
protected:
    struct Opening {
        const char* chord;
        const wchar_t* title;
        const wchar_t* list;
    };

    void ExpectListOpens(const Opening& opening) {
        const std::wstring request = std::wstring(opening.list) + L"\x05\x04";
        const Window picker = OpenPicker(opening.chord);
        ASSERT_TRUE(picker) << opening.chord;
        EXPECT_EQ(picker.Text(), opening.title) << opening.chord;
        EXPECT_TRUE(App().WaitForRequest(request)) << opening.chord << ": " << Readable(App().Request());
        const bool teachers = std::wstring_view(opening.list) == L"KYBT";
        for (const wchar_t* button : {L"cmdAddLesson", L"cmdEditLesson", L"cmdRemoveLesson"})
            EXPECT_EQ(picker.Descendant(button).Shown(), teachers) << opening.chord << ' ' << ToUtf8(button);
        ClosePicker();
        EXPECT_TRUE(App().WaitForFocus(L"rtfEdit")) << opening.chord;
    }

    /// Presses a chord that has no command and looks for any effect.
    void ExpectNothingHappens(const char* chord) {
        const std::wstring request = App().Request();
        const std::wstring mode = App().Text(L"frmMain", L"chkF11");
        const std::wstring text = App().Text(L"frmMain", L"rtfMain");
        ASSERT_TRUE(App().Press(chord));
        ASSERT_TRUE(KeysDealtWith()) << chord;
        EXPECT_EQ(OpenWindows(), std::vector<std::wstring>{L"frmMain"}) << chord;
        EXPECT_EQ(App().Request(), request) << chord;
        EXPECT_EQ(App().Text(L"frmMain", L"chkF11"), mode) << chord;
        EXPECT_EQ(App().Text(L"frmMain", L"rtfMain"), text) << chord;
        EXPECT_EQ(App().Text(L"frmMain", L"rtfEdit"), L"") << chord;
        EXPECT_EQ(App().FocusName(), L"rtfEdit") << chord;
    }
};

TEST_F(CommandKeys, ListsOpenInPresetMode) {
    StartSignedOn();
    WriteBytes(UserFolder() / L"Student Records" / L"Ann Baker" / L"CustomLessons.ini", LessonFile({{"Own", {"o"}}}));
    for (const Opening& opening :
         {Opening{"F3", L"Pick a Lesson or Task", L"KYBP"}, Opening{"Shift+F3", L"Pick a Lesson or Task", L"KYBP"},
          Opening{"F7", L"Pick a Teacher's Lesson or Task", L"KYBT"},
          Opening{"Shift+F7", L"Pick a Teacher's Lesson or Task", L"KYBT"},
          Opening{"Ctrl+Alt+Shift+F8", L"Pick a Lesson or Task", L"KYBC"}}) {
        ASSERT_NO_FATAL_FAILURE(ExpectListOpens(opening));
    }
}

TEST_F(CommandKeys, ListsOpenInTeachersMode) {
    StartSignedOn();
    WriteBytes(UserFolder() / L"Student Records" / L"Ann Baker" / L"CustomLessons.ini", LessonFile({{"Own", {"o"}}}));
    ASSERT_TRUE(App().Press("F11"));
    ASSERT_TRUE(App().WaitForText(L"frmMain", L"chkF11", L"< F11 >\r\nTeacher's\r\nMode"));
    for (const Opening& opening : {Opening{"F3", L"Pick a Teacher's Lesson or Task", L"KYBT"},
                                   Opening{"Shift+F3", L"Pick a Teacher's Lesson or Task", L"KYBT"},
                                   Opening{"F7", L"Pick a Teacher's Lesson or Task", L"KYBT"},
                                   Opening{"Ctrl+Alt+Shift+F8", L"Pick a Lesson or Task", L"KYBC"}}) {
        ASSERT_NO_FATAL_FAILURE(ExpectListOpens(opening));
    }
}

TEST_F(CommandKeys, PlainKeysWithControlOrAltDoNothing) {
    StartUnsigned();
    for (const char* chord :
         {"Ctrl+F3", "Alt+F3", "Ctrl+Shift+F3", "Alt+Shift+F3", "Ctrl+Alt+F3", "Ctrl+Alt+Shift+F3", "Ctrl+F5", "Alt+F5",
          "Ctrl+F7", "Alt+F7", "Ctrl+F8", "Alt+F8", "Ctrl+F11", "Alt+F11", "Ctrl+F12", "Alt+F12", "Ctrl+Shift+F12"}) {
        ASSERT_NO_FATAL_FAILURE(ExpectNothingHappens(chord));
    }
}

TEST_F(CommandKeys, ThreeModifierKeysNeedAllThree) {
    StartUnsigned();
    for (const char* chord : {"Ctrl+Alt+F8", "Ctrl+Shift+F8", "Alt+Shift+F8", "Ctrl+Alt+F9", "Ctrl+Shift+F9",
                              "Alt+Shift+F9", "F9", "Ctrl+F9", "Ctrl+Alt+F10", "Ctrl+Alt+F12"}) {
        ASSERT_NO_FATAL_FAILURE(ExpectNothingHappens(chord));
    }
}

TEST_F(CommandKeys, KeysOfTheScreenReadersScriptsDoNothing) {
    StartUnsigned();
    for (const char* chord : {"F1", "F2", "Shift+F1", "Ctrl+F1", "Ctrl+Shift+U"}) {
        ASSERT_NO_FATAL_FAILURE(ExpectNothingHappens(chord));
    }
}

TEST_F(CommandKeys, EachOfTheOtherDialogsOpensOnItsKey) {
    StartUnsigned();
    struct Row {
        const char* chord;
        const wchar_t* form;
        const wchar_t* title;
        const wchar_t* focus;
    };
    for (const Row& row : {Row{"F6", L"dlgAcademics", L"Pick an Academic Subject", L"tvAcademics"},
                           Row{"Shift+F6", L"dlgAcademics", L"Pick an Academic Subject", L"tvAcademics"},
                           Row{"Ctrl+U", L"dlgPreferences", L"User Preferences", L"lstPreferences"},
                           Row{"Ctrl+Alt+Shift+F10", L"dlgGeneral", L".", L"txtGeneral"},
                           Row{"Ctrl+Alt+Shift+F11", L"dlgGeneral", L"..", L"txtGeneral"},
                           Row{"Ctrl+Alt+Shift+F12", L"dlgStudentProfile", L"Student Profile", L"cmboBirthYear"}}) {
        EXPECT_EQ(OpenForm(row.chord, row.form, row.focus).Text(), row.title) << row.chord;
        ASSERT_NO_FATAL_FAILURE(CloseForm(row.form)) << row.chord;
        EXPECT_TRUE(App().WaitForFocus(L"rtfEdit")) << row.chord;
    }
    for (const char* chord : {"Ctrl+F6", "Alt+F6", "Ctrl+Alt+Shift+F6", "Ctrl+Alt+U", "Ctrl+Alt+F11", "Ctrl+Shift+F12"})
        ASSERT_NO_FATAL_FAILURE(ExpectNothingHappens(chord));
}

TEST_F(CommandKeys, SignOnKeyOpensTheDialogAgain) {
    StartUnsigned();
    ASSERT_TRUE(App().Press("Ctrl+Alt+Shift+F9"));
    ASSERT_TRUE(App().WaitForForm(L"dlgLogin"));
    EXPECT_EQ(App().Form(L"dlgLogin").Text(), L"Type Your Full Name");
    ASSERT_TRUE(App().WaitForFocus(L"txtLoginName"));
    ASSERT_TRUE(App().Press("Esc"));
    EXPECT_TRUE(App().WaitForNoForm(L"dlgLogin"));
    EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
}

TEST_F(CommandKeys, WorkFromEveryControlOfTheWindow) {
    StartUnsigned();
    const int controls = 14;
    for (int step = 0; step < controls; ++step) {
        const Window before = App().Focus();
        const Window picker = OpenPicker("F3");
        ASSERT_TRUE(picker) << ToUtf8(before.Name());
        ClosePicker();
        ASSERT_TRUE(WaitUntil([&] { return App().Focus() == before; }))
            << "the focus does not return to " << ToUtf8(before.Name());
        ASSERT_TRUE(App().Press("Tab"));
        ASSERT_TRUE(WaitUntil([&] { return !(App().Focus() == before); })) << "Tab stays on " << ToUtf8(before.Name());
    }
    EXPECT_EQ(App().FocusName(), L"rtfEdit") << "the round through the window has come back to its start";
}

TEST_F(CommandKeys, KeyHeldWhileTheListOpensRunsOnce) {
    StartUnsigned();
    ASSERT_TRUE(App().Press("F3"));
    ASSERT_TRUE(App().Press("F7"));
    ASSERT_TRUE(App().WaitForForm(L"dlgTyping"));
    ASSERT_TRUE(App().WaitForFocus(L"tvTasks"));
    EXPECT_EQ(OpenWindows(), (std::vector<std::wstring>{L"dlgTyping", L"frmMain"}));
    EXPECT_EQ(App().Request(), L"KYBP\x05\x04");
    ClosePicker();
    EXPECT_TRUE(KeysDealtWith());
    EXPECT_EQ(OpenWindows(), std::vector<std::wstring>{L"frmMain"});
}

}  // namespace
}  // namespace e2e
