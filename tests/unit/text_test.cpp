// Text helpers: trimming, replacing, splitting, leading numbers, and the way to and from the code page.
#include "win32/text.h"

#include <stdexcept>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>

#include "win32/error.h"

namespace unit {
namespace {

using namespace win32;

TEST(TrimBlanks, TakesBlanksAtBothEndsAndNothingElse) {
    EXPECT_EQ(TrimBlanks(L"  a b  "), L"a b");
    EXPECT_EQ(TrimBlanks(L"\ta\x05 "), L"\ta\x05");
    EXPECT_EQ(TrimBlanks(L" \r\n "), L"\r\n");
    EXPECT_EQ(TrimBlanks(L"\u00a0a\u00a0"), L"\u00a0a\u00a0");
    EXPECT_EQ(TrimBlanks(L"   "), L"");
    EXPECT_EQ(TrimBlanks(L""), L"");
}

TEST(DropControlCharacters, KeepsEverythingElse) {
    EXPECT_EQ(DropControlCharacters(L"a\r\n\tb\x01\x1F\x7F c\u0080\u00C4"), L"ab c\u0080\u00C4");
    EXPECT_EQ(DropControlCharacters(std::wstring(L"a\0b", 3)), L"ab");
    EXPECT_EQ(DropControlCharacters(L""), L"");
}

TEST(ReplaceAll, RunsOnceFromLeftToRight) {
    EXPECT_EQ(ReplaceAll(L"aaa", L"aa", L"a"), L"aa");
    EXPECT_EQ(ReplaceAll(L"aaaa", L"aa", L"a"), L"aa");
    EXPECT_EQ(ReplaceAll(L"a-b-", L"-", L"--"), L"a--b--");
    EXPECT_EQ(ReplaceAll(L"abc", L"x", L"y"), L"abc");
    EXPECT_EQ(ReplaceAll(L"", L"x", L"y"), L"");
    EXPECT_EQ(ReplaceAll(L"x", L"x", L""), L"");
}

TEST(Split, KeepsEmptyFields) {
    using Fields = std::vector<std::wstring>;
    EXPECT_EQ(Split(L"a\x05"
                    L"b",
                    L'\x05'),
              (Fields{L"a", L"b"}));
    EXPECT_EQ(Split(L"\x05\x05", L'\x05'), (Fields{L"", L"", L""}));
    EXPECT_EQ(Split(L"a", L'\x05'), Fields{L"a"});
    EXPECT_EQ(Split(L"", L'\x05'), Fields{L""});
}

TEST(LeadingNumber, TakesTheNumberAtTheStart) {
    EXPECT_EQ(LeadingNumber(L"12abc"), 12);
    EXPECT_EQ(LeadingNumber(L"  7"), 7);
    EXPECT_EQ(LeadingNumber(L"+5"), 5);
    EXPECT_EQ(LeadingNumber(L"-5"), -5);
    EXPECT_EQ(LeadingNumber(L"007"), 7);
    EXPECT_EQ(LeadingNumber(L"4.9"), 4);
}

TEST(LeadingNumber, Is0WhereThereIsNone) {
    for (const wchar_t* text : {L"", L"   ", L"abc", L"-", L"+", L"x7"}) EXPECT_EQ(LeadingNumber(text), 0) << text;
}

TEST(LeadingNumber, StaysOutside16BitsHoweverLongItIs) {
    EXPECT_EQ(LeadingNumber(L"99999999999"), 99999999999);
    EXPECT_GT(LeadingNumber(std::wstring(500, L'9')), 32767);
    EXPECT_LT(LeadingNumber(L"-" + std::wstring(500, L'9')), -32768);
}

TEST(DropLineBreaks, TakesOutWhatCannotEnterAValue) {
    EXPECT_EQ(DropLineBreaks(std::wstring(L"a\r\nb\0c\x07\t", 8)), L"abc\x07\t");
    EXPECT_EQ(DropLineBreaks(L""), L"");
}

TEST(Ansi, EveryByteComesBack) {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
    EXPECT_EQ(ToAnsi(FromAnsi(bytes)), bytes);
    EXPECT_EQ(FromAnsi("\x80"), L"\u20ac");
    EXPECT_EQ(ToAnsi(L"\u00e4"), "\xE4");
}

TEST(Ansi, NulAndEmptyTextsAreNoEnd) {
    EXPECT_EQ(ToAnsi(L""), "");
    EXPECT_EQ(FromAnsi(""), L"");
    EXPECT_EQ(ToAnsi(std::wstring(L"a\0b", 3)), std::string("a\0b", 3));
}

TEST(Ansi, CharactersOutsideTheCodePageAreTold) {
    EXPECT_TRUE(FitsAnsi(L"Gr\u00fc\u00dfe \u20ac\x05"));
    EXPECT_FALSE(FitsAnsi(L"\u4e2d"));
    EXPECT_FALSE(FitsAnsi(L"\U0001F600"));
    EXPECT_TRUE(FitsAnsi(L""));
    EXPECT_EQ(ToAnsi(L"a\u4e2dz"), "a?z");
}

TEST(Ansi, LengthCountsBytes) {
    EXPECT_EQ(AnsiLength(L""), 0U);
    EXPECT_EQ(AnsiLength(L"abc\u00e4\u20ac"), 5U);
}

TEST(ToInt16, Raises6OutsideItsRange) {
    EXPECT_EQ(ToInt16(32767), 32767);
    EXPECT_EQ(ToInt16(-32768), -32768);
    for (const std::int64_t number : {std::int64_t{32768}, std::int64_t{-32769}, std::int64_t{1} << 40}) {
        try {
            ToInt16(number);
            ADD_FAILURE() << number << " was taken";
        } catch (const AppError& error) {
            EXPECT_EQ(error.Number(), 6);
            EXPECT_EQ(error.Description(), L"Overflow");
        }
    }
}

TEST(Errors, KeepNumberSourceAndText) {
    const AppError overflow = OverflowError(L"One");
    EXPECT_EQ(overflow.Number(), 6);
    EXPECT_EQ(overflow.Source(), L"One");
    EXPECT_EQ(overflow.Description(), L"Overflow");
    const AppError subscript = SubscriptError(L"Two");
    EXPECT_EQ(subscript.Number(), 9);
    EXPECT_EQ(subscript.Source(), L"Two");
    EXPECT_EQ(subscript.Description(), L"Subscript out of range");
}

TEST(Errors, TheReportShowsTheDescriptionExactly) {
    EXPECT_EQ(DescribeError(AppError(1, L"x", L"  File C:\\\u4e2dnot found.")), L"  File C:\\\u4e2dnot found.");
    EXPECT_EQ(DescribeError(std::runtime_error("plain")), L"plain");
}

TEST(Errors, AFailedSystemCallIsToldByTheSystem) {
    const std::wstring text = DescribeError(std::system_error(2, std::system_category(), "CreateFile"));
    EXPECT_FALSE(text.empty());
    EXPECT_EQ(text.find(L"CreateFile"), std::wstring::npos);
    EXPECT_NE(text, DescribeError(std::system_error(32, std::system_category(), "CreateFile")));
    EXPECT_GT(text.back(), L' ');
}

TEST(RunStep, HandsWhatTheStepRaisesToTheReport) {
    int reports = 0;
    bool ran = false;
    const auto count = [&](const std::exception&) { ++reports; };
    RunStep(count, [&] { ran = true; });
    EXPECT_TRUE(ran);
    EXPECT_EQ(reports, 0);
    RunStep(count, [] { throw OverflowError(L"x"); });
    EXPECT_EQ(reports, 1);
}

}  // namespace
}  // namespace unit
