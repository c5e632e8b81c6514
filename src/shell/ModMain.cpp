// The set-up of the data folders.
#include "shell/ModMain.h"

#include <array>
#include <functional>

#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "win32/files.h"

namespace ModMain {

using namespace modGlobals;

namespace {

// Shell numbers of the special folders.
constexpr int kUserAppData = 26;
constexpr int kCommonAppData = 35;
constexpr int kDocuments = 5;

constexpr wchar_t kVendorFolder[] = L"\\Brightfield";
constexpr wchar_t kProductFolder[] = L"\\Keystride";

constexpr std::array kDefaultFiles{L"Keystride.ini", L"KSGeneral.ini", L"KSDialogTutor.ini"};
constexpr std::array kTeacherFiles{L"TeachersLessons.ini", L"TeachersDictations.ini"};

/// Copies a shipped file into the user folder when that lacks it; a missing source is skipped by the copy.
void SeedFile(const std::wstring& name) {
    if (modUtils::FileExists(gUserDataPath + L"\\" + name)) return;
    std::wstring source = gCommonDataPath + L"\\" + name;
    modUtils::CopyPath(source, gUserDataPath);
}

}  // namespace

void SetFileNames(const std::wstring& userAppData, const std::wstring& commonAppData, const std::wstring& documents) {
    gUserDataPath = userAppData + kVendorFolder + kProductFolder;
    gCommonDataPath = commonAppData + kVendorFolder + kProductFolder;
    gDocumentsPath = documents;

    gGeneralIni = gUserDataPath + L"\\KSGeneral.ini";
    gDialogTutorIni = gUserDataPath + L"\\KSDialogTutor.ini";
    gStudentRecordsPath = gUserDataPath + L"\\Student Records";
    gQuizzesPath = gCommonDataPath + L"\\QuizzesKS";
    gQuizzesIni = gCommonDataPath + L"\\QuizzesKS\\KSQuizzes.ini";
    gTeachersQuizzesIni = gUserDataPath + L"\\QuizzesTeacher\\TeachersQuizzes.ini";
    gUserPrefsIni = gCommonDataPath + L"\\KSUserPrefs.ini";
    gKeystrideIni = gUserDataPath + L"\\Keystride.ini";
    gLessonsIni = gCommonDataPath + L"\\KSLessons.ini";
    gDictationsIni = gCommonDataPath + L"\\KSDictations.ini";
    gTeachersLessonsIni = gUserDataPath + L"\\TeachersLessons.ini";
    gTeachersDictationsIni = gUserDataPath + L"\\TeachersDictations.ini";
    gUserInfoIni = gCommonDataPath + L"\\KSUserInfo.ini";
    gUserName.clear();
}

void CreateUserFolders() {
    if (modUtils::FolderExists(gUserDataPath)) return;
    win32::files::CreateFolder(gUserDataPath.substr(0, gUserDataPath.rfind(L'\\')));
    win32::files::CreateFolder(gUserDataPath);
    win32::files::CreateFolder(gStudentRecordsPath);
}

void CopyDefaultFiles() {
    for (const auto* name : kDefaultFiles) SeedFile(name);
}

void CopyNetworkTeacherFiles() {
    for (const auto* name : kTeacherFiles) modUtils::GetTeacherFileFromNetwork(name);
    CopyTeacherFiles();
}

void CopyTeacherFiles() {
    for (const auto* name : kTeacherFiles) SeedFile(name);
}

void SetupDataFolders(const win32::ErrorSink& report) {
    const auto step = [&](const std::function<void()>& run) { win32::RunStep(report, run); };
    step([] {
        SetFileNames(win32::files::SpecialFolder(kUserAppData), win32::files::SpecialFolder(kCommonAppData),
                     win32::files::SpecialFolder(kDocuments));
    });
    step(CreateUserFolders);
    step(CopyDefaultFiles);
    step([] { modUtils::SaveUserPath(gKeystrideIni); });
    step([] { modUtils::isNetworkVersion() ? CopyNetworkTeacherFiles() : CopyTeacherFiles(); });
    step(modUtils::ReadKeystrideIni);
}

}  // namespace ModMain
