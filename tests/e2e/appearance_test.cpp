// Font size and contrast of the main window's text areas, for text that stands there and text that comes later.
#include "fixture.h"

namespace e2e {
namespace {

constexpr COLORREF kBlue = RGB(0, 0, 255);

class Appearance : public KeystrideTest {
protected:
    void SetUp() override {
        KeystrideTest::SetUp();
        StartUnsigned();
    }

    RichText Edit() { return App().RichTextOf(L"frmMain", L"rtfEdit"); }
    RichText Text() { return App().RichTextOf(L"frmMain", L"rtfMain"); }
    RichText Info() { return App().RichTextOf(L"frmMain", L"rtfLessonTaskInfo"); }

    /// A click has left the focus on its button: the keyboard goes back to the typing area.
    void Type(std::wstring_view text, std::wstring_view expected) {
        for (int presses = 0; presses < 20 && App().FocusName() != L"rtfEdit"; ++presses) {
            const Window before = App().Focus();
            ASSERT_TRUE(App().Press("Tab"));
            ASSERT_TRUE(WaitUntil([&] { return !(App().Focus() == before); }));
        }
        ASSERT_TRUE(App().Press("Ctrl+End"));
        ASSERT_TRUE(App().Type(text));
        ASSERT_TRUE(App().WaitForText(L"frmMain", L"rtfEdit", expected));
    }

    void Click(std::wstring_view button) {
        ASSERT_TRUE(App().Control(L"frmMain", button).Click());
        ASSERT_TRUE(App().WaitForFocus(button)) << "a click takes the focus along";
    }

    void ExpectPoints(int points) {
        EXPECT_TRUE(WaitUntil([&] { return Edit().FormatOfAll().points == points && Edit().FormatOfAll().oneSize; },
                              std::chrono::seconds(3)))
            << "the typing area has " << Edit().FormatOfAll().points << " points instead of " << points;
    }

    static void ExpectBackground(const RichText& area, int systemColour) {
        const COLORREF expected = GetSysColor(systemColour);
        EXPECT_TRUE(WaitUntil([&] { return area.Background() == expected; }, std::chrono::seconds(3)))
            << "the background is " << std::hex << area.Background() << " instead of " << expected;
    }

    void SwitchContrast(bool on) {
        Click(L"cmdChangeContrast");
        ExpectBackground(Edit(), on ? COLOR_WINDOWTEXT : COLOR_WINDOW);
        EXPECT_TRUE(
            WaitUntil([&] { return Edit().FormatOfAll().colour == GetSysColor(on ? COLOR_WINDOW : COLOR_WINDOWTEXT); },
                      std::chrono::seconds(3)));
    }
};

TEST_F(Appearance, FontCyclesFromTheStartSizeOver48And72AndBack) {
    Type(L"abc", L"abc");
    const int start = Edit().FormatOfAll().points;
    EXPECT_GT(start, 0);
    EXPECT_LT(start, 48);
    for (int round = 0; round < 2; ++round) {
        for (const int points : {48, 72, start}) {
            Click(L"cmdChangeFont");
            ExpectPoints(points);
        }
    }
}

TEST_F(Appearance, FontSizeHoldsForTextTypedLater) {
    Click(L"cmdChangeFont");
    Type(L"abc", L"abc");
    ExpectPoints(48);
    Click(L"cmdChangeFont");
    Type(L"d", L"abcd");
    ExpectPoints(72);
}

TEST_F(Appearance, FontSizeHoldsAfterTheAreaWasEmptied) {
    Type(L"abc", L"abc");
    Click(L"cmdChangeFont");
    ExpectPoints(48);
    ASSERT_TRUE(OpenPicker("F3"));
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(App().WaitForNoForm(L"dlgTyping"));
    ASSERT_TRUE(App().WaitForText(L"frmMain", L"rtfEdit", L""));
    Type(L"new", L"new");
    ExpectPoints(48);
}

TEST_F(Appearance, ChangingTheFontTouchesNeitherTextNorOtherAreas) {
    Type(L"abc", L"abc");
    const int points = Text().FormatOfAll().points;
    Click(L"cmdChangeFont");
    ExpectPoints(48);
    EXPECT_EQ(Text().FormatOfAll().points, points);
    EXPECT_EQ(App().Text(L"frmMain", L"rtfEdit"), L"abc");
    const auto [first, last] = Edit().Selection();
    EXPECT_EQ(first, last);
}

TEST_F(Appearance, ContrastSwitchesTheColoursOnAndOff) {
    Type(L"abc", L"abc");
    ExpectBackground(Edit(), COLOR_WINDOW);
    SwitchContrast(true);
    ExpectBackground(Text(), COLOR_WINDOWTEXT);
    EXPECT_EQ(Text().FormatOfAll().colour, GetSysColor(COLOR_3DLIGHT));
    EXPECT_EQ(Edit().FormatOfAll().colour, GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(Info().FormatOfAll().colour, kBlue);
    SwitchContrast(false);
    ExpectBackground(Text(), COLOR_3DLIGHT);
    EXPECT_EQ(Text().FormatOfAll().colour, GetSysColor(COLOR_WINDOWTEXT));
    EXPECT_EQ(Edit().FormatOfAll().colour, GetSysColor(COLOR_WINDOWTEXT));
    EXPECT_EQ(Info().FormatOfAll().colour, kBlue);
}

TEST_F(Appearance, FontChangeInHighContrastKeepsTheContrastColour) {
    Type(L"abc", L"abc");
    SwitchContrast(true);
    Click(L"cmdChangeFont");
    ExpectPoints(48);
    ExpectBackground(Edit(), COLOR_WINDOWTEXT);
    EXPECT_EQ(Edit().FormatOfAll().colour, GetSysColor(COLOR_WINDOW));
    EXPECT_TRUE(Edit().FormatOfAll().oneColour);
}

TEST_F(Appearance, ContrastHoldsForTextThatComesLater) {
    SwitchContrast(true);
    Type(L"later", L"later");
    EXPECT_EQ(Edit().FormatOfAll().colour, GetSysColor(COLOR_WINDOW));
    EXPECT_TRUE(Edit().FormatOfAll().oneColour);
    ASSERT_TRUE(App().Press("F12"));
    ASSERT_TRUE(App().WaitForText(L"frmMain", L"rtfMain", L"The multi row.\r\nIts second line."));
    EXPECT_TRUE(WaitUntil([&] { return Text().FormatOfAll().colour == GetSysColor(COLOR_3DLIGHT); }));
    EXPECT_TRUE(Text().FormatOfAll().oneColour);
    ASSERT_TRUE(OpenPicker("F3"));
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(App().WaitForNoForm(L"dlgTyping"));
    Type(L"again", L"again");
    EXPECT_EQ(Edit().FormatOfAll().colour, GetSysColor(COLOR_WINDOW));
}

TEST_F(Appearance, InformationRowIsBlueAfterF5InHighContrast) {
    SwitchContrast(true);
    ASSERT_TRUE(App().Press("F5"));
    ASSERT_TRUE(App().WaitForText(L"frmMain", L"rtfLessonTaskInfo", L"The single row."));
    EXPECT_TRUE(WaitUntil([&] { return Info().FormatOfAll().colour == kBlue && Info().FormatOfAll().oneColour; }));
}

TEST_F(Appearance, AreasAreWrittenInArial) {
    Type(L"abc", L"abc");
    EXPECT_EQ(Edit().FormatOfAll().face, L"Arial");
    EXPECT_EQ(Text().FormatOfAll().face, L"Arial");
    EXPECT_EQ(Info().FormatOfAll().face, L"Arial");
}

}  // namespace
}  // namespace e2e
