// The lesson files: variants of texts, the catalogue in a real tree, saving, removing and numbering a teacher's
// lessons.
#include "lessons/modTyping.h"

#include <initializer_list>
#include <string>
#include <vector>

#include "shell/lesson_file.h"
#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "unit/data_set.h"
#include "unit/fixture.h"
#include "unit/test_forms.h"
#include "win32/profile.h"
#include "win32/text.h"

namespace unit {
namespace {

namespace fs = std::filesystem;
using namespace modGlobals;
using namespace modTyping;

// ---- titles, introductions, task texts
// -------------------------------------------------------------------------------

class VariantTest : public FolderTest {
protected:
    void Lesson(const std::string& lines) { file_ = NewFile("[Lessons]\r\nNbrOfLessons=1\r\n[L01]\r\n" + lines); }
    [[nodiscard]] std::wstring Title() const { return GetLessonTitle(file_, 1); }
    [[nodiscard]] std::wstring Intro() const { return GetLessonIntro(file_, 1); }
    [[nodiscard]] std::wstring Task() const { return GetTaskDisplay(file_, L"L01", 1); }

    std::wstring file_;
};

constexpr char kAllTitles[] =
    "DefTitle=def\r\nTitleMAG=mag\r\nTitleEng=eng\r\nTitleNonEng=non\r\nINTRO_LSN_JAWS=intro\r\n";
constexpr char kAllTasks[] =
    "PRINT_USA_TASK_01=usa\r\nPRINT_ENG_TASK_01=eng\r\nPRINT_NONENG_TASK_01=non\r\nPRINT_MAG_TASK_01=mag\r\n";

TEST_F(VariantTest, TheTitleFollowsLanguageAndMagnifier) {
    Lesson(kAllTitles);
    EXPECT_EQ(Title(), L"def");
    SetLanguage(1);
    EXPECT_EQ(Title(), L"eng");
    SetLanguage(2);
    EXPECT_EQ(Title(), L"non");
    gMAGic = true;
    for (const int language : {0, 1, 2, 5}) {
        SetLanguage(language);
        EXPECT_EQ(Title(), L"mag") << language;
    }
}

TEST_F(VariantTest, ALessonWithOnlyTheDefaultTitleShowsItInEveryLanguage) {
    Lesson("DefTitle=def\r\nINTRO_LSN_JAWS=intro\r\n");
    for (const bool magnifier : {false, true})
        for (const int language : {0, 1, 2}) {
            gMAGic = magnifier;
            SetLanguage(language);
            EXPECT_EQ(Title(), L"def");
            EXPECT_EQ(Intro(), L"intro");
        }
}

TEST_F(VariantTest, WithTheMagnifierOnTitleAndIntroductionReadTheMagnifiersTitle) {
    Lesson("DefTitle=def\r\nTitleMAG=Big\r\nINTRO_LSN_JAWS=intro\r\n");
    EXPECT_EQ(Title(), L"def");
    EXPECT_EQ(Intro(), L"intro");
    gMAGic = true;
    EXPECT_EQ(Title(), L"Big");
    EXPECT_EQ(Intro(), L"Big");
}

TEST_F(VariantTest, ALanguagesTitleStandsBeforeTheIntroductionToo) {
    Lesson(kAllTitles);
    EXPECT_EQ(Intro(), L"intro");
    SetLanguage(1);
    EXPECT_EQ(Intro(), L"eng");
    SetLanguage(2);
    EXPECT_EQ(Intro(), L"non");
}

TEST_F(VariantTest, AnEmptyVariantCountsAsAbsent) {
    Lesson("DefTitle=def\r\nTitleMAG=\r\nTitleEng=\"  \"\r\nTitleNonEng=\r\n");
    gMAGic = true;
    for (const int language : {0, 1, 2}) {
        SetLanguage(language);
        EXPECT_EQ(Title(), L"def") << language;
    }
}

TEST_F(VariantTest, TheMagnifierComesBeforeTheLanguageAndFallsThroughToIt) {
    Lesson("DefTitle=def\r\nTitleEng=eng\r\nTitleNonEng=non\r\n");
    gMAGic = true;
    SetLanguage(1);
    EXPECT_EQ(Title(), L"eng");
    SetLanguage(2);
    EXPECT_EQ(Title(), L"non");
}

TEST_F(VariantTest, ALanguageNeverShowsTheOthersTitle) {
    Lesson("DefTitle=def\r\nTitleEng=eng\r\n");
    SetLanguage(2);
    EXPECT_EQ(Title(), L"def");
    Lesson("DefTitle=def\r\nTitleNonEng=non\r\n");
    SetLanguage(1);
    EXPECT_EQ(Title(), L"def");
}

TEST_F(VariantTest, TaskTextsFollowLanguageAndMagnifier) {
    Lesson(kAllTasks);
    EXPECT_EQ(Task(), L"usa");
    SetLanguage(1);
    EXPECT_EQ(Task(), L"eng");
    SetLanguage(2);
    EXPECT_EQ(Task(), L"non");
    gMAGic = true;
    EXPECT_EQ(Task(), L"mag");
}

TEST_F(VariantTest, WithLanguage2TheTaskTextFallsBackToTheUsOne) {
    Lesson("PRINT_USA_TASK_01=usa\r\nPRINT_ENG_TASK_01=eng\r\nEXPLN_USA_CHILD_01=explanation\r\n");
    SetLanguage(2);
    EXPECT_EQ(Task(), L"usa");
    EXPECT_EQ(WritingVariant(), Variant::Usa) << "the explanation comes from the US key";
}

TEST_F(VariantTest, OnlyLanguage1WritesItsOwnKeys) {
    for (const int language : {0, 2, 5}) {
        SetLanguage(language);
        EXPECT_EQ(WritingVariant(), Variant::Usa) << language;
    }
    SetLanguage(1);
    gMAGic = true;
    EXPECT_EQ(WritingVariant(), Variant::Eng);
}

TEST_F(VariantTest, TextsAreTrimmedAndCutAt254Bytes) {
    Lesson("DefTitle=\"  " + std::string(300, 'x') +
           "\"\r\nINTRO_LSN_JAWS=\" a \"\r\nPRINT_USA_TASK_01=\" b\x05 \"\r\n");
    EXPECT_EQ(Title(), std::wstring(252, L'x'));
    EXPECT_EQ(Intro(), L"a");
    EXPECT_EQ(Task(), L"b\x05");
}

TEST_F(VariantTest, WithoutAnyTextTheyAreEmpty) {
    Lesson("NbrOfTasks=3\r\n");
    EXPECT_EQ(Title(), L"");
    EXPECT_EQ(Intro(), L"");
    EXPECT_EQ(Task(), L"");
    EXPECT_EQ(GetLessonTitle(file_, 99), L"");
}

TEST_F(VariantTest, LessonsAndTasksOfThreeDigitsHaveTheirKeys) {
    file_ = NewFile(
        "[L07]\r\nDefTitle=seven\r\n[L123]\r\nDefTitle=many\r\nPRINT_USA_TASK_100=last\r\nPRINT_USA_TASK_05=fifth\r\n");
    EXPECT_EQ(GetLessonTitle(file_, 7), L"seven");
    EXPECT_EQ(GetLessonTitle(file_, 123), L"many");
    EXPECT_EQ(GetTaskDisplay(file_, L"L123", 100), L"last");
    EXPECT_EQ(GetTaskDisplay(file_, L"L123", 5), L"fifth");
}

TEST_F(VariantTest, AMissingFileIsTheErrorOfTheOperation) {
    file_ = NewName();
    const auto expect = [&](const auto& run, const wchar_t* source) {
        const win32::AppError error = RaisedBy(run);
        EXPECT_EQ(error.Number(), modUtils::kFileNotFoundNumber);
        EXPECT_EQ(error.Source(), source);
        EXPECT_EQ(error.Description(), L"File " + file_ + L"not found.");
    };
    gTeachersLessonsIni = file_;
    expect([&] { GetLessonTitle(file_, 1); }, L"GetLessonTitle");
    expect([&] { GetLessonIntro(file_, 1); }, L"GetLessonIntro");
    expect([&] { GetTaskDisplay(file_, L"L01", 1); }, L"GetTaskDisplay");
    expect([&] { GetNextTeachersLessonNbr(); }, L"GetNextTeachersLessonNbr");
    expect([&] { SaveLesson(1, L"t", L"", L"Space", 2, {}); }, L"SaveLesson");
    expect([&] { SaveNewLesson(1); }, L"SaveNewLesson");
    EXPECT_FALSE(fs::exists(file_));
}

// ---- the tree
// --------------------------------------------------------------------------------------------------------

using Shown = TreeForm::Shown;

class LoadLessonsTest : public FolderTest {
protected:
    void SetUp() override {
        FolderTest::SetUp();
        form_.Load();
    }
    void TearDown() override {
        form_.Unload();
        FolderTest::TearDown();
    }

    std::int16_t Load(const std::string& text) {
        form_.tvTasks.Clear();
        return LoadLessons(NewFile(text), form_.tvTasks);
    }

    [[nodiscard]] std::vector<Shown> Nodes() const { return form_.Nodes(); }

    TreeForm form_;
};

TEST_F(LoadLessonsTest, LessonsAreRootsAndTasksTheirChildren) {
    EXPECT_EQ(Load("[Lessons]\r\nNbrOfLessons=2\r\n" + LessonSection(1, "Home row", {"asdf", "jkl;"}) +
                   LessonSection(2, "Top row", {"qwer"})),
              2);
    const std::vector<Shown> expected{{L"L01", L"1. Home row", 0},
                                      {L"L01\x05"
                                       L"01",
                                       L"asdf", 1},
                                      {L"L01\x05"
                                       L"02",
                                       L"jkl;", 1},
                                      {L"L02", L"2. Top row", 0},
                                      {L"L02\x05"
                                       L"01",
                                       L"qwer", 1}};
    EXPECT_EQ(Nodes(), expected);
}

TEST_F(LoadLessonsTest, AnEmptyOrMissingListSectionGivesAnEmptyTree) {
    for (const std::string text : {"", "[Other]\r\nx=1\r\n", "[Lessons]\r\n", "[Lessons]\r\nNbrOfLessons=\r\n",
                                   "[Lessons]\r\nNbrOfLessons=many\r\n", "[Lessons]\r\nNbrOfLessons=-3\r\n"}) {
        EXPECT_EQ(Load(text), 0) << text;
        EXPECT_EQ(form_.tvTasks.Count(), 0) << text;
    }
}

TEST_F(LoadLessonsTest, ALessonWithoutTasksIsARootWithoutChildren) {
    EXPECT_EQ(Load("[Lessons]\r\nNbrOfLessons=1\r\n[L01]\r\nDefTitle=Later\r\nNbrOfTasks=0\r\n"), 1);
    EXPECT_EQ(Nodes(), (std::vector<Shown>{{L"L01", L"1. Later", 0}}));
}

TEST_F(LoadLessonsTest, AMissingLessonShowsItsNumberAFullStopAndABlank) {
    EXPECT_EQ(
        Load("[Lessons]\r\nNbrOfLessons=3\r\n" + LessonSection(1, "One", {"a"}) + LessonSection(3, "Three", {"c"})), 3);
    const std::vector<Shown> expected{{L"L01", L"1. One", 0},
                                      {L"L01\x05"
                                       L"01",
                                       L"a", 1},
                                      {L"L02", L"2. ", 0},
                                      {L"L03", L"3. Three", 0},
                                      {L"L03\x05"
                                       L"01",
                                       L"c", 1}};
    EXPECT_EQ(Nodes(), expected);
}

TEST_F(LoadLessonsTest, ATaskWithoutATextIsStillANode) {
    Load("[Lessons]\r\nNbrOfLessons=1\r\n[L01]\r\nDefTitle=x\r\nNbrOfTasks=3\r\nPRINT_USA_TASK_02=b\r\n");
    const std::vector<Shown> expected{{L"L01", L"1. x", 0},
                                      {L"L01\x05"
                                       L"01",
                                       L"", 1},
                                      {L"L01\x05"
                                       L"02",
                                       L"b", 1},
                                      {L"L01\x05"
                                       L"03",
                                       L"", 1}};
    EXPECT_EQ(Nodes(), expected);
}

TEST_F(LoadLessonsTest, NodesShowTheVariantsOfTheSwitches) {
    SetLanguage(1);
    Load(
        "[Lessons]\r\nNbrOfLessons=1\r\n[L01]\r\nDefTitle=def\r\nTitleEng=eng\r\nNbrOfTasks=1\r\n"
        "PRINT_USA_TASK_01=usa\r\nPRINT_ENG_TASK_01=eng task\r\n");
    EXPECT_EQ(Nodes(), (std::vector<Shown>{{L"L01", L"1. eng", 0},
                                           {L"L01\x05"
                                            L"01",
                                            L"eng task", 1}}));
}

TEST_F(LoadLessonsTest, LessonNodesStartCollapsedAndNothingIsSelected) {
    Load(LessonFile({"One", "Two"}));
    const HTREEITEM root = TreeView_GetRoot(form_.tvTasks.Handle());
    TVITEMW item{};
    item.mask = TVIF_STATE | TVIF_HANDLE;
    item.hItem = root;
    item.stateMask = TVIS_EXPANDED;
    SendMessageW(form_.tvTasks.Handle(), TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(item.state & TVIS_EXPANDED, 0U);
    EXPECT_EQ(form_.tvTasks.Selected(), nullptr);
}

TEST_F(LoadLessonsTest, TwoHundredAndOneLessonsFit) {
    std::string text = "[Lessons]\r\nNbrOfLessons=201\r\n";
    for (int number = 1; number <= 201; ++number) text += LessonSection(number, "T" + std::to_string(number), {"x"});
    EXPECT_EQ(Load(text), 201);
    EXPECT_EQ(form_.tvTasks.Count(), 402);
    const auto last = form_.tvTasks.FindKey(L"L201");
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(form_.tvTasks.Text(last), L"201. T201");
}

TEST_F(LoadLessonsTest, Lesson202IsError9AndTheTreeIsShownAgain) {
    form_.tvTasks.Show(true);
    const win32::AppError error = RaisedBy([&] { Load("[Lessons]\r\nNbrOfLessons=202\r\n"); });
    EXPECT_EQ(error.Number(), 9);
    EXPECT_EQ(error.Description(), L"Subscript out of range");
    EXPECT_TRUE(form_.tvTasks.IsShown());
}

TEST_F(LoadLessonsTest, AHundredAndOneTasksFitAndTask102IsError9) {
    EXPECT_EQ(Load("[Lessons]\r\nNbrOfLessons=1\r\n[L01]\r\nNbrOfTasks=101\r\nPRINT_USA_TASK_101=last\r\n"), 1);
    EXPECT_EQ(form_.tvTasks.Count(), 102);
    const auto last = form_.tvTasks.FindKey(
        L"L01\x05"
        L"101");
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(form_.tvTasks.Text(last), L"last");
    const win32::AppError error = RaisedBy([&] { Load("[Lessons]\r\nNbrOfLessons=1\r\n[L01]\r\nNbrOfTasks=102\r\n"); });
    EXPECT_EQ(error.Number(), 9);
    EXPECT_TRUE(form_.tvTasks.IsShown());
}

TEST_F(LoadLessonsTest, CountsThatDoNotFit16BitsAreError6) {
    for (const std::string count : {"32768", "40000", "99999999999"}) {
        EXPECT_EQ(RaisedBy([&] { Load("[Lessons]\r\nNbrOfLessons=" + count + "\r\n"); }).Number(), 6) << count;
        EXPECT_EQ(
            RaisedBy([&] { Load("[Lessons]\r\nNbrOfLessons=1\r\n[L01]\r\nNbrOfTasks=" + count + "\r\n"); }).Number(), 6)
            << count;
        EXPECT_TRUE(form_.tvTasks.IsShown());
    }
}

TEST_F(LoadLessonsTest, AMissingFileIsToldAndTheTreeStaysShown) {
    const std::wstring file = NewName();
    const win32::AppError error = RaisedBy([&] { LoadLessons(file, form_.tvTasks); });
    EXPECT_EQ(error.Source(), L"LoadLessons");
    EXPECT_EQ(error.Description(), L"File " + file + L"not found.");
    EXPECT_TRUE(form_.tvTasks.IsShown());
    EXPECT_THROW(LoadLessons(Folder().wstring(), form_.tvTasks), win32::AppError) << "a folder is no file";
}

int hiddenInserts = 0;
int shownInserts = 0;

LRESULT CALLBACK CountInserts(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR /*id*/,
                              DWORD_PTR /*data*/) {
    if (message == TVM_INSERTITEMW) {
        const bool shown = (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
        ++(shown ? shownInserts : hiddenInserts);
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

TEST_F(LoadLessonsTest, TheTreeIsHiddenWhileItIsFilledAndShownAgain) {
    hiddenInserts = shownInserts = 0;
    form_.tvTasks.Show(true);
    ASSERT_TRUE(SetWindowSubclass(form_.tvTasks.Handle(), &CountInserts, 1, 0));
    Load(LessonFile({"One", "Two", "Three"}));
    RemoveWindowSubclass(form_.tvTasks.Handle(), &CountInserts, 1);
    EXPECT_EQ(hiddenInserts, 6);
    EXPECT_EQ(shownInserts, 0);
    EXPECT_TRUE(form_.tvTasks.IsShown());
}

TEST_F(LoadLessonsTest, ReadingIsOneCallALessonAndOneMore) {
    const std::string text = LessonFile({"One", "Two", "Three", "Four"});
    const std::size_t before = win32::profile::CallCount();
    Load(text);
    EXPECT_LE(win32::profile::CallCount() - before, 4U + 2U);
}

TEST_F(LoadLessonsTest, TextsAreWhatSingleReadsGive) {
    // Whatever a lesson file holds, the tree shows what one call a value would have given.
    const std::string lesson =
        "DefTitle=\"quoted\"\r\ndeftitle=second\r\nNbrOfTasks=7x\r\nPRINT_USA_TASK_01=a=b==c\r\n"
        "PRINT_USA_TASK_02=\x05\x07 x \x04\r\n;PRINT_USA_TASK_03=no\r\nPRINT_USA_TASK_04='\xE4\xF6\xFC\x80'\r\n"
        "PRINT_USA_TASK_05\r\nPRINT_USA_TASK_05=bare\r\nPRINT_USA_TASK_06=" +
        std::string(300, 'y') + "\r\nprint_usa_task_07= low \r";
    const std::wstring file = NewFile("[Lessons]\nNbrOfLessons=1\n[L01]\n" + lesson + "\n[L01]\nDefTitle=other\n");
    form_.tvTasks.Clear();
    ASSERT_EQ(LoadLessons(file, form_.tvTasks), 1);
    const std::vector<Shown> nodes = Nodes();
    ASSERT_EQ(nodes.size(), 8U);
    EXPECT_EQ(nodes[0].text, L"1. quoted");
    for (std::int16_t task = 1; task <= 7; ++task) {
        const std::wstring read =
            modUtils::ReadTrimmed(file, L"L01", L"PRINT_USA_TASK_" + modUtils::ZeroPad(task, 2), L"");
        EXPECT_EQ(ReadCatalogue(file).at(0).tasks.at(static_cast<std::size_t>(task - 1)).text, read) << task;
    }
    EXPECT_EQ(nodes[1].text, L"a=b==c");
    EXPECT_EQ(nodes[4].text, L"\u00e4\u00f6\u00fc\u20ac");
    EXPECT_EQ(nodes[7].text, L"low");
}

TEST_F(LoadLessonsTest, RandomBytesEndInAListOrAnError) {
    unsigned state = 12345;
    for (int number = 0; number < 50; ++number) {
        std::string text = "[Lessons]\nNbrOfLessons=3\n[L01]\nNbrOfTasks=";
        for (int i = 0; i < 2000; ++i) {
            state = state * 1664525U + 1013904223U;
            text += static_cast<char>(state >> 24U);
        }
        try {
            EXPECT_EQ(Load(text), 3);
        } catch (const win32::AppError& error) {
            EXPECT_TRUE(error.Number() == 6 || error.Number() == 9) << error.Number();
        }
        EXPECT_TRUE(form_.tvTasks.IsShown());
    }
}

// ---- saving
// ----------------------------------------------------------------------------------------------------------

struct Task {
    std::wstring kind;
    std::wstring text;
    std::wstring explanation;
};

TaskTable Table(const std::vector<Task>& tasks) {
    TaskTable table;
    for (const Task& task : tasks) EXPECT_TRUE(table.Append(task.kind, task.text, task.explanation));
    return table;
}

class SaveLessonTest : public FolderTest {
protected:
    /// Gives the teacher's file these bytes, under a name that the process never used.
    void Teachers(const std::string& bytes) { gTeachersLessonsIni = NewFile(bytes); }
    static std::string Saved() { return ReadBytes(gTeachersLessonsIni); }
    static std::string Backup() {
        return ReadBytes(gTeachersLessonsIni.substr(0, gTeachersLessonsIni.rfind(L'.')) + L".bak");
    }

    /// The bytes that the stated order of single writes leaves: the section as one line, then a call a value.
    std::string SingleWrites(const std::string& before, std::int16_t lesson, const std::wstring& title,
                             const std::wstring& intro, const std::wstring& terminator, std::int16_t repetitions,
                             const std::vector<Task>& tasks) {
        const std::wstring file = NewFile(before);
        const std::string path = win32::ToAnsi(file);
        const std::string section = win32::ToAnsi(lesson_file::SectionName(lesson));
        const std::string line = "DefTitle=" + win32::ToAnsi(title) + std::string(2, '\0');
        EXPECT_TRUE(WritePrivateProfileSectionA(section.c_str(), line.data(), path.c_str()));
        const auto write = [&](const std::wstring& key, const std::wstring& value) {
            EXPECT_TRUE(WritePrivateProfileStringA(section.c_str(), win32::ToAnsi(key).c_str(),
                                                   win32::ToAnsi(value).c_str(), path.c_str()));
        };
        write(L"INTRO_LSN_JAWS", intro);
        write(L"TaskReps", std::to_wstring(repetitions));
        write(L"TaskDL", terminator);
        write(L"NbrOfTasks", std::to_wstring(tasks.size()));
        const std::wstring language = IsLanguageOne() ? L"ENG" : L"USA";
        for (std::size_t i = 0; i < tasks.size(); ++i) {
            const std::wstring number = modUtils::ZeroPad(static_cast<std::int16_t>(i + 1), 2);
            const std::wstring kind = tasks[i].kind == L"4" ? L"3" : tasks[i].kind;
            write(L"KIND_TASK_" + number, kind);
            write(L"PRINT_" + language + L"_TASK_" + number, tasks[i].text);
            write(L"SPELL_" + language + L"_TASK_" + number, SpellOutTask(kind, tasks[i].text));
            write(L"EXPLN_" + language + L"_CHILD_" + number, tasks[i].explanation);
        }
        if (lesson > static_cast<int>(GetPrivateProfileIntA("Lessons", "NbrOfLessons", 0, path.c_str()))) {
            EXPECT_TRUE(
                WritePrivateProfileStringA("Lessons", "NbrOfLessons", std::to_string(lesson).c_str(), path.c_str()));
        }
        return ReadBytes(file);
    }

    void ExpectLikeSingleWrites(const std::string& before, std::int16_t lesson, const std::wstring& title,
                                const std::wstring& intro, const std::wstring& terminator, std::int16_t repetitions,
                                const std::vector<Task>& tasks) {
        Teachers(before);
        EXPECT_EQ(SaveLesson(lesson, title, intro, terminator, repetitions, Table(tasks)),
                  static_cast<std::int16_t>(tasks.size()));
        EXPECT_EQ(Saved(), SingleWrites(before, lesson, title, intro, terminator, repetitions, tasks));
    }
};

TEST_F(SaveLessonTest, WritesTheLinesInTheirOrder) {
    Teachers("[Lessons]\r\nNbrOfLessons=1\r\n[L01]\r\nDefTitle=first\r\n");
    const TaskTable table = Table({{L"1", L"asdf", L"Type a s d f with the left hand."},
                                   {L"3", L"a sad lad", L"Now type a short phrase."},
                                   {L"5", L"Control+C  Control+V", L"Copy and paste."}});
    EXPECT_EQ(SaveLesson(2, L"Home row", L"In this lesson you type.", L"Enter", 2, table), 3);
    EXPECT_EQ(Saved(),
              "[Lessons]\r\nNbrOfLessons=2\r\n[L01]\r\nDefTitle=first\r\n[L02]\r\nDefTitle=Home row\r\n"
              "INTRO_LSN_JAWS=In this lesson you type.\r\nTaskReps=2\r\nTaskDL=Enter\r\nNbrOfTasks=3\r\n"
              "KIND_TASK_01=1\r\nPRINT_USA_TASK_01=asdf\r\nSPELL_USA_TASK_01=a\x05s\x05"
              "d\x05"
              "f\x05\r\nEXPLN_USA_CHILD_01=Type a s d f with the left hand.\r\n"
              "KIND_TASK_02=3\r\nPRINT_USA_TASK_02=a sad lad\r\nSPELL_USA_TASK_02="
              "a\x05Space\x05s\x05"
              "a\x05"
              "d\x05Space\x05l\x05"
              "a\x05"
              "d\x05\r\nEXPLN_USA_CHILD_02=Now type a short phrase.\r\n"
              "KIND_TASK_03=5\r\nPRINT_USA_TASK_03=Control+C  Control+V\r\nSPELL_USA_TASK_03=Control+C\x05"
              "Control+V\x05\r\nEXPLN_USA_CHILD_03=Copy and paste.\r\n");
}

TEST_F(SaveLessonTest, GivesTheBytesOfSingleWrites) {
    const std::string before = LessonFile({"One", "Two", "Three"}) + "[Other]\r\nx=1\r\n";
    const std::vector<Task> tasks{{L"1", L"asdf", L"Type."}, {L"2", L"word", L""}, {L"5", L"F1 F2", L"Keys"}};
    for (const auto lesson : std::initializer_list<std::int16_t>{1, 2, 3, 4, 123}) {
        SCOPED_TRACE(lesson);
        ExpectLikeSingleWrites(before, lesson, L"New title", L"Intro", L"Nothing", 4, tasks);
    }
}

TEST_F(SaveLessonTest, GivesTheBytesOfSingleWritesForTextsOfEveryKind) {
    const std::vector<std::wstring> texts{L"  leading",
                                          L"   ",
                                          L"",
                                          L"\"quoted\"",
                                          L"'single'",
                                          L"\"open",
                                          L";comment",
                                          L"a=b==c",
                                          L"=",
                                          L"[L01]",
                                          L"a\x05"
                                          L"b\x07"
                                          L"c",
                                          L"\x05",
                                          L"\x07 x \x07",
                                          L"\t tab",
                                          L"\u00e4\u20ac",
                                          L"a;b",
                                          L"\x01\x1f",
                                          L"NbrOfTasks",
                                          std::wstring(300, L'z')};
    for (const std::wstring& text : texts) {
        SCOPED_TRACE(win32::ToAnsi(text));
        ExpectLikeSingleWrites("[Lessons]\r\nNbrOfLessons=1\r\n" + LessonSection(1, "Old", {"x", "y", "z"}), 1, text,
                               text, L"Space", 2, {{L"1", text, text}, {L"3", L"x", L""}, {L"5", text, L"y"}});
    }
}

TEST_F(SaveLessonTest, BlanksAtTheEndOfATextStandInTheFileAsTheyWereTyped) {
    for (const std::string text : {"trailing  ", "tab \t"}) {
        SCOPED_TRACE(text);
        Teachers(LessonFile({"Old"}));
        const std::wstring typed = win32::FromAnsi(text);
        SaveLesson(1, typed, typed, L"Space", 2, Table({{L"1", L"x", typed}, {L"3", L"z", L"y"}}));
        const std::string saved = Saved();
        for (const std::string key : {"DefTitle=", "INTRO_LSN_JAWS=", "EXPLN_USA_CHILD_01="})
            EXPECT_NE(saved.find("\r\n" + key + text + "\r\n"), std::string::npos) << key << " in " << saved;
    }
}

TEST_F(SaveLessonTest, TextsThatEndInBlanksReadBackAsAfterSingleWrites) {
    for (const auto lesson : std::initializer_list<std::int16_t>{1, 2}) {
        Teachers(LessonFile({"One"}));
        SaveLesson(lesson, L"title  ", L" intro\t", L"Space", 2, Table({{L"3", L" a b  ", L"explanation "}}));
        // Another process reads the file's bytes; a copy of a new name does the same here.
        const std::wstring copy = NewFile(Saved());
        EXPECT_EQ(GetLessonTitle(copy, lesson), L"title");
        EXPECT_EQ(GetLessonIntro(copy, lesson), L"intro");
        EXPECT_EQ(GetTaskDisplay(copy, lesson_file::SectionName(lesson), 1), L"a b");
    }
}

TEST_F(SaveLessonTest, GivesTheBytesOfSingleWritesInUntidyFiles) {
    const std::vector<Task> tasks{{L"1", L"asdf", L"Type."}};
    for (const std::string before : {"", "[L01]\r\nDefTitle=a\r\n[L01]\r\nDefTitle=b\r\n",
                                     "[lessons]\r\nnbroflessons=1\r\n[l01]\r\ndeftitle=a\r\n",
                                     "[Lessons]\nNbrOfLessons=1\n\n[ L01 ]\n  DefTitle = a\n",
                                     "junk\r\n[L01\r\nx=1\r\n", ";c\r\n[L01]\r\n;d\r\nbare\r\nx=1"})
        ExpectLikeSingleWrites(before, 1, L"T", L"I", L"Space", 2, tasks);
}

TEST_F(SaveLessonTest, TheWrittenVariantFollowsTheLanguage) {
    for (const int language : {0, 1, 2}) {
        SetLanguage(language);
        ExpectLikeSingleWrites("[Lessons]\r\nNbrOfLessons=0\r\n", 1, L"T", L"I", L"Space", 2, {{L"1", L"a", L"e"}});
        EXPECT_EQ(Saved().find("PRINT_ENG_TASK_01=a") != std::string::npos, language == 1);
        EXPECT_EQ(Saved().find("PRINT_USA_TASK_01=a") != std::string::npos, language != 1);
    }
}

TEST_F(SaveLessonTest, DropsEveryOtherKeyOfTheSection) {
    Teachers(
        "[Lessons]\r\nNbrOfLessons=1\r\n[L01]\r\nDefTitle=a\r\nTitleEng=english\r\nTitleMAG=big\r\nNbrOfTasks=3\r\n"
        "PRINT_USA_TASK_03=gone\r\nPRINT_NONENG_TASK_01=gone\r\n");
    SaveLesson(1, L"new", L"", L"Space", 2, Table({{L"1", L"x", L""}}));
    EXPECT_EQ(
        Saved(),
        "[Lessons]\r\nNbrOfLessons=1\r\n[L01]\r\nDefTitle=new\r\nINTRO_LSN_JAWS=\r\nTaskReps=2\r\nTaskDL=Space\r\n"
        "NbrOfTasks=1\r\nKIND_TASK_01=1\r\nPRINT_USA_TASK_01=x\r\nSPELL_USA_TASK_01=x\x05\r\nEXPLN_USA_CHILD_01=\r\n");
}

TEST_F(SaveLessonTest, WithoutTasksTheCountIs0) {
    Teachers("[Lessons]\r\nNbrOfLessons=1\r\n" + LessonSection(1, "Old", {"x"}));
    EXPECT_EQ(SaveLesson(1, L"T", L"I", L"Enter", 4, TaskTable{}), 0);
    EXPECT_EQ(Saved(),
              "[Lessons]\r\nNbrOfLessons=1\r\n[L01]\r\nDefTitle=T\r\nINTRO_LSN_JAWS=I\r\nTaskReps=4\r\nTaskDL=Enter\r\n"
              "NbrOfTasks=0\r\n");
}

TEST_F(SaveLessonTest, TheStoredSpellingIsMadeAnew) {
    TaskTable table;
    table.Load({L"stale\x05", L"e", L"1", L"ab", false, false});
    Teachers("[Lessons]\r\nNbrOfLessons=0\r\n");
    SaveLesson(1, L"T", L"", L"Space", 2, table);
    EXPECT_NE(Saved().find("SPELL_USA_TASK_01=a\x05"
                           "b\x05\r\n"),
              std::string::npos);
    EXPECT_EQ(Saved().find("stale"), std::string::npos);
}

TEST_F(SaveLessonTest, AnOlderKind4IsWrittenAs3) {
    Teachers("[Lessons]\r\nNbrOfLessons=0\r\n");
    SaveLesson(1, L"T", L"", L"Space", 2, Table({{L"4", L"a b", L""}}));
    EXPECT_NE(Saved().find("KIND_TASK_01=3\r\n"), std::string::npos);
    EXPECT_NE(Saved().find("SPELL_USA_TASK_01=a\x05Space\x05"
                           "b\x05\r\n"),
              std::string::npos);
}

TEST_F(SaveLessonTest, TheLessonCountIsRaisedOnlyWhenTheNumberIsLarger) {
    const auto count = [&](const std::string& before, std::int16_t lesson) {
        Teachers(before);
        SaveLesson(lesson, L"T", L"", L"Space", 2, TaskTable{});
        return GetPrivateProfileIntA("Lessons", "NbrOfLessons", 99, win32::ToAnsi(gTeachersLessonsIni).c_str());
    };
    EXPECT_EQ(count("[Lessons]\r\nNbrOfLessons=4\r\n", 5), 5U);
    EXPECT_EQ(count("[Lessons]\r\nNbrOfLessons=4\r\n", 4), 4U);
    EXPECT_EQ(count("[Lessons]\r\nNbrOfLessons=4\r\n", 2), 4U);
    EXPECT_EQ(count("[Lessons]\r\n", 1), 1U);
    EXPECT_EQ(count("", 7), 7U);
}

TEST_F(SaveLessonTest, ANewLessonOfAFileWith4IsL05) {
    Teachers(LessonFile({"One", "Two", "Three", "Four"}));
    const std::int16_t number = GetNextTeachersLessonNbr();
    EXPECT_EQ(number, 5);
    SaveLesson(number, L"Five", L"", L"Space", 2, TaskTable{});
    EXPECT_EQ(modUtils::ReadTrimmed(gTeachersLessonsIni, L"L05", L"DefTitle", L"none"), L"Five");
    EXPECT_EQ(GetNextTeachersLessonNbr(), 6);
}

TEST_F(SaveLessonTest, IsFewCalls) {
    Teachers("[Lessons]\r\nNbrOfLessons=0\r\n");
    const TaskTable table = Table(std::vector<Task>(100, {L"1", L"asdf", L"Type."}));
    const std::size_t before = win32::profile::CallCount();
    EXPECT_EQ(SaveLesson(1, L"T", L"", L"Space", 2, table), 100);
    EXPECT_EQ(win32::profile::CallCount() - before, 3U) << "the count, the section, the new count";
}

TEST_F(SaveLessonTest, ASectionAbove60000BytesIsWrittenWhole) {
    const std::vector<Task> tasks(100, {L"1", std::wstring(120, L'x'), std::wstring(250, L'e')});
    const std::string before = "[Lessons]\r\nNbrOfLessons=1\r\n" + LessonSection(1, "Old", {"x"});
    ExpectLikeSingleWrites(before, 2, L"Long", L"Intro", L"Space", 2, tasks);
    EXPECT_GT(Saved().size(), 60000U);
    EXPECT_EQ(GetTaskDisplay(gTeachersLessonsIni, L"L02", 100), std::wstring(120, L'x'));
}

TEST_F(SaveLessonTest, TheFileAsItWasIsKept) {
    const std::string before = "[Lessons]\nNbrOfLessons=1\n; a teacher's note\n[L01]\nDefTitle = old\n";
    Teachers(before);
    SaveLesson(1, L"new", L"", L"Space", 2, TaskTable{});
    EXPECT_EQ(Backup(), before);
    EXPECT_NE(Saved(), before);
}

TEST_F(SaveLessonTest, ARefusedSaveLeavesTheFileAndIsTold) {
    const std::string before = LessonFile({"One", "Two"});
    Teachers(before);
    {
        const HeldFile held(gTeachersLessonsIni);
        ASSERT_TRUE(held.Held());
        const win32::AppError error = RaisedBy([&] { SaveLesson(3, L"T", L"", L"Space", 2, TaskTable{}); });
        EXPECT_EQ(error.Source(), L"SaveLesson");
        EXPECT_NE(error.Description().find(gTeachersLessonsIni), std::wstring::npos);
    }
    EXPECT_EQ(Saved(), before);
}

TEST_F(SaveLessonTest, ACountOver16BitsIsError6AndLeavesTheFile) {
    const std::string before = "[Lessons]\r\nNbrOfLessons=40000\r\n";
    Teachers(before);
    EXPECT_EQ(RaisedBy([&] { SaveLesson(1, L"T", L"", L"Space", 2, TaskTable{}); }).Number(), 6);
    EXPECT_EQ(Saved(), before);
}

TEST_F(SaveLessonTest, TheNextNumberIsTheCountPlus1) {
    Teachers("[Lessons]\r\nNbrOfLessons=4\r\n");
    EXPECT_EQ(GetNextTeachersLessonNbr(), 5);
    Teachers("");
    EXPECT_EQ(GetNextTeachersLessonNbr(), 1);
    Teachers("[Lessons]\r\nNbrOfLessons=32766\r\n");
    EXPECT_EQ(GetNextTeachersLessonNbr(), 32767);
}

TEST_F(SaveLessonTest, After32767TheNextNumberIsError6) {
    Teachers("[Lessons]\r\nNbrOfLessons=32767\r\n");
    const win32::AppError error = RaisedBy([] { GetNextTeachersLessonNbr(); });
    EXPECT_EQ(error.Number(), 6);
    EXPECT_EQ(error.Description(), L"Overflow");
}

// ---- removing
// --------------------------------------------------------------------------------------------------------

class RemoveLessonTest : public SaveLessonTest {
protected:
    static constexpr char kFour[] = "[Lessons]\r\nNbrOfLessons=4\r\n";

    /// Four lessons, each told apart by its title and with keys of its own kind.
    static std::string Four() {
        return kFour + LessonSection(1, "One", {"a"}) + LessonSection(2, "Two", {"b", "bb"}) +
               LessonSection(3, "Three", {"c"}) + "TitleEng=Drei\r\n" + LessonSection(4, "Four", {});
    }

    static std::string ThreeLeft(const std::string& sections) { return "[Lessons]\r\nNbrOfLessons=3\r\n" + sections; }
};

TEST_F(RemoveLessonTest, RemovingLesson2Of4ClosesTheGap) {
    Teachers(Four());
    EXPECT_EQ(SaveNewLesson(2), 2);
    EXPECT_EQ(Saved(), ThreeLeft(LessonSection(1, "One", {"a"}) + LessonSection(2, "Three", {"c"}) +
                                 "TitleEng=Drei\r\n" + LessonSection(3, "Four", {})));
}

TEST_F(RemoveLessonTest, RemovingTheFirstMovesAll) {
    Teachers(Four());
    EXPECT_EQ(SaveNewLesson(1), 1);
    EXPECT_EQ(Saved(), ThreeLeft(LessonSection(1, "Two", {"b", "bb"}) + LessonSection(2, "Three", {"c"}) +
                                 "TitleEng=Drei\r\n" + LessonSection(3, "Four", {})));
}

TEST_F(RemoveLessonTest, RemovingTheLastMovesNone) {
    Teachers(Four());
    EXPECT_EQ(SaveNewLesson(4), 4);
    EXPECT_EQ(Saved(), ThreeLeft(LessonSection(1, "One", {"a"}) + LessonSection(2, "Two", {"b", "bb"}) +
                                 LessonSection(3, "Three", {"c"}) + "TitleEng=Drei\r\n"));
}

TEST_F(RemoveLessonTest, RemovingTheOnlyLessonLeavesAnEmptyList) {
    Teachers(LessonFile({"Only"}));
    EXPECT_EQ(SaveNewLesson(1), 1);
    EXPECT_EQ(Saved(), "[Lessons]\r\nNbrOfLessons=0\r\n");
    TreeForm form;
    form.Load();
    EXPECT_EQ(LoadLessons(gTeachersLessonsIni, form.tvTasks), 0);
    EXPECT_EQ(form.tvTasks.Count(), 0);
}

TEST_F(RemoveLessonTest, Removing0Or5Of4ChangesNothing) {
    for (const auto lesson : std::initializer_list<std::int16_t>{0, 5, 6, 32767, -1}) {
        Teachers(Four());
        std::vector<std::int16_t> cut;
        EXPECT_EQ(SaveNewLesson(lesson, &cut), 0) << lesson;
        EXPECT_EQ(Saved(), Four()) << lesson;
        EXPECT_EQ(Backup(), "") << lesson;
        EXPECT_TRUE(cut.empty());
    }
}

TEST_F(RemoveLessonTest, WithoutLessonsNothingIsRemoved) {
    for (const std::string text :
         {"", "[Lessons]\r\nNbrOfLessons=0\r\n[L01]\r\nDefTitle=stray\r\n", "[Lessons]\r\nNbrOfLessons=-2\r\n"}) {
        Teachers(text);
        EXPECT_EQ(SaveNewLesson(1), 0);
        EXPECT_EQ(Saved(), text);
    }
}

TEST_F(RemoveLessonTest, TheFileAsItWasIsKept) {
    Teachers(Four());
    SaveNewLesson(2);
    EXPECT_EQ(Backup(), Four());
}

TEST_F(RemoveLessonTest, AMissingSectionMovesAsAnEmptyOne) {
    Teachers("[Lessons]\r\nNbrOfLessons=3\r\n" + LessonSection(1, "One", {"a"}) + LessonSection(3, "Three", {"c"}));
    EXPECT_EQ(SaveNewLesson(1), 1);
    EXPECT_EQ(GetLessonTitle(gTeachersLessonsIni, 1), L"");
    EXPECT_EQ(GetLessonTitle(gTeachersLessonsIni, 2), L"Three");
    EXPECT_EQ(GetLessonTitle(gTeachersLessonsIni, 3), L"");
    EXPECT_EQ(GetNextTeachersLessonNbr(), 3);
}

/// A lesson section that takes exactly this many bytes in a whole-section read, its final NUL included.
std::string SectionOf(int number, std::size_t bytes) {
    std::string text = "[L0" + std::to_string(number) + "]\r\nDefTitle=Long\r\nNbrOfTasks=0\r\n";
    std::size_t left = bytes - 1 - 14 - 13;
    for (int key = 100; left > 0; ++key) {
        const std::size_t size = left >= 400 ? 200 : left;
        text += "k" + std::to_string(key) + "=" + std::string(size - 6, 'v') + "\r\n";
        left -= size;
    }
    return text;
}

TEST_F(RemoveLessonTest, ALessonOf4000BytesMovesWhole) {
    Teachers("[Lessons]\r\nNbrOfLessons=2\r\n" + LessonSection(1, "One", {"a"}) + SectionOf(2, 4000));
    std::vector<std::int16_t> cut;
    EXPECT_EQ(SaveNewLesson(1, &cut), 1);
    EXPECT_EQ(Saved(), "[Lessons]\r\nNbrOfLessons=1\r\n" + SectionOf(1, 4000));
    EXPECT_TRUE(cut.empty());
}

TEST_F(RemoveLessonTest, ALongerLessonLosesTheExcessAndIsTold) {
    Teachers("[Lessons]\r\nNbrOfLessons=4\r\n" + LessonSection(1, "One", {"a"}) + SectionOf(2, 4001) +
             LessonSection(3, "Three", {}) + SectionOf(4, 6000));
    std::vector<std::int16_t> cut;
    EXPECT_EQ(SaveNewLesson(1, &cut), 1);
    EXPECT_EQ(cut, (std::vector<std::int16_t>{1, 3})) << "by their new numbers";
    const std::string first = SectionOf(1, 4001);
    EXPECT_NE(Saved().find(first.substr(0, first.size() - 3) + "\r\n[L02]"), std::string::npos);
    EXPECT_EQ(win32::profile::Section(gTeachersLessonsIni, L"L03").ReadString(L"DefTitle", L""), L"Long");
    EXPECT_LT(Saved().size(), 9000U);
}

TEST_F(RemoveLessonTest, LongLessonsBeforeTheRemovedOneStayWhole) {
    Teachers("[Lessons]\r\nNbrOfLessons=2\r\n" + SectionOf(1, 9000) + LessonSection(2, "Two", {"b"}));
    std::vector<std::int16_t> cut;
    EXPECT_EQ(SaveNewLesson(2, &cut), 2);
    EXPECT_EQ(Saved(), "[Lessons]\r\nNbrOfLessons=1\r\n" + SectionOf(1, 9000));
    EXPECT_TRUE(cut.empty());
}

TEST_F(RemoveLessonTest, ARefusedRemovalLeavesTheFileAndIsTold) {
    for (const auto lesson : std::initializer_list<std::int16_t>{1, 4}) {
        Teachers(Four());
        {
            const HeldFile held(gTeachersLessonsIni);
            ASSERT_TRUE(held.Held());
            const win32::AppError error = RaisedBy([&] { SaveNewLesson(lesson); });
            EXPECT_EQ(error.Source(), L"SaveNewLesson");
            EXPECT_NE(error.Description().find(gTeachersLessonsIni), std::wstring::npos);
        }
        EXPECT_EQ(Saved(), Four());
    }
}

TEST_F(RemoveLessonTest, ManyLessonsAreRenumbered) {
    std::string text = "[Lessons]\r\nNbrOfLessons=120\r\n";
    for (int number = 1; number <= 120; ++number) text += LessonSection(number, "T" + std::to_string(number), {});
    Teachers(text);
    EXPECT_EQ(SaveNewLesson(98), 98);
    std::string expected = "[Lessons]\r\nNbrOfLessons=119\r\n";
    for (int number = 1; number <= 119; ++number)
        expected += LessonSection(number, "T" + std::to_string(number < 98 ? number : number + 1), {});
    EXPECT_EQ(Saved(), expected);
}

// ---- selection
// -------------------------------------------------------------------------------------------------------

TEST(ParseSelection, FillsTheSelectedNumbersAndReturnsLessonAndTask) {
    ResetSession();
    gCurSubTaskNbr = 9;
    EXPECT_EQ(ParseSelection(L"L03\x05"
                             L"12"),
              L"3\x05"
              L"12");
    EXPECT_EQ(gCurLessonNbr, 3);
    EXPECT_EQ(gCurTaskNbr, 12);
    EXPECT_EQ(gCurSubTaskNbr, 0);
    EXPECT_EQ(ParseSelection(L"L04"),
              L"4\x05"
              L"0");
    EXPECT_EQ(gCurTaskNbr, 0);
    EXPECT_EQ(ParseSelection(L"L01\x05"
                             L"02\x05"
                             L"03"),
              L"1\x05"
              L"2");
    EXPECT_EQ(gCurSubTaskNbr, 3);
    EXPECT_EQ(ParseSelection(L"L"),
              L"0\x05"
              L"0");
}

}  // namespace
}  // namespace unit
