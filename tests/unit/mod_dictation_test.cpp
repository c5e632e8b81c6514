// The dictation files: the catalogue in a real tree, and loading, saving, removing and numbering a teacher's lessons.
#include "dictation/modDictation.h"

#include <filesystem>
#include <string>
#include <vector>

#include "shell/frmMain.h"
#include "shell/modGlobals.h"
#include "unit/data_set.h"
#include "unit/fixture.h"
#include "unit/test_forms.h"
#include "win32/profile.h"

namespace unit {
namespace {

namespace fs = std::filesystem;
using namespace modGlobals;
using namespace modDictation;

constexpr std::int32_t kFileNotFound = static_cast<std::int32_t>(0x80040000U);

struct Stored {
    std::string label;
    std::string text;
};

std::string Padded(std::size_t number) { return number < 10 ? '0' + std::to_string(number) : std::to_string(number); }

std::string Section(int number, const std::string& title, const std::vector<Stored>& dictations) {
    std::string bytes = "[L" + Padded(static_cast<std::size_t>(number)) + "]\r\nDefTitle=" + title +
                        "\r\nNbrOfTasks=" + std::to_string(dictations.size()) + "\r\n";
    for (std::size_t i = 0; i < dictations.size(); ++i) {
        bytes += "PRINT_USA_TASK_" + Padded(i + 1) + "=" + dictations[i].label + "\r\n";
        bytes += "SPELL_USA_TASK_" + Padded(i + 1) + "=" + dictations[i].text + "\r\n";
    }
    return bytes;
}

std::string Counter(int lessons) { return "[Dictations]\r\nNbrOfLessons=" + std::to_string(lessons) + "\r\n"; }

std::string Plain(int number, const std::string& title) { return Section(number, title, {{"abc", "abc"}}); }

std::vector<Stored> Many(int count) {
    std::vector<Stored> dictations;
    for (int i = 1; i <= count; ++i) dictations.push_back({"d" + std::to_string(i), "d" + std::to_string(i)});
    return dictations;
}

class Dictations : public FolderTest {
protected:
    void SetUp() override {
        FolderTest::SetUp();
        fs::create_directories(UserFolder());
        gTeachersDictationsIni = TeachersFile().wstring();
    }

    [[nodiscard]] fs::path TeachersFile() const { return UserFolder() / L"TeachersDictations.ini"; }
    [[nodiscard]] fs::path BackupFile() const { return UserFolder() / L"TeachersDictations.bak"; }
    [[nodiscard]] std::string Bytes() const { return ReadBytes(TeachersFile()); }

    std::int16_t LoadFrom(const std::string& bytes, std::int16_t lesson = 1) {
        WriteBytes(TeachersFile(), bytes);
        tasks_ = {};
        return LoadDictationForEdit(gTeachersDictationsIni, lesson, tasks_, &titleCut_);
    }
    /// Opens lesson 1 of a file that holds only that lesson, saves it as it is, and gives the file's bytes.
    std::string OpenAndSave(const std::string& section) {
        LoadFrom(Counter(1) + section);
        SaveLesson(1, gDictationTitle, tasks_);
        return Bytes();
    }

    static void ExpectMissing(const win32::AppError& error, const wchar_t* source) {
        EXPECT_EQ(error.Number(), kFileNotFound);
        EXPECT_EQ(error.Source(), source);
        EXPECT_EQ(error.Description(), L"File " + gTeachersDictationsIni + L"not found.");
    }

    DictationTable tasks_;
    bool titleCut_ = false;
};

// ---- the tree

class DictationTree : public Dictations {
protected:
    void SetUp() override {
        Dictations::SetUp();
        form_.Load();
    }
    std::int16_t Load(const std::string& bytes) {
        form_.tvTasks.Clear();
        return LoadDictations(NewFile(bytes), form_.tvTasks);
    }

    TreeForm form_;
};

TEST_F(DictationTree, LessonsAreRootsWithTheirTitlesAndDictationsTheirChildren) {
    EXPECT_EQ(Load(Counter(2) + Section(1, " Letters ", {{"Dear Sir,", "Dear Sir,\x07Thanks."}, {"Note", "Note"}}) +
                   Section(2, "Lists", {})),
              2);
    const std::vector<TreeForm::Shown> expected{{L"L01", L"Letters", 0},
                                                {L"L01\x05"
                                                 L"01",
                                                 L"Dear Sir,", 1},
                                                {L"L01\x05"
                                                 L"02",
                                                 L"Note", 1},
                                                {L"L02", L"Lists", 0}};
    EXPECT_EQ(form_.Nodes(), expected);
    EXPECT_TRUE(form_.tvTasks.IsShown());
}

TEST_F(DictationTree, ALessonWithoutDictationsIsANodeWithoutChildren) {
    EXPECT_EQ(Load(Counter(1) + "[L01]\r\nDefTitle=Empty\r\nNbrOfTasks=0\r\n"), 1);
    EXPECT_EQ(form_.Nodes(), (std::vector<TreeForm::Shown>{{L"L01", L"Empty", 0}}));
}

TEST_F(DictationTree, ATextThatStartsWithALineBreakShowsAnEmptyLabel) {
    Load(Counter(1) + Section(1, "T", {{"\x07later", "\x07later"}, {"", "\x07later"}}));
    EXPECT_EQ(form_.Nodes()[1].text, L"");
    EXPECT_EQ(form_.Nodes()[2].text, L"");
    EXPECT_EQ(form_.Nodes().size(), 3U);
}

TEST_F(DictationTree, LabelsAreCutTo65Characters) {
    Load(Counter(1) + Section(1, "T", {{std::string(80, 'x'), "x"}, {"a\x07" + std::string(80, 'x'), "a"}}));
    EXPECT_EQ(form_.Nodes()[1].text, std::wstring(65, L'x'));
    EXPECT_EQ(form_.Nodes()[2].text, L"a");
}

TEST_F(DictationTree, MoreThan201LessonsAreListed) {
    std::string file = Counter(202);
    for (int lesson = 1; lesson <= 202; ++lesson) file += Section(lesson, "T" + std::to_string(lesson), {});
    EXPECT_EQ(Load(file), 202);
    EXPECT_EQ(form_.tvTasks.Count(), 202);
    EXPECT_EQ(form_.Nodes()[99].key, L"L100");
}

TEST_F(DictationTree, OneCallALessonAndOneMoreAreMade) {
    const std::string file = Counter(3) + Section(1, "A", Many(20)) + Section(2, "B", Many(20)) + Plain(3, "C");
    const std::size_t before = win32::profile::CallCount();
    Load(file);
    EXPECT_EQ(win32::profile::CallCount() - before, 4U);
}

TEST_F(DictationTree, CountsOver16BitsAreError6AndTheTreeIsShownAgain) {
    EXPECT_EQ(RaisedBy([&] { Load("[Dictations]\r\nNbrOfLessons=32768\r\n"); }).Number(), win32::kOverflowNumber);
    EXPECT_EQ(RaisedBy([&] { Load(Counter(1) + "[L01]\r\nNbrOfTasks=40000\r\n"); }).Number(), win32::kOverflowNumber);
    EXPECT_TRUE(form_.tvTasks.IsShown());
}

TEST_F(DictationTree, TheLargestCountEnds) {
    EXPECT_EQ(Load(Counter(1) + "[L01]\r\nDefTitle=Many\r\nNbrOfTasks=32767\r\n"), 1);
    EXPECT_EQ(form_.tvTasks.Count(), 32768);
    EXPECT_EQ(Load("[Dictations]\r\nNbrOfLessons=-3\r\n"), 0);
}

TEST_F(DictationTree, SingleLessonsAndDictationsCanBeAdded) {
    const std::wstring file = NewFile(Counter(3) + Plain(1, "One") + Plain(2, "Two") + Plain(3, "Three"));
    EXPECT_EQ(LoadDictation(file, 3, form_.tvTasks), 1);
    LoadTask(file, L"L03", 1, form_.tvTasks);
    const TreeForm::Shown task{
        L"L03\x05"
        L"01",
        L"abc", 1};
    EXPECT_EQ(form_.Nodes(), (std::vector<TreeForm::Shown>{{L"L03", L"Three", 0}, task, task}));
}

TEST_F(DictationTree, EachReaderReportsAMissingFileUnderItsOwnName) {
    ExpectMissing(RaisedBy([&] { LoadDictations(gTeachersDictationsIni, form_.tvTasks); }), L"LoadDictations");
    ExpectMissing(RaisedBy([&] { LoadDictation(gTeachersDictationsIni, 1, form_.tvTasks); }), L"LoadDictation");
    ExpectMissing(RaisedBy([&] { LoadTask(gTeachersDictationsIni, L"L01", 1, form_.tvTasks); }), L"LoadTask");
}

// ---- for editing

TEST_F(Dictations, StoredLessonIsReadIntoTitleAndTable) {
    EXPECT_EQ(LoadFrom(Counter(1) + Section(1, " Letters ", {{" Dear Sir, ", "Dear Sir,\x07\x06Thank you. "}})), 1);
    EXPECT_EQ(gDictationTitle, L"Letters");
    EXPECT_EQ(tasks_[0], (DictationRow{L"Dear Sir,", L"Dear Sir,\x07\x06Thank you.", false}));
    EXPECT_FALSE(titleCut_);
}

TEST_F(Dictations, LessonWithoutDictationsGivesAnEmptyTable) {
    EXPECT_EQ(LoadFrom(Counter(1) + Section(1, "Empty", {})), 0);
    EXPECT_EQ(tasks_.Count(), 0U);
}

TEST_F(Dictations, TextsAreReadBackCutAt254Bytes) {
    LoadFrom(Counter(1) + Section(1, std::string(300, 't'), {{"x", std::string(300, 'x')}, {"y", "y"}}));
    EXPECT_EQ(tasks_[0].text, std::wstring(254, L'x'));
    EXPECT_TRUE(tasks_[0].textCut);
    EXPECT_FALSE(tasks_[1].textCut);
    EXPECT_TRUE(titleCut_);
}

TEST_F(Dictations, EmptyLabelIsMadeFromTheText) {
    const std::string blanks(70, ' ');
    LoadFrom(Counter(1) +
             Section(1, "T", {{"", "\x07later"}, {"", "first\x07second"}, {"", "\x06" + blanks + "word"}}));
    ASSERT_EQ(tasks_.Count(), 3U);
    EXPECT_EQ(tasks_[0].label, L"\r");
    EXPECT_EQ(tasks_[1].label, L"first\r");
    EXPECT_EQ(tasks_[2].label, L"\t") << "the tab and 64 blanks, trimmed";
}

TEST_F(Dictations, RowsWithoutLabelAndTextAreClosedUp) {
    EXPECT_EQ(LoadFrom(Counter(1) + "[L01]\r\nDefTitle=T\r\nNbrOfTasks=4\r\nSPELL_USA_TASK_02=two\r\n"
                                    "PRINT_USA_TASK_04=four\r\n"),
              2);
    EXPECT_EQ(tasks_[0].text, L"two");
    EXPECT_EQ(tasks_[1].label, L"four");
}

TEST_F(Dictations, OpeningAndSavingLeavesEveryStoredTextAsItWas) {
    const std::string section =
        Section(1, "Letters",
                {{"Dear Sir,", "Dear Sir,\x07\x06Thank you."}, {"abc", "abc"}, {"word", "\x06word"}, {"a  b", "a  b"}});
    EXPECT_EQ(OpenAndSave(section), Counter(1) + section);
    EXPECT_EQ(OpenAndSave(section), Counter(1) + section) << "a second time too";
}

TEST_F(Dictations, OpeningAndSavingKeepsATextThatBeginsWithALineBreakAndItsNeighbours) {
    OpenAndSave(Section(1, "T", {{"one", "one"}, {"", "\x07two"}, {"three", "three"}}));
    EXPECT_EQ(LoadFrom(Bytes()), 3);
    EXPECT_EQ(tasks_[0].text, L"one");
    EXPECT_EQ(tasks_[1].text, L"\x07two");
    EXPECT_EQ(tasks_[2].text, L"three");
}

TEST_F(Dictations, TableHolds101AndThe102ndIsError9) {
    EXPECT_EQ(LoadFrom(Counter(1) + Section(1, "T", Many(101))), 101);
    const win32::AppError error = RaisedBy([&] { LoadFrom(Counter(1) + Section(1, "T", Many(102))); });
    EXPECT_EQ(error.Number(), win32::kSubscriptNumber);
    EXPECT_EQ(error.Source(), L"LoadDictation");
}

TEST_F(Dictations, MissingFileIsReportedUnderTheStatedNames) {
    ExpectMissing(RaisedBy([&] { LoadDictationForEdit(gTeachersDictationsIni, 1, tasks_); }), L"LoadDictation");
    ExpectMissing(RaisedBy([&] { SaveLesson(1, L"T", tasks_); }), L"SaveLesson");
    ExpectMissing(RaisedBy([] { RemoveLesson(1); }), L"SaveNewLesson");
    ExpectMissing(RaisedBy([] { GetNextTeachersDictationNbr(); }), L"GetNextTeachersDictationNbr");
    EXPECT_FALSE(fs::exists(TeachersFile()));
}

// ---- what was written now

TEST(WrittenRow, BlankTextIsNotTaken) {
    EXPECT_EQ(WrittenRow(L"", L""), std::nullopt);
    EXPECT_EQ(WrittenRow(L"", L"   "), std::nullopt);
    EXPECT_EQ(WrittenRow(L"\r", L"\x07 \x06\x07"), std::nullopt);
}

TEST(WrittenRow, OnlyAnEmptyLabelIsMadeAnew) {
    EXPECT_EQ(WrittenRow(L"abc\r", L"abc\x07"), (DictationRow{L"abc\r", L"abc\x07"}));
    EXPECT_EQ(WrittenRow(L"\r", L"\x07word"), (DictationRow{L"\r", L"\x07word"}));
    EXPECT_EQ(WrittenRow(L"", std::wstring(70, L' ') + L"word"),
              (DictationRow{L"word", std::wstring(70, L' ') + L"word"}));
}

// ---- saving

TEST_F(Dictations, NewLessonIsWrittenInOnePieceAndCounted) {
    WriteBytes(TeachersFile(), Counter(1) + Plain(1, "One"));
    tasks_.Add({L"Dear Sir,\r", L"Dear Sir,\x07\x06Thank you."});
    tasks_.Add({L"abc", L"abc"});
    EXPECT_EQ(GetNextTeachersDictationNbr(), 2);
    const std::size_t calls = win32::profile::CallCount();
    EXPECT_EQ(SaveLesson(2, L"Letters", tasks_), 2);
    EXPECT_EQ(win32::profile::CallCount() - calls, 3U) << "one read, the section, the counter";
    std::string expected = Counter(2) + Plain(1, "One") +
                           Section(2, "Letters", {{"Dear Sir,", "Dear Sir,\x07\x06Thank you."}, {"abc", "abc"}});
    std::string bytes = Bytes();
    if (const auto cr = bytes.find("Dear Sir,\r\r\n"); cr != std::string::npos) bytes.erase(cr + 9, 1);
    EXPECT_EQ(bytes, expected);
    EXPECT_EQ(ReadBytes(BackupFile()), Counter(1) + Plain(1, "One"));
}

TEST_F(Dictations, SavingAnExistingLessonLeavesTheCountAndTheOthers) {
    LoadFrom(Counter(3) + Plain(1, "One") + Section(2, "Two", Many(3)) + Plain(3, "Three"), 2);
    tasks_.Delete(0);
    EXPECT_EQ(SaveLesson(2, L"Second", tasks_), 2);
    EXPECT_EQ(Bytes(),
              Counter(3) + Plain(1, "One") + Section(2, "Second", {{"d2", "d2"}, {"d3", "d3"}}) + Plain(3, "Three"))
        << "keys of the old higher numbers are gone";
}

TEST_F(Dictations, Lesson100IsStoredInL100) {
    WriteBytes(TeachersFile(), Counter(99));
    SaveLesson(GetNextTeachersDictationNbr(), L"Hundredth", tasks_);
    EXPECT_EQ(Bytes(), Counter(100) + "[L100]\r\nDefTitle=Hundredth\r\nNbrOfTasks=0\r\n");
}

TEST_F(Dictations, OneHundredDictationsAreSavedAndThe101stIsNot) {
    LoadFrom(Counter(1) + Section(1, "T", Many(101)));
    EXPECT_EQ(SaveLesson(1, gDictationTitle, tasks_), 100);
    EXPECT_EQ(Bytes(), Counter(1) + Section(1, "T", Many(100)));
}

TEST_F(Dictations, RefusedSaveIsRaisedAndTheFileStays) {
    const std::string file = Counter(1) + Plain(1, "One");
    LoadFrom(file);
    {
        const HeldFile held(TeachersFile());
        ASSERT_TRUE(held.Held());
        const win32::AppError error = RaisedBy([&] { SaveLesson(1, L"Two", tasks_); });
        EXPECT_EQ(error.Source(), L"SaveLesson");
        EXPECT_NE(error.Description().find(gTeachersDictationsIni), std::wstring::npos);
        EXPECT_EQ(RaisedBy([] { RemoveLesson(1); }).Source(), L"SaveNewLesson");
    }
    EXPECT_EQ(Bytes(), file);
}

TEST_F(Dictations, FileThatCannotBeReadIsNotTakenForEmpty) {
    const std::string file = Counter(2) + Plain(1, "One") + Plain(2, "Two");
    WriteBytes(TeachersFile(), file);
    tasks_.Add({L"d", L"d"});
    TreeForm form;
    form.Load();
    {
        const HeldFile held(TeachersFile(), false);
        ASSERT_TRUE(held.Held());
        ExpectUnreadable(gTeachersDictationsIni, L"LoadDictations",
                         [&] { LoadDictations(gTeachersDictationsIni, form.tvTasks); });
        ExpectUnreadable(gTeachersDictationsIni, L"LoadDictation",
                         [&] { LoadDictationForEdit(gTeachersDictationsIni, 1, tasks_); });
        ExpectUnreadable(gTeachersDictationsIni, L"GetNextTeachersDictationNbr", [] { GetNextTeachersDictationNbr(); });
        ExpectUnreadable(gTeachersDictationsIni, L"SaveLesson", [&] { SaveLesson(1, L"New", tasks_); });
        ExpectUnreadable(gTeachersDictationsIni, L"SaveNewLesson", [] { RemoveLesson(1); });
    }
    EXPECT_EQ(Bytes(), file);
    EXPECT_FALSE(fs::exists(BackupFile()));
}

TEST_F(Dictations, CountBelowNoneMakesNoLessonDisappear) {
    WriteBytes(TeachersFile(), Counter(-5));
    EXPECT_EQ(GetNextTeachersDictationNbr(), 1);
    tasks_.Add({L"d1", L"d1"});
    SaveLesson(1, L"First", tasks_);
    EXPECT_EQ(Bytes(), Counter(1) + Section(1, "First", Many(1)));
}

TEST_F(Dictations, NextNumberAfter32767IsError6) {
    WriteBytes(TeachersFile(), Counter(32767));
    EXPECT_EQ(RaisedBy([] { GetNextTeachersDictationNbr(); }).Number(), win32::kOverflowNumber);
    WriteBytes(TeachersFile(), "");
    EXPECT_EQ(GetNextTeachersDictationNbr(), 1);
}

TEST_F(Dictations, LessonBytesCountTheWholeSection) {
    tasks_.Add({L"ab", L"abc"});
    const std::string section = "DefTitle=T.NbrOfTasks=1.PRINT_USA_TASK_01=ab.SPELL_USA_TASK_01=abc..";
    EXPECT_EQ(LessonBytes(L"T", tasks_), section.size());
    tasks_.Replace(0, {L"ab\r", L"abc"});
    EXPECT_EQ(LessonBytes(L"T", tasks_), section.size() + 1) << "a label is handed over with its CR";
}

// ---- removing

TEST_F(Dictations, RemovingLesson2Of3MovesLesson3Down) {
    const std::string three = Counter(3) + Plain(1, "One") + Plain(2, "Two") + Plain(3, "Three");
    WriteBytes(TeachersFile(), three);
    EXPECT_EQ(RemoveLesson(2), 2);
    EXPECT_EQ(Bytes(), Counter(2) + Plain(1, "One") + Plain(2, "Three"));
    EXPECT_EQ(ReadBytes(BackupFile()), three);
}

TEST_F(Dictations, RemovingLesson0OrLesson4Of3ChangesNothing) {
    const std::string three = Counter(3) + Plain(1, "One") + Plain(2, "Two") + Plain(3, "Three");
    WriteBytes(TeachersFile(), three);
    for (const int lesson : {0, 4, -1}) EXPECT_EQ(RemoveLesson(static_cast<std::int16_t>(lesson)), 0) << lesson;
    EXPECT_EQ(Bytes(), three);
    EXPECT_FALSE(fs::exists(BackupFile()));
}

TEST_F(Dictations, RemovalTellsWhichLessonLostItsEnd) {
    std::vector<Stored> large;
    for (int i = 0; i < 20; ++i) large.push_back({"label", std::string(250, 'x')});
    WriteBytes(TeachersFile(), Counter(3) + Plain(1, "One") + Plain(2, "Two") + Section(3, "Large", large));
    std::vector<std::int16_t> cut;
    EXPECT_EQ(RemoveLesson(1, &cut), 1);
    EXPECT_EQ(cut, std::vector<std::int16_t>{2});
}

// ---- the selection and the request

TEST(DictationSelection, KeyBecomesTheSelectionAndComesBackWithoutItsFirstCharacter) {
    EXPECT_EQ(GetSelectedDictation(L"L03\x05"
                                   L"12"),
              L"03\x05"
              L"12");
    EXPECT_EQ(gCurLessonNbr, 3);
    EXPECT_EQ(gCurTaskNbr, 12);
    EXPECT_EQ(GetSelectedDictation(L"L100"), L"100");
    EXPECT_EQ(gCurLessonNbr, 100);
    EXPECT_EQ(gCurTaskNbr, 0);
}

/// Requests need the main window, and loading that needs the shipped files: without them it waits in error boxes.
class DictationRequests : public RealFoldersTest {
protected:
    void SetUp() override {
        RealFoldersTest::SetUp();
        if (!IsSkipped()) WriteShippedFiles(RealCommonFolder());
    }
    void TearDown() override {
        frmMain::Default().Unload();
        RealFoldersTest::TearDown();
    }
};

TEST_F(DictationRequests, NameTheOpenCatalogue) {
    mDictationKind = kTeachersKind;
    RunDictation(3, 1);
    EXPECT_EQ(frmMain::Default().cmdAccessibility.Text(),
              L"DICT\x05"
              L"3\x05"
              L"1");
    EXPECT_EQ(gRunLessonNbr, 3);
    EXPECT_EQ(gRunTaskNbr, 1);
    mDictationKind = kShippedKind;
    RunDictation(12, 0);
    EXPECT_EQ(frmMain::Default().cmdAccessibility.Text(),
              L"DICP\x05"
              L"12\x05"
              L"0");
}

}  // namespace
}  // namespace unit
