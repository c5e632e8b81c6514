// The rules for the shipped data files: good files give no finding, and each rule, broken once, gives one.
#include "tools/data_check.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/data_make.h"

namespace unit {
namespace {

using namespace data_files;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> Lines(const Findings& findings) {
    std::vector<std::string> lines;
    for (const Finding& finding : findings) lines.push_back(ToLine(finding));
    return lines;
}

/// The text with its first `from` replaced; fails where there is none, so that no test breaks nothing.
std::string With(std::string_view text, std::string_view from, std::string_view to) {
    std::string changed(text);
    const auto at = changed.find(from);
    if (at == std::string::npos) throw std::logic_error("there is no " + std::string(from));
    return changed.replace(at, from.size(), to);
}

constexpr std::string_view kLessonSource =
    "# Two lessons.\n"
    "lesson: Find F and J\n"
    "introduces: f j Space\n"
    "intro: Rest your fingers.\n"
    "\n"
    "letters: ff jj\n"
    "explain: First left, then right.\n"
    "noneng: fj fj\n"
    "noneng-explain: Left and right.\n"
    "mag: ff\n"
    "\n"
    "lesson: Copy and paste\n"
    "introduces: Shift Control c v o l u r\n"
    "intro: Hold Control.\n"
    "ends: Nothing\n"
    "repeats: 4\n"
    "keys: Control+C Control+V\n"
    "explain: Copy, then paste.\n"
    "phrase: Color\n"
    "explain: Type it.\n"
    "eng: Colour\n"
    "eng-explain: Type it the British way.\n";

std::vector<SourceLesson> Parsed(std::string_view source) {
    Findings findings;
    auto lessons = ParseLessons(L"lessons.txt", source, findings);
    EXPECT_THAT(Lines(findings), IsEmpty());
    return lessons;
}

std::string GoodLessons() { return MakeLessonFile(Parsed(kLessonSource)); }

IniFile LessonIni(std::string_view bytes) { return ParseIni(L"L.ini", bytes); }

std::vector<std::string> LessonFindings(std::string_view bytes) { return Lines(CheckLessons(LessonIni(bytes), 1)); }

// ---- lessons --------------------------------------------------------------------------------------------------------

/// One rule broken: the place that is changed, what it becomes, and the finding.
struct Breach {
    const char* name;
    std::string from;
    std::string to;
    std::string finding;

    friend void PrintTo(const Breach& breach, std::ostream* out) { *out << breach.name; }
};

using Breaches = ::testing::TestWithParam<Breach>;
std::string NameOf(const ::testing::TestParamInfo<Breach>& info) { return info.param.name; }

TEST(DataCheckLessons, AGoodFileGivesNoFinding) {
    EXPECT_THAT(LessonFindings(GoodLessons()), IsEmpty());
    EXPECT_THAT(Lines(CheckIniText(L"L.ini", GoodLessons())), IsEmpty());
}

class DataCheckLessonBreaches : public Breaches {};

TEST_P(DataCheckLessonBreaches, GivesOneFinding) {
    EXPECT_THAT(LessonFindings(With(GoodLessons(), GetParam().from, GetParam().to)), ElementsAre(GetParam().finding));
}

INSTANTIATE_TEST_SUITE_P(
    Rules, DataCheckLessonBreaches,
    ::testing::Values(
        Breach{"CountMissing", "NbrOfLessons=2", "NbrOfLessons=", "L.ini: Lessons: NbrOfLessons is missing or empty"},
        Breach{"GapInTheNumbers", "NbrOfLessons=2", "NbrOfLessons=3", "L.ini: L03: the section is missing"},
        Breach{"TitleMissing", "DefTitle=Find F and J", "DefTitle=", "L.ini: L01: DefTitle is missing or empty"},
        Breach{"TitleTwice", "DefTitle=Copy and paste", "DefTitle=FIND F and J",
               "L.ini: L02: the title \"FIND F and J\" stands twice"},
        Breach{"TitleVariant", "INTRO_LSN_JAWS=Hold", "TitleEng=Copy\r\nINTRO_LSN_JAWS=Hold",
               "L.ini: L02: TitleEng is no key of this section, or is beyond its count"},
        Breach{"IntroductionMissing", "INTRO_LSN_JAWS=Hold Control.",
               "INTRO_LSN_JAWS=", "L.ini: L02: INTRO_LSN_JAWS is missing or empty"},
        Breach{"Repetitions", "TaskReps=4", "TaskReps=3", "L.ini: L02: TaskReps is \"3\", which it never is"},
        Breach{"Terminator", "TaskDL=Nothing", "TaskDL=Tab", "L.ini: L02: TaskDL is \"Tab\", which it never is"},
        Breach{"TaskCountMissing", "NbrOfTasks=1\r\n", "NbrOfTasks=x\r\n",
               "L.ini: L01: NbrOfTasks is \"x\", not a number from 1 to 100"},
        Breach{"Kind4", "KIND_TASK_01=1", "KIND_TASK_01=4",
               "L.ini: L01: KIND_TASK_01 is \"4\", which is no kind of task"},
        Breach{"ExplanationMissing", "EXPLN_USA_CHILD_02=Type it.",
               "EXPLN_USA_CHILD_02=", "L.ini: L02: EXPLN_USA_CHILD_02 is missing or empty"},
        Breach{"BritishExplanationMissing", "EXPLN_ENG_CHILD_01=Copy, then paste.\r\n", "",
               "L.ini: L02: EXPLN_ENG_CHILD_01 is missing or empty"},
        Breach{"SpellingMissing", "SPELL_ENG_TASK_01=f\x05", "SPELL_ENG_TASK_01=\r\nKIND_TASK_01=f\x05",
               "L.ini: L01: SPELL_ENG_TASK_01 is missing or empty"},
        Breach{"SpellingDiffers", "SPELL_USA_TASK_01=f\x05", "SPELL_USA_TASK_01=j\x05",
               "L.ini: L01: SPELL_USA_TASK_01 is not how the program spells the task out"},
        Breach{"BritishSpellingDiffers", "u\x05r\x05", "r\x05",
               "L.ini: L02: SPELL_ENG_TASK_02 is not how the program spells the task out"},
        Breach{"NonEnglishSpellingDiffers", "SPELL_NONENG_TASK_01=f\x05", "SPELL_NONENG_TASK_01=j\x05",
               "L.ini: L01: SPELL_NONENG_TASK_01 is not how the program spells the task out"},
        Breach{"MagnifierSpellingDiffers", "SPELL_MAG_TASK_01=f\x05", "SPELL_MAG_TASK_01=F\x05",
               "L.ini: L01: SPELL_MAG_TASK_01 is not how the program spells the task out"},
        Breach{"SpellingWithoutItsText", "PRINT_MAG_TASK_01=ff",
               "PRINT_MAG_TASK_01=", "L.ini: L01: SPELL_MAG_TASK_01 spells a text that is not there"},
        Breach{"SectionBeyondTheCount", "[L02]", "[L05]\r\nDefTitle=Lost\r\n\r\n[L02]",
               "L.ini: L05: nothing leads to this section, or it is beyond its count"}),
    NameOf);

TEST(DataCheckLessons, ACountBelowWhatIsThereTellsWhatIsLost) {
    EXPECT_THAT(LessonFindings(With(GoodLessons(), "NbrOfLessons=2", "NbrOfLessons=1")),
                ElementsAre("L.ini: L02: nothing leads to this section, or it is beyond its count"));
    EXPECT_THAT(LessonFindings(With(GoodLessons(), "NbrOfTasks=2", "NbrOfTasks=1")).size(), 7U);
}

TEST(DataCheckLessons, ACountAboveWhatIsThereTellsWhatIsMissing) {
    EXPECT_THAT(LessonFindings(With(GoodLessons(), "NbrOfLessons=2", "NbrOfLessons=3")),
                ElementsAre("L.ini: L03: the section is missing"));
    EXPECT_THAT(
        LessonFindings(With(GoodLessons(), "NbrOfTasks=1\r\n", "NbrOfTasks=2\r\n")),
        ElementsAre("L.ini: L01: KIND_TASK_02 is missing or empty", "L.ini: L01: PRINT_USA_TASK_02 is missing or empty",
                    "L.ini: L01: SPELL_USA_TASK_02 is missing or empty",
                    "L.ini: L01: SPELL_ENG_TASK_02 is missing or empty",
                    "L.ini: L01: EXPLN_USA_CHILD_02 is missing or empty",
                    "L.ini: L01: EXPLN_ENG_CHILD_02 is missing or empty"));
}

TEST(DataCheckLessons, ACountIsAPlainNumberWithinItsLimits) {
    for (const char* count : {"0", "202", "-2", "2.0", "0x2", "99999999999"})
        EXPECT_THAT(LessonFindings(With(GoodLessons(), "NbrOfLessons=2", "NbrOfLessons=" + std::string(count))),
                    ::testing::Contains("L.ini: Lessons: NbrOfLessons is \"" + std::string(count) +
                                        "\", not a number from 1 to 201"));
}

TEST(DataCheckLessons, OnlyATeachersFileMayBeEmpty) {
    const IniFile empty = LessonIni("[Lessons]\r\nNbrOfLessons=0\r\n");
    EXPECT_THAT(Lines(CheckLessons(empty, 0)), IsEmpty());
    EXPECT_THAT(Lines(CheckLessons(empty, 1)),
                ElementsAre("L.ini: Lessons: NbrOfLessons is \"0\", not a number from 1 to 201"));
}

/// A lesson whose section takes a certain number of bytes in the program's buffer.
std::string LessonOfBytes(std::size_t bytes) {
    std::string source = "lesson: Long\nintroduces: a Space\nintro: Go.\n";
    for (int task = 0; task < 6; ++task)
        source += "letters: " + std::string(50, 'a') + "\nexplain: " + std::string(100, 'e') + "\n";
    const std::string file = MakeLessonFile(Parsed(source));
    const IniFile ini = LessonIni(file);
    const std::size_t now = win32::profile::SectionBytes(ini.Find(L"L01")->lines);
    EXPECT_LT(now, bytes);
    // An introduction of one more byte makes a section of one more.
    return With(file, "INTRO_LSN_JAWS=", "INTRO_LSN_JAWS=" + std::string(bytes - now, 'i'));
}

TEST(DataCheckLessons, ASectionThatWouldBeCutOnMovingIsAFinding) {
    EXPECT_THAT(LessonFindings(LessonOfBytes(4000)), IsEmpty());
    EXPECT_THAT(LessonFindings(LessonOfBytes(4001)), ElementsAre("L.ini: L01: takes 4001 bytes, more than 4000"));
}

// ---- chords ---------------------------------------------------------------------------------------------------------

/// The findings of a task of command keys that is spelled out as it should be.
std::vector<std::string> ChordFindings(const std::string& chords) {
    return LessonFindings(
        MakeLessonFile(Parsed("lesson: Keys\nintro: Go.\nkeys: " + chords + "\nexplain: Press them.\n")));
}

TEST(DataCheckChords, EveryNameOfTheTableIsGood) {
    EXPECT_THAT(ChordFindings("Control+Alt+Shift+JawsKey+T F1 F10 F12 Numpad0 NumPad5 Space ; = , - . / ` [ \\ ] '"),
                IsEmpty());
    EXPECT_THAT(ChordFindings("LeftWindows Control+- BackSpace NumPadStar Shift+1 ContextMenu Alt+F4"), IsEmpty());
}

TEST(DataCheckChords, AnyOtherNameIsAFinding) {
    for (const char* name : {"Tab", "Escape", "F13", "a", "Numpad10", "Left", "Control", "Shift+!", "leftarrow"}) {
        const std::string chord = name;
        const std::string last = chord.substr(chord.find('+') + 1);
        EXPECT_THAT(ChordFindings(chord), ElementsAre("L.ini: L01: task 1: \"" + chord + "\" ends in \"" + last +
                                                      "\", which is no key's name"));
    }
}

TEST(DataCheckChords, InsertIsNeverWritten) {
    for (const char* chord : {"Insert", "Control+Insert", "Insert+T"})
        EXPECT_THAT(ChordFindings(chord), ElementsAre("L.ini: L01: task 1: \"" + std::string(chord) +
                                                      "\" names Insert, which is only ever written as JawsKey"));
}

TEST(DataCheckChords, ModifiersStandInTheirOrderAndOnce) {
    for (const char* chord : {"Shift+Control+A", "Control+Control+A", "JawsKey+Alt+A", "Windows+R", "Ctrl+A"})
        EXPECT_THAT(
            ChordFindings(chord),
            ElementsAre("L.ini: L01: task 1: \"" + std::string(chord) +
                        "\" does not begin with Control, Alt, Shift and JawsKey in this order, each with a plus sign"));
}

TEST(DataCheckChords, ChordsArePartedByTwoBlanks) {
    const std::string file = MakeLessonFile(Parsed("lesson: Keys\nintro: Go.\nkeys: F1 F2\nexplain: Press them.\n"));
    EXPECT_THAT(LessonFindings(With(file, "F1  F2", "F1 F2")),
                ElementsAre("L.ini: L01: task 1: its chords are not parted by two blanks"));
}

TEST(DataCheckChords, OnlyCommandKeysAreChords) {
    EXPECT_THAT(LessonFindings(MakeLessonFile(
                    Parsed("lesson: Text\nintro: Go.\nphrase: Press Insert, Ctrl+A\nexplain: Type it.\n"))),
                IsEmpty());
}

// ---- what the program lists -----------------------------------------------------------------------------------------

class DataCheckCatalogue : public ::testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> Check() const {
        return Lines(CheckCatalogue(LessonIni(GoodLessons()), listed_, L"Language=1"));
    }
    std::vector<modTyping::CatalogueLesson> listed_{
        {L"L01", L"1. Find F and J", {{L"", L"ff"}}},
        {L"L02", L"2. Copy and paste", {{L"", L"Control+C  Control+V"}, {L"", L"Colour"}}}};
};

TEST_F(DataCheckCatalogue, WhatTheFileHoldsGivesNoFinding) {
    EXPECT_THAT(Check(), IsEmpty());
    listed_[0].tasks[0].text = L"fj fj";
    EXPECT_THAT(Check(), IsEmpty()) << "every variant's text is good";
}

TEST_F(DataCheckCatalogue, AMissingLessonIsAFinding) {
    listed_.pop_back();
    EXPECT_THAT(Check(), ElementsAre("L.ini: Lessons: the program lists 1 of 2 lessons with Language=1"));
}

TEST_F(DataCheckCatalogue, AnotherTitleIsAFinding) {
    listed_[1].text = L"2. ";
    EXPECT_THAT(Check(), ElementsAre("L.ini: L02: the program lists it as \"2. \" with Language=1"));
}

TEST_F(DataCheckCatalogue, AMissingTaskIsAFinding) {
    listed_[1].tasks.pop_back();
    EXPECT_THAT(Check(), ElementsAre("L.ini: L02: the program lists 1 tasks with Language=1"));
}

TEST_F(DataCheckCatalogue, AnotherOrEmptyTextIsAFinding) {
    listed_[0].tasks[0].text = L"";
    EXPECT_THAT(Check(), ElementsAre("L.ini: L01: the program lists task 1 as \"\" with Language=1"));
}

// ---- the source of the lessons --------------------------------------------------------------------------------------

std::vector<std::string> SourceFindings(std::string_view source) {
    return Lines(CheckLessonSource(L"lessons.txt", Parsed(source)));
}

TEST(DataCheckSource, AGoodSourceGivesNoFinding) { EXPECT_THAT(SourceFindings(kLessonSource), IsEmpty()); }

class DataCheckSourceBreaches : public Breaches {};

TEST_P(DataCheckSourceBreaches, GivesOneFinding) {
    EXPECT_THAT(SourceFindings(With(kLessonSource, GetParam().from, GetParam().to)), ElementsAre(GetParam().finding));
}

INSTANTIATE_TEST_SUITE_P(
    Rules, DataCheckSourceBreaches,
    ::testing::Values(Breach{"KeyInTheText", "letters: ff jj", "letters: ff kk",
                             "lessons.txt: L01: line 6 uses \"k\" before a lesson introduces it"},
                      Breach{"KeyInAVariant", "mag: ff", "mag: fd",
                             "lessons.txt: L01: line 10 uses \"d\" before a lesson introduces it"},
                      Breach{"BlankIsAKey", "f j Space", "f j",
                             "lessons.txt: L01: line 2 uses \"Space\" before a lesson introduces it"},
                      Breach{"KeyThatEndsTheTask", "ends: Nothing", "ends: Enter",
                             "lessons.txt: L02: line 15 uses \"Enter\" before a lesson introduces it"},
                      Breach{"CapitalWithoutShift", "Shift Control", "Control",
                             "lessons.txt: L02: line 19 uses \"C\" before a lesson introduces it"},
                      Breach{"CapitalWithoutItsLetter", "phrase: Color", "phrase: Solo",
                             "lessons.txt: L02: line 19 uses \"s\" before a lesson introduces it"},
                      Breach{"SymbolWithShiftAlone", "phrase: Color", "phrase: Color!",
                             "lessons.txt: L02: line 19 uses \"!\" before a lesson introduces it"},
                      Breach{"ModifierOfAChord", "Control+V", "Alt+V",
                             "lessons.txt: L02: line 17 uses \"Alt\" before a lesson introduces it"},
                      Breach{"LetterOfAChord", "Control+V", "Control+X",
                             "lessons.txt: L02: line 17 uses \"X\" before a lesson introduces it"},
                      Breach{"NamedKeyOfAChord", "Control+V", "Control+Home",
                             "lessons.txt: L02: line 17 uses \"Home\" before a lesson introduces it"},
                      Breach{"UnknownKey", "f j Space", "f j Space Ctrl",
                             "lessons.txt: L01: line 3 introduces \"Ctrl\", which is no key's name"},
                      Breach{"IntroductionMissing", "intro: Hold Control.\n", "",
                             "lessons.txt: L02: line 12 begins a lesson without \"intro:\""},
                      Breach{"ExplanationMissing", "explain: Copy, then paste.\n", "",
                             "lessons.txt: L02: line 17 begins a task without \"explain:\""},
                      Breach{"ExplanationOfNothing", "noneng: fj fj\n", "",
                             "lessons.txt: L01: line 8 explains a text that is not there"}),
    NameOf);

TEST(DataCheckSource, ALessonWithoutTasksIsAFinding) {
    EXPECT_THAT(SourceFindings("lesson: Empty\nintroduces: Space\nintro: Go.\n"),
                ElementsAre("lessons.txt: L01: line 1 begins a lesson without a task"));
}

TEST(DataCheckSource, AKeyIsToldOnceALesson) {
    EXPECT_THAT(SourceFindings(
                    "lesson: One\nintroduces: Space\nintro: Go.\nletters: kk\nexplain: K.\nletters: kk\nexplain: K.\n"
                    "lesson: Two\nintro: Go.\nletters: k\nexplain: K.\n"),
                ElementsAre("lessons.txt: L01: line 4 uses \"k\" before a lesson introduces it",
                            "lessons.txt: L02: line 10 uses \"k\" before a lesson introduces it"));
}

TEST(DataCheckSource, ALaterLessonKnowsWhatEarlierOnesIntroduced) {
    EXPECT_THAT(
        SourceFindings(std::string(kLessonSource) + "lesson: Later\nintro: Go.\nword: fluffco\nexplain: Type it.\n"),
        IsEmpty());
}

TEST(DataCheckSource, TheWindowsKeyMayBeIntroducedByItsShortName) {
    const std::string lesson = "intro: Go.\nends: Nothing\nkeys: LeftWindows\nexplain: Press it.\n";
    EXPECT_THAT(SourceFindings("lesson: W\nintroduces: Windows\n" + lesson), IsEmpty());
    EXPECT_THAT(SourceFindings("lesson: W\nintroduces: LeftWindows\n" + lesson), IsEmpty());
    EXPECT_THAT(SourceFindings("lesson: W\nintroduces: RightWindows\n" + lesson),
                ElementsAre("lessons.txt: L01: line 5 uses \"LeftWindows\" before a lesson introduces it"));
}

// ---- the bytes of a file --------------------------------------------------------------------------------------------

constexpr std::string_view kGoodText = "[One]\r\nA=b c\r\nB=\x05\x06\x07\r\n; a remark\r\n\r\n[Two]\r\nA=caf\xE9\r\n";

std::vector<std::string> TextFindings(std::string_view bytes) { return Lines(CheckIniText(L"F.ini", bytes)); }

TEST(DataCheckText, AGoodFileGivesNoFinding) { EXPECT_THAT(TextFindings(kGoodText), IsEmpty()); }

class DataCheckTextBreaches : public Breaches {};

TEST_P(DataCheckTextBreaches, GivesOneFinding) {
    EXPECT_THAT(TextFindings(With(kGoodText, GetParam().from, GetParam().to)), ElementsAre(GetParam().finding));
}

INSTANTIATE_TEST_SUITE_P(
    Rules, DataCheckTextBreaches,
    ::testing::Values(
        Breach{"LineFeedAlone", "b c\r\n", "b c\n", "F.ini: One: line 2 does not end with CR LF"},
        Breach{"CarriageReturnAlone", "b c\r\n", "b c\rd\r\n",
               "F.ini: One: line 2 holds a control character that no value has"},
        Breach{"LastLineWithoutAnEnd", "caf\xE9\r\n", "caf\xE9", "F.ini: Two: line 7 does not end with CR LF"},
        Breach{"ControlCharacter", "b c", "b\x01", "F.ini: One: line 2 holds a control character that no value has"},
        Breach{"ByteOutsideTheCodePage", "b c", "b\x81",
               "F.ini: One: line 2 holds a byte that is no character of code page 1252"},
        Breach{"Utf8", "caf\xE9", "caf\xC3\xA9", "F.ini: whole file: is UTF-8; the program reads code page 1252"},
        Breach{"SectionTwice", "[Two]", "[ONE]", "F.ini: ONE: the section stands twice; only the first is read"},
        Breach{"KeyTwice", "B=", "a=", "F.ini: One: a stands twice; only the first is read"},
        Breach{"NoValue", "; a remark", "a remark", "F.ini: One: line 4 has no \"=\""},
        Breach{"BeforeTheFirstSection", "[One]\r\nA=b c\r\n", "A=b c\r\n[One]\r\n",
               "F.ini: whole file: A stands before the first section"},
        Breach{"BlankAtTheEnd", "b c", "b ", "F.ini: One: A has blanks at an end, which would be dropped"},
        Breach{"BlankAtTheStart", "b c", "\tb", "F.ini: One: A has blanks at an end, which would be dropped"},
        Breach{"QuotationMarks", "b c", "\"b\"", "F.ini: One: A stands in quotation marks, which would be dropped"},
        Breach{"255Bytes", "b c", std::string(255, 'b'), "F.ini: One: A takes 255 bytes, more than 254"}),
    NameOf);

TEST(DataCheckText, AValueOf254BytesIsGood) {
    EXPECT_THAT(TextFindings(With(kGoodText, "b c", std::string(254, '\xE9'))), IsEmpty());
    EXPECT_THAT(TextFindings(With(kGoodText, "b c", "\"b\" c")), IsEmpty());
}

TEST(DataCheckText, TheMarkOfUtf8IsAFinding) {
    EXPECT_THAT(TextFindings("\xEF\xBB\xBF[One]\r\nA=b\r\n"),
                ElementsAre("F.ini: whole file: is UTF-8; the program reads code page 1252"));
}

TEST(DataCheckText, AMixOfLineEndsIsToldOnce) {
    EXPECT_THAT(TextFindings("[One]\r\nA=b\nB=c\nC=d\r\n"), ElementsAre("F.ini: One: line 2 does not end with CR LF"));
}

TEST(DataCheckText, AValueThatTheProgramReadsOtherwiseIsAFinding) {
    const IniFile file = ParseIni(L"F.ini", kGoodText);
    const auto asItStands = [&](std::wstring_view section, std::wstring_view key) {
        return *file.Find(section)->Value(key);
    };
    EXPECT_THAT(Lines(CheckReadBack(file, asItStands)), IsEmpty());
    const auto otherwise = [&](std::wstring_view section, std::wstring_view key) {
        return section == L"Two" ? std::wstring(L"cafe") : asItStands(section, key);
    };
    EXPECT_THAT(Lines(CheckReadBack(file, otherwise)), ElementsAre("F.ini: Two: A is not read back as it stands"));
}

// ---- dictations -----------------------------------------------------------------------------------------------------

std::string GoodDictations() {
    Findings findings;
    const auto lessons =
        ParseDictations(L"d.txt",
                        "lesson: Notes\ndictation:\nDear Sir,\n\tThank you.\nend.\ndictation:\nMilk\nend.\n"
                        "lesson: More\ndictation:\nOne more.\nend.\n",
                        findings);
    EXPECT_THAT(Lines(findings), IsEmpty());
    return MakeDictationFile(lessons);
}

std::vector<std::string> DictationFindings(std::string_view bytes) {
    return Lines(CheckDictations(ParseIni(L"D.ini", bytes), 1));
}

TEST(DataCheckDictations, AGoodFileGivesNoFinding) {
    EXPECT_THAT(DictationFindings(GoodDictations()), IsEmpty());
    EXPECT_THAT(Lines(CheckDictations(ParseIni(L"D.ini", "[Dictations]\r\nNbrOfLessons=0\r\n"), 0)), IsEmpty());
}

class DataCheckDictationBreaches : public Breaches {};

TEST_P(DataCheckDictationBreaches, GivesOneFinding) {
    EXPECT_THAT(DictationFindings(With(GoodDictations(), GetParam().from, GetParam().to)),
                ElementsAre(GetParam().finding));
}

INSTANTIATE_TEST_SUITE_P(
    Rules, DataCheckDictationBreaches,
    ::testing::Values(
        Breach{"GapInTheNumbers", "NbrOfLessons=2", "NbrOfLessons=3", "D.ini: L03: the section is missing"},
        Breach{"SectionBeyondTheCount", "NbrOfLessons=2", "NbrOfLessons=1",
               "D.ini: L02: nothing leads to this section, or it is beyond its count"},
        Breach{"TitleTwice", "DefTitle=More", "DefTitle=notes", "D.ini: L02: the title \"notes\" stands twice"},
        Breach{"TextMissing", "SPELL_USA_TASK_02=Milk",
               "SPELL_USA_TASK_02=", "D.ini: L01: SPELL_USA_TASK_02 is missing or empty"},
        Breach{"TextBeyondTheCount", "SPELL_USA_TASK_02=Milk", "SPELL_USA_TASK_02=Milk\r\nSPELL_USA_TASK_03=Tea",
               "D.ini: L01: SPELL_USA_TASK_03 is no key of this section, or is beyond its count"},
        Breach{"AnotherLabel", "PRINT_USA_TASK_01=Dear Sir,", "PRINT_USA_TASK_01=Dear Madam,",
               "D.ini: L01: PRINT_USA_TASK_01 is not the label that the program makes of the text"},
        Breach{"LabelTwice", "Milk\r\nSPELL_USA_TASK_02=Milk", "Dear Sir,\r\nSPELL_USA_TASK_02=Dear Sir,",
               "D.ini: L01: the label \"Dear Sir,\" stands twice"}),
    NameOf);

TEST(DataCheckDictations, ASectionThatWouldBeCutOnMovingIsAFinding) {
    std::string source = "lesson: Long\n";
    for (int i = 10; i < 24; ++i) source += "dictation:\n" + std::to_string(i) + std::string(248, 'x') + "\nend.\n";
    Findings findings;
    EXPECT_THAT(DictationFindings(MakeDictationFile(ParseDictations(L"d.txt", source, findings))),
                ElementsAre(::testing::StartsWith("D.ini: L01: takes ")));
}

// ---- quizzes --------------------------------------------------------------------------------------------------------

constexpr std::string_view kGoodCatalogue =
    "[Academics]\r\nNbrOfSections=2\r\n"
    "[SECTION_01]\r\nSECTION_NAME=Math\r\nNbrOfTopics=2\r\nTOPIC_NAME_01=Sums\r\nFILE_NAME_01=Sums.ini\r\n"
    "TOPIC_NAME_02=Shapes\r\nFILE_NAME_02=More\\Shapes.ini\r\n"
    "[SECTION_02]\r\nSECTION_NAME=Music\r\nNbrOfTopics=1\r\nTOPIC_NAME_01=Notes\r\nFILE_NAME_01=Sums.ini\r\n";
constexpr std::string_view kGoodSums =
    "[Sums]\r\nNbrOfQuizzes=2\r\n"
    "[Sums01]\r\nDefTitle=Small\r\nNbrOfQuestions=2\r\nQUESTION_01=What is 1 plus 1?\r\nANSWER_01=2\r\n"
    "HINT_01=Count.\r\nQUESTION_02=What is 2 plus 2?\r\nANSWER_02=4\r\nHINT_02=Count.\r\n"
    "[Sums02]\r\nDefTitle=Large\r\nNbrOfQuestions=1\r\nQUESTION_01=What is 9 plus "
    "9?\r\nANSWER_01=18\r\nHINT_01=Count.\r\n"
    "[Notes]\r\nNbrOfQuizzes=1\r\n"
    "[Notes01]\r\nDefTitle=Small\r\nNbrOfQuestions=1\r\nQUESTION_01=What follows "
    "A?\r\nANSWER_01=B\r\nHINT_01=Sing.\r\n";
constexpr std::string_view kGoodShapes =
    "[Shapes]\r\nNbrOfQuizzes=1\r\n"
    "[Shapes01]\r\nDefTitle=Small\r\nNbrOfQuestions=1\r\nQUESTION_01=How many corners has a square?\r\nANSWER_01=4\r\n"
    "HINT_01=Feel a box.\r\n";

std::vector<std::string> QuizFindings(std::string_view catalogue, std::string_view sums,
                                      std::string_view shapes = kGoodShapes) {
    const std::vector<IniFile> files{ParseIni(L"Q/More/Shapes.ini", shapes), ParseIni(L"Q/Sums.ini", sums)};
    return Lines(CheckQuizzes(ParseIni(L"Q/C.ini", catalogue), files, L"Q"));
}

TEST(DataCheckQuizzes, GoodFilesGiveNoFinding) { EXPECT_THAT(QuizFindings(kGoodCatalogue, kGoodSums), IsEmpty()); }

class DataCheckCatalogueBreaches : public Breaches {};

TEST_P(DataCheckCatalogueBreaches, GivesOneFinding) {
    EXPECT_THAT(QuizFindings(With(kGoodCatalogue, GetParam().from, GetParam().to), kGoodSums),
                ElementsAre(GetParam().finding));
}

INSTANTIATE_TEST_SUITE_P(
    Rules, DataCheckCatalogueBreaches,
    ::testing::Values(Breach{"SubjectMissing", "SECTION_NAME=Music",
                             "SECTION_NAME=", "Q/C.ini: SECTION_02: SECTION_NAME is missing or empty"},
                      Breach{"SubjectTwice", "SECTION_NAME=Music", "SECTION_NAME=Math",
                             "Q/C.ini: SECTION_02: the subject \"Math\" stands twice"},
                      Breach{"SubjectBeyondTheCount", "[SECTION_02]",
                             "[SECTION_03]\r\nSECTION_NAME=Art\r\n[SECTION_02]",
                             "Q/C.ini: SECTION_03: nothing leads to this section, or it is beyond its count"},
                      Breach{"TopicBeyondTheCount", "FILE_NAME_02=", "TOPIC_NAME_03=Lost\r\nFILE_NAME_02=",
                             "Q/C.ini: SECTION_01: TOPIC_NAME_03 is no key of this section, or is beyond its count"},
                      Breach{"CountLeftToTheSubjectBefore", "NbrOfTopics=1\r\n", "NbrOfTopics=0\r\n",
                             "Q/C.ini: SECTION_02: NbrOfTopics is \"0\", not a number from 1 to 100"}),
    NameOf);

TEST(DataCheckQuizzes, ATopicTwiceInASubjectIsAFinding) {
    EXPECT_THAT(QuizFindings(With(kGoodCatalogue, "TOPIC_NAME_02=Shapes", "TOPIC_NAME_02=Sums"), kGoodSums,
                             With(With(kGoodShapes, "[Shapes]", "[Sums]"), "[Shapes01]", "[Sums01]")),
                ElementsAre("Q/C.ini: SECTION_01: the topic \"Sums\" stands twice"));
}

TEST(DataCheckQuizzes, AFileThatIsNotThereAndOneThatNoTopicNamesAreFindings) {
    EXPECT_THAT(QuizFindings(With(kGoodCatalogue, "More\\Shapes.ini", "Shapes.ini"), kGoodSums),
                ElementsAre("Q/C.ini: SECTION_01: there is no file Q/Shapes.ini",
                            "Q/More/Shapes.ini: whole file: no topic names this file"));
    EXPECT_THAT(QuizFindings(With(kGoodCatalogue, "More\\Shapes.ini", "..\\Sums.ini"), kGoodSums),
                ElementsAre("Q/C.ini: SECTION_01: there is no file Q/../Sums.ini",
                            "Q/More/Shapes.ini: whole file: no topic names this file"));
}

class DataCheckQuizBreaches : public Breaches {};

TEST_P(DataCheckQuizBreaches, GivesOneFinding) {
    EXPECT_THAT(QuizFindings(kGoodCatalogue, With(kGoodSums, GetParam().from, GetParam().to)),
                ElementsAre(GetParam().finding));
}

INSTANTIATE_TEST_SUITE_P(
    Rules, DataCheckQuizBreaches,
    ::testing::Values(
        Breach{"TopicMissing", "[Notes]", "[Tones]\r\nNbrOfQuizzes=0\r\n[Notes]",
               "Q/Sums.ini: Tones: nothing leads to this section, or it is beyond its count"},
        Breach{"QuizMissing", "NbrOfQuizzes=2", "NbrOfQuizzes=3", "Q/Sums.ini: Sums03: the section is missing"},
        Breach{"QuizBeyondTheCount", "NbrOfQuizzes=2", "NbrOfQuizzes=1",
               "Q/Sums.ini: Sums02: nothing leads to this section, or it is beyond its count"},
        Breach{"QuizWithoutATitle", "DefTitle=Large\r\n", "", "Q/Sums.ini: Sums02: DefTitle is missing or empty"},
        Breach{"QuizTwice", "DefTitle=Large", "DefTitle=Small", "Q/Sums.ini: Sums02: the quiz \"Small\" stands twice"},
        Breach{"NoQuestionCount", "DefTitle=Large\r\nNbrOfQuestions=1\r\n", "DefTitle=Large\r\nNbrOfQuestions=0\r\n",
               "Q/Sums.ini: Sums02: NbrOfQuestions is \"0\", not a number from 1 to 99"},
        Breach{"NoAnswer", "ANSWER_01=18\r\n", "", "Q/Sums.ini: Sums02: ANSWER_01 is missing or empty"},
        Breach{"NoHint", "HINT_02=Count.", "HINT_02=", "Q/Sums.ini: Sums01: HINT_02 is missing or empty"},
        Breach{"QuestionTwice", "What is 2 plus 2?", "What is 1 plus 1?",
               "Q/Sums.ini: Sums01: the question \"What is 1 plus 1?\" stands twice"},
        Breach{"QuestionBeyondTheCount", "HINT_02=Count.", "HINT_02=Count.\r\nQUESTION_03=What is 3 plus 3?",
               "Q/Sums.ini: Sums01: QUESTION_03 is no key of this section, or is beyond its count"}),
    NameOf);

TEST(DataCheckQuizzes, AQuizWithoutQuestionsTellsEachKeyThatIsMissing) {
    EXPECT_THAT(
        QuizFindings(kGoodCatalogue, kGoodSums, "[Shapes]\r\nNbrOfQuizzes=1\r\n[Shapes01]\r\nDefTitle=Small\r\n"),
        ElementsAre("Q/More/Shapes.ini: Shapes01: NbrOfQuestions is missing or empty"));
}

TEST(DataCheckQuizzes, TwoTopicsThatShareASectionAreAFinding) {
    EXPECT_THAT(QuizFindings(With(kGoodCatalogue, "TOPIC_NAME_01=Notes", "TOPIC_NAME_01=Sums"),
                             kGoodSums.substr(0, kGoodSums.find("[Notes]"))),
                ElementsAre("Q/Sums.ini: Sums: two topics or quizzes share this section"));
}

class DataCheckListedQuizzes : public ::testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> Check() const {
        const std::vector<IniFile> files{ParseIni(L"Q/More/Shapes.ini", kGoodShapes),
                                         ParseIni(L"Q/Sums.ini", kGoodSums)};
        return Lines(CheckListedQuizzes(ParseIni(L"Q/C.ini", kGoodCatalogue), files, L"Q", listed_));
    }
    std::vector<ListedSubject> listed_{{L"Math", {{L"Sums", {L"Small", L"Large"}}, {L"Shapes", {L"Small"}}}},
                                       {L"Music", {{L"Notes", {L"Small"}}}}};
};

TEST_F(DataCheckListedQuizzes, WhatTheFilesHoldGivesNoFinding) { EXPECT_THAT(Check(), IsEmpty()); }

TEST_F(DataCheckListedQuizzes, WhateverTheProgramListsOtherwiseIsAFinding) {
    listed_[0].topics[0].quizzes[1] = L"not found";
    listed_[0].topics[1].quizzes.clear();
    listed_[1].name = L"not found";
    EXPECT_THAT(Check(), ElementsAre("Q/Sums.ini: Sums02: the program lists \"not found\" for DefTitle",
                                     "Q/More/Shapes.ini: Shapes: the program lists \"0\" for NbrOfQuizzes",
                                     "Q/C.ini: SECTION_02: the program lists \"not found\" for SECTION_NAME"));
}

TEST_F(DataCheckListedQuizzes, AMissingSubjectOrTopicIsAFinding) {
    listed_.pop_back();
    listed_[0].topics.pop_back();
    EXPECT_THAT(Check(), ElementsAre("Q/C.ini: Academics: the program lists \"1\" for NbrOfSections",
                                     "Q/C.ini: SECTION_01: the program lists \"1\" for NbrOfTopics"));
}

// ---- preferences and texts ------------------------------------------------------------------------------------------

constexpr std::string_view kGoodPreferences = "[UserPreferences]\r\nPREF_01=Speak slower\r\nPREF_02=Speak faster\r\n";

std::vector<std::string> PreferenceFindings(std::string_view bytes) {
    return Lines(CheckPreferences(ParseIni(L"P.ini", bytes)));
}

TEST(DataCheckPreferences, AGoodFileGivesNoFinding) { EXPECT_THAT(PreferenceFindings(kGoodPreferences), IsEmpty()); }

class DataCheckPreferenceBreaches : public Breaches {};

TEST_P(DataCheckPreferenceBreaches, GivesOneFinding) {
    EXPECT_THAT(PreferenceFindings(With(kGoodPreferences, GetParam().from, GetParam().to)),
                ElementsAre(GetParam().finding));
}

INSTANTIATE_TEST_SUITE_P(
    Rules, DataCheckPreferenceBreaches,
    ::testing::Values(Breach{"Twice", "Speak faster", "speak slower",
                             "P.ini: UserPreferences: the preference \"speak slower\" stands twice"},
                      Breach{"GapInTheNumbers", "PREF_02", "PREF_03",
                             "P.ini: UserPreferences: PREF_03 stands in the place of PREF_02"},
                      Breach{"Empty", "Speak faster", "", "P.ini: UserPreferences: PREF_02 is missing or empty"},
                      Breach{"None", "PREF_01=Speak slower\r\nPREF_02=Speak faster\r\n", "",
                             "P.ini: UserPreferences: there is no preference"},
                      Breach{"AnotherSection", "PREF_02", "[More]\r\nPREF_02",
                             "P.ini: More: nothing leads to this section, or it is beyond its count"}),
    NameOf);

TEST(DataCheckPreferences, AFileWithoutTheSectionIsAFinding) {
    EXPECT_THAT(PreferenceFindings(""), ElementsAre("P.ini: UserPreferences: the section is missing"));
}

TEST(DataCheckPreferences, WhatDoesNotFitTheProgramsBufferIsAFinding) {
    std::string file = "[UserPreferences]\r\n";
    for (int i = 10; i < 30; ++i)
        file += "PREF_" + std::string(i < 19 ? "0" : "") + std::to_string(i - 9) + "=" + std::to_string(i) +
                std::string(194, 'x') + "\r\n";
    // 20 lines of 8 + 196 bytes and a NUL, and one more NUL.
    EXPECT_THAT(PreferenceFindings(file), ElementsAre("P.ini: UserPreferences: takes 4101 bytes, more than 4096"));
    EXPECT_THAT(PreferenceFindings(With(file, "xxxxx\r\n", "\r\n")), IsEmpty());
}

TEST(DataCheckPreferences, WhatTheProgramReadsOtherwiseIsAFinding) {
    const IniFile file = ParseIni(L"P.ini", kGoodPreferences);
    std::vector<std::wstring> lines{L"PREF_01=Speak slower", L"PREF_02=Speak faster"};
    EXPECT_THAT(Lines(CheckListedPreferences(file, lines)), IsEmpty());
    lines[0] = L"PREF_01=Speak";
    EXPECT_THAT(Lines(CheckListedPreferences(file, lines)),
                ElementsAre("P.ini: UserPreferences: the program reads 2 of 2 lines, or reads one otherwise"));
    lines.erase(lines.begin());
    EXPECT_THAT(Lines(CheckListedPreferences(file, lines)),
                ElementsAre("P.ini: UserPreferences: the program reads 1 of 2 lines, or reads one otherwise"));
}

constexpr std::string_view kGoodGeneral =
    "[Main]\r\nSingleRow=a\r\nMultiRow=b\r\nDefSingleRow=c\r\nDefMultiRow=d\r\n[General]\r\nSingleRow=e\r\nMultiRow="
    "f\r\n"
    "[StudentProfile]\r\nSingleRow=g\r\nMultiRow=h\r\n";

TEST(DataCheckGeneral, EveryTextHasToBeThere) {
    const auto check = [](std::string_view bytes) { return Lines(CheckGeneral(ParseIni(L"G.ini", bytes))); };
    EXPECT_THAT(check(kGoodGeneral), IsEmpty());
    EXPECT_THAT(check(With(kGoodGeneral, "DefMultiRow=d", "DefMultiRow=")),
                ElementsAre("G.ini: Main: DefMultiRow is missing or empty"));
    EXPECT_THAT(check(With(kGoodGeneral, "SingleRow=g", "SingleRowe=g")),
                ElementsAre("G.ini: StudentProfile: SingleRow is missing or empty",
                            "G.ini: StudentProfile: SingleRowe is no key of this section, or is beyond its count"));
    EXPECT_THAT(check(With(kGoodGeneral, "[General]", "[Genral]")),
                ElementsAre("G.ini: General: the section is missing",
                            "G.ini: Genral: nothing leads to this section, or it is beyond its count"));
}

// ---- generated files ------------------------------------------------------------------------------------------------

TEST(DataCheckGenerated, AFileThatIsNotWhatItsSourceMakesIsAFinding) {
    const std::string made = GoodLessons();
    EXPECT_THAT(Lines(CheckGenerated(L"L.ini", made, made)), IsEmpty());
    const std::string line2 = "L.ini: whole file: is not what its source makes from line 2 on; run scripts/make-data";
    EXPECT_THAT(Lines(CheckGenerated(L"L.ini", With(made, "NbrOfLessons=2", "NbrOfLessons=9"), made)),
                ElementsAre(line2));
    EXPECT_THAT(Lines(CheckGenerated(L"L.ini", made + "; more\r\n", made)).size(), 1U);
    EXPECT_THAT(Lines(CheckGenerated(L"L.ini", made.substr(0, made.size() - 2), made)).size(), 1U);
    EXPECT_THAT(Lines(CheckGenerated(L"L.ini", "", made)).size(), 1U);
}

}  // namespace
}  // namespace unit
