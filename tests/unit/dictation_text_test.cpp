// The text of a dictation: its marks, its label, and what a tree shows of it.
#include "dictation/dictation_text.h"

#include <string>

#include <gtest/gtest.h>

namespace unit {
namespace {

using namespace modDictation;

const std::wstring kLetter = L"Dear Sir,\r\n\tThank you.";
const std::wstring kStoredLetter = L"Dear Sir,\x07\x06Thank you.";

TEST(DictationKeys, NumbersHaveAtLeastTwoDigits) {
    EXPECT_EQ(PrintTaskKey(1), L"PRINT_USA_TASK_01");
    EXPECT_EQ(PrintTaskKey(100), L"PRINT_USA_TASK_100");
    EXPECT_EQ(SpellTaskKey(12), L"SPELL_USA_TASK_12");
}

TEST(DictationText, TabsAndLineBreaksBecomeMarksAndComeBack) {
    EXPECT_EQ(EncodeText(kLetter), kStoredLetter);
    EXPECT_EQ(DecodeText(kStoredLetter), kLetter);
    EXPECT_EQ(EncodeText(L""), L"");
    EXPECT_EQ(EncodeText(L"\r\n\r\n\t\t"), L"\x07\x07\x06\x06");
}

TEST(DictationText, ABareCrOrLfIsStoredAsItIs) {
    EXPECT_EQ(EncodeText(L"a\rb\nc\n\rd"), L"a\rb\nc\n\rd");
    EXPECT_EQ(EncodeText(L"a\r\r\nb"),
              L"a\r\x07"
              L"b");
}

TEST(DictationText, TextsWithMarksComeBackUnchanged) {
    for (const std::wstring& stored : {std::wstring(L"abc"), kStoredLetter, std::wstring(L"\x07\x07 \x06"),
                                       std::wstring(L"\x06\x07\x06"), std::wstring()})
        EXPECT_EQ(EncodeText(DecodeText(stored)), stored);
}

TEST(DictationText, EveryLineBreakOfATextBoxCountsAsCrLf) {
    EXPECT_EQ(WithFullLineBreaks(L"a\r\nb"), L"a\r\nb");
    EXPECT_EQ(WithFullLineBreaks(L"a\rb"), L"a\r\nb");
    EXPECT_EQ(WithFullLineBreaks(L"a\nb"), L"a\r\nb");
    EXPECT_EQ(WithFullLineBreaks(L"a\vb"), L"a\r\nb") << "a soft break";
    EXPECT_EQ(WithFullLineBreaks(L"\r\r\n\n\r"), L"\r\n\r\n\r\n\r\n");
    EXPECT_EQ(WithFullLineBreaks(L"a\tb c"), L"a\tb c");
}

TEST(DictationText, BlanksTabsAndLineBreaksAloneAreNothingToDictate) {
    for (const wchar_t* text : {L"", L"   ", L"\r\n", L"\t \r\n \t"}) EXPECT_TRUE(IsBlankText(text));
    for (const wchar_t* text : {L"a", L" \r\n.", L"\t-"}) EXPECT_FALSE(IsBlankText(text));
}

TEST(DictationLabel, ThreeLettersWithoutALineBreakAreTheirOwnLabel) { EXPECT_EQ(LabelText(L"abc"), L"abc"); }

TEST(DictationLabel, AFirstLineOf80CharactersGivesItsFirst65) {
    std::wstring line;
    for (int i = 0; i < 80; ++i) line += static_cast<wchar_t>(L'a' + i % 26);
    EXPECT_EQ(LabelText(line), line.substr(0, 65));
    EXPECT_EQ(LabelText(line + L"\r\nmore"), line.substr(0, 65));
}

TEST(DictationLabel, AFirstLineOfTenCharactersKeepsTheCr) {
    EXPECT_EQ(LabelText(L"Dear Mary,\r\nhello"), L"Dear Mary,\r");
    EXPECT_EQ(LabelText(kLetter), L"Dear Sir,\r");
}

TEST(DictationLabel, TheCrIsTheLastOfThe65) {
    const std::wstring line64(64, L'x');
    EXPECT_EQ(LabelText(line64 + L"\r\ny"), line64 + L"\r");
    EXPECT_EQ(LabelText(line64 + L"x\r\ny"), line64 + L"x") << "the line break stands behind the 65th character";
    EXPECT_EQ(LabelText(line64 + L"xx\r\ny"), line64 + L"x");
}

TEST(DictationLabel, ALeadingTabBelongsToTheLabel) {
    EXPECT_EQ(LabelText(L"\tword"), L"\tword");
    EXPECT_EQ(EncodeText(L"\tword"), L"\x06word");
}

TEST(DictationLabel, OnlyBlanksAreTrimmed) {
    EXPECT_EQ(LabelText(L"  a b  "), L"a b");
    EXPECT_EQ(LabelText(L" a \r\nb"), L"a \r") << "the CR ends the label, so the blank before it stays";
}

TEST(DictationLabel, ATextThatBeginsWithALineBreakHasOnlyTheCr) { EXPECT_EQ(LabelText(L"\r\nDear"), L"\r"); }

TEST(DictationLabel, AnEmptyOneIsMadeFromTheFirstLineThatIsNotBlank) {
    const std::wstring blanks(70, L' ');
    EXPECT_EQ(LabelText(blanks + L"word"), L"");
    EXPECT_EQ(UsableLabel(blanks + L"word"), L"word");
    EXPECT_EQ(UsableLabel(blanks + L"\r\n \tSecond line.\r\nThird."), L"Second line.\r");
    EXPECT_EQ(UsableLabel(L"First.\r\nSecond."), L"First.\r");
    EXPECT_EQ(UsableLabel(L"\r\nDear"), L"\r") << "this label is not empty";
    EXPECT_EQ(UsableLabel(blanks), L"");
    EXPECT_EQ(FirstSpokenLine(L"\r\n\t Dear\r\nyou"), L"Dear\r");
}

TEST(DictationNode, ShowsThePartBeforeTheFirstLineBreakMark) {
    EXPECT_EQ(NodeText(L"Dear Sir,"), L"Dear Sir,");
    EXPECT_EQ(NodeText(L"Dear Sir,\x07Thank you."), L"Dear Sir,");
    EXPECT_EQ(NodeText(L"\x07Thank you."), L"") << "a text that starts with a line break shows nothing";
    EXPECT_EQ(NodeText(L""), L"");
    EXPECT_EQ(NodeText(std::wstring(65, L'x')), std::wstring(65, L'x'));
    EXPECT_EQ(NodeText(std::wstring(66, L'x')), std::wstring(65, L'x'));
    EXPECT_EQ(NodeText(std::wstring(70, L'x') + L"\x07y"), std::wstring(65, L'x'));
}

}  // namespace
}  // namespace unit
