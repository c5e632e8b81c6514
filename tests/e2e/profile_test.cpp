// Preferences by Enter and by OK, and the student profile from its first key to its file.
#include <functional>

#include "fixture.h"

namespace e2e {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::wstring>;

constexpr wchar_t kPreferences[] = L"dlgPreferences";
constexpr wchar_t kProfile[] = L"dlgStudentProfile";

/// Every way out of a dialog that is a cancel.
std::vector<std::function<void(Session&, const wchar_t*)>> WaysOut() {
    return {[](Session& app, const wchar_t*) { EXPECT_TRUE(app.Press("Esc")); },
            [](Session& app, const wchar_t*) { EXPECT_TRUE(app.Press("Alt+F4")); },
            [](Session& app, const wchar_t* form) { EXPECT_TRUE(app.Form(form).Post(WM_CLOSE)); },
            [](Session& app, const wchar_t* form) { EXPECT_TRUE(app.Control(form, L"CancelButton").Click()); }};
}

class Preferences : public KeystrideTest {
protected:
    static fs::path File() { return CommonFolder() / L"KSUserPrefs.ini"; }
    static void Write(const std::string& lines) { WriteBytes(File(), "[UserPreferences]\r\n" + lines); }

    Window Open() { return OpenForm("Ctrl+U", kPreferences, L"lstPreferences"); }
    ListContent Entries() { return ReadList(App().Control(kPreferences, L"lstPreferences")); }
    void ChooseSecond() {
        ASSERT_TRUE(App().Press("Down"));
        ASSERT_TRUE(WaitUntil([&] { return Entries().selected == 1; }));
    }
};

TEST_F(Preferences, AChoiceByEnterAndAChoiceByOk) {
    StartUnsigned();
    ASSERT_TRUE(App().Type(L"typed before"));
    ASSERT_TRUE(App().WaitForText(L"frmMain", L"rtfEdit", L"typed before"));
    const Window dialog = Open();
    EXPECT_EQ(dialog.Text(), L"User Preferences");
    EXPECT_EQ(Entries().lines, (Texts{L"Speak slower", L"Speak faster"}));
    EXPECT_EQ(Entries().selected, 0);
    ASSERT_NO_FATAL_FAILURE(ChooseSecond());
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"OKButton"));
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(
        App().WaitForRequest(L"Preferences\x05"
                             L"2"))
        << Readable(App().Request());
    ASSERT_TRUE(App().WaitForNoForm(kPreferences));
    EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
    EXPECT_EQ(App().Text(L"frmMain", L"rtfEdit"), L"typed before") << "OK leaves the typing area";

    ASSERT_TRUE(Open());
    ASSERT_NO_FATAL_FAILURE(ChooseSecond());
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(
        App().WaitForRequest(L"Preference\x05"
                             L"2"))
        << Readable(App().Request());
    ASSERT_TRUE(App().WaitForNoForm(kPreferences));
    EXPECT_TRUE(App().WaitForText(L"frmMain", L"rtfEdit", L"")) << "Enter empties it";
    EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
    EXPECT_FALSE(App().RichTextOf(L"frmMain", L"rtfEdit").FormatAtCaret().underlined) << "Control+U is swallowed";
}

TEST_F(Preferences, EveryWayOutIsACancel) {
    StartUnsigned();
    ASSERT_TRUE(App().Type(L"typed before"));
    for (const auto& leave : WaysOut()) {
        ASSERT_TRUE(Open());
        leave(App(), kPreferences);
        ASSERT_TRUE(App().WaitForNoForm(kPreferences));
        EXPECT_TRUE(App().WaitForRequest(L"Preferences\x05\x04")) << Readable(App().Request());
        EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
    }
    EXPECT_EQ(App().Text(L"frmMain", L"rtfEdit"), L"typed before");
}

TEST_F(Preferences, AnEmptyListIsToldAndStaysOpen) {
    Write("");
    StartUnsigned();
    ASSERT_TRUE(Open());
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_NO_FATAL_FAILURE(ExpectMessage(kPreferences, L"There are no preferences or tasks to select"));
    EXPECT_TRUE(App().WaitForFocus(L"lstPreferences"));
    ASSERT_TRUE(App().Control(kPreferences, L"OKButton").Click());
    ASSERT_NO_FATAL_FAILURE(ExpectMessage(kPreferences, L"There are no preferences or tasks to select"));
    ASSERT_NO_FATAL_FAILURE(CloseForm(kPreferences));
}

TEST_F(Preferences, OfASectionOver4095CharactersOnlyTheEntriesThatFitAreListed) {
    std::string lines;
    Texts fitting;
    // Each line takes 100 bytes with its end: 40 of them fit whole into 4094.
    for (int line = 0; line < 60; ++line) {
        const std::string value = std::string(95, static_cast<char>('a' + line % 26)) + std::to_string(10 + line);
        lines += "k=" + value + "\r\n";
        if (line < 40) fitting.push_back(ToWide(value));
    }
    Write(lines);
    StartUnsigned();
    ASSERT_TRUE(Open());
    EXPECT_EQ(Entries().lines, fitting);
    ASSERT_TRUE(App().Press("End"));
    ASSERT_TRUE(WaitUntil([&] { return Entries().selected == 39; }));
    ASSERT_TRUE(App().Press("Enter"));
    EXPECT_TRUE(
        App().WaitForRequest(L"Preference\x05"
                             L"40"));
    EXPECT_EQ(ReadBytes(File()), "[UserPreferences]\r\n" + lines);
}

TEST_F(Preferences, BadFilesAreReportedAndNothingOpens) {
    StartUnsigned();
    const std::wstring request = App().Request();
    Write("a=1\r\nno value\r\nb=2\r\n");
    ASSERT_TRUE(App().Press("Ctrl+U"));
    ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(L"Subscript out of range"));
    fs::remove(File());
    ASSERT_TRUE(App().Press("Ctrl+U"));
    ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(L"File " + File().wstring() + L"not found."));
    EXPECT_EQ(App().Request(), request);
    Write("a=1=2\r\n");
    ASSERT_TRUE(Open()) << "the next opening works again";
    EXPECT_EQ(Entries().lines, Texts{L"1=2"});
}

class StudentProfile : public KeystrideTest {
protected:
    static std::string Stored() { return ReadBytes(UserFolder() / L"KSDialogTutor.ini"); }
    static constexpr char kBefore[] = "[Tutor]\r\nVersion=1\r\n";

    Window Open() { return OpenForm("Ctrl+Alt+Shift+F12", kProfile, L"cmboBirthYear"); }
    int Chosen(std::wstring_view list) { return ReadDropDown(In(kProfile, list)).selected; }
    void TypeInto(std::wstring_view box, std::wstring_view text) {
        ASSERT_NO_FATAL_FAILURE(TabTo(box));
        ASSERT_TRUE(App().Type(text));
        ASSERT_TRUE(App().WaitForText(kProfile, box, text));
    }
    void Confirm() {
        ASSERT_TRUE(App().Press("Enter"));
        ASSERT_TRUE(App().WaitForNoForm(kProfile));
        EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
    }
};

TEST_F(StudentProfile, ALearnerFillsItInWithTheKeyboardAndItStandsInItsFile) {
    StartUnsigned();
    const Window dialog = Open();
    EXPECT_EQ(dialog.Text(), L"Student Profile");
    EXPECT_EQ(App().Text(kProfile, L"rtfLessonTaskInfo"), L"About you.");
    EXPECT_EQ(App().Text(kProfile, L"lblInstructions"), L"Use Tab and arrows.\r\nPress OK.");
    ASSERT_TRUE(App().Press("Down"));
    ASSERT_TRUE(WaitUntil([&] { return Chosen(L"cmboBirthYear") == 0; }));
    ASSERT_TRUE(App().Press("End"));
    ASSERT_TRUE(WaitUntil([&] { return Chosen(L"cmboBirthYear") == 110; }));
    ASSERT_NO_FATAL_FAILURE(TabTo(L"cmboBirthMonth"));
    ASSERT_TRUE(App().Type(L"d"));
    ASSERT_TRUE(WaitUntil([&] { return Chosen(L"cmboBirthMonth") == 11; }));
    ASSERT_NO_FATAL_FAILURE(TabTo(L"cmboBirthDay"));
    ASSERT_TRUE(App().Press("Down"));
    ASSERT_TRUE(App().Press("End"));
    ASSERT_TRUE(WaitUntil([&] { return Chosen(L"cmboBirthDay") == 30; }));
    ASSERT_NO_FATAL_FAILURE(TabTo(L"cmboBirthCountry"));
    ASSERT_TRUE(App().Type(L"a"));
    ASSERT_TRUE(WaitUntil([&] { return Chosen(L"cmboBirthCountry") == 3; }));
    EXPECT_EQ(ReadDropDown(In(kProfile, L"cmboBirthCountry")).lines[3], L"Australia");
    ASSERT_NO_FATAL_FAILURE(TabTo(L"optMale"));
    ASSERT_TRUE(App().Press("Down"));
    ASSERT_TRUE(WaitUntil([&] { return Checked(kProfile, L"optFemale"); }));
    ASSERT_NO_FATAL_FAILURE(TabTo(L"optBrown"));
    ASSERT_TRUE(App().Press("Up"));
    ASSERT_TRUE(WaitUntil([&] { return Checked(kProfile, L"optRed"); }));
    ASSERT_NO_FATAL_FAILURE(TabTo(L"optElementary"));
    ASSERT_TRUE(App().Press("Down"));
    ASSERT_TRUE(WaitUntil([&] { return Checked(kProfile, L"optJuniorHigh"); }));
    ASSERT_NO_FATAL_FAILURE(TypeInto(L"txtFood", L"apple pie"));
    ASSERT_NO_FATAL_FAILURE(TypeInto(L"txtFriend", L"Ben"));
    ASSERT_NO_FATAL_FAILURE(TypeInto(L"txtAnimal", L"cat & dog"));
    ASSERT_NO_FATAL_FAILURE(TypeInto(L"txtTVShow", L"x=y"));
    for (const wchar_t* box : {L"chkSports", L"chkGames"}) {
        ASSERT_NO_FATAL_FAILURE(TabTo(box));
        ASSERT_TRUE(App().Press("Space"));
        ASSERT_TRUE(WaitUntil([&] { return Checked(kProfile, box); }));
    }
    EXPECT_EQ(Stored(), kBefore) << "nothing is written before OK or Save";
    SYSTEMTIME now{};
    GetLocalTime(&now);
    ASSERT_NO_FATAL_FAILURE(Confirm());
    EXPECT_EQ(App().Request(),
              L"StudentProfile\x05"
              L"1");
    EXPECT_EQ(Stored(), kBefore + std::string("[StudentProfile]\r\nBirthYear=") + std::to_string(now.wYear) +
                            "\r\nBirthMonth=December\r\nBirthDay=31\r\nBirthCountry=Austrailia\r\nSex=F\r\nHair=Red\r\n"
                            "School=Junior High\r\nFood=apple pie\r\nFriend=Ben\r\nAnimal=cat & dog\r\nTVShow=x=y\r\n"
                            "Sports=Y\r\nMusic=N\r\nGames=Y\r\nOther=N\r\n");
}

TEST_F(StudentProfile, OpeningChoosingNothingAndOk) {
    StartUnsigned();
    ASSERT_TRUE(Open());
    EXPECT_TRUE(Checked(kProfile, L"optMale") && Checked(kProfile, L"optBrown") && Checked(kProfile, L"optElementary"));
    ASSERT_NO_FATAL_FAILURE(Confirm());
    EXPECT_EQ(Stored(), kBefore + std::string("[StudentProfile]\r\nBirthYear=\r\nBirthMonth=\r\nBirthDay=\r\n"
                                              "BirthCountry=\r\nSex=M\r\nHair=Brown\r\nSchool=Elementary\r\nFood=\r\n"
                                              "Friend=\r\nAnimal=\r\nTVShow=\r\nSports=N\r\nMusic=N\r\nGames=N\r\n"
                                              "Other=N\r\n"));
}

TEST_F(StudentProfile, TheListsHoldWhatTheyShould) {
    StartUnsigned();
    ASSERT_TRUE(Open());
    SYSTEMTIME now{};
    GetLocalTime(&now);
    const ListContent years = ReadDropDown(In(kProfile, L"cmboBirthYear"));
    ASSERT_EQ(years.lines.size(), 111U);
    EXPECT_EQ(years.lines.front(), std::to_wstring(now.wYear - 110));
    EXPECT_EQ(years.lines.back(), std::to_wstring(now.wYear));
    EXPECT_EQ(ReadDropDown(In(kProfile, L"cmboBirthMonth")).lines,
              (Texts{L"January", L"February", L"March", L"April", L"May", L"June", L"July", L"August", L"September",
                     L"October", L"November", L"December"}));
    EXPECT_EQ(ReadDropDown(In(kProfile, L"cmboBirthDay")).lines.size(), 31U);
    EXPECT_EQ(ReadDropDown(In(kProfile, L"cmboBirthCountry")).lines,
              (Texts{L"USA", L"Canada", L"United Kingdom", L"Australia", L"New Zealand"}));
    for (const wchar_t* list : {L"cmboBirthYear", L"cmboBirthMonth", L"cmboBirthDay", L"cmboBirthCountry"})
        EXPECT_EQ(Chosen(list), -1) << ToUtf8(list);
}

TEST_F(StudentProfile, SaveStaysOpenSendsNothingAndPrintDoesNothing) {
    StartUnsigned();
    const std::wstring request = App().Request();
    ASSERT_TRUE(Open());
    ASSERT_NO_FATAL_FAILURE(TypeInto(L"txtFood", L"rice"));
    ASSERT_NO_FATAL_FAILURE(TabTo(L"cmdSave"));
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(WaitUntil([&] { return Stored().find("Other=N") != std::string::npos; }));
    EXPECT_NE(Stored().find("Food=rice\r\n"), std::string::npos);
    ASSERT_NO_FATAL_FAILURE(TabTo(L"cmdPrint"));
    ASSERT_TRUE(App().Press("Space"));
    EXPECT_TRUE(App().Press("Shift+Tab"));
    EXPECT_TRUE(App().WaitForFocus(L"cmdSave"));
    EXPECT_EQ(OpenWindows(), (Texts{kProfile, L"frmMain"}));
    EXPECT_EQ(App().Request(), request);
    const std::string saved = Stored();
    ASSERT_NO_FATAL_FAILURE(CloseForm(kProfile));
    EXPECT_EQ(App().Request(), L"StudentProfile\x05\x04");
    EXPECT_EQ(Stored(), saved) << "what was saved stays saved";
}

TEST_F(StudentProfile, EveryWayOutIsACancelAndWritesNothing) {
    StartUnsigned();
    for (const auto& leave : WaysOut()) {
        ASSERT_TRUE(Open());
        ASSERT_NO_FATAL_FAILURE(TypeInto(L"txtFood", L"never"));
        leave(App(), kProfile);
        ASSERT_TRUE(App().WaitForNoForm(kProfile));
        EXPECT_TRUE(App().WaitForRequest(L"StudentProfile\x05\x04")) << Readable(App().Request());
        EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
        EXPECT_EQ(Stored(), kBefore);
    }
}

TEST_F(StudentProfile, TheProfileIsNeverReadBack) {
    WriteBytes(UserFolder() / L"KSDialogTutor.ini", "[StudentProfile]\r\nSex=F\r\nFood=rice\r\nHair=Red\r\n");
    StartUnsigned();
    ASSERT_TRUE(Open());
    EXPECT_TRUE(Checked(kProfile, L"optMale") && Checked(kProfile, L"optBrown"));
    EXPECT_EQ(App().Text(kProfile, L"txtFood"), L"");
}

TEST_F(StudentProfile, EscAndEnterInAnOpenListCloseTheListOnly) {
    StartUnsigned();
    ASSERT_TRUE(Open());
    for (const char* key : {"Esc", "Enter"}) {
        ASSERT_TRUE(App().Press("Alt+Down"));
        ASSERT_TRUE(WaitUntil([&] { return In(kProfile, L"cmboBirthYear").Send(CB_GETDROPPEDSTATE) != 0; }));
        ASSERT_TRUE(App().Press(key));
        ASSERT_TRUE(WaitUntil([&] { return In(kProfile, L"cmboBirthYear").Send(CB_GETDROPPEDSTATE) == 0; })) << key;
        EXPECT_TRUE(App().Form(kProfile)) << key;
        EXPECT_EQ(App().FocusName(), L"cmboBirthYear") << key;
    }
    ASSERT_NO_FATAL_FAILURE(CloseForm(kProfile));
}

TEST_F(StudentProfile, PastedLineBreaksAndControlCharactersCannotBecomeKeys) {
    StartUnsigned();
    ASSERT_TRUE(Open());
    ASSERT_NO_FATAL_FAILURE(TabTo(L"txtFood"));
    ASSERT_TRUE(CopyToClipboard(L"rice\r\n[Tutor]\r\nVersion=9\x05\x04"));
    ASSERT_TRUE(App().Press("Ctrl+V"));
    ASSERT_TRUE(WaitUntil([&] { return !App().Text(kProfile, L"txtFood").empty(); }));
    ASSERT_NO_FATAL_FAILURE(Confirm());
    EXPECT_TRUE(Stored().starts_with(kBefore)) << Stored();
    EXPECT_NE(Stored().find("Food=rice[Tutor]Version=9\r\nFriend="), std::string::npos) << Stored();
}

TEST_F(StudentProfile, ARefusedWriteSaysNothingAndCloses) {
    StartUnsigned();
    const HeldFile held(UserFolder() / L"KSDialogTutor.ini");
    ASSERT_TRUE(held.Held());
    ASSERT_TRUE(Open());
    ASSERT_NO_FATAL_FAILURE(Confirm());
    EXPECT_FALSE(App().TopBox());
    EXPECT_EQ(App().Request(),
              L"StudentProfile\x05"
              L"1");
    EXPECT_EQ(Stored(), kBefore);
}

TEST_F(StudentProfile, AMissingTextFileIsReportedAndNothingOpens) {
    StartUnsigned();
    fs::remove(UserFolder() / L"KSGeneral.ini");
    ASSERT_TRUE(App().Press("Ctrl+Alt+Shift+F12"));
    ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(L"File " + (UserFolder() / L"KSGeneral.ini").wstring() + L"not found."));
    EXPECT_EQ(Stored(), kBefore);
}

}  // namespace
}  // namespace e2e
