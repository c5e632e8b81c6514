// The windows on a display of twice the usual resolution: same rules in twips, twice the pixels.
#include <array>

#include "checks.h"
#include "fixture.h"

namespace e2e {
namespace {

constexpr int kDpi = 192;
// At this resolution the tests' desktop shows as much as one of 1024 x 819 at the usual one: the least that must do.
constexpr int kTightDpi = 120;

class HighDpi : public KeystrideTest {
protected:
    void SetUp() override {
        if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr)
            GTEST_SKIP() << "only Wine takes another resolution without a new session";
        KeystrideTest::SetUp();
        Use(kDpi);
    }

    void Use(DWORD dpi) {
        resolution_.reset();
        resolution_.emplace(dpi);
    }

    static void ExpectReadable(const Window& dialog, int dpi) {
        ASSERT_TRUE(dialog);
        CheckDialogPlace(dialog, dpi);
        CheckNothingOverlaps(dialog);
        CheckEverythingInside(dialog);
        CheckNothingClipped(dialog, 16, dpi);
    }

    /// The screens that must do, with a taskbar of 40 pixels at the usual resolution.
    struct Screen {
        int dpi;
        int width;
        int height;
    };
    static constexpr std::array<Screen, 3> kScreens{{{96, 1024, 768}, {144, 1366, 768}, {192, 1920, 1080}}};

    /// The profile as large as it would be on that screen, its texts in a font of that size at least.
    void ExpectProfileReadable(const Screen& screen, int points) {
        Use(static_cast<DWORD>(screen.dpi));
        ASSERT_NO_FATAL_FAILURE(StartUnsigned());
        const Window profile = OpenForm("Ctrl+Alt+Shift+F12", L"dlgStudentProfile", L"cmboBirthYear");
        const int margins = Pixels(600, screen.dpi);
        SetWindowPos(profile.Handle(), nullptr, 0, 0, screen.width - margins,
                     screen.height - margins - MulDiv(40, screen.dpi, 96),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSENDCHANGING);
        CheckNothingOverlaps(profile);
        CheckEverythingInside(profile);
        CheckNothingClipped(profile, points, screen.dpi);
        EXPECT_EQ(profile.Descendant(L"rtfLessonTaskInfo").Style() & WS_VSCROLL, 0U) << "the short text is seen whole";
        // Wide enough for a name of some length in each box.
        for (const wchar_t* box : {L"txtFood", L"txtFriend", L"txtAnimal", L"txtTVShow"})
            EXPECT_GE(profile.Descendant(box).ClientSize().cx, Pixels(1400, screen.dpi)) << ToUtf8(box);
        ASSERT_NO_FATAL_FAILURE(CloseForm(L"dlgStudentProfile"));
        ASSERT_NO_FATAL_FAILURE(Leave());
    }

private:
    std::optional<DisplayResolution> resolution_;
};

TEST_F(HighDpi, MainWindowKeepsItsPlaceAndLayout) {
    StartUnsigned();
    const Window main = App().Form(L"frmMain");
    CheckMainWindowPlace(main);
    CheckMainWindowLayout(main, kDpi);
    CheckNothingOverlaps(main);
}

TEST_F(HighDpi, ButtonsGrowWithTheirFont) {
    StartUnsigned();
    const RECT button = App().Control(L"frmMain", L"cmdF3").ScreenRect();
    const int threeLines = 3 * MulDiv(16, kDpi, 72);
    EXPECT_GE(button.bottom - button.top, threeLines);
    const Window picker = OpenPicker("F3");
    const RECT okButton = picker.Descendant(L"OKButton").ScreenRect();
    EXPECT_GE(okButton.bottom - okButton.top, MulDiv(16, kDpi, 72));
}

TEST_F(HighDpi, SignOnDialogFitsTheScreen) {
    Start();
    const Window dialog = App().WaitForForm(L"dlgLogin");
    ASSERT_TRUE(dialog);
    CheckNothingOverlaps(dialog);
    CheckEverythingInside(dialog);
    CheckNothingClipped(dialog, 16, kDpi);
    const RECT screen = ScreenAboveTaskbar();
    const RECT rect = dialog.ScreenRect();
    EXPECT_TRUE(rect.left >= screen.left && rect.top >= screen.top && rect.right <= screen.right &&
                rect.bottom <= screen.bottom);
}

TEST_F(HighDpi, LessonListKeepsItsPlaceAndLayout) {
    StartUnsigned();
    for (const char* chord : {"F3", "F7"}) {
        const Window picker = OpenPicker(chord);
        CheckDialogPlace(picker, kDpi);
        CheckPickerLayout(picker, kDpi);
        CheckNothingOverlaps(picker);
        CheckEverythingInside(picker);
        CheckNothingClipped(picker, 16, kDpi);
        ClosePicker();
    }
}

TEST_F(HighDpi, ListsAndLetterDialogsShowEverything) {
    StartUnsigned();
    ASSERT_NO_FATAL_FAILURE(ExpectReadable(OpenForm("F6", L"dlgAcademics", L"tvAcademics"), kDpi));
    ASSERT_NO_FATAL_FAILURE(ExpectReadable(OpenForm("Enter", L"dlgQuizzes", L"lstQuizzes"), kDpi));
    ASSERT_NO_FATAL_FAILURE(CloseForm(L"dlgQuizzes"));
    ASSERT_NO_FATAL_FAILURE(ExpectReadable(OpenForm("Ctrl+U", L"dlgPreferences", L"lstPreferences"), kDpi));
    ASSERT_NO_FATAL_FAILURE(CloseForm(L"dlgPreferences"));
    for (const char* chord : {"Ctrl+Alt+Shift+F10", "Ctrl+Alt+Shift+F11"}) {
        ASSERT_NO_FATAL_FAILURE(ExpectReadable(OpenForm(chord, L"dlgGeneral", L"txtGeneral"), kDpi));
        ASSERT_NO_FATAL_FAILURE(CloseForm(L"dlgGeneral"));
    }
}

TEST_F(HighDpi, StudentProfileShowsEverythingOnEachScreenThatMustDo) {
    for (const Screen& screen : kScreens) ASSERT_NO_FATAL_FAILURE(ExpectProfileReadable(screen, 16)) << screen.dpi;
}

TEST_F(HighDpi, StudentProfileShowsItsShippedTextsOnThemToo) {
    // They are long: on a small screen the dialog takes a smaller font rather than cut them.
    WriteBytes(CommonFolder() / L"KSGeneral.ini", ReadBytes(SourceFolder() / L"data" / L"KSGeneral.ini"));
    for (const Screen& screen : kScreens) ASSERT_NO_FATAL_FAILURE(ExpectProfileReadable(screen, 13)) << screen.dpi;
}

TEST_F(HighDpi, SmallestScreenShowsEverything) {
    Use(kTightDpi);
    StartUnsigned();
    const Window main = App().Form(L"frmMain");
    CheckMainWindowLayout(main, kTightDpi);
    CheckNothingOverlaps(main);
    CheckEverythingInside(main);
    // The main window's buttons take a smaller font where the screen is narrow, but stay readable.
    CheckNothingClipped(main, 12, kTightDpi);
    const Window picker = OpenPicker("F7");
    CheckPickerLayout(picker, kTightDpi);
    CheckNothingOverlaps(picker);
    CheckEverythingInside(picker);
    CheckNothingClipped(picker, 16, kTightDpi);
    ClosePicker();
    ExpectReadable(OpenForm("Ctrl+Alt+Shift+F12", L"dlgStudentProfile", L"cmboBirthYear"), kTightDpi);
}

}  // namespace
}  // namespace e2e
