// Start-up: file names, first and second run, stand-alone and network installations, steps that stand alone.
#include "shell/ModMain.h"

#include <string>
#include <system_error>
#include <vector>

#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "unit/data_set.h"
#include "unit/fixture.h"
#include "win32/files.h"

namespace unit {
namespace {

namespace fs = std::filesystem;
using namespace modGlobals;

class StartUpTest : public FolderTest {
protected:
    /// The steps as start-up runs them once the file names are set.
    static void RunSteps() {
        ModMain::CreateUserFolders();
        ModMain::CopyDefaultFiles();
        modUtils::SaveUserPath(gKeystrideIni);
        if (modUtils::isNetworkVersion())
            ModMain::CopyNetworkTeacherFiles();
        else
            ModMain::CopyTeacherFiles();
        modUtils::ReadKeystrideIni();
    }

    void SetUp() override {
        FolderTest::SetUp();
        fs::create_directories(Folder() / L"user");
        WriteShippedFiles(CommonFolder());
    }
};

TEST_F(StartUpTest, FileNamesStandInTheirFolders) {
    ModMain::SetFileNames(L"C:\\U", L"D:\\C", L"E:\\Docs");
    EXPECT_EQ(gUserDataPath, L"C:\\U\\Brightfield\\Keystride");
    EXPECT_EQ(gCommonDataPath, L"D:\\C\\Brightfield\\Keystride");
    EXPECT_EQ(gDocumentsPath, L"E:\\Docs");
    EXPECT_EQ(gGeneralIni, gUserDataPath + L"\\KSGeneral.ini");
    EXPECT_EQ(gDialogTutorIni, gUserDataPath + L"\\KSDialogTutor.ini");
    EXPECT_EQ(gStudentRecordsPath, gUserDataPath + L"\\Student Records");
    EXPECT_EQ(gQuizzesPath, gCommonDataPath + L"\\QuizzesKS");
    EXPECT_EQ(gQuizzesIni, gCommonDataPath + L"\\QuizzesKS\\KSQuizzes.ini");
    EXPECT_EQ(gTeachersQuizzesIni, gUserDataPath + L"\\QuizzesTeacher\\TeachersQuizzes.ini");
    EXPECT_EQ(gUserPrefsIni, gCommonDataPath + L"\\KSUserPrefs.ini");
    EXPECT_EQ(gKeystrideIni, gUserDataPath + L"\\Keystride.ini");
    EXPECT_EQ(gLessonsIni, gCommonDataPath + L"\\KSLessons.ini");
    EXPECT_EQ(gDictationsIni, gCommonDataPath + L"\\KSDictations.ini");
    EXPECT_EQ(gTeachersLessonsIni, gUserDataPath + L"\\TeachersLessons.ini");
    EXPECT_EQ(gTeachersDictationsIni, gUserDataPath + L"\\TeachersDictations.ini");
    EXPECT_EQ(gUserInfoIni, gCommonDataPath + L"\\KSUserInfo.ini");
}

TEST_F(StartUpTest, NobodyIsSignedOnAtTheStart) {
    gUserName = L"Ann Smith";
    ModMain::SetFileNames(L"C:\\U", L"D:\\C", L"E:\\Docs");
    EXPECT_EQ(gUserName, L"");
}

TEST_F(StartUpTest, TheMarkersAreTheirCharacters) {
    EXPECT_EQ(gSep, std::wstring(1, wchar_t{5}));
    EXPECT_EQ(gSep2, std::wstring(2, wchar_t{5}));
    EXPECT_EQ(gLineBreakMark, std::wstring(1, wchar_t{7}));
    EXPECT_EQ(gMark6, std::wstring(1, wchar_t{6}));
    EXPECT_EQ(gNoSelection, std::wstring(1, wchar_t{4}));
}

TEST_F(StartUpTest, TheFirstRunMakesAndFillsTheUserFolder) {
    RunSteps();
    EXPECT_TRUE(fs::is_directory(gStudentRecordsPath));
    EXPECT_EQ(ReadBytes(gGeneralIni), ReadBytes(CommonFolder() / L"KSGeneral.ini"));
    EXPECT_EQ(ReadBytes(gDialogTutorIni), ReadBytes(CommonFolder() / L"KSDialogTutor.ini"));
    EXPECT_EQ(ReadBytes(gTeachersLessonsIni), ReadBytes(CommonFolder() / L"TeachersLessons.ini"));
    EXPECT_EQ(ReadBytes(gTeachersDictationsIni), ReadBytes(CommonFolder() / L"TeachersDictations.ini"));
    EXPECT_EQ(modUtils::ReadTrimmed(gKeystrideIni, L"Current User", L"UserData", L""), gUserDataPath);
    EXPECT_EQ(Snapshot(UserFolder()).size(), 6U);
}

TEST_F(StartUpTest, TheSecondRunLeavesWhatWasEdited) {
    RunSteps();
    WriteBytes(gTeachersLessonsIni, "edited lessons");
    WriteBytes(gTeachersDictationsIni, "edited dictations");
    WriteBytes(gGeneralIni, "edited texts");
    WriteBytes(gDialogTutorIni, "edited tutor");
    const auto before = Snapshot(UserFolder());
    RunSteps();
    EXPECT_EQ(Snapshot(UserFolder()), before);
}

TEST_F(StartUpTest, AFileRemovedByTheUserComesBackAlone) {
    RunSteps();
    fs::remove(gTeachersLessonsIni);
    WriteBytes(gTeachersDictationsIni, "edited dictations");
    RunSteps();
    EXPECT_EQ(ReadBytes(gTeachersLessonsIni), ReadBytes(CommonFolder() / L"TeachersLessons.ini"));
    EXPECT_EQ(ReadBytes(gTeachersDictationsIni), "edited dictations");
}

TEST_F(StartUpTest, AnExistingUserFolderGetsNoRecordsFolder) {
    fs::create_directories(UserFolder());
    ModMain::CreateUserFolders();
    EXPECT_FALSE(fs::exists(gStudentRecordsPath));
}

TEST_F(StartUpTest, ALevelThatExistsIsNoError) {
    fs::create_directories(UserFolder().parent_path());
    ModMain::CreateUserFolders();
    EXPECT_TRUE(fs::is_directory(gStudentRecordsPath));
}

TEST_F(StartUpTest, AFileInTheWayOfAFolderIsTold) {
    WriteBytes(UserFolder(), "a file where the folder should be");
    EXPECT_THROW(ModMain::CreateUserFolders(), std::system_error);
    EXPECT_EQ(ReadBytes(UserFolder()), "a file where the folder should be");
}

TEST_F(StartUpTest, AMissingShippedFileIsSkipped) {
    if (!RunsUnderWine()) GTEST_SKIP() << "the shell tells a missing source in a box of its own";
    fs::remove(CommonFolder() / L"KSDialogTutor.ini");
    fs::remove(CommonFolder() / L"TeachersLessons.ini");
    RunSteps();
    EXPECT_FALSE(fs::exists(gDialogTutorIni));
    EXPECT_FALSE(fs::exists(gTeachersLessonsIni));
    EXPECT_TRUE(fs::exists(gGeneralIni));
    EXPECT_TRUE(fs::exists(gTeachersDictationsIni));
}

TEST_F(StartUpTest, TheNetworksTeacherFilesReplaceTheLocalOnesAtEveryStart) {
    SetNetwork();
    WriteBytes(NetworkFolder() / L"TeachersLessons.ini", "network lessons");
    WriteBytes(NetworkFolder() / L"TeachersDictations.ini", "network dictations");
    RunSteps();
    EXPECT_EQ(ReadBytes(gTeachersLessonsIni), "network lessons");
    EXPECT_EQ(ReadBytes(gTeachersDictationsIni), "network dictations");
    WriteBytes(gTeachersLessonsIni, "edited here");
    RunSteps();
    EXPECT_EQ(ReadBytes(gTeachersLessonsIni), "network lessons");
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.bak"), "edited here");
}

TEST_F(StartUpTest, ANetworkFolderOutOfReachLeavesTheLocalFiles) {
    SetNetwork();
    fs::create_directories(UserFolder());
    WriteBytes(gTeachersLessonsIni, "local lessons");
    RunSteps();
    EXPECT_EQ(ReadBytes(gTeachersLessonsIni), "local lessons");
    EXPECT_EQ(ReadBytes(gTeachersDictationsIni), ReadBytes(CommonFolder() / L"TeachersDictations.ini"))
        << "without the file nothing could ever be added";
}

TEST_F(StartUpTest, ATeacherFileThatTheNetworkLacksIsSeededFromTheCommonFolder) {
    SetNetwork("\\");
    WriteBytes(NetworkFolder() / L"TeachersDictations.ini", "network dictations");
    RunSteps();
    EXPECT_EQ(ReadBytes(gTeachersLessonsIni), ReadBytes(CommonFolder() / L"TeachersLessons.ini"));
    EXPECT_EQ(ReadBytes(gTeachersDictationsIni), "network dictations");
}

TEST_F(StartUpTest, SpecialFoldersHaveNoBackslashAtTheirEnd) {
    for (const int number : {26, 35, 5}) {
        const std::wstring path = win32::files::SpecialFolder(number);
        ASSERT_FALSE(path.empty()) << number;
        EXPECT_NE(path.back(), L'\\') << number;
        EXPECT_TRUE(fs::is_directory(path)) << number;
    }
    EXPECT_THROW(win32::files::SpecialFolder(9999), std::system_error);
}

// ---- the whole set-up, in the real special folders
// -------------------------------------------------------------------

struct Report {
    std::wstring source;
    std::wstring text;
};

std::vector<Report> RunSetUp() {
    std::vector<Report> reports;
    ModMain::SetupDataFolders([&](const std::exception& error) {
        const auto* own = dynamic_cast<const win32::AppError*>(&error);
        reports.push_back({own == nullptr ? L"" : own->Source(), win32::DescribeError(error)});
    });
    return reports;
}

class SetupDataFoldersTest : public RealFoldersTest {};

TEST_F(SetupDataFoldersTest, AFirstRunWithShippedFilesReportsNothing) {
    WriteShippedFiles(RealCommonFolder());
    EXPECT_TRUE(RunSetUp().empty());
    EXPECT_EQ(gUserDataPath, RealUserFolder().wstring());
    EXPECT_EQ(gCommonDataPath, RealCommonFolder().wstring());
    EXPECT_EQ(gDocumentsPath, win32::files::SpecialFolder(5));
    for (const wchar_t* name :
         {L"Keystride.ini", L"KSGeneral.ini", L"KSDialogTutor.ini", L"TeachersLessons.ini", L"TeachersDictations.ini"})
        EXPECT_TRUE(fs::is_regular_file(RealUserFolder() / name)) << name;
    EXPECT_TRUE(fs::is_directory(RealUserFolder() / L"Student Records"));
}

TEST_F(SetupDataFoldersTest, TheSwitchesAreReadFromTheUsersCopy) {
    WriteShippedFiles(RealCommonFolder());
    WriteBytes(RealUserFolder() / L"Keystride.ini", "[Current User]\r\nLanguage=1\r\nAdult=1\r\nMAGic=1\r\n");
    EXPECT_TRUE(RunSetUp().empty());
    EXPECT_TRUE(IsLanguageOne());
    EXPECT_TRUE(gAdult);
    EXPECT_TRUE(IsMAGicUser());
    EXPECT_EQ(modUtils::ReadTrimmed(gKeystrideIni, L"Current User", L"UserData", L""), gUserDataPath);
}

TEST_F(SetupDataFoldersTest, EachStepStandsAlone) {
    if (!RunsUnderWine()) GTEST_SKIP() << "the shell tells a missing source in a box of its own";
    // Nothing is shipped but the teacher's lessons: two steps miss Keystride.ini, the one between them still runs.
    WriteBytes(RealCommonFolder() / L"TeachersLessons.ini", "lessons");
    const std::vector<Report> reports = RunSetUp();
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_EQ(reports[0].source, L"SaveUserPath");
    EXPECT_EQ(reports[1].source, L"ReadKeystrideIni");
    EXPECT_EQ(reports[0].text, L"File " + gKeystrideIni + L"not found.");
    EXPECT_EQ(reports[1].text, reports[0].text);
    EXPECT_EQ(ReadBytes(RealUserFolder() / L"TeachersLessons.ini"), "lessons");
    EXPECT_TRUE(fs::is_directory(RealUserFolder() / L"Student Records"));
}

TEST_F(SetupDataFoldersTest, AFileWhereTheUserFolderShouldBeStopsNoLaterStep) {
    if (!RunsUnderWine()) GTEST_SKIP() << "the shell asks about a file in the way in a box of its own";
    WriteShippedFiles(RealCommonFolder());
    WriteBytes(RealUserFolder().parent_path(), "in the way");
    const std::vector<Report> reports = RunSetUp();
    ASSERT_EQ(reports.size(), 3U);
    EXPECT_EQ(reports[0].source, L"");
    EXPECT_EQ(reports[1].source, L"SaveUserPath");
    EXPECT_EQ(reports[2].source, L"ReadKeystrideIni");
    EXPECT_EQ(ReadBytes(RealUserFolder().parent_path()), "in the way");
}

TEST_F(SetupDataFoldersTest, ARefusedWriteOfTheUserPathStopsNoLaterStep) {
    WriteShippedFiles(RealCommonFolder());
    WriteBytes(RealUserFolder() / L"Keystride.ini", "[Current User]\r\nLanguage=1\r\n");
    const HeldFile held(RealUserFolder() / L"Keystride.ini");
    ASSERT_TRUE(held.Held());
    const std::vector<Report> reports = RunSetUp();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].source, L"SaveUserPath");
    EXPECT_TRUE(IsLanguageOne());
    EXPECT_TRUE(fs::is_regular_file(RealUserFolder() / L"TeachersLessons.ini"));
}

}  // namespace
}  // namespace unit
