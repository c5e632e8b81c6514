// What every end-to-end test starts from: fresh data folders with known files, and one run of the program that always
// ends.
#include "fixture.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include "checks.h"

namespace e2e {

namespace fs = std::filesystem;

namespace {

constexpr wchar_t kDesktopKey[] = L"Control Panel\\Desktop";
constexpr wchar_t kResolutionValue[] = L"LogPixels";
constexpr int kFontPoints = 16;

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
           "\r\nDefSingleRow=" + texts.defSingleRow + "\r\nDefMultiRow=" + texts.defMultiRow +
           "\r\n[General]\r\nSingleRow=One letter & no more.\r\nMultiRow=Type a letter.\x07Press Enter."
           "\r\n[StudentProfile]\r\nSingleRow=About you.\r\nMultiRow=Use Tab and arrows.\x07Press OK.\r\n";
}

void WriteQuizFiles() {
    const fs::path folder = CommonFolder() / L"QuizzesKS";
    WriteBytes(folder / L"KSQuizzes.ini",
               "[Academics]\r\nNbrOfSections=2\r\n[SECTION_01]\r\nSECTION_NAME=Geography\r\nNbrOfTopics=2\r\n"
               "TOPIC_NAME_01=Capitals\r\nFILE_NAME_01=Capitals.ini\r\nTOPIC_NAME_02=Rivers\r\n"
               "FILE_NAME_02=Water\\Rivers.ini\r\n[SECTION_02]\r\nSECTION_NAME=Math\r\nNbrOfTopics=1\r\n"
               "TOPIC_NAME_01=Fractions\r\nFILE_NAME_01=Fractions.ini\r\n");
    WriteBytes(folder / L"Capitals.ini",
               "[Capitals]\r\nNbrOfQuizzes=2\r\n[Capitals01]\r\nDefTitle=Europe\r\n[Capitals02]\r\nDefTitle=Asia\r\n");
    WriteBytes(
        folder / L"Water" / L"Rivers.ini",
        "[Rivers]\r\nNbrOfQuizzes=3\r\n[Rivers01]\r\nDefTitle=Long ones\r\n[Rivers03]\r\nDefTitle=Wide ones\r\n");
    WriteBytes(folder / L"Fractions.ini", "[Fractions]\r\nNbrOfQuizzes=0\r\n");
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
    WriteBytes(common / L"TeachersDictations.ini", "[Dictations]\r\nNbrOfLessons=0\r\n");
    WriteBytes(common / L"KSDictations.ini", "[Dictations]\r\nNbrOfLessons=0\r\n");
    WriteBytes(common / L"KSUserPrefs.ini", "[UserPreferences]\r\nB=Speak slower\r\nA=Speak faster\r\n");
    WriteQuizFiles();
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

Window KeystrideTest::OpenForm(std::string_view chord, std::wstring_view form, std::wstring_view focus) {
    EXPECT_TRUE(App().Press(chord));
    const Window window = App().WaitForForm(form);
    EXPECT_TRUE(window) << chord << " does not open " << ToUtf8(form);
    EXPECT_TRUE(App().WaitForFocus(focus)) << "the focus is on " << ToUtf8(App().FocusName());
    return window;
}

void KeystrideTest::CloseForm(std::wstring_view form, std::string_view chord) {
    const Window owner = App().Form(form).Owner();
    ASSERT_TRUE(App().Press(chord));
    ASSERT_TRUE(App().WaitForNoForm(form)) << chord << " does not close " << ToUtf8(form);
    EXPECT_TRUE(WaitUntil([&] { return App().Active() == owner && App().Focus().Parent() == owner; }))
        << "the focus is on " << ToUtf8(App().FocusName());
}

void KeystrideTest::ExpectErrorBox(std::wstring_view text) {
    const auto box = App().WaitForBox();
    ASSERT_TRUE(box) << "no box says " << Readable(text);
    EXPECT_EQ(box->text, text);
    EXPECT_EQ(box->title, L"Keystride");
    EXPECT_EQ(box->ButtonIds(), std::vector<int>{IDOK});
    EXPECT_TRUE(box->HasStopIcon());
    ASSERT_TRUE(box->Answer(IDOK));
    EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
    EXPECT_EQ(OpenWindows(), std::vector<std::wstring>{L"frmMain"});
}

void KeystrideTest::ExpectMessage(std::wstring_view form, std::wstring_view text) {
    const auto box = App().WaitForBox();
    ASSERT_TRUE(box) << "no box says " << Readable(text);
    EXPECT_EQ(box->text, text);
    EXPECT_EQ(box->title, L"Keystride");
    EXPECT_EQ(box->ButtonIds(), std::vector<int>{IDOK});
    EXPECT_FALSE(box->hasIcon);
    EXPECT_EQ(box->owner, App().Form(form));
    ASSERT_TRUE(box->Answer(IDOK));
    EXPECT_TRUE(App().Form(form)) << "the dialog stays open";
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

bool CopyToClipboard(std::wstring_view text) {
    if (!WaitUntil([] { return OpenClipboard(nullptr) != FALSE; })) return false;
    EmptyClipboard();
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    auto* target = static_cast<wchar_t*>(GlobalLock(memory));
    std::memcpy(target, text.data(), text.size() * sizeof(wchar_t));
    target[text.size()] = L'\0';
    GlobalUnlock(memory);
    const bool taken = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
    CloseClipboard();
    return taken;
}

DisplayResolution::DisplayResolution(DWORD dpi) {
    RegSetKeyValueW(HKEY_CURRENT_USER, kDesktopKey, kResolutionValue, REG_DWORD, &dpi, sizeof(dpi));
}

DisplayResolution::~DisplayResolution() { RegDeleteKeyValueW(HKEY_CURRENT_USER, kDesktopKey, kResolutionValue); }

void KeystrideTest::SetTextOf(std::wstring_view form, std::wstring_view box, const std::wstring& text) {
    In(form, box).Send(WM_SETTEXT, 0, std::bit_cast<LPARAM>(text.c_str()));
}

std::wstring KeystrideTest::Notice(std::wstring_view form) {
    const Window notice = In(form, L"lblNotice");
    return notice && notice.Visible() ? notice.Text() : std::wstring();
}

bool KeystrideTest::WaitForNotice(std::wstring_view form, std::wstring_view text) {
    const bool said = WaitUntil([&] { return Notice(form) == text; }, std::chrono::seconds(3));
    EXPECT_TRUE(said) << "the notice is: " << ToUtf8(Notice(form));
    return said;
}

bool KeystrideTest::Checked(std::wstring_view form, std::wstring_view option) {
    return In(form, option).Send(BM_GETCHECK) == BST_CHECKED;
}

void KeystrideTest::TabTo(std::wstring_view control) {
    for (int presses = 0; App().FocusName() != control; ++presses) {
        ASSERT_LT(presses, 20) << ToUtf8(control) << " is never reached";
        const Window before = App().Focus();
        ASSERT_TRUE(App().Press("Tab"));
        ASSERT_TRUE(WaitUntil([&] { return !(App().Focus() == before); })) << "Tab stays on " << ToUtf8(before.Name());
    }
}

void KeystrideTest::PressButton(std::wstring_view control) {
    ASSERT_NO_FATAL_FAILURE(TabTo(control));
    ASSERT_TRUE(App().Press("Space"));
}

void KeystrideTest::Retype(std::wstring_view form, std::wstring_view box, std::wstring_view text) {
    ASSERT_NO_FATAL_FAILURE(TabTo(box));
    ASSERT_TRUE(App().Press("Ctrl+A"));
    if (!App().Text(form, box).empty()) {
        ASSERT_TRUE(App().Press("Delete"));
    }
    ASSERT_TRUE(App().WaitForText(form, box, L""));
    ASSERT_TRUE(App().Type(text));
    ASSERT_TRUE(App().WaitForText(form, box, text)) << ToUtf8(App().Text(form, box));
}

void KeystrideTest::Click(std::wstring_view form, std::wstring_view control) {
    ASSERT_TRUE(WaitUntil([&] { return App().Form(form) && App().Form(form).Enabled(); }));
    ASSERT_TRUE(In(form, control).Click()) << ToUtf8(control);
}

std::vector<std::wstring> KeystrideTest::Order(const Window& form) {
    std::vector<std::wstring> order;
    for (const Window& control : form.Children()) {
        const std::wstring name = control.Name();
        order.push_back(!name.empty() ? name : (control.Shown() ? L"shown:" : L"h:") + control.Text());
    }
    return order;
}

std::vector<std::wstring> KeystrideTest::TabRound(const char* chord) {
    std::vector<std::wstring> names{App().FocusName()};
    const Window start = App().Focus();
    for (int presses = 0; presses < 40; ++presses) {
        const Window before = App().Focus();
        EXPECT_TRUE(App().Press(chord));
        const bool moved = WaitUntil([&] { return !(App().Focus() == before); }, std::chrono::seconds(2));
        EXPECT_TRUE(moved) << chord << " stays on " << ToUtf8(before.Name());
        if (!moved || App().Focus() == start) break;
        names.push_back(App().FocusName());
    }
    return names;
}

void KeystrideTest::ExpectTabOrder(const std::vector<std::wstring>& expected) {
    EXPECT_EQ(TabRound("Tab"), expected);
    std::vector<std::wstring> backwards(expected.rbegin(), expected.rend());
    std::rotate(backwards.begin(), backwards.end() - 1, backwards.end());
    EXPECT_EQ(TabRound("Shift+Tab"), backwards);
}

void KeystrideTest::ExpectGroup(const Window& form, std::wstring_view group, const std::vector<std::wstring>& members) {
    CheckGroup(form, group, members);
    for (const std::wstring& member : members)
        EXPECT_EQ((form.Descendant(member).Style() & WS_GROUP) != 0, member == members.front()) << ToUtf8(member);
    EXPECT_NE(form.Descendant(members.back()).Next().Style() & WS_GROUP, 0U)
        << "the control after the set begins another group";
}

void KeystrideTest::ExpectOneDefaultButton(const Window& dialog, std::wstring_view name) {
    const LRESULT answer = dialog.Send(DM_GETDEFID);
    EXPECT_EQ(HIWORD(answer), DC_HASDEFID);
    EXPECT_EQ(LOWORD(answer), IDOK);
    int defaults = 0;
    for (const Window& control : dialog.Children())
        if (control.ClassName() == L"Button" && (control.Style() & BS_TYPEMASK) == BS_DEFPUSHBUTTON) ++defaults;
    EXPECT_EQ(defaults, 1);
    EXPECT_EQ(dialog.Descendant(name).Id(), IDOK);
    EXPECT_EQ(dialog.Descendant(L"CancelButton").Id(), IDCANCEL);
    EXPECT_EQ(dialog.Descendant(L"CancelButton").Text(), L"Cancel");
    EXPECT_TRUE(dialog.Descendant(L"CancelButton").Enabled());
}

void KeystrideTest::ExpectEverythingReadable(const Window& dialog, int dpi) {
    CheckNothingOverlaps(dialog);
    CheckEverythingInside(dialog);
    CheckNothingClipped(dialog, kFontPoints, dpi);
    const RECT screen = ScreenAboveTaskbar();
    const RECT rect = dialog.ScreenRect();
    EXPECT_TRUE(rect.left >= screen.left && rect.top >= screen.top && rect.right <= screen.right &&
                rect.bottom <= screen.bottom)
        << "the dialog leaves the screen";
}

}  // namespace e2e
