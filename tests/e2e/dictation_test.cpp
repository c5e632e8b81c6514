// Dictations: a teacher writes them in the editor and the text entry, a learner picks one, and the file's bytes are as
// stated.
#include "checks.h"
#include "fixture.h"

namespace e2e {
namespace {

namespace fs = std::filesystem;

constexpr wchar_t kPicker[] = L"dlgDictation";
constexpr wchar_t kEditor[] = L"dlgDictationEdit";
constexpr wchar_t kDetails[] = L"dlgDictationDetails";
constexpr wchar_t kEntry[] = L"dlgDictationTask";
constexpr wchar_t kNothingThere[] = L"There are no dictation lessons or tasks to select";
// At this resolution the tests' desktop is as wide as the narrowest that must do.
constexpr int kNarrowDpi = 135;

struct StoredDictation {
    std::string label;
    std::string text;
};
struct StoredLesson {
    std::string title;
    std::vector<StoredDictation> dictations;
};

std::string Padded(std::size_t number) { return number < 10 ? '0' + std::to_string(number) : std::to_string(number); }

std::string Section(std::size_t number, const StoredLesson& lesson) {
    std::string bytes = "[L" + Padded(number) + "]\r\nDefTitle=" + lesson.title +
                        "\r\nNbrOfTasks=" + std::to_string(lesson.dictations.size()) + "\r\n";
    for (std::size_t i = 0; i < lesson.dictations.size(); ++i)
        bytes += "PRINT_USA_TASK_" + Padded(i + 1) + '=' + lesson.dictations[i].label + "\r\nSPELL_USA_TASK_" +
                 Padded(i + 1) + '=' + lesson.dictations[i].text + "\r\n";
    return bytes;
}

std::string File(const std::vector<StoredLesson>& lessons) {
    std::string bytes = "[Dictations]\r\nNbrOfLessons=" + std::to_string(lessons.size()) + "\r\n";
    for (std::size_t i = 0; i < lessons.size(); ++i) bytes += Section(i + 1, lessons[i]);
    return bytes;
}

StoredDictation Same(const std::string& text) { return {text, text}; }

std::vector<StoredDictation> Many(int count) {
    std::vector<StoredDictation> dictations;
    for (int i = 1; i <= count; ++i) dictations.push_back(Same("d" + std::to_string(i)));
    return dictations;
}

std::vector<StoredLesson> ThreeLessons() {
    return {{"Letters", {Same("one"), Same("two"), Same("three")}}, {"Lists", {Same("apples")}}, {"Stories", {}}};
}

class Dictation : public KeystrideTest {
protected:
    void SetUp() override {
        KeystrideTest::SetUp();
        WriteTeachers(ThreeLessons());
        WriteBytes(CommonFolder() / L"KSDictations.ini", File({{"Shipped", {Same("first"), Same("second")}}}));
    }

    static fs::path TeachersFile() { return UserFolder() / L"TeachersDictations.ini"; }
    static fs::path BackupFile() { return UserFolder() / L"TeachersDictations.bak"; }
    static std::string Bytes() { return ReadBytes(TeachersFile()); }
    /// The file without the CR at the end of labels: the system may drop it.
    static std::string BytesWithoutLabelCr() {
        std::string bytes = Bytes();
        for (auto at = bytes.find("\r\r\n"); at != std::string::npos; at = bytes.find("\r\r\n")) bytes.erase(at, 1);
        return bytes;
    }
    static void WriteTeachers(const std::vector<StoredLesson>& lessons) { WriteBytes(TeachersFile(), File(lessons)); }

    Tree Lessons() { return App().TreeOf(kPicker, L"tvTasks"); }
    std::vector<std::wstring> Lines() { return ReadList(In(kEditor, L"lstTasks")).lines; }
    int SelectedLine() { return ReadList(In(kEditor, L"lstTasks")).selected; }

    void OpenList(std::string_view chord) { ASSERT_TRUE(OpenForm(chord, kPicker, L"tvTasks")); }
    void StartInTeachersList() {
        ASSERT_NO_FATAL_FAILURE(StartUnsigned());
        ASSERT_NO_FATAL_FAILURE(OpenList("F8"));
    }
    void SelectLesson(int lesson) {
        ASSERT_NO_FATAL_FAILURE(TabTo(L"tvTasks"));
        ASSERT_TRUE(App().Press("Home"));
        for (int step = 1; step < lesson; ++step) ASSERT_TRUE(App().Press("Down"));
        const std::vector<std::wstring> titles = Lessons().RootTexts();
        ASSERT_TRUE(
            WaitUntil([&] { return Lessons().SelectedText() == titles.at(static_cast<std::size_t>(lesson) - 1); }));
    }
    bool WaitForSelectedLesson(std::wstring_view title) {
        return WaitUntil([&] { return App().Form(kPicker) && Lessons().SelectedText() == title; });
    }
    void OpenLesson(int lesson) {
        ASSERT_NO_FATAL_FAILURE(SelectLesson(lesson));
        Click(kPicker, L"cmdEditDictation");
        ASSERT_TRUE(App().WaitForForm(kEditor));
        ASSERT_TRUE(
            WaitUntil([&] { return App().FocusName() == L"lstTasks" || App().FocusName() == L"cmdCreateTask"; }));
    }
    /// From the open list: the editor on a lesson alone in the teacher's file.
    void StartOn(const StoredLesson& lesson) {
        WriteTeachers({lesson});
        ASSERT_NO_FATAL_FAILURE(StartInTeachersList());
        ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    }
    void OpenEntry(std::wstring_view button) {
        Click(kEditor, button);
        ASSERT_TRUE(App().WaitForForm(kEntry));
        ASSERT_TRUE(App().WaitForFocus(L"rtfEdit"));
    }
    void SaveEntry() {
        ASSERT_TRUE(App().Press("Ctrl+Enter"));
        ASSERT_TRUE(App().WaitForNoForm(kEntry));
    }
    /// Creates a dictation from a text that is put into the entry at once.
    void Create(const std::wstring& text) {
        const std::size_t before = Lines().size();
        ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdCreateTask"));
        SetTextOf(kEntry, L"rtfEdit", text);
        ASSERT_NO_FATAL_FAILURE(SaveEntry());
        ASSERT_TRUE(WaitUntil([&] { return Lines().size() == before + 1; }));
    }
    void Save() {
        Click(kEditor, L"cmdSaveDictation");
        ASSERT_TRUE(App().WaitForNoForm(kEditor));
        ASSERT_TRUE(App().WaitForFocus(L"tvTasks"));
    }
    void SelectLine(int line) { In(kEditor, L"lstTasks").Send(LB_SETCURSEL, static_cast<WPARAM>(line)); }

    void ExpectBox(std::wstring_view text, std::wstring_view owner, const std::vector<int>& buttons, int answer) {
        const auto box = App().WaitForBox();
        ASSERT_TRUE(box) << ToUtf8(text);
        EXPECT_EQ(box->text, text);
        EXPECT_EQ(box->title, L"Keystride");
        EXPECT_EQ(box->ButtonIds(), buttons);
        EXPECT_EQ(box->owner, App().Form(owner));
        ASSERT_TRUE(box->Answer(answer));
    }
};

// ---- the whole story

TEST_F(Dictation, TeacherWritesALessonFromF8AndALearnerPicksItFromF4) {
    WriteTeachers({});
    StartUnsigned();
    ASSERT_NO_FATAL_FAILURE(OpenList("F8"));
    EXPECT_TRUE(App().WaitForRequest(L"DICT\x05\x04"));
    EXPECT_EQ(App().Form(kPicker).Text(), L"Pick a Teacher's Dictation Lesson");
    PressButton(L"cmdAddDictation");
    ASSERT_TRUE(App().WaitForForm(kDetails));
    ASSERT_TRUE(App().WaitForFocus(L"txtLessonTitle"));
    EXPECT_EQ(App().Form(kDetails).Text(), L"Dictation Lesson Title");
    EXPECT_EQ(App().Text(kDetails, L"lblTitle"), L"Dictation Lesson 1");
    ASSERT_TRUE(App().Type(L"Letters"));
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(App().WaitForForm(kEditor));
    ASSERT_TRUE(App().WaitForFocus(L"cmdCreateTask")) << "an empty list leaves the focus to the button";
    EXPECT_EQ(App().Text(kEditor, L"lblDictationTitle"), L"Letters");
    EXPECT_TRUE(Lines().empty());

    ASSERT_TRUE(App().Press("Space"));
    ASSERT_TRUE(App().WaitForForm(kEntry));
    ASSERT_TRUE(App().WaitForFocus(L"rtfEdit"));
    EXPECT_EQ(App().Form(kEntry).Text(), L"Type Your Dictation");
    ASSERT_TRUE(App().Type(L"Dear Sir,"));
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().Type(L"Thank you."));
    ASSERT_TRUE(App().WaitForText(kEntry, L"rtfEdit", L"Dear Sir,\r\n\tThank you."))
        << Readable(App().Text(kEntry, L"rtfEdit"));
    ASSERT_NO_FATAL_FAILURE(SaveEntry());
    ASSERT_TRUE(WaitUntil([&] { return Lines() == std::vector<std::wstring>{L"Dear Sir,"}; }));
    EXPECT_EQ(SelectedLine(), 0);
    ASSERT_TRUE(App().WaitForFocus(L"cmdCreateTask"));
    ASSERT_TRUE(App().Press("Space"));
    ASSERT_TRUE(App().WaitForForm(kEntry));
    ASSERT_TRUE(App().WaitForFocus(L"rtfEdit"));
    ASSERT_TRUE(App().Type(L"abc"));
    ASSERT_TRUE(App().WaitForText(kEntry, L"rtfEdit", L"abc"));
    ASSERT_NO_FATAL_FAILURE(SaveEntry());
    ASSERT_TRUE(WaitUntil([&] { return Lines().size() == 2; }));
    EXPECT_EQ(Bytes(), File({})) << "nothing is written before the lesson is saved";
    PressButton(L"cmdSaveDictation");
    ASSERT_TRUE(App().WaitForNoForm(kEditor));
    EXPECT_TRUE(WaitForSelectedLesson(L"Letters"));
    EXPECT_TRUE(App().WaitForFocus(L"tvTasks"));
    EXPECT_EQ(BytesWithoutLabelCr(), File({{"Letters", {{"Dear Sir,", "Dear Sir,\x07\x06Thank you."}, Same("abc")}}}));
    EXPECT_EQ(ReadBytes(BackupFile()), File({}));
    ASSERT_NO_FATAL_FAILURE(CloseForm(kPicker));

    ASSERT_TRUE(App().Press("F11"));
    ASSERT_NO_FATAL_FAILURE(OpenList("F4"));
    const std::vector<TreeNode> roots = Lessons().Roots();
    ASSERT_EQ(roots.size(), 1U);
    EXPECT_FALSE(roots[0].expanded);
    ASSERT_EQ(roots[0].children.size(), 2U);
    EXPECT_EQ(roots[0].children[0].text, L"Dear Sir,");
    EXPECT_EQ(roots[0].children[1].text, L"abc");
    ASSERT_TRUE(App().Press("Right"));
    ASSERT_TRUE(App().Press("Down"));
    ASSERT_TRUE(WaitUntil([&] { return Lessons().SelectedText() == L"Dear Sir,"; }));
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(
        App().WaitForRequest(L"DICT\x05"
                             L"1\x05"
                             L"1"));
    EXPECT_TRUE(App().WaitForNoForm(kPicker));
    EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
}

TEST_F(Dictation, OpeningAndSavingALessonLeavesEveryStoredTextAsItWas) {
    const std::vector<StoredLesson> lessons{{"Letters",
                                             {{"Dear Sir,", "Dear Sir,\x07\x06Thank you."},
                                              {"", "\x07It begins later."},
                                              {"word", "\x06word"},
                                              Same("a  b")}},
                                            {"Lists", {Same("apples")}}};
    WriteTeachers(lessons);
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    EXPECT_EQ(Lines(), (std::vector<std::wstring>{L"Dear Sir,", L"It begins later.", L"word", L"a  b"}))
        << "every line can be read out";
    ASSERT_NO_FATAL_FAILURE(Save());
    EXPECT_EQ(BytesWithoutLabelCr(), File(lessons));
    // The same through the text entry, dictation by dictation.
    for (int line = 0; line < 4; ++line) {
        ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
        SelectLine(line);
        ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdEditTask"));
        ASSERT_NO_FATAL_FAILURE(SaveEntry());
        ASSERT_TRUE(WaitUntil([&] { return SelectedLine() == line; })) << "the edited line stays selected";
        ASSERT_NO_FATAL_FAILURE(Save());
    }
    std::string bytes = BytesWithoutLabelCr();
    if (const auto tab = bytes.find("=\tword"); tab != std::string::npos) bytes.erase(tab + 1, 1);
    EXPECT_EQ(bytes, File(lessons));
}

// ---- the picker

TEST_F(Dictation, ShippedCatalogueHasNoEditingButtons) {
    StartUnsigned();
    ASSERT_NO_FATAL_FAILURE(OpenList("F4"));
    EXPECT_TRUE(App().WaitForRequest(L"DICP\x05\x04"));
    EXPECT_EQ(App().Form(kPicker).Text(), L"Pick a Dictation Lesson");
    for (const wchar_t* button : {L"cmdAddDictation", L"cmdEditDictation", L"cmdRemoveDictation"})
        EXPECT_FALSE(In(kPicker, button).Shown()) << ToUtf8(button);
    EXPECT_FALSE(In(kPicker, L"cmdAccessibility").Shown());
    ExpectTabOrder({L"tvTasks", L"OKButton", L"CancelButton"});
    SetTextOf(L"frmMain", L"rtfEdit", L"typed before");
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(
        App().WaitForRequest(L"DICP\x05"
                             L"1\x05"
                             L"0"))
        << "a lesson is sent with task 0";
    ASSERT_TRUE(App().WaitForNoForm(kPicker));
    EXPECT_TRUE(App().WaitForText(L"frmMain", L"rtfEdit", L""));
}

TEST_F(Dictation, MainWindowButtonOpensTheListOfTheMode) {
    StartUnsigned();
    Click(L"frmMain", L"cmdF4");
    ASSERT_TRUE(App().WaitForForm(kPicker));
    EXPECT_TRUE(App().WaitForRequest(L"DICP\x05\x04"));
    ASSERT_TRUE(App().WaitForFocus(L"tvTasks"));
    ASSERT_NO_FATAL_FAILURE(CloseForm(kPicker));
    ASSERT_TRUE(App().Press("F11"));
    Click(L"frmMain", L"cmdF4");
    ASSERT_TRUE(App().WaitForForm(kPicker));
    EXPECT_TRUE(App().WaitForRequest(L"DICT\x05\x04"));
    for (const wchar_t* button : {L"cmdAddDictation", L"cmdEditDictation", L"cmdRemoveDictation"})
        EXPECT_TRUE(In(kPicker, button).Visible()) << ToUtf8(button);
}

TEST_F(Dictation, EveryWayOutOfTheListSendsNothing) {
    StartUnsigned();
    for (const char* way : {"Esc", "Alt+F4", "Shift+Esc", "button"}) {
        ASSERT_NO_FATAL_FAILURE(OpenList("F4"));
        ASSERT_TRUE(App().WaitForRequest(L"DICP\x05\x04"));
        // Whatever is sent from here on would take the place of this.
        SetTextOf(L"frmMain", L"cmdAccessibility", L"untouched");
        if (std::string_view(way) == "button")
            Click(kPicker, L"CancelButton");
        else
            ASSERT_TRUE(App().Press(way));
        ASSERT_TRUE(App().WaitForNoForm(kPicker)) << way;
        ASSERT_TRUE(App().WaitForFocus(L"rtfEdit"));
        EXPECT_EQ(App().Request(), L"untouched") << way;
    }
}

TEST_F(Dictation, ControlEscAndAltEscDoNotCloseTheList) {
    StartUnsigned();
    ASSERT_NO_FATAL_FAILURE(OpenList("F4"));
    for (const char* key : {"Ctrl+Esc", "Alt+Esc", "Ctrl+A"}) ASSERT_TRUE(App().Press(key)) << key;
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"OKButton"));
    EXPECT_TRUE(App().Form(kPicker));
}

TEST_F(Dictation, ControlEscLeavesTheEditorOpenAndClosesTheTitle) {
    StartOn({"T", {Same("one")}});
    ASSERT_TRUE(App().Press("Ctrl+Esc"));
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"cmdCreateTask"));
    ASSERT_TRUE(App().Form(kEditor));
    Click(kEditor, L"cmdEditDictation");
    ASSERT_TRUE(App().WaitForFocus(L"txtLessonTitle"));
    ASSERT_TRUE(App().Press("Ctrl+Esc"));
    EXPECT_TRUE(App().WaitForNoForm(kDetails));
    EXPECT_TRUE(App().Form(kEditor));
}

TEST_F(Dictation, ControlASelectsTheTitleAndControlShiftADoesNot) {
    StartOn({"A long title", {}});
    Click(kEditor, L"cmdEditDictation");
    ASSERT_TRUE(App().WaitForFocus(L"txtLessonTitle"));
    const auto replaced = [&](const char* key) {
        SetTextOf(kDetails, L"txtLessonTitle", L"A long title");
        EXPECT_TRUE(App().Press("End"));
        EXPECT_TRUE(App().Press(key));
        EXPECT_TRUE(App().Type(L"x"));
        WaitUntil([&] { return App().Text(kDetails, L"txtLessonTitle").ends_with(L"x"); });
        return App().Text(kDetails, L"txtLessonTitle") == L"x";
    };
    EXPECT_FALSE(replaced("Ctrl+Shift+A"));
    EXPECT_TRUE(replaced("Ctrl+A"));
}

TEST_F(Dictation, EmptyCatalogueIsToldByOkEditAndRemove) {
    WriteTeachers({});
    StartInTeachersList();
    for (const wchar_t* button : {L"OKButton", L"cmdEditDictation", L"cmdRemoveDictation"}) {
        Click(kPicker, button);
        ASSERT_NO_FATAL_FAILURE(ExpectBox(kNothingThere, kPicker, {IDOK}, IDOK));
        EXPECT_TRUE(App().Form(kPicker));
    }
    EXPECT_EQ(App().Request(), L"DICT\x05\x04");
}

TEST_F(Dictation, NothingSelectedIsToldByOkEditAndRemove) {
    StartInTeachersList();
    for (const wchar_t* button : {L"OKButton", L"cmdEditDictation", L"cmdRemoveDictation"}) {
        ASSERT_NO_FATAL_FAILURE(TabTo(button));
        Lessons().SelectNothing();
        ASSERT_TRUE(App().Press("Space"));
        ASSERT_NO_FATAL_FAILURE(ExpectBox(L"Select a dictation lesson or task first", kPicker, {IDOK}, IDOK));
    }
}

TEST_F(Dictation, MissingCatalogueIsReportedAndNoListOpens) {
    StartUnsigned();
    const fs::path shipped = CommonFolder() / L"KSDictations.ini";
    fs::remove(shipped);
    fs::remove(TeachersFile());
    ASSERT_TRUE(App().Press("F4"));
    ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(L"File " + shipped.wstring() + L"not found."));
    ASSERT_TRUE(App().Press("F8"));
    ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(L"File " + TeachersFile().wstring() + L"not found."));
}

TEST_F(Dictation, RemovingLesson2Of3RenumbersTheThird) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(SelectLesson(2));
    const std::string before = Bytes();
    for (const int answer : {IDNO, IDCANCEL}) {
        Click(kPicker, L"cmdRemoveDictation");
        ASSERT_NO_FATAL_FAILURE(ExpectBox(L"Are you sure you want to remove dictation lesson 2?", kPicker,
                                          {IDYES, IDNO, IDCANCEL}, answer));
        EXPECT_EQ(Bytes(), before);
    }
    EXPECT_EQ(In(kPicker, L"cmdAccessibility").Text(),
              L"2\x05"
              L"0");
    // A dictation below a lesson stands for the whole lesson.
    ASSERT_NO_FATAL_FAILURE(SelectLesson(2));
    ASSERT_TRUE(App().Press("Right"));
    ASSERT_TRUE(App().Press("Down"));
    ASSERT_TRUE(WaitForSelectedLesson(L"apples"));
    Click(kPicker, L"cmdRemoveDictation");
    ASSERT_NO_FATAL_FAILURE(
        ExpectBox(L"Are you sure you want to remove dictation lesson 2?", kPicker, {IDYES, IDNO, IDCANCEL}, IDYES));
    EXPECT_TRUE(WaitForSelectedLesson(L"Stories"));
    EXPECT_TRUE(App().WaitForFocus(L"tvTasks"));
    EXPECT_EQ(Lessons().RootTexts(), (std::vector<std::wstring>{L"Letters", L"Stories"}));
    EXPECT_EQ(Bytes(), File({ThreeLessons()[0], ThreeLessons()[2]}));
    EXPECT_EQ(ReadBytes(BackupFile()), before);
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(
        App().WaitForRequest(L"DICT\x05"
                             L"2\x05"
                             L"0"))
        << "the former third lesson is the second now";
}

TEST_F(Dictation, RemovalThatCutALaterLessonIsTold) {
    std::vector<StoredLesson> lessons = ThreeLessons();
    for (int i = 0; i < 20; ++i) lessons[2].dictations.push_back({"label", std::string(250, 'x')});
    WriteTeachers(lessons);
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(SelectLesson(1));
    Click(kPicker, L"cmdRemoveDictation");
    ASSERT_NO_FATAL_FAILURE(
        ExpectBox(L"Are you sure you want to remove dictation lesson 1?", kPicker, {IDYES, IDNO, IDCANCEL}, IDYES));
    EXPECT_TRUE(WaitForNotice(
        kPicker, L"Lesson 2 lost the end beyond 4000 bytes. TeachersDictations.bak holds the file as it was."));
    // The next save puts another file there.
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    ASSERT_NO_FATAL_FAILURE(Save());
    EXPECT_TRUE(WaitForNotice(kPicker, L""));
}

TEST_F(Dictation, RefusedRemovalShowsWhatTheFileHolds) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(SelectLesson(2));
    // Somebody else has changed the file: at the second try the lesson that is shown must be the one that goes.
    const std::vector<StoredLesson> changed{{"Numbers", {Same("1")}}, {"Names", {Same("Ann")}}};
    WriteTeachers(changed);
    {
        const HeldFile held(TeachersFile());
        ASSERT_TRUE(held.Held());
        Click(kPicker, L"cmdRemoveDictation");
        ASSERT_NO_FATAL_FAILURE(
            ExpectBox(L"Are you sure you want to remove dictation lesson 2?", kPicker, {IDYES, IDNO, IDCANCEL}, IDYES));
        const auto box = App().WaitForBox();
        ASSERT_TRUE(box) << "a refused removal is told";
        ASSERT_TRUE(box->Answer(IDOK));
    }
    EXPECT_TRUE(WaitForSelectedLesson(L"Names"));
    EXPECT_EQ(Lessons().RootTexts(), (std::vector<std::wstring>{L"Numbers", L"Names"}));
    EXPECT_TRUE(App().WaitForFocus(L"tvTasks") || App().WaitForFocus(L"cmdRemoveDictation"));
    EXPECT_EQ(Bytes(), File(changed));
}

TEST_F(Dictation, LessonOfAFileThatCannotBeReadDoesNotOpen) {
    StartInTeachersList();
    const std::string before = Bytes();
    ASSERT_NO_FATAL_FAILURE(SelectLesson(2));
    {
        const HeldFile held(TeachersFile(), false);
        ASSERT_TRUE(held.Held());
        for (const wchar_t* button : {L"cmdEditDictation", L"cmdAddDictation"}) {
            Click(kPicker, button);
            const auto box = App().WaitForBox();
            ASSERT_TRUE(box) << "an empty editor would lose the lesson on saving";
            EXPECT_TRUE(box->text.starts_with(L"File " + TeachersFile().wstring() + L" could not be read. "));
            EXPECT_EQ(box->owner, App().Form(kPicker));
            ASSERT_TRUE(box->Answer(IDOK));
            EXPECT_FALSE(App().Form(kEditor));
        }
    }
    EXPECT_EQ(Bytes(), before);
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    EXPECT_EQ(Lines(), std::vector<std::wstring>{L"apples"});
}

TEST_F(Dictation, CountsThatDoNotFitAreToldAndLargeOnesAreListed) {
    StartUnsigned();
    for (const char* hostile : {"[Dictations]\r\nNbrOfLessons=32768\r\n", "[Dictations]\r\nNbrOfLessons=-40000\r\n",
                                "[Dictations]\r\nNbrOfLessons=1\r\n[L01]\r\nNbrOfTasks=70000\r\n"}) {
        WriteBytes(TeachersFile(), hostile);
        ASSERT_TRUE(App().Press("F8"));
        ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(L"Overflow"));
        EXPECT_EQ(Bytes(), hostile);
    }
    // Lessons that the file only states are lessons without a title.
    WriteBytes(TeachersFile(), "[Dictations]\r\nNbrOfLessons=2000\r\n");
    ASSERT_NO_FATAL_FAILURE(OpenList("F8"));
    EXPECT_EQ(Lessons().Count(), 2000);
}

// ---- the editor

TEST_F(Dictation, SubDialogsWriteTheEditorsTitle) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    EXPECT_EQ(App().Form(kEditor).Text(), L"Edit Dictation 1");
    Click(kEditor, L"cmdEditDictation");
    ASSERT_TRUE(App().WaitForForm(kDetails));
    EXPECT_TRUE(WaitUntil([&] { return App().Form(kEditor).Text() == L"Edit Dictation Lesson Details"; }));
    EXPECT_EQ(App().Form(kDetails).Text(), L"Dictation Lesson Title");
    EXPECT_EQ(App().Form(kDetails).Owner(), App().Form(kEditor));
    ASSERT_TRUE(App().WaitForFocus(L"txtLessonTitle"));
    EXPECT_EQ(App().Text(kDetails, L"txtLessonTitle"), L"Letters");
    ASSERT_TRUE(App().Press("Ctrl+Esc")) << "this dialog takes Esc with any modifier";
    ASSERT_TRUE(App().WaitForNoForm(kDetails));
    ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdCreateTask"));
    EXPECT_EQ(App().Form(kEditor).Text(), L"Add dictation");
    EXPECT_EQ(App().Form(kEntry).Text(), L"Type Your Dictation");
    EXPECT_EQ(App().Form(kEntry).Owner(), App().Form(kEditor));
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(App().WaitForNoForm(kEntry));
    ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdEditTask"));
    EXPECT_EQ(App().Form(kEditor).Text(), L"Edit dictation");
    ASSERT_TRUE(App().Press("Alt+F4"));
    ASSERT_TRUE(App().WaitForNoForm(kEntry));
    EXPECT_EQ(App().Form(kEditor).Text(), L"Edit dictation") << "the title stays as it was written";
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(App().WaitForNoForm(kEditor));

    Click(kPicker, L"cmdAddDictation");
    ASSERT_TRUE(App().WaitForForm(kDetails));
    EXPECT_EQ(App().Text(kDetails, L"lblTitle"), L"Dictation Lesson 4");
    EXPECT_EQ(App().Text(kDetails, L"txtLessonTitle"), L"");
    ASSERT_TRUE(App().WaitForFocus(L"txtLessonTitle"));
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(App().WaitForForm(kEditor));
    EXPECT_EQ(App().Form(kEditor).Text(), L"Add Dictation Lesson Details");
}

TEST_F(Dictation, CancelledTitleOfANewLessonIsEmptyAndNotTheLastLessons) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(App().WaitForNoForm(kEditor));
    Click(kPicker, L"cmdAddDictation");
    ASSERT_TRUE(App().WaitForForm(kDetails));
    ASSERT_TRUE(App().WaitForFocus(L"txtLessonTitle"));
    ASSERT_TRUE(App().Type(L"never"));
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(App().WaitForForm(kEditor));
    ASSERT_TRUE(App().WaitForFocus(L"cmdCreateTask"));
    ASSERT_NO_FATAL_FAILURE(Save());
    std::vector<StoredLesson> lessons = ThreeLessons();
    lessons.push_back({"", {}});
    EXPECT_EQ(Bytes(), File(lessons));
}

TEST_F(Dictation, NewTitleIsShownAndSaved) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    Click(kEditor, L"cmdEditDictation");
    ASSERT_TRUE(App().WaitForForm(kDetails));
    ASSERT_TRUE(App().WaitForFocus(L"txtLessonTitle"));
    ASSERT_NO_FATAL_FAILURE(Retype(kDetails, L"txtLessonTitle", L"Shopping"));
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(App().WaitForNoForm(kDetails));
    EXPECT_TRUE(App().WaitForText(kEditor, L"lblDictationTitle", L"Shopping"));
    ASSERT_NO_FATAL_FAILURE(Save());
    EXPECT_TRUE(WaitForSelectedLesson(L"Shopping"));
    std::vector<StoredLesson> lessons = ThreeLessons();
    lessons[1].title = "Shopping";
    EXPECT_EQ(Bytes(), File(lessons));
}

TEST_F(Dictation, DeletingTheFirstOfThreeSelectsNothingAndMovesTheOthersDown) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    EXPECT_EQ(SelectedLine(), 0) << "the first one is selected on opening";
    Click(kEditor, L"cmdDeleteTask");
    ASSERT_TRUE(WaitUntil([&] { return Lines() == std::vector<std::wstring>{L"two", L"three"}; }));
    EXPECT_EQ(SelectedLine(), -1);
    // With no selection both do nothing.
    Click(kEditor, L"cmdDeleteTask");
    Click(kEditor, L"cmdEditTask");
    SelectLine(1);
    Click(kEditor, L"cmdDeleteTask");
    ASSERT_TRUE(WaitUntil([&] { return Lines() == std::vector<std::wstring>{L"two"}; }));
    EXPECT_EQ(SelectedLine(), 0);
    EXPECT_FALSE(App().Form(kEntry));
    ASSERT_NO_FATAL_FAILURE(Save());
    std::vector<StoredLesson> lessons = ThreeLessons();
    lessons[0].dictations = {Same("two")};
    EXPECT_EQ(Bytes(), File(lessons));
}

TEST_F(Dictation, DeletingTheOnlyDictationLeavesAnEmptyList) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    PressButton(L"cmdDeleteTask");
    ASSERT_TRUE(WaitUntil([&] { return Lines().empty(); }));
    EXPECT_EQ(App().FocusName(), L"cmdDeleteTask");
    ASSERT_TRUE(App().Press("Space")) << "nothing is left to delete";
    ASSERT_NO_FATAL_FAILURE(Create(L"pears"));
    ASSERT_NO_FATAL_FAILURE(Save());
    std::vector<StoredLesson> lessons = ThreeLessons();
    lessons[1].dictations = {Same("pears")};
    EXPECT_EQ(Bytes(), File(lessons));
}

TEST_F(Dictation, CancelAfterChangesLeavesTheFileUntouched) {
    StartInTeachersList();
    const std::string before = Bytes();
    for (const char* way : {"Esc", "Alt+F4", "button"}) {
        ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
        ASSERT_NO_FATAL_FAILURE(Create(L"never"));
        if (std::string_view(way) == "button")
            Click(kEditor, L"CancelButton");
        else
            ASSERT_TRUE(App().Press(way));
        ASSERT_TRUE(App().WaitForNoForm(kEditor)) << way;
        EXPECT_EQ(Bytes(), before) << way;
        EXPECT_EQ(Lessons().RootTexts().size(), 3U);
        ASSERT_TRUE(App().WaitForFocus(L"cmdEditDictation") || App().FocusName() == L"tvTasks");
    }
    EXPECT_FALSE(fs::exists(BackupFile()));
}

TEST_F(Dictation, LessonWithoutDictationsShowsAnEmptyList) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(3));
    EXPECT_TRUE(Lines().empty());
    EXPECT_TRUE(App().WaitForFocus(L"cmdCreateTask"));
    EXPECT_EQ(App().Text(kEditor, L"lblDictationTitle"), L"Stories");
}

TEST_F(Dictation, BlankTextsAreNeitherAddedNorTakenForAnother) {
    StartOn({"T", {Same("one")}});
    for (const wchar_t* blank : {L"", L"   ", L"\r\n\t "}) {
        ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdCreateTask"));
        SetTextOf(kEntry, L"rtfEdit", blank);
        ASSERT_NO_FATAL_FAILURE(SaveEntry());
        ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdEditTask"));
        SetTextOf(kEntry, L"rtfEdit", blank);
        ASSERT_NO_FATAL_FAILURE(SaveEntry());
        EXPECT_EQ(Lines(), std::vector<std::wstring>{L"one"});
    }
    ASSERT_NO_FATAL_FAILURE(Create(std::wstring(70, L' ') + L"late"));
    EXPECT_EQ(Lines().back(), L"late") << "a label is made from the first line that is not blank";
}

TEST_F(Dictation, RefusedSaveIsToldAndTheEditorKeepsItsWork) {
    StartInTeachersList();
    const std::string before = Bytes();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    ASSERT_NO_FATAL_FAILURE(Create(L"new"));
    {
        const HeldFile held(TeachersFile());
        ASSERT_TRUE(held.Held());
        PressButton(L"cmdSaveDictation");
        const auto box = App().WaitForBox();
        ASSERT_TRUE(box) << "a refused save is told";
        EXPECT_TRUE(box->HasStopIcon());
        EXPECT_NE(box->text.find(TeachersFile().wstring()), std::wstring::npos);
        EXPECT_EQ(box->owner, App().Form(kEditor));
        ASSERT_TRUE(box->Answer(IDOK));
        ASSERT_TRUE(App().WaitForFocus(L"cmdSaveDictation"));
    }
    EXPECT_EQ(Bytes(), before);
    EXPECT_EQ(Lines(), (std::vector<std::wstring>{L"apples", L"new"}));
    ASSERT_NO_FATAL_FAILURE(Save());
    std::vector<StoredLesson> lessons = ThreeLessons();
    lessons[1].dictations.push_back(Same("new"));
    EXPECT_EQ(Bytes(), File(lessons));
}

TEST_F(Dictation, FileThatIsGoneIsToldOnSavingAndTheEditorKeepsItsWork) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    fs::remove(TeachersFile());
    PressButton(L"cmdSaveDictation");
    ASSERT_NO_FATAL_FAILURE(ExpectBox(L"File " + TeachersFile().wstring() + L"not found.", kEditor, {IDOK}, IDOK));
    EXPECT_TRUE(App().Form(kEditor));
    EXPECT_EQ(Lines(), std::vector<std::wstring>{L"apples"});
}

TEST_F(Dictation, SavingAndRemovingPushTheFileToTheNetworkFolder) {
    WriteBytes(CommonFolder() / L"KSUserInfo.ini", UserInfoIni(NetworkFolder().string()));
    WriteBytes(NetworkFolder() / L"TeachersDictations.ini", File(ThreeLessons()));
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(2));
    ASSERT_NO_FATAL_FAILURE(Create(L"new"));
    ASSERT_NO_FATAL_FAILURE(Save());
    std::vector<StoredLesson> lessons = ThreeLessons();
    lessons[1].dictations.push_back(Same("new"));
    EXPECT_EQ(ReadBytes(NetworkFolder() / L"TeachersDictations.ini"), File(lessons));
    ASSERT_NO_FATAL_FAILURE(SelectLesson(1));
    Click(kPicker, L"cmdRemoveDictation");
    ASSERT_NO_FATAL_FAILURE(
        ExpectBox(L"Are you sure you want to remove dictation lesson 1?", kPicker, {IDYES, IDNO, IDCANCEL}, IDYES));
    ASSERT_TRUE(WaitForSelectedLesson(L"Lists"));
    EXPECT_EQ(ReadBytes(NetworkFolder() / L"TeachersDictations.ini"), File({lessons[1], lessons[2]}));
}

// ---- what the file will not keep

TEST_F(Dictation, WhatIsTypedBeyondWhatIsReadBackIsToldAtOnce) {
    StartOn({"T", {Same("one")}});
    ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdCreateTask"));
    EXPECT_EQ(Notice(kEntry), L"");
    SetTextOf(kEntry, L"rtfEdit", std::wstring(120, L'x') + L"\r\n" + std::wstring(132, L'x'));
    ASSERT_TRUE(App().Press("Ctrl+End"));
    ASSERT_TRUE(App().Type(L"y"));
    ASSERT_TRUE(WaitUntil([&] { return App().Text(kEntry, L"rtfEdit").ends_with(L"y"); }));
    EXPECT_EQ(Notice(kEntry), L"") << "254 bytes with one for the line break";
    ASSERT_TRUE(App().Type(L"z"));
    EXPECT_TRUE(WaitForNotice(kEntry, L"The dictation is too long: only its first 254 characters are read back."));
    ExpectEverythingReadable(App().Form(kEntry), 96);
    ASSERT_TRUE(App().Press("Backspace"));
    EXPECT_TRUE(WaitForNotice(kEntry, L""));
    SetTextOf(kEntry, L"rtfEdit", L"\u0416");
    ASSERT_TRUE(App().Press("Ctrl+End"));
    ASSERT_TRUE(App().Type(L"a"));
    EXPECT_TRUE(WaitForNotice(kEntry, L"The dictation has characters that the file cannot keep."));
    SetTextOf(kEntry, L"rtfEdit", L"\"quote");
    ASSERT_TRUE(App().Press("Ctrl+End"));
    ASSERT_TRUE(App().Type(L"\""));
    EXPECT_TRUE(WaitForNotice(kEntry, L"The dictation stands in quotation marks, and these are not read back."));
}

TEST_F(Dictation, TextsThatWereCutOnLoadingAreTold) {
    StartOn({std::string(300, 't'), {Same("one"), {"x", std::string(255, 'x')}}});
    EXPECT_TRUE(WaitForNotice(
        kEditor,
        L"The title and the text of dictation 2 were stored too long: only the first 254 characters were read, and no "
        L"more can be saved."));
}

TEST_F(Dictation, TextsThatWereCutAreToldUntilTheyAreChanged) {
    StartOn({"T", {{"x", std::string(255, 'x')}}});
    const std::wstring told =
        L"The text of dictation 1 was stored too long: only the first 254 characters were read, and no more can be "
        L"saved.";
    ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdEditTask"));
    ASSERT_NO_FATAL_FAILURE(SaveEntry());
    EXPECT_TRUE(WaitForNotice(kEditor, told)) << "what was saved is what was shown";
    ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdEditTask"));
    SetTextOf(kEntry, L"rtfEdit", L"short");
    ASSERT_NO_FATAL_FAILURE(SaveEntry());
    EXPECT_TRUE(WaitForNotice(kEditor, L""));
}

TEST_F(Dictation, ManyTextsThatWereCutLeaveRoomForTheListAndTheButtons) {
    StartOn({"T", std::vector<StoredDictation>(90, {"x", std::string(255, 'x')})});
    const std::wstring said = Notice(kEditor);
    EXPECT_TRUE(
        said.starts_with(L"The texts of dictations 1 to 90 were stored too long: only the first 254 characters "
                         L"were read, and no more can be saved."))
        << ToUtf8(said);
    ExpectEverythingReadable(App().Form(kEditor), 96);
    const RECT list = In(kEditor, L"lstTasks").ScreenRect();
    EXPECT_GT(list.bottom - list.top, 300);
}

TEST_F(Dictation, TitleThatIsTooLongIsToldWhileItIsTyped) {
    StartOn({"T", {}});
    Click(kEditor, L"cmdEditDictation");
    ASSERT_TRUE(App().WaitForForm(kDetails));
    ASSERT_TRUE(App().WaitForFocus(L"txtLessonTitle"));
    SetTextOf(kDetails, L"txtLessonTitle", std::wstring(255, L'x'));
    EXPECT_TRUE(WaitForNotice(kDetails, L"The title is too long: only its first 254 characters are read back."));
    ExpectEverythingReadable(App().Form(kDetails), 96);
}

TEST_F(Dictation, A101stDictationStaysAndIsToldBeforeAnythingIsWritten) {
    StartOn({"T", Many(101)});
    const std::string before = Bytes();
    EXPECT_EQ(Lines().size(), 101U);
    const std::wstring said = Notice(kEditor);
    EXPECT_NE(said.find(L"Only the first 100 of these 101 dictations are saved."), std::wstring::npos) << ToUtf8(said);
    EXPECT_EQ(Bytes(), before);
    // A 102nd is not taken, and the entry says so before it is typed.
    ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdCreateTask"));
    EXPECT_TRUE(
        WaitForNotice(kEntry, L"The 100 dictations that are saved are reached: another one would not be kept."));
    ASSERT_TRUE(App().Type(L"never"));
    ASSERT_NO_FATAL_FAILURE(SaveEntry());
    EXPECT_EQ(Lines().size(), 101U);
    // One deleted makes room for the last.
    SelectLine(0);
    Click(kEditor, L"cmdDeleteTask");
    ASSERT_TRUE(WaitUntil([&] { return Lines().size() == 100; }));
    ASSERT_NO_FATAL_FAILURE(Save());
    std::vector<StoredDictation> kept = Many(101);
    kept.erase(kept.begin());
    EXPECT_EQ(Bytes(), File({{"T", kept}}));
}

TEST_F(Dictation, TheHundredthIsFollowedByAWordBeforeOneMoreIsTyped) {
    StartOn({"T", Many(99)});
    const std::wstring reached = L"The 100 dictations that are saved are reached: another one would not be kept.";
    EXPECT_EQ(Notice(kEditor).find(reached), std::wstring::npos);
    ASSERT_NO_FATAL_FAILURE(Create(L"d100"));
    EXPECT_NE(Notice(kEditor).find(reached), std::wstring::npos);
    ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdCreateTask"));
    EXPECT_TRUE(WaitForNotice(kEntry, reached)) << "before one more is typed";
    ASSERT_TRUE(App().Type(L"d101"));
    ASSERT_NO_FATAL_FAILURE(SaveEntry());
    ASSERT_TRUE(WaitUntil([&] { return Lines().size() == 101; }));
    EXPECT_NE(Notice(kEditor).find(L"Only the first 100 of these 101 dictations are saved."), std::wstring::npos);
}

TEST_F(Dictation, LessonWith102DictationsIsRefusedAndStaysAsItIs) {
    WriteTeachers({{"T", Many(102)}});
    StartInTeachersList();
    const std::string before = Bytes();
    Click(kPicker, L"cmdEditDictation");
    ASSERT_NO_FATAL_FAILURE(ExpectBox(L"Subscript out of range", kPicker, {IDOK}, IDOK));
    EXPECT_FALSE(App().Form(kEditor));
    EXPECT_EQ(Bytes(), before);
}

// ---- the text entry

TEST_F(Dictation, PastedBareLineBreaksCountAsCrLf) {
    StartOn({"T", {}});
    ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdCreateTask"));
    ASSERT_TRUE(CopyToClipboard(L"one\rtwo\nthree\r\nfour\tfive"));
    ASSERT_TRUE(App().Press("Ctrl+V"));
    ASSERT_TRUE(WaitUntil([&] { return App().Text(kEntry, L"rtfEdit").ends_with(L"five"); }));
    ASSERT_NO_FATAL_FAILURE(SaveEntry());
    ASSERT_TRUE(WaitUntil([&] { return Lines().size() == 1; }));
    ASSERT_NO_FATAL_FAILURE(Save());
    EXPECT_EQ(BytesWithoutLabelCr(), File({{"T",
                                            {{"one",
                                              "one\x07two\x07three\x07"
                                              "four\x06"
                                              "five"}}}}));
}

TEST_F(Dictation, SoftLineBreakCountsAsCrLf) {
    StartOn({"T", {}});
    ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdCreateTask"));
    ASSERT_TRUE(App().Type(L"one"));
    ASSERT_TRUE(App().Press("Shift+Enter"));
    ASSERT_TRUE(App().Type(L"two"));
    ASSERT_TRUE(WaitUntil([&] { return App().Text(kEntry, L"rtfEdit").ends_with(L"two"); }));
    ASSERT_NO_FATAL_FAILURE(SaveEntry());
    ASSERT_NO_FATAL_FAILURE(Save());
    EXPECT_EQ(BytesWithoutLabelCr(), File({{"T", {{"one", "one\x07two"}}}}));
}

TEST_F(Dictation, FirstLinesOf64To66CharactersGiveTheStatedLabels) {
    StartOn({"T", {}});
    const std::wstring line(64, L'x');
    for (int more = 0; more < 3; ++more)
        ASSERT_NO_FATAL_FAILURE(Create(line + std::wstring(static_cast<std::size_t>(more), L'x') + L"\r\nrest"));
    EXPECT_EQ(Lines(), (std::vector<std::wstring>{line, line + L"x", line + L"x"}));
    ASSERT_NO_FATAL_FAILURE(Save());
    const std::string label(64, 'x');
    EXPECT_EQ(BytesWithoutLabelCr(), File({{"T",
                                            {{label, label + "\x07rest"},
                                             {label + "x", label + "x\x07rest"},
                                             {label + "x", label + "xx\x07rest"}}}}));
}

TEST_F(Dictation, EditingShowsRealTabsAndLineBreaksAndTypingAddsToThem) {
    StartOn({"T", {{"Dear Sir,", "Dear Sir,\x07\x06Thank you."}}});
    ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdEditTask"));
    EXPECT_EQ(App().Text(kEntry, L"rtfEdit"), L"Dear Sir,\r\n\tThank you.");
    EXPECT_EQ(App().RichTextOf(kEntry, L"rtfEdit").Selection(), (std::pair<int, int>{0, 0}))
        << "a key may not replace the whole text";
    ASSERT_TRUE(App().Press("Ctrl+End"));
    ASSERT_TRUE(App().Type(L"!"));
    ASSERT_TRUE(App().WaitForText(kEntry, L"rtfEdit", L"Dear Sir,\r\n\tThank you.!"));
    ASSERT_TRUE(App().Press("Ctrl+A"));
    EXPECT_TRUE(WaitUntil([&] { return App().RichTextOf(kEntry, L"rtfEdit").Selection().second > 20; }));
    EXPECT_TRUE(WaitUntil([&] { return !App().RichTextOf(kEntry, L"rtfEdit").ReadOnly(); }))
        << "locked for a moment only";
    ASSERT_NO_FATAL_FAILURE(SaveEntry());
    ASSERT_NO_FATAL_FAILURE(Save());
    EXPECT_EQ(BytesWithoutLabelCr(), File({{"T", {{"Dear Sir,", "Dear Sir,\x07\x06Thank you.!"}}}}));
}

TEST_F(Dictation, EveryWayOutOfTheTextEntryLeavesTheDictationAsItWas) {
    StartOn({"T", {Same("one")}});
    for (const char* way : {"Esc", "Ctrl+Esc", "Shift+Esc", "Alt+F4", "button"}) {
        ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdEditTask"));
        ASSERT_TRUE(App().Type(L"never"));
        if (std::string_view(way) == "button")
            Click(kEntry, L"CancelButton");
        else
            ASSERT_TRUE(App().Press(way));
        ASSERT_TRUE(App().WaitForNoForm(kEntry)) << way;
        EXPECT_EQ(Lines(), std::vector<std::wstring>{L"one"}) << way;
        EXPECT_TRUE(App().Form(kEditor));
    }
    ASSERT_NO_FATAL_FAILURE(Save());
    EXPECT_EQ(Bytes(), File({{"T", {Same("one")}}}));
}

TEST_F(Dictation, ControlEnterSavesAndEscLeavesFromEveryControl) {
    StartOn({"T", {}});
    for (const wchar_t* control : {L"OKButton", L"CancelButton"}) {
        ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdCreateTask"));
        ASSERT_TRUE(App().Type(L"abc"));
        ASSERT_TRUE(App().Press("Ctrl+Tab"));
        ASSERT_TRUE(App().WaitForFocus(L"OKButton"));
        ASSERT_NO_FATAL_FAILURE(TabTo(control));
        ASSERT_NO_FATAL_FAILURE(SaveEntry());
    }
    EXPECT_TRUE(WaitUntil([&] { return Lines() == std::vector<std::wstring>{L"abc", L"abc"}; }));
    ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdCreateTask"));
    ASSERT_TRUE(App().Type(L"never"));
    ASSERT_TRUE(App().Press("Shift+Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"CancelButton"));
    ASSERT_TRUE(App().Press("Ctrl+Esc"));
    ASSERT_TRUE(App().WaitForNoForm(kEntry));
    EXPECT_EQ(Lines().size(), 2U);
}

// ---- what a screen reader needs

TEST_F(Dictation, AccessibilityWalkOfTheList) {
    StartInTeachersList();
    const Window picker = App().Form(kPicker);
    EXPECT_EQ(Order(picker), (std::vector<std::wstring>{L"h:Dictations", L"tvTasks", L"lblNotice", L"OKButton",
                                                        L"cmdAddDictation", L"cmdEditDictation", L"cmdRemoveDictation",
                                                        L"CancelButton", L"cmdAccessibility"}));
    CheckSpokenNames(picker, {{L"tvTasks", L"Dictations"}});
    ExpectOneDefaultButton(picker);
    ExpectTabOrder(
        {L"tvTasks", L"OKButton", L"cmdAddDictation", L"cmdEditDictation", L"cmdRemoveDictation", L"CancelButton"});
    CheckDialogPlace(picker, 96);
    CheckPickerLayout(picker, 96);
    ExpectEverythingReadable(picker, 96);
}

TEST_F(Dictation, AccessibilityWalkOfTheEditor) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    const Window editor = App().Form(kEditor);
    EXPECT_EQ(Order(editor),
              (std::vector<std::wstring>{L"lblDictationTitle", L"lblListTasks", L"lstTasks", L"lblNotice",
                                         L"cmdCreateTask", L"cmdEditTask", L"cmdDeleteTask", L"cmdEditDictation",
                                         L"cmdSaveDictation", L"CancelButton"}));
    CheckSpokenNames(editor, {{L"lstTasks", L"Tasks for this Dictation"}});
    ExpectOneDefaultButton(editor, L"cmdSaveDictation");
    EXPECT_EQ(In(kEditor, L"cmdSaveDictation").Text(), L"OK / Save Dictation");
    ExpectTabOrder({L"lstTasks", L"cmdCreateTask", L"cmdEditTask", L"cmdDeleteTask", L"cmdEditDictation",
                    L"cmdSaveDictation", L"CancelButton"});
    CheckDialogPlace(editor, 96);
    ExpectEverythingReadable(editor, 96);
}

TEST_F(Dictation, AccessibilityWalkOfTheTitleAndTheTextEntry) {
    StartInTeachersList();
    ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
    Click(kEditor, L"cmdEditDictation");
    ASSERT_TRUE(App().WaitForForm(kDetails));
    ASSERT_TRUE(App().WaitForFocus(L"txtLessonTitle"));
    const Window details = App().Form(kDetails);
    EXPECT_EQ(Order(details), (std::vector<std::wstring>{L"lblTitle", L"h:Title", L"txtLessonTitle", L"lblNotice",
                                                         L"OKButton", L"CancelButton"}));
    CheckSpokenNames(details, {{L"txtLessonTitle", L"Title"}});
    ExpectOneDefaultButton(details);
    ExpectTabOrder({L"txtLessonTitle", L"OKButton", L"CancelButton"});
    CheckDialogPlace(details, 96);
    ExpectEverythingReadable(details, 96);
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(App().WaitForNoForm(kDetails));

    ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdCreateTask"));
    const Window entry = App().Form(kEntry);
    EXPECT_EQ(Order(entry), (std::vector<std::wstring>{L"lblInstructions", L"h:Dictation text", L"rtfEdit",
                                                       L"lblNotice", L"OKButton", L"CancelButton"}));
    CheckSpokenNames(entry, {{L"rtfEdit", L"Dictation text"}});
    EXPECT_EQ(App().Text(kEntry, L"lblInstructions"),
              L"1. Type or paste your dictation.\r\n2. You can use the TAB and ENTER keys in your dictation.\r\n"
              L"3. To Save your dictation, press CONTROL + ENTER.\r\n4. To Cancel, press ESCAPE.");
    ExpectOneDefaultButton(entry);
    CheckDialogPlace(entry, 96);
    ExpectEverythingReadable(entry, 96);
}

TEST_F(Dictation, WindowsKeepTheirPlaceAtTwiceTheResolutionAndShowAllOnANarrowScreen) {
    for (const int dpi : {192, kNarrowDpi}) {
        const DisplayResolution resolution(static_cast<DWORD>(dpi));
        const auto check = [&](const wchar_t* form) {
            CheckDialogPlace(App().Form(form), dpi);
            CheckNothingOverlaps(App().Form(form));
            CheckNothingClipped(App().Form(form), 16, dpi);
            if (dpi == kNarrowDpi) CheckEverythingInside(App().Form(form));
        };
        WriteTeachers({{"A longer title", std::vector<StoredDictation>(90, {"x", std::string(255, 'x')})}});
        StartInTeachersList();
        CheckPickerLayout(App().Form(kPicker), dpi);
        check(kPicker);
        ASSERT_NO_FATAL_FAILURE(OpenLesson(1));
        EXPECT_NE(Notice(kEditor), L"");
        check(kEditor);
        Click(kEditor, L"cmdEditDictation");
        ASSERT_TRUE(App().WaitForForm(kDetails));
        ASSERT_TRUE(App().WaitForFocus(L"txtLessonTitle"));
        check(kDetails);
        ASSERT_TRUE(App().Press("Esc"));
        ASSERT_TRUE(App().WaitForNoForm(kDetails));
        ASSERT_NO_FATAL_FAILURE(OpenEntry(L"cmdEditTask"));
        check(kEntry);
        for (const wchar_t* form : {kEntry, kEditor, kPicker}) {
            ASSERT_TRUE(App().Press("Esc"));
            ASSERT_TRUE(App().WaitForNoForm(form));
        }
        Leave();
    }
}

}  // namespace
}  // namespace e2e
