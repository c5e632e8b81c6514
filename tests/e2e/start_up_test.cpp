// Start-up: the user folder on first and later runs, the second copy, missing files, the first texts.
#include "fixture.h"

namespace e2e {
namespace {

namespace fs = std::filesystem;

class StartUp : public KeystrideTest {
protected:
    /// The next box must say that a file is missing; answers it.
    static void ExpectMissingFileBox(const Session& session, const fs::path& file) {
        const auto box = session.WaitForBox();
        ASSERT_TRUE(box) << "nothing tells that " << file.string() << " is missing";
        EXPECT_EQ(box->text, L"File " + file.wstring() + L"not found.");
        EXPECT_EQ(box->title, L"Keystride");
        EXPECT_EQ(box->ButtonIds(), std::vector<int>{IDOK});
        EXPECT_TRUE(box->HasStopIcon());
        ASSERT_TRUE(box->Answer(IDOK));
    }
};

TEST_F(StartUp, FirstRunMakesTheUserFolderAndCopiesTheShippedFiles) {
    ASSERT_FALSE(fs::exists(UserFolder()));
    StartUnsigned();
    EXPECT_TRUE(fs::is_directory(UserFolder() / L"Student Records"));
    for (const wchar_t* name :
         {L"KSGeneral.ini", L"KSDialogTutor.ini", L"TeachersLessons.ini", L"TeachersDictations.ini"})
        EXPECT_EQ(ReadBytes(UserFolder() / name), ReadBytes(CommonFolder() / name)) << ToUtf8(name);
    EXPECT_EQ(ReadBytes(UserFolder() / L"Keystride.ini"), KeystrideIni(UserFolder().string(), 0, 0));
    for (const wchar_t* name : {L"KSLessons.ini", L"KSUserInfo.ini"})
        EXPECT_FALSE(fs::exists(UserFolder() / name)) << ToUtf8(name) << " belongs to all users";
}

TEST_F(StartUp, FirstRunLeavesTheCommonFolderAlone) {
    const auto before = Snapshot(CommonFolder());
    StartUnsigned();
    EXPECT_EQ(Snapshot(CommonFolder()), before);
}

TEST_F(StartUp, SecondRunKeepsWhatTheTeacherEdited) {
    StartUnsigned();
    Leave();
    const std::string lessons = LessonFile({{"Edited by the teacher", {"x"}}});
    WriteBytes(UserFolder() / L"TeachersLessons.ini", lessons);
    WriteBytes(UserFolder() / L"TeachersDictations.ini", "[Lessons]\r\nNbrOfLessons=7\r\n");
    WriteBytes(UserFolder() / L"KSGeneral.ini", GeneralIni({"s", "m", "My own row.", "My own text."}));
    WriteBytes(UserFolder() / L"Keystride.ini", KeystrideIni(UserFolder().string(), 2, 1));
    const auto before = Snapshot(UserFolder());
    StartUnsigned();
    EXPECT_EQ(App().Text(L"frmMain", L"rtfLessonTaskInfo"), L"My own row.");
    EXPECT_EQ(Snapshot(UserFolder()), before);
}

TEST_F(StartUp, RunAfterOneUserFileWasLostCopiesThatOneAgain) {
    StartUnsigned();
    Leave();
    WriteBytes(UserFolder() / L"KSGeneral.ini", GeneralIni({"s", "m", "Kept.", "Kept too."}));
    fs::remove(UserFolder() / L"TeachersLessons.ini");
    fs::remove(UserFolder() / L"KSDialogTutor.ini");
    StartUnsigned();
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.ini"), ReadBytes(CommonFolder() / L"TeachersLessons.ini"));
    EXPECT_EQ(ReadBytes(UserFolder() / L"KSDialogTutor.ini"), ReadBytes(CommonFolder() / L"KSDialogTutor.ini"));
    EXPECT_EQ(App().Text(L"frmMain", L"rtfLessonTaskInfo"), L"Kept.");
}

TEST_F(StartUp, UserFolderWithDifferentLettersIsRecordedAnew) {
    std::string otherCase = UserFolder().string();
    for (char& letter : otherCase) letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    WriteBytes(UserFolder() / L"Keystride.ini", KeystrideIni(otherCase, 0, 0));
    StartUnsigned();
    EXPECT_EQ(ReadBytes(UserFolder() / L"Keystride.ini"), KeystrideIni(UserFolder().string(), 0, 0));
}

TEST_F(StartUp, SecondCopyIsRefusedAndTouchesNothing) {
    StartUnsigned();
    fs::remove(UserFolder() / L"KSDialogTutor.ini");
    const auto before = Snapshot(UserFolder());

    const Session second(ProgramPath());
    const auto box = second.WaitForBox();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->text, L"Keystride is already running");
    EXPECT_EQ(box->title, L"Keystride");
    EXPECT_EQ(box->ButtonIds(), std::vector<int>{IDOK});
    EXPECT_TRUE(box->HasStopIcon());
    EXPECT_FALSE(second.Form(L"frmMain"));
    ASSERT_TRUE(second.Press("Enter"));
    EXPECT_TRUE(second.Process().WaitForEnd());
    EXPECT_EQ(Snapshot(UserFolder()), before);
    EXPECT_TRUE(App().Process().Running());
    EXPECT_TRUE(App().Form(L"frmMain"));
}

TEST_F(StartUp, CopyStartedAfterTheFirstHasEndedIsWelcome) {
    StartUnsigned();
    Leave();
    StartUnsigned();
    EXPECT_FALSE(App().TopBox());
}

TEST_F(StartUp, MissingCommonFolderIsReportedOnceAFileAndLeavesAWorkingWindow) {
    RemoveTree(CommonFolder());
    // The boxes come while the main window loads, so the window cannot be waited for first.
    const Session session(ProgramPath());
    ExpectMissingFileBox(session, UserFolder() / L"Keystride.ini");
    ExpectMissingFileBox(session, UserFolder() / L"KSGeneral.ini");
    ASSERT_TRUE(session.WaitForForm(L"dlgLogin")) << session.Describe();
    EXPECT_FALSE(session.TopBox());
    EXPECT_TRUE(fs::is_directory(UserFolder() / L"Student Records"));
    EXPECT_EQ(session.Text(L"frmMain", L"cmdF3"), L"< F3 >\r\nKeyboarding\r\nLesson List");
    ASSERT_TRUE(session.WaitForFocus(L"txtLoginName"));
    ASSERT_TRUE(session.Press("Esc"));
    ASSERT_TRUE(session.WaitForNoForm(L"dlgLogin"));
    ASSERT_TRUE(session.Press("Alt+F4"));
    EXPECT_TRUE(session.Process().WaitForEnd());
}

TEST_F(StartUp, FolderInPlaceOfTheSwitchesIsReportedAndLeavesAWorkingWindow) {
    fs::create_directories(UserFolder() / L"Keystride.ini");
    const Session session(ProgramPath());
    ExpectMissingFileBox(session, UserFolder() / L"Keystride.ini");
    ASSERT_TRUE(session.WaitForForm(L"dlgLogin"));
    EXPECT_EQ(session.Text(L"frmMain", L"rtfLessonTaskInfo"), L"Welcome, learner.");
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.ini"), ReadBytes(CommonFolder() / L"TeachersLessons.ini"));
    EXPECT_TRUE(fs::is_directory(UserFolder() / L"Keystride.ini"));
}

TEST_F(StartUp, TextsThatTheFileLacksAreReplacedByTheNotFoundTexts) {
    WriteBytes(UserFolder() / L"KSGeneral.ini", "[Main]\r\nSingleRow=only this\r\n");
    StartUnsigned();
    EXPECT_EQ(App().Text(L"frmMain", L"rtfLessonTaskInfo"), L"singlerow caption not found");
    EXPECT_EQ(App().Text(L"frmMain", L"rtfMain"), L"caption not found");
}

TEST_F(StartUp, LongTextIsCutAt254Characters) {
    WriteBytes(UserFolder() / L"KSGeneral.ini", GeneralIni({"s", "m", std::string(300, 'r'), "m"}));
    StartUnsigned();
    EXPECT_EQ(App().Text(L"frmMain", L"rtfLessonTaskInfo"), std::wstring(254, L'r'));
}

TEST_F(StartUp, LettersBeyondAsciiAreReadInTheCodePage) {
    WriteBytes(UserFolder() / L"KSGeneral.ini", GeneralIni({"s", "m", "Gr\xFC\xDF Gott", "m"}));
    StartUnsigned();
    EXPECT_EQ(App().Text(L"frmMain", L"rtfLessonTaskInfo"), L"Gr\u00FC\u00DF Gott");
}

TEST_F(StartUp, ShippedDataGivesTextsAndLessons) {
    RemoveTree(CommonFolder());
    fs::create_directories(CommonFolder());
    fs::copy(SourceFolder() / L"data", CommonFolder(), fs::copy_options::recursive);
    fs::remove_all(CommonFolder() / L"source");  // what the shipped files are made of is not shipped
    StartUnsigned();
    EXPECT_NE(App().Text(L"frmMain", L"rtfLessonTaskInfo"), L"singlerow caption not found");
    EXPECT_NE(App().Text(L"frmMain", L"rtfMain"), L"caption not found");
    ASSERT_TRUE(OpenPicker("F3"));
    const std::vector<TreeNode> lessons = App().TreeOf(L"dlgTyping", L"tvTasks").Roots();
    EXPECT_FALSE(lessons.empty());
    for (std::size_t index = 0; index < lessons.size(); ++index) {
        EXPECT_TRUE(lessons[index].text.starts_with(std::to_wstring(index + 1) + L". "))
            << Readable(lessons[index].text);
        EXPECT_FALSE(lessons[index].children.empty()) << Readable(lessons[index].text);
    }
}

}  // namespace
}  // namespace e2e
