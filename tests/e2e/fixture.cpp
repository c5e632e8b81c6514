// What every end-to-end test starts from: fresh data folders with known files, and one run of the program that always
// ends.
#include "fixture.h"

#include <cstdlib>
#include <stdexcept>

namespace e2e {

namespace fs = std::filesystem;

namespace {

fs::path programPath;

fs::path BesideTheTests() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    return fs::path(path).parent_path() / L"keystride.exe";
}

}  // namespace

void SetProgramPath(const fs::path& program) { programPath = program; }

fs::path ProgramPath() {
    if (!programPath.empty()) return programPath;
    if (const wchar_t* path = _wgetenv(L"KEYSTRIDE_EXE")) return path;
    return BesideTheTests();
}

fs::path SourceFolder() {
    if (const wchar_t* path = _wgetenv(L"KEYSTRIDE_SOURCE")) return path;
    return ToWide(KEYSTRIDE_SOURCE_DIR);
}

fs::path NetworkFolder() { return fs::temp_directory_path() / L"keystride-network"; }

std::string GeneralIni(const MainTexts& texts) {
    return "[Main]\r\nSingleRow=" + texts.singleRow + "\r\nMultiRow=" + texts.multiRow +
           "\r\nDefSingleRow=" + texts.defSingleRow + "\r\nDefMultiRow=" + texts.defMultiRow + "\r\n";
}

std::string UserInfoIni(std::string_view networkFolder) {
    return "[Common]\r\nNetworkData=" + std::string(networkFolder) + "\r\n";
}

std::string KeystrideIni(std::string_view userData, int language, int magic) {
    return "[Current User]\r\nUserData=" + std::string(userData) + "\r\nLanguage=" + std::to_string(language) +
           "\r\nAdult=0\r\nMAGic=" + std::to_string(magic) + "\r\n";
}

std::vector<LessonText> ShippedLessons() {
    return {{"Home row", {"asdf", "jkl;"}},
            {"Top row", {"qwer", "uiop", "tree"}},
            {"Bottom row", {"zxcv", "vbnm", "mnbv"}},
            {"No tasks yet", {}}};
}

std::vector<LessonText> TeachersLessons() {
    return {{"First", {"one a", "one b"}}, {"Second", {"two a"}}, {"Third", {"three a"}}, {"Fourth", {"four a"}}};
}

void KeystrideTest::SetUp() {
    WipeDataFolders();
    RemoveTree(NetworkFolder());
    const fs::path common = CommonFolder();
    WriteBytes(common / L"Keystride.ini", KeystrideIni("", 0, 0));
    WriteBytes(common / L"KSGeneral.ini", GeneralIni({}));
    WriteBytes(common / L"KSDialogTutor.ini", "[Tutor]\r\nVersion=1\r\n");
    WriteBytes(common / L"KSUserInfo.ini", UserInfoIni(""));
    WriteBytes(common / L"KSLessons.ini", LessonFile(ShippedLessons()));
    WriteBytes(common / L"TeachersLessons.ini", LessonFile(TeachersLessons()));
    WriteBytes(common / L"TeachersDictations.ini", "[Lessons]\r\nNbrOfLessons=0\r\n");
}

void KeystrideTest::TearDown() {
    if (!app_) return;
    if (HasFailure()) {
        const HWND front = GetForegroundWindow();
        RecordProperty("windows", App().Describe());
        std::cerr << "The program's windows at the end of the failed test (request " << Readable(App().Request())
                  << ", focus " << ToUtf8(App().FocusName()) << ", in front " << ToUtf8(Window(front).Name()) << "):\n"
                  << App().Describe();
    }
    if (const auto code = App().Process().ExitCode()) {
        EXPECT_EQ(*code, 0U) << "the program has crashed";
    }
    app_.reset();
}

Session& KeystrideTest::App() {
    if (!app_) throw std::logic_error("the program has not been started");
    return *app_;
}

void KeystrideTest::Start() {
    app_.emplace(ProgramPath());
    ASSERT_TRUE(App().WaitForForm(L"frmMain")) << "the main window does not open";
}

void KeystrideTest::StartUnsigned() {
    ASSERT_NO_FATAL_FAILURE(Start());
    ASSERT_TRUE(App().WaitForForm(L"dlgLogin")) << "the sign-on dialog does not open";
    ASSERT_TRUE(App().WaitForFocus(L"txtLoginName"));
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(App().WaitForNoForm(L"dlgLogin"));
    ASSERT_TRUE(App().WaitForFocus(L"rtfEdit"));
}

void KeystrideTest::StartSignedOn(std::wstring_view name) {
    ASSERT_NO_FATAL_FAILURE(Start());
    ASSERT_TRUE(App().WaitForForm(L"dlgLogin")) << "the sign-on dialog does not open";
    ASSERT_NO_FATAL_FAILURE(SignOn(name));
    ASSERT_TRUE(App().WaitForFocus(L"rtfEdit"));
}

void KeystrideTest::SignOn(std::wstring_view name) {
    if (!App().Form(L"dlgLogin")) {
        ASSERT_TRUE(App().Press("Ctrl+Alt+Shift+F9"));
        ASSERT_TRUE(App().WaitForForm(L"dlgLogin")) << "the sign-on dialog does not open again";
    }
    ASSERT_TRUE(App().WaitForFocus(L"txtLoginName"));
    ASSERT_TRUE(App().Type(name));
    ASSERT_TRUE(App().WaitForText(L"dlgLogin", L"txtLoginName", name));
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(App().WaitForNoForm(L"dlgLogin")) << "Enter does not close the sign-on dialog";
}

void KeystrideTest::Leave() {
    ASSERT_TRUE(App().Press("Alt+F4"));
    ASSERT_TRUE(App().Process().WaitForEnd()) << "Alt+F4 does not end the program";
    EXPECT_EQ(App().Process().ExitCode(), 0U);
    app_.reset();
}

Window KeystrideTest::OpenPicker(std::string_view chord) {
    EXPECT_TRUE(App().Press(chord));
    const Window picker = App().WaitForForm(L"dlgTyping");
    EXPECT_TRUE(picker) << chord << " does not open the lesson list";
    EXPECT_TRUE(App().WaitForFocus(L"tvTasks"));
    return picker;
}

void KeystrideTest::ClosePicker(std::string_view chord) {
    ASSERT_TRUE(App().Press(chord));
    ASSERT_TRUE(App().WaitForNoForm(L"dlgTyping"));
}

bool KeystrideTest::KeysDealtWith() {
    MainTexts texts;
    texts.singleRow = "Round " + std::to_string(++round_) + '.';
    WriteBytes(UserFolder() / L"KSGeneral.ini", GeneralIni(texts));
    return App().Press("F5") && App().WaitForText(L"frmMain", L"rtfLessonTaskInfo", ToWide(texts.singleRow));
}

std::vector<std::wstring> KeystrideTest::OpenWindows() const {
    std::vector<std::wstring> names;
    for (const Window& window : TopLevelWindows(app_->Process().Id())) {
        if (!window.Visible()) continue;
        const std::wstring name = window.Name();
        names.push_back(name.empty() ? L"?" : name);
    }
    return names;
}

}  // namespace e2e
