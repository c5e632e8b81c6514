// What all dialogs share, seen on the lesson list: place, layout, the keys that leave it, and what it leaves behind.
#include <functional>

#include "checks.h"
#include "fixture.h"

namespace e2e {
namespace {

constexpr int kNormalDpi = 96;

class Dialogs : public KeystrideTest {
protected:
    void SetUp() override {
        KeystrideTest::SetUp();
        StartUnsigned();
    }

    Tree Lessons() { return App().TreeOf(L"dlgTyping", L"tvTasks"); }
};

/// How many windows of any kind, also hidden ones, a process has.
std::size_t CountWindows(DWORD processId) {
    std::size_t count = 0;
    for (const Window& window : TopLevelWindows(processId)) count += 1 + window.Children().size();
    return count;
}

/// Takes away what an earlier, killed program may have left.
void ForgetAtom(const wchar_t* name) {
    while (const ATOM atom = GlobalFindAtomW(name)) {
        SetLastError(ERROR_SUCCESS);
        GlobalDeleteAtom(atom);
        if (GetLastError() != ERROR_SUCCESS) break;
    }
}

TEST_F(Dialogs, LeaveAMarginOf300TwipsAboveTheTaskbar) {
    const Window picker = OpenPicker("F3");
    CheckDialogPlace(picker, kNormalDpi);
    const RECT screen = ScreenAboveTaskbar();
    EXPECT_EQ(picker.ScreenRect().bottom, screen.bottom - Pixels(300, kNormalDpi))
        << "it ends 300 twips above the taskbar";
}

TEST_F(Dialogs, LayoutIsThePickerLayoutInBothVariants) {
    CheckPickerLayout(OpenPicker("F3"), kNormalDpi);
    ClosePicker();
    CheckPickerLayout(OpenPicker("F7"), kNormalDpi);
}

TEST_F(Dialogs, LayoutFollowsAResize) {
    const Window picker = OpenPicker("F7");
    SetWindowPos(picker.Handle(), nullptr, 0, 0, 1100, 600, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    ASSERT_TRUE(
        WaitUntil([&] { return picker.Descendant(L"tvTasks").RectInParent().bottom < picker.ClientSize().cy; }));
    CheckPickerLayout(picker, kNormalDpi);
}

TEST_F(Dialogs, AreOwnedByTheWindowThatOpensThemAndDisableIt) {
    const Window main = App().Form(L"frmMain");
    const Window picker = OpenPicker("F3");
    EXPECT_EQ(picker.ClassName(), L"#32770");
    EXPECT_EQ(picker.Owner(), main);
    EXPECT_FALSE(main.Enabled());
    EXPECT_FALSE(picker.Descendant(L"cmdAccessibility").Shown());
    ClosePicker();
    EXPECT_TRUE(main.Enabled());
    EXPECT_TRUE(WaitUntil([&] { return App().Active() == main; }));
}

TEST_F(Dialogs, EveryWayOutIsACancel) {
    const std::vector<std::function<void()>> ways{
        [&] { EXPECT_TRUE(App().Press("Esc")); },
        [&] { EXPECT_TRUE(App().Press("Shift+Esc")); },
        [&] { EXPECT_TRUE(App().Press("Alt+F4")); },
        [&] { EXPECT_TRUE(App().Form(L"dlgTyping").Post(WM_CLOSE)); },
        [&] { EXPECT_TRUE(App().Control(L"dlgTyping", L"CancelButton").Click()); },
    };
    ASSERT_TRUE(App().Type(L"typed before"));
    for (std::size_t way = 0; way < ways.size(); ++way) {
        ASSERT_TRUE(OpenPicker(way % 2 == 0 ? "F3" : "F7"));
        ways[way]();
        ASSERT_TRUE(App().WaitForNoForm(L"dlgTyping")) << "way " << way;
        EXPECT_EQ(App().Request(), way % 2 == 0 ? L"KYBP\x05\x04" : L"KYBT\x05\x04") << "way " << way;
        EXPECT_TRUE(App().WaitForFocus(L"rtfEdit")) << "way " << way;
    }
    EXPECT_EQ(App().Text(L"frmMain", L"rtfEdit"), L"typed before") << "a cancel leaves the typing area";
    EXPECT_TRUE(App().Process().Running());
}

TEST_F(Dialogs, ControlEscAndControlAInTheTreeDoNothing) {
    ASSERT_TRUE(OpenPicker("F3"));
    const std::wstring selected = Lessons().SelectedText();
    for (const char* chord : {"Ctrl+Esc", "Ctrl+A", "Ctrl+Shift+A", "Ctrl+Shift+Esc"}) ASSERT_TRUE(App().Press(chord));
    ASSERT_TRUE(App().Press("Down"));
    EXPECT_TRUE(WaitUntil([&] { return Lessons().SelectedText() == L"2. Top row"; }))
        << Readable(Lessons().SelectedText());
    EXPECT_EQ(selected, L"1. Home row");
    EXPECT_TRUE(App().Form(L"dlgTyping"));
}

TEST_F(Dialogs, MainWindowKeysAreNotServedWhileADialogIsOpen) {
    ASSERT_TRUE(OpenPicker("F3"));
    for (const char* chord : {"F3", "F7", "F11", "Ctrl+Alt+Shift+F9", "F12"}) ASSERT_TRUE(App().Press(chord));
    ASSERT_TRUE(App().Press("Down"));
    ASSERT_TRUE(WaitUntil([&] { return Lessons().SelectedText() == L"2. Top row"; }));
    EXPECT_EQ(OpenWindows(), (std::vector<std::wstring>{L"dlgTyping", L"frmMain"}));
    EXPECT_EQ(App().Form(L"dlgTyping").Text(), L"Pick a Lesson or Task");
    EXPECT_EQ(App().Text(L"frmMain", L"chkF11"), L"< F11 >\r\nPreset\r\nMode");
    EXPECT_EQ(App().Text(L"frmMain", L"rtfMain"), L"First line.\r\nSecond line.");
}

TEST_F(Dialogs, FiftyOpeningsLeaveNeitherWindowsNorAtoms) {
    ASSERT_TRUE(OpenPicker("F3"));
    ClosePicker();
    for (const wchar_t* name : {L"dlgTyping", L"tvTasks", L"cmdAddLesson"}) ForgetAtom(name);
    const std::size_t windows = CountWindows(App().Process().Id());
    DWORD handlesBefore = 0;
    GetProcessHandleCount(App().Process().Process(), &handlesBefore);
    for (int round = 0; round < 50; ++round) {
        ASSERT_TRUE(OpenPicker("F3")) << "round " << round;
        ASSERT_NE(GlobalFindAtomW(L"tvTasks"), 0) << "round " << round;
        ClosePicker(round % 2 == 0 ? "Esc" : "Enter");
    }
    // A tooltip or an input method's window may come once; fifty of anything is a leak.
    EXPECT_LT(CountWindows(App().Process().Id()), windows + 10);
    for (const wchar_t* name : {L"dlgTyping", L"tvTasks", L"cmdAddLesson"})
        EXPECT_TRUE(WaitUntil([&] { return GlobalFindAtomW(name) == 0; }))
            << ToUtf8(name) << " is still in the atom table";
    DWORD handlesAfter = 0;
    GetProcessHandleCount(App().Process().Process(), &handlesAfter);
    EXPECT_LT(handlesAfter, handlesBefore + 40);
}

TEST_F(Dialogs, ProgramThatEndsTakesItsAtomsAlong) {
    Leave();
    for (const wchar_t* name : {L"frmMain", L"rtfEdit", L"cmdF3"}) ForgetAtom(name);
    StartUnsigned();
    EXPECT_NE(GlobalFindAtomW(L"rtfEdit"), 0);
    Leave();
    for (const wchar_t* name : {L"frmMain", L"rtfEdit", L"cmdF3"}) EXPECT_EQ(GlobalFindAtomW(name), 0) << ToUtf8(name);
}

}  // namespace
}  // namespace e2e
