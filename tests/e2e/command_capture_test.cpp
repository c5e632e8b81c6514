// Command keys as a task: real key strokes in the task editor, and the names that they leave.
#include "editor_story.h"

namespace e2e {
namespace {

constexpr wchar_t kEditor[] = L"dlgLessonEdit";
constexpr wchar_t kTask[] = L"dlgTaskEdit";
constexpr wchar_t kOptionPrompt[] = L"Press Control+F3, then TYPE YOUR HOTKEYS, then press Control+F3 again";
constexpr wchar_t kCapturePrompt[] = L"Type Your New Task of Command Keys";

constexpr WORD kNumpad5 = VK_NUMPAD5;
constexpr WORD kNumpadEnter = VK_SEPARATOR;

class CommandCapture : public EditorTest {
protected:
    /// Opens the task editor for a new task and chooses command keys.
    void StartOnCommandKeys() {
        WriteTeachersFile({{.title = "Lesson"}});
        ASSERT_NO_FATAL_FAILURE(StartInTeachersList());
        ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
        ASSERT_NO_FATAL_FAILURE(OpenNewTask());
        ASSERT_NO_FATAL_FAILURE(ChooseKind(5));
    }
    void StartCapturing() {
        ASSERT_NO_FATAL_FAILURE(StartOnCommandKeys());
        ASSERT_NO_FATAL_FAILURE(Begin());
    }
    void Begin() {
        ASSERT_TRUE(App().Press("Ctrl+F3"));
        ASSERT_TRUE(App().WaitForText(kTask, L"lblTask", kCapturePrompt));
        ASSERT_TRUE(App().WaitForFocus(L"txtTask"));
    }
    void End() {
        ASSERT_TRUE(App().Press("Ctrl+F3"));
        ASSERT_TRUE(App().WaitForText(kTask, L"lblTask", kOptionPrompt));
    }

    std::wstring Task() { return App().Text(kTask, L"txtTask"); }
    /// The box shows that text, and the keys pressed before were all dealt with.
    void ExpectTask(const std::wstring& expected) {
        EXPECT_TRUE(WaitUntil([&] { return Task() == expected; }, std::chrono::seconds(3)))
            << "expected '" << ToUtf8(expected) << "', the box holds '" << ToUtf8(Task()) << "'";
    }
    /// Empties the box from outside, and presses keys: the last one is pressed and let go, the others are held.
    void ExpectKeysWrite(std::initializer_list<WORD> keys, const std::wstring& expected) {
        SetTextOf(kTask, L"txtTask", L"");
        ASSERT_TRUE(App().WaitForFocus(L"txtTask"));
        PressVirtual(keys);
        ExpectTask(expected);
        ASSERT_TRUE(App().Form(kTask)) << ToUtf8(expected) << " closes the dialog";
        EXPECT_EQ(App().FocusName(), L"txtTask") << ToUtf8(expected);
        EXPECT_FALSE(InMenuMode()) << ToUtf8(expected);
    }
    void PressKeysAndExpect(std::string_view chord, const std::wstring& expected) {
        EXPECT_TRUE(App().Press(chord));
        ExpectTask(expected);
    }
    bool CaretIsAtTheEnd() {
        const int length = static_cast<int>(Task().size());
        return EditSelection(In(kTask, L"txtTask")) == std::pair<int, int>(length, length);
    }
};

// ---- starting and stopping
// -------------------------------------------------------------------------------------------

TEST_F(CommandCapture, StartAndStopAreShownAndNeverWritten) {
    StartOnCommandKeys();
    EXPECT_EQ(App().Text(kTask, L"lblTask"), kOptionPrompt);
    ASSERT_NO_FATAL_FAILURE(Begin());
    EXPECT_EQ(Task(), L"");
    PressKeysAndExpect("Ctrl+C", L"Control+C");
    ASSERT_NO_FATAL_FAILURE(End());
    EXPECT_EQ(Task(), L"Control+C");
    ASSERT_TRUE(App().Type(L"x"));
    ExpectTask(L"Control+Cx");
    ASSERT_NO_FATAL_FAILURE(Begin());
    EXPECT_EQ(Task(), L"Control+Cx");
    PressKeysAndExpect("F1", L"Control+Cx  F1");
    ASSERT_NO_FATAL_FAILURE(End());
    EXPECT_EQ(Task(), L"Control+Cx  F1");
}

TEST_F(CommandCapture, StartAndStopSelectNothingThatTheNextKeyWouldReplace) {
    StartCapturing();
    PressKeysAndExpect("Ctrl+C", L"Control+C");
    ASSERT_NO_FATAL_FAILURE(End());
    ASSERT_NO_FATAL_FAILURE(Begin());
    ASSERT_NO_FATAL_FAILURE(End());
    ASSERT_TRUE(App().Type(L"x"));
    ExpectTask(L"Control+Cx");
}

TEST_F(CommandCapture, StartsFromEveryControlOfTheDialog) {
    StartOnCommandKeys();
    for (const wchar_t* control : {L"txtTaskExplanation", L"OKButton", L"CancelButton", L"optionCommandKeys"}) {
        ASSERT_NO_FATAL_FAILURE(TabTo(control));
        ASSERT_NO_FATAL_FAILURE(Begin());
        ASSERT_NO_FATAL_FAILURE(End());
        EXPECT_EQ(Task(), L"");
    }
}

TEST_F(CommandCapture, ControlF3WithAnotherOptionDoesNothing) {
    StartOnCommandKeys();
    for (const int kind : {3, 2, 1}) {
        ASSERT_NO_FATAL_FAILURE(ChooseKind(kind));
        const std::wstring prompt = App().Text(kTask, L"lblTask");
        ASSERT_TRUE(App().Press("Ctrl+F3"));
        ASSERT_TRUE(App().Type(L"typed"));
        ExpectTask(L"typed");
        EXPECT_EQ(App().Text(kTask, L"lblTask"), prompt);
    }
}

TEST_F(CommandCapture, NothingIsCapturedBeforeTheStart) {
    StartOnCommandKeys();
    ASSERT_TRUE(App().Type(L"a b"));
    ExpectTask(L"a b");
    ASSERT_TRUE(App().Press("F5"));
    ASSERT_TRUE(App().Type(L"c"));
    ExpectTask(L"a bc");
}

TEST_F(CommandCapture, ChoosingAnotherKindEndsIt) {
    StartCapturing();
    PressKeysAndExpect("Ctrl+C", L"Control+C");
    ASSERT_NO_FATAL_FAILURE(ChooseKind(3));
    EXPECT_EQ(App().Text(kTask, L"lblTask"), L"TYPE YOUR PHRASE");
    EXPECT_EQ(Task(), L"");
    ASSERT_TRUE(App().Type(L"plain text"));
    ExpectTask(L"plain text");
    ASSERT_NO_FATAL_FAILURE(ChooseKind(5));
    EXPECT_EQ(App().Text(kTask, L"lblTask"), kOptionPrompt) << "coming back does not go on capturing";
    ASSERT_TRUE(App().Type(L"x"));
    ExpectTask(L"x");
}

TEST_F(CommandCapture, OnlyControlF3StartsAndOtherChordsOfF3AreWritten) {
    StartOnCommandKeys();
    for (const char* chord : {"F3", "Shift+F3", "Ctrl+Shift+F3", "Ctrl+Alt+F3"}) ASSERT_TRUE(App().Press(chord));
    ASSERT_NO_FATAL_FAILURE(Begin());
    PressKeysAndExpect("F3", L"F3");
    PressKeysAndExpect("Shift+F3", L"F3  Shift+F3");
    PressKeysAndExpect("Ctrl+Shift+F3", L"F3  Shift+F3  Control+Shift+F3");
    PressKeysAndExpect("Alt+F3", L"F3  Shift+F3  Control+Shift+F3  Alt+F3");
}

TEST_F(CommandCapture, NewTaskStartsWithoutCapture) {
    StartCapturing();
    ASSERT_NO_FATAL_FAILURE(TabTo(L"CancelButton"));
    ASSERT_TRUE(App().Press("Space"));
    ASSERT_TRUE(App().WaitForNoForm(kTask));
    ASSERT_NO_FATAL_FAILURE(OpenNewTask());
    EXPECT_EQ(App().Text(kTask, L"lblTask"), L"TYPE YOUR NEW TASK");
    ASSERT_TRUE(App().Type(L"plain"));
    ExpectTask(L"plain");
}

// ---- the names
// -------------------------------------------------------------------------------------------------------

TEST_F(CommandCapture, LettersDigitsAndFunctionKeys) {
    StartCapturing();
    for (WORD key = 'A'; key <= 'Z'; ++key)
        ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({key}, std::wstring(1, static_cast<wchar_t>(key))));
    for (WORD key = '0'; key <= '9'; ++key)
        ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({key}, std::wstring(1, static_cast<wchar_t>(key))));
    for (int number = 1; number <= 12; ++number)
        ASSERT_NO_FATAL_FAILURE(
            ExpectKeysWrite({static_cast<WORD>(VK_F1 + number - 1)}, L"F" + std::to_wstring(number)));
    ASSERT_NO_FATAL_FAILURE(End());
    EXPECT_EQ(Task(), L"F12");
}

TEST_F(CommandCapture, NumberPadWithNumLockOnAndOff) {
    StartCapturing();
    for (int digit = 0; digit <= 9; ++digit)
        ASSERT_NO_FATAL_FAILURE(
            ExpectKeysWrite({static_cast<WORD>(VK_NUMPAD0 + digit)}, L"Numpad" + std::to_wstring(digit)));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_MULTIPLY}, L"NumPadStar"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_ADD}, L"NumPadPlus"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({kNumpadEnter}, L"NumPadEnter"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_SUBTRACT}, L"NumPadMinus"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_DECIMAL}, L"NumPadDot"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_DIVIDE}, L"NumPadSlash"));
    // The state of the lock decides which code the keyboard sends for the middle key, and changes no name.
    for (int round = 0; round < 2; ++round) {
        ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_NUMLOCK}, L"NumLock"));
        ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({kNumpad5}, L"Numpad5"));
        ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_CLEAR}, L"NumPad5"));
    }
}

TEST_F(CommandCapture, PunctuationIsWrittenAsOnAUsKeyboardWithoutShift) {
    StartCapturing();
    struct Row {
        WORD key;
        const wchar_t* name;
    };
    for (const Row& row : {Row{VK_OEM_1, L";"}, Row{VK_OEM_PLUS, L"="}, Row{VK_OEM_COMMA, L","},
                           Row{VK_OEM_MINUS, L"-"}, Row{VK_OEM_PERIOD, L"."}, Row{VK_OEM_2, L"/"}, Row{VK_OEM_3, L"`"},
                           Row{VK_OEM_4, L"["}, Row{VK_OEM_5, L"\\"}, Row{VK_OEM_6, L"]"}, Row{VK_OEM_7, L"'"}}) {
        ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({row.key}, row.name));
        ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_SHIFT, row.key}, L"Shift+" + std::wstring(row.name)));
    }
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_SHIFT, '1'}, L"Shift+1"));
}

TEST_F(CommandCapture, EditingNavigationAndLockKeys) {
    StartCapturing();
    struct Row {
        WORD key;
        const wchar_t* name;
    };
    for (const Row& row :
         {Row{VK_SPACE, L"Space"}, Row{VK_BACK, L"BackSpace"}, Row{VK_RETURN, L"Enter"}, Row{VK_PRIOR, L"PageUp"},
          Row{VK_NEXT, L"PageDown"}, Row{VK_END, L"End"}, Row{VK_HOME, L"Home"}, Row{VK_LEFT, L"LeftArrow"},
          Row{VK_RIGHT, L"RightArrow"}, Row{VK_UP, L"UpArrow"}, Row{VK_DOWN, L"DownArrow"},
          Row{VK_SNAPSHOT, L"PrintScreen"}, Row{VK_DELETE, L"Delete"}, Row{VK_PAUSE, L"Pause"},
          Row{VK_CAPITAL, L"CapsLock"}, Row{VK_CAPITAL, L"CapsLock"}, Row{VK_SCROLL, L"ScrollLock"},
          Row{VK_SCROLL, L"ScrollLock"}}) {
        ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({row.key}, row.name));
    }
}

TEST_F(CommandCapture, WindowsAndMenuKeys) {
    StartCapturing();
    if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr)
        GTEST_SKIP() << "the desktop would take these keys";
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_LWIN}, L"LeftWindows"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_RWIN}, L"RightWindows"));
    SetTextOf(kTask, L"txtTask", L"");
    PressVirtual({VK_APPS});
    ExpectTask(L"ContextMenu");
    // The key still reaches the box, whose menu it opens.
    if (WaitUntil([&] { return InMenuMode(); }, std::chrono::milliseconds(300))) {
        PressVirtual({VK_ESCAPE});
        ASSERT_TRUE(WaitUntil([&] { return !InMenuMode(); }));
    }
    EXPECT_EQ(Task(), L"ContextMenu");
    PressKeysAndExpect("A", L"ContextMenu  A");
}

TEST_F(CommandCapture, FirstChordHasNoSpacesBeforeItAndLaterOnesHaveTwo) {
    StartCapturing();
    PressKeysAndExpect("Ctrl+C", L"Control+C");
    PressKeysAndExpect("Alt+F4", L"Control+C  Alt+F4");
    PressKeysAndExpect("Ctrl+V", L"Control+C  Alt+F4  Control+V");
}

TEST_F(CommandCapture, ModifiersAloneWriteNothing) {
    StartCapturing();
    PressKeysAndExpect("A", L"A");
    for (const int key : {VK_CONTROL, VK_SHIFT, VK_MENU, VK_INSERT}) {
        PressVirtual({static_cast<WORD>(key)});
        EXPECT_FALSE(InMenuMode());
    }
    PressVirtual({VK_CONTROL, VK_MENU});
    PressVirtual({VK_CONTROL, VK_INSERT});
    PressKeysAndExpect("B", L"A  B");
}

TEST_F(CommandCapture, ModifiersStandInAFixedOrder) {
    StartCapturing();
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_SHIFT, VK_MENU, VK_CONTROL, 'T'}, L"Control+Alt+Shift+T"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_SHIFT, VK_CONTROL, 'T'}, L"Control+Shift+T"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_SHIFT, VK_MENU, 'T'}, L"Alt+Shift+T"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_INSERT, VK_SHIFT, VK_CONTROL, 'T'}, L"Control+Shift+JawsKey+T"));
    ASSERT_NO_FATAL_FAILURE(
        ExpectKeysWrite({VK_INSERT, VK_SHIFT, VK_MENU, VK_CONTROL, 'T'}, L"Control+Alt+Shift+JawsKey+T"));
}

// ---- Insert
// ----------------------------------------------------------------------------------------------------------

TEST_F(CommandCapture, HeldInsertIsJawsKeyUntilItIsLetGo) {
    StartCapturing();
    HoldKey(VK_INSERT);
    PressVirtual({VK_CONTROL, VK_SHIFT, 'T'});
    ExpectTask(L"Control+Shift+JawsKey+T");
    PressVirtual({'T'});
    ExpectTask(L"Control+Shift+JawsKey+T  JawsKey+T");
    ReleaseKey(VK_INSERT);
    PressVirtual({'T'});
    ExpectTask(L"Control+Shift+JawsKey+T  JawsKey+T  T");
}

TEST_F(CommandCapture, InsertAloneWritesNothing) {
    StartCapturing();
    PressVirtual({VK_INSERT});
    PressKeysAndExpect("A", L"A");
    PressVirtual({VK_INSERT});
    PressKeysAndExpect("B", L"A  B");
}

TEST_F(CommandCapture, InsertLetGoAfterTheEndStaysHeldUntilItsNextCapturedRelease) {
    StartCapturing();
    HoldKey(VK_INSERT);
    PressVirtual({'A'});
    ExpectTask(L"JawsKey+A");
    ASSERT_NO_FATAL_FAILURE(End());
    ReleaseKey(VK_INSERT);
    ASSERT_NO_FATAL_FAILURE(Begin());
    PressKeysAndExpect("B", L"JawsKey+A  JawsKey+B");
    PressVirtual({VK_INSERT});
    PressKeysAndExpect("C", L"JawsKey+A  JawsKey+B  C");
}

// ---- keys without a name
// ---------------------------------------------------------------------------------------------

TEST_F(CommandCapture, EscapeLeavesTheSeparatorAndNeverCancels) {
    StartCapturing();
    ASSERT_TRUE(App().Press("Esc"));
    PressKeysAndExpect("A", L"A");
    PressKeysAndExpect("Esc", L"A  ");
    PressKeysAndExpect("Shift+Esc", L"A    ");
    EXPECT_TRUE(App().Form(kTask));
    PressKeysAndExpect("B", L"A      B");
}

TEST_F(CommandCapture, OtherKeysWithoutANameLeaveTheSeparator) {
    StartCapturing();
    PressKeysAndExpect("F13", L"");
    PressKeysAndExpect("A", L"A");
    PressKeysAndExpect("F13", L"A  ");
    PressKeysAndExpect("Ctrl+F24", L"A    ");
    PressKeysAndExpect("B", L"A      B");
}

TEST_F(CommandCapture, TabMovesTheFocusAndIsNotWritten) {
    StartCapturing();
    PressKeysAndExpect("A", L"A");
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"txtTaskExplanation"));
    ASSERT_TRUE(App().Type(L"told"));
    ASSERT_TRUE(App().WaitForText(kTask, L"txtTaskExplanation", L"told")) << "the other box is typed into as usual";
    ASSERT_TRUE(App().Press("Shift+Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"txtTask"));
    EXPECT_EQ(Task(), L"A");
    PressKeysAndExpect("B", L"A  B");
    EXPECT_EQ(App().Text(kTask, L"lblTask"), kCapturePrompt);
    ASSERT_TRUE(App().Press("Shift+Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"optionCommandKeys"));
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"txtTask"));
    PressKeysAndExpect("C", L"A  B  C");
}

TEST_F(CommandCapture, ControlTabLeavesTheSeparatorAndTheFocus) {
    StartCapturing();
    ASSERT_TRUE(App().Press("Ctrl+Tab"));
    PressKeysAndExpect("A", L"A");
    PressKeysAndExpect("Ctrl+Tab", L"A  ");
    PressKeysAndExpect("Ctrl+Shift+Tab", L"A    ");
    EXPECT_EQ(App().FocusName(), L"txtTask");
}

TEST_F(CommandCapture, EscapeElsewhereStillCancels) {
    StartCapturing();
    ASSERT_NO_FATAL_FAILURE(TabTo(L"txtTaskExplanation"));
    ASSERT_TRUE(App().Press("Esc"));
    EXPECT_TRUE(App().WaitForNoForm(kTask));
}

// ---- keys that the dialog or the system would act on
// -----------------------------------------------------------------

TEST_F(CommandCapture, DialogKeysAreCapturedAndDoNotAct) {
    StartCapturing();
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_MENU, VK_F4}, L"Alt+F4"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_CONTROL, 'A'}, L"Control+A"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_RETURN}, L"Enter"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_CONTROL, VK_RETURN}, L"Control+Enter"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_F1}, L"F1"));
    EXPECT_TRUE(TaskLines().empty()) << "no button was pressed";
}

TEST_F(CommandCapture, F10AndAltChordsStartNoMenu) {
    StartCapturing();
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_F10}, L"F10"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_SHIFT, VK_F10}, L"Shift+F10"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_MENU, VK_SPACE}, L"Alt+Space"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_MENU, 'T'}, L"Alt+T"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_MENU, VK_F10}, L"Alt+F10"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_MENU, VK_DOWN}, L"Alt+DownArrow"));
    ASSERT_NO_FATAL_FAILURE(ExpectKeysWrite({VK_MENU, VK_RETURN}, L"Alt+Enter"));
    SetTextOf(kTask, L"txtTask", L"");
    PressVirtual({VK_MENU});
    PressVirtual({VK_MENU});
    // In a menu the next key would be lost.
    PressKeysAndExpect("A", L"A");
    EXPECT_FALSE(InMenuMode());
}

TEST_F(CommandCapture, KeysThatMayNotActOnTheBoxDoNot) {
    StartCapturing();
    PressKeysAndExpect("A", L"A");
    std::wstring text = L"A";
    struct Row {
        const char* key;
        const wchar_t* name;
    };
    for (const Row& row :
         {Row{"Enter", L"Enter"}, Row{"End", L"End"}, Row{"Left", L"LeftArrow"}, Row{"Right", L"RightArrow"},
          Row{"Up", L"UpArrow"}, Row{"Down", L"DownArrow"}, Row{"Delete", L"Delete"}}) {
        text += L"  " + std::wstring(row.name);
        PressKeysAndExpect(row.key, text);
        EXPECT_TRUE(CaretIsAtTheEnd()) << row.key;
    }
    PressVirtual({kNumpadEnter});
    ExpectTask(text + L"  NumPadEnter");
    EXPECT_TRUE(CaretIsAtTheEnd());
}

TEST_F(CommandCapture, HomeIsWrittenAndAlsoMovesTheCaret) {
    StartCapturing();
    PressKeysAndExpect("Ctrl+C", L"Control+C");
    PressKeysAndExpect("Home", L"Control+C  Home");
    EXPECT_TRUE(WaitUntil([&] { return EditSelection(In(kTask, L"txtTask")) == std::pair<int, int>(0, 0); }));
    PressKeysAndExpect("PageUp", L"Control+C  Home  PageUp");
    PressKeysAndExpect("A", L"Control+C  Home  PageUp  A");
    EXPECT_TRUE(CaretIsAtTheEnd()) << "the next chord is still written at the end";
}

TEST_F(CommandCapture, BackSpaceIsWrittenAndDeletesNothing) {
    StartCapturing();
    PressKeysAndExpect("A", L"A");
    PressKeysAndExpect("Backspace", L"A  BackSpace");
    PressKeysAndExpect("Ctrl+H", L"A  BackSpace  Control+H");
    PressKeysAndExpect("B", L"A  BackSpace  Control+H  B");
}

TEST_F(CommandCapture, CutUndoAndCopyChordsOnlyWriteTheirNames) {
    StartCapturing();
    PressKeysAndExpect("Ctrl+X", L"Control+X");
    PressKeysAndExpect("Ctrl+Z", L"Control+X  Control+Z");
    PressKeysAndExpect("Ctrl+C", L"Control+X  Control+Z  Control+C");
    PressKeysAndExpect("Ctrl+M", L"Control+X  Control+Z  Control+C  Control+M");
}

// ---- pasting
// ---------------------------------------------------------------------------------------------------------

TEST_F(CommandCapture, NothingIsPasted) {
    StartCapturing();
    ASSERT_TRUE(CopyToClipboard(L"pasted"));
    PressKeysAndExpect("Ctrl+V", L"Control+V");
    In(kTask, L"txtTask").Send(WM_PASTE);
    EXPECT_EQ(Task(), L"Control+V");
    ASSERT_NO_FATAL_FAILURE(TabTo(L"txtTaskExplanation"));
    ASSERT_TRUE(App().Press("Ctrl+V"));
    EXPECT_TRUE(App().WaitForText(kTask, L"txtTaskExplanation", L"pasted")) << "the other box takes it";
    ASSERT_NO_FATAL_FAILURE(End());
    EXPECT_EQ(Task(), L"Control+V");
    In(kTask, L"txtTask").Send(WM_PASTE);
    EXPECT_NE(Task().find(L"pasted"), std::wstring::npos) << "after the end pasting is possible again";
}

TEST_F(CommandCapture, ShiftInsertPastesNothing) {
    StartCapturing();
    ASSERT_TRUE(CopyToClipboard(L"pasted"));
    PressKeysAndExpect("A", L"A");
    PressVirtual({VK_SHIFT, VK_INSERT});
    PressKeysAndExpect("B", L"A  B");
    // The screen reader's key may be held while Shift goes down, and repeats.
    HoldKey(VK_INSERT);
    HoldKey(VK_SHIFT);
    HoldKey(VK_INSERT);
    PressVirtual({'T'});
    ReleaseKey(VK_SHIFT);
    ReleaseKey(VK_INSERT);
    ExpectTask(L"A  B  Shift+JawsKey+T");
}

// ---- saving
// ----------------------------------------------------------------------------------------------------------

TEST_F(CommandCapture, CapturedTaskIsStoredAndSpelledOut) {
    StartCapturing();
    PressKeysAndExpect("Ctrl+C", L"Control+C");
    HoldKey(VK_INSERT);
    PressVirtual({'T'});
    ReleaseKey(VK_INSERT);
    ExpectTask(L"Control+C  JawsKey+T");
    PressKeysAndExpect("F13", L"Control+C  JawsKey+T  ");
    PressKeysAndExpect("Alt+F4", L"Control+C  JawsKey+T    Alt+F4");
    PressKeysAndExpect("Esc", L"Control+C  JawsKey+T    Alt+F4  ");
    ASSERT_NO_FATAL_FAILURE(End());
    ASSERT_NO_FATAL_FAILURE(ConfirmTask());
    ASSERT_TRUE(WaitUntil([&] { return TaskLines() == std::vector<std::wstring>{L"Control+C  JawsKey+T    Alt+F4"}; }))
        << "the separator at the end is trimmed, the run of spaces is kept";
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_EQ(TeachersBytes(), StoredFile({{.title = "Lesson",
                                            .tasks = {{"5", "Control+C  JawsKey+T    Alt+F4",
                                                       "Control+C\x05JawsKey+T\x05\x05"
                                                       "Alt+F4\x05"}}}}));
}

TEST_F(CommandCapture, CaptureGoesOnBehindAStoredTask) {
    WriteTeachersFile({{.title = "Lesson", .tasks = {{"5", "Control+C", "Control+C\x05", ""}}}});
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    ASSERT_NO_FATAL_FAILURE(OpenSelectedTask());
    EXPECT_EQ(App().Text(kTask, L"lblTask"), kOptionPrompt);
    ASSERT_NO_FATAL_FAILURE(Begin());
    PressKeysAndExpect("Ctrl+V", L"Control+C  Control+V");
    ASSERT_NO_FATAL_FAILURE(End());
    ASSERT_NO_FATAL_FAILURE(ConfirmTask());
    EXPECT_TRUE(WaitUntil([&] { return TaskLines() == std::vector<std::wstring>{L"Control+C  Control+V"}; }));
    EXPECT_TRUE(App().Form(kEditor));
}

TEST_F(CommandCapture, LongCaptureIsTold) {
    StartCapturing();
    SetTextOf(kTask, L"txtTask", std::wstring(250, L'x'));
    EXPECT_EQ(Notice(kTask), L"");
    ASSERT_TRUE(App().Press("Ctrl+C"));
    EXPECT_TRUE(WaitForNotice(kTask, L"The task is too long: only its first 254 characters are read back."));
    EXPECT_TRUE(CaretIsAtTheEnd());
}

}  // namespace
}  // namespace e2e
