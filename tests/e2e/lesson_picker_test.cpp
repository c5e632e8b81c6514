// The lesson list: what it shows, what it asks the screen reader's side to run, and removing a teacher's lesson.
#include "fixture.h"

namespace e2e {
namespace {

namespace fs = std::filesystem;

class LessonPicker : public KeystrideTest {
protected:
    Tree Lessons() { return App().TreeOf(L"dlgTyping", L"tvTasks"); }
    static fs::path TeachersFile() { return UserFolder() / L"TeachersLessons.ini"; }

    bool WaitForSelection(std::wstring_view text) {
        return WaitUntil([&] { return App().Form(L"dlgTyping") && Lessons().SelectedText() == text; });
    }

    /// Selects a lesson by its number with the keyboard, or one of its tasks when that is not 0.
    void Walk(int lesson, int task) {
        ASSERT_TRUE(App().Press("Home"));
        const std::vector<TreeNode> roots = Lessons().Roots();
        ASSERT_GE(static_cast<int>(roots.size()), lesson);
        for (int step = 1; step < lesson; ++step) ASSERT_TRUE(App().Press("Down"));
        const TreeNode& node = roots[static_cast<std::size_t>(lesson) - 1];
        ASSERT_TRUE(WaitForSelection(node.text)) << Readable(Lessons().SelectedText());
        if (task == 0) return;
        ASSERT_TRUE(App().Press("Right"));
        for (int step = 0; step < task; ++step) ASSERT_TRUE(App().Press("Down"));
        ASSERT_TRUE(WaitForSelection(node.children[static_cast<std::size_t>(task) - 1].text));
    }

    void ExpectOkSends(std::string_view chord, std::wstring_view list, int lesson, int task) {
        const std::wstring request =
            std::wstring(list) + L"\x05" + std::to_wstring(lesson) + L"\x05" + std::to_wstring(task);
        ASSERT_TRUE(OpenPicker(chord));
        ASSERT_TRUE(App().WaitForRequest(std::wstring(list) + L"\x05\x04"))
            << "opening tells that nothing is chosen yet";
        ASSERT_NO_FATAL_FAILURE(Walk(lesson, task));
        ASSERT_TRUE(App().Press("Enter"));
        ASSERT_TRUE(App().WaitForNoForm(L"dlgTyping"));
        EXPECT_EQ(App().Request(), request) << Readable(App().Request());
        EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
    }

    Box ExpectPlainBox(std::wstring_view text) {
        const auto box = App().WaitForBox();
        EXPECT_TRUE(box);
        if (!box) return {};
        EXPECT_EQ(box->text, text);
        EXPECT_EQ(box->title, L"Keystride");
        EXPECT_EQ(box->ButtonIds(), std::vector<int>{IDOK});
        EXPECT_FALSE(box->hasIcon);
        EXPECT_EQ(box->owner, App().Form(L"dlgTyping"));
        return *box;
    }

    void ClickInPicker(std::wstring_view button) { ASSERT_TRUE(App().Control(L"dlgTyping", button).Click()); }

    /// Presses Remove on the selected lesson and answers the question.
    void Remove(std::wstring_view selected, int answer) {
        ClickInPicker(L"cmdRemoveLesson");
        const auto box = App().WaitForBox();
        ASSERT_TRUE(box);
        EXPECT_EQ(box->text, L"Are you sure you want to remove the lesson" + std::wstring(selected) + L"?");
        EXPECT_EQ(box->title, L"Keystride");
        EXPECT_EQ(box->ButtonIds(), (std::vector<int>{IDYES, IDNO, IDCANCEL}));
        EXPECT_EQ(box->owner, App().Form(L"dlgTyping"));
        ASSERT_TRUE(box->Answer(answer));
    }

    static std::string TeachersBytes() { return ReadBytes(TeachersFile()); }
};

TEST_F(LessonPicker, ShowsEveryLessonWithItsTasksCollapsed) {
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F3"));
    const std::vector<TreeNode> roots = Lessons().Roots();
    const std::vector<LessonText> lessons = ShippedLessons();
    ASSERT_EQ(roots.size(), lessons.size());
    for (std::size_t index = 0; index < roots.size(); ++index) {
        EXPECT_EQ(roots[index].text, std::to_wstring(index + 1) + L". " + ToWide(lessons[index].title));
        EXPECT_FALSE(roots[index].expanded);
        ASSERT_EQ(roots[index].children.size(), lessons[index].tasks.size());
        for (std::size_t task = 0; task < lessons[index].tasks.size(); ++task)
            EXPECT_EQ(roots[index].children[task].text, ToWide(lessons[index].tasks[task]));
    }
    EXPECT_TRUE(roots[0].selected);
}

TEST_F(LessonPicker, SendsTheChosenLessonAndTask) {
    StartSignedOn();
    WriteBytes(UserFolder() / L"Student Records" / L"Ann Baker" / L"CustomLessons.ini",
               LessonFile({{"Own one", {"o"}}, {"Own two", {"a", "b"}}}));
    ASSERT_NO_FATAL_FAILURE(ExpectOkSends("F3", L"KYBP", 3, 2));
    ASSERT_NO_FATAL_FAILURE(ExpectOkSends("F3", L"KYBP", 4, 0));
    ASSERT_NO_FATAL_FAILURE(ExpectOkSends("F3", L"KYBP", 1, 1));
    ASSERT_NO_FATAL_FAILURE(ExpectOkSends("F7", L"KYBT", 4, 1));
    ASSERT_NO_FATAL_FAILURE(ExpectOkSends("F7", L"KYBT", 2, 0));
    ASSERT_NO_FATAL_FAILURE(ExpectOkSends("Ctrl+Alt+Shift+F8", L"KYBC", 2, 2));
}

TEST_F(LessonPicker, NumbersInRequestsCarryNoPadding) {
    std::vector<LessonText> lessons(12);
    for (LessonText& lesson : lessons) lesson = {"Lesson", {"t"}};
    lessons.back().tasks.assign(11, "t");
    lessons.back().tasks.push_back("last");
    WriteBytes(CommonFolder() / L"KSLessons.ini", LessonFile(lessons));
    StartUnsigned();
    ASSERT_NO_FATAL_FAILURE(ExpectOkSends("F3", L"KYBP", 12, 12));
}

TEST_F(LessonPicker, OkEmptiesTheTypingAreaAndCancelDoesNot) {
    StartUnsigned();
    ASSERT_TRUE(App().Type(L"old text"));
    ASSERT_TRUE(App().WaitForText(L"frmMain", L"rtfEdit", L"old text"));
    ASSERT_TRUE(OpenPicker("F3"));
    ClosePicker();
    EXPECT_EQ(App().Text(L"frmMain", L"rtfEdit"), L"old text");
    ASSERT_NO_FATAL_FAILURE(ExpectOkSends("F3", L"KYBP", 1, 0));
    EXPECT_TRUE(App().WaitForText(L"frmMain", L"rtfEdit", L""));
    ASSERT_TRUE(App().Type(L"new"));
    EXPECT_TRUE(App().WaitForText(L"frmMain", L"rtfEdit", L"new"));
}

TEST_F(LessonPicker, CancelAfterARunTakesTheChoiceBack) {
    StartUnsigned();
    ASSERT_NO_FATAL_FAILURE(ExpectOkSends("F3", L"KYBP", 2, 1));
    ASSERT_TRUE(OpenPicker("F3"));
    ASSERT_NO_FATAL_FAILURE(Walk(2, 1));
    ClosePicker();
    EXPECT_EQ(App().Request(), L"KYBP\x05\x04");
}

TEST_F(LessonPicker, OkByClickActsLikeEnter) {
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F3"));
    ASSERT_NO_FATAL_FAILURE(Walk(2, 3));
    ClickInPicker(L"OKButton");
    ASSERT_TRUE(App().WaitForNoForm(L"dlgTyping"));
    EXPECT_EQ(App().Request(),
              L"KYBP\x05"
              L"2\x05"
              L"3");
}

TEST_F(LessonPicker, EmptyListSaysSoOnEveryCommandThatNeedsALesson) {
    WriteBytes(CommonFolder() / L"TeachersLessons.ini", "[Lessons]\r\nNbrOfLessons=0\r\n");
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F7"));
    EXPECT_EQ(Lessons().Count(), 0);
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(ExpectPlainBox(L"There are no lessons or tasks to select").Answer(IDOK));
    EXPECT_TRUE(App().WaitForFocus(L"tvTasks"));
    ClickInPicker(L"cmdRemoveLesson");
    EXPECT_TRUE(ExpectPlainBox(L"There are no lessons or tasks to select").Answer(IDOK));
    EXPECT_TRUE(App().Form(L"dlgTyping")) << "the list stays open";
    EXPECT_EQ(App().Request(), L"KYBT\x05\x04");
}

TEST_F(LessonPicker, FileWithoutItsCounterSectionGivesAnEmptyList) {
    WriteBytes(CommonFolder() / L"KSLessons.ini", LessonSection(1, {"Lost", {"l"}}));
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F3"));
    EXPECT_EQ(Lessons().Count(), 0);
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(ExpectPlainBox(L"There are no lessons or tasks to select").Answer(IDOK));
}

TEST_F(LessonPicker, NothingSelectedIsToldWhenThereAreLessons) {
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F7"));
    Lessons().SelectNothing();
    ASSERT_FALSE(Lessons().HasSelection());
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(ExpectPlainBox(L"Select a lesson or task first").Answer(IDOK));
    ASSERT_TRUE(App().Form(L"dlgTyping"));
    Lessons().SelectNothing();
    ClickInPicker(L"cmdRemoveLesson");
    EXPECT_TRUE(ExpectPlainBox(L"Select a lesson or task first").Answer(IDOK));
    EXPECT_EQ(TeachersBytes(), LessonFile(TeachersLessons()));
}

TEST_F(LessonPicker, LessonWithoutASectionShowsItsNumberAndABlank) {
    WriteBytes(CommonFolder() / L"KSLessons.ini",
               "[Lessons]\r\nNbrOfLessons=3\r\n" + LessonSection(1, {"One", {"a"}}) + LessonSection(3, {"Three", {}}));
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F3"));
    const std::vector<TreeNode> roots = Lessons().Roots();
    ASSERT_EQ(roots.size(), 3U);
    EXPECT_EQ(roots[1].text, L"2. ");
    EXPECT_TRUE(roots[1].children.empty());
    EXPECT_EQ(roots[2].text, L"3. Three");
}

TEST_F(LessonPicker, TitlesAndTextsFollowLanguageAndMagnifier) {
    WriteBytes(UserFolder() / L"Keystride.ini", KeystrideIni("", 1, 1));
    WriteBytes(CommonFolder() / L"KSLessons.ini",
               "[Lessons]\r\nNbrOfLessons=3\r\n"
               "[L01]\r\nDefTitle=Plain\r\nTitleMAG=Big\r\nTitleEng=English\r\nNbrOfTasks=2\r\n"
               "PRINT_USA_TASK_01=usa\r\nPRINT_ENG_TASK_01=eng\r\nPRINT_MAG_TASK_01=MAG\r\n"
               "PRINT_USA_TASK_02=usa two\r\nPRINT_ENG_TASK_02=eng two\r\n"
               "[L02]\r\nDefTitle=Plain\r\nTitleEng=English\r\nTitleNonEng=Other\r\n"
               "[L03]\r\nDefTitle=Only plain\r\nTitleMAG=\r\n");
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F3"));
    EXPECT_EQ(Lessons().RootTexts(), (std::vector<std::wstring>{L"1. Big", L"2. English", L"3. Only plain"}));
    const std::vector<TreeNode> tasks = Lessons().Roots()[0].children;
    ASSERT_EQ(tasks.size(), 2U);
    EXPECT_EQ(tasks[0].text, L"MAG");
    EXPECT_EQ(tasks[1].text, L"eng two");
}

TEST_F(LessonPicker, SecondLanguageFallsBackToThePlainText) {
    WriteBytes(UserFolder() / L"Keystride.ini", KeystrideIni("", 2, 0));
    WriteBytes(CommonFolder() / L"KSLessons.ini",
               "[Lessons]\r\nNbrOfLessons=1\r\n"
               "[L01]\r\nDefTitle=Plain\r\nTitleEng=English\r\nTitleNonEng=Other\r\nNbrOfTasks=2\r\n"
               "PRINT_USA_TASK_01=usa\r\nPRINT_NONENG_TASK_01=other\r\nPRINT_USA_TASK_02=usa two\r\n"
               "PRINT_ENG_TASK_02=eng two\r\n");
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F3"));
    const std::vector<TreeNode> roots = Lessons().Roots();
    ASSERT_EQ(roots.size(), 1U);
    EXPECT_EQ(roots[0].text, L"1. Other");
    ASSERT_EQ(roots[0].children.size(), 2U);
    EXPECT_EQ(roots[0].children[0].text, L"other");
    EXPECT_EQ(roots[0].children[1].text, L"usa two");
}

TEST_F(LessonPicker, EachOpeningReadsTheFileAnew) {
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F3"));
    ClosePicker();
    WriteBytes(CommonFolder() / L"KSLessons.ini", LessonFile({{"Changed meanwhile", {"c"}}}));
    ASSERT_TRUE(OpenPicker("F3"));
    EXPECT_EQ(Lessons().RootTexts(), std::vector<std::wstring>{L"1. Changed meanwhile"});
}

TEST_F(LessonPicker, MissingLessonFileIsReportedAndNothingIsSent) {
    fs::remove(CommonFolder() / L"KSLessons.ini");
    StartUnsigned();
    ASSERT_TRUE(App().Press("F3"));
    ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(L"File " + (CommonFolder() / L"KSLessons.ini").wstring() + L"not found."));
    EXPECT_EQ(App().Request(), L"Signon\x05\x04");
    ASSERT_TRUE(OpenPicker("F7")) << "the other list still opens";
    EXPECT_EQ(Lessons().RootTexts().size(), TeachersLessons().size());
}

TEST_F(LessonPicker, CustomLessonsBeforeAnySignOnAreReportedMissing) {
    StartUnsigned();
    ASSERT_TRUE(App().Press("Ctrl+Alt+Shift+F8"));
    const auto box = App().WaitForBox();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->text, L"File not found.");
    ASSERT_TRUE(box->Answer(IDOK));
    EXPECT_TRUE(KeysDealtWith());
    EXPECT_EQ(OpenWindows(), std::vector<std::wstring>{L"frmMain"});
}

TEST_F(LessonPicker, RemovingALessonClosesTheGapAndKeepsABackup) {
    StartUnsigned();
    const std::string before = TeachersBytes();
    ASSERT_TRUE(OpenPicker("F7"));
    ASSERT_NO_FATAL_FAILURE(Walk(2, 0));
    ASSERT_NO_FATAL_FAILURE(Remove(L"2. Second", IDYES));
    EXPECT_TRUE(WaitUntil([&] {
        return Lessons().RootTexts() == std::vector<std::wstring>{L"1. First", L"2. Third", L"3. Fourth"};
    }));
    std::vector<LessonText> left = TeachersLessons();
    left.erase(left.begin() + 1);
    EXPECT_EQ(TeachersBytes(), LessonFile(left));
    EXPECT_EQ(ReadBytes(UserFolder() / L"TeachersLessons.bak"), before);
    EXPECT_TRUE(WaitForSelection(L"2. Third")) << "the neighbour is selected: " << Readable(Lessons().SelectedText());
    EXPECT_TRUE(App().WaitForFocus(L"tvTasks"));
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(
        App().WaitForRequest(L"KYBT\x05"
                             L"2\x05"
                             L"0"));
}

TEST_F(LessonPicker, RemovingWithATaskSelectedAsksWithTheTaskAndRemovesItsLesson) {
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F7"));
    ASSERT_NO_FATAL_FAILURE(Walk(1, 2));
    ASSERT_NO_FATAL_FAILURE(Remove(L"one b", IDYES));
    EXPECT_TRUE(WaitUntil([&] {
        return Lessons().RootTexts() == std::vector<std::wstring>{L"1. Second", L"2. Third", L"3. Fourth"};
    }));
    EXPECT_TRUE(WaitForSelection(L"1. Second"));
}

TEST_F(LessonPicker, RemovingTheLastOfSeveralSelectsTheOneBefore) {
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F7"));
    ASSERT_NO_FATAL_FAILURE(Walk(4, 0));
    ASSERT_NO_FATAL_FAILURE(Remove(L"4. Fourth", IDYES));
    EXPECT_TRUE(WaitForSelection(L"3. Third"));
    EXPECT_TRUE(App().WaitForFocus(L"tvTasks"));
    std::vector<LessonText> left = TeachersLessons();
    left.pop_back();
    EXPECT_EQ(TeachersBytes(), LessonFile(left));
}

TEST_F(LessonPicker, NoAndCancelRemoveNothing) {
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F7"));
    ASSERT_NO_FATAL_FAILURE(Walk(2, 0));
    for (const int answer : {IDNO, IDCANCEL}) {
        ASSERT_NO_FATAL_FAILURE(Remove(L"2. Second", answer));
        EXPECT_TRUE(App().WaitForFocus(L"cmdRemoveLesson") || App().WaitForFocus(L"tvTasks"));
    }
    EXPECT_EQ(TeachersBytes(), LessonFile(TeachersLessons()));
    EXPECT_EQ(Lessons().RootTexts().size(), TeachersLessons().size());
    EXPECT_EQ(Lessons().SelectedText(), L"2. Second");
    EXPECT_FALSE(fs::exists(UserFolder() / L"TeachersLessons.bak"));
}

TEST_F(LessonPicker, RemovingTheOnlyLessonLeavesAnEmptyList) {
    WriteBytes(UserFolder() / L"TeachersLessons.ini", LessonFile({{"Only", {"o"}}}));
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F7"));
    ASSERT_NO_FATAL_FAILURE(Remove(L"1. Only", IDYES));
    EXPECT_TRUE(WaitUntil([&] { return Lessons().Count() == 0; }));
    EXPECT_EQ(TeachersBytes(), "[Lessons]\r\nNbrOfLessons=0\r\n");
    EXPECT_TRUE(App().WaitForFocus(L"tvTasks"));
    EXPECT_TRUE(App().Control(L"dlgTyping", L"tvTasks").Shown());
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(ExpectPlainBox(L"There are no lessons or tasks to select").Answer(IDOK));
}

TEST_F(LessonPicker, RemovingCopiesTheFileToTheNetwork) {
    WriteBytes(CommonFolder() / L"KSUserInfo.ini", UserInfoIni(NetworkFolder().string()));
    WriteBytes(NetworkFolder() / L"TeachersLessons.ini", LessonFile(TeachersLessons()));
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F7"));
    ASSERT_NO_FATAL_FAILURE(Walk(3, 0));
    ASSERT_NO_FATAL_FAILURE(Remove(L"3. Third", IDYES));
    std::vector<LessonText> left = TeachersLessons();
    left.erase(left.begin() + 2);
    EXPECT_TRUE(WaitUntil([&] { return ReadBytes(NetworkFolder() / L"TeachersLessons.ini") == LessonFile(left); }));
    EXPECT_EQ(TeachersBytes(), LessonFile(left));
}

TEST_F(LessonPicker, RemovalThatTheSystemRefusesIsReportedAndLosesNothing) {
    StartUnsigned();
    const std::string before = TeachersBytes();
    ASSERT_TRUE(OpenPicker("F7"));
    ASSERT_NO_FATAL_FAILURE(Walk(2, 0));
    {
        const HeldFile held(TeachersFile());
        ASSERT_TRUE(held.Held());
        ASSERT_NO_FATAL_FAILURE(Remove(L"2. Second", IDYES));
        const auto box = App().WaitForBox();
        ASSERT_TRUE(box) << "a refused save is told";
        EXPECT_EQ(box->title, L"Keystride");
        EXPECT_FALSE(box->text.empty());
        EXPECT_EQ(box->ButtonIds(), std::vector<int>{IDOK});
        EXPECT_TRUE(box->HasStopIcon());
        EXPECT_EQ(box->owner, App().Form(L"dlgTyping"));
        ASSERT_TRUE(box->Answer(IDOK));
    }
    EXPECT_EQ(TeachersBytes(), before);
    ASSERT_TRUE(App().Form(L"dlgTyping"));
    EXPECT_TRUE(App().Control(L"dlgTyping", L"tvTasks").Shown());
    EXPECT_EQ(Lessons().RootTexts().size(), TeachersLessons().size());
    EXPECT_TRUE(App().WaitForFocus(L"tvTasks") || App().WaitForFocus(L"cmdRemoveLesson"));
    ASSERT_NO_FATAL_FAILURE(Remove(Lessons().SelectedText(), IDYES));
    EXPECT_TRUE(WaitUntil([&] { return Lessons().RootTexts().size() == TeachersLessons().size() - 1; }))
        << "once the file is free, removing works";
}

TEST_F(LessonPicker, RemovalThatCutALongLessonSaysSo) {
    LessonText longLesson{"Long", {}};
    for (int task = 0; task < 40; ++task) longLesson.tasks.push_back(std::string(60, 'x'));
    WriteBytes(UserFolder() / L"TeachersLessons.ini", LessonFile({{"Short", {"s"}}, longLesson}));
    StartUnsigned();
    const Window picker = OpenPicker("F7");
    EXPECT_FALSE(picker.Descendant(L"lblNotice").Shown());
    ASSERT_NO_FATAL_FAILURE(Remove(L"1. Short", IDYES));
    ASSERT_TRUE(WaitUntil([&] { return Lessons().RootTexts() == std::vector<std::wstring>{L"1. Long"}; }));
    EXPECT_TRUE(WaitUntil([&] { return picker.Descendant(L"lblNotice").Visible(); })) << "the cut is told";
    EXPECT_FALSE(picker.Descendant(L"lblNotice").Text().empty());
    EXPECT_FALSE(App().TopBox()) << "the notice never blocks";
}

TEST_F(LessonPicker, AddingToAFullListSaysThatThereIsNoRoom) {
    WriteBytes(CommonFolder() / L"TeachersLessons.ini", LessonFile(std::vector<LessonText>(201, LessonText{"L", {}})));
    StartUnsigned();
    const std::string before = TeachersBytes();
    ASSERT_TRUE(OpenPicker("F7"));
    ClickInPicker(L"cmdAddLesson");
    EXPECT_TRUE(ExpectPlainBox(L"There is no room for another lesson. Remove one first.").Answer(IDOK));
    EXPECT_EQ(OpenWindows(), (std::vector<std::wstring>{L"dlgTyping", L"frmMain"}));
    EXPECT_EQ(TeachersBytes(), before);
}

TEST_F(LessonPicker, TwoHundredAndOneLessonsAreListed) {
    std::vector<LessonText> lessons(201, LessonText{"L", {}});
    lessons.back().tasks.assign(101, "t");
    WriteBytes(CommonFolder() / L"KSLessons.ini", LessonFile(lessons));
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F3"));
    EXPECT_EQ(Lessons().Count(), 201 + 101);
    ASSERT_TRUE(App().Press("End"));
    EXPECT_TRUE(WaitForSelection(L"201. L"));
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(
        App().WaitForRequest(L"KYBP\x05"
                             L"201\x05"
                             L"0"));
}

}  // namespace
}  // namespace e2e
