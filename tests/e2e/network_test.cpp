// A network installation: teacher files pulled at start, a learner's records fetched at sign-on and brought back at the
// end.
#include "fixture.h"

namespace e2e {
namespace {

namespace fs = std::filesystem;

constexpr char kRecord[] = "[Lessons]\r\nNbrOfLessons=0\r\n";

class Network : public KeystrideTest {
protected:
    void SetUp() override {
        KeystrideTest::SetUp();
        UseNetwork(NetworkFolder().string());
        WriteBytes(NetworkFolder() / L"TeachersLessons.ini", networkLessons_);
        WriteBytes(NetworkFolder() / L"TeachersDictations.ini", networkDictations_);
    }

    static void UseNetwork(std::string_view folder) {
        WriteBytes(CommonFolder() / L"KSUserInfo.ini", UserInfoIni(folder));
    }
    static fs::path LocalRecords() { return UserFolder() / L"Student Records"; }
    static fs::path SharedRecords() { return NetworkFolder() / L"Student Records"; }

    const std::string networkLessons_ = LessonFile({{"From the network", {"net"}}});
    const std::string networkDictations_ = "[Lessons]\r\nNbrOfLessons=3\r\n";
};

TEST_F(Network, TeacherFilesAreReplacedByTheNetworkCopiesAtEveryStart) {
    for (int start = 1; start <= 2; ++start) {
        WriteBytes(UserFolder() / L"TeachersLessons.ini", LessonFile({{"Local", {"l"}}}));
        WriteBytes(UserFolder() / L"TeachersDictations.ini", "[Lessons]\r\nNbrOfLessons=1\r\n");
        StartUnsigned();
        EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.ini"), networkLessons_) << "start " << start;
        EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersDictations.ini"), networkDictations_) << "start " << start;
        Leave();
    }
}

TEST_F(Network, LocalTeacherFileThatDiffersIsKeptAsBackup) {
    const std::string local = LessonFile({{"Local", {"l"}}});
    WriteBytes(UserFolder() / L"TeachersLessons.ini", local);
    WriteBytes(UserFolder() / L"TeachersDictations.ini", networkDictations_);
    StartUnsigned();
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.bak"), local);
    EXPECT_FALSE(fs::exists(UserFolder() / L"TeachersDictations.bak"))
        << "nothing was lost, so there is nothing to keep";
}

TEST_F(Network, FolderWithABackslashAtItsEndServesAsWell) {
    UseNetwork(NetworkFolder().string() + "\\");
    WriteBytes(SharedRecords() / L"Ann Baker" / L"CustomLessons.ini", kRecord);
    StartSignedOn();
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.ini"), networkLessons_);
    EXPECT_EQ(ReadBytes(LocalRecords() / L"Ann Baker" / L"CustomLessons.ini"), kRecord);
    WriteBytes(LocalRecords() / L"Ann Baker" / L"marks.ini", "[A]\r\n");
    Leave();
    EXPECT_EQ(ReadBytes(SharedRecords() / L"Ann Baker" / L"marks.ini"), "[A]\r\n");
}

TEST_F(Network, FolderThatIsNotThereLeavesTheLocalFilesAndSaysNothing) {
    UseNetwork((fs::temp_directory_path() / L"no-such-folder").string());
    const std::string local = LessonFile({{"Local", {"l"}}});
    WriteBytes(UserFolder() / L"TeachersLessons.ini", local);
    StartSignedOn();
    EXPECT_FALSE(App().TopBox());
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.ini"), local);
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersDictations.ini"),
              ReadBytes(CommonFolder() / L"TeachersDictations.ini"))
        << "a teacher file that the user lacks comes from the common folder";
    Leave();
    EXPECT_FALSE(fs::exists(fs::temp_directory_path() / L"no-such-folder"));
}

TEST_F(Network, ServerOutOfReachLeavesTheLocalFilesAndSaysNothing) {
    UseNetwork("\\\\keystride-no-such-server\\lessons");
    StartSignedOn();
    EXPECT_FALSE(App().TopBox());
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.ini"), ReadBytes(CommonFolder() / L"TeachersLessons.ini"));
    Leave();
}

TEST_F(Network, TeacherFileThatTheNetworkLacksIsSeededFromTheCommonFolder) {
    fs::remove(NetworkFolder() / L"TeachersLessons.ini");
    StartUnsigned();
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.ini"), ReadBytes(CommonFolder() / L"TeachersLessons.ini"));
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersDictations.ini"), networkDictations_);
}

TEST_F(Network, TeacherFileThatTheNetworkLacksSurvivesLocally) {
    fs::remove(NetworkFolder() / L"TeachersLessons.ini");
    const std::string local = LessonFile({{"Local", {"l"}}});
    WriteBytes(UserFolder() / L"TeachersLessons.ini", local);
    StartUnsigned();
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.ini"), local);
    EXPECT_FALSE(fs::exists(UserFolder() / L"TeachersLessons.bak"));
}

TEST_F(Network, SignOnFetchesTheLearnersRecords) {
    const std::string lessons = LessonFile({{"Ann's own", {"ann"}}});
    WriteBytes(SharedRecords() / L"Ann Baker" / L"CustomLessons.ini", lessons);
    WriteBytes(SharedRecords() / L"Bob Carter" / L"CustomLessons.ini", kRecord);
    StartSignedOn();
    EXPECT_TRUE(WaitUntil([&] { return ReadBytes(LocalRecords() / L"Ann Baker" / L"CustomLessons.ini") == lessons; }));
    EXPECT_FALSE(fs::exists(LocalRecords() / L"Bob Carter")) << "only the learner's own records are fetched";
    ASSERT_TRUE(OpenPicker("Ctrl+Alt+Shift+F8"));
    EXPECT_EQ(App().TreeOf(L"dlgTyping", L"tvTasks").RootTexts(), std::vector<std::wstring>{L"1. Ann's own"});
}

TEST_F(Network, RefusedNameFetchesNothing) {
    WriteBytes(SharedRecords() / L"Ann" / L"CustomLessons.ini", kRecord);
    Start();
    ASSERT_TRUE(App().WaitForForm(L"dlgLogin"));
    SignOn(L"Ann");
    const auto box = App().WaitForBox();
    ASSERT_TRUE(box && box->Answer(IDOK));
    EXPECT_FALSE(fs::exists(LocalRecords() / L"Ann"));
}

TEST_F(Network, LeavingBringsTheRecordsBack) {
    WriteBytes(SharedRecords() / L"Ann Baker" / L"CustomLessons.ini", kRecord);
    StartSignedOn();
    WriteBytes(LocalRecords() / L"Ann Baker" / L"progress.ini", "[Progress]\r\nDone=5\r\n");
    WriteBytes(LocalRecords() / L"Bob Carter" / L"progress.ini", "[Progress]\r\nDone=9\r\n");
    Leave();
    EXPECT_EQ(ReadBytes(SharedRecords() / L"Ann Baker" / L"progress.ini"), "[Progress]\r\nDone=5\r\n");
    EXPECT_FALSE(fs::exists(SharedRecords() / L"Bob Carter"));
}

TEST_F(Network, ClosingTheWindowByMessageBringsTheRecordsBackToo) {
    WriteBytes(SharedRecords() / L"Ann Baker" / L"CustomLessons.ini", kRecord);
    StartSignedOn();
    WriteBytes(LocalRecords() / L"Ann Baker" / L"progress.ini", "[Progress]\r\nDone=6\r\n");
    ASSERT_TRUE(App().Form(L"frmMain").Post(WM_CLOSE));
    ASSERT_TRUE(App().Process().WaitForEnd());
    EXPECT_EQ(ReadBytes(SharedRecords() / L"Ann Baker" / L"progress.ini"), "[Progress]\r\nDone=6\r\n");
}

TEST_F(Network, LearnerWithoutAFolderThereIsNotPushed) {
    fs::create_directories(SharedRecords());
    StartSignedOn();
    WriteBytes(LocalRecords() / L"Ann Baker" / L"progress.ini", "[Progress]\r\nDone=5\r\n");
    Leave();
    EXPECT_TRUE(fs::is_empty(SharedRecords()));
}

TEST_F(Network, NothingIsPushedWithNobodySignedOn) {
    WriteBytes(SharedRecords() / L"Ann Baker" / L"progress.ini", "[Progress]\r\nDone=1\r\n");
    WriteBytes(LocalRecords() / L"Ann Baker" / L"progress.ini", "[Progress]\r\nDone=2\r\n");
    WriteBytes(LocalRecords() / L"loose.ini", "[Loose]\r\n");
    const auto before = Snapshot(NetworkFolder());
    StartUnsigned();
    Leave();
    EXPECT_EQ(Snapshot(NetworkFolder()), before);
}

TEST_F(Network, EndOfTheWindowsSessionPushesNothing) {
    WriteBytes(SharedRecords() / L"Ann Baker" / L"progress.ini", "[Progress]\r\nDone=1\r\n");
    StartSignedOn();
    WriteBytes(LocalRecords() / L"Ann Baker" / L"progress.ini", "[Progress]\r\nDone=2\r\n");
    const Window main = App().Form(L"frmMain");
    EXPECT_NE(main.Send(WM_QUERYENDSESSION), 0) << "the program must not hold up the end of the session";
    main.Send(WM_ENDSESSION, TRUE);
    EXPECT_EQ(ReadBytes(SharedRecords() / L"Ann Baker" / L"progress.ini"), "[Progress]\r\nDone=1\r\n");
}

TEST_F(Network, StandAloneInstallationNeverTouchesTheNetworkFolder) {
    UseNetwork("");
    WriteBytes(SharedRecords() / L"Ann Baker" / L"CustomLessons.ini", kRecord);
    const auto before = Snapshot(NetworkFolder());
    StartSignedOn();
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.ini"), ReadBytes(CommonFolder() / L"TeachersLessons.ini"));
    EXPECT_FALSE(fs::exists(LocalRecords() / L"Ann Baker" / L"CustomLessons.ini"));
    Leave();
    EXPECT_EQ(Snapshot(NetworkFolder()), before);
}

}  // namespace
}  // namespace e2e
