// The sources of the shipped files: what is read of them, and what they become.
#include "tools/data_make.h"

#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/lesson_source.h"

namespace unit {
namespace {

using namespace data_files;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::vector<std::string> Lines(const Findings& findings) {
    std::vector<std::string> lines;
    for (const Finding& finding : findings) lines.push_back(ToLine(finding));
    return lines;
}

std::string Lessons(std::string_view source) {
    Findings findings;
    const std::string made = MakeLessonFile(ParseLessons(L"s.txt", source, findings));
    EXPECT_THAT(Lines(findings), IsEmpty());
    return made;
}

std::string Dictations(std::string_view source) {
    Findings findings;
    const std::string made = MakeDictationFile(ParseDictations(L"s.txt", source, findings));
    EXPECT_THAT(Lines(findings), IsEmpty());
    return made;
}

std::vector<std::string> LessonFindings(std::string_view source) {
    Findings findings;
    ParseLessons(L"s.txt", source, findings);
    return Lines(findings);
}

std::vector<std::string> DictationFindings(std::string_view source) {
    Findings findings;
    ParseDictations(L"s.txt", source, findings);
    return Lines(findings);
}

TEST(DataMakeLessons, KeysStandInTheProgramsOrderAndEveryVariantIsSpelledOut) {
    EXPECT_EQ(Lessons("lesson: Colors\nintroduces: c\nintro: Now words.\nword: gray\nexplain: It is a color.\n"
                      "eng: grey\neng-explain: It is a colour.\nnoneng: ga\nnoneng-explain: Two keys.\nmag: GRAY\n"),
              "[Lessons]\r\nNbrOfLessons=1\r\n\r\n[L01]\r\nDefTitle=Colors\r\nINTRO_LSN_JAWS=Now words.\r\n"
              "TaskReps=2\r\nTaskDL=Space\r\nNbrOfTasks=1\r\nKIND_TASK_01=2\r\nPRINT_USA_TASK_01=gray\r\n"
              "PRINT_ENG_TASK_01=grey\r\nPRINT_NONENG_TASK_01=ga\r\nPRINT_MAG_TASK_01=GRAY\r\n"
              "SPELL_USA_TASK_01=g\x05r\x05"
              "a\x05y\x05\r\nSPELL_ENG_TASK_01=g\x05r\x05"
              "e\x05y\x05\r\nSPELL_NONENG_TASK_01=g\x05"
              "a\x05\r\nSPELL_MAG_TASK_01=G\x05R\x05"
              "A\x05Y\x05\r\n"
              "EXPLN_USA_CHILD_01=It is a color.\r\nEXPLN_ENG_CHILD_01=It is a colour.\r\n"
              "EXPLN_NONENG_CHILD_01=Two keys.\r\n");
}

TEST(DataMakeLessons, BritishLearnersHearEveryTaskWhereNothingDiffers) {
    const std::string made = Lessons("lesson: One\nintro: Go.\nletters: f f\nexplain: Type it.\n");
    EXPECT_THAT(made, HasSubstr("\r\nSPELL_ENG_TASK_01=f\x05Space\x05"
                                "f\x05\r\n"));
    EXPECT_THAT(made, HasSubstr("\r\nEXPLN_ENG_CHILD_01=Type it.\r\n"));
    EXPECT_THAT(made, ::testing::Not(HasSubstr("PRINT_ENG")));
}

TEST(DataMakeLessons, KindsEndsAndRepeats) {
    const std::string made = Lessons(
        "lesson: One\nintro: Go.\nends: Enter\nrepeats: 4\nletters: a\nexplain: A.\nword: b\nexplain: B.\n"
        "phrase: c\nexplain: C.\nkeys: F1 F2   F3\nexplain: Keys.\n");
    for (const char* line : {"TaskReps=4", "TaskDL=Enter", "NbrOfTasks=4", "KIND_TASK_01=1", "KIND_TASK_02=2",
                             "KIND_TASK_03=3", "KIND_TASK_04=5", "PRINT_USA_TASK_04=F1  F2  F3",
                             "SPELL_USA_TASK_04=F1\x05"
                             "F2\x05"
                             "F3\x05"})
        EXPECT_THAT(made, HasSubstr("\r\n" + std::string(line) + "\r\n"));
}

TEST(DataMakeLessons, LettersBeyondAsciiAreWrittenInTheCodePage) {
    EXPECT_THAT(Lessons("lesson: One\nintro: Go.\nletters: \xC2\xA3\nexplain: Caf\xC3\xA9.\n"),
                HasSubstr("PRINT_USA_TASK_01=\xA3\r\nSPELL_USA_TASK_01=\xA3\x05\r\nSPELL_ENG_TASK_01=\xA3\x05\r\n"
                          "EXPLN_USA_CHILD_01=Caf\xE9.\r\n"));
}

TEST(DataMakeLessons, AValueMayHoldColonsAndNumberSigns) {
    const std::string made =
        Lessons("lesson: One: two\nintro: Go.\n#letters: x\nletters: : # ;\nexplain: # is a sign: type it.\n");
    EXPECT_THAT(made, HasSubstr("DefTitle=One: two\r\n"));
    EXPECT_THAT(made, HasSubstr("PRINT_USA_TASK_01=: # ;\r\n"));
    EXPECT_THAT(made, HasSubstr("EXPLN_USA_CHILD_01=# is a sign: type it.\r\n"));
    EXPECT_THAT(made, HasSubstr("NbrOfTasks=1\r\n"));
}

TEST(DataSource, LinesThatCannotBeUnderstoodAreTold) {
    EXPECT_THAT(LessonFindings("intro: Go.\n"),
                ElementsAre("s.txt: whole file: line 1 begins with \"intro:\", which has no meaning there"));
    EXPECT_THAT(LessonFindings("lesson: One\nexplain: Go.\n"),
                ElementsAre("s.txt: L01: line 2 begins with \"explain:\", which has no meaning there"));
    EXPECT_THAT(LessonFindings("lesson: One\nletter: f\n"),
                ElementsAre("s.txt: L01: line 2 begins with \"letter:\", which has no meaning there"));
    EXPECT_THAT(LessonFindings("lesson: One\nletters: f\nends: Enter\n"),
                ElementsAre("s.txt: L01: line 3 begins with \"ends:\", which has no meaning there"));
    EXPECT_THAT(LessonFindings("lesson: One\nGo on\n"),
                ElementsAre("s.txt: L01: line 2 has no \"name:\" at its start"));
    EXPECT_THAT(LessonFindings("lesson: One\nintro:\n"),
                ElementsAre("s.txt: L01: line 2 says nothing behind \"intro:\""));
    EXPECT_THAT(LessonFindings("lesson: One\nintro: Go.\nintro: Stop.\n"),
                ElementsAre("s.txt: L01: line 3 says \"intro:\" again"));
}

TEST(DataSource, WhatAFileWouldNotKeepIsTold) {
    EXPECT_THAT(LessonFindings("lesson: One \n"), ElementsAre("s.txt: whole file: line 1 ends in a blank"));
    EXPECT_THAT(LessonFindings("lesson: One\nintro: A\tB\n"),
                ElementsAre("s.txt: L01: line 2 holds a control character"));
    EXPECT_THAT(LessonFindings("lesson: One\nintro: \xE2\x86\x92\n"),
                ElementsAre("s.txt: L01: line 2 holds \"\xE2\x86\x92\", which the code page does not have"));
    EXPECT_THAT(LessonFindings("lesson: Caf\xE9\n"), ::testing::Contains("s.txt: whole file: is not UTF-8"));
    EXPECT_THAT(LessonFindings("lesson: One\r\n"),
                ::testing::Contains("s.txt: whole file: has a carriage return; its lines end in LF alone"));
}

TEST(DataMakeDictations, TabsAndLineBreaksBecomeMarksAndTheFirstLineTheLabel) {
    EXPECT_EQ(Dictations("# For beginners.\nlesson: Short notes\ndictation:\nDear Sir,\n\tThank you.\n\n# 1\nend.\n"
                         "dictation:\nMilk\nend.\n"),
              "[Dictations]\r\nNbrOfLessons=1\r\n\r\n[L01]\r\nDefTitle=Short notes\r\nNbrOfTasks=2\r\n"
              "PRINT_USA_TASK_01=Dear Sir,\r\nSPELL_USA_TASK_01=Dear Sir,\x07\x06Thank you.\x07\x07# 1\r\n"
              "PRINT_USA_TASK_02=Milk\r\nSPELL_USA_TASK_02=Milk\r\n");
}

TEST(DataMakeDictations, ALabelHas65CharactersAtMost) {
    EXPECT_EQ(ReadBackLabel(std::wstring(80, L'x')), std::wstring(65, L'x'));
    EXPECT_EQ(ReadBackLabel(std::wstring(64, L'x') + L" y"), std::wstring(64, L'x'));
    EXPECT_EQ(ReadBackLabel(std::wstring(65, L'x') + L"\r\ny"), std::wstring(65, L'x'));
    EXPECT_EQ(ReadBackLabel(L"One\r\nTwo"), L"One");
    EXPECT_EQ(ReadBackLabel(L"One"), L"One");
    EXPECT_EQ(ReadBackLabel(L"One \r\nTwo"), L"One");
}

TEST(DataSource, DictationsThatCannotBeUnderstoodAreTold) {
    EXPECT_THAT(DictationFindings("dictation:\nx\nend.\n"),
                ::testing::Contains(
                    "s.txt: whole file: line 1 is neither \"lesson:\" with a title nor \"dictation:\" below one"));
    EXPECT_THAT(DictationFindings("lesson: One\ndictation:\nx\n"),
                ElementsAre("s.txt: L01: line 2 begins a dictation that no line \"end.\" closes"));
    EXPECT_THAT(DictationFindings("lesson: One\ndictation: x\n"),
                ElementsAre("s.txt: L01: line 2 is neither \"lesson:\" with a title nor \"dictation:\" below one"));
    EXPECT_THAT(DictationFindings("lesson: One\ndictation:\n\xE2\x86\x92\nend.\n"),
                ElementsAre("s.txt: L01: line 3 holds \"\xE2\x86\x92\", which the code page does not have"));
}

}  // namespace
}  // namespace unit
