// Lesson keys, run requests and spelled-out texts.
#include "lessons/lesson_text.h"

#include <gtest/gtest.h>

namespace unit {
namespace {

using namespace modTyping;

TEST(LessonKeys, NumbersHaveAtLeastTwoDigits) {
    EXPECT_EQ(KindTaskKey(5), L"KIND_TASK_05");
    EXPECT_EQ(KindTaskKey(100), L"KIND_TASK_100");
}

TEST(LessonKeys, TheVariantStandsInTheMiddle) {
    EXPECT_EQ(PrintTaskKey(1, Variant::Usa), L"PRINT_USA_TASK_01");
    EXPECT_EQ(PrintTaskKey(100, Variant::Eng), L"PRINT_ENG_TASK_100");
    EXPECT_EQ(SpellTaskKey(12, Variant::Usa), L"SPELL_USA_TASK_12");
    EXPECT_EQ(SpellTaskKey(2, Variant::Eng), L"SPELL_ENG_TASK_02");
    EXPECT_EQ(ExplanationKey(9, Variant::Usa), L"EXPLN_USA_CHILD_09");
    EXPECT_EQ(ExplanationKey(99, Variant::Eng), L"EXPLN_ENG_CHILD_99");
}

TEST(SpellOutTask, EveryCharacterIsAnItemAndABlankIsNamed) {
    EXPECT_EQ(SpellOutTask(L"1", L"ab c"),
              L"a\x05"
              L"b\x05Space\x05"
              L"c\x05");
    EXPECT_EQ(SpellOutTask(L"3", L"a  b"),
              L"a\x05Space\x05Space\x05"
              L"b\x05");
    EXPECT_EQ(SpellOutTask(L"2", L"\u00e4"), L"\u00e4\x05");
    EXPECT_EQ(SpellOutTask(L"1", L"\t;\x05"), L"\t\x05;\x05\x05\x05");
}

TEST(SpellOutTask, AnEmptyTextHasNoItem) { EXPECT_EQ(SpellOutTask(L"1", L""), L""); }

TEST(SpellOutTask, CommandKeysAreWholeNames) {
    EXPECT_EQ(SpellOutTask(L"5", L"Control+C Control+V"),
              L"Control+C\x05"
              L"Control+V\x05");
    EXPECT_EQ(SpellOutTask(L"5", L"F1"), L"F1\x05");
    EXPECT_EQ(SpellOutTask(L"5", L""), L"\x05");
}

TEST(SpellOutTask, TwoBlanksBetweenCommandKeysLeaveOneSeparator) {
    EXPECT_EQ(SpellOutTask(L"5", L"Control+C  Control+V"),
              L"Control+C\x05"
              L"Control+V\x05");
}

TEST(SpellOutTask, ThreeBlanksBetweenCommandKeysStillLeaveTwoSeparators) {
    EXPECT_EQ(SpellOutTask(L"5", L"A   B"),
              L"A\x05\x05"
              L"B\x05");
    EXPECT_EQ(SpellOutTask(L"5", L"A    B"),
              L"A\x05\x05"
              L"B\x05");
    EXPECT_EQ(SpellOutTask(L"5", L"A     B"),
              L"A\x05\x05\x05"
              L"B\x05");
}

TEST(SpellOutTask, ABlankAtTheEndOfCommandKeysLeavesTwoSeparators) {
    EXPECT_EQ(SpellOutTask(L"5", L"A "), L"A\x05\x05");
    EXPECT_EQ(SpellOutTask(L"5", L" A"),
              L"\x05"
              L"A\x05");
}

TEST(SpellOutTask, OnlyKind5IsCommandKeys) {
    for (const wchar_t* kind : {L"1", L"2", L"3", L"4", L"6", L"55", L"0", L"", L"x"})
        EXPECT_EQ(SpellOutTask(kind, L"F1"),
                  L"F\x05"
                  L"1\x05")
            << kind;
}

TEST(WrittenKind, AnOlderPhraseIsWrittenAsAPhrase) {
    EXPECT_EQ(WrittenKind(L"4"), L"3");
    for (const wchar_t* kind : {L"1", L"2", L"3", L"5", L""}) EXPECT_EQ(WrittenKind(kind), kind);
}

TEST(RunRequestText, HoldsListLessonAndTask) {
    EXPECT_EQ(RunRequestText(L"KYBT", 3, 12),
              L"KYBT\x05"
              L"3\x05"
              L"12");
    EXPECT_EQ(RunRequestText(L"KYBP", 201, 101),
              L"KYBP\x05"
              L"201\x05"
              L"101");
}

TEST(RunRequestText, AWholeLessonIsTask0) {
    EXPECT_EQ(RunRequestText(L"KYBP", 4, 0),
              L"KYBP\x05"
              L"4\x05"
              L"0");
    EXPECT_EQ(RunRequestText(L"KYBP", 0, 2),
              L"KYBP\x05"
              L"0\x05"
              L"2");
}

TEST(RunRequestText, Lesson0Task0MeansThatNothingWasChosen) {
    EXPECT_EQ(RunRequestText(L"KYBC", 0, 0), L"KYBC\x05\x04");
}

}  // namespace
}  // namespace unit
