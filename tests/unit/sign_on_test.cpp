// Signing on: the two rules for a name, and what an accepted name changes.
#include "shell/sign_on.h"

#include <system_error>

#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "unit/fixture.h"

namespace unit {
namespace {

namespace fs = std::filesystem;
using namespace modGlobals;

constexpr wchar_t kTooShort[] = L"Must be first name, followed by a space, followed by the last name or last initial";
constexpr wchar_t kNoSpace[] = L"There must be a space between the first name and the last name (or last initial)";

TEST(ValidateName, ATwoLetterNameIsRefusedWithTheFirstMessage) {
    EXPECT_EQ(sign_on::ValidateName(L"Al"), kTooShort);
    EXPECT_EQ(sign_on::ValidateName(L""), kTooShort);
    EXPECT_EQ(sign_on::ValidateName(L"  "), kTooShort);
}

TEST(ValidateName, AFirstNameASpaceAndALastNameAreAccepted) {
    EXPECT_EQ(sign_on::ValidateName(L"Ann Smith"), L"");
    EXPECT_EQ(sign_on::ValidateName(L"A B"), L"");
    EXPECT_EQ(sign_on::ValidateName(L"Ann  S"), L"");
}

TEST(ValidateName, TheLengthCountsOuterBlanksAndTheSpaceTestDoesNot) {
    EXPECT_EQ(sign_on::ValidateName(L"Al   "), kNoSpace);
    EXPECT_EQ(sign_on::ValidateName(L"A  "), kNoSpace);
    EXPECT_EQ(sign_on::ValidateName(L"   "), kNoSpace);
    EXPECT_EQ(sign_on::ValidateName(L"  Ann"), kNoSpace);
    EXPECT_EQ(sign_on::ValidateName(L" Ann S "), L"");
}

TEST(ValidateName, OnlyTheBlankSeparates) {
    EXPECT_EQ(sign_on::ValidateName(L"Ann\tSmith"), kNoSpace);
    EXPECT_EQ(sign_on::ValidateName(L"Ann\u00a0Smith"), kNoSpace);
    EXPECT_EQ(sign_on::ValidateName(L"Ann"), kNoSpace);
}

TEST(ValidateName, NamesThatAreNoFolderNamesAreJudgedByTheTwoRulesAlone) {
    EXPECT_EQ(sign_on::ValidateName(L"..\\.. x"), L"");
    EXPECT_EQ(sign_on::ValidateName(L". ."), L"");
    EXPECT_EQ(sign_on::ValidateName(L"a/b:c*"), kNoSpace);
}

class SignOnTest : public FolderTest {
protected:
    void SetUp() override {
        FolderTest::SetUp();
        fs::create_directories(gStudentRecordsPath);
    }
    static fs::path Records(const std::wstring& learner) { return fs::path(gStudentRecordsPath) / learner; }
};

TEST_F(SignOnTest, TheNameIsKeptAndTheLearnersFolderIsMade) {
    sign_on::SignOnLearner(L"Ann Smith");
    EXPECT_EQ(gUserName, L"Ann Smith");
    EXPECT_EQ(GetUserName(), L"Ann Smith");
    EXPECT_EQ(gCustomLessonsIni, gStudentRecordsPath + L"\\Ann Smith\\CustomLessons.ini");
    EXPECT_TRUE(fs::is_directory(Records(L"Ann Smith")));
    EXPECT_TRUE(fs::is_empty(Records(L"Ann Smith"))) << "CustomLessons.ini is never made";
}

TEST_F(SignOnTest, OuterBlanksStayInTheName) {
    sign_on::SignOnLearner(L" Ann S ");
    EXPECT_EQ(gUserName, L" Ann S ");
    EXPECT_TRUE(fs::is_directory(Records(L" Ann S")));
    EXPECT_EQ(fs::path(gCustomLessonsIni).parent_path(), Records(L" Ann S"));
}

TEST_F(SignOnTest, TheLearnersFileIsFoundThoughTheNameEndsInAFullStop) {
    WriteBytes(Records(L"Ann S") / L"CustomLessons.ini", "x");
    sign_on::SignOnLearner(L"Ann S.");
    EXPECT_TRUE(modUtils::FileExists(gCustomLessonsIni));
}

TEST_F(SignOnTest, AnotherLearnerReplacesTheFirst) {
    sign_on::SignOnLearner(L"Ann Smith");
    sign_on::SignOnLearner(L"Bob Jones");
    EXPECT_EQ(gUserName, L"Bob Jones");
    EXPECT_EQ(gCustomLessonsIni, gStudentRecordsPath + L"\\Bob Jones\\CustomLessons.ini");
}

TEST_F(SignOnTest, ANameThatIsNoFolderNameTouchesNoFile) {
    SetNetwork();
    WriteBytes(NetworkFolder() / L"Student Records" / L"x y" / L"a.ini", "a");
    const auto before = Snapshot(Folder());
    for (const std::wstring name : {L"..\\x y", L"x/y z", L"a: b", L". .", L"CON .b", L"what? x"}) {
        sign_on::SignOnLearner(name);
        EXPECT_EQ(gUserName, name);
        EXPECT_FALSE(modUtils::FileExists(gCustomLessonsIni));
        EXPECT_EQ(gCustomLessonsIni.find(L".."), std::wstring::npos);
    }
    EXPECT_EQ(Snapshot(Folder()), before);
}

TEST_F(SignOnTest, TheNetworksRecordsArePulled) {
    SetNetwork();
    WriteBytes(NetworkFolder() / L"Student Records" / L"Ann Smith" / L"CustomLessons.ini", "net");
    sign_on::SignOnLearner(L"Ann Smith");
    EXPECT_EQ(ReadBytes(gCustomLessonsIni), "net");
}

TEST_F(SignOnTest, ANetworkOutOfReachIsAnOrdinaryState) {
    SetNetwork("\\nowhere");
    sign_on::SignOnLearner(L"Ann Smith");
    EXPECT_TRUE(fs::is_directory(Records(L"Ann Smith")));
}

TEST_F(SignOnTest, AFolderThatCannotBeMadeIsToldAndTheLearnerIsSignedOn) {
    WriteBytes(Records(L"Ann Smith"), "a file where the folder should be");
    EXPECT_THROW(sign_on::SignOnLearner(L"Ann Smith"), std::system_error);
    EXPECT_EQ(gUserName, L"Ann Smith");
}

}  // namespace
}  // namespace unit
