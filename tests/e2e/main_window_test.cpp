// The main window: place, captions, modes, first texts, buttons, and the keys that move and type in it.
#include <bit>
#include <cstdlib>

#include "checks.h"
#include "fixture.h"

namespace e2e {
namespace {

constexpr int kNormalDpi = 96;
constexpr COLORREF kBlue = RGB(0, 0, 255);

class MainWindow : public KeystrideTest {
protected:
    void SetUp() override {
        KeystrideTest::SetUp();
        StartUnsigned();
    }

    Window Main() { return App().Form(L"frmMain"); }
    std::wstring Caption(std::wstring_view control) { return App().Text(L"frmMain", control); }

    void ExpectPresetCaptions() {
        EXPECT_EQ(Caption(L"cmdF3"), L"< F3 >\r\nKeyboarding\r\nLesson List");
        EXPECT_EQ(Caption(L"cmdF4"), L"< F4 >\r\nDictation\r\nLesson List");
        EXPECT_EQ(Caption(L"cmdF6"), L"< F6 >\r\nAcademic\r\nLesson List");
        EXPECT_EQ(Caption(L"chkF11"), L"< F11 >\r\nPreset\r\nMode");
        EXPECT_EQ(Main().Descendant(L"chkF11").Send(BM_GETCHECK), BST_UNCHECKED);
    }

    void ExpectTeachersCaptions() {
        EXPECT_EQ(Caption(L"cmdF3"), L"< F3 >\r\nTeacher's\r\nLesson List");
        EXPECT_EQ(Caption(L"cmdF4"), L"< F4 >\r\nTeacher's\r\nDictation List");
        EXPECT_EQ(Caption(L"cmdF6"), L"< F6 >\r\nAcademic\r\nLesson List");
        EXPECT_EQ(Caption(L"chkF11"), L"< F11 >\r\nTeacher's\r\nMode");
        EXPECT_EQ(Main().Descendant(L"chkF11").Send(BM_GETCHECK), BST_CHECKED);
    }

    void ExpectFixedCaptions() {
        EXPECT_EQ(Caption(L"cmdF1"), L"< F1 >\r\nRepeat\r\nInstructions");
        EXPECT_EQ(Caption(L"cmdF2"), L"< F2 >\r\nNext\r\nor Repeat");
        EXPECT_EQ(Caption(L"cmdF5"), L"< F5 >\r\nRace\r\nKeyboarding");
        EXPECT_EQ(Caption(L"cmdF12"), L"< F12 >\r\nProgress\r\nReports");
    }

    bool WaitForMode(std::wstring_view word) {
        return App().WaitForText(L"frmMain", L"chkF11", L"< F11 >\r\n" + std::wstring(word) + L"\r\nMode");
    }

    bool SwitchIsRed() {
        return WaitUntil([&] { return HasRedPixels(Main().Descendant(L"chkF11").ScreenRect()); },
                         std::chrono::seconds(2));
    }
    bool SwitchIsNotRed() {
        return WaitUntil([&] { return !HasRedPixels(Main().Descendant(L"chkF11").ScreenRect()); },
                         std::chrono::seconds(2));
    }

    /// Tabs to a control; the focus starts in the typing area.
    void TabTo(std::wstring_view control) {
        for (int presses = 0; presses < 30 && App().FocusName() != control; ++presses) {
            const Window before = App().Focus();
            ASSERT_TRUE(App().Press("Tab"));
            ASSERT_TRUE(WaitUntil([&] { return !(App().Focus() == before); })) << "Tab does not move on";
        }
        ASSERT_EQ(App().FocusName(), control);
    }
};

TEST_F(MainWindow, HasItsClassTitleAndPlaceAboveTheTaskbar) {
    EXPECT_EQ(Main().ClassName(), L"frmMain");
    EXPECT_EQ(Main().Text(), L"Keystride");
    EXPECT_FALSE(Main().Owner());
    CheckMainWindowPlace(Main());
    EXPECT_FALSE(IsZoomed(Main().Handle()));
}

TEST_F(MainWindow, LayoutSharesTheSpaceFortyToSixty) { CheckMainWindowLayout(Main(), kNormalDpi); }

TEST_F(MainWindow, LayoutFollowsEveryResize) {
    for (const SIZE size : {SIZE{1100, 800}, SIZE{1280, 700}, SIZE{1000, 900}}) {
        SetWindowPos(Main().Handle(), nullptr, 0, 0, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
        ASSERT_TRUE(WaitUntil([&] {
            return std::abs(Main().Descendant(L"rtfEdit").ClientSize().cx - Main().ClientSize().cx) < 40 &&
                   Main().Descendant(L"rtfEdit").RectInParent().bottom > Main().ClientSize().cy - 40;
        }));
        CheckMainWindowLayout(Main(), kNormalDpi);
    }
}

TEST_F(MainWindow, WindowTooLowForItsAreasKeepsTheUpperOneAndCloses) {
    const LONG heightBefore = Main().Descendant(L"rtfMain").ClientSize().cy;
    SetWindowPos(Main().Handle(), nullptr, 0, 0, 1280, 60, SWP_NOZORDER | SWP_NOACTIVATE);
    const auto editHeight = [&] {
        const RECT rect = Main().Descendant(L"rtfEdit").ScreenRect();
        return rect.bottom - rect.top;
    };
    EXPECT_TRUE(WaitUntil([&] { return editHeight() == 0; })) << "the typing area has no room left";
    EXPECT_EQ(Main().Descendant(L"rtfMain").ClientSize().cy, heightBefore);
    Leave();
}

TEST_F(MainWindow, StartsInPresetModeWithItsCaptions) {
    ExpectFixedCaptions();
    ExpectPresetCaptions();
    EXPECT_TRUE(SwitchIsNotRed());
    EXPECT_EQ(Caption(L"lblTitle"), L"Keystride");
    EXPECT_EQ(Caption(L"lblSubTitle"), L"Typing Tutor");
    EXPECT_EQ(Caption(L"fraCommands"), L"Commands");
    EXPECT_EQ(Caption(L"fraAppearance"), L"Appearance");
    EXPECT_EQ(Caption(L"cmdChangeFont"), L"Change Font Size");
    EXPECT_EQ(Caption(L"cmdChangeContrast"), L"Change Contrast");
    EXPECT_EQ(Caption(L"cmdTest1"), L"Test Channel");
}

TEST_F(MainWindow, StartsWithTheDefaultTexts) {
    EXPECT_EQ(Caption(L"rtfLessonTaskInfo"), L"Welcome, learner.");
    EXPECT_EQ(Caption(L"rtfMain"), L"First line.\r\nSecond line.");
    EXPECT_EQ(Caption(L"rtfEdit"), L"");
    const RichText info = App().RichTextOf(L"frmMain", L"rtfLessonTaskInfo");
    EXPECT_EQ(info.FormatOfAll().colour, kBlue);
    EXPECT_TRUE(info.FormatOfAll().oneColour);
    const auto [first, last] = info.Selection();
    EXPECT_EQ(first, last) << "nothing is left selected";
    EXPECT_TRUE(info.ReadOnly());
    EXPECT_TRUE(App().RichTextOf(L"frmMain", L"rtfMain").ReadOnly());
    EXPECT_FALSE(App().RichTextOf(L"frmMain", L"rtfEdit").ReadOnly());
}

TEST_F(MainWindow, ChannelButtonIsHiddenAndTestButtonShown) {
    EXPECT_FALSE(Main().Descendant(L"cmdAccessibility").Shown());
    EXPECT_EQ(Main().Descendant(L"cmdAccessibility").ClassName(), L"Button");
    EXPECT_TRUE(Main().Descendant(L"cmdTest1").Visible());
}

TEST_F(MainWindow, F11SwitchesToTeachersModeAndBack) {
    ASSERT_TRUE(App().Press("F11"));
    ASSERT_TRUE(WaitForMode(L"Teacher's"));
    ExpectTeachersCaptions();
    ExpectFixedCaptions();
    EXPECT_TRUE(SwitchIsRed()) << "teacher's mode is marked by a red switch";
    ASSERT_TRUE(App().Press("F11"));
    ASSERT_TRUE(WaitForMode(L"Preset"));
    ExpectPresetCaptions();
    ExpectFixedCaptions();
    EXPECT_TRUE(SwitchIsNotRed());
    EXPECT_EQ(App().FocusName(), L"rtfEdit");
}

TEST_F(MainWindow, SwitchActsByClickAndBySpaceAsByItsKey) {
    ASSERT_TRUE(Main().Descendant(L"chkF11").Click());
    ASSERT_TRUE(WaitForMode(L"Teacher's"));
    ExpectTeachersCaptions();
    EXPECT_TRUE(SwitchIsRed());
    TabTo(L"chkF11");
    ASSERT_TRUE(App().Press("Space"));
    ASSERT_TRUE(WaitForMode(L"Preset"));
    ExpectPresetCaptions();
    ASSERT_TRUE(App().Press("Shift+F11"));
    ASSERT_TRUE(WaitForMode(L"Teacher's"));
    ExpectTeachersCaptions();
}

TEST_F(MainWindow, F5ShowsTheSingleRowInBlue) {
    ASSERT_TRUE(App().Press("F5"));
    EXPECT_TRUE(App().WaitForText(L"frmMain", L"rtfLessonTaskInfo", L"The single row."));
    const RichText info = App().RichTextOf(L"frmMain", L"rtfLessonTaskInfo");
    EXPECT_TRUE(WaitUntil([&] { return info.FormatOfAll().colour == kBlue && info.FormatOfAll().oneColour; }));
    EXPECT_EQ(Caption(L"rtfMain"), L"First line.\r\nSecond line.");
    EXPECT_EQ(App().FocusName(), L"rtfEdit");
}

TEST_F(MainWindow, F12ShowsTheMultiRowText) {
    ASSERT_TRUE(App().Press("F12"));
    EXPECT_TRUE(App().WaitForText(L"frmMain", L"rtfMain", L"The multi row.\r\nIts second line."));
    EXPECT_EQ(Caption(L"rtfLessonTaskInfo"), L"Welcome, learner.");
    WriteBytes(UserFolder() / L"KSGeneral.ini", GeneralIni({"s", "Written by the scripts.", "d", "d"}));
    ASSERT_TRUE(App().Press("Shift+F12"));
    EXPECT_TRUE(App().WaitForText(L"frmMain", L"rtfMain", L"Written by the scripts."));
}

TEST_F(MainWindow, TextFileThatVanishedIsReportedOnF5AndF12) {
    std::filesystem::remove(UserFolder() / L"KSGeneral.ini");
    for (const char* key : {"F5", "F12"}) {
        ASSERT_TRUE(App().Press(key));
        const auto box = App().WaitForBox();
        ASSERT_TRUE(box) << key;
        EXPECT_EQ(box->text, L"File " + (UserFolder() / L"KSGeneral.ini").wstring() + L"not found.");
        EXPECT_EQ(box->owner, Main());
        EXPECT_TRUE(box->HasStopIcon());
        ASSERT_TRUE(box->Answer(IDOK));
        EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
    }
    EXPECT_EQ(Caption(L"rtfMain"), L"First line.\r\nSecond line.") << "a failed command leaves the text";
}

TEST_F(MainWindow, TestButtonShowsTheChannel) {
    TabTo(L"cmdTest1");
    ASSERT_TRUE(App().Press("Space"));
    const auto box = App().WaitForBox();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->title, L"Keystride");
    EXPECT_EQ(box->text, L"cmdAccessibility:Signon\x05\x04") << "no blank after the colon";
    EXPECT_EQ(box->ButtonIds(), std::vector<int>{IDOK});
    EXPECT_FALSE(box->hasIcon);
    EXPECT_EQ(box->owner, Main());
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(WaitUntil([&] { return !App().TopBox(); }));
    EXPECT_TRUE(App().WaitForFocus(L"cmdTest1"));
}

TEST_F(MainWindow, ChannelButtonAnswersAClickLikeTheTestButton) {
    // A hidden button takes no click of the mouse, but an accessibility tool's press reaches the form all the same.
    const Window channel = Main().Descendant(L"cmdAccessibility");
    ASSERT_TRUE(Main().Post(WM_COMMAND, MAKEWPARAM(channel.Id(), BN_CLICKED), std::bit_cast<LPARAM>(channel.Handle())));
    const auto box = App().WaitForBox();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->text, L"cmdAccessibility:Signon\x05\x04");
    EXPECT_TRUE(box->Answer(IDOK));
}

TEST_F(MainWindow, ButtonsWithoutACommandDoNothingWhenClicked) {
    for (const wchar_t* name : {L"cmdF1", L"cmdF2", L"cmdF5", L"cmdF12"}) ASSERT_TRUE(Main().Descendant(name).Click());
    ASSERT_TRUE(KeysDealtWith());
    EXPECT_EQ(OpenWindows(), std::vector<std::wstring>{L"frmMain"});
    EXPECT_EQ(Caption(L"rtfMain"), L"First line.\r\nSecond line.");
    ExpectPresetCaptions();
}

TEST_F(MainWindow, LessonButtonOpensTheListAndGetsTheFocusBack) {
    TabTo(L"cmdF3");
    ASSERT_TRUE(App().Press("Space"));
    ASSERT_TRUE(App().WaitForForm(L"dlgTyping"));
    EXPECT_EQ(App().Form(L"dlgTyping").Text(), L"Pick a Lesson or Task");
    ClosePicker();
    EXPECT_TRUE(App().WaitForFocus(L"cmdF3"));
    ASSERT_TRUE(App().Press("F11"));
    ASSERT_TRUE(WaitForMode(L"Teacher's"));
    ASSERT_TRUE(App().Press("Space"));
    ASSERT_TRUE(App().WaitForForm(L"dlgTyping"));
    EXPECT_EQ(App().Form(L"dlgTyping").Text(), L"Pick a Teacher's Lesson or Task");
    ClosePicker();
    EXPECT_TRUE(App().WaitForFocus(L"cmdF3"));
}

TEST_F(MainWindow, TypingAreaHasTheFocusAndTakesLinesAndTabs) {
    EXPECT_EQ(App().FocusName(), L"rtfEdit");
    ASSERT_TRUE(App().Type(L"ab"));
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(App().Type(L"c"));
    ASSERT_TRUE(App().Press("Ctrl+Tab"));
    ASSERT_TRUE(App().Type(L"d"));
    EXPECT_TRUE(App().WaitForText(L"frmMain", L"rtfEdit", L"ab\r\nc\td")) << Readable(Caption(L"rtfEdit"));
    EXPECT_EQ(App().FocusName(), L"rtfEdit");
}

TEST_F(MainWindow, EscDoesNothing) {
    ASSERT_TRUE(App().Type(L"ab"));
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(App().Type(L"c"));
    EXPECT_TRUE(App().WaitForText(L"frmMain", L"rtfEdit", L"abc"));
    TabTo(L"cmdF3");
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(KeysDealtWith());
    EXPECT_EQ(OpenWindows(), std::vector<std::wstring>{L"frmMain"});
    EXPECT_EQ(App().FocusName(), L"cmdF3");
}

TEST_F(MainWindow, ReadOnlyAreasAreReadWithTheArrowKeys) {
    TabTo(L"rtfMain");
    ASSERT_TRUE(App().Press("Ctrl+Home"));
    ASSERT_TRUE(App().Press("Down"));
    const RichText text = App().RichTextOf(L"frmMain", L"rtfMain");
    EXPECT_TRUE(WaitUntil([&] { return text.Selection() == std::pair(12, 12); })) << text.Selection().first;
    ASSERT_TRUE(App().Type(L"x"));
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(KeysDealtWith());
    EXPECT_EQ(Caption(L"rtfMain"), L"First line.\r\nSecond line.");
}

TEST_F(MainWindow, AltF4EndsTheProgram) {
    Leave();
    EXPECT_FALSE(FindWindowW(L"frmMain", nullptr));
}

TEST_F(MainWindow, CloseMessageEndsTheProgram) {
    ASSERT_TRUE(Main().Post(WM_CLOSE));
    ASSERT_TRUE(App().Process().WaitForEnd());
    EXPECT_EQ(App().Process().ExitCode(), 0U);
}

}  // namespace
}  // namespace e2e
