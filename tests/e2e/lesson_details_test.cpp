// The lesson details: the values that are moved, the key that ends a task, repetitions, and what Cancel sends.
#include "editor_story.h"

namespace e2e {
namespace {

constexpr wchar_t kEditor[] = L"dlgLessonEdit";
constexpr wchar_t kDetails[] = L"dlgLessonDetails";

class LessonDetails : public EditorTest {
protected:
    static StoredLesson Stored() { return {.title = "Home row", .tasks = {Letters("asdf")}}; }

    /// Opens the details of a stored lesson.
    void StartOn(const StoredLesson& lesson) {
        WriteTeachersFile({lesson});
        ASSERT_NO_FATAL_FAILURE(StartInTeachersList());
        ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
        ASSERT_NO_FATAL_FAILURE(OpenDetails());
    }
    void OpenDetails() {
        Click(kEditor, L"cmdEditLesson");
        ASSERT_TRUE(App().WaitForForm(kDetails));
        ASSERT_TRUE(App().WaitForFocus(L"txtLessonTitle"));
    }
    void Confirm() {
        ASSERT_TRUE(App().Press("Enter"));
        ASSERT_TRUE(App().WaitForNoForm(kDetails));
        ASSERT_TRUE(WaitUntil([&] { return App().Form(kEditor).Enabled(); }));
    }
    /// The selected delimiter and repetitions; "" where none is.
    std::wstring Delimiter() {
        for (const wchar_t* option : {L"optionEnterTerminator", L"optionSpaceTerminator", L"optionNoTerminator"})
            if (Checked(kDetails, option)) return App().Text(kDetails, option);
        return {};
    }
    std::wstring Repetitions() {
        for (const wchar_t* option : {L"option2Repetitions", L"option4Repetitions"})
            if (Checked(kDetails, option)) return App().Text(kDetails, option);
        return {};
    }
    /// Tabs into a set of options and moves with the arrows.
    void ChooseWithArrows(const wchar_t* selected, const char* arrow, const wchar_t* wanted) {
        ASSERT_NO_FATAL_FAILURE(TabTo(selected));
        ASSERT_TRUE(App().Press(arrow));
        ASSERT_TRUE(App().WaitForFocus(wanted));
        ASSERT_TRUE(WaitUntil([&] { return Checked(kDetails, wanted); }));
    }
};

TEST_F(LessonDetails, OpensWithTheLessonsValuesAndTwoRepetitions) {
    StartOn(Stored());
    EXPECT_EQ(App().Form(kDetails).Text(), L"Lesson 1");
    EXPECT_EQ(App().Text(kDetails, L"txtLessonTitle"), L"Home row");
    EXPECT_EQ(App().Text(kDetails, L"txtLessonIntro"), L"Listen.");
    EXPECT_EQ(Delimiter(), L"Space");
    EXPECT_EQ(Repetitions(), L"2 repetitions");
    EXPECT_EQ(Notice(kDetails), L"");
    EXPECT_EQ(App().Form(kDetails).Owner(), App().Form(kEditor));
}

TEST_F(LessonDetails, StoredDelimiterSelectsItsOptionAndAnUnknownOneSpace) {
    struct Row {
        const char* stored;
        const wchar_t* selected;
    };
    std::vector<StoredLesson> lessons;
    const Row rows[]{{"Enter", L"Enter"}, {"Space", L"Space"}, {"Nothing", L"Nothing"},
                     {"Tab", L"Space"},   {"", L"Space"},      {"enter", L"Space"}};
    for (const Row& row : rows) lessons.push_back({.title = row.stored, .terminator = row.stored});
    WriteTeachersFile(lessons);
    StartInTeachersList();
    int lesson = 0;
    for (const Row& row : rows) {
        ASSERT_NO_FATAL_FAILURE(OpenLesson(++lesson));
        ASSERT_NO_FATAL_FAILURE(OpenDetails());
        EXPECT_EQ(Delimiter(), row.selected) << row.stored;
        ASSERT_TRUE(App().Press("Esc"));
        ASSERT_TRUE(App().WaitForNoForm(kDetails));
        ASSERT_NO_FATAL_FAILURE(LeaveEditor());
    }
}

TEST_F(LessonDetails, EachDelimiterAndBothRepetitionsAreSaved) {
    StoredLesson lesson = Stored();
    StartOn(lesson);
    ASSERT_NO_FATAL_FAILURE(ChooseWithArrows(L"optionSpaceTerminator", "Up", L"optionEnterTerminator"));
    ASSERT_NO_FATAL_FAILURE(ChooseWithArrows(L"option2Repetitions", "Down", L"option4Repetitions"));
    ASSERT_NO_FATAL_FAILURE(Confirm());
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    lesson.terminator = "Enter";
    lesson.repetitions = "4";
    EXPECT_EQ(TeachersBytes(), StoredFile({lesson}));

    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    ASSERT_NO_FATAL_FAILURE(OpenDetails());
    ASSERT_NO_FATAL_FAILURE(ChooseWithArrows(L"optionEnterTerminator", "Up", L"optionNoTerminator"));
    ASSERT_NO_FATAL_FAILURE(Confirm());
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    lesson.terminator = "Nothing";
    lesson.repetitions = "2";
    EXPECT_EQ(TeachersBytes(), StoredFile({lesson})) << "every opening starts with 2 repetitions";

    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    ASSERT_NO_FATAL_FAILURE(OpenDetails());
    ASSERT_NO_FATAL_FAILURE(ChooseWithArrows(L"optionNoTerminator", "Up", L"optionSpaceTerminator"));
    ASSERT_NO_FATAL_FAILURE(Confirm());
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    lesson.terminator = "Space";
    EXPECT_EQ(TeachersBytes(), StoredFile({lesson}));
}

TEST_F(LessonDetails, NeitherRepetitionOptionSelectedStores4) {
    StoredLesson lesson = Stored();
    StartOn(lesson);
    In(kDetails, L"option2Repetitions").Send(BM_SETCHECK, BST_UNCHECKED);
    In(kDetails, L"option4Repetitions").Send(BM_SETCHECK, BST_UNCHECKED);
    ASSERT_EQ(Repetitions(), L"");
    ASSERT_NO_FATAL_FAILURE(Confirm());
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    lesson.repetitions = "4";
    EXPECT_EQ(TeachersBytes(), StoredFile({lesson}));
}

TEST_F(LessonDetails, FourStoredRepetitionsThatStandAt2AreTold) {
    StoredLesson lesson = Stored();
    lesson.repetitions = "4";
    StartOn(lesson);
    EXPECT_EQ(Repetitions(), L"2 repetitions");
    EXPECT_TRUE(WaitForNotice(kDetails, L"This lesson has 4 repetitions; they stand at 2 now."));
    ExpectEverythingReadable(App().Form(kDetails), 96);
    ASSERT_NO_FATAL_FAILURE(ChooseWithArrows(L"option2Repetitions", "Down", L"option4Repetitions"));
    EXPECT_TRUE(WaitForNotice(kDetails, L""));
    ASSERT_NO_FATAL_FAILURE(ChooseWithArrows(L"option4Repetitions", "Up", L"option2Repetitions"));
    EXPECT_TRUE(WaitForNotice(kDetails, L"This lesson has 4 repetitions; they stand at 2 now."));
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(App().WaitForNoForm(kDetails));
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_EQ(TeachersBytes(), StoredFile({lesson})) << "cancelled details leave the 4 repetitions";
}

TEST_F(LessonDetails, EveryWayOfCancellingSendsTheEmptyTextAndLeavesTheValues) {
    StartOn(Stored());
    for (const char* chord : {"Esc", "Alt+F4", "button"}) {
        if (!App().Form(kDetails)) {
            ASSERT_NO_FATAL_FAILURE(OpenDetails());
        }
        ASSERT_NO_FATAL_FAILURE(Retype(kDetails, L"txtLessonTitle", L"never"));
        ASSERT_NO_FATAL_FAILURE(Retype(kDetails, L"txtLessonIntro", L"never"));
        ASSERT_NO_FATAL_FAILURE(ChooseWithArrows(L"optionSpaceTerminator", "Down", L"optionNoTerminator"));
        if (std::string_view(chord) == "button")
            Click(kDetails, L"CancelButton");
        else
            App().Press(chord);
        ASSERT_TRUE(App().WaitForNoForm(kDetails)) << chord;
        EXPECT_EQ(App().Request(), L"") << chord;
        EXPECT_EQ(App().Text(kEditor, L"lblLessonTitle"), L"Home row") << chord;
    }
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_EQ(TeachersBytes(), StoredFile({Stored()}));
}

TEST_F(LessonDetails, OkSendsNothing) {
    StartOn(Stored());
    ASSERT_NO_FATAL_FAILURE(Confirm());
    EXPECT_EQ(App().Request(), L"KYBT\x05\x04");
}

TEST_F(LessonDetails, ControlEscDoesNotCancel) {
    StartOn(Stored());
    ASSERT_TRUE(App().Press("Ctrl+Esc"));
    ASSERT_NO_FATAL_FAILURE(Retype(kDetails, L"txtLessonTitle", L"still here"));
    EXPECT_TRUE(App().Form(kDetails));
}

TEST_F(LessonDetails, TitleAndIntroductionAreTakenAsTyped) {
    StartOn(Stored());
    ASSERT_NO_FATAL_FAILURE(Retype(kDetails, L"txtLessonTitle", L"  two blanks  "));
    ASSERT_NO_FATAL_FAILURE(Confirm());
    EXPECT_EQ(App().Text(kEditor, L"lblLessonTitle"), L"  two blanks  ");
    ASSERT_NO_FATAL_FAILURE(OpenDetails());
    EXPECT_EQ(App().Text(kDetails, L"txtLessonTitle"), L"  two blanks  ");
}

TEST_F(LessonDetails, AmpersandInTheTitleIsShown) {
    StartOn(Stored());
    ASSERT_NO_FATAL_FAILURE(Retype(kDetails, L"txtLessonTitle", L"A & B"));
    ASSERT_NO_FATAL_FAILURE(Confirm());
    EXPECT_EQ(App().Text(kEditor, L"lblLessonTitle"), L"A & B");
    EXPECT_NE(In(kEditor, L"lblLessonTitle").Style() & SS_NOPREFIX, 0U);
}

TEST_F(LessonDetails, PastedLineBreaksAreDroppedAndTheRestIsKept) {
    StartOn(Stored());
    ASSERT_TRUE(CopyToClipboard(L"one\r\ntwo\nthree"));
    for (const wchar_t* box : {L"txtLessonTitle", L"txtLessonIntro"}) {
        ASSERT_NO_FATAL_FAILURE(TabTo(box));
        ASSERT_TRUE(App().Press("Ctrl+A"));
        ASSERT_TRUE(App().Press("Ctrl+V"));
        EXPECT_TRUE(App().WaitForText(kDetails, box, L"onetwothree")) << ToUtf8(App().Text(kDetails, box));
    }
    ASSERT_NO_FATAL_FAILURE(Confirm());
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    StoredLesson lesson = Stored();
    lesson.title = "onetwothree";
    lesson.intro = "onetwothree";
    EXPECT_EQ(TeachersBytes(), StoredFile({lesson}));
}

TEST_F(LessonDetails, NoticeComesWithThe255thCharacterAndGoesWithIt) {
    StartOn(Stored());
    struct Box {
        const wchar_t* name;
        const wchar_t* sentence;
    };
    for (const Box& box :
         {Box{L"txtLessonTitle", L"The title is too long: only its first 254 characters are read back."},
          Box{L"txtLessonIntro", L"The introduction is too long: only its first 254 characters are read back."}}) {
        SetTextOf(kDetails, box.name, std::wstring(253, L'x'));
        ASSERT_NO_FATAL_FAILURE(TabTo(box.name));
        ASSERT_TRUE(App().Press("End"));
        ASSERT_TRUE(App().Type(L"y"));
        ASSERT_TRUE(App().WaitForText(kDetails, box.name, std::wstring(253, L'x') + L"y"));
        EXPECT_EQ(Notice(kDetails), L"");
        ASSERT_TRUE(App().Type(L"z"));
        EXPECT_TRUE(WaitForNotice(kDetails, box.sentence));
        ExpectEverythingReadable(App().Form(kDetails), 96);
        ASSERT_TRUE(App().Press("Backspace"));
        EXPECT_TRUE(WaitForNotice(kDetails, L""));
    }
}

TEST_F(LessonDetails, NoticeTellsOfCharactersOutsideTheCodePageAndOfQuotationMarks) {
    StartOn(Stored());
    ASSERT_NO_FATAL_FAILURE(Retype(kDetails, L"txtLessonTitle", L"\u0416"));
    EXPECT_TRUE(WaitForNotice(kDetails, L"The title has characters that the file cannot keep."));
    ASSERT_NO_FATAL_FAILURE(Retype(kDetails, L"txtLessonIntro", L"'quoted'"));
    EXPECT_TRUE(WaitForNotice(kDetails,
                              L"The title has characters that the file cannot keep. The introduction stands in "
                              L"quotation marks, and these are not read back."));
    ExpectEverythingReadable(App().Form(kDetails), 96);
    ASSERT_NO_FATAL_FAILURE(Confirm());
    EXPECT_TRUE(WaitUntil([&] { return !Notice(kEditor).empty(); })) << "the editor goes on saying so";
}

TEST_F(LessonDetails, AccessibilityWalk) {
    StartOn(Stored());
    const Window dialog = App().Form(kDetails);
    EXPECT_EQ(Order(dialog),
              (std::vector<std::wstring>{L"h:Title", L"txtLessonTitle", L"h:Introduction", L"txtLessonIntro",
                                         L"fraTerminator", L"optionEnterTerminator", L"optionSpaceTerminator",
                                         L"optionNoTerminator", L"fraRepetitions", L"option2Repetitions",
                                         L"option4Repetitions", L"lblNotice", L"OKButton", L"CancelButton"}));
    CheckSpokenNames(dialog, {{L"txtLessonTitle", L"Title"}, {L"txtLessonIntro", L"Introduction"}});
    ExpectGroup(dialog, L"fraTerminator", {L"optionEnterTerminator", L"optionSpaceTerminator", L"optionNoTerminator"});
    ExpectGroup(dialog, L"fraRepetitions", {L"option2Repetitions", L"option4Repetitions"});
    EXPECT_EQ(In(kDetails, L"fraTerminator").Text(), L"Key that ends a task");
    EXPECT_EQ(In(kDetails, L"fraRepetitions").Text(), L"Repetitions");
    ExpectOneDefaultButton(dialog);
    ExpectTabOrder({L"txtLessonTitle", L"txtLessonIntro", L"optionSpaceTerminator", L"option2Repetitions", L"OKButton",
                    L"CancelButton"});
    CheckDialogPlace(dialog, 96);
    ExpectEverythingReadable(dialog, 96);
}

TEST_F(LessonDetails, EverythingIsReadableAtTwiceTheResolution) {
    const DisplayResolution resolution(192);
    StoredLesson lesson = Stored();
    lesson.repetitions = "4";
    StartOn(lesson);
    EXPECT_NE(Notice(kDetails), L"");
    CheckDialogPlace(App().Form(kDetails), 192);
    ExpectEverythingReadable(App().Form(kDetails), 192);
}

}  // namespace
}  // namespace e2e
