// Forms and their controls on real windows: names, errors, fonts, colours, layout, keys, notices, and what is spoken.
#include "win32/form.h"

#include <algorithm>
#include <string>
#include <vector>

#include "lessons/dlgTyping.h"
#include "shell/dlgLogin.h"
#include "shell/frmMain.h"
#include "shell/modGlobals.h"
#include "unit/data_set.h"
#include "unit/fixture.h"
#include "unit/seams.h"
#include "unit/test_forms.h"
#include "win32/layout.h"
#include "win32/message_box.h"

namespace unit {
namespace {

namespace fs = std::filesystem;

constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kRed = RGB(255, 0, 0);

bool IsNameKnown(const wchar_t* name) { return GlobalFindAtomW(name) != 0; }

/// A key that goes down in a window, as the message loop hands it to the preview.
bool Press(win32::Form& form, HWND window, int key, const win32::Modifiers& held = {}) {
    const HeldKeys keys(held);
    MSG message{};
    message.hwnd = window;
    message.message = held.alt ? WM_SYSKEYDOWN : WM_KEYDOWN;
    message.wParam = static_cast<WPARAM>(key);
    return form.PreviewKey(message);
}

bool Press(win32::Form& form, int key, const win32::Modifiers& held = {}) {
    return Press(form, form.Handle(), key, held);
}

// ---- loading and unloading
// -------------------------------------------------------------------------------------------

TEST(Form, CarriesItsNameAndThoseOfItsControlsWhileItIsLoaded) {
    TreeForm form;
    EXPECT_FALSE(form.IsLoaded());
    EXPECT_FALSE(IsNameKnown(L"unitTreeForm"));
    form.Load();
    EXPECT_EQ(NameProperty(form.Handle()), L"unitTreeForm");
    EXPECT_EQ(NameProperty(form.tvTasks.Handle()), L"unitTree");
    EXPECT_EQ(NameProperty(form.lblNotice.Handle()), L"unitNotice");
    EXPECT_EQ(NameProperty(form.cmdAddLesson.Handle()), L"unitAdd");
    EXPECT_EQ(NameProperty(GetDlgItem(form.Handle(), IDC_TYPING_TASKS_NAME)), L"") << "it only names its neighbour";
}

TEST(Form, ReleasesTheNamesWhenItGoes) {
    TreeForm form;
    form.Load();
    ASSERT_TRUE(IsNameKnown(L"unitTreeForm"));
    ASSERT_TRUE(IsNameKnown(L"unitTree"));
    const HWND window = form.Handle();
    form.Unload();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(form.IsLoaded());
    EXPECT_FALSE(IsNameKnown(L"unitTreeForm"));
    EXPECT_FALSE(IsNameKnown(L"unitTree"));
    EXPECT_FALSE(IsNameKnown(L"unitNotice"));
    EXPECT_EQ(form.unloads, 1);
}

TEST(Form, RemovesThePropertyBeforeTheWindowIsGone) {
    TreeForm form;
    form.Load();
    const HWND tree = form.tvTasks.Handle();
    // What is left in the list when the window itself goes would be a name of nothing.
    std::wstring atDestroy = L"not asked";
    struct Seen {
        static LRESULT CALLBACK Note(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                     DWORD_PTR data) {
            if (message == WM_NCDESTROY) *reinterpret_cast<std::wstring*>(data) = NameProperty(window);
            return DefSubclassProc(window, message, wParam, lParam);
        }
    };
    ASSERT_TRUE(SetWindowSubclass(tree, &Seen::Note, 1, reinterpret_cast<DWORD_PTR>(&atDestroy)));
    form.Unload();
    EXPECT_EQ(atDestroy, L"");
}

TEST(Form, LoadsAgainAfterItWasUnloaded) {
    TreeForm form;
    for (int round = 0; round < 3; ++round) {
        form.Load();
        form.tvTasks.Add(nullptr, L"L01", L"one");
        EXPECT_EQ(form.tvTasks.Count(), 1);
        form.Unload();
    }
    EXPECT_EQ(form.unloads, 3);
    EXPECT_FALSE(IsNameKnown(L"unitTreeForm"));
}

TEST(Form, LoadDoesNothingWhenTheWindowExists) {
    TreeForm form;
    int loads = 0;
    form.whenLoaded = [&] { ++loads; };
    form.Load();
    const HWND window = form.Handle();
    form.Load();
    EXPECT_EQ(form.Handle(), window);
    EXPECT_EQ(loads, 1);
}

TEST(Form, StartsHidden) {
    TreeForm form;
    form.Load();
    EXPECT_FALSE(IsWindowVisible(form.Handle()));
}

TEST(Form, AnErrorWhileLoadingDestroysTheWindowAndGoesOn) {
    TreeForm form;
    HWND window = nullptr;
    form.whenLoaded = [&] {
        window = form.Handle();
        throw win32::OverflowError(L"unit");
    };
    const win32::AppError error = RaisedBy([&] { form.Load(); });
    EXPECT_EQ(error.Number(), 6);
    EXPECT_EQ(error.Source(), L"unit");
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(form.IsLoaded());
    EXPECT_FALSE(IsNameKnown(L"unitTreeForm"));
    form.whenLoaded = nullptr;
    form.Load();
    EXPECT_TRUE(form.IsLoaded());
}

TEST(Form, IsOwnedByTheActiveForm) {
    TreeForm owner;
    owner.Load();
    RichForm second;
    {
        const win32::ActiveScope active(owner);
        EXPECT_EQ(win32::ActiveForm(), &owner);
        second.Load();
    }
    EXPECT_EQ(win32::ActiveForm(), nullptr);
    EXPECT_EQ(GetWindow(second.Handle(), GW_OWNER), owner.Handle());
    second.Unload();
}

TEST(Form, UnloadsAtTheEndOfAScopeThatFails) {
    TreeForm form;
    const auto fail = [&] {
        const win32::UnloadAtExit unload(form);
        form.Load();
        throw win32::OverflowError(L"unit");
    };
    EXPECT_THROW(fail(), win32::AppError);
    EXPECT_FALSE(form.IsLoaded());
}

TEST(Form, IsNotClosedBehindAModalDialog) {
    TreeForm form;
    form.Load();
    SendMessageW(form.Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(form.closes, 1);
    EnableWindow(form.Handle(), FALSE);
    SendMessageW(form.Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(form.closes, 1);
    EXPECT_TRUE(form.IsLoaded());
}

TEST(Form, ItsFontsAreArialInTheSizeOfEachControl) {
    TreeForm form;
    form.Load();
    const auto fontOf = [](HWND window) {
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
        return font;
    };
    EXPECT_STREQ(fontOf(form.tvTasks.Handle()).lfFaceName, L"Arial");
    EXPECT_EQ(fontOf(form.tvTasks.Handle()).lfHeight, -MulDiv(16, form.Dpi(), 72));
    form.SetFontPoints(form.cmdAddLesson, 9);
    EXPECT_EQ(fontOf(form.cmdAddLesson.Handle()).lfHeight, -MulDiv(9, form.Dpi(), 72));
    EXPECT_EQ(fontOf(form.tvTasks.Handle()).lfHeight, -MulDiv(16, form.Dpi(), 72));
}

// ---- the boundary that no error crosses
// ------------------------------------------------------------------------------

TEST(ErrorReport, AnErrorInAHandlerIsOneBoxAndTheFormGoesOn) {
    TreeForm form;
    form.Load();
    form.whenTimed = [] { throw win32::AppError(1, L"unit", L"File C:\\xnot found."); };
    const BoxWatch watch;
    SendMessageW(form.Handle(), WM_TIMER, 1, 0);
    ASSERT_EQ(watch.boxes.size(), 1U);
    EXPECT_EQ(watch.boxes[0].text, L"File C:\\xnot found.");
    EXPECT_EQ(watch.boxes[0].title, L"Keystride");
    EXPECT_EQ(watch.boxes[0].buttons.size(), 1U);
    EXPECT_TRUE(watch.boxes[0].errorIcon);
    EXPECT_TRUE(form.IsLoaded());
}

TEST(Form, EnterThatWentDownInAnotherWindowChoosesNothing) {
    TreeForm former;
    TreeForm later;
    former.Load();
    later.Load();
    constexpr LPARAM kRepeats = 1 << 30;
    const auto enter = [](win32::Form& form, LPARAM keyData) {
        MSG message{};
        message.hwnd = form.Handle();
        message.message = WM_KEYDOWN;
        message.wParam = VK_RETURN;
        message.lParam = keyData;
        return form.PreviewKey(message);
    };
    EXPECT_FALSE(enter(former, 0));
    EXPECT_FALSE(enter(former, kRepeats)) << "held in the same window it goes on typing";
    EXPECT_TRUE(enter(later, kRepeats));
    EXPECT_FALSE(enter(later, 0)) << "pressed anew it is this window's";
    EXPECT_FALSE(enter(later, kRepeats));
}

TEST(ErrorReport, AnErrorOfAButtonAndOfAKeyIsReportedToo) {
    TreeForm form;
    form.Load();
    form.cmdAddLesson.OnClick = [] { throw win32::SubscriptError(L"unit"); };
    const BoxWatch watch;
    SendMessageW(form.Handle(), WM_COMMAND, MAKEWPARAM(IDC_TYPING_ADD_LESSON, BN_CLICKED),
                 reinterpret_cast<LPARAM>(form.cmdAddLesson.Handle()));
    ASSERT_EQ(watch.boxes.size(), 1U);
    EXPECT_EQ(watch.boxes[0].text, L"Subscript out of range");
}

TEST(ErrorReport, ABoxIsOwnedByTheActiveForm) {
    TreeForm form;
    form.Load();
    const win32::ActiveScope active(form);
    const BoxWatch watch;
    win32::ReportError(win32::OverflowError(L"unit"));
    ASSERT_EQ(watch.boxes.size(), 1U);
    EXPECT_EQ(watch.boxes[0].owner, form.Handle());
    EXPECT_EQ(watch.boxes[0].text, L"Overflow");
}

TEST(MessageBoxes, APlainMessageHasNoIcon) {
    const BoxWatch watch;
    win32::ShowMessage(L"Select a lesson or task first");
    ASSERT_EQ(watch.boxes.size(), 1U);
    EXPECT_EQ(watch.boxes[0].text, L"Select a lesson or task first");
    EXPECT_EQ(watch.boxes[0].title, L"Keystride");
    EXPECT_FALSE(watch.boxes[0].errorIcon);
    EXPECT_EQ(watch.boxes[0].buttons.size(), 1U);
}

TEST(MessageBoxes, AQuestionHasThreeAnswers) {
    {
        const BoxWatch yes(IDYES);
        EXPECT_EQ(win32::AskYesNoCancel(L"Sure?"), win32::Answer::Yes);
        ASSERT_EQ(yes.boxes.size(), 1U);
        EXPECT_EQ(yes.boxes[0].buttons, (std::vector<int>{IDCANCEL, IDYES, IDNO}));
    }
    {
        const BoxWatch no(IDNO);
        EXPECT_EQ(win32::AskYesNoCancel(L"Sure?"), win32::Answer::No);
    }
    {
        const BoxWatch cancel(IDCANCEL);
        EXPECT_EQ(win32::AskYesNoCancel(L"Sure?"), win32::Answer::Cancel);
    }
}

// ---- rich edits
// ------------------------------------------------------------------------------------------------------

class RichEditTest : public ::testing::Test {
protected:
    void SetUp() override { form_.Load(); }

    /// The size and colour of the character at a place.
    CHARFORMATW FormatAt(LONG at) const {
        const HWND edit = form_.rtfEdit.Handle();
        CHARRANGE range{at, at + 1};
        SendMessageW(edit, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
        CHARFORMATW format{};
        format.cbSize = sizeof format;
        SendMessageW(edit, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
        return format;
    }

    void Type(const wchar_t* text) const {
        const HWND edit = form_.rtfEdit.Handle();
        CHARRANGE end{-1, -1};
        SendMessageW(edit, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&end));
        SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
    }

    void ExpectLook(LONG at, int points, std::uint32_t colour) const {
        const CHARFORMATW format = FormatAt(at);
        EXPECT_EQ(format.yHeight, points * 20) << "at " << at;
        EXPECT_EQ(format.crTextColor, colour) << "at " << at;
        EXPECT_EQ(format.dwEffects & CFE_AUTOCOLOR, 0U);
        EXPECT_STREQ(format.szFaceName, L"Arial");
    }

    RichForm form_;
};

TEST_F(RichEditTest, StartsIn16Points) {
    EXPECT_EQ(form_.rtfEdit.FontPoints(), 16);
    Type(L"a");
    ExpectLook(0, 16, GetSysColor(COLOR_WINDOWTEXT));
}

TEST_F(RichEditTest, SizeAndColourHoldForTypedText) {
    form_.rtfEdit.SetFontPoints(48);
    form_.rtfEdit.SetColours(win32::Colour::Rgb(kRed), win32::Colour::Rgb(0));
    Type(L"abc");
    ExpectLook(0, 48, kRed);
    ExpectLook(2, 48, kRed);
    EXPECT_EQ(form_.rtfEdit.FontPoints(), 48);
}

TEST_F(RichEditTest, SizeAndColourChangeTheTextThatStandsThere) {
    Type(L"abc");
    form_.rtfEdit.SetFontPoints(72);
    form_.rtfEdit.SetColours(win32::Colour::Rgb(kBlue), win32::Colour::System(COLOR_WINDOW));
    ExpectLook(0, 72, kBlue);
    ExpectLook(2, 72, kBlue);
}

TEST_F(RichEditTest, SizeAndColourHoldAfterEmptying) {
    form_.rtfEdit.SetFontPoints(48);
    form_.rtfEdit.SetColours(win32::Colour::Rgb(kRed), win32::Colour::Rgb(0));
    Type(L"abc");
    form_.rtfEdit.SetText(L"");
    EXPECT_EQ(form_.rtfEdit.Text(), L"");
    EXPECT_EQ(form_.rtfEdit.FontPoints(), 48);
    Type(L"x");
    ExpectLook(0, 48, kRed);
}

TEST_F(RichEditTest, SizeAndColourHoldForLoadedText) {
    form_.rtfEdit.SetFontPoints(48);
    form_.rtfEdit.SetColours(win32::Colour::Rgb(kRed), win32::Colour::Rgb(0));
    form_.rtfEdit.SetText(L"one\r\ntwo");
    ExpectLook(0, 48, kRed);
    ExpectLook(5, 48, kRed);
    SendMessageW(form_.rtfEdit.Handle(), EM_SETSEL, 0, -1);
    Type(L"z");
    ExpectLook(0, 48, kRed);
}

TEST_F(RichEditTest, KnowsItsBackgroundAsItWasGiven) {
    form_.rtfEdit.SetColours(win32::Colour::System(COLOR_WINDOW), win32::Colour::System(COLOR_WINDOWTEXT));
    EXPECT_EQ(form_.rtfEdit.BackColour(), win32::Colour::System(COLOR_WINDOWTEXT));
    EXPECT_NE(form_.rtfEdit.BackColour(), win32::Colour::System(COLOR_WINDOW));
    EXPECT_NE(win32::Colour::Rgb(GetSysColor(COLOR_WINDOW)), win32::Colour::System(COLOR_WINDOW));
    EXPECT_EQ(win32::Colour::System(COLOR_WINDOW).Value(), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(win32::Colour::Rgb(kRed).Value(), kRed);
}

TEST_F(RichEditTest, StartsAnewWithEveryLoad) {
    form_.rtfEdit.SetFontPoints(72);
    form_.rtfEdit.SetColours(win32::Colour::Rgb(kRed), win32::Colour::Rgb(0));
    form_.Unload();
    form_.Load();
    EXPECT_EQ(form_.rtfEdit.FontPoints(), 16);
    EXPECT_EQ(form_.rtfEdit.BackColour(), win32::Colour::System(COLOR_WINDOW));
}

TEST_F(RichEditTest, TakesLongTexts) {
    std::wstring text;
    while (text.size() < 70000) text += std::wstring(78, L'x') + L"\r\n";
    form_.rtfEdit.SetText(text);
    Type(L"end");
    EXPECT_EQ(form_.rtfEdit.Text(), text + L"end");
}

TEST_F(RichEditTest, InsertedTextCanBeUndone) {
    form_.rtfEdit.SetText(L"ab");
    SendMessageW(form_.rtfEdit.Handle(), EM_SETSEL, 1, 1);
    form_.rtfEdit.Insert(L"\t");
    EXPECT_EQ(form_.rtfEdit.Text(), L"a\tb");
    EXPECT_TRUE(SendMessageW(form_.rtfEdit.Handle(), EM_UNDO, 0, 0));
    EXPECT_EQ(form_.rtfEdit.Text(), L"ab");
}

TEST_F(RichEditTest, TextIsPlainUnicode) {
    form_.rtfEdit.SetText(L"{\\rtf1 x}\u4e2d\u00e4");
    EXPECT_EQ(form_.rtfEdit.Text(), L"{\\rtf1 x}\u4e2d\u00e4");
}

// ---- other controls
// --------------------------------------------------------------------------------------------------

TEST(CheckButton, KeepsItsState) {
    RichForm form;
    form.Load();
    EXPECT_FALSE(form.chkF11.IsChecked());
    form.chkF11.SetChecked(true);
    EXPECT_TRUE(form.chkF11.IsChecked());
    form.chkF11.SetChecked(false);
    EXPECT_FALSE(form.chkF11.IsChecked());
}

TEST(Control, ShowsEnablesAndTakesTextsOfAnyLength) {
    RichForm form;
    form.Load();
    form.cmdF1.SetText(std::wstring(5000, L'x') + L"\u4e2d");
    EXPECT_EQ(form.cmdF1.Text(), std::wstring(5000, L'x') + L"\u4e2d");
    form.cmdF1.Show(false);
    EXPECT_FALSE(form.cmdF1.IsShown());
    form.cmdF1.Show(true);
    EXPECT_TRUE(form.cmdF1.IsShown()) << "in a form that is itself hidden";
    form.cmdF1.Enable(false);
    EXPECT_FALSE(form.cmdF1.IsEnabled());
}

TEST(Control, ASpokenNameIsTakenBackWhenTheWindowGoes) {
    const SpokenRecorder spoken;
    RichForm form;
    form.Load();
    const HWND button = form.cmdF1.Handle();
    form.cmdF1.SetSpokenName(L"Repeat Instructions", L"F1");
    ASSERT_TRUE(spoken.names.contains(button));
    EXPECT_EQ(spoken.names.at(button), (SpokenRecorder::Name{L"Repeat Instructions", L"F1"}));
    form.Unload();
    EXPECT_EQ(std::count(spoken.cleared.begin(), spoken.cleared.end(), button), 1);
}

TEST(TreeView, NodesCarryKeysBesideTheirTexts) {
    TreeForm form;
    form.Load();
    win32::TreeView& tree = form.tvTasks;
    const auto first = tree.Add(nullptr, L"L01", L"1. same");
    const auto second = tree.Add(nullptr, L"L02", L"1. same");
    const auto task = tree.Add(second,
                               L"L02\x05"
                               L"01",
                               L"");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(tree.Count(), 3);
    EXPECT_EQ(tree.Key(first), L"L01");
    EXPECT_EQ(tree.Key(second), L"L02");
    EXPECT_EQ(tree.Key(task),
              L"L02\x05"
              L"01");
    EXPECT_EQ(tree.Text(second), L"1. same");
    EXPECT_EQ(tree.Text(task), L"");
    EXPECT_EQ(tree.FindKey(L"L02"), second);
    EXPECT_EQ(tree.FindKey(L"L02\x05"
                           L"01"),
              task);
    EXPECT_EQ(tree.FindKey(L"L03"), nullptr);
    EXPECT_EQ(tree.FindKey(L"l02"), nullptr);
}

TEST(TreeView, KeysGoWithTheNodes) {
    TreeForm form;
    form.Load();
    form.tvTasks.Add(nullptr, L"L01", L"one");
    form.tvTasks.Add(nullptr, L"L02", L"two");
    form.tvTasks.Clear();
    EXPECT_EQ(form.tvTasks.Count(), 0);
    EXPECT_EQ(form.tvTasks.FindKey(L"L01"), nullptr);
    const auto again = form.tvTasks.Add(nullptr, L"L07", L"seven");
    EXPECT_EQ(form.tvTasks.Key(again), L"L07");
    EXPECT_EQ(form.tvTasks.FindKey(L"L02"), nullptr);
}

TEST(TreeView, SelectsANodeAndNone) {
    TreeForm form;
    form.Load();
    EXPECT_EQ(form.tvTasks.Selected(), nullptr);
    const auto root = form.tvTasks.Add(nullptr, L"L01", L"one");
    const auto task = form.tvTasks.Add(root,
                                       L"L01\x05"
                                       L"01",
                                       L"task");
    EXPECT_EQ(form.tvTasks.Selected(), nullptr);
    form.tvTasks.Select(task);
    EXPECT_EQ(form.tvTasks.Selected(), task);
    form.tvTasks.Select(nullptr);
    EXPECT_EQ(form.tvTasks.Selected(), nullptr);
    EXPECT_EQ(form.tvTasks.Key(nullptr), L"");
}

TEST(TreeView, ShowsALessonTextOf254BytesWhole) {
    TreeForm form;
    form.Load();
    const std::wstring text = L"201. " + std::wstring(254, L'\u00e4');
    EXPECT_EQ(form.tvTasks.Text(form.tvTasks.Add(nullptr, L"L201", text)), text);
}

TEST(NoticeLine, IsHiddenWhileItIsEmptyAndALiveRegion) {
    const SpokenRecorder spoken;
    TreeForm form;
    form.Load();
    EXPECT_FALSE(form.lblNotice.IsShown());
    EXPECT_EQ(spoken.liveRegions, std::vector<HWND>{form.lblNotice.Handle()});
    EXPECT_TRUE(spoken.announced.empty());
}

TEST(NoticeLine, ShowsAndAnnouncesASentenceOnce) {
    const SpokenRecorder spoken;
    TreeForm form;
    form.Load();
    const int layouts = form.layouts;
    form.lblNotice.Say(L"Only its first 254 characters are read back.");
    EXPECT_TRUE(form.lblNotice.IsShown());
    EXPECT_EQ(form.lblNotice.Text(), L"Only its first 254 characters are read back.");
    EXPECT_EQ(spoken.announced, std::vector<HWND>{form.lblNotice.Handle()});
    EXPECT_EQ(form.layouts, layouts + 1);
    form.lblNotice.Say(L"Only its first 254 characters are read back.");
    EXPECT_EQ(spoken.announced.size(), 1U) << "nothing new is said";
    form.lblNotice.Say(L"Another.");
    EXPECT_EQ(spoken.announced.size(), 2U);
}

TEST(NoticeLine, HidesWithoutAWord) {
    const SpokenRecorder spoken;
    TreeForm form;
    form.Load();
    form.lblNotice.Say(L"Something.");
    form.lblNotice.Say(L"");
    EXPECT_FALSE(form.lblNotice.IsShown());
    EXPECT_EQ(form.lblNotice.Text(), L"");
    EXPECT_EQ(spoken.announced.size(), 1U);
}

TEST(NoticeLine, TakesItsMarkBackWhenTheWindowGoes) {
    const SpokenRecorder spoken;
    TreeForm form;
    form.Load();
    const HWND notice = form.lblNotice.Handle();
    form.Unload();
    EXPECT_EQ(std::count(spoken.cleared.begin(), spoken.cleared.end(), notice), 1);
}

TEST(Accessibility, TheSystemsServicesDoNoHarmWhereTheyAreMissing) {
    RichForm form;
    form.Load();
    EXPECT_NO_THROW(form.cmdF1.SetSpokenName(L"Repeat", L"F1"));
    EXPECT_NO_THROW(win32::Accessibility().AnnounceLiveRegion(form.cmdF1.Handle()));
    EXPECT_NO_THROW(form.Unload());
}

// ---- keys of every dialog
// --------------------------------------------------------------------------------------------

constexpr win32::Modifiers kCtrl{.ctrl = true};
constexpr win32::Modifiers kAlt{.alt = true};
constexpr win32::Modifiers kShift{.shift = true};
constexpr win32::Modifiers kCtrlShift{.ctrl = true, .shift = true};

class DialogKeysTest : public ::testing::Test {
protected:
    static int Cancels(KeyDialog& dialog, int key, const win32::Modifiers& held) {
        dialog.cancels = 0;
        Press(dialog, key, held);
        return dialog.cancels;
    }
};

TEST_F(DialogKeysTest, EscWithNeitherCtrlNorAltCancels) {
    KeyDialog dialog;
    dialog.Load();
    EXPECT_EQ(Cancels(dialog, VK_ESCAPE, {}), 1);
    EXPECT_EQ(Cancels(dialog, VK_ESCAPE, kShift), 1);
    EXPECT_EQ(Cancels(dialog, VK_ESCAPE, kCtrl), 0);
    EXPECT_EQ(Cancels(dialog, VK_ESCAPE, kAlt), 0);
    EXPECT_EQ(Cancels(dialog, VK_ESCAPE, kCtrlShift), 0);
}

TEST_F(DialogKeysTest, ARefusedEscDoesNotReachTheDialogManager) {
    KeyDialog dialog;
    dialog.Load();
    EXPECT_TRUE(Press(dialog, VK_ESCAPE, kCtrl));
}

TEST_F(DialogKeysTest, InTheVariantEscCancelsWithAnyModifier) {
    KeyDialog dialog({.escWithAnyModifier = true});
    dialog.Load();
    for (const win32::Modifiers& held : {win32::Modifiers{}, kCtrl, kAlt, kShift, kCtrlShift})
        EXPECT_EQ(Cancels(dialog, VK_ESCAPE, held), 1);
}

TEST_F(DialogKeysTest, AltF4CancelsWhateverElseIsHeld) {
    KeyDialog dialog;
    dialog.Load();
    EXPECT_EQ(Cancels(dialog, VK_F4, kAlt), 1);
    EXPECT_EQ(Cancels(dialog, VK_F4, {.ctrl = true, .alt = true}), 1);
    EXPECT_EQ(Cancels(dialog, VK_F4, {}), 0);
    EXPECT_EQ(Cancels(dialog, VK_F4, kCtrl), 0);
}

TEST_F(DialogKeysTest, TheWindowsCloseAndCancelButtonCancel) {
    KeyDialog dialog;
    dialog.Load();
    SendMessageW(dialog.Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(dialog.cancels, 1);
    SendMessageW(dialog.Handle(), WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    EXPECT_EQ(dialog.cancels, 2);
}

TEST_F(DialogKeysTest, ADialogThatClosesDirectlyRunsNoCancelProcedureButForItsButton) {
    KeyDialog dialog({.closesDirectly = true});
    dialog.Load();
    EXPECT_EQ(Cancels(dialog, VK_ESCAPE, {}), 0);
    EXPECT_EQ(Cancels(dialog, VK_F4, kAlt), 0);
    SendMessageW(dialog.Handle(), WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    EXPECT_EQ(dialog.cancels, 1);
}

TEST_F(DialogKeysTest, OtherKeysGoOnToTheControl) {
    KeyDialog dialog;
    dialog.Load();
    for (const int key : {int{'B'}, VK_RETURN, VK_TAB, VK_F3, VK_F1, VK_LEFT, int{' '}})
        EXPECT_FALSE(Press(dialog, key));
    EXPECT_FALSE(Press(dialog, 'A'));
    EXPECT_FALSE(Press(dialog, 'A', kShift));
}

TEST_F(DialogKeysTest, KeysOfAnotherWindowAreNotTaken) {
    KeyDialog dialog;
    dialog.Load();
    TreeForm other;
    other.Load();
    EXPECT_FALSE(Press(dialog, other.Handle(), VK_ESCAPE));
    EXPECT_FALSE(Press(dialog, other.tvTasks.Handle(), VK_ESCAPE));
    EXPECT_EQ(dialog.cancels, 0);
    EXPECT_TRUE(Press(dialog, dialog.txtLoginName.Handle(), VK_ESCAPE));
    EXPECT_EQ(dialog.cancels, 1);
}

class SelectAllTest : public DialogKeysTest {
protected:
    void SetUp() override {
        dialog_.Load();
        ShowWindow(dialog_.Handle(), SW_SHOW);
        dialog_.txtLoginName.SetText(L"Ann Smith");
        SetFocus(dialog_.txtLoginName.Handle());
        Select(2, 2);
        ASSERT_EQ(GetFocus(), dialog_.txtLoginName.Handle());
    }

    void Select(int first, int last) const {
        SendMessageW(dialog_.txtLoginName.Handle(), EM_SETSEL, static_cast<WPARAM>(first), last);
    }
    [[nodiscard]] std::pair<DWORD, DWORD> Selection() const {
        DWORD first = 0;
        DWORD last = 0;
        SendMessageW(dialog_.txtLoginName.Handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                     reinterpret_cast<LPARAM>(&last));
        return {first, last};
    }

    KeyDialog dialog_;
};

using Range = std::pair<DWORD, DWORD>;

TEST_F(SelectAllTest, CtrlASelectsAllTextOfTheBox) {
    EXPECT_TRUE(Press(dialog_, dialog_.txtLoginName.Handle(), 'A', kCtrl));
    EXPECT_EQ(Selection(), Range(0, 9));
    EXPECT_EQ(dialog_.txtLoginName.Text(), L"Ann Smith");
}

TEST_F(SelectAllTest, OnlyCtrlAloneDoes) {
    for (const win32::Modifiers& held : {win32::Modifiers{}, kShift, win32::Modifiers{.ctrl = true, .alt = true}}) {
        EXPECT_FALSE(Press(dialog_, dialog_.txtLoginName.Handle(), 'A', held));
        EXPECT_EQ(Selection(), Range(2, 2));
    }
}

TEST_F(SelectAllTest, WithShiftTooTheKeyNeverReachesTheBoxWhichWouldSelectByItself) {
    EXPECT_TRUE(Press(dialog_, dialog_.txtLoginName.Handle(), 'A', kCtrlShift));
    EXPECT_EQ(Selection(), Range(2, 2));
}

TEST_F(SelectAllTest, OnAButtonItDoesNothing) {
    SetFocus(dialog_.OKButton.Handle());
    EXPECT_FALSE(Press(dialog_, dialog_.OKButton.Handle(), 'A', kCtrl));
    EXPECT_EQ(Selection(), Range(2, 2));
}

TEST_F(SelectAllTest, TheBoxIsUnlockedAfterwards) {
    const auto locked = [&] {
        return (GetWindowLongPtrW(dialog_.txtLoginName.Handle(), GWL_STYLE) & ES_READONLY) != 0;
    };
    Press(dialog_, dialog_.txtLoginName.Handle(), 'A', kCtrl);
    EXPECT_FALSE(locked());
    SendMessageW(dialog_.txtLoginName.Handle(), EM_SETREADONLY, TRUE, 0);
    Press(dialog_, dialog_.txtLoginName.Handle(), 'A', kCtrl);
    EXPECT_TRUE(locked()) << "a box that was locked stays so";
    EXPECT_EQ(Selection(), Range(0, 9));
}

TEST_F(SelectAllTest, WhileItIsLockedWaitingMessagesRunButNoKey) {
    // A typed character that waits would replace the selection.
    PostMessageW(dialog_.txtLoginName.Handle(), WM_CHAR, 'a', 0);
    PostMessageW(dialog_.Handle(), WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    PostMessageW(dialog_.Handle(), WM_KEYDOWN, VK_ESCAPE, 0);
    Press(dialog_, dialog_.txtLoginName.Handle(), 'A', kCtrl);
    EXPECT_EQ(dialog_.cancels, 1) << "the button's message ran, the key did not run a command a second time";
    EXPECT_EQ(dialog_.txtLoginName.Text(), L"Ann Smith");
    EXPECT_EQ(Selection(), Range(0, 9));
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, dialog_.Handle(), WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE)) << "the key still waits";
    PeekMessageW(&message, nullptr, WM_CHAR, WM_CHAR, PM_REMOVE);
}

TEST(ModalDialog, DisablesItsOwnerAndGivesItAndTheFocusBack) {
    TreeForm owner;
    owner.Load();
    ShowWindow(owner.Handle(), SW_SHOW);
    SetFocus(owner.tvTasks.Handle());
    ASSERT_EQ(GetFocus(), owner.tvTasks.Handle());
    const win32::ActiveScope active(owner);
    KeyDialog dialog;
    dialog.Load();
    bool ownerEnabled = true;
    HWND focus = nullptr;
    dialog.OKButton.OnClick = [&] {
        ownerEnabled = IsWindowEnabled(owner.Handle()) != FALSE;
        focus = GetFocus();
        dialog.Close(win32::kResultOk);
    };
    PostMessageW(dialog.Handle(), WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
    EXPECT_EQ(dialog.ShowModal(), 1);
    EXPECT_FALSE(ownerEnabled);
    EXPECT_NE(focus, nullptr);
    EXPECT_NE(focus, owner.tvTasks.Handle());
    EXPECT_TRUE(IsWindowEnabled(owner.Handle()));
    EXPECT_EQ(GetFocus(), owner.tvTasks.Handle());
    EXPECT_FALSE(dialog.IsLoaded());
}

TEST(ModalDialog, IsCancelledByEscAndReports2) {
    KeyDialog dialog;
    dialog.Load();
    PostMessageW(dialog.Handle(), WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_EQ(dialog.ShowModal(), 2);
    EXPECT_EQ(dialog.cancels, 1);
    dialog.Load();
    PostMessageW(dialog.Handle(), WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_EQ(dialog.ShowModal(), 2) << "and again after it was unloaded";
}

TEST(ModalDialog, AnErrorInAHandlerIsReportedAndTheDialogStaysOpen) {
    KeyDialog dialog;
    dialog.Load();
    bool raised = false;
    bool openAfterwards = false;
    dialog.whenTimed = [&] {
        if (!raised) {
            raised = true;
            throw win32::OverflowError(L"unit");
        }
        // Behind the box the dialog is disabled.
        if (IsWindowEnabled(dialog.Handle()) == FALSE) return;
        openAfterwards = IsWindowVisible(dialog.Handle()) != FALSE;
        dialog.Close(win32::kResultOk);
    };
    const BoxWatch watch;
    SetTimer(dialog.Handle(), 1, 10, nullptr);
    EXPECT_EQ(dialog.ShowModal(), 1);
    EXPECT_EQ(watch.boxes.size(), 1U);
    EXPECT_TRUE(openAfterwards);
}

TEST(ModalDialog, TheEndOfTheProgramReachesTheOuterLoop) {
    KeyDialog dialog;
    dialog.Load();
    PostQuitMessage(7);
    EXPECT_EQ(dialog.ShowModal(), 2);
    MSG message{};
    EXPECT_EQ(GetMessageW(&message, nullptr, 0, 0), 0);
    EXPECT_EQ(message.wParam, 7U);
}

// ---- placement and DPI
// -----------------------------------------------------------------------------------------------

RECT WindowRectangle(HWND window) {
    RECT rectangle{};
    GetWindowRect(window, &rectangle);
    return rectangle;
}

TEST(Placement, ThePickerFillsTheScreenAboveTheTaskbarButForItsMargins) {
    dlgTyping& picker = dlgTyping::Default();
    const win32::UnloadAtExit unload(picker);
    picker.Load();
    const win32::Box expected = win32::PlaceDialog(win32::AreaAboveTaskbar(), picker.Dpi());
    const RECT window = WindowRectangle(picker.Handle());
    EXPECT_EQ(window.left, expected.left);
    EXPECT_EQ(window.top, expected.top);
    EXPECT_EQ(window.right, expected.Right());
    EXPECT_EQ(window.bottom, expected.Bottom());
}

/// The picker's tree and buttons against the layout rule, from the sizes that the window has now.
void ExpectPickerLayout(dlgTyping& picker) {
    const win32::Box client = picker.ClientTwips();
    const int buttonHeight = picker.OKButton.HeightTwips();
    const auto expectNear = [&](int pixels, int twips) { EXPECT_NEAR(pixels, picker.ToPixels(twips), 2); };
    const RECT tree = PlaceOf(picker.tvTasks.Handle());
    expectNear(tree.left, 200);
    expectNear(tree.top, 200);
    expectNear(tree.right - tree.left, client.width - 800);
    expectNear(tree.bottom - tree.top, client.height - 200 - buttonHeight * 7 / 4);
    for (const win32::Button* button : {&picker.OKButton, &picker.CancelButton}) {
        const RECT place = PlaceOf(button->Handle());
        expectNear(place.top, picker.ToTwips(tree.bottom) + buttonHeight / 4);
        EXPECT_GT(place.right, place.left);
    }
}

TEST(Placement, ThePickersTreeAndButtonsFollowTheRule) {
    dlgTyping& picker = dlgTyping::Default();
    const win32::UnloadAtExit unload(picker);
    picker.Load();
    ExpectPickerLayout(picker);
    SetWindowPos(picker.Handle(), nullptr, 0, 0, 900, 500, SWP_NOZORDER | SWP_NOACTIVATE);
    ExpectPickerLayout(picker);
}

TEST(Placement, ThePickersChannelButtonIsHidden) {
    dlgTyping& picker = dlgTyping::Default();
    const win32::UnloadAtExit unload(picker);
    picker.Load();
    EXPECT_FALSE(picker.cmdAccessibility.IsShown());
}

TEST(Placement, ANewDpiLaysOutAnewAtTheSuggestedPlace) {
    dlgTyping& picker = dlgTyping::Default();
    const win32::UnloadAtExit unload(picker);
    picker.Load();
    // Two buttons have room on one line before and afterwards.
    picker.ShowEditingButtons(false);
    const int former = picker.Dpi();
    const int formerHeight = picker.OKButton.HeightTwips();
    RECT suggested{10, 20, 1210, 920};
    SendMessageW(picker.Handle(), WM_DPICHANGED, MAKEWPARAM(former * 2, former * 2),
                 reinterpret_cast<LPARAM>(&suggested));
    EXPECT_EQ(picker.Dpi(), former * 2);
    const RECT window = WindowRectangle(picker.Handle());
    EXPECT_TRUE(EqualRect(&window, &suggested));
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(picker.tvTasks.Handle(), WM_GETFONT, 0, 0)), sizeof font, &font);
    EXPECT_EQ(font.lfHeight, -MulDiv(16, former * 2, 72));
    EXPECT_NEAR(picker.OKButton.HeightTwips(), formerHeight, formerHeight / 4) << "the same in twips, twice the pixels";
    ExpectPickerLayout(picker);
}

TEST(Placement, TheNoticeTakesItsRoomFromTheTree) {
    const SpokenRecorder spoken;
    dlgTyping& picker = dlgTyping::Default();
    const win32::UnloadAtExit unload(picker);
    picker.Load();
    const RECT before = PlaceOf(picker.tvTasks.Handle());
    const RECT button = PlaceOf(picker.OKButton.Handle());
    picker.lblNotice.Say(L"Lesson 2 lost its end.");
    const RECT after = PlaceOf(picker.tvTasks.Handle());
    const RECT notice = PlaceOf(picker.lblNotice.Handle());
    EXPECT_EQ(after.top, before.top);
    EXPECT_LT(after.bottom, before.bottom);
    EXPECT_GE(notice.top, after.bottom);
    EXPECT_GT(notice.bottom, notice.top);
    EXPECT_LE(notice.bottom, button.top);
    EXPECT_EQ(PlaceOf(picker.OKButton.Handle()).top, button.top);
    picker.lblNotice.Say(L"");
    EXPECT_EQ(PlaceOf(picker.tvTasks.Handle()).bottom, before.bottom);
}

TEST(Placement, TheSignOnDialogShowsAllOfItself) {
    dlgLogin& login = dlgLogin::Default();
    const win32::UnloadAtExit unload(login);
    login.Load();
    EXPECT_EQ(login.lblLoginInstructions.Text(),
              L"Type your first and last name.\r\nThat way I'll know what to call you.");
    EXPECT_EQ(login.Caption(), L"Type Your Full Name");
    RECT client{};
    GetClientRect(login.Handle(), &client);
    int bottom = 0;
    for (const win32::Control* control : std::initializer_list<const win32::Control*>{
             &login.lblLoginInstructions, &login.txtLoginName, &login.OKButton, &login.CancelButton}) {
        const RECT place = PlaceOf(control->Handle());
        EXPECT_GE(place.left, 0);
        EXPECT_LE(place.right, client.right);
        EXPECT_LE(place.bottom, client.bottom);
        EXPECT_GT(place.bottom, place.top);
        bottom = std::max<int>(bottom, place.bottom);
    }
    EXPECT_GE(PlaceOf(login.txtLoginName.Handle()).top, PlaceOf(login.lblLoginInstructions.Handle()).bottom);
    EXPECT_GE(PlaceOf(login.OKButton.Handle()).top, PlaceOf(login.txtLoginName.Handle()).bottom);
    EXPECT_GT(bottom, 0);
}

// ---- the main window
// -------------------------------------------------------------------------------------------------

class MainWindowTest : public RealFoldersTest {
protected:
    void SetUp() override {
        RealFoldersTest::SetUp();
        if (IsSkipped()) return;
        WriteShippedFiles(RealCommonFolder());
        // What the screen-reader side wrote since the program was installed.
        WriteBytes(RealUserFolder() / L"KSGeneral.ini",
                   "[Main]\r\nSingleRow=A single row\r\nMultiRow=One\x07Two\r\nDefSingleRow=Welcome\r\nDefMultiRow="
                   "Press F3\x07Press F11\r\n");
        Main().Load();
        // Without the timer no sign-on dialog comes up in a test that lets messages run.
        KillTimer(Main().Handle(), IDT_MAIN_LOGIN);
    }
    void TearDown() override {
        Main().Unload();
        RealFoldersTest::TearDown();
    }

    static frmMain& Main() { return frmMain::Default(); }

    struct Caption {
        win32::Button* button;
        std::wstring key;
        std::wstring first;
        std::wstring second;
    };

    static std::vector<Caption> Fixed() {
        return {{&Main().cmdF1, L"F1", L"Repeat", L"Instructions"},
                {&Main().cmdF2, L"F2", L"Next", L"or Repeat"},
                {&Main().cmdF5, L"F5", L"Race", L"Keyboarding"},
                {&Main().cmdF12, L"F12", L"Progress", L"Reports"}};
    }
    static std::vector<Caption> Preset() {
        return {{&Main().cmdF3, L"F3", L"Keyboarding", L"Lesson List"},
                {&Main().cmdF4, L"F4", L"Dictation", L"Lesson List"},
                {&Main().cmdF6, L"F6", L"Academic", L"Lesson List"},
                {&Main().chkF11, L"F11", L"Preset", L"Mode"}};
    }
    static std::vector<Caption> Teachers() {
        return {{&Main().cmdF3, L"F3", L"Teacher's", L"Lesson List"},
                {&Main().cmdF4, L"F4", L"Teacher's", L"Dictation List"},
                {&Main().cmdF6, L"F6", L"Academic", L"Lesson List"},
                {&Main().chkF11, L"F11", L"Teacher's", L"Mode"}};
    }

    void ExpectCaptions(const std::vector<Caption>& captions) const {
        for (const Caption& caption : captions) {
            EXPECT_EQ(caption.button->Text(),
                      L"< " + caption.key + L" >\r\n" + caption.first + L"\r\n" + caption.second);
            const auto found = spoken_.names.find(caption.button->Handle());
            ASSERT_NE(found, spoken_.names.end()) << caption.button->Name();
            EXPECT_EQ(found->second, (SpokenRecorder::Name{caption.first + L" " + caption.second, caption.key}));
        }
    }

    /// The colour in which the mode switch would be drawn.
    static COLORREF SwitchColour() {
        const HDC context = GetDC(Main().chkF11.Handle());
        SendMessageW(Main().Handle(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context),
                     reinterpret_cast<LPARAM>(Main().chkF11.Handle()));
        const COLORREF colour = GetTextColor(context);
        ReleaseDC(Main().chkF11.Handle(), context);
        return colour;
    }

    static COLORREF TextColour(const win32::RichEdit& edit) {
        CHARFORMATW format{};
        format.cbSize = sizeof format;
        SendMessageW(edit.Handle(), EM_GETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
        return format.crTextColor;
    }

    SpokenRecorder spoken_;
};

TEST_F(MainWindowTest, StartsInPresetModeWithItsCaptionsSpokenInWords) {
    ExpectCaptions(Fixed());
    ExpectCaptions(Preset());
    EXPECT_FALSE(Main().chkF11.IsChecked());
    EXPECT_EQ(SwitchColour(), GetSysColor(COLOR_BTNTEXT));
    EXPECT_EQ(Main().Caption(), L"Keystride");
}

TEST_F(MainWindowTest, F11ChangesCaptionsSpokenNamesStateAndColourTogether) {
    EXPECT_TRUE(Press(Main(), VK_F11));
    ExpectCaptions(Fixed());
    ExpectCaptions(Teachers());
    EXPECT_TRUE(Main().chkF11.IsChecked());
    EXPECT_EQ(SwitchColour(), kRed);
}

TEST_F(MainWindowTest, F11TwiceReturnsToPresetMode) {
    Press(Main(), VK_F11);
    Press(Main(), VK_F11);
    ExpectCaptions(Preset());
    EXPECT_FALSE(Main().chkF11.IsChecked());
    EXPECT_EQ(SwitchColour(), GetSysColor(COLOR_BTNTEXT));
}

TEST_F(MainWindowTest, AClickOnTheSwitchIsF11) {
    const auto click = [] {
        SendMessageW(Main().Handle(), WM_COMMAND, MAKEWPARAM(IDC_MAIN_F11, BN_CLICKED),
                     reinterpret_cast<LPARAM>(Main().chkF11.Handle()));
    };
    click();
    ExpectCaptions(Teachers());
    EXPECT_TRUE(Main().chkF11.IsChecked());
    click();
    ExpectCaptions(Preset());
    EXPECT_FALSE(Main().chkF11.IsChecked());
}

TEST_F(MainWindowTest, ShiftF11IsF11ButCtrlAndAltStopIt) {
    EXPECT_TRUE(Press(Main(), VK_F11, kShift));
    ExpectCaptions(Teachers());
    EXPECT_FALSE(Press(Main(), VK_F11, kCtrl));
    EXPECT_FALSE(Press(Main(), VK_F11, kAlt));
    EXPECT_FALSE(Press(Main(), VK_F11, kCtrlShift));
    ExpectCaptions(Teachers());
}

TEST_F(MainWindowTest, EveryLoadStartsInPresetMode) {
    Press(Main(), VK_F11);
    Main().Unload();
    Main().Load();
    KillTimer(Main().Handle(), IDT_MAIN_LOGIN);
    ExpectCaptions(Preset());
    Press(Main(), VK_F11);
    ExpectCaptions(Teachers());
}

TEST_F(MainWindowTest, ShowsTheStartingTextsAndTheLatestOnesOnF5AndF12) {
    EXPECT_EQ(Main().rtfLessonTaskInfo.Text(), L"Welcome");
    EXPECT_EQ(Main().rtfMain.Text(), L"Press F3\r\nPress F11");
    EXPECT_FALSE(Press(Main(), VK_F5, kCtrl));
    EXPECT_FALSE(Press(Main(), VK_F12, kAlt));
    EXPECT_EQ(Main().rtfLessonTaskInfo.Text(), L"Welcome");
    EXPECT_TRUE(Press(Main(), VK_F5));
    EXPECT_EQ(Main().rtfLessonTaskInfo.Text(), L"A single row");
    EXPECT_EQ(Main().rtfMain.Text(), L"Press F3\r\nPress F11");
    EXPECT_TRUE(Press(Main(), VK_F12, kShift));
    EXPECT_EQ(Main().rtfMain.Text(), L"One\r\nTwo");
    EXPECT_EQ(TextColour(Main().rtfLessonTaskInfo), kBlue);
}

TEST_F(MainWindowTest, F1AndF2AreNotItsKeys) {
    for (const int key : {VK_F1, VK_F2, VK_F9, VK_F10, int{'A'}}) EXPECT_FALSE(Press(Main(), key)) << key;
}

TEST_F(MainWindowTest, ControlUNeedsControlAlone) {
    EXPECT_FALSE(Press(Main(), 'U'));
    EXPECT_FALSE(Press(Main(), 'U', kCtrlShift));
}

TEST_F(MainWindowTest, EscDoesNothing) {
    EXPECT_TRUE(Press(Main(), VK_ESCAPE));
    EXPECT_TRUE(Main().IsLoaded());
}

TEST_F(MainWindowTest, AltF4EndsIt) {
    EXPECT_TRUE(Press(Main(), VK_F4, kAlt));
    EXPECT_FALSE(Main().IsLoaded());
}

TEST_F(MainWindowTest, TheFontCycleIsStart48And72) {
    const int start = Main().rtfEdit.FontPoints();
    EXPECT_EQ(start, 16);
    Main().CycleFontSize();
    EXPECT_EQ(Main().rtfEdit.FontPoints(), 48);
    Main().CycleFontSize();
    EXPECT_EQ(Main().rtfEdit.FontPoints(), 72);
    Main().CycleFontSize();
    EXPECT_EQ(Main().rtfEdit.FontPoints(), start);
    Main().rtfEdit.SetFontPoints(30);
    Main().CycleFontSize();
    EXPECT_EQ(Main().rtfEdit.FontPoints(), start) << "from any other size";
    EXPECT_EQ(Main().rtfMain.FontPoints(), 16) << "the other areas keep theirs";
}

TEST_F(MainWindowTest, ContrastTurnsTheColoursOfTwoAreasRoundAndKeepsTheBlue) {
    const auto system = [](int index) { return win32::Colour::System(index); };
    EXPECT_EQ(Main().rtfEdit.BackColour(), system(COLOR_WINDOW));
    Main().ToggleContrast();
    EXPECT_EQ(Main().rtfEdit.BackColour(), system(COLOR_WINDOWTEXT));
    EXPECT_EQ(TextColour(Main().rtfEdit), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(Main().rtfMain.BackColour(), system(COLOR_WINDOWTEXT));
    EXPECT_EQ(TextColour(Main().rtfMain), GetSysColor(COLOR_3DLIGHT));
    EXPECT_EQ(TextColour(Main().rtfLessonTaskInfo), kBlue);
    Main().ToggleContrast();
    EXPECT_EQ(Main().rtfEdit.BackColour(), system(COLOR_WINDOW));
    EXPECT_EQ(TextColour(Main().rtfEdit), GetSysColor(COLOR_WINDOWTEXT));
    EXPECT_EQ(Main().rtfMain.BackColour(), system(COLOR_3DLIGHT));
    EXPECT_EQ(TextColour(Main().rtfMain), GetSysColor(COLOR_WINDOWTEXT));
}

TEST_F(MainWindowTest, ChangingTheFontWhileContrastIsOnKeepsTheContrastColour) {
    Main().rtfEdit.SetText(L"asdf");
    Main().ToggleContrast();
    for (int round = 0; round < 3; ++round) {
        Main().CycleFontSize();
        EXPECT_EQ(TextColour(Main().rtfEdit), GetSysColor(COLOR_WINDOW));
        EXPECT_EQ(Main().rtfEdit.BackColour(), win32::Colour::System(COLOR_WINDOWTEXT));
    }
}

TEST_F(MainWindowTest, TheChannelsButtonIsHiddenAndItsTestButtonShown) {
    EXPECT_FALSE(Main().cmdAccessibility.IsShown());
    EXPECT_TRUE(Main().cmdTest1.IsShown());
    Main().cmdAccessibility.SetText(L"KYBP\x05\x04");
    const BoxWatch watch;
    for (const int button : {IDC_MAIN_TEST1, IDC_MAIN_ACCESSIBILITY})
        SendMessageW(Main().Handle(), WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0);
    ASSERT_EQ(watch.boxes.size(), 2U);
    for (const BoxWatch::Box& box : watch.boxes) {
        EXPECT_EQ(box.text, L"cmdAccessibility:KYBP\x05\x04");
        EXPECT_FALSE(box.errorIcon);
    }
}

TEST_F(MainWindowTest, ClicksOfTheScreenReadersKeysDoNothing) {
    const auto texts = [] {
        return Main().rtfLessonTaskInfo.Text() + Main().rtfMain.Text() + Main().cmdAccessibility.Text();
    };
    const std::wstring before = texts();
    const BoxWatch watch;
    for (const int button : {IDC_MAIN_F1, IDC_MAIN_F2, IDC_MAIN_F5, IDC_MAIN_F12})
        SendMessageW(Main().Handle(), WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0);
    EXPECT_EQ(texts(), before);
    EXPECT_TRUE(watch.boxes.empty());
}

/// The areas against the layout rule, from the sizes that the frame, the title and the information row have now.
void ExpectMainLayout(frmMain& form) {
    const win32::Box client = form.ClientTwips();
    win32::MainLayoutInput input;
    input.width = client.width;
    input.height = client.height;
    input.commandsHeight = form.fraCommands.HeightTwips();
    input.titleHeight = form.lblTitle.HeightTwips();
    input.infoHeight = form.rtfLessonTaskInfo.HeightTwips();
    const win32::MainLayout layout = win32::LayOutMain(input);
    const auto expectNear = [&](LONG pixels, int twips) { EXPECT_NEAR(pixels, form.ToPixels(twips), 2); };
    for (const win32::Control* control : std::initializer_list<const win32::Control*>{
             &form.lblTitle, &form.rtfLessonTaskInfo, &form.rtfMain, &form.rtfEdit}) {
        EXPECT_EQ(PlaceOf(control->Handle()).left, 0);
        expectNear(PlaceOf(control->Handle()).right, client.width);
    }
    expectNear(PlaceOf(form.lblTitle.Handle()).top, input.commandsHeight);
    expectNear(PlaceOf(form.rtfLessonTaskInfo.Handle()).top, layout.infoTop);
    expectNear(PlaceOf(form.rtfMain.Handle()).top, layout.textTop);
    expectNear(PlaceOf(form.rtfMain.Handle()).bottom, layout.textTop + layout.textHeight);
    expectNear(PlaceOf(form.rtfEdit.Handle()).top, layout.editTop);
    expectNear(PlaceOf(form.rtfEdit.Handle()).bottom, layout.editTop + layout.editHeight);
}

TEST_F(MainWindowTest, FillsTheScreenAboveTheTaskbar) {
    const win32::Box area = win32::AreaAboveTaskbar();
    const RECT window = WindowRectangle(Main().Handle());
    EXPECT_EQ(window.left, area.left);
    EXPECT_EQ(window.top, area.top);
    EXPECT_EQ(window.right, area.Right());
    EXPECT_EQ(window.bottom, area.Bottom());
}

TEST_F(MainWindowTest, ItsAreasFollowTheRuleAtEverySize) {
    ExpectMainLayout(Main());
    SetWindowPos(Main().Handle(), nullptr, 0, 0, 1100, 700, SWP_NOZORDER | SWP_NOACTIVATE);
    ExpectMainLayout(Main());
}

TEST_F(MainWindowTest, WithoutRoomTheTextKeepsItsHeightAndTheTypingAreaHasNone) {
    SetWindowPos(Main().Handle(), nullptr, 0, 0, 1100, 900, SWP_NOZORDER | SWP_NOACTIVATE);
    const RECT before = PlaceOf(Main().rtfMain.Handle());
    SetWindowPos(Main().Handle(), nullptr, 0, 0, 1100, 120, SWP_NOZORDER | SWP_NOACTIVATE);
    const RECT after = PlaceOf(Main().rtfMain.Handle());
    EXPECT_NEAR(after.bottom - after.top, before.bottom - before.top, 1);
    const RECT edit = PlaceOf(Main().rtfEdit.Handle());
    EXPECT_EQ(edit.bottom - edit.top, 0);
}

TEST_F(MainWindowTest, ANewDpiLaysOutAnew) {
    const int former = Main().Dpi();
    RECT suggested{0, 0, 1200, 900};
    SendMessageW(Main().Handle(), WM_DPICHANGED, MAKEWPARAM(former * 2, former * 2),
                 reinterpret_cast<LPARAM>(&suggested));
    EXPECT_EQ(Main().Dpi(), former * 2);
    const RECT window = WindowRectangle(Main().Handle());
    EXPECT_TRUE(EqualRect(&window, &suggested));
    ExpectMainLayout(Main());
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(Main().lblTitle.Handle(), WM_GETFONT, 0, 0)), sizeof font, &font);
    EXPECT_EQ(font.lfHeight, -MulDiv(16, former * 2, 72));
}

TEST_F(MainWindowTest, TheFramesContainTheirButtons) {
    const auto inside = [](const win32::Control& frame, const win32::Control& control) {
        const RECT outer = PlaceOf(frame.Handle());
        const RECT inner = PlaceOf(control.Handle());
        EXPECT_GE(inner.left, outer.left) << control.Name();
        EXPECT_GE(inner.top, outer.top) << control.Name();
        EXPECT_LE(inner.right, outer.right) << control.Name();
        EXPECT_LE(inner.bottom, outer.bottom) << control.Name();
        EXPECT_GT(inner.right, inner.left) << control.Name();
    };
    for (const win32::Control* button :
         std::initializer_list<const win32::Control*>{&Main().cmdF1, &Main().cmdF2, &Main().cmdF3, &Main().cmdF4,
                                                      &Main().cmdF5, &Main().cmdF6, &Main().chkF11, &Main().cmdF12})
        inside(Main().fraCommands, *button);
    for (const win32::Control* button : std::initializer_list<const win32::Control*>{
             &Main().cmdChangeFont, &Main().cmdChangeContrast, &Main().cmdTest1})
        inside(Main().fraAppearance, *button);
}

class BareMainWindowTest : public RealFoldersTest {
protected:
    void TearDown() override {
        frmMain::Default().Unload();
        RealFoldersTest::TearDown();
    }
};

TEST_F(BareMainWindowTest, FailingStepsAreToldTheSameTextNotTwiceInARowAndTheWindowOpens) {
    frmMain& main = frmMain::Default();
    const BoxWatch watch;
    main.Load();
    KillTimer(main.Handle(), IDT_MAIN_LOGIN);
    // Without any shipped file two steps miss Keystride.ini and two KSGeneral.ini.
    ASSERT_EQ(watch.boxes.size(), 2U);
    EXPECT_EQ(watch.boxes[0].text, L"File " + modGlobals::gKeystrideIni + L"not found.");
    EXPECT_EQ(watch.boxes[1].text, L"File " + modGlobals::gGeneralIni + L"not found.");
    EXPECT_TRUE(watch.boxes[0].errorIcon);
    EXPECT_TRUE(main.IsLoaded());
    EXPECT_EQ(main.cmdF3.Text(), L"< F3 >\r\nKeyboarding\r\nLesson List");
}

}  // namespace
}  // namespace unit
