// The student profile: what the lists offer, what is stored for them, and the keys in the file.
#include "profile/modStudentProfile.h"

#include <string>
#include <vector>

#include "shell/modGlobals.h"
#include "unit/fixture.h"

namespace unit {
namespace {

using namespace modStudentProfile;

class StudentProfileTest : public FolderTest {
protected:
    void SetUp() override {
        FolderTest::SetUp();
        // A name of its own for each test: the system keeps what it read of a file.
        modGlobals::gDialogTutorIni = NewName();
    }
    static std::string Stored() { return ReadBytes(modGlobals::gDialogTutorIni); }

    static StudentProfile Full() {
        StudentProfile profile;
        profile.birthYear = L"2010";
        profile.birthMonth = L"May";
        profile.birthDay = L"31";
        profile.birthCountry = L"Austrailia";
        profile.sex = L"F";
        profile.hair = L"Red";
        profile.school = L"High School";
        profile.food = L"apple pie";
        profile.friendName = L"Ben";
        profile.animal = L"cat";
        profile.tvShow = L"news";
        profile.sports = L"Y";
        profile.music = L"N";
        profile.games = L"Y";
        profile.other = L"N";
        return profile;
    }
    static constexpr char kFull[] =
        "[StudentProfile]\r\nBirthYear=2010\r\nBirthMonth=May\r\nBirthDay=31\r\nBirthCountry=Austrailia\r\nSex=F\r\n"
        "Hair=Red\r\nSchool=High School\r\nFood=apple pie\r\nFriend=Ben\r\nAnimal=cat\r\nTVShow=news\r\nSports=Y\r\n"
        "Music=N\r\nGames=Y\r\nOther=N\r\n";
};

TEST_F(StudentProfileTest, In2024TheYearListRunsFrom1914To2024) {
    const std::vector<Choice> years = BirthYears(2024);
    ASSERT_EQ(years.size(), 111U);
    EXPECT_EQ(years.front(), (Choice{L"1914", L"1914"}));
    EXPECT_EQ(years[1].shown, L"1915");
    EXPECT_EQ(years.back(), (Choice{L"2024", L"2024"}));
}

TEST_F(StudentProfileTest, MonthsAreThoseOfTheCalendarAndDaysRunTo31) {
    const std::vector<Choice> months = BirthMonths();
    ASSERT_EQ(months.size(), 12U);
    EXPECT_EQ(months.front(), (Choice{L"January", L"January"}));
    EXPECT_EQ(months[8].stored, L"September");
    EXPECT_EQ(months.back(), (Choice{L"December", L"December"}));
    const std::vector<Choice> days = BirthDays();
    ASSERT_EQ(days.size(), 31U);
    EXPECT_EQ(days.front(), (Choice{L"1", L"1"}));
    EXPECT_EQ(days.back(), (Choice{L"31", L"31"}));
}

TEST_F(StudentProfileTest, AustraliaIsStoredInItsOldSpelling) {
    EXPECT_EQ(BirthCountries(), (std::vector<Choice>{{L"USA", L"USA"},
                                                     {L"Canada", L"Canada"},
                                                     {L"United Kingdom", L"United Kingdom"},
                                                     {L"Australia", L"Austrailia"},
                                                     {L"New Zealand", L"New Zealand"}}));
}

TEST_F(StudentProfileTest, AListWithoutAChoiceGivesTheEmptyTextAndAnEmptyOne0) {
    const std::vector<Choice> countries = BirthCountries();
    EXPECT_EQ(ChosenValue(countries, 3, 5), L"Austrailia");
    EXPECT_EQ(ChosenValue(countries, 0, 5), L"USA");
    EXPECT_EQ(ChosenValue(countries, -1, 5), L"");
    EXPECT_EQ(ChosenValue(countries, -1, 0), L"0");
}

TEST_F(StudentProfileTest, TheFifteenKeysStandInTheirOrder) {
    EXPECT_EQ(SaveStudentProfile(Full()), 1);
    EXPECT_EQ(Stored(), kFull);
}

TEST_F(StudentProfileTest, SavingMakesTheFileButDoesNotTouchOtherSections) {
    WriteBytes(modGlobals::gDialogTutorIni, "[Tutor]\r\nVersion=1\r\n[StudentProfile]\r\n");
    EXPECT_EQ(SaveStudentProfile(Full()), 1);
    EXPECT_EQ(Stored(), std::string("[Tutor]\r\nVersion=1\r\n") + kFull);
}

TEST_F(StudentProfileTest, SavingAgainReplacesTheValuesInPlace) {
    SaveStudentProfile(Full());
    StudentProfile second = Full();
    second.food = L"";
    second.birthYear = L"0";
    EXPECT_EQ(SaveStudentProfile(second), 1);
    std::string expected = kFull;
    expected.replace(expected.find("2010"), 4, "0");
    expected.replace(expected.find("apple pie"), 9, "");
    EXPECT_EQ(Stored(), expected) << "an empty text is an empty value, not a missing key";
}

TEST_F(StudentProfileTest, ControlCharactersAreDroppedAndTheRestIsKept) {
    StudentProfile profile = Full();
    profile.food = L"apple\r\n[Tutor]\r\nVersion=2";
    profile.animal =
        L"c\x04\x05"
        L"a\tt\x7F";
    EXPECT_EQ(SaveStudentProfile(profile), 1);
    std::string expected = kFull;
    expected.replace(expected.find("apple pie"), 9, "apple[Tutor]Version=2");
    EXPECT_EQ(Stored(), expected);
}

TEST_F(StudentProfileTest, ARefusedWriteIsNotReported) {
    WriteBytes(modGlobals::gDialogTutorIni, "[Tutor]\r\nVersion=1\r\n");
    {
        const HeldFile held(modGlobals::gDialogTutorIni);
        ASSERT_TRUE(held.Held());
        EXPECT_EQ(SaveStudentProfile(Full()), 0);
    }
    EXPECT_EQ(Stored(), "[Tutor]\r\nVersion=1\r\n");
    EXPECT_EQ(SaveStudentProfile(Full()), 1);
    EXPECT_EQ(Stored(), std::string("[Tutor]\r\nVersion=1\r\n") + kFull);
}

}  // namespace
}  // namespace unit
