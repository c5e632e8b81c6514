// The lesson editor: a teacher adds, changes and removes lessons, and the file's bytes afterwards.
#include "editor_story.h"

namespace e2e {
namespace {

namespace fs = std::filesystem;

constexpr wchar_t kEditor[] = L"dlgLessonEdit";
constexpr wchar_t kDetails[] = L"dlgLessonDetails";
constexpr wchar_t kTask[] = L"dlgTaskEdit";

std::vector<StoredLesson> FourLessons() {
    return {{.title = "First", .tasks = {Letters("onea"), Letters("oneb")}},
            {.title = "Second", .tasks = {Letters("two")}},
            {.title = "Third", .tasks = {Letters("three")}},
            {.title = "Fourth", .tasks = {Letters("four")}}};
}

class LessonEditor : public EditorTest {
protected:
    void SetUp() override {
        EditorTest::SetUp();
        WriteTeachersFile(FourLessons());
    }

    Box ExpectBox(std::wstring_view text, std::wstring_view owner) {
        const auto box = App().WaitForBox();
        EXPECT_TRUE(box);
        if (!box) return {};
        EXPECT_EQ(box->text, text);
        EXPECT_EQ(box->title, L"Keystride");
        EXPECT_EQ(box->ButtonIds(), std::vector<int>{IDOK});
        EXPECT_EQ(box->owner, App().Form(owner));
        return *box;
    }

    void DeleteSelected() {
        const std::size_t before = TaskLines().size();
        Click(kEditor, L"cmdDeleteTask");
        ASSERT_TRUE(WaitUntil([&] { return TaskLines().size() == before - 1; }));
    }

    void SelectTask(int line) { In(kEditor, L"lstTasks").Send(LB_SETCURSEL, static_cast<WPARAM>(line)); }

    void Remove(int lesson) {
        ASSERT_NO_FATAL_FAILURE(SelectLesson(lesson));
        const std::size_t before = Lessons().RootTexts().size();
        Click(L"dlgTyping", L"cmdRemoveLesson");
        const auto box = App().WaitForBox();
        ASSERT_TRUE(box);
        ASSERT_TRUE(box->Answer(IDYES));
        ASSERT_TRUE(WaitUntil([&] { return Lessons().RootTexts().size() == before - 1; }));
        EXPECT_TRUE(App().WaitForFocus(L"tvTasks"));
    }
};

// ---- the whole story
// -------------------------------------------------------------------------------------------------

TEST_F(LessonEditor, TeacherAddsALessonOfAllFourKindsSavesItAsL05AndRunsIt) {
    StartInTeachersList();
    const std::string before = TeachersBytes();
    PressButton(L"cmdAddLesson");
    ASSERT_TRUE(App().WaitForForm(kDetails));
    ASSERT_TRUE(App().WaitForFocus(L"txtLessonTitle"));
    EXPECT_EQ(App().Form(kDetails).Text(), L"Lesson 5");
    ASSERT_TRUE(App().Type(L"Home row"));
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"txtLessonIntro"));
    ASSERT_TRUE(App().Type(L"Type the home row keys."));
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"optionSpaceTerminator"));
    ASSERT_TRUE(App().Press("Up"));
    ASSERT_TRUE(App().WaitForFocus(L"optionEnterTerminator"));
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"option2Repetitions"));
    ASSERT_TRUE(App().Press("Down"));
    ASSERT_TRUE(App().WaitForFocus(L"option4Repetitions"));
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(App().WaitForNoForm(kDetails));

    ASSERT_TRUE(App().WaitForForm(kEditor));
    EXPECT_EQ(App().Form(kEditor).Text(), L"Add New Lesson");
    EXPECT_TRUE(App().WaitForText(kEditor, L"lblLessonTitle", L"Home row"));
    ASSERT_TRUE(App().WaitForFocus(L"cmdCreateTask")) << "an empty list leaves the focus to the button";
    ASSERT_NO_FATAL_FAILURE(CreateTask(1, L"a1b2c3!", L"Letters and digits."));
    ASSERT_NO_FATAL_FAILURE(CreateTask(2, L"wonderful", L"One word."));
    ASSERT_NO_FATAL_FAILURE(CreateTask(3, L"a sad lad", L"Now a short phrase."));

    ASSERT_NO_FATAL_FAILURE(OpenNewTask());
    ASSERT_NO_FATAL_FAILURE(ChooseKind(5));
    ASSERT_TRUE(App().Press("Ctrl+F3"));
    ASSERT_TRUE(App().WaitForText(kTask, L"lblTask", L"Type Your New Task of Command Keys"));
    ASSERT_TRUE(App().Press("Ctrl+C"));
    ASSERT_TRUE(App().WaitForText(kTask, L"txtTask", L"Control+C"));
    ASSERT_TRUE(App().Press("Alt+F4"));
    ASSERT_TRUE(App().WaitForText(kTask, L"txtTask", L"Control+C  Alt+F4"));
    ASSERT_TRUE(App().Press("Ctrl+F3"));
    ASSERT_TRUE(
        App().WaitForText(kTask, L"lblTask", L"Press Control+F3, then TYPE YOUR HOTKEYS, then press Control+F3 again"));
    EXPECT_EQ(App().Text(kTask, L"txtTask"), L"Control+C  Alt+F4");
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"txtTaskExplanation"));
    ASSERT_TRUE(App().Type(L"Copy, then close."));
    ASSERT_NO_FATAL_FAILURE(ConfirmTask());
    EXPECT_TRUE(WaitUntil([&] {
        return TaskLines() == std::vector<std::wstring>{L"a1b2c3!", L"wonderful", L"a sad lad", L"Control+C  Alt+F4"};
    }));
    EXPECT_EQ(TeachersBytes(), before) << "nothing is written before the lesson is saved";

    PressButton(L"OKButton");
    ASSERT_TRUE(App().WaitForNoForm(kEditor));
    ASSERT_TRUE(App().WaitForFocus(L"tvTasks"));
    ASSERT_TRUE(WaitForSelectedLesson(L"5. Home row"));
    const std::string counted = "[Lessons]\r\nNbrOfLessons=5\r\n" + before.substr(before.find("[L01]"));
    EXPECT_EQ(TeachersBytes(), counted +
                                   "[L05]\r\n"
                                   "DefTitle=Home row\r\n"
                                   "INTRO_LSN_JAWS=Type the home row keys.\r\n"
                                   "TaskReps=4\r\n"
                                   "TaskDL=Enter\r\n"
                                   "NbrOfTasks=4\r\n"
                                   "KIND_TASK_01=1\r\n"
                                   "PRINT_USA_TASK_01=a1b2c3!\r\n"
                                   "SPELL_USA_TASK_01=a\x05"
                                   "1\x05"
                                   "b\x05"
                                   "2\x05"
                                   "c\x05"
                                   "3\x05!\x05\r\n"
                                   "EXPLN_USA_CHILD_01=Letters and digits.\r\n"
                                   "KIND_TASK_02=2\r\n"
                                   "PRINT_USA_TASK_02=wonderful\r\n"
                                   "SPELL_USA_TASK_02=w\x05o\x05n\x05"
                                   "d\x05"
                                   "e\x05r\x05"
                                   "f\x05u\x05l\x05\r\n"
                                   "EXPLN_USA_CHILD_02=One word.\r\n"
                                   "KIND_TASK_03=3\r\n"
                                   "PRINT_USA_TASK_03=a sad lad\r\n"
                                   "SPELL_USA_TASK_03=a\x05Space\x05s\x05"
                                   "a\x05"
                                   "d\x05Space\x05l\x05"
                                   "a\x05"
                                   "d\x05\r\n"
                                   "EXPLN_USA_CHILD_03=Now a short phrase.\r\n"
                                   "KIND_TASK_04=5\r\n"
                                   "PRINT_USA_TASK_04=Control+C  Alt+F4\r\n"
                                   "SPELL_USA_TASK_04=Control+C\x05"
                                   "Alt+F4\x05\r\n"
                                   "EXPLN_USA_CHILD_04=Copy, then close.\r\n");
    EXPECT_EQ(ReadBytes(BackupFile()), before);

    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(
        App().WaitForRequest(L"KYBT\x05"
                             L"5\x05"
                             L"0"));
    EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
}

// ---- adding
// ----------------------------------------------------------------------------------------------------------

TEST_F(LessonEditor, CancelledDetailsStillOpenTheEditorAndAnEmptyTitleIsSaved) {
    StartInTeachersList();
    // Values of another lesson may not be left over.
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    ASSERT_NO_FATAL_FAILURE(LeaveEditor());
    ASSERT_NO_FATAL_FAILURE(AddLesson());
    ASSERT_TRUE(App().Type(L"never"));
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(App().WaitForNoForm(kDetails));
    EXPECT_TRUE(App().WaitForRequest(L""));
    ASSERT_TRUE(App().WaitForForm(kEditor));
    EXPECT_EQ(App().Text(kEditor, L"lblLessonTitle"), L"");
    EXPECT_TRUE(TaskLines().empty());
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    ASSERT_TRUE(WaitForSelectedLesson(L"5. "));
    std::vector<StoredLesson> lessons = FourLessons();
    lessons.push_back({.title = "", .intro = ""});
    EXPECT_EQ(TeachersBytes(), StoredFile(lessons));
}

TEST_F(LessonEditor, FirstLessonOfAnEmptyListIsL01) {
    WriteTeachersFile({});
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(AddLesson());
    EXPECT_EQ(App().Form(kDetails).Text(), L"Lesson 1");
    ASSERT_NO_FATAL_FAILURE(ConfirmDetails(L"Only", L""));
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_TRUE(WaitForSelectedLesson(L"1. Only"));
    EXPECT_EQ(TeachersBytes(), StoredFile({{.title = "Only", .intro = ""}}));
}

TEST_F(LessonEditor, AddingToAFullListSaysSoAndOpensNothing) {
    WriteBytes(TeachersFile(), "[Lessons]\r\nNbrOfLessons=201\r\n");
    StartInTeachersList();
    Click(L"dlgTyping", L"cmdAddLesson");
    const Box box = ExpectBox(L"There is no room for another lesson. Remove one first.", L"dlgTyping");
    EXPECT_FALSE(box.hasIcon);
    ASSERT_TRUE(box.Answer(IDOK));
    EXPECT_FALSE(App().Form(kDetails));
    EXPECT_FALSE(App().Form(kEditor));
    EXPECT_EQ(TeachersBytes(), "[Lessons]\r\nNbrOfLessons=201\r\n");
}

TEST_F(LessonEditor, TwoHundredAndFirstLessonStillFits) {
    WriteBytes(TeachersFile(), "[Lessons]\r\nNbrOfLessons=200\r\n");
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(AddLesson());
    EXPECT_EQ(App().Form(kDetails).Text(), L"Lesson 201");
    ASSERT_NO_FATAL_FAILURE(ConfirmDetails(L"Last", L""));
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_TRUE(WaitForSelectedLesson(L"201. Last"));
    EXPECT_EQ(TeachersBytes(),
              "[Lessons]\r\nNbrOfLessons=201\r\n" + StoredSection(201, {.title = "Last", .intro = ""}));
}

TEST_F(LessonEditor, CountOf32767IsAnOverflow) {
    StartInTeachersList();
    WriteBytes(TeachersFile(), "[Lessons]\r\nNbrOfLessons=32767\r\n");
    Click(L"dlgTyping", L"cmdAddLesson");
    const Box box = ExpectBox(L"Overflow", L"dlgTyping");
    EXPECT_TRUE(box.HasStopIcon());
    ASSERT_TRUE(box.Answer(IDOK));
    EXPECT_FALSE(App().Form(kDetails));
    EXPECT_TRUE(App().Form(L"dlgTyping"));
}

TEST_F(LessonEditor, MissingFileIsReportedByAddAndEdit) {
    StartInTeachersList();
    fs::remove(TeachersFile());
    for (const wchar_t* button : {L"cmdAddLesson", L"cmdEditLesson"}) {
        Click(L"dlgTyping", button);
        const Box box = ExpectBox(L"File " + TeachersFile().wstring() + L"not found.", L"dlgTyping");
        EXPECT_TRUE(box.HasStopIcon());
        ASSERT_TRUE(box.Answer(IDOK));
        EXPECT_FALSE(App().Form(kEditor)) << "nothing half built stays";
        EXPECT_TRUE(App().Form(L"dlgTyping").Enabled());
    }
    EXPECT_FALSE(fs::exists(TeachersFile()));
}

// ---- editing
// ---------------------------------------------------------------------------------------------------------

TEST_F(LessonEditor, OpensOnAStoredLessonWithItsFirstTaskSelected) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    EXPECT_EQ(App().Form(kEditor).Text(), L"Edit Lesson 1");
    EXPECT_EQ(App().Text(kEditor, L"lblLessonTitle"), L"First");
    EXPECT_EQ(TaskLines(), (std::vector<std::wstring>{L"onea", L"oneb"}));
    EXPECT_EQ(SelectedTask(), 0);
    EXPECT_EQ(App().FocusName(), L"lstTasks");
    EXPECT_TRUE(In(kEditor, L"cmdEditTask").Enabled());
    EXPECT_TRUE(In(kEditor, L"cmdDeleteTask").Enabled());
    EXPECT_EQ(Notice(kEditor), L"");
    EXPECT_EQ(App().Form(kEditor).Owner(), App().Form(L"dlgTyping"));
}

TEST_F(LessonEditor, OpensALessonThroughOneOfItsTasks) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(SelectLesson(1));
    ASSERT_TRUE(App().Press("Right"));
    ASSERT_TRUE(App().Press("Down"));
    ASSERT_TRUE(WaitForSelectedLesson(L"onea"));
    Click(L"dlgTyping", L"cmdEditLesson");
    ASSERT_TRUE(App().WaitForForm(kEditor));
    EXPECT_EQ(App().Form(kEditor).Text(), L"Edit Lesson 1");
}

TEST_F(LessonEditor, EditAsksForASelectionAndForLessons) {
    StartInTeachersList();
    Lessons().SelectNothing();
    Click(L"dlgTyping", L"cmdEditLesson");
    ASSERT_TRUE(ExpectBox(L"Select a lesson or task first", L"dlgTyping").Answer(IDOK));
    ClosePicker();
    WriteTeachersFile({});
    ASSERT_TRUE(OpenPicker("F7"));
    Click(L"dlgTyping", L"cmdEditLesson");
    ASSERT_TRUE(ExpectBox(L"There are no lessons or tasks to select", L"dlgTyping").Answer(IDOK));
    EXPECT_FALSE(App().Form(kEditor));
}

TEST_F(LessonEditor, SavingUnchangedKeepsTheFileByteForByteAndTheLessonSelected) {
    StartInTeachersList();
    for (const int lesson : {3, 1, 4}) {
        const std::vector<std::wstring> titles = Lessons().RootTexts();
        ASSERT_NO_FATAL_FAILURE(OpenLesson(lesson));
        ASSERT_NO_FATAL_FAILURE(SaveLesson());
        EXPECT_TRUE(WaitForSelectedLesson(titles[static_cast<std::size_t>(lesson) - 1]));
        EXPECT_EQ(TeachersBytes(), StoredFile(FourLessons()));
    }
}

TEST_F(LessonEditor, ChangedDetailsRefreshTheTitleAndAreSaved) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(3));
    Click(kEditor, L"cmdEditLesson");
    ASSERT_TRUE(App().WaitForForm(kDetails));
    ASSERT_TRUE(App().WaitForFocus(L"txtLessonTitle"));
    EXPECT_EQ(App().Form(kDetails).Text(), L"Lesson 3");
    ASSERT_NO_FATAL_FAILURE(ConfirmDetails(L"Third again", L"Heard."));
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_TRUE(WaitForSelectedLesson(L"3. Third again"));
    std::vector<StoredLesson> lessons = FourLessons();
    lessons[2].title = "Third again";
    lessons[2].intro = "Heard.";
    EXPECT_EQ(TeachersBytes(), StoredFile(lessons));
}

TEST_F(LessonEditor, EditedTaskIsReplacedAndStaysSelected) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    SelectTask(1);
    PressButton(L"cmdEditTask");
    ASSERT_TRUE(App().WaitForForm(kTask));
    ASSERT_TRUE(App().WaitForFocus(L"txtTask"));
    EXPECT_EQ(App().Text(kTask, L"lblTaskNumber"), L"Task 2");
    ASSERT_NO_FATAL_FAILURE(Retype(kTask, L"txtTask", L"changed"));
    ASSERT_NO_FATAL_FAILURE(ConfirmTask());
    EXPECT_TRUE(WaitUntil([&] { return TaskLines() == std::vector<std::wstring>{L"onea", L"changed"}; }));
    EXPECT_EQ(SelectedTask(), 1);
    EXPECT_TRUE(App().WaitForFocus(L"cmdEditTask")) << "after a dialog the focus is where it was";
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    std::vector<StoredLesson> lessons = FourLessons();
    lessons[0].tasks[1] = Letters("changed");
    EXPECT_EQ(TeachersBytes(), StoredFile(lessons));
}

TEST_F(LessonEditor, ListLineActsOnTheTaskThatItShows) {
    const StoredTask told{.explanation = "Only told."};
    WriteTeachersFile({{.title = "Gap", .tasks = {Letters("one"), told, Letters("three"), Letters("four")}}});
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    EXPECT_EQ(TaskLines(), (std::vector<std::wstring>{L"one", L"", L"three", L"four"}));
    EXPECT_EQ(Notice(kEditor), L"");
    // The first edit refills the list, which then leaves out the row without a text.
    ASSERT_NO_FATAL_FAILURE(OpenSelectedTask());
    ASSERT_NO_FATAL_FAILURE(ConfirmTask());
    ASSERT_TRUE(WaitUntil([&] { return TaskLines() == std::vector<std::wstring>{L"one", L"three", L"four"}; }));
    EXPECT_TRUE(WaitForNotice(kEditor, L"Task 2 has no text: it is saved, but not listed."));
    SelectTask(1);
    ASSERT_NO_FATAL_FAILURE(OpenSelectedTask());
    EXPECT_EQ(App().Text(kTask, L"txtTask"), L"three");
    EXPECT_EQ(App().Text(kTask, L"lblTaskNumber"), L"Task 3");
    ASSERT_NO_FATAL_FAILURE(Retype(kTask, L"txtTask", L"drei"));
    ASSERT_NO_FATAL_FAILURE(ConfirmTask());
    ASSERT_TRUE(WaitUntil([&] { return TaskLines() == std::vector<std::wstring>{L"one", L"drei", L"four"}; }));
    EXPECT_EQ(SelectedTask(), 1);
    ASSERT_NO_FATAL_FAILURE(DeleteSelected());
    EXPECT_EQ(TaskLines(), (std::vector<std::wstring>{L"one", L"four"}));
    ASSERT_NO_FATAL_FAILURE(OpenSelectedTask());
    EXPECT_EQ(App().Text(kTask, L"txtTask"), L"four") << "rows and lines still agree";
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(App().WaitForNoForm(kTask));
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_EQ(TeachersBytes(), StoredFile({{.title = "Gap", .tasks = {Letters("one"), told, Letters("four")}}}));
}

TEST_F(LessonEditor, DeletingSelectsTheLastLine) {
    WriteTeachersFile(
        {{.title = "Four", .tasks = {Letters("one"), Letters("two"), Letters("three"), Letters("four")}}});
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    ASSERT_NO_FATAL_FAILURE(DeleteSelected());
    EXPECT_EQ(TaskLines(), (std::vector<std::wstring>{L"two", L"three", L"four"}));
    EXPECT_EQ(SelectedTask(), 2);
    SelectTask(1);
    ASSERT_NO_FATAL_FAILURE(DeleteSelected());
    EXPECT_EQ(TaskLines(), (std::vector<std::wstring>{L"two", L"four"}));
    EXPECT_EQ(SelectedTask(), 1);
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_EQ(TeachersBytes(), StoredFile({{.title = "Four", .tasks = {Letters("two"), Letters("four")}}}));
}

TEST_F(LessonEditor, DeletingTheOnlyTaskLeavesAnEmptyListAndSavesNoTask) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    PressButton(L"cmdDeleteTask");
    ASSERT_TRUE(WaitUntil([&] { return TaskLines().empty(); }));
    EXPECT_FALSE(App().TopBox()) << "nothing is asked";
    EXPECT_TRUE(WaitUntil([&] { return !In(kEditor, L"cmdDeleteTask").Enabled(); }));
    EXPECT_FALSE(In(kEditor, L"cmdEditTask").Enabled());
    EXPECT_TRUE(App().WaitForFocus(L"cmdCreateTask")) << "the focus leaves the disabled button";
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    std::vector<StoredLesson> lessons = FourLessons();
    lessons[1].tasks.clear();
    EXPECT_EQ(TeachersBytes(), StoredFile(lessons));
}

TEST_F(LessonEditor, EditAndDeleteAreDisabledWhileThereIsNoTask) {
    WriteTeachersFile({{.title = "Empty"}});
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    EXPECT_TRUE(App().WaitForFocus(L"cmdCreateTask"));
    EXPECT_FALSE(In(kEditor, L"cmdEditTask").Enabled());
    EXPECT_FALSE(In(kEditor, L"cmdDeleteTask").Enabled());
    ASSERT_NO_FATAL_FAILURE(CreateTask(1, L"new", L""));
    EXPECT_TRUE(In(kEditor, L"cmdEditTask").Enabled());
    EXPECT_TRUE(In(kEditor, L"cmdDeleteTask").Enabled());
}

TEST_F(LessonEditor, EditAndDeleteWithoutASelectionDoNothing) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    SelectTask(-1);
    ASSERT_EQ(SelectedTask(), -1);
    In(kEditor, L"cmdEditTask").Send(BM_CLICK);
    In(kEditor, L"cmdDeleteTask").Send(BM_CLICK);
    EXPECT_FALSE(App().Form(kTask));
    EXPECT_FALSE(App().TopBox());
    EXPECT_EQ(TaskLines().size(), 2U);
}

TEST_F(LessonEditor, HundredTasksAreKeptAndTheHundredAndFirstIsNot) {
    StoredLesson lesson{.title = "Long"};
    for (int task = 1; task <= 99; ++task) lesson.tasks.push_back(Letters("t" + std::to_string(task), ""));
    WriteTeachersFile({lesson});
    const std::wstring full = L"The 100 tasks that are saved are reached: another one would not be kept.";
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    ASSERT_EQ(TaskLines().size(), 99U);
    ASSERT_NO_FATAL_FAILURE(OpenNewTask());
    EXPECT_EQ(App().Text(kTask, L"lblTaskNumber"), L"Task 100");
    EXPECT_EQ(Notice(kTask), L"");
    ASSERT_TRUE(App().Type(L"t100"));
    ASSERT_NO_FATAL_FAILURE(ConfirmTask());
    ASSERT_TRUE(WaitUntil([&] { return TaskLines().size() == 100; }));
    EXPECT_TRUE(WaitUntil([&] { return Notice(kEditor).starts_with(full); })) << ToUtf8(Notice(kEditor));
    ASSERT_NO_FATAL_FAILURE(OpenNewTask());
    EXPECT_EQ(App().Text(kTask, L"lblTaskNumber"), L"Task 101");
    EXPECT_EQ(Notice(kTask), full) << "told before it is typed";
    ASSERT_TRUE(App().Type(L"t101"));
    ASSERT_NO_FATAL_FAILURE(ConfirmTask());
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    lesson.tasks.push_back(Letters("t100", ""));
    EXPECT_EQ(TeachersBytes(), StoredFile({lesson}));
    EXPECT_EQ(Lessons().Count(), 101);
}

TEST_F(LessonEditor, StoredHundredAndFirstTaskIsToldOnOpeningAndStaysInTheBackup) {
    StoredLesson lesson{.title = "Long"};
    for (int task = 1; task <= 101; ++task) lesson.tasks.push_back(Letters("t" + std::to_string(task), ""));
    WriteTeachersFile({lesson});
    const std::string before = TeachersBytes();
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    ASSERT_EQ(TaskLines().size(), 101U);
    EXPECT_TRUE(Notice(kEditor).starts_with(L"Only the first 100 of these 101 tasks are saved."))
        << ToUtf8(Notice(kEditor));
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    lesson.tasks.pop_back();
    EXPECT_EQ(TeachersBytes(), StoredFile({lesson}));
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.bak"), before);
}

TEST_F(LessonEditor, LessonNumbered100AndAboveIsEditedAndAdded) {
    const std::string section = StoredSection(100, {.title = "Hundred", .tasks = {Letters("old")}});
    WriteBytes(TeachersFile(), "[Lessons]\r\nNbrOfLessons=100\r\n" + section);
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(100));
    EXPECT_EQ(App().Form(kEditor).Text(), L"Edit Lesson 100");
    ASSERT_NO_FATAL_FAILURE(CreateTask(1, L"new", L""));
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_TRUE(WaitForSelectedLesson(L"100. Hundred"));
    const std::string edited = StoredSection(100, {.title = "Hundred", .tasks = {Letters("old"), Letters("new", "")}});
    EXPECT_EQ(TeachersBytes(), "[Lessons]\r\nNbrOfLessons=100\r\n" + edited);
    ASSERT_NO_FATAL_FAILURE(AddLesson());
    ASSERT_NO_FATAL_FAILURE(ConfirmDetails(L"Next", L""));
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_TRUE(WaitForSelectedLesson(L"101. Next"));
    EXPECT_EQ(TeachersBytes(),
              "[Lessons]\r\nNbrOfLessons=101\r\n" + edited + StoredSection(101, {.title = "Next", .intro = ""}));
}

TEST_F(LessonEditor, EachLanguageWritesItsOwnKeys) {
    for (const int language : {0, 1, 2}) {
        WriteBytes(UserFolder() / L"Keystride.ini", KeystrideIni("", language, 0));
        StoredLesson lesson{.title = "Words", .tasks = {Letters("abc")}};
        lesson.variant = language == 1 ? "ENG" : "USA";
        WriteTeachersFile({lesson});
        StartInTeachersList();
        ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
        EXPECT_EQ(TaskLines(), std::vector<std::wstring>{L"abc"}) << language;
        ASSERT_NO_FATAL_FAILURE(CreateTask(1, L"new", L"Told."));
        ASSERT_NO_FATAL_FAILURE(SaveLesson());
        lesson.tasks.push_back(Letters("new", "Told."));
        EXPECT_EQ(TeachersBytes(), StoredFile({lesson})) << language;
        ClosePicker();
        Leave();
    }
}

TEST_F(LessonEditor, OpeningAndSavingKeepsEveryTaskThatHasSomething) {
    WriteBytes(TeachersFile(),
               "[Lessons]\r\nNbrOfLessons=1\r\n[L01]\r\nDefTitle=Odd\r\nNbrOfTasks=6\r\nKIND_TASK_01=1\r\n"
               "PRINT_USA_TASK_01=ab\r\nKIND_TASK_02=1\r\nEXPLN_USA_CHILD_02=Only told.\r\nKIND_TASK_03=1\r\n"
               "SPELL_USA_TASK_03=x\x05y\x05\r\nKIND_TASK_04=1\r\nKIND_TASK_05=4\r\nPRINT_USA_TASK_05=c\r\n"
               "SPELL_USA_TASK_05=c\x05\r\n");
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    EXPECT_EQ(TaskLines(), (std::vector<std::wstring>{L"ab", L"", L"", L"c"}));
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    StoredTask phrase = Letters("c", "");
    phrase.kind = "3";
    EXPECT_EQ(
        TeachersBytes(),
        StoredFile({{.title = "Odd",
                     .intro = "",
                     .repetitions = "0",
                     .tasks = {Letters("ab", ""), {.explanation = "Only told."}, {.spelled = "x\x05y\x05"}, phrase}}}));
}

// ---- leaving and saving
// ----------------------------------------------------------------------------------------------

TEST_F(LessonEditor, CancelAnywhereWritesNothing) {
    StartInTeachersList();
    const auto before = Snapshot(UserFolder());
    // A new lesson: details confirmed, a task written, the editor left.
    ASSERT_NO_FATAL_FAILURE(AddLesson());
    ASSERT_NO_FATAL_FAILURE(ConfirmDetails(L"Never", L"Never"));
    ASSERT_NO_FATAL_FAILURE(CreateTask(1, L"never", L"never"));
    ASSERT_NO_FATAL_FAILURE(LeaveEditor());
    EXPECT_TRUE(App().WaitForFocus(L"cmdAddLesson") || App().FocusName() == L"tvTasks");
    // A stored one: a task deleted, one cancelled, the details cancelled; left by button, Alt+F4 and the window's
    // close.
    for (const std::string& way : {std::string("button"), std::string("Alt+F4"), std::string("close")}) {
        ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
        ASSERT_NO_FATAL_FAILURE(DeleteSelected());
        ASSERT_NO_FATAL_FAILURE(OpenNewTask());
        ASSERT_TRUE(App().Type(L"never"));
        ASSERT_TRUE(App().Press("Esc"));
        ASSERT_TRUE(App().WaitForNoForm(kTask));
        EXPECT_EQ(TaskLines(), std::vector<std::wstring>{L"oneb"});
        if (way == "button") Click(kEditor, L"CancelButton");
        if (way == "Alt+F4") App().Press("Alt+F4");
        if (way == "close") App().Form(kEditor).Post(WM_CLOSE);
        ASSERT_TRUE(App().WaitForNoForm(kEditor)) << way;
    }
    EXPECT_EQ(Lessons().RootTexts().size(), 4U);
    EXPECT_EQ(Snapshot(UserFolder()), before);
    // What was left behind does not come back.
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    EXPECT_EQ(TaskLines(), (std::vector<std::wstring>{L"onea", L"oneb"}));
    EXPECT_EQ(App().Text(kEditor, L"lblLessonTitle"), L"First");
}

TEST_F(LessonEditor, ControlEscDoesNotCancel) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    ASSERT_TRUE(App().Press("Ctrl+Esc"));
    ASSERT_TRUE(App().Press("Down"));
    ASSERT_TRUE(WaitUntil([&] { return SelectedTask() == 1; })) << "the key behind it arrives";
    EXPECT_TRUE(App().Form(kEditor));
}

TEST_F(LessonEditor, RefusedSaveIsToldAndTheEditorKeepsItsWork) {
    StartInTeachersList();
    const std::string before = TeachersBytes();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    ASSERT_NO_FATAL_FAILURE(CreateTask(1, L"new", L"Told."));
    {
        const HeldFile held(TeachersFile());
        ASSERT_TRUE(held.Held());
        PressButton(L"OKButton");
        const auto box = App().WaitForBox();
        ASSERT_TRUE(box) << "a refused save is told";
        EXPECT_EQ(box->title, L"Keystride");
        EXPECT_FALSE(box->text.empty());
        EXPECT_EQ(box->ButtonIds(), std::vector<int>{IDOK});
        EXPECT_TRUE(box->HasStopIcon());
        EXPECT_EQ(box->owner, App().Form(kEditor));
        ASSERT_TRUE(box->Answer(IDOK));
        ASSERT_TRUE(App().WaitForFocus(L"OKButton"));
    }
    EXPECT_EQ(TeachersBytes(), before);
    ASSERT_TRUE(App().Form(kEditor));
    EXPECT_EQ(TaskLines(), (std::vector<std::wstring>{L"two", L"new"}));
    EXPECT_EQ(App().Text(kEditor, L"lblLessonTitle"), L"Second");
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    std::vector<StoredLesson> lessons = FourLessons();
    lessons[1].tasks.push_back(Letters("new", "Told."));
    EXPECT_EQ(TeachersBytes(), StoredFile(lessons));
}

TEST_F(LessonEditor, SaveIntoAFileThatIsGoneIsToldAndTheEditorStays) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    fs::remove(TeachersFile());
    Click(kEditor, L"OKButton");
    const Box box = ExpectBox(L"File " + TeachersFile().wstring() + L"not found.", kEditor);
    EXPECT_TRUE(box.HasStopIcon());
    ASSERT_TRUE(box.Answer(IDOK));
    EXPECT_TRUE(App().Form(kEditor));
    EXPECT_EQ(TaskLines(), std::vector<std::wstring>{L"two"});
    EXPECT_FALSE(fs::exists(TeachersFile()));
}

TEST_F(LessonEditor, BackupHoldsTheFileBeforeTheLastChange) {
    StartInTeachersList();
    const std::string first = TeachersBytes();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    ASSERT_NO_FATAL_FAILURE(CreateTask(1, L"a", L""));
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_EQ(ReadBytes(BackupFile()), first);
    const std::string second = TeachersBytes();
    ASSERT_NO_FATAL_FAILURE(Remove(1));
    EXPECT_EQ(ReadBytes(BackupFile()), second);
}

TEST_F(LessonEditor, SavingCopiesTheFileToTheNetworkAndCancelDoesNot) {
    WriteBytes(CommonFolder() / L"KSUserInfo.ini", UserInfoIni(NetworkFolder().string()));
    WriteBytes(NetworkFolder() / L"TeachersLessons.ini", StoredFile(FourLessons()));
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    ASSERT_NO_FATAL_FAILURE(CreateTask(1, L"new", L""));
    const auto before = Snapshot(NetworkFolder());
    ASSERT_NO_FATAL_FAILURE(LeaveEditor());
    EXPECT_EQ(Snapshot(NetworkFolder()), before);
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    ASSERT_NO_FATAL_FAILURE(CreateTask(1, L"new", L""));
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    std::vector<StoredLesson> lessons = FourLessons();
    lessons[1].tasks.push_back(Letters("new", ""));
    EXPECT_EQ(TeachersBytes(), StoredFile(lessons));
    EXPECT_EQ(ReadBytes(NetworkFolder() / L"TeachersLessons.ini"), StoredFile(lessons));
}

TEST_F(LessonEditor, NetworkFolderOutOfReachStopsNoSave) {
    StartInTeachersList();
    WriteBytes(CommonFolder() / L"KSUserInfo.ini", UserInfoIni((fs::temp_directory_path() / L"no-such").string()));
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    ASSERT_NO_FATAL_FAILURE(CreateTask(1, L"new", L""));
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_FALSE(App().TopBox());
    EXPECT_NE(TeachersBytes(), StoredFile(FourLessons()));
}

// ---- removing
// --------------------------------------------------------------------------------------------------------

TEST_F(LessonEditor, RemovingTheFirstAMiddleAndTheLastOfFour) {
    StartInTeachersList();
    struct Case {
        int lesson;
        const wchar_t* selectedAfter;
    };
    for (const Case& one : {Case{1, L"1. Second"}, Case{3, L"3. Fourth"}, Case{4, L"3. Third"}}) {
        WriteTeachersFile(FourLessons());
        ClosePicker();
        ASSERT_TRUE(OpenPicker("F7"));
        ASSERT_NO_FATAL_FAILURE(Remove(one.lesson));
        EXPECT_TRUE(WaitForSelectedLesson(one.selectedAfter));
        std::vector<StoredLesson> left = FourLessons();
        left.erase(left.begin() + one.lesson - 1);
        EXPECT_EQ(TeachersBytes(), StoredFile(left)) << one.lesson;
    }
}

TEST_F(LessonEditor, NewLessonTakesTheNumberThatARemovalMadeFree) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(Remove(2));
    ASSERT_NO_FATAL_FAILURE(AddLesson());
    EXPECT_EQ(App().Form(kDetails).Text(), L"Lesson 4");
    ASSERT_NO_FATAL_FAILURE(ConfirmDetails(L"New", L"Listen."));
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    std::vector<StoredLesson> lessons = FourLessons();
    lessons.erase(lessons.begin() + 1);
    lessons.push_back({.title = "New"});
    EXPECT_EQ(TeachersBytes(), StoredFile(lessons));
}

// ---- what is said of losses
// ------------------------------------------------------------------------------------------

TEST_F(LessonEditor, LessonAbove4000BytesIsTold) {
    StoredLesson lesson{.title = "Long"};
    for (int task = 0; task < 14; ++task) lesson.tasks.push_back(Letters(std::string(60, 'x')));
    WriteTeachersFile({lesson});
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    EXPECT_EQ(Notice(kEditor), L"");
    ASSERT_NO_FATAL_FAILURE(OpenNewTask());
    SetTextOf(kTask, L"txtTaskExplanation", std::wstring(200, L'e'));
    ASSERT_TRUE(App().Type(std::wstring(60, L'x')));
    ASSERT_NO_FATAL_FAILURE(ConfirmTask());
    const std::wstring sentence =
        L"This lesson takes more than 4000 bytes: its end would be cut when an earlier lesson is removed.";
    EXPECT_TRUE(WaitForNotice(kEditor, sentence));
    EXPECT_FALSE(App().TopBox()) << "the notice never blocks";
    ExpectEverythingReadable(App().Form(kEditor), 96);
    ASSERT_NO_FATAL_FAILURE(DeleteSelected());
    EXPECT_TRUE(WaitForNotice(kEditor, L""));
    ASSERT_NO_FATAL_FAILURE(SaveLesson());
    EXPECT_EQ(TeachersBytes(), StoredFile({lesson}));
}

TEST_F(LessonEditor, ValuesThatWereCutOnLoadingAreTold) {
    std::string title = "A longer title";
    while (title.size() < 300) title += " of many words";
    WriteTeachersFile({{.title = title, .tasks = {Letters("a"), {"1", std::string(255, 'x'), "x\x05", "Told."}}}});
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    EXPECT_TRUE(WaitForNotice(
        kEditor,
        L"The title and the text of task 2 were stored too long: only the first 254 characters were read, and no more "
        L"can be saved."));
    ExpectEverythingReadable(App().Form(kEditor), 96);
    EXPECT_EQ(App().Text(kEditor, L"lblLessonTitle"), ToWide(title.substr(0, 254)));
}

TEST_F(LessonEditor, TextsThatTheFileWouldNotKeepAreToldInTheEditorToo) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    ASSERT_NO_FATAL_FAILURE(CreateTask(1, L"\"word\"", L""));
    EXPECT_TRUE(WaitForNotice(kEditor, L"The text of task 2 stands in quotation marks, and these are not read back."));
}

// ---- what a screen reader needs
// --------------------------------------------------------------------------------------

TEST_F(LessonEditor, AccessibilityWalk) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    const Window editor = App().Form(kEditor);
    EXPECT_EQ(Order(editor), (std::vector<std::wstring>{L"lblLessonTitle", L"h:Tasks", L"lstTasks", L"lblNotice",
                                                        L"cmdCreateTask", L"cmdEditTask", L"cmdDeleteTask",
                                                        L"cmdEditLesson", L"OKButton", L"CancelButton"}));
    CheckSpokenNames(editor, {{L"lstTasks", L"Tasks"}});
    ExpectOneDefaultButton(editor);
    EXPECT_EQ(In(kEditor, L"OKButton").Text(), L"OK / Save Lesson");
    EXPECT_EQ(In(kEditor, L"cmdCreateTask").Text(), L"Create New Task");
    EXPECT_EQ(In(kEditor, L"cmdEditTask").Text(), L"Edit Selected Task");
    EXPECT_EQ(In(kEditor, L"cmdDeleteTask").Text(), L"Delete Selected Task");
    EXPECT_EQ(In(kEditor, L"cmdEditLesson").Text(), L"Edit Lesson Details");
    const DWORD style = In(kEditor, L"lstTasks").Style();
    EXPECT_EQ(style & (LBS_NOTIFY | WS_TABSTOP), static_cast<DWORD>(LBS_NOTIFY | WS_TABSTOP));
    EXPECT_EQ(style & (LBS_OWNERDRAWFIXED | LBS_OWNERDRAWVARIABLE | LBS_SORT), 0U);
    ExpectTabOrder({L"lstTasks", L"cmdCreateTask", L"cmdEditTask", L"cmdDeleteTask", L"cmdEditLesson", L"OKButton",
                    L"CancelButton"});
    CheckDialogPlace(editor, 96);
    ExpectEverythingReadable(editor, 96);
}

TEST_F(LessonEditor, KeepsItsPlaceAtTwiceTheResolution) {
    const DisplayResolution resolution(192);
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    const Window editor = App().Form(kEditor);
    CheckDialogPlace(editor, 192);
    CheckNothingOverlaps(editor);
    CheckNothingClipped(editor, 16, 192);
}

TEST_F(LessonEditor, SmallestScreenShowsEverything) {
    const DisplayResolution resolution(kTightDpi);
    StoredLesson lesson = FourLessons().front();
    lesson.tasks.push_back({"1", std::string(255, 'x'), "x\x05", ""});
    WriteTeachersFile({lesson});
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    EXPECT_NE(Notice(kEditor), L"");
    ExpectEverythingReadable(App().Form(kEditor), kTightDpi);
}

}  // namespace
}  // namespace e2e
