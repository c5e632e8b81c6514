// The academics catalogue: counts, texts that are missing, quiz files and where they may lie, the tree, the selection.
#include "academics/modAcademics.h"

#include <initializer_list>
#include <string>
#include <vector>

#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "unit/fixture.h"
#include "unit/test_forms.h"
#include "win32/text.h"

namespace unit {
namespace {

namespace fs = std::filesystem;
using namespace modGlobals;
using namespace modAcademics;
using Texts = std::vector<std::wstring>;

class AcademicsTest : public FolderTest {
protected:
    std::int16_t Load(const std::string& bytes) { return LoadAcademics(NewFile(bytes), sections_, counts_, topics_); }
    void ExpectError(const std::string& bytes, std::int32_t number) {
        const win32::AppError error = RaisedBy([&] { Load(bytes); });
        EXPECT_EQ(error.Number(), number) << bytes;
    }
    static void ExpectNotFound(const win32::AppError& error, const std::wstring& path) {
        EXPECT_EQ(error.Number(), modUtils::kFileNotFoundNumber);
        EXPECT_EQ(error.Source(), L"LoadAcademics");
        EXPECT_EQ(error.Description(), L"File " + path + L"not found.");
    }

    Texts sections_{L"stale"};
    std::vector<std::int16_t> counts_{7};
    TopicTable topics_{{L"stale"}};
};

TEST_F(AcademicsTest, ReadsSectionsCountsAndTopicsInFileOrder) {
    EXPECT_EQ(Load("[Academics]\r\nNbrOfSections=2\r\n[SECTION_02]\r\nSECTION_NAME=Math\r\nNbrOfTopics=1\r\n"
                   "TOPIC_NAME_01=Fractions\r\n[SECTION_01]\r\nSECTION_NAME=\"  Geography \"\r\nNbrOfTopics=2\r\n"
                   "TOPIC_NAME_02=Rivers\r\nTOPIC_NAME_01=Capitals\r\n"),
              2);
    EXPECT_EQ(sections_, (Texts{L"Geography", L"Math"}));
    EXPECT_EQ(counts_, (std::vector<std::int16_t>{2, 1}));
    EXPECT_EQ(topics_, (TopicTable{{L"Capitals", L"Rivers"}, {L"Fractions"}}));
}

TEST_F(AcademicsTest, NoSectionsGiveAnEmptyCatalogue) {
    for (const char* count :
         {"NbrOfSections=0\r\n", "", "NbrOfSections=\r\n", "NbrOfSections=many\r\n", "NbrOfSections=-3\r\n"}) {
        EXPECT_EQ(Load(std::string("[Academics]\r\n") + count + "[SECTION_01]\r\nSECTION_NAME=A\r\n"), 0) << count;
        EXPECT_TRUE(sections_.empty() && counts_.empty() && topics_.empty()) << count;
    }
}

TEST_F(AcademicsTest, ASectionWithoutATopicCountHasItsPredecessors) {
    EXPECT_EQ(Load("[Academics]\r\nNbrOfSections=4\r\n[SECTION_01]\r\nSECTION_NAME=A\r\nNbrOfTopics=3\r\n"
                   "[SECTION_02]\r\nSECTION_NAME=B\r\nTOPIC_NAME_02=b two\r\n[SECTION_03]\r\nSECTION_NAME=C\r\n"
                   "[SECTION_04]\r\nSECTION_NAME=D\r\nNbrOfTopics=0\r\n"),
              4);
    EXPECT_EQ(counts_, (std::vector<std::int16_t>{3, 3, 3, 0}));
    const std::wstring missing = L"not found";
    EXPECT_EQ(topics_,
              (TopicTable{{missing, missing, missing}, {missing, L"b two", missing}, {missing, missing, missing}, {}}));
}

TEST_F(AcademicsTest, TheFirstSectionWithoutATopicCountHasNone) {
    EXPECT_EQ(Load("[Academics]\r\nNbrOfSections=2\r\n[SECTION_01]\r\nSECTION_NAME=A\r\nTOPIC_NAME_01=a\r\n"), 2);
    EXPECT_EQ(counts_, (std::vector<std::int16_t>{0, 0}));
    EXPECT_EQ(sections_, (Texts{L"A", L"not found"})) << "a section that is not there";
}

TEST_F(AcademicsTest, AnEmptyTopicCountIsInheritedButOneThatIsNoNumberIs0) {
    Load(
        "[Academics]\r\nNbrOfSections=3\r\n[SECTION_01]\r\nNbrOfTopics=2\r\n[SECTION_02]\r\nNbrOfTopics=\r\n"
        "[SECTION_03]\r\nNbrOfTopics=few\r\n");
    EXPECT_EQ(counts_, (std::vector<std::int16_t>{2, 2, 0}));
}

TEST_F(AcademicsTest, ACountBelow0Is0AndIsInheritedAs0) {
    Load("[Academics]\r\nNbrOfSections=2\r\n[SECTION_01]\r\nNbrOfTopics=-2\r\n");
    EXPECT_EQ(counts_, (std::vector<std::int16_t>{0, 0}));
}

TEST_F(AcademicsTest, Section100HasThreeDigits) {
    EXPECT_EQ(SectionKey(100), L"SECTION_100");
    EXPECT_EQ(SectionKey(7), L"SECTION_07");
    EXPECT_EQ(TopicKey(7), L"TOPIC_NAME_07");
    EXPECT_EQ(TopicKey(100), L"TOPIC_NAME_100");
    EXPECT_EQ(Load("[Academics]\r\nNbrOfSections=100\r\n[SECTION_100]\r\nSECTION_NAME=Last\r\n"), 100);
    EXPECT_EQ(sections_[99], L"Last");
    EXPECT_EQ(sections_[98], L"not found");
}

TEST_F(AcademicsTest, CountsBeyondTheLoopsNumbersOverflow) {
    for (const char* count : {"32767", "32768", "40000", "99999999999"}) {
        ExpectError(std::string("[Academics]\r\nNbrOfSections=") + count + "\r\n", win32::kOverflowNumber);
        ExpectError(std::string("[Academics]\r\nNbrOfSections=1\r\n[SECTION_01]\r\nNbrOfTopics=") + count + "\r\n",
                    win32::kOverflowNumber);
    }
}

TEST_F(AcademicsTest, CountsBeyondWhatIsThereGiveNotFoundTexts) {
    EXPECT_EQ(Load("[Academics]\r\nNbrOfSections=300\r\n[SECTION_01]\r\nSECTION_NAME=A\r\nNbrOfTopics=150\r\n"), 300);
    EXPECT_EQ(counts_.back(), 150);
    EXPECT_EQ(topics_.back().back(), L"not found");
}

TEST_F(AcademicsTest, MoreSectionsAndTopicsThanATreeShowsAreError9) {
    ExpectError("[Academics]\r\nNbrOfSections=32766\r\n[SECTION_01]\r\nNbrOfTopics=32766\r\n", win32::kSubscriptNumber);
    constexpr char kTwoFullSections[] = "[SECTION_01]\r\nNbrOfTopics=32766\r\n[SECTION_03]\r\nNbrOfTopics=0\r\n";
    EXPECT_EQ(Load(std::string("[Academics]\r\nNbrOfSections=3\r\n") + kTwoFullSections), 3);
    ExpectError(std::string("[Academics]\r\nNbrOfSections=4\r\n") + kTwoFullSections, win32::kSubscriptNumber);
}

TEST_F(AcademicsTest, OneSectionsTopicsAreReadIntoItsRow) {
    const std::wstring file = NewFile("[SECTION_03]\r\nNbrOfTopics=1\r\nTOPIC_NAME_01=c\r\n");
    TopicTable topics{{L"kept"}};
    EXPECT_EQ(LoadAcademicTopics(file, 3, topics), 1);
    EXPECT_EQ(topics, (TopicTable{{L"kept"}, {}, {L"c"}}));
    EXPECT_EQ(LoadAcademicTopics(file, 1, topics), 0) << "a section that is not there";
    EXPECT_EQ(topics[0], Texts{});
    EXPECT_EQ(LoadAcademicTopics(file, 2, topics, 2), 2);
    EXPECT_EQ(topics[1], (Texts{L"not found", L"not found"}));
}

TEST_F(AcademicsTest, ATopicNamedMathWith12QuizzesHasSectionsMath01ToMath12) {
    std::string bytes = "[Math]\r\nNbrOfQuizzes=12\r\n";
    Texts expected;
    for (std::int16_t quiz = 1; quiz <= 12; ++quiz) {
        const std::wstring section = QuizSectionName(L"Math", quiz);
        bytes += "[" + win32::ToAnsi(section) + "]\r\nDefTitle= Quiz " + std::to_string(quiz) + " \r\n";
        expected.push_back(L"Quiz " + std::to_wstring(quiz));
    }
    EXPECT_EQ(QuizSectionName(L"Math", 1), L"Math01");
    EXPECT_EQ(QuizSectionName(L"Math", 12), L"Math12");
    Texts titles{L"stale"};
    EXPECT_EQ(LoadQuizTitles(NewFile(bytes), L"Math", titles), 12);
    EXPECT_EQ(titles, expected);
}

TEST_F(AcademicsTest, AQuizWithoutATitleIsNotFoundAndATopicWithoutACountIsEmpty) {
    Texts titles;
    EXPECT_EQ(LoadQuizTitles(NewFile("[Math]\r\nNbrOfQuizzes=2\r\n[Math02]\r\nDefTitle=Two\r\n"), L"Math", titles), 2);
    EXPECT_EQ(titles, (Texts{L"not found", L"Two"}));
    EXPECT_EQ(LoadQuizTitles(NewFile("[Math01]\r\nDefTitle=One\r\n"), L"Math", titles), 0);
    EXPECT_TRUE(titles.empty());
}

TEST_F(AcademicsTest, TopicNamesMayBeSectionNamesOfOtherThings) {
    const std::wstring file = NewFile(
        "[Academics]\r\nNbrOfSections=1\r\nNbrOfQuizzes=1\r\n[Academics01]\r\nDefTitle=a quiz\r\n"
        "[SECTION_]\r\nNbrOfQuizzes=1\r\n[SECTION_01]\r\nSECTION_NAME=A\r\nNbrOfTopics=2\r\n"
        "TOPIC_NAME_01=Academics\r\nTOPIC_NAME_02=SECTION_\r\nDefTitle=another\r\n");
    EXPECT_EQ(LoadAcademics(file, sections_, counts_, topics_), 1);
    EXPECT_EQ(topics_, (TopicTable{{L"Academics", L"SECTION_"}}));
    Texts titles;
    EXPECT_EQ(LoadQuizTitles(file, L"Academics", titles), 1);
    EXPECT_EQ(titles, Texts{L"a quiz"});
    EXPECT_EQ(LoadQuizTitles(file, L"SECTION_", titles), 1);
    EXPECT_EQ(titles, Texts{L"another"});
    EXPECT_EQ(LoadQuizTitles(file, L"", titles), 0);
}

TEST_F(AcademicsTest, QuizCountsBeyondTheLoopsNumbersOverflow) {
    Texts titles;
    for (const char* count : {"32767", "32768"}) {
        const std::wstring file = NewFile(std::string("[M]\r\nNbrOfQuizzes=") + count + "\r\n");
        EXPECT_EQ(RaisedBy([&] { LoadQuizTitles(file, L"M", titles); }).Number(), win32::kOverflowNumber) << count;
    }
    EXPECT_EQ(LoadQuizTitles(NewFile("[M]\r\nNbrOfQuizzes=-1\r\n"), L"M", titles), 0);
}

TEST_F(AcademicsTest, ATextOf300CharactersIsReadAsItsFirst254) {
    Load("[Academics]\r\nNbrOfSections=1\r\n[SECTION_01]\r\nSECTION_NAME=" + std::string(300, 'n') + "\r\n");
    EXPECT_EQ(sections_[0], std::wstring(254, L'n'));
}

TEST_F(AcademicsTest, EveryReaderReportsAMissingFileAsLoadAcademics) {
    const std::wstring file = NewName();
    Texts titles;
    ExpectNotFound(RaisedBy([&] { LoadAcademics(file, sections_, counts_, topics_); }), file);
    ExpectNotFound(RaisedBy([&] { LoadAcademicTopics(file, 1, topics_); }), file);
    ExpectNotFound(RaisedBy([&] { LoadQuizTitles(file, L"Math", titles); }), file);
    ExpectNotFound(RaisedBy([&] { GetQuizFileName(file, L"SECTION_01", L"FILE_NAME_01"); }), file);
    ExpectNotFound(RaisedBy([&] { GetTopicName(file, L"SECTION_01", L"TOPIC_NAME_01"); }), file);
    ExpectNotFound(RaisedBy([&] { LoadQuizTitles(Folder().wstring(), L"Math", titles); }), Folder().wstring());
}

TEST_F(AcademicsTest, AFileThatCannotBeReadIsNotTakenForEmpty) {
    const std::wstring file = NewFile("[Academics]\r\nNbrOfSections=1\r\n");
    const HeldFile held(file, false);
    ASSERT_TRUE(held.Held());
    Texts titles;
    ExpectUnreadable(file, L"LoadAcademics", [&] { LoadAcademics(file, sections_, counts_, topics_); });
    ExpectUnreadable(file, L"LoadAcademics", [&] { LoadQuizTitles(file, L"Math", titles); });
    ExpectUnreadable(file, L"LoadAcademics", [&] { GetQuizFileName(file, L"SECTION_01", L"FILE_NAME_01"); });
}

TEST_F(AcademicsTest, AQuizFileLiesInTheQuizFolderOrBelowIt) {
    for (const wchar_t* text : {L"Capitals.ini", L"Europe\\Capitals.ini", L"a/b/c.ini", L".\\x.ini", L"two..dots.ini",
                                L"not there.ini", L"a\\\\b.ini"}) {
        const std::wstring name = text;
        const std::wstring file = NewFile("[SECTION_02]\r\nFILE_NAME_03= " + win32::ToAnsi(name) + " \r\n");
        EXPECT_EQ(GetQuizFileName(file, L"SECTION_02", L"FILE_NAME_03"), gQuizzesPath + L"\\" + name);
    }
    const std::wstring file = NewFile("[SECTION_02]\r\n");
    EXPECT_EQ(GetQuizFileName(file, L"SECTION_02", L"FILE_NAME_03"), gQuizzesPath + L"\\not found");
}

TEST_F(AcademicsTest, AQuizFileThatLeadsOutOfTheFolderIsReportedLikeAMissingOne) {
    // There is such a file, so only the rule keeps it from being read.
    WriteBytes(CommonFolder() / L"KSUserPrefs.ini", "[Math]\r\nNbrOfQuizzes=1\r\n");
    fs::create_directories(CommonFolder() / L"QuizzesKS" / L"sub");
    const std::wstring drive = (CommonFolder() / L"KSUserPrefs.ini").wstring();
    for (const std::wstring& name :
         {std::wstring(L"..\\KSUserPrefs.ini"), std::wstring(L"../KSUserPrefs.ini"), drive,
          std::wstring(L"sub\\..\\..\\KSUserPrefs.ini"), std::wstring(L"sub/../../KSUserPrefs.ini"),
          std::wstring(L"\\KSUserPrefs.ini"), std::wstring(L"/x.ini"), std::wstring(L"\\\\server\\share\\x.ini"),
          std::wstring(L"C:x.ini"), std::wstring(L"x.ini:stream"), std::wstring(L".. \\KSUserPrefs.ini"),
          std::wstring(L"...\\x.ini"), std::wstring(L"NUL"), std::wstring(L"sub\\com1.ini"), std::wstring(L"..")}) {
        const std::wstring file = NewFile("[SECTION_01]\r\nFILE_NAME_01=" + win32::ToAnsi(name) + "\r\n");
        ExpectNotFound(RaisedBy([&] { GetQuizFileName(file, L"SECTION_01", L"FILE_NAME_01"); }),
                       gQuizzesPath + L"\\" + name);
    }
    const std::wstring file = NewFile("[SECTION_01]\r\nFILE_NAME_01=\r\n");
    ExpectNotFound(RaisedBy([&] { GetQuizFileName(file, L"SECTION_01", L"FILE_NAME_01"); }), gQuizzesPath + L"\\");
}

TEST_F(AcademicsTest, ATopicsNameIsReadByItsKey) {
    const std::wstring file = NewFile("[SECTION_02]\r\nTOPIC_NAME_03=\" Rivers \"\r\n");
    EXPECT_EQ(GetTopicName(file, L"SECTION_02", L"TOPIC_NAME_03"), L"Rivers");
    EXPECT_EQ(GetTopicName(file, L"SECTION_02", L"TOPIC_NAME_04"), L"not found");
}

TEST_F(AcademicsTest, TheTreeCarriesKeysMadeOfNumbersWhateverTheNamesAre) {
    TreeForm form;
    form.Load();
    const std::wstring odd = L"Math" + gSep + L"TOPIC_NAME_09";
    AddAcademicsToTree(2, {L"Same", L"Same"}, {2, 1}, {{odd, L""}, {L"Same"}}, form.tvTasks);
    EXPECT_EQ(form.tvTasks.Count(), 5);
    EXPECT_EQ(form.tvTasks.Selected(), nullptr) << "the program selects nothing";
    const auto textOf = [&](const std::wstring& key) {
        const auto node = form.tvTasks.FindKey(key);
        return node == nullptr ? std::wstring(L"no such key") : form.tvTasks.Text(node);
    };
    EXPECT_EQ(textOf(L"SECTION_01"), L"Same");
    EXPECT_EQ(textOf(L"SECTION_01" + gSep + L"TOPIC_NAME_01"), odd);
    EXPECT_EQ(textOf(L"SECTION_01" + gSep + L"TOPIC_NAME_02"), L"");
    EXPECT_EQ(textOf(L"SECTION_02" + gSep + L"TOPIC_NAME_01"), L"Same");
}

TEST_F(AcademicsTest, AnEmptyCatalogueLeavesTheTreeEmpty) {
    TreeForm form;
    form.Load();
    AddAcademicsToTree(0, {}, {}, {}, form.tvTasks);
    EXPECT_EQ(form.tvTasks.Count(), 0);
}

TEST_F(AcademicsTest, ChoosingASectionMeansItsFirstTopic) {
    AcademicFileKey = L"stale";
    ParseAcademicSelection(L"SECTION_02");
    EXPECT_EQ(AcademicSection, L"SECTION_02");
    EXPECT_EQ(AcademicTopic, L"TOPIC_NAME_01");
    EXPECT_EQ(AcademicFileKey, L"FILE_NAME_01");
}

TEST_F(AcademicsTest, ChoosingATopicGivesItsFileKey) {
    ParseAcademicSelection(L"SECTION_02" + gSep + L"TOPIC_NAME_07");
    EXPECT_EQ(AcademicSection, L"SECTION_02");
    EXPECT_EQ(AcademicTopic, L"TOPIC_NAME_07");
    EXPECT_EQ(AcademicFileKey, L"FILE_NAME_07");
    ParseAcademicSelection(L"SECTION_100" + gSep + L"TOPIC_NAME_100");
    EXPECT_EQ(AcademicSection, L"SECTION_100");
    EXPECT_EQ(AcademicFileKey, L"FILE_NAME_100");
}

TEST_F(AcademicsTest, TheKindCodesAreThoseOfTheProductAndOfATeacher) {
    EXPECT_STREQ(KindCode(true), L"ACAP");
    EXPECT_STREQ(KindCode(false), L"ACAT");
}

}  // namespace
}  // namespace unit
