// The INI procedures against the system's own profile functions: single values, whole sections, writing and moving.
#include "win32/profile.h"

#include <array>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "unit/fixture.h"
#include "win32/text.h"

namespace unit {
namespace {

namespace profile = win32::profile;

constexpr char kSection[] = "S";
constexpr wchar_t kSectionWide[] = L"S";
constexpr DWORD kBufferBytes = 255;

/// What the system gives for a single value with the program's buffer.
std::string SystemString(const std::wstring& file, const std::string& section, const std::string& key,
                         const std::string& defaultText) {
    std::array<char, kBufferBytes> buffer{};
    const DWORD count = GetPrivateProfileStringA(section.c_str(), key.c_str(), defaultText.c_str(), buffer.data(),
                                                 kBufferBytes, win32::ToAnsi(file).c_str());
    return {buffer.data(), count};
}

std::int32_t SystemInt(const std::wstring& file, const std::string& section, const std::string& key) {
    return static_cast<std::int32_t>(
        GetPrivateProfileIntA(section.c_str(), key.c_str(), 0, win32::ToAnsi(file).c_str()));
}

bool Fits16Bits(std::int32_t number) {
    return number >= std::numeric_limits<std::int16_t>::min() && number <= std::numeric_limits<std::int16_t>::max();
}

std::string Repeat(std::string_view text, std::size_t times) {
    std::string result;
    for (std::size_t i = 0; i < times; ++i) result += text;
    return result;
}

class ProfileTest : public FolderTest {
protected:
    std::string Single(const std::wstring& file, const std::string& key, const std::string& defaultText = "none") {
        return win32::ToAnsi(
            profile::ReadString(file, kSectionWide, win32::FromAnsi(key), win32::FromAnsi(defaultText)));
    }

    /// One key by all three ways: the system's call, the program's single read and its section read.
    void ExpectKey(const std::wstring& file, const std::string& key, const std::string& expected,
                   const std::string& defaultText = "none") {
        EXPECT_EQ(SystemString(file, kSection, key, defaultText), expected) << "the system's own answer";
        EXPECT_EQ(Single(file, key, defaultText), expected);
        const profile::Section section(file, kSectionWide);
        EXPECT_EQ(win32::ToAnsi(section.ReadString(win32::FromAnsi(key), win32::FromAnsi(defaultText))), expected);
    }

    /// The value "k" of a fresh file with this text behind "k=".
    void ExpectValue(const std::string& stored, const std::string& expected) {
        SCOPED_TRACE(testing::PrintToString(stored.substr(0, 40)));
        ExpectKey(NewFile("[S]\r\nk=" + stored + "\r\nz=last\r\n"), "k", expected);
    }

    /// Both integer readers against the system's, and against what is known of it.
    void ExpectInt(const std::string& stored, std::int32_t expected) {
        SCOPED_TRACE(testing::PrintToString(stored));
        const std::wstring file = NewFile("[S]\r\nk=" + stored + "\r\n");
        ASSERT_EQ(SystemInt(file, kSection, "k"), expected) << "the system's own answer";
        const profile::Section section(file, kSectionWide);
        if (Fits16Bits(expected)) {
            EXPECT_EQ(profile::ReadInt16(file, kSectionWide, L"k"), expected);
            EXPECT_EQ(section.ReadInt16(L"k"), expected);
        } else {
            EXPECT_EQ(RaisedBy([&] { profile::ReadInt16(file, kSectionWide, L"k"); }).Number(), win32::kOverflowNumber);
            const win32::AppError error = RaisedBy([&] { static_cast<void>(section.ReadInt16(L"k")); });
            EXPECT_EQ(error.Number(), win32::kOverflowNumber);
            EXPECT_EQ(error.Description(), L"Overflow");
        }
    }
};

TEST_F(ProfileTest, OneMatchingOuterPairOfQuotesIsStripped) {
    ExpectValue("\"abc\"", "abc");
    ExpectValue("'abc'", "abc");
    ExpectValue("\"\"abc\"\"", "\"abc\"");
    ExpectValue("\"a\" , \"b\"", "a\" , \"b");
    ExpectValue("\"\"", "");
    ExpectValue("''", "");
    ExpectValue("\" abc \"", " abc ");
}

TEST_F(ProfileTest, AnyOtherQuoteStays) {
    ExpectValue("\"abc'", "\"abc'");
    ExpectValue("\"", "\"");
    ExpectValue("'", "'");
    ExpectValue("\"abc\";x", "\"abc\";x");
    ExpectValue("a\"b\"c", "a\"b\"c");
    ExpectValue("\"abc", "\"abc");
}

TEST_F(ProfileTest, BlanksRoundKeyAndValueAreTrimmedAndInnerOnesKept) {
    ExpectValue("  a  b  ", "a  b");
    ExpectValue("\ta\tb\t", "a\tb");
    ExpectKey(NewFile("[S]\r\n  k  =  v  \r\n"), "k", "v");
    ExpectKey(NewFile("[S]\r\n\tk\t=\tv\t\r\n"), "k", "v");
    ExpectKey(NewFile("[S]\r\na key = v\r\n"), "a key", "v");
}

TEST_F(ProfileTest, BytesAbove127AreNoBlanks) {
    ExpectValue("\xA0 a \xA0", "\xA0 a \xA0");
    ExpectValue("\x85 a \x85", "\x85 a \x85");
}

TEST_F(ProfileTest, EveryByteAbove127SurvivesReading) {
    std::string all;
    for (int byte = 0x80; byte <= 0xFF; ++byte) all += static_cast<char>(byte);
    ExpectValue("x" + all + "x", "x" + all + "x");
}

TEST_F(ProfileTest, ControlCharactersThatAreNoBlanksStayAtBothEnds) {
    for (int code = 1; code <= 31; ++code) {
        const bool blank = (code >= 9 && code <= 13) || code == 26;
        if (blank) continue;
        const std::string mark(1, static_cast<char>(code));
        ExpectValue(mark + "a" + mark + "b" + mark, mark + "a" + mark + "b" + mark);
    }
}

TEST_F(ProfileTest, ControlCharactersThatAreBlanksAreWhatTheSystemMakesOfThem) {
    for (const int code : {9, 11, 12, 13, 26}) {
        const std::string mark(1, static_cast<char>(code));
        for (const std::string& stored : {mark + "a" + mark, "a" + mark + "b", mark + mark + "a"}) {
            SCOPED_TRACE(testing::PrintToString(stored));
            const std::wstring file = NewFile("[S]\r\nk=" + stored + "\r\nz=last\r\n");
            ExpectKey(file, "k", SystemString(file, kSection, "k", "none"));
            ExpectKey(file, "z", "last");
        }
    }
}

TEST_F(ProfileTest, ALoneCarriageReturnEndsTheLine) {
    const std::wstring file = NewFile("[S]\r\nk=a\rm=b\r\n");
    ExpectKey(file, "k", "a");
    ExpectKey(file, "m", "b");
}

TEST_F(ProfileTest, TheFirstOfTwoEqualKeysCounts) {
    ExpectKey(NewFile("[S]\r\nk=1\r\nk=2\r\n"), "k", "1");
    ExpectKey(NewFile("[S]\r\nK=1\r\nk=2\r\n"), "k", "1");
}

TEST_F(ProfileTest, OnlyTheFirstOfTwoEqualSectionsIsSearched) {
    const std::wstring file = NewFile("[S]\r\na=1\r\n[T]\r\na=9\r\n[S]\r\na=2\r\nb=3\r\n");
    ExpectKey(file, "a", "1");
    ExpectKey(file, "b", "none");
}

TEST_F(ProfileTest, KeysAndSectionsAreFoundInAnyAsciiCase) {
    const std::wstring file = NewFile("[s]\r\nDefTitle=x\r\n");
    ExpectKey(file, "DEFTITLE", "x");
    ExpectKey(file, "deftitle", "x");
}

TEST_F(ProfileTest, CaseAbove127IsWhatTheSystemMakesOfIt) {
    const std::wstring file = NewFile("[S]\r\n\xC9=x\r\n");
    ExpectKey(file, "\xC9", "x");
    ExpectKey(file, "\xE9", SystemString(file, kSection, "\xE9", "none"));
}

TEST_F(ProfileTest, AValueMayHoldEqualSigns) {
    ExpectValue("b==c=", "b==c=");
    ExpectValue("=", "=");
}

TEST_F(ProfileTest, AnEmptyValueIsNotTheDefault) {
    ExpectValue("", "");
    ExpectValue("   ", "");
}

TEST_F(ProfileTest, AMissingKeyGivesTheDefaultWithoutItsTrailingBlanks) {
    const std::wstring file = NewFile("[S]\r\na=1\r\n");
    ExpectKey(file, "k", "not found", "not found");
    ExpectKey(file, "k", "  d", "  d  ");
    ExpectKey(file, "k", "", "");
}

TEST_F(ProfileTest, AMissingSectionOrFileGivesTheDefault) {
    ExpectKey(NewFile("[T]\r\nk=1\r\n"), "k", "none");
    ExpectKey(NewFile(""), "k", "none");
    ExpectKey(NewName(), "k", "none");
    ExpectKey((Folder() / L"no folder" / L"x.ini").wstring(), "k", "none");
    ExpectKey(Folder().wstring(), "k", "none");
}

TEST_F(ProfileTest, ABareLineShadowsTheLaterKeyAsItDoesForTheSystem) {
    const std::wstring file = NewFile("[S]\r\nk\r\nk=2\r\na=3\r\n");
    const std::string system = SystemString(file, kSection, "k", "none");
    ExpectKey(file, "k", system);
    ExpectKey(file, "a", "3");
    const std::int32_t number = SystemInt(file, kSection, "k");
    EXPECT_EQ(profile::ReadInt16(file, kSectionWide, L"k"), number);
    EXPECT_EQ(profile::Section(file, kSectionWide).ReadInt16(L"k"), number);
}

TEST_F(ProfileTest, CommentsAreNoKeysButASemicolonInAValueIsText) {
    const std::wstring file = NewFile("[S]\r\n;k=1\r\n ;k=2\r\nk=;b\r\n#k=v\r\n");
    ExpectKey(file, "k", ";b");
    ExpectKey(file, "#k", "v");
}

TEST_F(ProfileTest, LineFeedsAloneEndLines) {
    const std::wstring file = NewFile("[T]\nk=0\n[S]\na=1\nk=2\n");
    ExpectKey(file, "a", "1");
    ExpectKey(file, "k", "2");
}

TEST_F(ProfileTest, CarriageReturnsAloneEndLines) {
    const std::wstring file = NewFile("[T]\rk=0\r[S]\ra=1\rk=2\r");
    ExpectKey(file, "a", "1");
    ExpectKey(file, "k", "2");
}

TEST_F(ProfileTest, DoubledCarriageReturnsEndLines) {
    const std::wstring file = NewFile("[S]\r\r\na=1\r\r\nk=2\r\r\n");
    ExpectKey(file, "a", "1");
    ExpectKey(file, "k", "2");
}

TEST_F(ProfileTest, TheLastLineNeedsNoEnd) {
    ExpectKey(NewFile("[S]\r\na=1\r\nk=2"), "k", "2");
    ExpectKey(NewFile("[S]\nk=2  "), "k", "2");
    ExpectKey(NewFile("[S]"), "k", "none");
}

TEST_F(ProfileTest, AValueIsReadAtMost254BytesLong) {
    for (const std::size_t length : {253U, 254U, 255U, 300U, 4000U}) {
        const std::string text = Repeat("0123456789", 400).substr(0, length);
        ExpectValue(text, text.substr(0, 254));
    }
}

TEST_F(ProfileTest, TheCutLeavesABlankAtTheEndToTheCaller) {
    const std::string text = std::string(253, 'a') + " b";
    ExpectValue(text, std::string(253, 'a') + " ");
}

TEST_F(ProfileTest, QuotedValuesAtTheLimitAreCutWhereTheSystemCutsThem) {
    for (const std::size_t length : {252U, 253U, 254U, 255U, 256U, 300U})
        for (const char quote : {'"', '\''}) {
            SCOPED_TRACE(length);
            const std::string inner(length, 'x');
            const std::wstring file = NewFile("[S]\r\nk=" + std::string(1, quote) + inner + quote + "\r\n");
            const std::string system = SystemString(file, kSection, "k", "none");
            ASSERT_GE(system.size(), std::min<std::size_t>(length, 253));
            ExpectKey(file, "k", system);
        }
}

TEST_F(ProfileTest, VeryLongValuesAreWhatTheSystemMakesOfThem) {
    for (const std::size_t length : {59999U, 60000U, 65535U, 65536U, 65600U, 200000U}) {
        SCOPED_TRACE(length);
        const std::wstring file = NewFile("[S]\r\nk=" + std::string(length, 'v') + "\r\nz=last\r\n");
        ExpectKey(file, "k", SystemString(file, kSection, "k", "none"));
        ExpectKey(file, "z", "last");
    }
}

TEST_F(ProfileTest, TwoMegabytesInOneValueHarmNothing) {
    const std::wstring file = NewFile("[S]\r\na=first\r\nk=" + std::string(2 << 20, 'v') + "\r\nz=last\r\n");
    ExpectKey(file, "a", "first");
    ExpectKey(file, "k", SystemString(file, kSection, "k", "none"));
    ExpectKey(file, "z", "last");
}

TEST_F(ProfileTest, SectionsOfAnySizeAreReadWhole) {
    for (const std::size_t size : {std::size_t{64} << 10, std::size_t{300} << 10, std::size_t{2} << 20}) {
        SCOPED_TRACE(size);
        std::string text = "[S]\r\n";
        int count = 0;
        while (text.size() < size) {
            const std::string number = std::to_string(++count);
            text += "key" + number + "=" + number + " " + std::string(180, 'x') + "\r\n";
        }
        const std::wstring file = NewFile(text + "last=end\r\n[T]\r\nother=1\r\n");
        const profile::Section section(file, kSectionWide);
        EXPECT_EQ(section.ReadString(L"last", L"none"), L"end");
        EXPECT_EQ(section.ReadString(L"other", L"none"), L"none");
        for (int i = 1; i <= count; i += 97) {
            const std::string number = std::to_string(i);
            ASSERT_EQ(win32::ToAnsi(section.ReadString(win32::FromAnsi("key" + number), L"none")),
                      number + " " + std::string(180, 'x'));
        }
        EXPECT_EQ(SystemString(file, kSection, "key" + std::to_string(count), "none").substr(0, 3),
                  std::to_string(count).substr(0, 3));
        EXPECT_EQ(section.ReadInt16(win32::FromAnsi("key" + std::to_string(count))), count);
    }
}

TEST_F(ProfileTest, SectionsThatJustFillTheFirstBufferLoseNothing) {
    for (int extra = -4; extra <= 4; ++extra) {
        SCOPED_TRACE(extra);
        // "a=" and its NUL, "z=last" and its NUL, and the list's own NUL are 11 bytes.
        const std::string value(static_cast<std::size_t>(65536 - 11 + extra), 'v');
        const std::wstring file = NewFile("[S]\r\na=" + value + "\r\nz=last\r\n");
        EXPECT_EQ(profile::Section(file, kSectionWide).ReadString(L"z", L"none"), L"last");
    }
}

TEST_F(ProfileTest, IntegersInEveryOddForm) {
    ExpectInt("7", 7);
    ExpectInt("-5", -5);
    ExpectInt("+5", 5);
    ExpectInt(" 7", 7);
    ExpectInt("\" 7\"", 7);
    ExpectInt("12abc", 12);
    ExpectInt("abc", 0);
    ExpectInt("010", 10);
    ExpectInt("\"12\"", 12);
    ExpectInt("0x1F", 31);
    ExpectInt("0x", 0);
    ExpectInt("0X1F", 0);
    ExpectInt("- 5", 0);
    ExpectInt("--5", 0);
    ExpectInt("", 0);
    ExpectInt("   ", 0);
    ExpectInt("-", 0);
    ExpectInt("1,000", 1);
    ExpectInt("3.9", 3);
    ExpectInt("1e3", 1);
    ExpectInt("-0", 0);
    ExpectInt("000000000000000000007", 7);
}

TEST_F(ProfileTest, IntegersAreWhatTheSystemMakesOfThem) {
    for (const std::string stored :
         {"\x05"
          "7",
          "0b101", "0o17",
          "\xA0"
          "7",
          "7\x05", "'8'", "\"9", "0x7FFFFFFF", "0xFFFFFFFF", "0xFFFFFFFFF", "00000000000000000000000000000123",
          "1234567890123456789012345678901", "\t-12\t", "+", "+-1", "2147483648", "4294967296", "4294967301"}) {
        SCOPED_TRACE(testing::PrintToString(stored));
        const std::wstring file = NewFile("[S]\r\nk=" + stored + "\r\n");
        ExpectInt(stored, SystemInt(file, kSection, "k"));
    }
}

TEST_F(ProfileTest, IntegersThatDoNotFit16BitsAreError6) {
    ExpectInt("32767", 32767);
    ExpectInt("32768", 32768);
    ExpectInt("40000", 40000);
    ExpectInt("-32768", -32768);
    ExpectInt("-32769", -32769);
    ExpectInt("99999999999", 1215752191);
}

TEST_F(ProfileTest, AMissingIntegerIs0) {
    const std::wstring file = NewFile("[S]\r\na=1\r\n");
    EXPECT_EQ(profile::ReadInt16(file, kSectionWide, L"k"), 0);
    EXPECT_EQ(profile::Section(file, kSectionWide).ReadInt16(L"k"), 0);
    EXPECT_EQ(profile::ReadInt16(NewName(), kSectionWide, L"k"), 0);
    EXPECT_EQ(profile::Section(NewName(), kSectionWide).ReadInt16(L"k"), 0);
}

TEST_F(ProfileTest, SectionNamesMayHoldBrackets) {
    const std::string text = "[a]b]\r\nk=1\r\n[[x]\r\nk=2\r\n[]\r\nk=3\r\n[y]]\r\nk=4\r\n[z\r\nk=5\r\n";
    for (const std::string name : {"a]b", "a", "[x", "x", "", "y]", "y", "z", "]", "["}) {
        SCOPED_TRACE(testing::PrintToString(name));
        const std::wstring file = NewFile(text);
        const std::wstring wide = win32::FromAnsi(name);
        const std::string system = SystemString(file, name, "k", "none");
        EXPECT_EQ(win32::ToAnsi(profile::ReadString(file, wide, L"k", L"none")), system);
        if (!name.empty()) {
            EXPECT_EQ(win32::ToAnsi(profile::Section(file, wide).ReadString(L"k", L"none")), system);
        }
    }
}

TEST_F(ProfileTest, IsCutTellsWhichStoredValuesAreLongerThanTheReadOnes) {
    const std::wstring file =
        NewFile("[S]\r\nfits=" + std::string(254, 'a') + "\r\ncut=" + std::string(255, 'a') + "\r\nquoted=\"" +
                std::string(254, 'a') + "\"\r\nquotedCut=\"" + std::string(255, 'a') + "\"\r\nbare\r\nempty=\r\n");
    const profile::Section section(file, kSectionWide);
    EXPECT_FALSE(section.IsCut(L"fits"));
    EXPECT_TRUE(section.IsCut(L"cut"));
    EXPECT_FALSE(section.IsCut(L"quoted"));
    EXPECT_TRUE(section.IsCut(L"quotedCut"));
    EXPECT_FALSE(section.IsCut(L"bare"));
    EXPECT_FALSE(section.IsCut(L"empty"));
    EXPECT_FALSE(section.IsCut(L"missing"));
}

TEST_F(ProfileTest, ASectionIsOneCallAndItsValuesNone) {
    const std::wstring file = NewFile("[S]\r\nk=v\r\nn=12\r\nq=\"quoted\"\r\n");
    const std::size_t before = profile::CallCount();
    const profile::Section section(file, kSectionWide);
    EXPECT_EQ(profile::CallCount() - before, 1U);
    EXPECT_EQ(section.ReadString(L"k", L""), L"v");
    EXPECT_EQ(section.ReadString(L"q", L""), L"quoted");
    EXPECT_EQ(section.ReadString(L"missing", L"d"), L"d");
    EXPECT_EQ(section.ReadInt16(L"n"), 12);
    EXPECT_EQ(section.ReadInt16(L"missing"), 0);
    EXPECT_FALSE(section.IsCut(L"k"));
    EXPECT_EQ(profile::CallCount() - before, 1U);
}

TEST_F(ProfileTest, AMissingOrEmptyNumberIsItsDefault) {
    const std::wstring file = NewFile("[S]\r\nn=12\r\nempty=\r\nblank=   \r\nword=few\r\nbare\r\n");
    const profile::Section section(file, kSectionWide);
    const auto expect = [&](const wchar_t* key, std::int16_t expected) {
        EXPECT_EQ(profile::ReadInt16(file, kSectionWide, key, 7), expected);
        EXPECT_EQ(section.ReadInt16(key, 7), expected);
    };
    expect(L"n", 12);
    expect(L"missing", 7);
    expect(L"empty", 7);
    expect(L"blank", 7);
    expect(L"bare", 7);
    expect(L"word", 0);
    EXPECT_EQ(profile::ReadInt16(NewName(), kSectionWide, L"n", -7), -7);
    EXPECT_EQ(profile::Section(NewName(), kSectionWide).ReadInt16(L"n", -7), -7);
}

TEST_F(ProfileTest, LinesComeAsTheSystemListsThemAndWholeOnly) {
    using Lines = std::vector<std::wstring>;
    const std::wstring file = NewFile("[S]\r\n b = 2 \r\n\r\n; comment\r\nbare\r\na=\"1\"\r\na=\xC4\r\n[T]\r\nc=3\r\n");
    const Lines all{L"b=2", L"bare", L"a=\"1\"", L"a=\u00C4"};
    EXPECT_EQ(profile::ReadLines(file, kSectionWide, 4096), all);
    // 4 + 5 + 6 + 4 bytes with their NULs, and one more for the end of the list.
    EXPECT_EQ(profile::ReadLines(file, kSectionWide, 20), all);
    EXPECT_EQ(profile::ReadLines(file, kSectionWide, 19), (Lines{L"b=2", L"bare", L"a=\"1\""}));
    EXPECT_EQ(profile::ReadLines(file, kSectionWide, 16), (Lines{L"b=2", L"bare", L"a=\"1\""}));
    EXPECT_EQ(profile::ReadLines(file, kSectionWide, 15), (Lines{L"b=2", L"bare"}));
    EXPECT_EQ(profile::ReadLines(file, kSectionWide, 4), Lines{});
    EXPECT_EQ(profile::ReadLines(file, L"none", 4096), Lines{});
    EXPECT_EQ(profile::ReadLines(NewName(), kSectionWide, 4096), Lines{});
}

TEST_F(ProfileTest, EverySingleReadAndWriteIsOneCall) {
    const std::wstring file = NewFile("[S]\r\nk=v\r\nn=12\r\n");
    std::size_t before = profile::CallCount();
    EXPECT_EQ(profile::ReadString(file, kSectionWide, L"k", L""), L"v");
    EXPECT_EQ(profile::CallCount() - before, 1U);
    EXPECT_EQ(profile::ReadInt16(file, kSectionWide, L"n"), 12);
    EXPECT_EQ(profile::CallCount() - before, 2U);
    profile::WriteString(file, kSectionWide, L"k", L"w", L"Test");
    EXPECT_EQ(profile::CallCount() - before, 3U);
    profile::RemoveSection(file, kSectionWide, L"Test");
    EXPECT_EQ(profile::CallCount() - before, 4U);
}

TEST_F(ProfileTest, ASectionMayBeMoved) {
    const std::wstring file = NewFile("[S]\r\nk=short\r\nlong=" + std::string(100, 'x') + "\r\n");
    profile::Section first(file, kSectionWide);
    profile::Section second = std::move(first);
    EXPECT_EQ(second.ReadString(L"k", L""), L"short");
    second = profile::Section(NewFile("[S]\r\nk=other\r\n"), kSectionWide);
    EXPECT_EQ(second.ReadString(L"k", L""), L"other");
    EXPECT_EQ(second.ReadString(L"long", L"none"), L"none");
}

// ---- random files
// ----------------------------------------------------------------------------------------------------

class RandomFile {
public:
    explicit RandomFile(unsigned seed) : random_(seed) {}

    std::string Make() {
        // A file that starts with plain text has no byte order mark by chance.
        std::string text = Pick({"x=1", "[S]", ";", "[T]\r\nk=no", ""}) + "\r\n";
        if (Chance(2)) text += "[S]" + LineEnd();
        const int lines = Below(14);
        for (int i = 0; i < lines; ++i) text += Line() + LineEnd();
        if (Chance(4)) text += Line();
        return text;
    }

    static std::vector<std::string> Keys() {
        return {"k", "K", "kk", "n", "\xC9", "\xE9", "a b", "\"k\"", "x", "k\x05", ";k", "missing"};
    }

    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

private:
    bool Chance(int of) { return Below(of) == 0; }

    std::string Pick(const std::vector<std::string>& choices) {
        return choices[static_cast<std::size_t>(Below(static_cast<int>(choices.size())))];
    }

    std::string LineEnd() { return Pick({"\r\n", "\r\n", "\r\n", "\n", "\r", "\r\r\n", "\n\n", " \r\n"}); }

    std::string Blanks() { return Pick({"", "", "", " ", "\t", "  ", "\x0B", "\x0C", "\x1A"}); }

    std::string Key() { return Pick({"k", "K", "kk", "n", "N", "\xC9", "\xE9", "a b", "\"k\"", "x", "k\x05", ""}); }

    std::string Line() {
        switch (Below(12)) {
            case 0:
                return Blanks() + Pick({"[S]", "[s]", "[T]", "[ S ]", "[S", "[S] junk", "[]", "[S]]", "S]"}) + Blanks();
            case 1:
                return Blanks() + Key() + Blanks();
            case 2:
                return Blanks() + ";" + Key() + "=" + Value();
            case 3:
                return Blanks();
            default:
                return Blanks() + Key() + Blanks() + "=" + Blanks() + Value() + Blanks();
        }
    }

    std::string Value() {
        switch (Below(8)) {
            case 0:
                return Number();
            case 1: {
                const std::string quote = Pick({"\"", "'"});
                return quote + Text() + Pick({quote, quote, "", "\"", quote + quote});
            }
            case 2: {
                const std::string inner(static_cast<std::size_t>(248 + Below(12)), 'y');
                return Pick({"", "\"", "'", " "}) + inner + Pick({"", "\"", "'", " z"});
            }
            default:
                return Text();
        }
    }

    std::string Number() {
        std::string number = Pick({"", "+", "-", "0x", "0X", "0", " ", "\"", "0b", "\x05", "--"});
        const int digits = Below(13);
        for (int i = 0; i < digits; ++i) number += static_cast<char>('0' + Below(10));
        return number + Pick({"", "", "abc", " 5", "\"", ".5"});
    }

    std::string Text() {
        std::string text;
        const int length = Below(9);
        for (int i = 0; i < length; ++i) switch (Below(6)) {
                case 0:
                    text += static_cast<char>(1 + Below(31));
                    break;
                case 1:
                    text += static_cast<char>(0x80 + Below(128));
                    break;
                case 2:
                    text += Pick({"\"", "'", "=", ";", "[", "]", " ", "#"});
                    break;
                default:
                    text += static_cast<char>('!' + Below(94));
            }
        return text;
    }

    std::mt19937 random_;
};

TEST_F(ProfileTest, RandomFilesReadAlikeByOneSectionAndBySingleCalls) {
    constexpr int kFiles = 3000;
    RandomFile source(20240607U);
    const std::vector<std::string> keys = RandomFile::Keys();
    const std::vector<std::string> defaults{"", "none", " d "};
    int found = 0;
    for (int number = 0; number < kFiles; ++number) {
        const std::string text = source.Make();
        const std::wstring file = NewFile(text);
        const profile::Section section(file, kSectionWide);
        for (int pick = 0; pick < 5; ++pick) {
            const std::string& key = keys[static_cast<std::size_t>(source.Below(static_cast<int>(keys.size())))];
            // A comment is a key for some systems' single call only.
            if (key.front() == ';') continue;
            const std::wstring wideKey = win32::FromAnsi(key);
            const std::string& fallback = defaults[static_cast<std::size_t>(number) % defaults.size()];
            const std::string expected = SystemString(file, kSection, key, fallback);
            ASSERT_EQ(win32::ToAnsi(section.ReadString(wideKey, win32::FromAnsi(fallback))), expected)
                << "key " << testing::PrintToString(key) << " in file " << number << ": "
                << testing::PrintToString(text);
            if (expected != fallback) ++found;
            const std::int32_t expectedNumber = SystemInt(file, kSection, key);
            std::int32_t read = 0;
            try {
                read = section.ReadInt16(wideKey);
            } catch (const win32::AppError& error) {
                ASSERT_EQ(error.Number(), win32::kOverflowNumber);
                ASSERT_FALSE(Fits16Bits(expectedNumber)) << "key " << testing::PrintToString(key) << " in file "
                                                         << number << ": " << testing::PrintToString(text);
                continue;
            }
            ASSERT_EQ(read, expectedNumber) << "key " << testing::PrintToString(key) << " in file " << number << ": "
                                            << testing::PrintToString(text);
        }
        std::filesystem::remove(file);
    }
    // The files must be such that there is something to compare.
    EXPECT_GT(found, kFiles);
}

TEST_F(ProfileTest, RandomBytesAreReadWithoutHarm) {
    std::mt19937 random(7U);
    for (int number = 0; number < 300; ++number) {
        std::string bytes = "[S]\nk=";
        const std::size_t length = random() % 3000;
        for (std::size_t i = 0; i < length; ++i) {
            const char byte = static_cast<char>(random() % 256);
            bytes += byte == '\0' ? '=' : byte;
        }
        const std::wstring file = NewFile(bytes);
        EXPECT_EQ(win32::ToAnsi(profile::Section(file, kSectionWide).ReadString(L"k", L"none")),
                  SystemString(file, kSection, "k", "none"))
            << "file " << number;
        std::filesystem::remove(file);
    }
}

TEST_F(ProfileTest, NulBytesAreReadWithoutHarm) {
    const std::string text("[S]\r\na=1\r\nk=v\0x\r\nz=last\r\n", 28);
    const std::wstring file = NewFile(text);
    ExpectKey(file, "a", "1");
    ExpectKey(file, "k", SystemString(file, kSection, "k", "none"));
    ExpectKey(file, "z", SystemString(file, kSection, "z", "none"));
}

// ---- writing
// ---------------------------------------------------------------------------------------------------------

TEST_F(ProfileTest, WriteStringWritesTheBytesOfTheCodePage) {
    const std::wstring file = NewFile("[S]\r\na=1\r\n");
    profile::WriteString(file, kSectionWide, L"k", L"\u00e4 \x05 \x07 \u20ac", L"Test");
    EXPECT_EQ(ReadBytes(file), "[S]\r\na=1\r\nk=\xE4 \x05 \x07 \x80\r\n");
    profile::WriteString(file, L"New", L"n", L"", L"Test");
    EXPECT_EQ(ReadBytes(file), "[S]\r\na=1\r\nk=\xE4 \x05 \x07 \x80\r\n[New]\r\nn=\r\n");
}

TEST_F(ProfileTest, WriteSectionReplacesTheWholeSectionInTheOrderOfItsLines) {
    const std::wstring file = NewFile("[A]\r\nx=1\r\n[S]\r\nold=1\r\nTitleEng=2\r\n[B]\r\ny=2\r\n");
    const std::vector<profile::Line> lines{{L"z", L"1"}, {L"a", L""}, {L"m", L"x=y;z"}};
    profile::WriteSection(file, kSectionWide, lines, L"Test");
    EXPECT_EQ(ReadBytes(file), "[A]\r\nx=1\r\n[S]\r\nz=1\r\na=\r\nm=x=y;z\r\n[B]\r\ny=2\r\n");
}

TEST_F(ProfileTest, RemoveSectionTakesTheSectionWithItsHeader) {
    const std::wstring file = NewFile("[A]\r\nx=1\r\n[S]\r\nk=1\r\n[B]\r\ny=2\r\n");
    profile::RemoveSection(file, kSectionWide, L"Test");
    EXPECT_EQ(ReadBytes(file), "[A]\r\nx=1\r\n[B]\r\ny=2\r\n");
    profile::RemoveSection(file, L"missing", L"Test");
    EXPECT_EQ(ReadBytes(file), "[A]\r\nx=1\r\n[B]\r\ny=2\r\n");
}

TEST_F(ProfileTest, ARefusedWriteIsAnErrorThatNamesTheFile) {
    const std::string text = "[S]\r\nk=1\r\n[T]\r\nk=2\r\n";
    const std::wstring file = NewFile(text);
    {
        const HeldFile held(file);
        ASSERT_TRUE(held.Held());
        const std::vector<profile::Line> lines{{L"z", L"1"}};
        const auto expectRefused = [&](const auto& write) {
            const win32::AppError error = RaisedBy(write);
            EXPECT_EQ(error.Source(), L"The source");
            EXPECT_EQ(error.Number(), HRESULT_FROM_WIN32(ERROR_SHARING_VIOLATION));
            EXPECT_NE(error.Description().find(file), std::wstring::npos) << win32::ToAnsi(error.Description());
            EXPECT_EQ(win32::FromAnsi(error.what()), error.Description());
        };
        expectRefused([&] { profile::WriteString(file, kSectionWide, L"k", L"2", L"The source"); });
        expectRefused([&] { profile::WriteSection(file, kSectionWide, lines, L"The source"); });
        expectRefused([&] { profile::RemoveSection(file, kSectionWide, L"The source"); });
        expectRefused([&] { profile::CopySection(file, L"T", kSectionWide, 4000, L"The source"); });
    }
    EXPECT_EQ(ReadBytes(file), text);
}

TEST_F(ProfileTest, AWriteIntoAMissingFolderIsRefusedToo) {
    const std::wstring file = (Folder() / L"no folder" / L"x.ini").wstring();
    const win32::AppError error =
        RaisedBy([&] { profile::WriteString(file, kSectionWide, L"k", L"2", L"The source"); });
    EXPECT_NE(error.Description().find(file), std::wstring::npos);
    EXPECT_FALSE(std::filesystem::exists(Folder() / L"no folder"));
}

// ---- moving
// ----------------------------------------------------------------------------------------------------------

/// Lines that take exactly this many bytes in a whole-section read, its final NUL included.
std::vector<profile::Line> LinesOf(std::size_t sectionBytes) {
    std::vector<profile::Line> lines;
    std::size_t left = sectionBytes - 1;
    int number = 100;
    while (left > 0) {
        // "kNNN=", the value and its NUL; the last line takes what is left.
        const std::size_t size = left >= 400 ? 200 : left;
        lines.push_back({L"k" + std::to_wstring(number++), std::wstring(size - 7, L'v') + L"e"});
        left -= size;
    }
    return lines;
}

std::string TextOf(const std::string& section, const std::vector<profile::Line>& lines) {
    std::string text = "[" + section + "]\r\n";
    for (const profile::Line& line : lines) text += win32::ToAnsi(line.key) + "=" + win32::ToAnsi(line.value) + "\r\n";
    return text;
}

TEST_F(ProfileTest, SectionBytesCountsTheListAsASectionReadGivesIt) {
    EXPECT_EQ(profile::SectionBytes({}), 1U);
    const std::vector<profile::Line> lines{{L"a", L"1"}, {L"bc", L"\u20ac"}};
    EXPECT_EQ(profile::SectionBytes(lines), 10U);
    for (const std::size_t size : {500U, 3999U, 4000U, 4001U}) EXPECT_EQ(profile::SectionBytes(LinesOf(size)), size);
}

TEST_F(ProfileTest, CopySectionWritesTheSectionUnderTheOtherName) {
    const std::wstring file = NewFile("[L01]\r\nold=1\r\n[L02]\r\nb=2\r\na=\"quoted\"\r\n[L03]\r\nc=3\r\n");
    EXPECT_FALSE(profile::CopySection(file, L"L02", L"L01", 4000, L"Test"));
    EXPECT_EQ(ReadBytes(file), "[L01]\r\nb=2\r\na=\"quoted\"\r\n[L02]\r\nb=2\r\na=\"quoted\"\r\n[L03]\r\nc=3\r\n");
}

TEST_F(ProfileTest, CopySectionOfAMissingSectionLeavesAnEmptyOne) {
    const std::wstring file = NewFile("[L01]\r\nold=1\r\n");
    EXPECT_FALSE(profile::CopySection(file, L"L02", L"L01", 4000, L"Test"));
    EXPECT_EQ(profile::ReadString(file, L"L01", L"old", L"none"), L"none");
    EXPECT_EQ(profile::Section(file, L"L01").ReadString(L"old", L"none"), L"none");
}

TEST_F(ProfileTest, ASectionOfExactly4000BytesIsMovedWhole) {
    for (const std::size_t size : {3998U, 3999U, 4000U}) {
        SCOPED_TRACE(size);
        const std::vector<profile::Line> lines = LinesOf(size);
        const std::wstring file = NewFile(TextOf("L01", {{L"old", L"1"}}) + TextOf("L02", lines));
        EXPECT_FALSE(profile::CopySection(file, L"L02", L"L01", 4000, L"Test"));
        EXPECT_EQ(ReadBytes(file), TextOf("L01", lines) + TextOf("L02", lines));
    }
}

TEST_F(ProfileTest, ASectionOf4001BytesAndMoreIsCutAndToldSo) {
    for (const std::size_t size : {4001U, 4002U, 4100U, 9000U, 70000U}) {
        SCOPED_TRACE(size);
        const std::vector<profile::Line> lines = LinesOf(size);
        const std::string text = TextOf("L01", {{L"old", L"1"}}) + TextOf("L02", lines);
        const std::wstring file = NewFile(text);
        EXPECT_TRUE(profile::CopySection(file, L"L02", L"L01", 4000, L"Test"));
        // What is left is what the system's own buffer of 4000 holds: its first 3998 bytes.
        const std::wstring reference = NewFile(text);
        const std::string path = win32::ToAnsi(reference);
        std::vector<char> buffer(4000);
        ASSERT_EQ(GetPrivateProfileSectionA("L02", buffer.data(), 4000, path.c_str()), 3998U);
        ASSERT_TRUE(WritePrivateProfileSectionA("L01", buffer.data(), path.c_str()));
        EXPECT_EQ(ReadBytes(file), ReadBytes(reference));
        EXPECT_LT(ReadBytes(file).size(), TextOf("L01", lines).size() + TextOf("L02", lines).size());
    }
}

TEST_F(ProfileTest, At4001BytesTheLastCharacterIsLost) {
    const std::vector<profile::Line> lines = LinesOf(4001);
    const std::wstring file = NewFile(TextOf("L01", {{L"old", L"1"}}) + TextOf("L02", lines));
    profile::CopySection(file, L"L02", L"L01", 4000, L"Test");
    std::vector<profile::Line> expected = lines;
    expected.back().value.pop_back();
    EXPECT_EQ(ReadBytes(file), TextOf("L01", expected) + TextOf("L02", lines));
}

}  // namespace
}  // namespace unit
