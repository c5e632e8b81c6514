// What every test with files starts from: a fresh folder that stands in for the user's and the common data folder.
#include "unit/fixture.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include "shell/ModMain.h"
#include "shell/modGlobals.h"

namespace unit {

namespace fs = std::filesystem;

namespace {

int folderCount = 0;
int fileCount = 0;

}  // namespace

bool RunsUnderWine() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

void ResetSession() {
    using namespace modGlobals;
    gCurLessonNbr = gCurTaskNbr = gCurSubTaskNbr = 0;
    gRunLessonNbr = gRunTaskNbr = gRunSubTaskNbr = 0;
    gTaskReps = gEditTaskKind = 0;
    for (std::wstring* text : {&gLessonTitle, &gLessonIntro, &gEditTaskText, &gEditTaskExplanation, &gEditDictationText,
                               &gDictationTitle, &gLessonTreePrefix, &gUserName, &gCustomLessonsIni})
        text->clear();
    gTaskTerminator = L"Space";
    SetLanguage(0);
    gMAGic = gAdult = gQuizGiveHelp = false;
}

void SetLanguage(int language) {
    modGlobals::gLanguageOne = language == 1;
    modGlobals::gLanguageTwo = language == 2;
    modGlobals::gLanguageDefault = language != 1;
}

void FolderTest::SetUp() {
    folder_ = fs::temp_directory_path() /
              (L"keystride-unit-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++folderCount));
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    ResetSession();
    ModMain::SetFileNames((folder_ / L"user").wstring(), (folder_ / L"common").wstring(),
                          (folder_ / L"documents").wstring());
}

void FolderTest::TearDown() {
    std::error_code error;
    fs::remove_all(folder_, error);
    EXPECT_FALSE(fs::exists(folder_)) << "something in the test's folder is still held open";
}

fs::path FolderTest::UserFolder() const { return folder_ / L"user" / L"Brightfield" / L"Keystride"; }

fs::path FolderTest::CommonFolder() const { return folder_ / L"common" / L"Brightfield" / L"Keystride"; }

std::wstring FolderTest::NewName() { return (folder_ / (L"file" + std::to_wstring(++fileCount) + L".ini")).wstring(); }

std::wstring FolderTest::NewFile(std::string_view bytes) {
    std::wstring name = NewName();
    WriteBytes(name, bytes);
    return name;
}

void FolderTest::SetNetwork(std::string_view ending) const {
    WriteBytes(CommonFolder() / L"KSUserInfo.ini",
               "[Common]\r\nNetworkData=" + NetworkFolder().string() + std::string(ending) + "\r\n");
}

}  // namespace unit
