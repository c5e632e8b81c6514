// The shipped files in the shape in which tests need them, and the real data folders, emptied for a test.
#include "unit/data_set.h"

#include "unit/fixture.h"
#include "win32/files.h"

namespace unit {

namespace fs = std::filesystem;

namespace {

constexpr int kUserAppData = 26;
constexpr int kCommonAppData = 35;

std::string Padded(std::size_t number) {
    std::string digits = std::to_string(number);
    return digits.size() < 2 ? '0' + digits : digits;
}

fs::path KeystrideFolder(int specialFolder) {
    return fs::path(win32::files::SpecialFolder(specialFolder)) / L"Brightfield" / L"Keystride";
}

}  // namespace

void WriteShippedFiles(const fs::path& commonFolder) {
    WriteBytes(commonFolder / L"Keystride.ini", "[Current User]\r\nUserData=\r\nLanguage=0\r\nAdult=0\r\nMAGic=0\r\n");
    WriteBytes(commonFolder / L"KSGeneral.ini",
               "[Main]\r\nSingleRow=A single row\r\nMultiRow=One\x07Two\r\nDefSingleRow=Welcome\r\nDefMultiRow="
               "Press F3\x07Press F11\r\n");
    WriteBytes(commonFolder / L"KSDialogTutor.ini", "[Tutor]\r\nVersion=1\r\n");
    WriteBytes(commonFolder / L"KSUserInfo.ini", "[Common]\r\nNetworkData=\r\n");
    WriteBytes(commonFolder / L"TeachersLessons.ini", "[Lessons]\r\nNbrOfLessons=0\r\n");
    WriteBytes(commonFolder / L"TeachersDictations.ini", "[Dictations]\r\nNbrOfLessons=0\r\n");
    WriteBytes(commonFolder / L"KSLessons.ini", LessonFile({"Home row", "Top row"}));
}

std::string LessonSection(int number, const std::string& title, const std::vector<std::string>& tasks) {
    std::string text =
        "[L" + Padded(static_cast<std::size_t>(number)) + "]\r\nDefTitle=" + title +
        "\r\nINTRO_LSN_JAWS=Listen.\r\nTaskReps=2\r\nTaskDL=Space\r\nNbrOfTasks=" + std::to_string(tasks.size()) +
        "\r\n";
    for (std::size_t i = 0; i < tasks.size(); ++i) {
        const std::string key = Padded(i + 1);
        text += "KIND_TASK_" + key + "=1\r\nPRINT_USA_TASK_" + key + "=" + tasks[i] + "\r\nSPELL_USA_TASK_" + key +
                "=" + tasks[i] + "\x05\r\nEXPLN_USA_CHILD_" + key + "=Type it.\r\n";
    }
    return text;
}

std::string LessonFile(const std::vector<std::string>& titles) {
    std::string text = "[Lessons]\r\nNbrOfLessons=" + std::to_string(titles.size()) + "\r\n";
    for (std::size_t i = 0; i < titles.size(); ++i)
        text += LessonSection(static_cast<int>(i) + 1, titles[i], {"task of " + titles[i]});
    return text;
}

fs::path RealFoldersTest::RealUserFolder() { return KeystrideFolder(kUserAppData); }

fs::path RealFoldersTest::RealCommonFolder() { return KeystrideFolder(kCommonAppData); }

void RealFoldersTest::SetUp() {
    if (!RunsUnderWine()) GTEST_SKIP() << "Keystride's own folders hold a real user's data";
    fs::remove_all(RealUserFolder().parent_path());
    fs::remove_all(RealCommonFolder().parent_path());
    ResetSession();
}

void RealFoldersTest::TearDown() {
    if (!RunsUnderWine()) return;
    fs::remove_all(RealUserFolder().parent_path());
    fs::remove_all(RealCommonFolder().parent_path());
}

}  // namespace unit
