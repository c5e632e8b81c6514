// The folder of the shipped files as a whole: what is made in it, and that each file meets its rules.
#include "tools/data_folder.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/modGlobals.h"
#include "unit/fixture.h"

namespace unit {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DataFolder : public FolderTest {
protected:
    void SetUp() override {
        FolderTest::SetUp();
        Write("Keystride.ini", "[Current User]\r\nUserData=\r\nLanguage=0\r\n");
        Write("KSUserInfo.ini", "[Common]\r\nNetworkData=\r\n");
        Write("KSDialogTutor.ini", "[StudentProfile]\r\n");
        Write("TeachersLessons.ini", "[Lessons]\r\nNbrOfLessons=0\r\n");
        Write("TeachersDictations.ini", "[Dictations]\r\nNbrOfLessons=0\r\n");
        Write("KSUserPrefs.ini", "[UserPreferences]\r\nPREF_01=Speak slower\r\n");
        Write("KSGeneral.ini",
              "[Main]\r\nSingleRow=a\r\nMultiRow=b\r\nDefSingleRow=c\r\nDefMultiRow=d\r\n"
              "[General]\r\nSingleRow=e\r\nMultiRow=f\r\n[StudentProfile]\r\nSingleRow=g\r\nMultiRow=h\r\n");
        Write("QuizzesKS/KSQuizzes.ini",
              "[Academics]\r\nNbrOfSections=1\r\n[SECTION_01]\r\nSECTION_NAME=Math\r\nNbrOfTopics=1\r\n"
              "TOPIC_NAME_01=Sums\r\nFILE_NAME_01=Sums.ini\r\n");
        Write("QuizzesKS/Sums.ini",
              "[Sums]\r\nNbrOfQuizzes=1\r\n[Sums01]\r\nDefTitle=Small\r\nNbrOfQuestions=1\r\n"
              "QUESTION_01=What is 1 plus 1?\r\nANSWER_01=2\r\nHINT_01=Count.\r\n");
        Write("source/lessons.txt",
              "lesson: F\nintroduces: f Space\nintro: Go.\nletters: ff\nexplain: F.\neng: fff\nmag: f\n");
        Write("source/dictations.txt", "lesson: Notes\ndictation:\nDear Sir,\n\tThank you.\nend.\n");
        EXPECT_THAT(data_files::MakeData(Folder()), IsEmpty());
    }

    void Write(const std::string& name, std::string_view bytes) const { WriteBytes(Folder() / name, bytes); }

    [[nodiscard]] std::string Read(const std::string& name) const { return ReadBytes(Folder() / name); }

    /// Replaces a text that is there.
    void Change(const std::string& name, const std::string& from, const std::string& to) const {
        std::string bytes = Read(name);
        const auto at = bytes.find(from);
        if (at == std::string::npos) throw std::logic_error("there is no " + from + " in " + name);
        Write(name, bytes.replace(at, from.size(), to));
    }

    [[nodiscard]] std::vector<std::string> Check() const { return Lines(data_files::CheckData(Folder())); }

    static std::vector<std::string> Lines(const data_files::Findings& findings) {
        std::vector<std::string> lines;
        for (const auto& finding : findings) lines.push_back(ToLine(finding));
        return lines;
    }
};

TEST_F(DataFolder, GoodFilesGiveNoFinding) { EXPECT_THAT(Check(), IsEmpty()); }

TEST_F(DataFolder, MakingAgainGivesTheSameBytes) {
    const auto before = Snapshot(Folder());
    EXPECT_THAT(Read("KSLessons.ini"), ::testing::HasSubstr("SPELL_ENG_TASK_01=f\x05"
                                                            "f\x05"
                                                            "f\x05\r\n"));
    EXPECT_THAT(Read("KSDictations.ini"), ::testing::HasSubstr("SPELL_USA_TASK_01=Dear Sir,\x07\x06Thank you.\r\n"));
    EXPECT_THAT(data_files::MakeData(Folder()), IsEmpty());
    EXPECT_EQ(Snapshot(Folder()), before);
}

TEST_F(DataFolder, NothingIsMadeOfASourceThatWouldLoseSomething) {
    const std::string lessons = Read("KSLessons.ini");
    Write("source/lessons.txt", "lesson: \xE2\x86\x92\n");
    Write("source/dictations.txt", "lesson: Notes\ndictation:\nOther.\nend.\n");
    EXPECT_THAT(
        Lines(data_files::MakeData(Folder())),
        ElementsAre(
            "source/lessons.txt: whole file: line 1 holds \"\xE2\x86\x92\", which the code page does not have"));
    EXPECT_EQ(Read("KSLessons.ini"), lessons);
    EXPECT_THAT(Read("KSDictations.ini"), ::testing::HasSubstr("Other."));
}

TEST_F(DataFolder, AMissingSourceIsAFindingAndItsFileStays) {
    const std::string lessons = Read("KSLessons.ini");
    std::filesystem::remove(Folder() / "source" / "lessons.txt");
    EXPECT_THAT(Lines(data_files::MakeData(Folder())),
                ElementsAre("source/lessons.txt: whole file: the file is missing"));
    EXPECT_THAT(Check(), ElementsAre("source/lessons.txt: whole file: the file is missing"));
    EXPECT_EQ(Read("KSLessons.ini"), lessons);
}

TEST_F(DataFolder, EachShippedFileHasToBeThere) {
    for (const char* name :
         {"Keystride.ini", "KSUserInfo.ini", "KSDialogTutor.ini", "TeachersLessons.ini", "TeachersDictations.ini",
          "KSUserPrefs.ini", "KSGeneral.ini", "QuizzesKS/KSQuizzes.ini", "KSLessons.ini", "KSDictations.ini"}) {
        const std::string bytes = Read(name);
        std::filesystem::remove(Folder() / name);
        EXPECT_THAT(Check(), ElementsAre(std::string(name) + ": whole file: the file is missing"));
        Write(name, bytes);
    }
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(DataFolder, EachFileMeetsTheRulesOfItsBytes) {
    for (const char* name : {"Keystride.ini", "KSUserInfo.ini", "KSDialogTutor.ini", "TeachersLessons.ini",
                             "TeachersDictations.ini", "KSUserPrefs.ini", "KSGeneral.ini", "QuizzesKS/KSQuizzes.ini",
                             "QuizzesKS/Sums.ini", "KSLessons.ini", "KSDictations.ini"}) {
        const std::string bytes = Read(name);
        Write(name, bytes + "no value\r\n");
        EXPECT_THAT(Check(), Contains(::testing::AllOf(::testing::StartsWith(std::string(name) + ": "),
                                                       ::testing::EndsWith("has no \"=\""))))
            << name;
        Write(name, bytes);
    }
}

TEST_F(DataFolder, EachFileMeetsTheRulesOfItsContent) {
    struct Breach {
        const char* file;
        const char* from;
        const char* to;
        const char* finding;
    };
    for (const Breach& breach :
         {Breach{"KSLessons.ini", "DefTitle=F", "DefTitle=", "KSLessons.ini: L01: DefTitle is missing or empty"},
          Breach{"TeachersLessons.ini", "=0", "=1", "TeachersLessons.ini: L01: the section is missing"},
          Breach{"KSDictations.ini", "DefTitle=Notes",
                 "DefTitle=", "KSDictations.ini: L01: DefTitle is missing or empty"},
          Breach{"TeachersDictations.ini", "=0", "=1", "TeachersDictations.ini: L01: the section is missing"},
          Breach{"KSUserPrefs.ini", "Speak slower", "",
                 "KSUserPrefs.ini: UserPreferences: PREF_01 is missing or empty"},
          Breach{"KSGeneral.ini", "DefMultiRow=d",
                 "DefMultiRow=", "KSGeneral.ini: Main: DefMultiRow is missing or empty"},
          Breach{"QuizzesKS/KSQuizzes.ini", "SECTION_NAME=Math",
                 "SECTION_NAME=", "QuizzesKS/KSQuizzes.ini: SECTION_01: SECTION_NAME is missing or empty"},
          Breach{"QuizzesKS/Sums.ini", "ANSWER_01=2",
                 "ANSWER_01=", "QuizzesKS/Sums.ini: Sums01: ANSWER_01 is missing or empty"},
          Breach{"source/lessons.txt", "explain: F.\n", "",
                 "source/lessons.txt: L01: line 4 begins a task without \"explain:\""}}) {
        const std::string bytes = Read(breach.file);
        Change(breach.file, breach.from, breach.to);
        EXPECT_THAT(Check(), Contains(breach.finding));
        Write(breach.file, bytes);
    }
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(DataFolder, AGeneratedFileThatIsStaleIsAFinding) {
    Change("source/lessons.txt", "intro: Go.", "intro: Stop.");
    Change("source/dictations.txt", "lesson: Notes", "lesson: Letters");
    EXPECT_THAT(
        Check(),
        ElementsAre(
            "KSLessons.ini: whole file: is not what its source makes from line 6 on; run scripts/make-data",
            "KSDictations.ini: whole file: is not what its source makes from line 5 on; run scripts/make-data"));
    EXPECT_THAT(data_files::MakeData(Folder()), IsEmpty());
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(DataFolder, AQuizFileThatNoTopicNamesIsAFinding) {
    Write("QuizzesKS/More/Lost.ini", "[Lost]\r\nNbrOfQuizzes=0\r\n");
    EXPECT_THAT(Check(), ElementsAre("QuizzesKS/More/Lost.ini: whole file: no topic names this file"));
}

TEST_F(DataFolder, QuizzesAreListedAsThePickersAreFilled) {
    Change("QuizzesKS/KSQuizzes.ini", "FILE_NAME_01=Sums.ini", "FILE_NAME_01=..\\Sums.ini");
    EXPECT_THAT(Check(), Contains("QuizzesKS/KSQuizzes.ini: whole file: the program cannot list it: File " +
                                  (Folder() / "QuizzesKS\\..\\Sums.ini").string() + "not found."));
    Change("QuizzesKS/KSQuizzes.ini", "FILE_NAME_01=..\\Sums.ini", "FILE_NAME_01=Sums.ini");
    Change("QuizzesKS/Sums.ini", "[Sums01]", "[Sums1]");
    EXPECT_THAT(Check(), Contains("QuizzesKS/Sums.ini: Sums01: the program lists \"not found\" for DefTitle"));
}

TEST_F(DataFolder, PreferencesAreReadAsTheListIsFilled) {
    Change("KSUserPrefs.ini", "=Speak slower", " = Speak slower");
    EXPECT_THAT(Check(),
                Contains("KSUserPrefs.ini: UserPreferences: PREF_01 has blanks at an end, which would be dropped"));
    std::string many = "[UserPreferences]\r\n";
    for (int i = 10; i < 32; ++i) many += "PREF_" + std::to_string(i) + "=" + std::string(200, 'x') + "\r\n";
    Write("KSUserPrefs.ini", many);
    EXPECT_THAT(Check(),
                Contains("KSUserPrefs.ini: UserPreferences: the program reads 19 of 22 lines, or reads one otherwise"));
}

TEST_F(DataFolder, LessonsAreListedAsEveryLearnerSeesThem) {
    Change("KSLessons.ini", "DefTitle=F\r\n",
           "DefTitle=F\r\nTitleMAG=Big F\r\nTitleEng=British F\r\nTitleNonEng=f\r\n");
    const auto findings = Check();
    for (const char* listed : {"1. Big F\" with Language=0 and MAGic=1", "1. Big F\" with Language=1 and MAGic=1",
                               "1. Big F\" with Language=2 and MAGic=1", "1. British F\" with Language=1 and MAGic=0",
                               "1. f\" with Language=2 and MAGic=0"})
        EXPECT_THAT(findings, Contains("KSLessons.ini: L01: the program lists it as \"" + std::string(listed)));
    EXPECT_FALSE(modGlobals::gMAGic);
    EXPECT_FALSE(modGlobals::gLanguageTwo);
}

TEST_F(DataFolder, ACountThatTheProgramCannotListIsAFinding) {
    Change("KSLessons.ini", "NbrOfLessons=1", "NbrOfLessons=40000");
    EXPECT_THAT(
        Check(),
        Contains("KSLessons.ini: whole file: the program cannot list it with Language=0 and MAGic=0: Overflow"));
}

}  // namespace
}  // namespace unit
