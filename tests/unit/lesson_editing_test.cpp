// Loading a stored lesson for editing, saving it, and removing it: what is read, and the file's bytes afterwards.
#include "lessons/modTyping.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "resource_ids.h"
#include "shell/modGlobals.h"
#include "unit/fixture.h"
#include "unit/seams.h"
#include "win32/form.h"
#include "win32/profile.h"

namespace unit {
namespace {

namespace fs = std::filesystem;
using namespace modGlobals;
using namespace modTyping;

constexpr std::int32_t kFileNotFound = static_cast<std::int32_t>(0x80040000U);

/// A window with a real list of tasks.
class ListForm final : public win32::Form {
public:
    ListForm() : Form(L"listForm", IDD_LESSON_EDIT) { Load(); }
    ListForm(const ListForm&) = delete;
    ListForm& operator=(const ListForm&) = delete;
    // The list is gone when the base would do it.
    ~ListForm() override { Unload(); }

    win32::ListBox lstTasks{*this, IDC_LESSON_EDIT_TASKS, L"lstTasks"};

    [[nodiscard]] std::vector<std::wstring> Lines() const {
        std::vector<std::wstring> lines;
        const HWND list = lstTasks.Handle();
        for (int line = 0; line < lstTasks.Count(); ++line) {
            const auto index = static_cast<WPARAM>(line);
            std::wstring text(static_cast<std::size_t>(SendMessageW(list, LB_GETTEXTLEN, index, 0)), L'\0');
            SendMessageW(list, LB_GETTEXT, index, reinterpret_cast<LPARAM>(text.data()));
            lines.push_back(text);
        }
        return lines;
    }

private:
    void OnClose() override {}
};

/// One task as it stands in a file.
struct StoredTask {
    std::string kind;
    std::string text;
    std::string spelled;
    std::string explanation;
};

std::string TwoDigits(std::size_t number) {
    return number < 10 ? '0' + std::to_string(number) : std::to_string(number);
}

/// A lesson's section as it must stand in the file; `variant` is USA or ENG.
std::string Section(int number, const std::string& title, const std::string& intro, const std::string& repetitions,
                    const std::string& terminator, const std::vector<StoredTask>& tasks,
                    const std::string& variant = "USA") {
    std::string text = "[L" + TwoDigits(static_cast<std::size_t>(number)) + "]\r\nDefTitle=" + title +
                       "\r\nINTRO_LSN_JAWS=" + intro + "\r\nTaskReps=" + repetitions + "\r\nTaskDL=" + terminator +
                       "\r\nNbrOfTasks=" + std::to_string(tasks.size()) + "\r\n";
    for (std::size_t i = 0; i < tasks.size(); ++i) {
        const std::string task = TwoDigits(i + 1);
        text += "KIND_TASK_" + task + "=" + tasks[i].kind + "\r\n";
        text += "PRINT_" + variant + "_TASK_" + task + "=" + tasks[i].text + "\r\n";
        text += "SPELL_" + variant + "_TASK_" + task + "=" + tasks[i].spelled + "\r\n";
        text += "EXPLN_" + variant + "_CHILD_" + task + "=" + tasks[i].explanation + "\r\n";
    }
    return text;
}

std::string Counter(int lessons) { return "[Lessons]\r\nNbrOfLessons=" + std::to_string(lessons) + "\r\n"; }

/// A short lesson that only has to be told from the others.
std::string Plain(int number, const std::string& title) {
    return Section(number, title, "Listen.", "2", "Space",
                   {{"1", "ab",
                     "a\x05"
                     "b\x05",
                     "Type it."}});
}

class LessonEditing : public FolderTest {
protected:
    void SetUp() override {
        FolderTest::SetUp();
        fs::create_directories(UserFolder());
        gTeachersLessonsIni = TeachersFile().wstring();
    }

    [[nodiscard]] fs::path TeachersFile() const { return UserFolder() / L"TeachersLessons.ini"; }
    [[nodiscard]] fs::path BackupFile() const { return UserFolder() / L"TeachersLessons.bak"; }
    [[nodiscard]] std::string Bytes() const { return ReadBytes(TeachersFile()); }

    /// Loads a lesson of the teacher's file for editing.
    std::int16_t Load(std::int16_t lesson) {
        tasks_ = {};
        cut_ = {};
        form_.lstTasks.Clear();
        return LoadLessonForEdit(gTeachersLessonsIni, lesson, tasks_, form_.lstTasks, &cut_);
    }
    std::int16_t LoadFrom(const std::string& bytes, std::int16_t lesson = 1) {
        WriteBytes(TeachersFile(), bytes);
        return Load(lesson);
    }
    /// Saves what was loaded, as the editor's OK does.
    std::int16_t Save(std::int16_t lesson) const {
        return SaveLesson(lesson, gLessonTitle, gLessonIntro, gTaskTerminator, gTaskReps, tasks_);
    }
    /// Opens lesson 1 of a file that holds only that lesson, saves it as it is, and gives the file's bytes.
    std::string OpenAndSave(const std::string& section) {
        LoadFrom(Counter(1) + section);
        Save(1);
        return Bytes();
    }

    static void ExpectMissing(const win32::AppError& error, const wchar_t* source) {
        EXPECT_EQ(error.Number(), kFileNotFound);
        EXPECT_EQ(error.Source(), source);
        EXPECT_EQ(error.Description(), L"File " + gTeachersLessonsIni + L"not found.");
    }

    ListForm form_;
    TaskTable tasks_;
    CutDetails cut_;
};

// ---- loading --------------------------------------------------------------------------------------------------------

TEST_F(LessonEditing, LoadingFillsTheSessionTheTableAndTheList) {
    const std::string file = Counter(1) + Section(1, "Home row", "Listen well.", "4", "Enter",
                                                  {{"1", "asdf",
                                                    "a\x05s\x05"
                                                    "d\x05"
                                                    "f\x05",
                                                    "Left hand."},
                                                   {"5", "Control+C  Alt+F4",
                                                    "Control+C\x05"
                                                    "Alt+F4\x05",
                                                    "Copy and close."}});
    EXPECT_EQ(LoadFrom(file), 2);
    EXPECT_EQ(gLessonTitle, L"Home row");
    EXPECT_EQ(gLessonIntro, L"Listen well.");
    EXPECT_EQ(gTaskTerminator, L"Enter");
    EXPECT_EQ(gTaskReps, 4);
    EXPECT_EQ(tasks_[0], (TaskRow{L"a\x05s\x05"
                                  L"d\x05"
                                  L"f\x05",
                                  L"Left hand.", L"1", L"asdf", false, false}));
    EXPECT_EQ(tasks_[1].kind, L"5");
    EXPECT_EQ(tasks_[1].text, L"Control+C  Alt+F4") << "two spaces between chords are kept";
    EXPECT_EQ(form_.Lines(), (std::vector<std::wstring>{L"asdf", L"Control+C  Alt+F4"}));
    EXPECT_FALSE(cut_.title);
    EXPECT_FALSE(cut_.intro);
    EXPECT_EQ(Bytes(), file) << "loading writes nothing";
}

TEST_F(LessonEditing, MissingKeysTakeTheirDefaults) {
    gLessonTitle = L"left over";
    gLessonIntro = L"left over";
    gTaskReps = 7;
    EXPECT_EQ(LoadFrom(Counter(1) + "[L01]\r\n"), 0);
    EXPECT_EQ(gLessonTitle, L"");
    EXPECT_EQ(gLessonIntro, L"");
    EXPECT_EQ(gTaskTerminator, L"Space");
    EXPECT_EQ(gTaskReps, 0);
    EXPECT_TRUE(form_.Lines().empty());
}

TEST_F(LessonEditing, LessonWithoutASectionLoadsEmpty) {
    EXPECT_EQ(LoadFrom(Counter(4), 3), 0);
    EXPECT_EQ(gLessonTitle, L"");
    EXPECT_EQ(gTaskTerminator, L"Space");
}

TEST_F(LessonEditing, RepetitionsAreReadAsALeadingNumber) {
    struct Row {
        const char* stored;
        int read;
    };
    for (const Row& row : {Row{"2", 2}, Row{"4", 4}, Row{"3", 3}, Row{"4 times", 4}, Row{"many", 0}, Row{"", 0},
                           Row{"-1", -1}, Row{"32767", 32767}}) {
        LoadFrom(Counter(1) + Section(1, "T", "", row.stored, "Space", {}));
        EXPECT_EQ(gTaskReps, row.read) << row.stored;
    }
    const win32::AppError error = RaisedBy([&] { LoadFrom(Counter(1) + Section(1, "T", "", "32768", "Space", {})); });
    EXPECT_EQ(error.Number(), 6);
    EXPECT_EQ(error.Description(), L"Overflow");
}

TEST_F(LessonEditing, CountOfTasksThatFitsNoNumberIsError6) {
    const win32::AppError error = RaisedBy([&] { LoadFrom(Counter(1) + "[L01]\r\nNbrOfTasks=40000\r\n"); });
    EXPECT_EQ(error.Number(), 6);
    EXPECT_EQ(error.Description(), L"Overflow");
}

TEST_F(LessonEditing, CountThatIsNoNumberOrNegativeIsNoTask) {
    EXPECT_EQ(LoadFrom(Counter(1) + "[L01]\r\nNbrOfTasks=two\r\nPRINT_USA_TASK_01=a\r\n"), 0);
    EXPECT_EQ(LoadFrom(Counter(1) + "[L01]\r\nNbrOfTasks=-2\r\nPRINT_USA_TASK_01=a\r\n"), 0);
}

TEST_F(LessonEditing, UnknownTerminatorIsKeptAsItIs) {
    LoadFrom(Counter(1) + Section(1, "T", "I", "2", "Tab", {}));
    EXPECT_EQ(gTaskTerminator, L"Tab");
    Save(1);
    EXPECT_EQ(Bytes(), Counter(1) + Section(1, "T", "I", "2", "Tab", {}));
}

TEST_F(LessonEditing, MagnifierTitleStandsForTitleAndIntroduction) {
    gMAGic = true;
    LoadFrom(Counter(1) +
             "[L01]\r\nDefTitle=Plain\r\nTitleMAG=Big\r\nINTRO_LSN_JAWS=Listen.\r\nNbrOfTasks=1\r\n"
             "PRINT_USA_TASK_01=usa\r\nPRINT_MAG_TASK_01=MAG\r\n");
    EXPECT_EQ(gLessonTitle, L"Big");
    EXPECT_EQ(gLessonIntro, L"Big");
    EXPECT_EQ(tasks_[0].text, L"MAG");
}

TEST_F(LessonEditing, LanguageOneReadsEngAndFallsBackForTitleAndTextOnly) {
    SetLanguage(1);
    LoadFrom(Counter(1) +
             "[L01]\r\nDefTitle=Plain\r\nINTRO_LSN_JAWS=Listen.\r\nNbrOfTasks=2\r\n"
             "KIND_TASK_01=1\r\nPRINT_USA_TASK_01=usa\r\nPRINT_ENG_TASK_01=eng\r\n"
             "SPELL_USA_TASK_01=u\x05\r\nSPELL_ENG_TASK_01=e\x05\r\n"
             "EXPLN_USA_CHILD_01=usa told\r\nEXPLN_ENG_CHILD_01=eng told\r\n"
             "KIND_TASK_02=2\r\nPRINT_USA_TASK_02=second\r\nSPELL_USA_TASK_02=s\x05\r\n"
             "EXPLN_USA_CHILD_02=usa told\r\n");
    EXPECT_EQ(gLessonTitle, L"Plain");
    EXPECT_EQ(gLessonIntro, L"Listen.");
    EXPECT_EQ(tasks_[0], (TaskRow{L"e\x05", L"eng told", L"1", L"eng", false, false}));
    EXPECT_EQ(tasks_[1].text, L"second");
    EXPECT_EQ(tasks_[1].explanation, L"") << "an explanation has no other variant to fall back to";
    EXPECT_EQ(tasks_[1].spelling, L"task spelling") << "the text alone makes it a task in use";
}

TEST_F(LessonEditing, LanguageTwoReadsNonEngTextAndUsaExplanation) {
    SetLanguage(2);
    LoadFrom(Counter(1) +
             "[L01]\r\nDefTitle=Plain\r\nTitleNonEng=Other\r\nNbrOfTasks=2\r\n"
             "KIND_TASK_01=1\r\nPRINT_USA_TASK_01=usa\r\nPRINT_NONENG_TASK_01=other\r\n"
             "EXPLN_USA_CHILD_01=told\r\nPRINT_USA_TASK_02=usa two\r\nPRINT_ENG_TASK_02=eng two\r\n");
    EXPECT_EQ(gLessonTitle, L"Other");
    EXPECT_EQ(gLessonIntro, L"Other");
    EXPECT_EQ(tasks_[0].text, L"other");
    EXPECT_EQ(tasks_[0].explanation, L"told");
    EXPECT_EQ(tasks_[1].text, L"usa two");
}

TEST_F(LessonEditing, ValuesAreTrimmedOfBlanksOnly) {
    LoadFrom(Counter(1) + "[L01]\r\nDefTitle=\"  Home  \"\r\nNbrOfTasks=1\r\nPRINT_USA_TASK_01=\" a\tb \"\r\n");
    EXPECT_EQ(gLessonTitle, L"Home");
    EXPECT_EQ(tasks_[0].text, L"a\tb");
}

TEST_F(LessonEditing, TasksWithNothingAreClosedUpInTableListAndCount) {
    EXPECT_EQ(LoadFrom(Counter(1) + "[L01]\r\nNbrOfTasks=6\r\nKIND_TASK_01=1\r\nKIND_TASK_02=1\r\n"
                                    "PRINT_USA_TASK_02=two\r\nKIND_TASK_04=2\r\nPRINT_USA_TASK_04=four\r\n"
                                    "PRINT_USA_TASK_05=\"   \"\r\n"),
              2);
    EXPECT_EQ(form_.Lines(), (std::vector<std::wstring>{L"two", L"four"}));
    EXPECT_EQ(tasks_.Count(), 2U);
    EXPECT_EQ(tasks_[1].kind, L"2");
    EXPECT_FALSE(tasks_[2].InUse());
}

TEST_F(LessonEditing, ValuesStoredTooLongAreCutAndMarked) {
    LoadFrom(Counter(1) + Section(1, std::string(255, 't'), std::string(400, 'i'), "2", "Space",
                                  {{"1", std::string(254, 'x'), "x\x05", std::string(254, 'e')},
                                   {"1", std::string(255, 'y'), "y\x05", "short"},
                                   {"1", "short", "s\x05", std::string(300, 'f')}}));
    EXPECT_EQ(gLessonTitle, std::wstring(254, L't'));
    EXPECT_EQ(gLessonIntro, std::wstring(254, L'i'));
    EXPECT_TRUE(cut_.title);
    EXPECT_TRUE(cut_.intro);
    EXPECT_FALSE(tasks_[0].textCut) << "254 are kept";
    EXPECT_FALSE(tasks_[0].explanationCut);
    EXPECT_TRUE(tasks_[1].textCut);
    EXPECT_EQ(tasks_[1].text, std::wstring(254, L'y'));
    EXPECT_FALSE(tasks_[1].explanationCut);
    EXPECT_FALSE(tasks_[2].textCut);
    EXPECT_TRUE(tasks_[2].explanationCut);
}

TEST_F(LessonEditing, CutIsToldOfTheVariantThatIsShown) {
    SetLanguage(1);
    LoadFrom(Counter(1) + "[L01]\r\nDefTitle=" + std::string(300, 'd') + "\r\nTitleEng=English\r\nNbrOfTasks=1\r\n" +
             "PRINT_USA_TASK_01=" + std::string(300, 'u') + "\r\nPRINT_ENG_TASK_01=eng\r\n");
    EXPECT_EQ(gLessonTitle, L"English");
    EXPECT_FALSE(cut_.title);
    EXPECT_FALSE(tasks_[0].textCut);
}

TEST_F(LessonEditing, HundredAndOneTasksLoadAndOneMoreIsError9) {
    std::vector<StoredTask> tasks(101, StoredTask{"1", "t", "t\x05", ""});
    EXPECT_EQ(LoadFrom(Counter(1) + Section(1, "Long", "", "2", "Space", tasks)), 101);
    EXPECT_EQ(form_.Lines().size(), 101U);
    tasks.push_back(tasks.front());
    const win32::AppError error = RaisedBy([&] { LoadFrom(Counter(1) + Section(1, "Long", "", "2", "Space", tasks)); });
    EXPECT_EQ(error.Number(), 9);
    EXPECT_EQ(error.Description(), L"Subscript out of range");
}

TEST_F(LessonEditing, OneStoredTaskGoesIntoTheNextRow) {
    WriteBytes(TeachersFile(), Counter(1) + Section(1, "T", "", "2", "Space",
                                                    {{"1", "one", "o\x05", "first"}, {"2", "two", "t\x05", "second"}}));
    LoadTaskForEdit(gTeachersLessonsIni, L"L01", 2, tasks_, form_.lstTasks);
    LoadTaskForEdit(gTeachersLessonsIni, L"L01", 3, tasks_, form_.lstTasks);
    LoadTaskForEdit(gTeachersLessonsIni, L"L01", 1, tasks_, form_.lstTasks);
    EXPECT_EQ(form_.Lines(), (std::vector<std::wstring>{L"two", L"one"}));
    EXPECT_EQ(tasks_.Count(), 2U);
    EXPECT_EQ(tasks_[0].explanation, L"second");
}

// ---- missing file ---------------------------------------------------------------------------------------------------

TEST_F(LessonEditing, MissingFileIsReportedUnderEachOperationsOwnName) {
    ExpectMissing(RaisedBy([] { GetNextTeachersLessonNbr(); }), L"GetNextTeachersLessonNbr");
    ExpectMissing(RaisedBy([&] { Load(1); }), L"LoadLessonForEdit");
    ExpectMissing(RaisedBy([&] { LoadTaskForEdit(gTeachersLessonsIni, L"L01", 1, tasks_, form_.lstTasks); }),
                  L"LoadTaskForEdit");
    ExpectMissing(RaisedBy([&] { SaveLesson(1, L"T", L"", L"Space", 2, tasks_); }), L"SaveLesson");
    ExpectMissing(RaisedBy([] { SaveNewLesson(1); }), L"SaveNewLesson");
    EXPECT_FALSE(fs::exists(TeachersFile())) << "nothing makes the file anew";
    EXPECT_FALSE(fs::exists(BackupFile()));
}

// ---- numbering ------------------------------------------------------------------------------------------------------

TEST_F(LessonEditing, NextNumberIsOneMoreThanTheCount) {
    WriteBytes(TeachersFile(), Counter(4));
    EXPECT_EQ(GetNextTeachersLessonNbr(), 5);
    WriteBytes(TeachersFile(), "[Lessons]\r\n");
    EXPECT_EQ(GetNextTeachersLessonNbr(), 1);
    WriteBytes(TeachersFile(), Counter(201));
    EXPECT_EQ(GetNextTeachersLessonNbr(), 202);
    WriteBytes(TeachersFile(), Counter(32767));
    EXPECT_EQ(RaisedBy([] { GetNextTeachersLessonNbr(); }).Number(), 6);
}

// ---- saving ---------------------------------------------------------------------------------------------------------

TEST_F(LessonEditing, NewLessonIsAddedAsL05AndTheCountBecomes5) {
    const std::string four = Plain(1, "One") + Plain(2, "Two") + Plain(3, "Three") + Plain(4, "Four");
    WriteBytes(TeachersFile(), Counter(4) + four);
    tasks_.Append(L"1", L"a;", L"Press a, then the semicolon.");
    tasks_.Append(L"2", L"home", L"kept  as typed");
    tasks_.Append(L"3", L"a sad lad", L"");
    tasks_.Append(L"5", L"Control+C  Control+V", L"Copy and paste.");
    EXPECT_EQ(SaveLesson(5, L"Home row", L"Listen.", L"Enter", 4, tasks_), 4);
    EXPECT_EQ(Bytes(), Counter(5) + four +
                           "[L05]\r\n"
                           "DefTitle=Home row\r\n"
                           "INTRO_LSN_JAWS=Listen.\r\n"
                           "TaskReps=4\r\n"
                           "TaskDL=Enter\r\n"
                           "NbrOfTasks=4\r\n"
                           "KIND_TASK_01=1\r\n"
                           "PRINT_USA_TASK_01=a;\r\n"
                           "SPELL_USA_TASK_01=a\x05;\x05\r\n"
                           "EXPLN_USA_CHILD_01=Press a, then the semicolon.\r\n"
                           "KIND_TASK_02=2\r\n"
                           "PRINT_USA_TASK_02=home\r\n"
                           "SPELL_USA_TASK_02=h\x05o\x05m\x05"
                           "e\x05\r\n"
                           "EXPLN_USA_CHILD_02=kept  as typed\r\n"
                           "KIND_TASK_03=3\r\n"
                           "PRINT_USA_TASK_03=a sad lad\r\n"
                           "SPELL_USA_TASK_03=a\x05Space\x05s\x05"
                           "a\x05"
                           "d\x05Space\x05l\x05"
                           "a\x05"
                           "d\x05\r\n"
                           "EXPLN_USA_CHILD_03=\r\n"
                           "KIND_TASK_04=5\r\n"
                           "PRINT_USA_TASK_04=Control+C  Control+V\r\n"
                           "SPELL_USA_TASK_04=Control+C\x05"
                           "Control+V\x05\r\n"
                           "EXPLN_USA_CHILD_04=Copy and paste.\r\n");
}

TEST_F(LessonEditing, StoredLessonIsReplacedInItsPlaceAndTheCountStays) {
    WriteBytes(TeachersFile(), Counter(3) + Plain(1, "One") + Plain(2, "Two") + Plain(3, "Three"));
    Load(2);
    tasks_.Append(L"1", L"c", L"");
    gLessonTitle = L"Two again";
    EXPECT_EQ(Save(2), 2);
    EXPECT_EQ(Bytes(), Counter(3) + Plain(1, "One") +
                           Section(2, "Two again", "Listen.", "2", "Space",
                                   {{"1", "ab",
                                     "a\x05"
                                     "b\x05",
                                     "Type it."},
                                    {"1", "c", "c\x05", ""}}) +
                           Plain(3, "Three"));
}

TEST_F(LessonEditing, SavingDropsOtherVariantsTitlesAndTasksBeyondTheCount) {
    EXPECT_EQ(
        OpenAndSave("[L01]\r\nDefTitle=Plain\r\nTitleEng=English\r\nTitleNonEng=Other\r\nTitleMAG=Big\r\n"
                    "INTRO_LSN_JAWS=I\r\nTaskReps=2\r\nTaskDL=Space\r\nNbrOfTasks=1\r\nOwnKey=own\r\n"
                    "KIND_TASK_01=1\r\nPRINT_USA_TASK_01=a\r\nPRINT_ENG_TASK_01=eng\r\nSPELL_USA_TASK_01=a\x05\r\n"
                    "EXPLN_USA_CHILD_01=e\r\nKIND_TASK_02=1\r\nPRINT_USA_TASK_02=beyond\r\n"),
        Counter(1) + Section(1, "Plain", "I", "2", "Space", {{"1", "a", "a\x05", "e"}}));
}

TEST_F(LessonEditing, DeletingTheOnlyTaskWritesNoTask) {
    LoadFrom(Counter(1) + Plain(1, "One"));
    tasks_.Delete(0);
    EXPECT_EQ(Save(1), 0);
    EXPECT_EQ(Bytes(), Counter(1) + Section(1, "One", "Listen.", "2", "Space", {}));
}

TEST_F(LessonEditing, LanguageOneWritesTheEngKeys) {
    SetLanguage(1);
    WriteBytes(TeachersFile(), Counter(0));
    tasks_.Append(L"1", L"ab", L"Type it.");
    SaveLesson(1, L"T", L"I", L"Nothing", 2, tasks_);
    EXPECT_EQ(Bytes(), Counter(1) + Section(1, "T", "I", "2", "Nothing",
                                            {{"1", "ab",
                                              "a\x05"
                                              "b\x05",
                                              "Type it."}},
                                            "ENG"));
}

TEST_F(LessonEditing, LanguageTwoWritesTheUsaKeys) {
    SetLanguage(2);
    WriteBytes(TeachersFile(), Counter(0));
    tasks_.Append(L"1", L"ab", L"Type it.");
    SaveLesson(1, L"T", L"I", L"Space", 2, tasks_);
    EXPECT_EQ(Bytes(), Counter(1) + Section(1, "T", "I", "2", "Space",
                                            {{"1", "ab",
                                              "a\x05"
                                              "b\x05",
                                              "Type it."}}));
}

TEST_F(LessonEditing, RoundTripInEachLanguageKeepsTheLessonByteForByte) {
    for (const int language : {0, 1, 2}) {
        SetLanguage(language);
        const std::string file = Counter(1) + Section(1, "Home row", "Listen.", "4", "Nothing",
                                                      {{"1", "ab",
                                                        "a\x05"
                                                        "b\x05",
                                                        "Type it."},
                                                       {"2", "w", "w\x05", ""},
                                                       {"3", "a b",
                                                        "a\x05Space\x05"
                                                        "b\x05",
                                                        "Told."},
                                                       {"5", "F1", "F1\x05", "Help."}},
                                                      language == 1 ? "ENG" : "USA");
        LoadFrom(file);
        EXPECT_EQ(Save(1), 4);
        EXPECT_EQ(Bytes(), file) << "language " << language;
    }
}

TEST_F(LessonEditing, RoundTripWithTheMagnifierWritesWhatWasShown) {
    gMAGic = true;
    EXPECT_EQ(OpenAndSave("[L01]\r\nDefTitle=Plain\r\nTitleMAG=Big\r\nINTRO_LSN_JAWS=Listen.\r\nTaskReps=2\r\n"
                          "TaskDL=Space\r\nNbrOfTasks=1\r\nKIND_TASK_01=1\r\nPRINT_USA_TASK_01=usa\r\n"
                          "PRINT_MAG_TASK_01=M\r\nSPELL_USA_TASK_01=u\x05s\x05"
                          "a\x05\r\nEXPLN_USA_CHILD_01=e\r\n"),
              Counter(1) + Section(1, "Big", "Big", "2", "Space", {{"1", "M", "M\x05", "e"}}));
}

TEST_F(LessonEditing, OpeningInAnotherLanguageAndSavingKeepsEveryTask) {
    SetLanguage(1);
    EXPECT_EQ(OpenAndSave(Section(1, "T", "I", "2", "Space",
                                  {{"1", "one",
                                    "o\x05n\x05"
                                    "e\x05",
                                    "told"},
                                   {"2", "two", "t\x05w\x05o\x05", "told"}})),
              Counter(1) + Section(1, "T", "I", "2", "Space",
                                   {{"1", "one",
                                     "o\x05n\x05"
                                     "e\x05",
                                     ""},
                                    {"2", "two", "t\x05w\x05o\x05", ""}},
                                   "ENG"));
}

TEST_F(LessonEditing, TaskWithoutSpelledOutTextIsKeptAndSpelled) {
    EXPECT_EQ(OpenAndSave("[L01]\r\nNbrOfTasks=2\r\nKIND_TASK_01=1\r\nPRINT_USA_TASK_01=ab\r\nKIND_TASK_02=1\r\n"
                          "PRINT_USA_TASK_02=c\r\nSPELL_USA_TASK_02=c\x05\r\n"),
              Counter(1) + Section(1, "", "", "0", "Space",
                                   {{"1", "ab",
                                     "a\x05"
                                     "b\x05",
                                     ""},
                                    {"1", "c", "c\x05", ""}}));
}

TEST_F(LessonEditing, TaskWithAnExplanationAloneIsKept) {
    EXPECT_EQ(OpenAndSave("[L01]\r\nNbrOfTasks=2\r\nKIND_TASK_01=1\r\nEXPLN_USA_CHILD_01=Only told.\r\n"
                          "KIND_TASK_02=1\r\nPRINT_USA_TASK_02=c\r\n"),
              Counter(1) + Section(1, "", "", "0", "Space", {{"1", "", "", "Only told."}, {"1", "c", "c\x05", ""}}));
    EXPECT_EQ(form_.Lines(), (std::vector<std::wstring>{L"", L"c"}));
}

TEST_F(LessonEditing, TaskWithASpelledOutTextAloneIsKept) {
    const std::string section = Section(1, "", "", "0", "Space",
                                        {{"1", "",
                                          "a\x05"
                                          "b\x05",
                                          ""},
                                         {"1", "c", "c\x05", ""}});
    EXPECT_EQ(OpenAndSave(section), Counter(1) + section);
    EXPECT_EQ(OpenAndSave(section), Counter(1) + section) << "also the second time";
}

TEST_F(LessonEditing, SavingClosesUpRowsWithNothing) {
    EXPECT_EQ(OpenAndSave("[L01]\r\nNbrOfTasks=4\r\nKIND_TASK_01=1\r\nKIND_TASK_02=2\r\nPRINT_USA_TASK_02=b\r\n"
                          "EXPLN_USA_CHILD_02=told\r\nKIND_TASK_04=5\r\nPRINT_USA_TASK_04=F4\r\n"),
              Counter(1) + Section(1, "", "", "0", "Space", {{"2", "b", "b\x05", "told"}, {"5", "F4", "F4\x05", ""}}));
}

TEST_F(LessonEditing, Kind4IsWrittenAsKind3AlsoWhenTheTaskIsNotEdited) {
    EXPECT_EQ(OpenAndSave(Section(1, "T", "I", "2", "Space",
                                  {{"4", "a b",
                                    "a\x05Space\x05"
                                    "b\x05",
                                    ""}})),
              Counter(1) + Section(1, "T", "I", "2", "Space",
                                   {{"3", "a b",
                                     "a\x05Space\x05"
                                     "b\x05",
                                     ""}}));
}

TEST_F(LessonEditing, StoredSpellingIsMadeAnewFromKindAndText) {
    EXPECT_EQ(OpenAndSave(Section(1, "T", "I", "2", "Space", {{"1", "ab", "wrong\x05", ""}})),
              Counter(1) + Section(1, "T", "I", "2", "Space",
                                   {{"1", "ab",
                                     "a\x05"
                                     "b\x05",
                                     ""}}));
}

TEST_F(LessonEditing, ControlCAndControlVWithTwoBlanksSpellAsTwoItems) {
    EXPECT_EQ(OpenAndSave(Section(1, "T", "I", "2", "Space", {{"5", "Control+C  Control+V", "", ""}})),
              Counter(1) + Section(1, "T", "I", "2", "Space",
                                   {{"5", "Control+C  Control+V",
                                     "Control+C\x05"
                                     "Control+V\x05",
                                     ""}}));
}

TEST_F(LessonEditing, OddRepetitionsAreWrittenAsTheNumberThatWasRead) {
    EXPECT_EQ(OpenAndSave(Section(1, "T", "I", "3", "Space", {})), Counter(1) + Section(1, "T", "I", "3", "Space", {}));
    EXPECT_EQ(OpenAndSave(Section(1, "T", "I", "many", "Space", {})),
              Counter(1) + Section(1, "T", "I", "0", "Space", {}));
    EXPECT_EQ(OpenAndSave(Section(1, "T", "I", "4x", "Space", {})),
              Counter(1) + Section(1, "T", "I", "4", "Space", {}));
}

TEST_F(LessonEditing, OtherCharactersOfTheFileAreKept) {
    const std::string section = Section(1,
                                        "T\x07"
                                        "U",
                                        "I\x06\x04", "2", "Space", {{"1", "\x07;", "\x07\x05;\x05", "caf\xE9 \x80"}});
    EXPECT_EQ(OpenAndSave(section), Counter(1) + section);
    EXPECT_EQ(gLessonTitle,
              L"T\x07"
              L"U");
    EXPECT_EQ(tasks_[0].explanation, L"caf\u00e9 \u20ac");
}

TEST_F(LessonEditing, LessonsNumbered100And123HaveThreeDigits) {
    for (const int number : {100, 123}) {
        const auto lesson = static_cast<std::int16_t>(number);
        WriteBytes(TeachersFile(), Counter(number - 1) + Plain(99, "Before"));
        tasks_ = {};
        tasks_.Append(L"1", L"ab", L"Type it.");
        SaveLesson(lesson, L"Hundred", L"Listen.", L"Space", 2, tasks_);
        const std::string file = Counter(number) + Plain(99, "Before") + Plain(number, "Hundred");
        EXPECT_EQ(Bytes(), file);
        EXPECT_EQ(Load(lesson), 1);
        EXPECT_EQ(gLessonTitle, L"Hundred");
        Save(lesson);
        EXPECT_EQ(Bytes(), file);
    }
}

TEST_F(LessonEditing, HundredTasksAreSavedAndTheHundredAndFirstIsNot) {
    std::vector<StoredTask> tasks;
    for (int task = 1; task <= 101; ++task)
        tasks.push_back({"5", "F" + std::to_string(task), "F" + std::to_string(task) + "\x05", ""});
    ASSERT_EQ(LoadFrom(Counter(1) + Section(1, "Long", "", "2", "Space", tasks)), 101);
    EXPECT_EQ(Save(1), 100);
    tasks.pop_back();
    EXPECT_EQ(Bytes(), Counter(1) + Section(1, "Long", "", "2", "Space", tasks));
    EXPECT_NE(Bytes().find("KIND_TASK_100=5\r\nPRINT_USA_TASK_100=F100\r\n"), std::string::npos);
}

TEST_F(LessonEditing, SavingTakesOneSectionWriteAndTheCounter) {
    WriteBytes(TeachersFile(), Counter(0));
    for (int task = 0; task < 100; ++task) tasks_.Append(L"1", L"asdf", L"Told.");
    const std::size_t before = win32::profile::CallCount();
    SaveLesson(1, L"T", L"I", L"Space", 2, tasks_);
    EXPECT_LE(win32::profile::CallCount() - before, 3U) << "the count read, the section and the counter written";
    const std::size_t again = win32::profile::CallCount();
    SaveLesson(1, L"T", L"I", L"Space", 2, tasks_);
    EXPECT_LE(win32::profile::CallCount() - again, 2U);
}

TEST_F(LessonEditing, SectionAbove60000BytesIsWrittenWithTheSameBytes) {
    WriteBytes(TeachersFile(), Counter(0));
    std::vector<StoredTask> tasks;
    std::string spelled;
    for (int i = 0; i < 200; ++i) spelled += "x\x05";
    for (int task = 0; task < 100; ++task) {
        tasks_.Append(L"1", std::wstring(200, L'x'), std::wstring(200, L'e'));
        tasks.push_back({"1", std::string(200, 'x'), spelled, std::string(200, 'e')});
    }
    ASSERT_GT(LessonBytes(L"T", L"I", L"Space", 2, tasks_), 60000U);
    EXPECT_EQ(SaveLesson(1, L"T", L"I", L"Space", 2, tasks_), 100);
    EXPECT_EQ(Bytes(), Counter(1) + Section(1, "T", "I", "2", "Space", tasks));
    EXPECT_EQ(SaveLesson(1, L"T", L"I", L"Space", 2, TaskTable()), 0);
    EXPECT_EQ(Bytes(), Counter(1) + Section(1, "T", "I", "2", "Space", {}));
}

TEST_F(LessonEditing, BytesOfALessonAreThoseOfItsLinesAndAFinalNul) {
    tasks_.Append(L"1", L"\u00e4", L"");
    const std::string section = Section(1, "T", "I", "2", "Space", {{"1", "\xE4", "\xE4\x05", ""}});
    const std::size_t header = std::string("[L01]\r\n").size();
    const auto lines = static_cast<std::size_t>(std::count(section.begin(), section.end(), '\n')) - 1;
    // A line ends in one NUL instead of CR LF.
    EXPECT_EQ(LessonBytes(L"T", L"I", L"Space", 2, tasks_), section.size() - header - lines + 1);
}

TEST_F(LessonEditing, BackupHoldsTheFileBeforeTheLastChange) {
    const std::string first = Counter(1) + Plain(1, "One");
    LoadFrom(first);
    gLessonTitle = L"Two";
    Save(1);
    const std::string second = Bytes();
    EXPECT_EQ(ReadBytes(BackupFile()), first);
    gLessonTitle = L"Three";
    Save(1);
    EXPECT_EQ(ReadBytes(BackupFile()), second);
}

TEST_F(LessonEditing, BackupThatCannotBeWrittenStopsNothing) {
    LoadFrom(Counter(1) + Plain(1, "One"));
    fs::create_directories(BackupFile());
    gLessonTitle = L"Two";
    EXPECT_EQ(Save(1), 1);
    EXPECT_EQ(Bytes(), Counter(1) + Plain(1, "Two"));
}

TEST_F(LessonEditing, RefusedSaveIsRaisedAndTheFileStays) {
    const std::string file = Counter(1) + Plain(1, "One");
    LoadFrom(file);
    {
        const HeldFile held(TeachersFile());
        ASSERT_TRUE(held.Held());
        const win32::AppError error = RaisedBy([&] { Save(1); });
        EXPECT_EQ(error.Source(), L"SaveLesson");
        EXPECT_NE(error.Number(), 0);
        EXPECT_NE(error.Description().find(gTeachersLessonsIni), std::wstring::npos) << "the box names the file";
    }
    EXPECT_EQ(Bytes(), file);
    gLessonTitle = L"Two";
    Save(1);
    EXPECT_EQ(Bytes(), Counter(1) + Plain(1, "Two"));
}

TEST_F(LessonEditing, FileThatCannotBeReadIsNotTakenForEmpty) {
    const std::string file = Counter(2) + Plain(1, "One") + Plain(2, "Two");
    LoadFrom(file);
    {
        const HeldFile held(TeachersFile(), false);
        ASSERT_TRUE(held.Held());
        ExpectUnreadable(gTeachersLessonsIni, L"LoadLessonForEdit", [&] { Load(1); });
        ExpectUnreadable(gTeachersLessonsIni, L"GetNextTeachersLessonNbr", [] { GetNextTeachersLessonNbr(); });
        ExpectUnreadable(gTeachersLessonsIni, L"SaveLesson", [&] { Save(1); });
        ExpectUnreadable(gTeachersLessonsIni, L"SaveNewLesson", [] { SaveNewLesson(1); });
    }
    EXPECT_EQ(Bytes(), file);
    EXPECT_FALSE(fs::exists(BackupFile()));
}

TEST_F(LessonEditing, CountBelowNoneMakesNoLessonDisappear) {
    LoadFrom(Counter(-5) + Plain(1, "One"));
    EXPECT_EQ(GetNextTeachersLessonNbr(), 1);
    Save(1);
    EXPECT_EQ(Bytes(), Counter(1) + Plain(1, "One"));
}

TEST_F(LessonEditing, TextThatWasCutStaysMarkedUntilItIsChanged) {
    const std::string cut(300, 'x');
    LoadFrom(Counter(1) + Section(1, "T", "I", "2", "Space", {{"1", cut, "", cut}}));
    const TaskRow before = tasks_[0];
    tasks_.Replace(0, L"1", before.text, before.explanation);
    EXPECT_TRUE(tasks_[0].textCut && tasks_[0].explanationCut);
    tasks_.Replace(0, L"1", before.text, L"new");
    EXPECT_TRUE(tasks_[0].textCut);
    EXPECT_FALSE(tasks_[0].explanationCut);
    tasks_.Replace(0, L"1", L"new", L"new");
    EXPECT_FALSE(tasks_[0].textCut);
}

// ---- removing -------------------------------------------------------------------------------------------------------

class LessonRemoval : public LessonEditing {
protected:
    void SetUp() override {
        LessonEditing::SetUp();
        WriteBytes(TeachersFile(), four_);
    }

    const std::string four_ = Counter(4) + Plain(1, "One") + Plain(2, "Two") + Plain(3, "Three") + Plain(4, "Four");
};

TEST_F(LessonRemoval, Lesson2Of4MovesTheLaterOnesUp) {
    EXPECT_EQ(SaveNewLesson(2), 2);
    EXPECT_EQ(Bytes(), Counter(3) + Plain(1, "One") + Plain(2, "Three") + Plain(3, "Four"));
    EXPECT_EQ(ReadBytes(BackupFile()), four_);
}

TEST_F(LessonRemoval, FirstAndLastOfFour) {
    EXPECT_EQ(SaveNewLesson(4), 4);
    EXPECT_EQ(Bytes(), Counter(3) + Plain(1, "One") + Plain(2, "Two") + Plain(3, "Three"));
    EXPECT_EQ(SaveNewLesson(1), 1);
    EXPECT_EQ(Bytes(), Counter(2) + Plain(1, "Two") + Plain(2, "Three"));
}

TEST_F(LessonRemoval, Lesson0Or5Of4ChangesNothing) {
    for (const int lesson : {0, 5, -1, 32767}) EXPECT_EQ(SaveNewLesson(static_cast<std::int16_t>(lesson)), 0) << lesson;
    EXPECT_EQ(Bytes(), four_);
    EXPECT_FALSE(fs::exists(BackupFile()));
}

TEST_F(LessonRemoval, EmptyListHasNothingToRemove) {
    WriteBytes(TeachersFile(), Counter(0));
    EXPECT_EQ(SaveNewLesson(1), 0);
    EXPECT_EQ(Bytes(), Counter(0));
}

TEST_F(LessonRemoval, OnlyLessonLeavesCount0) {
    WriteBytes(TeachersFile(), Counter(1) + Plain(1, "Only"));
    EXPECT_EQ(SaveNewLesson(1), 1);
    EXPECT_EQ(Bytes(), Counter(0));
}

TEST_F(LessonRemoval, EveryKeyOfAMovedLessonGoesWithIt) {
    const std::string own = "DefTitle=Plain\r\nTitleMAG=Big\r\nOwnKey=own\r\nNbrOfTasks=0\r\n";
    WriteBytes(TeachersFile(), Counter(2) + Plain(1, "One") + "[L02]\r\n" + own);
    EXPECT_EQ(SaveNewLesson(1), 1);
    EXPECT_EQ(Bytes(), Counter(1) + "[L01]\r\n" + own);
}

TEST_F(LessonRemoval, LessonsFrom99To101KeepTheirNames) {
    std::string file = Counter(101);
    std::string left = Counter(100);
    for (int number = 1; number <= 101; ++number) file += Plain(number, "Lesson " + std::to_string(number));
    for (int number = 1; number <= 100; ++number)
        left += Plain(number, "Lesson " + std::to_string(number < 99 ? number : number + 1));
    WriteBytes(TeachersFile(), file);
    EXPECT_EQ(SaveNewLesson(99), 99);
    EXPECT_EQ(Bytes(), left);
}

TEST_F(LessonRemoval, MovedLessonLosesWhatIsBeyond4000Bytes) {
    std::string lines;
    for (int line = 10; line < 60; ++line) lines += "KEY_" + std::to_string(line) + "=" + std::string(92, 'x') + "\r\n";
    WriteBytes(TeachersFile(), Counter(2) + Plain(1, "One") + "[L02]\r\n" + lines);
    std::vector<std::int16_t> cutLessons;
    EXPECT_EQ(SaveNewLesson(1, &cutLessons), 1);
    EXPECT_EQ(cutLessons, std::vector<std::int16_t>{1});
    // A line takes 100 bytes with its final NUL; 3998 of them come through.
    std::string expected;
    for (int line = 10; line < 49; ++line)
        expected += "KEY_" + std::to_string(line) + "=" + std::string(92, 'x') + "\r\n";
    expected += "KEY_49=" + std::string(91, 'x') + "\r\n";
    EXPECT_EQ(Bytes(), Counter(1) + "[L01]\r\n" + expected);
}

TEST_F(LessonRemoval, LessonThatJustFitsIsNotCut) {
    std::string lines;
    for (int line = 10; line < 49; ++line) lines += "KEY_" + std::to_string(line) + "=" + std::string(92, 'x') + "\r\n";
    lines += "KEY_49=" + std::string(91, 'x') + "\r\n";
    WriteBytes(TeachersFile(), Counter(2) + Plain(1, "One") + "[L02]\r\n" + lines);
    std::vector<std::int16_t> cutLessons;
    SaveNewLesson(1, &cutLessons);
    EXPECT_TRUE(cutLessons.empty());
    EXPECT_EQ(Bytes(), Counter(1) + "[L01]\r\n" + lines);
}

TEST_F(LessonRemoval, RefusedRemovalIsRaisedAndTheFileStays) {
    {
        const HeldFile held(TeachersFile());
        ASSERT_TRUE(held.Held());
        EXPECT_EQ(RaisedBy([] { SaveNewLesson(2); }).Source(), L"SaveNewLesson");
    }
    EXPECT_EQ(Bytes(), four_);
}

}  // namespace
}  // namespace unit
