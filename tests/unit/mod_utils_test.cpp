// File helpers: readers and their errors, switches, path tests, copies, the network's copies, learner folders, backups.
#include "shell/modUtils.h"

#include <functional>
#include <string>

#include "shell/modGlobals.h"
#include "unit/fixture.h"
#include "win32/profile.h"

namespace unit {
namespace {

namespace fs = std::filesystem;
using namespace modGlobals;

class ModUtilsTest : public FolderTest {
protected:
    static void ExpectNotFound(const std::function<void()>& run, const std::wstring& path, const std::wstring& source) {
        const win32::AppError error = RaisedBy(run);
        EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x80040000));
        EXPECT_EQ(error.Source(), source);
        EXPECT_EQ(error.Description(), L"File " + path + L"not found.");
    }
};

// ---- texts
// -----------------------------------------------------------------------------------------------------------

TEST_F(ModUtilsTest, SingleRowTextIsReadFromTheGivenSection) {
    const std::wstring file = NewFile(
        "[Main]\r\nSingleRow=one\r\nDefSingleRow=start\r\n[General]\r\nSingleRow=two\r\nDefSingleRow=start two\r\n");
    EXPECT_EQ(modUtils::LoadLabel1Text(file, L"Main", false), L"one");
    EXPECT_EQ(modUtils::LoadLabel1Text(file, L"Main", true), L"start");
    EXPECT_EQ(modUtils::LoadLabel1Text(file, L"General", false), L"two");
    EXPECT_EQ(modUtils::LoadLabel1Text(file, L"General", true), L"start two");
}

TEST_F(ModUtilsTest, MultiRowTextIsReadFromMainWhateverSectionIsAskedFor) {
    const std::wstring file = NewFile(
        "[Main]\r\nMultiRow=one\r\nDefMultiRow=start\r\n[General]\r\nMultiRow=two\r\nDefMultiRow=start two\r\n");
    EXPECT_EQ(modUtils::LoadMultiRowText(file, L"Main", false), L"one");
    EXPECT_EQ(modUtils::LoadMultiRowText(file, L"General", false), L"one");
    EXPECT_EQ(modUtils::LoadMultiRowText(file, L"General", true), L"start");
    EXPECT_EQ(modUtils::LoadMultiRowText(file, L"", false), L"one");
}

TEST_F(ModUtilsTest, InstructionsAreTheMultiRowTextOfTheGivenSection) {
    const std::wstring file = NewFile("[Main]\r\nMultiRow=one\r\n[StudentProfile]\r\nMultiRow=two\r\n");
    EXPECT_EQ(modUtils::LoadInstructionsCaption(file, L"StudentProfile"), L"two");
    EXPECT_EQ(modUtils::LoadInstructionsCaption(file, L"Main"), L"one");
}

TEST_F(ModUtilsTest, MissingKeysShowTheirDefaultTexts) {
    const std::wstring file = NewFile("[Other]\r\nx=1\r\n");
    EXPECT_EQ(modUtils::LoadLabel1Text(file, L"Main", false), L"singlerow caption not found");
    EXPECT_EQ(modUtils::LoadLabel1Text(file, L"Main", true), L"singlerow caption not found");
    EXPECT_EQ(modUtils::LoadMultiRowText(file, L"Main", false), L"caption not found");
    EXPECT_EQ(modUtils::LoadMultiRowText(file, L"Main", true), L"caption not found");
    EXPECT_EQ(modUtils::LoadInstructionsCaption(file, L"Main"), L"instructions not found");
}

TEST_F(ModUtilsTest, AnEmptyTextIsEmptyAndNotTheDefault) {
    const std::wstring file = NewFile("[Main]\r\nSingleRow=\r\nMultiRow=\"\"\r\n");
    EXPECT_EQ(modUtils::LoadLabel1Text(file, L"Main", false), L"");
    EXPECT_EQ(modUtils::LoadMultiRowText(file, L"Main", false), L"");
}

TEST_F(ModUtilsTest, Character7BecomesALineBreak) {
    const std::wstring file = NewFile(
        "[Main]\r\nSingleRow=a\x07"
        "b\x07\x07"
        "c\r\nMultiRow=\x07"
        "a\x07\r\n");
    EXPECT_EQ(modUtils::LoadLabel1Text(file, L"Main", false), L"a\r\nb\r\n\r\nc");
    EXPECT_EQ(modUtils::LoadMultiRowText(file, L"Main", false), L"\r\na\r\n");
    EXPECT_EQ(modUtils::LoadInstructionsCaption(file, L"Main"), L"\r\na\r\n");
}

TEST_F(ModUtilsTest, BlanksAreTrimmedAfterTheLineBreaksAreBack) {
    const std::wstring file = NewFile("[Main]\r\nSingleRow=\"  a  \"\r\nMultiRow=\"  \x07 a \x07  \"\r\n");
    EXPECT_EQ(modUtils::LoadLabel1Text(file, L"Main", false), L"a");
    EXPECT_EQ(modUtils::LoadMultiRowText(file, L"Main", false), L"\r\n a \r\n");
}

TEST_F(ModUtilsTest, AValueOf300CharactersIsReadAsItsFirst254) {
    const std::string text = std::string(250, 'a') + std::string(50, 'b');
    const std::wstring file = NewFile("[Main]\r\nSingleRow=" + text + "\r\nMultiRow=" + text + "\r\n");
    const std::wstring expected = std::wstring(250, L'a') + L"bbbb";
    EXPECT_EQ(modUtils::LoadLabel1Text(file, L"Main", false), expected);
    EXPECT_EQ(modUtils::LoadMultiRowText(file, L"Main", false), expected);
    EXPECT_EQ(modUtils::LoadInstructionsCaption(file, L"Main"), expected);
    EXPECT_EQ(modUtils::ReadTrimmed(file, L"Main", L"MultiRow", L""), expected);
}

TEST_F(ModUtilsTest, LineBreaksDoNotCountAgainstThe254) {
    const std::wstring file = NewFile("[Main]\r\nSingleRow=" + std::string(254, '\x07') + "\r\n");
    EXPECT_EQ(modUtils::LoadLabel1Text(file, L"Main", false).size(), 508U);
}

TEST_F(ModUtilsTest, ReadTrimmedLeavesCharacter7) {
    const std::wstring file = NewFile("[S]\r\nk=\" a\x07 \"\r\n");
    EXPECT_EQ(modUtils::ReadTrimmed(file, L"S", L"k", L""), L"a\x07");
    EXPECT_EQ(modUtils::ReadTrimmed(file, L"S", L"missing", L" d "), L"d");
}

TEST_F(ModUtilsTest, AMissingFileIsTheErrorOfTheProcedure) {
    const std::wstring file = NewName();
    ExpectNotFound([&] { modUtils::LoadLabel1Text(file, L"Main", false); }, file, L"LoadLabel1Text");
    ExpectNotFound([&] { modUtils::LoadInstructionsCaption(file, L"Main"); }, file, L"LoadInstructionsCaption");
    ExpectNotFound([&] { modUtils::SaveUserPath(file); }, file, L"SaveUserPath");
    ExpectNotFound([&] { modUtils::ReadKeystrideIni(); }, gKeystrideIni, L"ReadKeystrideIni");
    ExpectNotFound([&] { modUtils::GetNetworkDataPath(); }, gUserInfoIni, L"isNetworkVersion");
    ExpectNotFound([&] { modUtils::RequireFile(file, L"Anything"); }, file, L"Anything");
}

TEST_F(ModUtilsTest, TheMultiRowReaderNamesTheSingleRowReaderAsItsSource) {
    const std::wstring file = NewName();
    ExpectNotFound([&] { modUtils::LoadMultiRowText(file, L"Main", true); }, file, L"LoadLabel1Text");
}

TEST_F(ModUtilsTest, AFolderInPlaceOfTheFileIsNoFile) {
    ExpectNotFound([&] { modUtils::LoadLabel1Text(Folder().wstring(), L"Main", false); }, Folder().wstring(),
                   L"LoadLabel1Text");
}

// ---- Keystride.ini
// ---------------------------------------------------------------------------------------------------

TEST_F(ModUtilsTest, SaveUserPathRecordsTheUserFolder) {
    const std::wstring file = NewFile("[Current User]\r\nUserData=C:\\old\r\nLanguage=1\r\n");
    EXPECT_FALSE(modUtils::SaveUserPath(file));
    EXPECT_EQ(ReadBytes(file), "[Current User]\r\nUserData=" + UserFolder().string() + "\r\nLanguage=1\r\n");
}

TEST_F(ModUtilsTest, SaveUserPathAddsAMissingKey) {
    const std::wstring file = NewFile("[Other]\r\nx=1\r\n");
    EXPECT_FALSE(modUtils::SaveUserPath(file));
    EXPECT_EQ(ReadBytes(file), "[Other]\r\nx=1\r\n[Current User]\r\nUserData=" + UserFolder().string() + "\r\n");
}

TEST_F(ModUtilsTest, SaveUserPathWritesNothingWhenTheTrimmedValueIsTheSame) {
    const std::wstring file = NewFile("[Current User]\r\nUserData = \"  " + UserFolder().string() + "  \"\r\n");
    const std::string before = ReadBytes(file);
    const std::size_t calls = win32::profile::CallCount();
    EXPECT_FALSE(modUtils::SaveUserPath(file));
    EXPECT_EQ(win32::profile::CallCount() - calls, 1U);
    EXPECT_EQ(ReadBytes(file), before);
}

TEST_F(ModUtilsTest, SaveUserPathMindsTheCase) {
    std::string other = UserFolder().string();
    other.replace(other.find("Brightfield"), 11, "BRIGHTFIELD");
    const std::wstring file = NewFile("[Current User]\r\nUserData=" + other + "\r\n");
    modUtils::SaveUserPath(file);
    EXPECT_EQ(ReadBytes(file), "[Current User]\r\nUserData=" + UserFolder().string() + "\r\n");
}

TEST_F(ModUtilsTest, SaveUserPathTellsARefusedWrite) {
    const std::wstring file = NewFile("[Current User]\r\nUserData=C:\\old\r\n");
    const HeldFile held(file);
    ASSERT_TRUE(held.Held());
    const win32::AppError error = RaisedBy([&] { modUtils::SaveUserPath(file); });
    EXPECT_EQ(error.Source(), L"SaveUserPath");
    EXPECT_NE(error.Description().find(file), std::wstring::npos);
}

struct Switches {
    bool standard;
    bool one;
    bool two;
    bool operator==(const Switches&) const = default;
};

class KeystrideIniTest : public ModUtilsTest {
protected:
    void Read(const std::string& lines) {
        // Every case has a file of its own: the system may keep what it read of one.
        gKeystrideIni = NewFile("[Current User]\r\n" + lines);
        modUtils::ReadKeystrideIni();
    }

    Switches ReadLanguage(const std::string& value) {
        Read("Language=" + value + "\r\n");
        return {IsLanguageDefault(), IsLanguageOne(), IsLanguageTwo()};
    }
};

TEST_F(KeystrideIniTest, Language1IsAloneAnd2AlsoCountsAsDefault) {
    EXPECT_EQ(ReadLanguage("0"), (Switches{true, false, false}));
    EXPECT_EQ(ReadLanguage("1"), (Switches{false, true, false}));
    EXPECT_EQ(ReadLanguage("2"), (Switches{true, false, true}));
}

TEST_F(KeystrideIniTest, AnyOtherLanguageIsTheDefault) {
    for (const std::string value : {"5", "3", "-1", "x", "", "12"})
        EXPECT_EQ(ReadLanguage(value), (Switches{true, false, false})) << value;
}

TEST_F(KeystrideIniTest, EveryReadSetsAllSwitchesAnew) {
    Read("Language=2\r\nAdult=1\r\nMAGic=1\r\n");
    EXPECT_TRUE(gAdult);
    EXPECT_TRUE(IsMAGicUser());
    Read("");
    EXPECT_TRUE(IsLanguageDefault());
    EXPECT_FALSE(IsLanguageOne());
    EXPECT_FALSE(IsLanguageTwo());
    EXPECT_FALSE(gAdult);
    EXPECT_FALSE(IsMAGicUser());
}

TEST_F(KeystrideIniTest, OnlyThe1CountsForAdultAndMagnifier) {
    for (const std::string value : {"0", "2", "-1", "11", "yes"}) {
        Read("Adult=" + value + "\r\nMAGic=" + value + "\r\n");
        EXPECT_FALSE(gAdult) << value;
        EXPECT_FALSE(IsMAGicUser()) << value;
    }
    Read("Adult=1\r\nMAGic=0\r\n");
    EXPECT_TRUE(gAdult);
    EXPECT_FALSE(IsMAGicUser());
    Read("Adult=0\r\nMAGic=1\r\n");
    EXPECT_FALSE(gAdult);
    EXPECT_TRUE(IsMAGicUser());
}

TEST_F(KeystrideIniTest, ALanguageOver16BitsIsError6) {
    EXPECT_EQ(RaisedBy([&] { Read("Language=40000\r\n"); }).Number(), 6);
}

// ---- numbers and path tests
// ------------------------------------------------------------------------------------------

TEST(ZeroPad, PutsZerosInFrontUntilTheWidthIsReached) {
    EXPECT_EQ(modUtils::ZeroPad(7, 2), L"07");
    EXPECT_EQ(modUtils::ZeroPad(123, 2), L"123");
    EXPECT_EQ(modUtils::ZeroPad(0, 3), L"000");
    EXPECT_EQ(modUtils::ZeroPad(10, 2), L"10");
    EXPECT_EQ(modUtils::ZeroPad(5, 0), L"5");
    EXPECT_EQ(modUtils::ZeroPad(32767, 2), L"32767");
}

TEST(ZeroPad, PutsThemBeforeASignToo) {
    EXPECT_EQ(modUtils::ZeroPad(-1, 2), L"-1");
    EXPECT_EQ(modUtils::ZeroPad(-1, 4), L"00-1");
}

TEST_F(ModUtilsTest, AFolderIsNeverAFileNorAFileAFolder) {
    const std::wstring file = NewFile("x");
    EXPECT_TRUE(modUtils::FileExists(file));
    EXPECT_FALSE(modUtils::FolderExists(file));
    EXPECT_TRUE(modUtils::FolderExists(Folder().wstring()));
    EXPECT_FALSE(modUtils::FileExists(Folder().wstring()));
}

TEST_F(ModUtilsTest, PathsThatCannotBeReadAreNeither) {
    for (const std::wstring& path : {NewName(), std::wstring(), std::wstring(L"Q:\\x"), std::wstring(L"\\\\nowhere\\x"),
                                     std::wstring(L"a<b>|c"), std::wstring(5000, L'x')}) {
        EXPECT_FALSE(modUtils::FileExists(path));
        EXPECT_FALSE(modUtils::FolderExists(path));
    }
}

// ---- copies
// ----------------------------------------------------------------------------------------------------------

TEST_F(ModUtilsTest, CopyPathCopiesAFileIntoAFolderAndOverwrites) {
    WriteBytes(Folder() / L"to" / L"a.ini", "old");
    WriteBytes(Folder() / L"from" / L"a.ini", "new");
    std::wstring source = (Folder() / L"from" / L"a.ini").wstring();
    EXPECT_TRUE(modUtils::CopyPath(source, (Folder() / L"to").wstring()));
    EXPECT_EQ(source, (Folder() / L"from" / L"a.ini").wstring());
    EXPECT_EQ(ReadBytes(Folder() / L"to" / L"a.ini"), "new");
    EXPECT_EQ(ReadBytes(Folder() / L"from" / L"a.ini"), "new");
}

TEST_F(ModUtilsTest, CopyPathCopiesAFolderWithItsContents) {
    WriteBytes(Folder() / L"from" / L"a.ini", "a");
    WriteBytes(Folder() / L"from" / L"b.txt", "b");
    WriteBytes(Folder() / L"to" / L"from" / L"kept.txt", "k");
    WriteBytes(Folder() / L"to" / L"from" / L"a.ini", "older");
    std::wstring source = (Folder() / L"from").wstring();
    EXPECT_TRUE(modUtils::CopyPath(source, (Folder() / L"to").wstring()));
    EXPECT_EQ(ReadBytes(Folder() / L"to" / L"from" / L"a.ini"), "a");
    EXPECT_EQ(ReadBytes(Folder() / L"to" / L"from" / L"b.txt"), "b");
    EXPECT_EQ(ReadBytes(Folder() / L"to" / L"from" / L"kept.txt"), "k");
}

TEST_F(ModUtilsTest, CopyPathDropsABackslashAtTheSourcesEndForTheCallerToo) {
    WriteBytes(Folder() / L"from" / L"a.ini", "a");
    fs::create_directories(Folder() / L"to");
    std::wstring source = (Folder() / L"from").wstring() + L"\\";
    EXPECT_TRUE(modUtils::CopyPath(source, (Folder() / L"to").wstring()));
    EXPECT_EQ(source, (Folder() / L"from").wstring());
    EXPECT_EQ(ReadBytes(Folder() / L"to" / L"from" / L"a.ini"), "a");
}

TEST_F(ModUtilsTest, CopyPathDropsOneBackslashOnly) {
    std::wstring source = L"C:\\x\\\\";
    modUtils::CopyPath(source, (Folder() / L"missing").wstring());
    EXPECT_EQ(source, L"C:\\x\\");
    std::wstring empty;
    EXPECT_FALSE(modUtils::CopyPath(empty, (Folder() / L"missing").wstring()));
    EXPECT_EQ(empty, L"");
}

TEST_F(ModUtilsTest, CopyPathIntoAMissingFolderCopiesNothing) {
    std::wstring source = NewFile("x") + L"\\";
    const std::wstring file = source.substr(0, source.size() - 1);
    EXPECT_FALSE(modUtils::CopyPath(source, (Folder() / L"missing").wstring()));
    EXPECT_FALSE(fs::exists(Folder() / L"missing"));
    EXPECT_EQ(source, file);
}

TEST_F(ModUtilsTest, CopyPathOntoAFileLeavesThatFileAsItIs) {
    WriteBytes(Folder() / L"source.ini", "new");
    WriteBytes(Folder() / L"to", "kept");
    std::wstring source = (Folder() / L"source.ini").wstring();
    EXPECT_FALSE(modUtils::CopyPath(source, (Folder() / L"to").wstring()));
    EXPECT_EQ(ReadBytes(Folder() / L"to"), "kept");
}

TEST_F(ModUtilsTest, CopyPathOfAMissingSourceIsFalse) {
    if (!RunsUnderWine()) GTEST_SKIP() << "the shell tells a missing source in a box of its own";
    fs::create_directories(Folder() / L"to");
    std::wstring source = (Folder() / L"missing.ini").wstring();
    EXPECT_FALSE(modUtils::CopyPath(source, (Folder() / L"to").wstring()));
    EXPECT_TRUE(fs::is_empty(Folder() / L"to"));
}

TEST_F(ModUtilsTest, CopyPathTakesNamesWithBlanksAndUmlauts) {
    WriteBytes(Folder() / L"gr\u00fc\u00df e" / L"a b.ini", "a");
    fs::create_directories(Folder() / L"t o");
    std::wstring source = (Folder() / L"gr\u00fc\u00df e" / L"a b.ini").wstring();
    EXPECT_TRUE(modUtils::CopyPath(source, (Folder() / L"t o").wstring()));
    EXPECT_EQ(ReadBytes(Folder() / L"t o" / L"a b.ini"), "a");
}

TEST_F(ModUtilsTest, KeepBackupKeepsTheFileBesideItself) {
    WriteBytes(gTeachersLessonsIni, "one");
    modUtils::KeepBackup(gTeachersLessonsIni);
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.bak"), "one");
    EXPECT_EQ(ReadBytes(gTeachersLessonsIni), "one");
    WriteBytes(gTeachersLessonsIni, "two");
    modUtils::KeepBackup(gTeachersLessonsIni);
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.bak"), "two");
    EXPECT_EQ(Snapshot(UserFolder()).size(), 2U);
}

TEST_F(ModUtilsTest, KeepBackupReplacesAReadOnlyBackupAndMakesNone) {
    WriteBytes(gTeachersLessonsIni, "one");
    const std::wstring backup = (UserFolder() / L"TeachersLessons.bak").wstring();
    SetFileAttributesW(gTeachersLessonsIni.c_str(), FILE_ATTRIBUTE_READONLY);
    modUtils::KeepBackup(gTeachersLessonsIni);
    EXPECT_EQ(GetFileAttributesW(backup.c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
    SetFileAttributesW(gTeachersLessonsIni.c_str(), FILE_ATTRIBUTE_NORMAL);
    WriteBytes(gTeachersLessonsIni, "two");
    SetFileAttributesW(backup.c_str(), FILE_ATTRIBUTE_READONLY);
    modUtils::KeepBackup(gTeachersLessonsIni);
    EXPECT_EQ(ReadBytes(backup), "two");
}

TEST_F(ModUtilsTest, AFailingBackupStopsNothing) {
    modUtils::KeepBackup(gTeachersLessonsIni);
    EXPECT_FALSE(fs::exists(UserFolder() / L"TeachersLessons.bak"));
    WriteBytes(gTeachersLessonsIni, "one");
    fs::create_directories(UserFolder() / L"TeachersLessons.bak");
    modUtils::KeepBackup(gTeachersLessonsIni);
    EXPECT_EQ(ReadBytes(gTeachersLessonsIni), "one");
    EXPECT_TRUE(fs::is_directory(UserFolder() / L"TeachersLessons.bak"));
}

TEST_F(ModUtilsTest, KeepBackupMindsFullStopsInFolders) {
    const fs::path file = Folder() / L"a.b" / L"list.ini";
    WriteBytes(file, "x");
    modUtils::KeepBackup(file.wstring());
    EXPECT_EQ(ReadBytes(Folder() / L"a.b" / L"list.bak"), "x");
}

// ---- network
// ---------------------------------------------------------------------------------------------------------

class NetworkTest : public ModUtilsTest {
protected:
    [[nodiscard]] fs::path NetworkRecords(const std::wstring& learner) const {
        return NetworkFolder() / L"Student Records" / learner;
    }
    static fs::path LocalRecords(const std::wstring& learner) { return fs::path(gStudentRecordsPath) / learner; }
};

TEST_F(NetworkTest, TheNetworkVersionIsTheOneWithANetworkFolder) {
    EXPECT_FALSE(modUtils::isNetworkVersion()) << "without KSUserInfo.ini";
    gUserInfoIni = NewFile("[Common]\r\nNetworkData=\r\n");
    EXPECT_FALSE(modUtils::isNetworkVersion());
    gUserInfoIni = NewFile("[Common]\r\n");
    EXPECT_FALSE(modUtils::isNetworkVersion());
    gUserInfoIni = NewFile("[Common]\r\nNetworkData=Q:\\nowhere\r\n");
    EXPECT_TRUE(modUtils::isNetworkVersion()) << "whether it can be reached does not count";
    gUserInfoIni = NewFile("[Common]\r\nNetworkData=\"  \"\r\n");
    EXPECT_TRUE(modUtils::isNetworkVersion()) << "quoted blanks are not trimmed";
}

TEST_F(NetworkTest, TheNetworkFolderIsReadUntrimmedWithLineBreaks) {
    gUserInfoIni = NewFile(
        "[Common]\r\nNetworkData=\" a\x07"
        "b \"\r\n");
    EXPECT_EQ(modUtils::GetNetworkDataPath(), L" a\r\nb ");
    gUserInfoIni = NewFile("[Other]\r\nNetworkData=x\r\n");
    EXPECT_EQ(modUtils::GetNetworkDataPath(), L"");
}

TEST_F(NetworkTest, RecordsComeFromTheNetwork) {
    for (const std::string ending : {"", "\\"}) {
        SCOPED_TRACE(ending);
        gUserInfoIni = NewFile("[Common]\r\nNetworkData=" + NetworkFolder().string() + ending + "\r\n");
        gUserName = L"Ann Smith";
        fs::remove_all(UserFolder());
        fs::create_directories(gStudentRecordsPath);
        WriteBytes(NetworkRecords(L"Ann Smith") / L"CustomLessons.ini", "net");
        EXPECT_TRUE(modUtils::GetStudentRecordsFromNetwork());
        EXPECT_EQ(ReadBytes(LocalRecords(L"Ann Smith") / L"CustomLessons.ini"), "net");
    }
}

TEST_F(NetworkTest, RecordsGoToTheNetwork) {
    for (const std::string ending : {"", "\\"}) {
        SCOPED_TRACE(ending);
        gUserInfoIni = NewFile("[Common]\r\nNetworkData=" + NetworkFolder().string() + ending + "\r\n");
        gUserName = L"Ann Smith";
        fs::remove_all(NetworkFolder());
        fs::create_directories(NetworkRecords(L"Ann Smith"));
        WriteBytes(LocalRecords(L"Ann Smith") / L"progress.ini", "mine");
        EXPECT_TRUE(modUtils::PutStudentRecordsToNetwork());
        EXPECT_EQ(ReadBytes(NetworkRecords(L"Ann Smith") / L"progress.ini"), "mine");
    }
}

TEST_F(NetworkTest, ALearnerWithoutANetworkFolderIsNeitherPulledNorPushed) {
    SetNetwork();
    gUserName = L"Ann Smith";
    fs::create_directories(NetworkFolder() / L"Student Records");
    WriteBytes(LocalRecords(L"Ann Smith") / L"progress.ini", "mine");
    EXPECT_FALSE(modUtils::PutStudentRecordsToNetwork());
    EXPECT_FALSE(modUtils::GetStudentRecordsFromNetwork());
    EXPECT_TRUE(fs::is_empty(NetworkFolder() / L"Student Records"));
}

TEST_F(NetworkTest, WithNobodySignedOnNothingIsPushed) {
    SetNetwork();
    WriteBytes(LocalRecords(L"Ann Smith") / L"progress.ini", "mine");
    WriteBytes(NetworkRecords(L"Bob Jones") / L"progress.ini", "his");
    const auto network = Snapshot(NetworkFolder());
    const auto user = Snapshot(UserFolder());
    for (const std::wstring name : {L"", L" ", L"   ", L".", L".."}) {
        gUserName = name;
        EXPECT_FALSE(modUtils::PutStudentRecordsToNetwork());
        EXPECT_FALSE(modUtils::GetStudentRecordsFromNetwork());
    }
    EXPECT_EQ(Snapshot(NetworkFolder()), network);
    EXPECT_EQ(Snapshot(UserFolder()), user);
}

TEST_F(NetworkTest, ANameThatIsNoFolderNameIsNeverCopied) {
    SetNetwork();
    WriteBytes(NetworkFolder() / L"secret.txt", "s");
    WriteBytes(NetworkFolder() / L"Student Records" / L"x.txt", "x");
    fs::create_directories(gStudentRecordsPath);
    const auto user = Snapshot(UserFolder());
    for (const std::wstring name : {L"..\\..", L"a b\\..\\..", L"../.. a", L"Ann Smith\\", L"* *", L"CON .x"}) {
        gUserName = name;
        EXPECT_FALSE(modUtils::GetStudentRecordsFromNetwork());
        EXPECT_FALSE(modUtils::PutStudentRecordsToNetwork());
    }
    EXPECT_EQ(Snapshot(UserFolder()), user);
}

TEST_F(NetworkTest, ANameThatEndsInBlanksOrFullStopsFindsTheFolderThatWindowsStores) {
    SetNetwork();
    gUserName = L"Ann S. ";
    fs::create_directories(gStudentRecordsPath);
    WriteBytes(NetworkRecords(L"Ann S") / L"CustomLessons.ini", "net");
    EXPECT_TRUE(modUtils::GetStudentRecordsFromNetwork());
    EXPECT_EQ(ReadBytes(LocalRecords(L"Ann S") / L"CustomLessons.ini"), "net");
    EXPECT_EQ(gUserName, L"Ann S. ");
}

TEST_F(NetworkTest, TeacherFilesGoToTheNetwork) {
    for (const std::string ending : {"", "\\"}) {
        SCOPED_TRACE(ending);
        gUserInfoIni = NewFile("[Common]\r\nNetworkData=" + NetworkFolder().string() + ending + "\r\n");
        fs::remove_all(NetworkFolder());
        fs::create_directories(NetworkFolder());
        WriteBytes(gTeachersLessonsIni, "lessons");
        WriteBytes(gTeachersDictationsIni, "dictations");
        EXPECT_TRUE(modUtils::PutTeachersLessonsToNetwork());
        EXPECT_EQ(Snapshot(NetworkFolder()).size(), 1U);
        EXPECT_TRUE(modUtils::PutTeachersDictationsToNetwork());
        EXPECT_EQ(ReadBytes(NetworkFolder() / L"TeachersLessons.ini"), "lessons");
        EXPECT_EQ(ReadBytes(NetworkFolder() / L"TeachersDictations.ini"), "dictations");
    }
}

TEST_F(NetworkTest, TeacherFilesNeedBothTheFolderAndTheFile) {
    SetNetwork();
    WriteBytes(gTeachersLessonsIni, "lessons");
    EXPECT_FALSE(modUtils::PutTeachersLessonsToNetwork()) << "no network folder";
    EXPECT_FALSE(fs::exists(NetworkFolder()));
    fs::create_directories(NetworkFolder());
    EXPECT_FALSE(modUtils::PutTeachersDictationsToNetwork()) << "no file";
    EXPECT_TRUE(modUtils::PutTeachersLessonsToNetwork());
}

TEST_F(NetworkTest, AStandAloneInstallationCopiesNothing) {
    WriteBytes(CommonFolder() / L"KSUserInfo.ini", "[Common]\r\nNetworkData=\r\n");
    WriteBytes(gTeachersLessonsIni, "lessons");
    gUserName = L"Ann Smith";
    fs::create_directories(LocalRecords(L"Ann Smith"));
    EXPECT_FALSE(modUtils::PutTeachersLessonsToNetwork());
    EXPECT_FALSE(modUtils::PutTeachersDictationsToNetwork());
    EXPECT_FALSE(modUtils::PutStudentRecordsToNetwork());
    EXPECT_FALSE(modUtils::GetStudentRecordsFromNetwork());
    EXPECT_FALSE(modUtils::GetTeacherFileFromNetwork(L"TeachersLessons.ini"));
}

TEST_F(NetworkTest, BeforeTheNetworksCopyReplacesADifferentFileThatIsKept) {
    SetNetwork();
    WriteBytes(NetworkFolder() / L"TeachersLessons.ini", "net");
    WriteBytes(gTeachersLessonsIni, "local");
    EXPECT_TRUE(modUtils::GetTeacherFileFromNetwork(L"TeachersLessons.ini"));
    EXPECT_EQ(ReadBytes(gTeachersLessonsIni), "net");
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.bak"), "local");
}

TEST_F(NetworkTest, AnEqualFileIsNotKept) {
    SetNetwork();
    WriteBytes(NetworkFolder() / L"TeachersLessons.ini", "same");
    WriteBytes(gTeachersLessonsIni, "same");
    WriteBytes(UserFolder() / L"TeachersLessons.bak", "older");
    EXPECT_TRUE(modUtils::GetTeacherFileFromNetwork(L"TeachersLessons.ini"));
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.bak"), "older");
}

TEST_F(NetworkTest, AFileThatTheNetworkLacksStays) {
    SetNetwork();
    fs::create_directories(NetworkFolder() / L"TeachersDictations.ini");
    WriteBytes(gTeachersLessonsIni, "local");
    WriteBytes(gTeachersDictationsIni, "local too");
    EXPECT_FALSE(modUtils::GetTeacherFileFromNetwork(L"TeachersLessons.ini"));
    EXPECT_FALSE(modUtils::GetTeacherFileFromNetwork(L"TeachersDictations.ini")) << "a folder is no file";
    EXPECT_EQ(ReadBytes(gTeachersLessonsIni), "local");
    EXPECT_EQ(ReadBytes(gTeachersDictationsIni), "local too");
    EXPECT_FALSE(fs::exists(UserFolder() / L"TeachersLessons.bak"));
}

// ---- learner folders
// -------------------------------------------------------------------------------------------------

TEST(StaysInside, TakesNamesInTheFolderAndBelowIt) {
    for (const wchar_t* path : {L"a.ini", L"sub\\a.ini", L"sub/deeper\\a.ini", L".\\a.ini", L"sub\\\\a.ini", L"sub\\",
                                L"a..b", L".a", L"console"})
        EXPECT_TRUE(modUtils::StaysInside(path)) << fs::path(path);
}

TEST(StaysInside, RefusesEveryWayOut) {
    for (const wchar_t* path :
         {L"", L"..", L"..\\a", L"../a", L"sub\\..\\..\\a", L"sub\\..", L"\\a", L"/a", L"\\\\s\\a", L"C:a", L"C:\\a",
          L"a:stream", L".. \\a", L"...\\a", L" ..\\a", L"nul", L"sub\\CON.ini", L"a*", L"a\nb"})
        EXPECT_FALSE(modUtils::StaysInside(path)) << fs::path(path);
}

TEST(LearnerFolderName, IsTheNameWithoutBlanksAndFullStopsAtItsEnd) {
    EXPECT_EQ(modUtils::LearnerFolderName(L"Ann Smith"), L"Ann Smith");
    EXPECT_EQ(modUtils::LearnerFolderName(L"Ann S. . "), L"Ann S");
    EXPECT_EQ(modUtils::LearnerFolderName(L"  Ann S"), L"  Ann S");
    EXPECT_EQ(modUtils::LearnerFolderName(L"J\u00fcrgen \u00d6"), L"J\u00fcrgen \u00d6");
    EXPECT_EQ(modUtils::LearnerFolderName(L".hidden x"), L".hidden x");
}

TEST(LearnerFolderName, RefusesEveryCharacterThatNoFolderNameHolds) {
    for (const wchar_t c : std::wstring(L"\\/:*?\"<>|\x01\x05\t\r\n\x1f"))
        EXPECT_EQ(modUtils::LearnerFolderName(L"Ann" + std::wstring(1, c) + L" Smith"), std::nullopt) << int{c};
    EXPECT_EQ(modUtils::LearnerFolderName(std::wstring(L"Ann\0 S", 6)), std::nullopt);
}

TEST(LearnerFolderName, RefusesNamesOfFullStopsAndBlanksOnly) {
    for (const wchar_t* name : {L"", L" ", L"   ", L".", L"..", L". .", L"..."})
        EXPECT_EQ(modUtils::LearnerFolderName(name), std::nullopt) << "\"" << name << "\"";
}

TEST(LearnerFolderName, RefusesDeviceNamesWithAnyEnding) {
    for (const wchar_t* name : {L"CON", L"con", L"PRN", L"Aux", L"NUL", L"COM1", L"lpt9", L"CON.x y", L"nul .a b",
                                L"COM\u00b9", L"CONIN$", L"CONOUT$", L"con  "})
        EXPECT_EQ(modUtils::LearnerFolderName(name), std::nullopt) << name;
    for (const wchar_t* name : {L"CON Smith", L"Con Nor", L"COM0", L"COM10", L"LPT", L"CONx", L"Nully N", L"a.con"})
        EXPECT_EQ(modUtils::LearnerFolderName(name), name) << name;
}

TEST_F(ModUtilsTest, EnsureLearnerFolderMakesTheFolderOnce) {
    fs::create_directories(UserFolder());
    gUserName = L"Ann S. ";
    modUtils::EnsureLearnerFolder();
    EXPECT_TRUE(fs::is_directory(fs::path(gStudentRecordsPath) / L"Ann S"));
    WriteBytes(fs::path(gStudentRecordsPath) / L"Ann S" / L"x.ini", "x");
    modUtils::EnsureLearnerFolder();
    EXPECT_EQ(ReadBytes(fs::path(gStudentRecordsPath) / L"Ann S" / L"x.ini"), "x");
}

TEST_F(ModUtilsTest, EnsureLearnerFolderMakesNoneForANameThatAllowsNone) {
    fs::create_directories(gStudentRecordsPath);
    for (const std::wstring name : {L"", L"..\\x y", L"CON", L". ."}) {
        gUserName = name;
        modUtils::EnsureLearnerFolder();
    }
    EXPECT_TRUE(fs::is_empty(gStudentRecordsPath));
    EXPECT_EQ(Snapshot(UserFolder()).size(), 1U);
}

TEST_F(ModUtilsTest, EnsureLearnerFolderRaisesWhatTheSystemRefuses) {
    WriteBytes(gStudentRecordsPath, "a file where the folder should be");
    gUserName = L"Ann Smith";
    EXPECT_THROW(modUtils::EnsureLearnerFolder(), std::system_error);
}

}  // namespace
}  // namespace unit
