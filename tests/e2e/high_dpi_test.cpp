// The windows on a display of twice the usual resolution: same rules in twips, twice the pixels.
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
}

}  // namespace
}  // namespace e2e
