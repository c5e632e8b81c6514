// Layout arithmetic: units, the area above the taskbar, dialogs, the picker, the main window, rows of buttons.
#include "win32/layout.h"

#include <ostream>

#include <gtest/gtest.h>

namespace win32 {

// GoogleTest prints a box by this.
static void PrintTo(const Box& box, std::ostream* stream) {
    *stream << '{' << box.left << ", " << box.top << ", " << box.width << ", " << box.height << '}';
}

}  // namespace win32

namespace unit {
namespace {

using namespace win32;

constexpr Box kScreen{0, 0, 1280, 1024};

TEST(Twips, ArePixelsOfTheDpiRoundedToTheNearest) {
    EXPECT_EQ(PixelsToTwips(40, 96), 600);
    EXPECT_EQ(PixelsToTwips(40, 192), 300);
    EXPECT_EQ(TwipsToPixels(600, 96), 40);
    EXPECT_EQ(TwipsToPixels(600, 144), 60);
    EXPECT_EQ(TwipsToPixels(7, 96), 0);
    EXPECT_EQ(TwipsToPixels(8, 96), 1);
    EXPECT_EQ(TwipsToPixels(5, 192), 1);
    EXPECT_EQ(TwipsToPixels(-600, 96), -40);
    EXPECT_EQ(TwipsToPixels(-7, 96), 0);
    EXPECT_EQ(TwipsToPixels(-8, 96), -1);
}

TEST(AreaAboveTaskbar, EndsAtATaskbarAlongTheBottom) {
    // The work area is not asked then.
    EXPECT_EQ(AreaAboveTaskbar(kScreen, Box{0, 984, 1280, 40}, Box{5, 5, 100, 100}), (Box{0, 0, 1280, 984}));
    const Box second{100, 50, 800, 600};
    EXPECT_EQ(AreaAboveTaskbar(second, Box{100, 620, 800, 30}, Box{}), (Box{100, 50, 800, 570}));
}

TEST(AreaAboveTaskbar, IsTheWorkAreaWhenTheTaskbarIsAtAnotherEdge) {
    const Box top{0, 40, 1280, 984};
    EXPECT_EQ(AreaAboveTaskbar(kScreen, Box{0, 0, 1280, 40}, top), top);
    const Box left{60, 0, 1220, 1024};
    EXPECT_EQ(AreaAboveTaskbar(kScreen, Box{0, 0, 60, 1024}, left), left);
    const Box right{0, 0, 1220, 1024};
    EXPECT_EQ(AreaAboveTaskbar(kScreen, Box{1220, 0, 60, 1024}, right), right);
}

TEST(AreaAboveTaskbar, IsTheWorkAreaWhenTheTaskbarIsHiddenOrAbsent) {
    const Box work{0, 0, 1280, 1022};
    EXPECT_EQ(AreaAboveTaskbar(kScreen, std::nullopt, work), work);
    EXPECT_EQ(AreaAboveTaskbar(kScreen, Box{0, 1022, 1280, 40}, work), work) << "slid out of the screen";
    EXPECT_EQ(AreaAboveTaskbar(kScreen, Box{0, 1024, 1280, 0}, work), work) << "without a size";
    EXPECT_EQ(AreaAboveTaskbar(kScreen, Box{}, work), work);
    EXPECT_EQ(AreaAboveTaskbar(kScreen, Box{0, 0, 1280, 1024}, work), work) << "over the whole screen";
    EXPECT_EQ(AreaAboveTaskbar(kScreen, Box{400, 984, 300, 40}, work), work) << "a part of the edge only";
}

TEST(PlaceDialog, LeavesMarginsOf300Twips) {
    EXPECT_EQ(PlaceDialog({0, 0, 1280, 984}, 96), (Box{20, 20, 1240, 944}));
    EXPECT_EQ(PlaceDialog({0, 0, 1280, 984}, 192), (Box{40, 40, 1200, 904}));
    EXPECT_EQ(PlaceDialog({60, 30, 1000, 700}, 144), (Box{90, 60, 940, 640}));
}

TEST(PlaceDialog, WithATaskbarOf600TwipsTheHeightIsTheScreensMinus1200) {
    // 40 pixels at 15 twips a pixel.
    const Box area = AreaAboveTaskbar(kScreen, Box{0, 984, 1280, 40}, kScreen);
    const Box dialog = PlaceDialog(area, 96);
    EXPECT_EQ(PixelsToTwips(dialog.height, 96), PixelsToTwips(1024, 96) - 1200);
    EXPECT_EQ(PixelsToTwips(dialog.width, 96), PixelsToTwips(1280, 96) - 600);
    EXPECT_EQ(PixelsToTwips(dialog.left, 96), 300);
    EXPECT_EQ(PixelsToTwips(dialog.top, 96), 300);
}

TEST(LayOutPicker, PlacesTheMainControlAndTheButtonRow) {
    const PickerLayout layout = LayOutPicker(18000, 14000, 200, 400, 0);
    EXPECT_EQ(layout.main, (Box{200, 200, 17200, 13100}));
    EXPECT_EQ(layout.buttonTop, 200 + 13100 + 100);
    // A button height and a quarter of one stay below the row's top, and half a height below the row.
    EXPECT_EQ(14000 - layout.buttonTop - 400, 200);
}

TEST(LayOutPicker, WhatStandsAboveAndBelowTheMainControlTakesItsHeight) {
    const PickerLayout plain = LayOutPicker(18000, 14000, 200, 400, 0);
    const PickerLayout labelled = LayOutPicker(18000, 14000, 900, 400, 350);
    EXPECT_EQ(labelled.main, (Box{200, 900, 17200, 13100 - 700 - 350}));
    EXPECT_EQ(labelled.buttonTop, plain.buttonTop) << "the row stays where it is";
}

TEST(LayOutPicker, NothingGetsANegativeSize) {
    const PickerLayout layout = LayOutPicker(500, 600, 200, 400, 0);
    EXPECT_EQ(layout.main.width, 0);
    EXPECT_EQ(layout.main.height, 0);
    EXPECT_EQ(layout.buttonTop, 300);
}

MainLayoutInput MainInput(int height) {
    MainLayoutInput input;
    input.width = 19000;
    input.height = height;
    input.titleHeight = 400;
    input.commandsHeight = 1500;
    input.infoHeight = 800;
    input.textHeight = 777;
    return input;
}

TEST(LayOutMain, SharesTheRest40To60) {
    // 12720 less title, commands, information and 20.
    const MainLayout layout = LayOutMain(MainInput(12720));
    EXPECT_EQ(layout.width, 19000);
    EXPECT_EQ(layout.infoTop, 1900);
    EXPECT_EQ(layout.textTop, 1900 + 800 + 5);
    EXPECT_EQ(layout.textHeight, 4000);
    EXPECT_EQ(layout.editTop, 2705 + 4000 + 5);
    EXPECT_EQ(layout.editHeight, 6000);
}

TEST(LayOutMain, ARestOf1IsTheSmallestThatIsShared) {
    const MainLayout one = LayOutMain(MainInput(2721));
    EXPECT_EQ(one.textHeight, 0);
    EXPECT_EQ(one.editHeight, 0);
    EXPECT_EQ(one.editTop, one.textTop + 5);
    const MainLayout ten = LayOutMain(MainInput(2730));
    EXPECT_EQ(ten.textHeight, 4);
    EXPECT_EQ(ten.editHeight, 6);
}

TEST(LayOutMain, BelowARestOf1TheTextKeepsItsHeightAndTheTypingAreaHasNone) {
    for (const int height : {2720, 2719, 1000, 0}) {
        const MainLayout layout = LayOutMain(MainInput(height));
        EXPECT_EQ(layout.textHeight, 777) << height;
        EXPECT_EQ(layout.editTop, layout.textTop + 777 + 5) << height;
        EXPECT_EQ(layout.editHeight, 0) << height;
    }
}

TEST(FitButtons, TakesNoFormBetweenOneLineAndTheNarrowest) {
    const std::vector<CaptionWidths> captions{{{30, 50, 20, 40}, 5}};
    EXPECT_EQ(FitButtons(captions, 155, 0, 10).widths, (std::vector<int>{155}));
    const ButtonRow row = FitButtons(captions, 154, 0, 10);
    EXPECT_EQ(row.widths, (std::vector<int>{50}));
    EXPECT_EQ(row.lines, 4U);
}

TEST(FitButtons, ACaptionOfOneWordHasOneWidthAndOneOfNoneHasItsPadding) {
    const std::vector<CaptionWidths> captions{{{70}, 5}, {{}, 5}};
    for (const int available : {1000, 10}) {
        const ButtonRow row = FitButtons(captions, available, 20, 10);
        EXPECT_EQ(row.lines, 1U);
        EXPECT_EQ(row.widths, (std::vector<int>{90, 20}));
    }
}

TEST(FitButtons, StaysOnOneLineWhileThereIsRoom) {
    const std::vector<CaptionWidths> captions{{{30, 50}, 5}, {{40}, 5}};
    const ButtonRow row = FitButtons(captions, 85 + 20 + 40 + 20 + 10, 20, 10);
    EXPECT_EQ(row.lines, 1U);
    EXPECT_EQ(row.widths, (std::vector<int>{105, 60}));
}

TEST(FitButtons, WrapsWhenOnePixelIsMissing) {
    const std::vector<CaptionWidths> captions{{{30, 50}, 5}, {{40}, 5}};
    const ButtonRow row = FitButtons(captions, 85 + 20 + 40 + 20 + 10 - 1, 20, 10);
    EXPECT_EQ(row.lines, 2U);
    EXPECT_EQ(row.widths, (std::vector<int>{70, 60}));
}

TEST(FitButtons, WhereNothingFitsItIsAsNarrowAsItGets) {
    const std::vector<CaptionWidths> captions{{{30, 50, 20}, 5}, {{40}, 5}};
    const ButtonRow row = FitButtons(captions, 10, 20, 10);
    EXPECT_EQ(row.lines, 3U);
    EXPECT_EQ(row.widths, (std::vector<int>{70, 60}));
}

TEST(FitButtons, TwoWordsThatFitOnlyIntoThePaddingGetNoRoomForIt) {
    // "OK / Save Dictation": the first three words are a little wider than the last.
    const std::vector<CaptionWidths> captions{{{24, 6, 48, 80}, 6}};
    const ButtonRow row = FitButtons(captions, 10, 30, 10);
    EXPECT_EQ(row.widths, (std::vector<int>{24 + 6 + 6 + 6 + 48}));
    EXPECT_EQ(row.lines, 3U) << "OK /, Save, Dictation";
}

TEST(FitButtons, OfNoButtonsIsEmpty) { EXPECT_TRUE(FitButtons({}, 100, 20, 10).widths.empty()); }

}  // namespace
}  // namespace unit
