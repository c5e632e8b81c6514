// From F6 to a quiz request: subjects, topics, quizzes, and the catalogues that nobody should have.
#include <functional>

#include "fixture.h"

namespace e2e {
namespace {

namespace fs = std::filesystem;

constexpr wchar_t kSubjects[] = L"dlgAcademics";
constexpr wchar_t kQuizzes[] = L"dlgQuizzes";

TreeNode Leaf(const wchar_t* text) { return {.text = text, .selected = false, .expanded = false, .children = {}}; }

class Academics : public KeystrideTest {
protected:
    static fs::path QuizFolder() { return CommonFolder() / L"QuizzesKS"; }
    static void WriteCatalogue(const std::string& bytes) { WriteBytes(QuizFolder() / L"KSQuizzes.ini", bytes); }
    /// A catalogue of one section with one topic.
    static std::string OneTopic(const std::string& topic, const std::string& file) {
        return "[Academics]\r\nNbrOfSections=1\r\n[SECTION_01]\r\nSECTION_NAME=A\r\nNbrOfTopics=1\r\nTOPIC_NAME_01=" +
               topic + "\r\nFILE_NAME_01=" + file + "\r\n";
    }

    Window OpenSubjects() { return OpenForm("F6", kSubjects, L"tvAcademics"); }
    Tree Subjects() { return App().TreeOf(kSubjects, L"tvAcademics"); }
    bool WaitForSubject(std::wstring_view text) {
        return WaitUntil([&] { return Subjects().SelectedText() == text; });
    }
    /// Opens the first section and selects one of its topics with the arrow keys.
    void WalkToTopic(int topic, std::wstring_view text) {
        ASSERT_TRUE(App().Press("Right"));
        for (int step = 0; step < topic; ++step) ASSERT_TRUE(App().Press("Down"));
        ASSERT_TRUE(WaitForSubject(text)) << Readable(Subjects().SelectedText());
    }
    void RunIt(std::wstring_view request) {
        ASSERT_TRUE(App().Press("Enter"));
        ASSERT_TRUE(App().WaitForRequest(request)) << Readable(App().Request());
        ASSERT_TRUE(App().WaitForNoForm(kSubjects));
    }
    void RunItToQuizzes(std::wstring_view request) {
        ASSERT_NO_FATAL_FAILURE(RunIt(request));
        ASSERT_TRUE(App().WaitForForm(kQuizzes));
        ASSERT_TRUE(App().WaitForFocus(L"lstQuizzes"));
    }
    ListContent Quizzes() { return ReadList(App().Control(kQuizzes, L"lstQuizzes")); }
};

TEST_F(Academics, ALearnerChoosesATopicAQuizAndAMode) {
    StartUnsigned();
    ASSERT_TRUE(App().Type(L"typed before"));
    const Window subjects = OpenSubjects();
    EXPECT_EQ(subjects.Text(), L"Pick an Academic Subject");
    EXPECT_EQ(subjects.Descendant(L"OKButton").Text(), L"Run It");
    EXPECT_EQ(Subjects().Roots(),
              (std::vector<TreeNode>{{L"Geography", true, false, {Leaf(L"Capitals"), Leaf(L"Rivers")}},
                                     {L"Math", false, false, {Leaf(L"Fractions")}}}));
    ASSERT_NO_FATAL_FAILURE(WalkToTopic(2, L"Rivers"));
    ASSERT_NO_FATAL_FAILURE(RunItToQuizzes(L"ACAP\x05SECTION_01\x05TOPIC_NAME_02"));
    const Window quizzes = App().Form(kQuizzes);
    EXPECT_EQ(quizzes.Text(), L"Pick a Quiz");
    EXPECT_EQ(quizzes.Owner(), App().Form(L"frmMain"));
    EXPECT_EQ(Quizzes().lines, (std::vector<std::wstring>{L"Long ones", L"not found", L"Wide ones"}));
    EXPECT_EQ(Quizzes().selected, 0);
    ASSERT_TRUE(App().Press("End"));
    ASSERT_TRUE(WaitUntil([&] { return Quizzes().selected == 2; }));
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"optionGiveHelp"));
    ASSERT_TRUE(App().Press("Down"));
    ASSERT_TRUE(App().WaitForFocus(L"optionGradeOnly"));
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(
        App().WaitForRequest(L"ACAP\x05"
                             L"2\x05SECTION_01\x05TOPIC_NAME_02\x05"
                             L"3"))
        << Readable(App().Request());
    ASSERT_TRUE(App().WaitForNoForm(kQuizzes));
    EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
    EXPECT_EQ(App().Text(L"frmMain", L"rtfEdit"), L"typed before");
}

TEST_F(Academics, TheButtonOpensTheSameList) {
    StartUnsigned();
    ASSERT_TRUE(App().Control(L"frmMain", L"cmdF6").Click());
    ASSERT_TRUE(App().WaitForForm(kSubjects));
    EXPECT_TRUE(App().WaitForFocus(L"tvAcademics"));
}

TEST_F(Academics, TeachersModeChangesNothing) {
    StartUnsigned();
    ASSERT_TRUE(App().Press("F11"));
    EXPECT_EQ(OpenSubjects().Text(), L"Pick an Academic Subject");
    ASSERT_NO_FATAL_FAILURE(CloseForm(kSubjects));
    EXPECT_EQ(App().Request(), L"ACAP\x05\x04");
}

TEST_F(Academics, ASectionMeansItsFirstTopicAndPracticeIsTheDefault) {
    StartUnsigned();
    ASSERT_TRUE(OpenSubjects());
    ASSERT_TRUE(WaitForSubject(L"Geography"));
    ASSERT_NO_FATAL_FAILURE(RunItToQuizzes(L"ACAP\x05SECTION_01"));
    EXPECT_EQ(Quizzes().lines, (std::vector<std::wstring>{L"Europe", L"Asia"}));
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(
        App().WaitForRequest(L"ACAP\x05"
                             L"1\x05SECTION_01\x05TOPIC_NAME_01\x05"
                             L"1"))
        << Readable(App().Request());
}

TEST_F(Academics, ATopicWithoutQuizzesSaysSo) {
    StartUnsigned();
    ASSERT_TRUE(OpenSubjects());
    ASSERT_TRUE(App().Press("Down"));
    ASSERT_TRUE(WaitForSubject(L"Math"));
    ASSERT_NO_FATAL_FAILURE(RunItToQuizzes(L"ACAP\x05SECTION_02"));
    EXPECT_TRUE(Quizzes().lines.empty());
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_NO_FATAL_FAILURE(ExpectMessage(kQuizzes, L"There are no quizzes to select"));
    EXPECT_TRUE(App().WaitForFocus(L"lstQuizzes"));
    EXPECT_EQ(App().Request(), L"ACAP\x05SECTION_02");
    ASSERT_NO_FATAL_FAILURE(CloseForm(kQuizzes));
    EXPECT_EQ(App().Request(), L"ACAP\x05\x04");
}

TEST_F(Academics, NothingSelectedInTheListRequestsTheFirstQuiz) {
    StartUnsigned();
    ASSERT_TRUE(OpenSubjects());
    ASSERT_NO_FATAL_FAILURE(RunItToQuizzes(L"ACAP\x05SECTION_01"));
    App().Control(kQuizzes, L"lstQuizzes").Send(LB_SETCURSEL, static_cast<WPARAM>(-1));
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(
        App().WaitForRequest(L"ACAP\x05"
                             L"1\x05SECTION_01\x05TOPIC_NAME_01\x05"
                             L"1"));
}

TEST_F(Academics, NothingSelectedInTheTreeIsTold) {
    StartUnsigned();
    ASSERT_TRUE(OpenSubjects());
    Subjects().SelectNothing();
    ASSERT_TRUE(App().Control(kSubjects, L"OKButton").Click());
    ASSERT_NO_FATAL_FAILURE(ExpectMessage(kSubjects, L"Select an academic section or topic first"));
}

TEST_F(Academics, AnEmptyCatalogueIsTold) {
    WriteCatalogue("[Academics]\r\nNbrOfSections=0\r\n");
    StartUnsigned();
    ASSERT_TRUE(OpenSubjects());
    EXPECT_EQ(Subjects().Count(), 0);
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_NO_FATAL_FAILURE(ExpectMessage(kSubjects, L"There are no academics sections or topics to select"));
    EXPECT_TRUE(App().WaitForFocus(L"tvAcademics"));
}

TEST_F(Academics, EveryWayOutOfThePickersIsACancel) {
    StartUnsigned();
    const std::vector<std::function<void(const wchar_t*)>> ways{
        [&](const wchar_t*) { EXPECT_TRUE(App().Press("Esc")); },
        [&](const wchar_t*) { EXPECT_TRUE(App().Press("Alt+F4")); },
        [&](const wchar_t* form) { EXPECT_TRUE(App().Form(form).Post(WM_CLOSE)); },
        [&](const wchar_t* form) { EXPECT_TRUE(App().Control(form, L"CancelButton").Click()); },
    };
    for (std::size_t way = 0; way < ways.size(); ++way) {
        ASSERT_TRUE(OpenSubjects());
        ways[way](kSubjects);
        ASSERT_TRUE(App().WaitForNoForm(kSubjects)) << "way " << way;
        EXPECT_TRUE(App().WaitForRequest(L"ACAP\x05\x04")) << "way " << way;
        EXPECT_TRUE(App().WaitForFocus(L"rtfEdit")) << "way " << way;
        EXPECT_EQ(OpenWindows(), std::vector<std::wstring>{L"frmMain"}) << "no quizzes follow, way " << way;

        ASSERT_TRUE(OpenSubjects());
        ASSERT_NO_FATAL_FAILURE(RunItToQuizzes(L"ACAP\x05SECTION_01"));
        ways[way](kQuizzes);
        ASSERT_TRUE(App().WaitForNoForm(kQuizzes)) << "way " << way;
        EXPECT_TRUE(App().WaitForRequest(L"ACAP\x05\x04")) << "way " << way;
        EXPECT_TRUE(App().WaitForFocus(L"rtfEdit")) << "way " << way;
    }
}

TEST_F(Academics, MissingFilesAreReported) {
    fs::remove(QuizFolder() / L"Capitals.ini");
    StartUnsigned();
    ASSERT_TRUE(OpenSubjects());
    ASSERT_NO_FATAL_FAILURE(RunIt(L"ACAP\x05SECTION_01"));
    ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(L"File " + (QuizFolder() / L"Capitals.ini").wstring() + L"not found."));
    fs::remove(QuizFolder() / L"KSQuizzes.ini");
    ASSERT_TRUE(App().Press("F6"));
    ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(L"File " + (QuizFolder() / L"KSQuizzes.ini").wstring() + L"not found."));
    EXPECT_EQ(App().Request(), L"ACAP\x05SECTION_01");
}

TEST_F(Academics, ATopicWithoutAFileNameLooksForNotFound) {
    WriteCatalogue("[Academics]\r\nNbrOfSections=1\r\n[SECTION_01]\r\n");
    StartUnsigned();
    ASSERT_TRUE(OpenSubjects());
    EXPECT_EQ(Subjects().RootTexts(), std::vector<std::wstring>{L"not found"});
    ASSERT_NO_FATAL_FAILURE(RunIt(L"ACAP\x05SECTION_01"));
    ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(L"File " + QuizFolder().wstring() + L"\\not foundnot found."));
}

TEST_F(Academics, AQuizFileOutsideTheQuizFolderIsReportedLikeAMissingOne) {
    WriteBytes(CommonFolder() / L"outside.ini", "[T]\r\nNbrOfQuizzes=1\r\n[T01]\r\nDefTitle=Never shown\r\n");
    StartUnsigned();
    const std::string outside = (CommonFolder() / L"outside.ini").string();
    for (const std::string& file : {std::string("..\\outside.ini"), std::string("Water\\..\\..\\outside.ini"), outside,
                                    outside.substr(2), std::string("../outside.ini")}) {
        WriteCatalogue(OneTopic("T", file));
        ASSERT_TRUE(OpenSubjects());
        ASSERT_NO_FATAL_FAILURE(RunIt(L"ACAP\x05SECTION_01"));
        ASSERT_NO_FATAL_FAILURE(
            ExpectErrorBox(L"File " + QuizFolder().wstring() + L"\\" + ToWide(file) + L"not found."));
    }
}

TEST_F(Academics, ASectionWithoutATopicCountHasItsPredecessors) {
    WriteCatalogue(
        "[Academics]\r\nNbrOfSections=2\r\n[SECTION_01]\r\nSECTION_NAME=A\r\nNbrOfTopics=3\r\n"
        "TOPIC_NAME_01=x\r\nTOPIC_NAME_02=y\r\nTOPIC_NAME_03=z\r\n[SECTION_02]\r\nSECTION_NAME=B\r\n"
        "TOPIC_NAME_02=second\r\n");
    StartUnsigned();
    ASSERT_TRUE(OpenSubjects());
    const std::vector<TreeNode> roots = Subjects().Roots();
    ASSERT_EQ(roots.size(), 2U);
    EXPECT_EQ(roots[1].children, (std::vector<TreeNode>{Leaf(L"not found"), Leaf(L"second"), Leaf(L"not found")}));
}

TEST_F(Academics, CountsThatNoLoopCanEndAtOverflow) {
    StartUnsigned();
    for (const char* count : {"32767", "32768", "99999999999"}) {
        WriteCatalogue("[Academics]\r\nNbrOfSections=" + std::string(count) + "\r\n");
        ASSERT_TRUE(App().Press("F6"));
        ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(L"Overflow")) << count;
        WriteCatalogue(OneTopic("T", "T.ini"));
        WriteBytes(QuizFolder() / L"T.ini", "[T]\r\nNbrOfQuizzes=" + std::string(count) + "\r\n");
        ASSERT_TRUE(OpenSubjects());
        ASSERT_NO_FATAL_FAILURE(RunIt(L"ACAP\x05SECTION_01"));
        ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(L"Overflow")) << count;
    }
}

TEST_F(Academics, CountsFarBeyondWhatIsThereShowNotFound) {
    WriteCatalogue(
        "[Academics]\r\nNbrOfSections=100\r\n[SECTION_01]\r\nNbrOfTopics=20\r\n[SECTION_100]\r\n"
        "SECTION_NAME=Last\r\nTOPIC_NAME_20=Last topic\r\nFILE_NAME_20=Last.ini\r\n");
    std::string quizzes = "[Last topic]\r\nNbrOfQuizzes=120\r\n[Last topic120]\r\nDefTitle=The end\r\n";
    WriteBytes(QuizFolder() / L"Last.ini", quizzes);
    StartUnsigned();
    ASSERT_TRUE(OpenSubjects());
    EXPECT_EQ(Subjects().Count(), 100 + 100 * 20);
    ASSERT_TRUE(App().Press("End"));
    ASSERT_TRUE(WaitForSubject(L"Last"));
    ASSERT_TRUE(App().Press("Right"));
    ASSERT_TRUE(App().Press("End"));
    ASSERT_TRUE(WaitForSubject(L"Last topic"));
    ASSERT_NO_FATAL_FAILURE(RunItToQuizzes(L"ACAP\x05SECTION_100\x05TOPIC_NAME_20"));
    ASSERT_EQ(Quizzes().lines.size(), 120U);
    EXPECT_EQ(Quizzes().lines[0], L"not found");
    EXPECT_EQ(Quizzes().lines[119], L"The end");
    ASSERT_TRUE(App().Press("End"));
    ASSERT_TRUE(WaitUntil([&] { return Quizzes().selected == 119; }));
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(
        App().WaitForRequest(L"ACAP\x05"
                             L"1\x05SECTION_100\x05TOPIC_NAME_20\x05"
                             L"120"));
}

TEST_F(Academics, TheLargestCatalogueThatCanBeListedOpens) {
    WriteCatalogue("[Academics]\r\nNbrOfSections=655\r\n[SECTION_01]\r\nNbrOfTopics=99\r\n");
    StartUnsigned();
    ASSERT_TRUE(OpenSubjects());
    EXPECT_EQ(Subjects().Count(), 655 + 655 * 99);
    ASSERT_NO_FATAL_FAILURE(CloseForm(kSubjects));
    WriteCatalogue("[Academics]\r\nNbrOfSections=32766\r\n[SECTION_01]\r\nNbrOfTopics=32766\r\n");
    ASSERT_TRUE(App().Press("F6"));
    ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(L"Subscript out of range"));
}

TEST_F(Academics, TopicsNamedLikeOtherSectionsAndWithOddCharacters) {
    WriteCatalogue(OneTopic("Academics", "KSQuizzes.ini") + "[Academics01]\r\nDefTitle=Never counted\r\n");
    StartUnsigned();
    ASSERT_TRUE(OpenSubjects());
    ASSERT_NO_FATAL_FAILURE(RunItToQuizzes(L"ACAP\x05SECTION_01"));
    EXPECT_TRUE(Quizzes().lines.empty()) << "section Academics has no quizzes";
    ASSERT_NO_FATAL_FAILURE(CloseForm(kQuizzes));

    WriteCatalogue(OneTopic("a\x05TOPIC_NAME_09\x04 & b", "odd.ini"));
    WriteBytes(QuizFolder() / L"odd.ini",
               "[a\x05TOPIC_NAME_09\x04 & b]\r\nNbrOfQuizzes=1\r\n[a\x05TOPIC_NAME_09\x04 & b01]\r\nDefTitle=Odd\r\n");
    ASSERT_TRUE(OpenSubjects());
    ASSERT_NO_FATAL_FAILURE(WalkToTopic(1, L"a\x05TOPIC_NAME_09\x04 & b"));
    ASSERT_NO_FATAL_FAILURE(RunItToQuizzes(L"ACAP\x05SECTION_01\x05TOPIC_NAME_01"));
    EXPECT_EQ(Quizzes().lines, std::vector<std::wstring>{L"Odd"});
}

TEST_F(Academics, NothingIsWrittenAnywhere) {
    StartUnsigned();
    const auto before = Snapshot(CommonFolder());
    const auto userBefore = Snapshot(UserFolder());
    ASSERT_TRUE(OpenSubjects());
    ASSERT_NO_FATAL_FAILURE(RunItToQuizzes(L"ACAP\x05SECTION_01"));
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(App().WaitForNoForm(kQuizzes));
    EXPECT_EQ(Snapshot(CommonFolder()), before);
    EXPECT_EQ(Snapshot(UserFolder()), userBefore);
}

}  // namespace
}  // namespace e2e
