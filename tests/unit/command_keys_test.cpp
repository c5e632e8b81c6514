// The written names of key chords, row by row, and what the text box may do with the keys.
#include "lessons/command_keys.h"

#include <array>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include "lessons/dlgTaskEdit.h"
#include "win32/windows_api.h"

namespace unit {
namespace {

using command_keys::AppendChord;
using command_keys::ChordPrefix;
using command_keys::FindKey;
using command_keys::PassesFilter;
using win32::KeyEvent;
using win32::Modifiers;

struct Named {
    int key;
    const wchar_t* name;
    bool stopped;
};

// Every key that has a name, one line a key.
constexpr std::array kNamed{
    Named{65, L"A", false},
    Named{66, L"B", false},
    Named{67, L"C", false},
    Named{68, L"D", false},
    Named{69, L"E", false},
    Named{70, L"F", false},
    Named{71, L"G", false},
    Named{72, L"H", false},
    Named{73, L"I", false},
    Named{74, L"J", false},
    Named{75, L"K", false},
    Named{76, L"L", false},
    Named{77, L"M", false},
    Named{78, L"N", false},
    Named{79, L"O", false},
    Named{80, L"P", false},
    Named{81, L"Q", false},
    Named{82, L"R", false},
    Named{83, L"S", false},
    Named{84, L"T", false},
    Named{85, L"U", false},
    Named{86, L"V", false},
    Named{87, L"W", false},
    Named{88, L"X", false},
    Named{89, L"Y", false},
    Named{90, L"Z", false},
    Named{48, L"0", false},
    Named{49, L"1", false},
    Named{50, L"2", false},
    Named{51, L"3", false},
    Named{52, L"4", false},
    Named{53, L"5", false},
    Named{54, L"6", false},
    Named{55, L"7", false},
    Named{56, L"8", false},
    Named{57, L"9", false},
    Named{96, L"Numpad0", false},
    Named{97, L"Numpad1", false},
    Named{98, L"Numpad2", false},
    Named{99, L"Numpad3", false},
    Named{100, L"Numpad4", false},
    Named{101, L"Numpad5", false},
    Named{102, L"Numpad6", false},
    Named{103, L"Numpad7", false},
    Named{104, L"Numpad8", false},
    Named{105, L"Numpad9", false},
    Named{12, L"NumPad5", false},
    Named{112, L"F1", false},
    Named{113, L"F2", false},
    Named{114, L"F3", false},
    Named{115, L"F4", false},
    Named{116, L"F5", false},
    Named{117, L"F6", false},
    Named{118, L"F7", false},
    Named{119, L"F8", false},
    Named{120, L"F9", false},
    Named{121, L"F10", false},
    Named{122, L"F11", false},
    Named{123, L"F12", false},
    Named{32, L"Space", false},
    Named{186, L";", false},
    Named{187, L"=", false},
    Named{188, L",", false},
    Named{189, L"-", false},
    Named{190, L".", false},
    Named{191, L"/", false},
    Named{192, L"`", false},
    Named{219, L"[", false},
    Named{220, L"\\", false},
    Named{221, L"]", false},
    Named{222, L"'", false},
    Named{8, L"BackSpace", false},
    Named{13, L"Enter", true},
    Named{20, L"CapsLock", false},
    Named{33, L"PageUp", false},
    Named{34, L"PageDown", false},
    Named{35, L"End", true},
    Named{36, L"Home", false},
    Named{37, L"LeftArrow", true},
    Named{39, L"RightArrow", true},
    Named{38, L"UpArrow", true},
    Named{40, L"DownArrow", true},
    Named{44, L"PrintScreen", false},
    Named{45, L"Insert", false},
    Named{46, L"Delete", true},
    Named{144, L"NumLock", false},
    Named{106, L"NumPadStar", false},
    Named{107, L"NumPadPlus", false},
    Named{108, L"NumPadEnter", true},
    Named{109, L"NumPadMinus", false},
    Named{110, L"NumPadDot", false},
    Named{111, L"NumPadSlash", false},
    Named{19, L"Pause", false},
    Named{91, L"LeftWindows", false},
    Named{92, L"RightWindows", false},
    Named{93, L"ContextMenu", false},
    Named{145, L"ScrollLock", false},
};

constexpr int kEscape = 27;
constexpr int kTab = 9;
constexpr int kF4 = 115;
constexpr int kF13 = 124;

KeyEvent Plain(int key) { return {key, {}}; }

TEST(CommandKeyNames, EveryNamedKeyIsWrittenLetterForLetter) {
    for (const Named& named : kNamed) EXPECT_EQ(AppendChord(L"", Plain(named.key), false), named.name) << named.key;
}

TEST(CommandKeyNames, EveryKeyThatMayNotReachTheBoxIsMarked) {
    for (const Named& named : kNamed) {
        const command_keys::KeyName* row = FindKey(named.key);
        ASSERT_NE(row, nullptr) << named.key;
        EXPECT_EQ(row->stops, named.stopped) << named.key;
    }
}

TEST(CommandKeyNames, HomePageUpAndBackSpaceStillReachTheBoxAndEndDoesNot) {
    EXPECT_FALSE(FindKey(36)->stops);
    EXPECT_FALSE(FindKey(33)->stops);
    EXPECT_FALSE(FindKey(8)->stops);
    EXPECT_TRUE(FindKey(35)->stops);
}

TEST(CommandKeyNames, NoOtherKeyHasAName) {
    std::map<int, std::wstring> named;
    for (const Named& row : kNamed) named[row.key] = row.name;
    ASSERT_EQ(named.size(), kNamed.size()) << "one line a key";
    for (int key = 0; key <= 255; ++key) {
        if (named.contains(key)) continue;
        EXPECT_EQ(FindKey(key), nullptr) << key;
        EXPECT_EQ(AppendChord(L"", Plain(key), false), L"") << key;
    }
}

TEST(CommandKeyNames, NoKeyStandsInTwoRowsOfTheTable) {
    for (int key = 0; key <= 255; ++key) {
        int rows = 0;
        for (const command_keys::KeyName& row : command_keys::KeyNames())
            if (key >= row.first && key <= row.last) ++rows;
        EXPECT_LE(rows, 1) << key;
    }
}

TEST(CommandKeyNames, KeypadFiveIsWrittenByNumLockWithDifferentLetters) {
    EXPECT_EQ(AppendChord(L"", Plain(101), false), L"Numpad5");
    EXPECT_EQ(AppendChord(L"", Plain(12), false), L"NumPad5");
}

TEST(CommandKeyNames, F10AndF12HaveNamesAndF13HasNone) {
    EXPECT_EQ(AppendChord(L"", Plain(121), false), L"F10");
    EXPECT_EQ(AppendChord(L"", Plain(123), false), L"F12");
    EXPECT_EQ(AppendChord(L"", Plain(kF13), false), L"");
}

TEST(CommandKeyPrefix, StandsInAFixedOrder) {
    struct Row {
        bool ctrl, alt, shift, jaws;
        const wchar_t* prefix;
    };
    for (const Row& row : {Row{false, false, false, false, L""},
                           {true, false, false, false, L"Control+"},
                           {false, true, false, false, L"Alt+"},
                           {false, false, true, false, L"Shift+"},
                           {false, false, false, true, L"JawsKey+"},
                           {true, true, false, false, L"Control+Alt+"},
                           {true, false, true, false, L"Control+Shift+"},
                           {true, false, false, true, L"Control+JawsKey+"},
                           {false, true, true, false, L"Alt+Shift+"},
                           {false, true, false, true, L"Alt+JawsKey+"},
                           {false, false, true, true, L"Shift+JawsKey+"},
                           {true, true, true, false, L"Control+Alt+Shift+"},
                           {true, true, false, true, L"Control+Alt+JawsKey+"},
                           {true, false, true, true, L"Control+Shift+JawsKey+"},
                           {false, true, true, true, L"Alt+Shift+JawsKey+"},
                           {true, true, true, true, L"Control+Alt+Shift+JawsKey+"}}) {
        EXPECT_EQ(ChordPrefix({row.ctrl, row.alt, row.shift}, row.jaws), row.prefix);
    }
}

TEST(CommandKeyText, FirstChordHasNoSpacesBeforeItAndLaterOnesHaveTwo) {
    std::wstring text = AppendChord(L"", {67, {.ctrl = true}}, false);
    EXPECT_EQ(text, L"Control+C");
    text = AppendChord(text, {kF4, {.alt = true}}, false);
    EXPECT_EQ(text, L"Control+C  Alt+F4");
}

TEST(CommandKeyText, HeldInsertIsWrittenLast) {
    EXPECT_EQ(AppendChord(L"A", {84, {.ctrl = true, .shift = true}}, true), L"A  Control+Shift+JawsKey+T");
    EXPECT_EQ(AppendChord(L"Control+Shift+JawsKey+T", Plain(84), false), L"Control+Shift+JawsKey+T  T");
}

TEST(CommandKeyText, KeyWithoutANameLeavesTheSeparatorAlone) {
    for (const int key : {kEscape, kF13, kTab, 223, 226, 135}) {
        EXPECT_EQ(AppendChord(L"Control+C", Plain(key), false), L"Control+C  ") << key;
        EXPECT_EQ(AppendChord(L"", Plain(key), false), L"") << key << ": nothing is there to be separated";
    }
    EXPECT_EQ(AppendChord(L"A", {kTab, {.ctrl = true}}, true), L"A  ") << "the prefix is not written alone";
}

TEST(CommandKeyText, SeparatorsAddUp) {
    EXPECT_EQ(AppendChord(L"A  ", Plain(kF13), false), L"A    ");
    EXPECT_EQ(AppendChord(L"A    ", Plain(66), false), L"A      B");
}

TEST(CommandKeyText, ShiftedDigitIsNeverItsSign) {
    EXPECT_EQ(AppendChord(L"", {49, {.shift = true}}, false), L"Shift+1");
    EXPECT_EQ(AppendChord(L"", {188, {.shift = true}}, false), L"Shift+,");
    EXPECT_EQ(AppendChord(L"", {65, {}}, false), L"A") << "a letter is a capital also without Shift";
}

TEST(CommandKeyFilter, SwallowsWhatIsTyped) {
    for (wchar_t character = 32; character <= 126; ++character)
        EXPECT_FALSE(PassesFilter(character)) << static_cast<int>(character);
    EXPECT_FALSE(PassesFilter(8));
    EXPECT_FALSE(PassesFilter(13));
    EXPECT_FALSE(PassesFilter(46));
}

TEST(CommandKeyFilter, LetsOtherCodesPass) {
    for (wchar_t character = 0; character < 32; ++character) {
        if (character == 8 || character == 13) continue;
        EXPECT_TRUE(PassesFilter(character)) << static_cast<int>(character);
    }
    for (const wchar_t character : {wchar_t{127}, wchar_t{128}, wchar_t{0xE4}, wchar_t{0x416}})
        EXPECT_TRUE(PassesFilter(character)) << static_cast<int>(character);
}

/// The task editor, loaded but not shown.
class CommandKeysTask : public ::testing::Test {
protected:
    void SetUp() override { editor_.Load(); }
    void TearDown() override { editor_.Unload(); }

    void Type(std::wstring_view text) {
        for (const wchar_t character : text) SendMessageW(editor_.txtTask.Handle(), WM_CHAR, character, 1);
    }
    bool Preview(int key) {
        MSG message{};
        message.hwnd = editor_.txtTask.Handle();
        message.message = WM_KEYDOWN;
        message.wParam = static_cast<WPARAM>(key);
        return editor_.PreviewKey(message);
    }

    dlgTaskEdit& editor_ = dlgTaskEdit::Default();
};

TEST_F(CommandKeysTask, TypedCharactersAreSwallowedAlsoWhileNothingIsCaptured) {
    editor_.BeginCommandKeys();
    EXPECT_EQ(editor_.lblTask.Text(), L"Type Your New Task of Command Keys");
    EXPECT_FALSE(Preview(65)) << "the key itself goes on to the box";
    Type(L"abc 1;\b\r.~");
    EXPECT_EQ(editor_.txtTask.Text(), L"");
    Type(L"\u00e4");
    EXPECT_EQ(editor_.txtTask.Text(), L"\u00e4") << "codes above 126 pass";
}

TEST_F(CommandKeysTask, EndLetsTypedCharactersInAgain) {
    editor_.BeginCommandKeys();
    editor_.EndCommandKeys();
    Type(L"abc");
    EXPECT_EQ(editor_.txtTask.Text(), L"abc");
}

TEST_F(CommandKeysTask, LoadingTheDialogEndsIt) {
    editor_.BeginCommandKeys();
    editor_.Unload();
    editor_.Load();
    Type(L"abc");
    EXPECT_EQ(editor_.txtTask.Text(), L"abc");
}

TEST_F(CommandKeysTask, OtherBoxIsNotFiltered) {
    editor_.BeginCommandKeys();
    SendMessageW(editor_.txtTaskExplanation.Handle(), WM_CHAR, L'a', 1);
    EXPECT_EQ(editor_.txtTaskExplanation.Text(), L"a");
}

}  // namespace
}  // namespace unit
