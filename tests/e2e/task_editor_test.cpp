// The task editor: the four kinds, what it takes over and what it leaves, and what it says of losses.
#include "editor_story.h"

namespace e2e {
namespace {

constexpr wchar_t kEditor[] = L"dlgLessonEdit";
constexpr wchar_t kTask[] = L"dlgTaskEdit";

struct Kind {
    int kind;
    const wchar_t* option;
    const wchar_t* prompt;
};
constexpr Kind kKinds[]{
    {1, L"optionLetters", L"TYPE YOUR NEW TASK"},
    {2, L"optionSingleWord", L"TYPE YOUR WORD"},
    {3, L"optionWords", L"TYPE YOUR PHRASE"},
    {5, L"optionCommandKeys", L"Press Control+F3, then TYPE YOUR HOTKEYS, then press Control+F3 again"},
};

class TaskEditor : public EditorTest {
protected:
    /// Opens the task editor on the only task of a lesson.
    void StartOn(const StoredTask& task) {
        WriteTeachersFile({{.title = "Lesson", .tasks = {task}}});
        ASSERT_NO_FATAL_FAILURE(StartInTeachersList());
        ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
        ASSERT_NO_FATAL_FAILURE(OpenSelectedTask());
    }
    /// Opens the task editor for the second task of a lesson.
    void StartOnNewTask() {
        WriteTeachersFile({{.title = "Lesson", .tasks = {Letters("one")}}});
        ASSERT_NO_FATAL_FAILURE(StartInTeachersList());
        ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
        ASSERT_NO_FATAL_FAILURE(OpenNewTask());
    }

    std::wstring Task() { return App().Text(kTask, L"txtTask"); }
    std::wstring Explanation() { return App().Text(kTask, L"txtTaskExplanation"); }

    void ExpectKind(const Kind& expected) {
        for (const Kind& kind : kKinds)
            EXPECT_EQ(Checked(kTask, kind.option), kind.kind == expected.kind) << ToUtf8(kind.option);
        EXPECT_EQ(App().Text(kTask, L"lblTask"), expected.prompt);
    }
};

TEST_F(TaskEditor, CreateOpensEmptyOnLetters) {
    StartOnNewTask();
    EXPECT_EQ(App().Form(kTask).Text(), L"Create New Task");
    EXPECT_EQ(App().Text(kTask, L"lblTaskNumber"), L"Task 2");
    EXPECT_EQ(Task(), L"");
    EXPECT_EQ(Explanation(), L"");
    ExpectKind(kKinds[0]);
    EXPECT_EQ(Notice(kTask), L"");
    EXPECT_EQ(App().Form(kTask).Owner(), App().Form(kEditor));
}

TEST_F(TaskEditor, CreateOpensEmptyAlsoAfterAnotherTask) {
    StartOnNewTask();
    ASSERT_NO_FATAL_FAILURE(ChooseKind(3));
    ASSERT_TRUE(App().Type(L"two words"));
    ASSERT_NO_FATAL_FAILURE(ConfirmTask());
    ASSERT_NO_FATAL_FAILURE(OpenNewTask());
    EXPECT_EQ(App().Text(kTask, L"lblTaskNumber"), L"Task 3");
    EXPECT_EQ(Task(), L"");
    ExpectKind(kKinds[0]);
}

TEST_F(TaskEditor, EachKindShowsItsPromptAndEmptiesTheBoxes) {
    StartOnNewTask();
    for (const int step : {1, 2, 3, 2, 1, 0}) {
        const Kind& kind = kKinds[step];
        SetTextOf(kTask, L"txtTask", L"old");
        SetTextOf(kTask, L"txtTaskExplanation", L"old");
        ASSERT_NO_FATAL_FAILURE(ChooseKind(kind.kind));
        ExpectKind(kind);
        EXPECT_EQ(Task(), L"");
        EXPECT_EQ(Explanation(), L"");
        EXPECT_TRUE(In(kTask, L"txtTaskExplanation").Visible());
        EXPECT_TRUE(In(kTask, L"lblExplanation").Visible());
        EXPECT_EQ(App().FocusName(), L"txtTask");
    }
}

TEST_F(TaskEditor, KindIsChosenByTheMouseToo) {
    StartOnNewTask();
    ASSERT_TRUE(App().Type(L"old"));
    ASSERT_TRUE(App().WaitForText(kTask, L"txtTask", L"old"));
    Click(kTask, L"optionWords");
    ASSERT_TRUE(App().WaitForText(kTask, L"lblTask", L"TYPE YOUR PHRASE"));
    EXPECT_TRUE(App().WaitForFocus(L"txtTask"));
    EXPECT_EQ(Task(), L"");
}

TEST_F(TaskEditor, SelectedOptionThatGetsTheFocusKeepsWhatWasTyped) {
    StartOnNewTask();
    ASSERT_TRUE(App().Type(L"kept"));
    ASSERT_TRUE(App().WaitForText(kTask, L"txtTask", L"kept"));
    ASSERT_TRUE(App().Press("Shift+Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"optionLetters"));
    ASSERT_TRUE(App().Press("Space"));
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"txtTask"));
    EXPECT_EQ(Task(), L"kept");
}

TEST_F(TaskEditor, EditShowsTheStoredTaskWithItsKind) {
    struct Row {
        const char* stored;
        int shown;
    };
    std::vector<StoredTask> tasks;
    const Row rows[]{{"1", 0}, {"2", 1}, {"3", 2}, {"4", 2}, {"5", 3}, {"0", 3}, {"6", 3}, {"word", 3}, {"", 3}};
    for (const Row& row : rows) tasks.push_back({row.stored, std::string("text ") + row.stored, "t\x05", "Told."});
    WriteTeachersFile({{.title = "Kinds", .tasks = tasks}});
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    int number = 0;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.stored);
        In(kEditor, L"lstTasks").Send(LB_SETCURSEL, static_cast<WPARAM>(number++));
        ASSERT_NO_FATAL_FAILURE(OpenSelectedTask());
        EXPECT_EQ(App().Form(kTask).Text(), L"Edit Task");
        EXPECT_EQ(App().Text(kTask, L"lblTaskNumber"), L"Task " + std::to_wstring(number));
        ExpectKind(kKinds[row.shown]);
        EXPECT_EQ(Task(), *row.stored == '\0' ? L"text" : L"text " + ToWide(row.stored))
            << "filling the dialog clears nothing";
        EXPECT_EQ(Explanation(), L"Told.");
        ASSERT_TRUE(App().Press("Esc"));
        ASSERT_TRUE(App().WaitForNoForm(kTask));
    }
}

TEST_F(TaskEditor, TaskOfKind4OpensAsAPhraseAndIsSavedAsKind3) {
    StartOn({"4", "a b",
             "a\x05Space\x05"
             "b\x05",
             "Told."});
    ExpectKind(kKinds[2]);
    ASSERT_NO_FATAL_FAILURE(ConfirmTask());
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_EQ(TeachersBytes(), StoredFile({{.title = "Lesson",
                                            .tasks = {{"3", "a b",
                                                       "a\x05Space\x05"
                                                       "b\x05",
                                                       "Told."}}}}));
}

TEST_F(TaskEditor, TaskIsTrimmedAndItsExplanationKeepsItsBlanks) {
    StartOnNewTask();
    ASSERT_TRUE(App().Type(L"  a b   "));
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"txtTaskExplanation"));
    ASSERT_TRUE(App().Type(L"  two blanks each  "));
    ASSERT_TRUE(App().WaitForText(kTask, L"txtTaskExplanation", L"  two blanks each  "));
    ASSERT_NO_FATAL_FAILURE(ConfirmTask());
    EXPECT_EQ(TaskLines(), (std::vector<std::wstring>{L"one", L"a b"}));
    In(kEditor, L"lstTasks").Send(LB_SETCURSEL, 1);
    ASSERT_NO_FATAL_FAILURE(OpenSelectedTask());
    EXPECT_EQ(Task(), L"a b");
    EXPECT_EQ(Explanation(), L"  two blanks each  ");
}

TEST_F(TaskEditor, EveryWayOfCancellingLeavesTheTaskAsItWas) {
    StartOn(Letters("one"));
    for (const char* chord : {"Esc", "Ctrl+Esc", "Shift+Esc", "Alt+F4", "button", "close"}) {
        if (!App().Form(kTask)) {
            ASSERT_NO_FATAL_FAILURE(OpenSelectedTask());
        }
        EXPECT_EQ(Task(), L"one") << chord;
        ASSERT_NO_FATAL_FAILURE(Retype(kTask, L"txtTask", L"changed"));
        if (std::string_view(chord) == "button")
            Click(kTask, L"CancelButton");
        else if (std::string_view(chord) == "close")
            App().Form(kTask).Post(WM_CLOSE);
        else
            App().Press(chord);
        ASSERT_TRUE(App().WaitForNoForm(kTask)) << chord;
        EXPECT_EQ(TaskLines(), std::vector<std::wstring>{L"one"}) << chord;
        EXPECT_TRUE(App().WaitForFocus(L"cmdEditTask")) << chord << ": the focus is back where it was";
    }
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_EQ(TeachersBytes(), StoredFile({{.title = "Lesson", .tasks = {Letters("one")}}}));
}

TEST_F(TaskEditor, ControlASelectsAllAndTypesNothingOverIt) {
    StartOn(Letters("onetwo"));
    const Window box = In(kTask, L"txtTask");
    box.Send(EM_SETSEL, 2, 2);
    ASSERT_TRUE(App().Press("Ctrl+A"));
    ASSERT_TRUE(WaitUntil([&] { return EditSelection(box) == std::pair<int, int>(0, 6); }));
    EXPECT_EQ(Task(), L"onetwo");
    ASSERT_TRUE(App().Type(L"b"));
    EXPECT_TRUE(App().WaitForText(kTask, L"txtTask", L"b"));
}

TEST_F(TaskEditor, ControlShiftADoesNotSelectAll) {
    StartOn(Letters("onetwo"));
    In(kTask, L"txtTask").Send(EM_SETSEL, 6, 6);
    ASSERT_TRUE(App().Press("Ctrl+Shift+A"));
    ASSERT_TRUE(App().Type(L"c"));
    EXPECT_TRUE(WaitUntil([&] { return Task() == L"onetwoc"; }, std::chrono::seconds(3)))
        << "the box holds " << ToUtf8(Task());
}

TEST_F(TaskEditor, PastedLineBreaksAreDroppedAndTheRestIsKept) {
    StartOnNewTask();
    ASSERT_TRUE(CopyToClipboard(L"one\r\ntwo\nthree\rfour\tfive"));
    const std::wstring pasted = L"onetwothreefour\tfive";
    for (const wchar_t* box : {L"txtTask", L"txtTaskExplanation"}) {
        ASSERT_NO_FATAL_FAILURE(TabTo(box));
        for (const char* chord : {"Ctrl+V", "Shift+Insert", "message"}) {
            SetTextOf(kTask, box, L"");
            if (std::string_view(chord) == "message")
                In(kTask, box).Send(WM_PASTE);
            else
                App().Press(chord);
            EXPECT_TRUE(WaitUntil([&] { return App().Text(kTask, box) == pasted; }, std::chrono::seconds(3)))
                << chord << ": " << Readable(App().Text(kTask, box));
        }
    }
}

TEST_F(TaskEditor, LineBreaksFromOutsideAndFromKeysAreDropped) {
    StartOnNewTask();
    SetTextOf(kTask, L"txtTask", L"one\r\ntwo");
    EXPECT_EQ(Task(), L"onetwo");
    for (const char* chord : {"Ctrl+J", "Ctrl+M"}) ASSERT_TRUE(App().Press(chord));
    In(kTask, L"txtTask").Send(WM_CHAR, L'\r', 1);
    In(kTask, L"txtTask").Send(WM_CHAR, L'\n', 1);
    In(kTask, L"txtTask").Send(EM_SETSEL, 6, 6);
    ASSERT_TRUE(App().Type(L"x"));
    EXPECT_TRUE(App().WaitForText(kTask, L"txtTask", L"onetwox")) << ToUtf8(Task());
}

TEST_F(TaskEditor, NoticeComesWithThe255thCharacterAndGoesWithIt) {
    StartOnNewTask();
    struct Box {
        const wchar_t* name;
        const wchar_t* sentence;
    };
    for (const Box& box :
         {Box{L"txtTask", L"The task is too long: only its first 254 characters are read back."},
          Box{L"txtTaskExplanation", L"The explanation is too long: only its first 254 characters are read back."}}) {
        SetTextOf(kTask, box.name, std::wstring(253, L'x'));
        ASSERT_NO_FATAL_FAILURE(TabTo(box.name));
        ASSERT_TRUE(App().Press("End"));
        ASSERT_TRUE(App().Type(L"y"));
        ASSERT_TRUE(App().WaitForText(kTask, box.name, std::wstring(253, L'x') + L"y"));
        EXPECT_EQ(Notice(kTask), L"");
        EXPECT_FALSE(In(kTask, L"lblNotice").Shown());
        ASSERT_TRUE(App().Type(L"z"));
        EXPECT_TRUE(WaitForNotice(kTask, box.sentence));
        EXPECT_EQ(App().Text(kTask, box.name), std::wstring(253, L'x') + L"yz") << "typing is never stopped";
        ExpectEverythingReadable(App().Form(kTask), 96);
        ASSERT_TRUE(App().Press("Backspace"));
        EXPECT_TRUE(WaitForNotice(kTask, L""));
        EXPECT_EQ(App().FocusName(), box.name);
    }
    EXPECT_FALSE(App().TopBox());
}

TEST_F(TaskEditor, NoticeTellsOfCharactersOutsideTheCodePageAndOfQuotationMarks) {
    StartOnNewTask();
    ASSERT_TRUE(App().Type(L"caf\u00e9 "));
    ASSERT_TRUE(App().WaitForText(kTask, L"txtTask", L"caf\u00e9 "));
    EXPECT_EQ(Notice(kTask), L"");
    ASSERT_TRUE(App().Type(L"\u0416"));
    EXPECT_TRUE(WaitForNotice(kTask, L"The task has characters that the file cannot keep."));
    ASSERT_NO_FATAL_FAILURE(Retype(kTask, L"txtTask", L"\"say\""));
    EXPECT_TRUE(WaitForNotice(kTask, L"The task stands in quotation marks, and these are not read back."));
    ASSERT_TRUE(App().Type(L"."));
    EXPECT_TRUE(WaitForNotice(kTask, L""));
    SetTextOf(kTask, L"txtTaskExplanation", L"'told'");
    EXPECT_TRUE(WaitForNotice(kTask, L"The explanation stands in quotation marks, and these are not read back."));
    ASSERT_NO_FATAL_FAILURE(ChooseKind(2));
    EXPECT_TRUE(WaitForNotice(kTask, L"")) << "choosing a kind empties the boxes";
}

TEST_F(TaskEditor, BlanksAroundTheTaskDoNotCountInItsNotice) {
    StartOnNewTask();
    SetTextOf(kTask, L"txtTask", L"   " + std::wstring(254, L'x') + L"   ");
    EXPECT_EQ(Notice(kTask), L"") << "they are not stored";
    SetTextOf(kTask, L"txtTaskExplanation", std::wstring(254, L'x') + L" ");
    EXPECT_NE(Notice(kTask), L"") << "an explanation is stored as typed";
}

TEST_F(TaskEditor, AccessibilityWalk) {
    StartOnNewTask();
    const Window dialog = App().Form(kTask);
    EXPECT_EQ(Order(dialog), (std::vector<std::wstring>{
                                 L"fraKind", L"optionLetters", L"optionSingleWord", L"optionWords",
                                 L"optionCommandKeys", L"lblTaskNumber", L"lblTask", L"txtTask", L"lblExplanation",
                                 L"txtTaskExplanation", L"lblNotice", L"OKButton", L"CancelButton"}));
    CheckSpokenNames(dialog,
                     {{L"txtTask", L"TYPE YOUR NEW TASK"}, {L"txtTaskExplanation", L"Explanation for the pupil"}});
    ExpectGroup(dialog, L"fraKind", {L"optionLetters", L"optionSingleWord", L"optionWords", L"optionCommandKeys"});
    EXPECT_EQ(In(kTask, L"fraKind").Text(), L"Kind of task");
    EXPECT_EQ(In(kTask, L"optionLetters").Text(), L"Task is a series of letters, numbers, punctuation. eg: a1b2c3!");
    EXPECT_EQ(In(kTask, L"optionSingleWord").Text(), L"Task is a single word, eg: wonderful");
    EXPECT_EQ(In(kTask, L"optionWords").Text(), L"Task is a phrase, eg: nice day. Or a sentence, eg: Have a nice day!");
    EXPECT_EQ(In(kTask, L"optionCommandKeys").Text(), L"Task is a series of key commands, eg: Control+C, Control+V");
    ExpectOneDefaultButton(dialog);
    for (const wchar_t* box : {L"txtTask", L"txtTaskExplanation"})
        EXPECT_EQ(In(kTask, box).Style() & ES_MULTILINE, 0U) << ToUtf8(box);
    ExpectTabOrder({L"txtTask", L"txtTaskExplanation", L"OKButton", L"CancelButton", L"optionLetters"});
    for (const Kind& kind : kKinds) {
        ASSERT_NO_FATAL_FAILURE(TabTo(L"txtTask"));
        ASSERT_NO_FATAL_FAILURE(ChooseKind(kind.kind));
        ExpectEverythingReadable(dialog, 96);
    }
}

TEST_F(TaskEditor, SmallestScreenShowsEverything) {
    const DisplayResolution resolution(kTightDpi);
    StartOnNewTask();
    ASSERT_NO_FATAL_FAILURE(ChooseKind(5));
    ExpectEverythingReadable(App().Form(kTask), kTightDpi);
    SetTextOf(kTask, L"txtTask", std::wstring(255, L'x'));
    ASSERT_NE(Notice(kTask), L"");
    ExpectEverythingReadable(App().Form(kTask), kTightDpi);
}

TEST_F(TaskEditor, EverythingIsReadableAtTwiceTheResolution) {
    const DisplayResolution resolution(192);
    StartOnNewTask();
    ASSERT_NO_FATAL_FAILURE(ChooseKind(5));
    ExpectEverythingReadable(App().Form(kTask), 192);
}

}  // namespace
}  // namespace e2e
