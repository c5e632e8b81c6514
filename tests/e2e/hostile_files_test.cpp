// Files that no one should have: each ends in a message or a default, never in a crash, a hang or a lost file.
#include <cstdint>

#include "fixture.h"

namespace e2e {
namespace {

namespace fs = std::filesystem;

class HostileFiles : public KeystrideTest {
protected:
    static fs::path Lessons() { return CommonFolder() / L"KSLessons.ini"; }

    /// The same bytes for the same seed on every machine.
    static std::string RandomBytes(std::uint32_t seed, std::size_t count) {
        std::string bytes;
        for (std::size_t index = 0; index < count; ++index) {
            seed = seed * 1664525U + 1013904223U;
            bytes.push_back(static_cast<char>(seed >> 24));
        }
        return bytes;
    }

    /// F3 must end in an error box with that text, and the main window must go on.
    void ExpectListRefused(const std::string& file, std::wstring_view text) {
        WriteBytes(Lessons(), file);
        const std::wstring request = App().Request();
        ASSERT_TRUE(App().Press("F3"));
        ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(text));
        EXPECT_EQ(App().Request(), request);
        EXPECT_EQ(ReadBytes(Lessons()), file);
    }

    /// F3 must end in the list, or in an error box; either way the main window goes on.
    void ExpectListSurvives(const std::string& file) {
        WriteBytes(Lessons(), file);
        ASSERT_TRUE(App().Press("F3"));
        ASSERT_TRUE(WaitUntil([&] { return App().Form(L"dlgTyping") || App().TopBox(); }));
        if (const auto box = App().TopBox()) {
            ASSERT_TRUE(box->Answer(IDOK));
        } else {
            ASSERT_TRUE(App().WaitForFocus(L"tvTasks"));
            ClosePicker();
        }
        ASSERT_TRUE(App().WaitForFocus(L"rtfEdit"));
        EXPECT_TRUE(KeysDealtWith());
        EXPECT_EQ(ReadBytes(Lessons()), file);
    }
};

TEST_F(HostileFiles, TooManyLessonsOrTasksAreRefused) {
    StartUnsigned();
    const std::wstring subscript = L"Subscript out of range";
    ASSERT_NO_FATAL_FAILURE(
        ExpectListRefused(LessonFile(std::vector<LessonText>(202, LessonText{"L", {}})), subscript));
    ASSERT_NO_FATAL_FAILURE(ExpectListRefused("[Lessons]\r\nNbrOfLessons=32767\r\n", subscript));
    ASSERT_NO_FATAL_FAILURE(
        ExpectListRefused(LessonFile({{"Full", std::vector<std::string>(102, "t")}, {"Next", {}}}), subscript));
    WriteBytes(Lessons(), LessonFile(ShippedLessons()));
    ASSERT_TRUE(OpenPicker("F3")) << "the next opening works again";
    const Tree tree = App().TreeOf(L"dlgTyping", L"tvTasks");
    EXPECT_EQ(tree.RootTexts().size(), ShippedLessons().size());
    EXPECT_TRUE(App().Control(L"dlgTyping", L"tvTasks").Visible());
}

TEST_F(HostileFiles, CountsThatDoNotFitSixteenBitsOverflow) {
    StartUnsigned();
    for (const char* count : {"99999999999", "32768", "40000", "-40000"}) {
        ASSERT_NO_FATAL_FAILURE(
            ExpectListRefused("[Lessons]\r\nNbrOfLessons=" + std::string(count) + "\r\n", L"Overflow"));
    }
    ASSERT_NO_FATAL_FAILURE(
        ExpectListRefused("[Lessons]\r\nNbrOfLessons=1\r\n[L01]\r\nDefTitle=A\r\nNbrOfTasks=70000\r\n", L"Overflow"));
}

TEST_F(HostileFiles, CountsBelowZeroOrWithoutANumberGiveAnEmptyList) {
    StartUnsigned();
    for (const char* count : {"-5", "many", ""}) {
        WriteBytes(Lessons(),
                   "[Lessons]\r\nNbrOfLessons=" + std::string(count) + "\r\n" + LessonSection(1, {"A", {"a"}}));
        ASSERT_TRUE(OpenPicker("F3"));
        EXPECT_EQ(App().TreeOf(L"dlgTyping", L"tvTasks").Count(), 0) << count;
        ClosePicker();
    }
}

TEST_F(HostileFiles, RandomBytesAsALessonFile) {
    StartUnsigned();
    for (std::uint32_t seed = 1; seed <= 4; ++seed) {
        ASSERT_NO_FATAL_FAILURE(ExpectListSurvives(RandomBytes(seed, 20'000))) << "seed " << seed;
        ASSERT_NO_FATAL_FAILURE(
            ExpectListSurvives("[Lessons]\r\nNbrOfLessons=5\r\n[L01]\r\nNbrOfTasks=9\r\n" + RandomBytes(seed, 20'000)))
            << "seed " << seed;
    }
}

TEST_F(HostileFiles, RandomBytesInEveryFileOfTheStart) {
    std::uint32_t seed = 77;
    for (const wchar_t* name : {L"Keystride.ini", L"KSGeneral.ini", L"KSDialogTutor.ini", L"KSUserInfo.ini",
                                L"TeachersLessons.ini", L"TeachersDictations.ini", L"KSLessons.ini"})
        WriteBytes(CommonFolder() / name, RandomBytes(seed++, 5'000));
    const auto before = Snapshot(CommonFolder());
    StartSignedOn();
    EXPECT_EQ(Snapshot(CommonFolder()), before);
    EXPECT_EQ(App().Text(L"frmMain", L"rtfLessonTaskInfo"), L"singlerow caption not found");
    Leave();
}

TEST_F(HostileFiles, TwoMegabytesInOneValue) {
    StartUnsigned();
    const std::string longValue(2'000'000, 'v');
    WriteBytes(Lessons(), "[Lessons]\r\nNbrOfLessons=2\r\n[L01]\r\nDefTitle=" + longValue +
                              "\r\nNbrOfTasks=1\r\nPRINT_USA_TASK_01=" + longValue + "\r\n" +
                              LessonSection(2, {"After it", {"a"}}));
    ASSERT_TRUE(OpenPicker("F3"));
    const Tree tree = App().TreeOf(L"dlgTyping", L"tvTasks");
    const std::vector<TreeNode> roots = tree.Roots();
    ASSERT_EQ(roots.size(), 2U);
    EXPECT_EQ(roots[1].text, L"2. After it");
    ASSERT_EQ(roots[0].children.size(), 1U);
    // The tree control itself shows no more than 259 characters of a line.
    EXPECT_EQ(roots[0].text.substr(0, 200), L"1. " + std::wstring(197, L'v'));
    EXPECT_LE(roots[0].text.size(), 257U);
    EXPECT_LE(roots[0].children[0].text.size(), 254U);
    ClosePicker();
    WriteBytes(UserFolder() / L"KSGeneral.ini", GeneralIni({longValue, "m", "d", "d"}));
    ASSERT_TRUE(App().Press("F5"));
    EXPECT_TRUE(WaitUntil([&] { return App().Text(L"frmMain", L"rtfLessonTaskInfo").starts_with(L"vvv"); }));
    EXPECT_LE(App().Text(L"frmMain", L"rtfLessonTaskInfo").size(), 254U);
}

TEST_F(HostileFiles, SectionNamesWithBrackets) {
    StartUnsigned();
    ASSERT_NO_FATAL_FAILURE(
        ExpectListSurvives("[Lessons]]\r\nNbrOfLessons=7\r\n[[Lessons]\r\nNbrOfLessons=8\r\n[Lessons]\r\nNbrOfLessons="
                           "1\r\n[L01]]\r\nDefTitle=No\r\n"
                           "[L01\r\nDefTitle=Nor this\r\n[L01]\r\nDefTitle=[Yes]\r\n[]\r\n[\r\n]\r\n"));
}

TEST_F(HostileFiles, FolderInPlaceOfALessonFileIsReportedMissing) {
    fs::remove(Lessons());
    fs::create_directories(Lessons() / L"inside");
    StartUnsigned();
    ASSERT_TRUE(App().Press("F3"));
    const auto box = App().WaitForBox();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->text, L"File " + Lessons().wstring() + L"not found.");
    ASSERT_TRUE(box->Answer(IDOK));
    EXPECT_TRUE(KeysDealtWith());
    EXPECT_TRUE(fs::is_directory(Lessons() / L"inside"));
}

TEST_F(HostileFiles, FileInPlaceOfTheUserFolderIsReported) {
    WriteBytes(UserFolder(), "a file, not a folder");
    const Session session(ProgramPath());
    // How many steps fail is not the point: every one is told, and in the end the window is there.
    int boxes = 0;
    ASSERT_TRUE(WaitUntil([&] {
        if (const auto box = session.TopBox(); box && ++boxes < 20) box->Answer(IDOK);
        return static_cast<bool>(session.Form(L"dlgLogin")) || !session.Process().Running();
    }));
    EXPECT_GT(boxes, 0);
    ASSERT_TRUE(session.WaitForFocus(L"txtLoginName"));
    ASSERT_TRUE(session.Press("Esc"));
    ASSERT_TRUE(session.WaitForNoForm(L"dlgLogin"));
    ASSERT_TRUE(session.Press("Alt+F4"));
    EXPECT_TRUE(session.Process().WaitForEnd());
    EXPECT_EQ(ReadBytes(UserFolder()), "a file, not a folder");
}

TEST_F(HostileFiles, FilesHeldByAnotherProgramAtStart) {
    WriteBytes(UserFolder() / L"Keystride.ini", KeystrideIni("elsewhere", 0, 0));
    const HeldFile switches(UserFolder() / L"Keystride.ini");
    ASSERT_TRUE(switches.Held());
    const Session session(ProgramPath());
    ASSERT_TRUE(WaitUntil([&] {
        if (const auto box = session.TopBox()) box->Answer(IDOK);
        return static_cast<bool>(session.Form(L"dlgLogin")) || !session.Process().Running();
    }));
    EXPECT_TRUE(session.Process().Running());
    EXPECT_EQ(session.Text(L"frmMain", L"rtfLessonTaskInfo"), L"Welcome, learner.");
    EXPECT_EQ(ReadBytes(UserFolder() / L"Keystride.ini"), KeystrideIni("elsewhere", 0, 0));
}

TEST_F(HostileFiles, NetworkFolderOfTwoMegabytesOfText) {
    WriteBytes(CommonFolder() / L"KSUserInfo.ini", UserInfoIni(std::string(2'000'000, 'n')));
    StartSignedOn();
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.ini"), ReadBytes(CommonFolder() / L"TeachersLessons.ini"));
    Leave();
}

}  // namespace
}  // namespace e2e
