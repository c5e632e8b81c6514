// What the editors say of texts that the file would not keep.
#include "shell/notices.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace unit {
namespace {

using namespace notices;

constexpr RowNames kTexts{L"The text of task ", L"The texts of tasks "};

TEST(ValueNotice, SaysNothingOfATextThatIsKept) {
    for (const std::wstring& text :
         {std::wstring(), std::wstring(L"asdf jkl;"), std::wstring(254, L'x'), std::wstring(254, L'\u00e4'),
          std::wstring(L"say \"hello\" now"), std::wstring(L"\"open"), std::wstring(L"'tis so\""), std::wstring(L"\"")})
        EXPECT_EQ(ValueNotice(L"The title", text), L"");
}

TEST(ValueNotice, TellsOfATextThatIsOneCharacterTooLong) {
    EXPECT_EQ(ValueNotice(L"The title", std::wstring(255, L'x')),
              L"The title is too long: only its first 254 characters are read back.");
    EXPECT_EQ(ValueNotice(L"The explanation", std::wstring(4000, L'x')),
              L"The explanation is too long: only its first 254 characters are read back.");
}

TEST(ValueNotice, TellsOfCharactersOutsideTheCodePage) {
    EXPECT_EQ(ValueNotice(L"The task", L"\u0416"), L"The task has characters that the file cannot keep.");
    EXPECT_EQ(ValueNotice(L"The task", L"\u00e4\u20ac"), L"") << "these two are in the code page";
}

TEST(ValueNotice, TellsOfQuotationMarksAroundTheWholeText) {
    const std::wstring sentence = L"The task stands in quotation marks, and these are not read back.";
    EXPECT_EQ(ValueNotice(L"The task", L"\"hello\""), sentence);
    EXPECT_EQ(ValueNotice(L"The task", L"'hello'"), sentence);
    EXPECT_EQ(ValueNotice(L"The task", L"\"\""), sentence);
    EXPECT_EQ(ValueNotice(L"The task", L"  \"hello\" "), sentence) << "the file keeps no blanks around them";
    EXPECT_EQ(ValueNotice(L"The task", L"\"a\" and \"b\""), sentence) << "the outer pair goes";
}

TEST(CutValueNotice, NamesEveryValueThatLostItsEnd) {
    EXPECT_EQ(CutValueNotice({}), L"");
    EXPECT_EQ(CutValueNotice({{L"The title"}}),
              L"The title was stored too long: only the first 254 characters were read, and no more can be saved.");
    EXPECT_EQ(CutValueNotice({{L"The title"}, {L"The text of task 3"}}),
              L"The title and the text of task 3 were stored too long: only the first 254 characters were read, and no "
              L"more can be saved.");
    EXPECT_EQ(CutValueNotice({{L"The title"}, {L"The introduction"}, {L"The text of task 3"}}),
              L"The title, the introduction and the text of task 3 were stored too long: only the first 254 characters "
              L"were read, and no more can be saved.");
    EXPECT_EQ(CutValueNotice({Numbered(kTexts, {1, 2})}),
              L"The texts of tasks 1 and 2 were stored too long: only the first 254 characters were read, and no more "
              L"can be saved.");
}

TEST(NumberList, ReadsOutRunsShortly) {
    EXPECT_EQ(NumberList({}), L"");
    EXPECT_EQ(NumberList({7}), L"7");
    EXPECT_EQ(NumberList({7, 8}), L"7 and 8");
    EXPECT_EQ(NumberList({7, 8, 9}), L"7 to 9");
    EXPECT_EQ(NumberList({1, 3, 4, 6, 7, 8, 10}), L"1, 3, 4, 6 to 8 and 10");
    EXPECT_EQ(NumberList({1, 2, 3, 4, 100}), L"1 to 4 and 100");
}

TEST(RowNotice, OneTextIsNamedLikeAnyOther) {
    EXPECT_EQ(RowNotice(kTexts, {}), L"");
    EXPECT_EQ(RowNotice(kTexts, {L"short", L""}), L"");
    for (const std::wstring& text : {std::wstring(255, L'x'), std::wstring(L"\u0416"), std::wstring(L"'hello'")})
        EXPECT_EQ(RowNotice(kTexts, {L"short", text}), ValueNotice(L"The text of task 2", text));
}

TEST(RowNotice, AHundredTextsAreToldInOneSentence) {
    const std::wstring longText(255, L'x');
    EXPECT_EQ(RowNotice(kTexts, std::vector<std::wstring_view>(100, longText)),
              L"The texts of tasks 1 to 100 are too long: of each only its first 254 characters are read back.");
    EXPECT_EQ(RowNotice(kTexts, {L"\"a\"", longText, L"\u0416", L"", L"'b'", longText, L"\u0416\u0416"}),
              L"The texts of tasks 2 and 6 are too long: of each only its first 254 characters are read back. "
              L"The texts of tasks 3 and 7 have characters that the file cannot keep. "
              L"The texts of tasks 1 and 5 stand in quotation marks, and these are not read back.");
}

TEST(LessonSizeNotice, TellsOfASectionThatOutgrowsTheMovingBuffer) {
    EXPECT_EQ(LessonSizeNotice(0), L"");
    EXPECT_EQ(LessonSizeNotice(4000), L"");
    EXPECT_EQ(LessonSizeNotice(4001),
              L"This lesson takes more than 4000 bytes: its end would be cut when an earlier lesson is removed.");
}

TEST(FullTableNotice, TellsThatAHundredTasksAreReached) {
    EXPECT_EQ(FullTableNotice(L"tasks", false), L"");
    EXPECT_EQ(FullTableNotice(L"tasks", true),
              L"The 100 tasks that are saved are reached: another one would not be kept.");
}

TEST(UnsavedTasksNotice, TellsHowManyAreSavedWhenOneIsNot) {
    EXPECT_EQ(UnsavedNotice(L"tasks", 100), L"");
    EXPECT_EQ(UnsavedNotice(L"tasks", 101), L"Only the first 100 of these 101 tasks are saved.");
}

TEST(RepetitionsNotice, TellsOfMoreThanTwoThatStandAtTwo) {
    EXPECT_EQ(RepetitionsNotice(4, true), L"This lesson has 4 repetitions; they stand at 2 now.");
    EXPECT_EQ(RepetitionsNotice(9, true), L"This lesson has 9 repetitions; they stand at 2 now.");
    EXPECT_EQ(RepetitionsNotice(4, false), L"") << "4 are selected";
    EXPECT_EQ(RepetitionsNotice(2, true), L"");
    EXPECT_EQ(RepetitionsNotice(0, true), L"") << "a lesson without a number never had more";
}

TEST(JoinNotices, PutsOneBlankBetweenSentences) {
    EXPECT_EQ(JoinNotices({}), L"");
    EXPECT_EQ(JoinNotices({L"", L"", L""}), L"");
    EXPECT_EQ(JoinNotices({L"", L"One.", L"", L"Two.", L""}), L"One. Two.");
}

}  // namespace
}  // namespace unit
