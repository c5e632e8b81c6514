// Academics, quizzes, preferences, student profile and the short-answer dialog on real windows, and the controls that
// came with them.
#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "academics/dlgAcademics.h"
#include "academics/dlgQuizzes.h"
#include "profile/dlgGeneral.h"
#include "profile/dlgPreferences.h"
#include "profile/dlgStudentProfile.h"
#include "shell/frmMain.h"
#include "shell/modGlobals.h"
#include "unit/data_set.h"
#include "unit/fixture.h"
#include "unit/modal.h"
#include "unit/seams.h"
#include "unit/test_forms.h"
#include "win32/clock.h"

namespace unit {
namespace {

using namespace modGlobals;
using Texts = std::vector<std::wstring>;

/// Presses a key in a control by the way of the message loop.
void PostKey(const win32::Control& control, int key) {
    PostMessageW(control.Handle(), WM_KEYDOWN, static_cast<WPARAM>(key), 0);
}

bool IsTabStop(const win32::Control& control) {
    return (GetWindowLongPtrW(control.Handle(), GWL_STYLE) & WS_TABSTOP) != 0;
}

/// The dialogs over the real main window, which carries their requests.
class ChoiceFormsTest : public RealFoldersTest {
protected:
    void SetUp() override {
        RealFoldersTest::SetUp();
        if (IsSkipped()) return;
        WriteShippedFiles(RealCommonFolder());
        WriteBytes(RealUserFolder() / L"KSGeneral.ini",
                   "[Main]\r\nDefSingleRow=Welcome\r\nDefMultiRow=Press F3\r\n[General]\r\nSingleRow=Short & good\r\n"
                   "MultiRow=One\x07Two\r\n[StudentProfile]\r\nSingleRow=About you\r\nMultiRow=Three\x07"
                   "Four\r\n");
        Main().Load();
        KillTimer(Main().Handle(), IDT_MAIN_LOGIN);
        Main().cmdAccessibility.SetText(L"nothing sent");
        Main().rtfEdit.SetText(L"typed before");
        active_.emplace(Main());
    }
    void TearDown() override {
        active_.reset();
        Main().Unload();
        RealFoldersTest::TearDown();
    }

    static frmMain& Main() { return frmMain::Default(); }
    static std::wstring Request() { return Main().cmdAccessibility.Text(); }
    static std::wstring Typed() { return Main().rtfEdit.Text(); }

    /// The controls that get the focus until the dialog waits for the user; it is cancelled then.
    static std::vector<std::wstring> FocusedOnOpening(const win32::Dialog& form, const std::function<void()>& show) {
        const FocusLog log;
        std::vector<std::wstring> names;
        During(show, [&] {
            for (HWND window : log.windows)
                if (IsChild(form.Handle(), window) != FALSE) names.push_back(NameProperty(window));
            Click(form.CancelButton);
        });
        return names;
    }

private:
    std::optional<win32::ActiveScope> active_;
};

// ---- subjects -------------------------------------------------------------------------------------------------------

class SubjectsTest : public ChoiceFormsTest {
protected:
    static dlgAcademics& Form() { return dlgAcademics::Default(); }

    std::int16_t Show(bool isProduct, std::function<void()> act) {
        std::int16_t result = 0;
        During(
            [&] {
                Form().ShowForm(isProduct, 2, {L"Geography", L"Math"}, {1, 7}, topics_, result);
            },
            std::move(act));
        EXPECT_FALSE(Form().IsLoaded());
        return result;
    }

    const modAcademics::TopicTable topics_{{L"Capitals"}, Texts(7, L"Topic")};
};

TEST_F(SubjectsTest, TheProductsListAndATeachersDifferInCaptionAndRequest) {
    Show(true, [] {
        EXPECT_EQ(Form().Caption(), L"Pick an Academic Subject");
        Click(Form().CancelButton);
    });
    EXPECT_EQ(Request(), L"ACAP\x05\x04");
    const std::int16_t result = Show(false, [] {
        EXPECT_EQ(Form().Caption(), L"Pick a Teacher's Academic Subject");
        Click(Form().CancelButton);
    });
    EXPECT_EQ(Request(), L"ACAT\x05\x04");
    EXPECT_EQ(result, 2);
}

TEST_F(SubjectsTest, OpeningSendsNothing) {
    std::wstring whileOpen;
    Show(true, [&] {
        whileOpen = Request();
        Click(Form().CancelButton);
    });
    EXPECT_EQ(whileOpen, L"nothing sent");
}

TEST_F(SubjectsTest, NothingSelectedIsToldAndTheDialogStays) {
    const BoxWatch watch;
    Show(true, [] {
        Form().tvAcademics.Select(nullptr);
        Click(Form().OKButton);
        EXPECT_TRUE(Form().IsLoaded());
        EXPECT_EQ(Request(), L"nothing sent");
        Click(Form().CancelButton);
    });
    ASSERT_EQ(watch.boxes.size(), 1U);
    EXPECT_EQ(watch.boxes[0].text, L"Select an academic section or topic first");
    EXPECT_EQ(watch.boxes[0].title, L"Keystride");
    EXPECT_FALSE(watch.boxes[0].errorIcon);
}

TEST_F(SubjectsTest, AnEmptyTreeIsToldInOtherWords) {
    const BoxWatch watch;
    std::int16_t result = 0;
    During([&] { Form().ShowForm(true, 0, {}, {}, {}, result); },
           [] {
               Click(Form().OKButton);
               Click(Form().CancelButton);
           });
    ASSERT_EQ(watch.boxes.size(), 1U);
    EXPECT_EQ(watch.boxes[0].text, L"There are no academics sections or topics to select");
    EXPECT_EQ(result, 2);
}

TEST_F(SubjectsTest, ATopicIsAnnouncedByItsKeyAndKeptForTheQuizPicker) {
    const std::int16_t result = Show(true, [] {
        Form().tvAcademics.Select(Form().tvAcademics.FindKey(L"SECTION_02" + gSep + L"TOPIC_NAME_07"));
        Click(Form().OKButton);
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(Request(), L"ACAP\x05SECTION_02\x05TOPIC_NAME_07");
    EXPECT_EQ(modAcademics::AcademicSection, L"SECTION_02");
    EXPECT_EQ(modAcademics::AcademicTopic, L"TOPIC_NAME_07");
    EXPECT_EQ(modAcademics::AcademicFileKey, L"FILE_NAME_07");
}

TEST_F(SubjectsTest, ASectionsAnnouncementCarriesItsKeyAloneButItsFirstTopicIsKept) {
    Show(false, [] {
        Form().tvAcademics.Select(Form().tvAcademics.FindKey(L"SECTION_02"));
        Click(Form().OKButton);
    });
    EXPECT_EQ(Request(), L"ACAT\x05SECTION_02");
    EXPECT_EQ(modAcademics::AcademicTopic, L"TOPIC_NAME_01");
    EXPECT_EQ(modAcademics::AcademicFileKey, L"FILE_NAME_01");
    EXPECT_EQ(Typed(), L"typed before");
}

// ---- quizzes --------------------------------------------------------------------------------------------------------

class QuizzesTest : public ChoiceFormsTest {
protected:
    static dlgQuizzes& Form() { return dlgQuizzes::Default(); }

    static std::int16_t Show(bool isProduct, std::int16_t count, std::function<void()> act) {
        std::int16_t result = 0;
        During([&] { Form().ShowForm(isProduct, L"SECTION_02", L"TOPIC_NAME_03", count, Titles(), result); },
               std::move(act));
        EXPECT_FALSE(Form().IsLoaded());
        return result;
    }
    static Texts Titles() { return {L"One", L"Two", L"Three", L"Four", L"not listed"}; }
};

TEST_F(QuizzesTest, PracticeAndTheFirstQuizAreTheDefaults) {
    gQuizGiveHelp = false;
    const std::int16_t result = Show(true, 4, [] {
        EXPECT_EQ(Form().lstQuizzes.Count(), 4);
        EXPECT_EQ(Form().lstQuizzes.Selected(), 0);
        EXPECT_TRUE(Form().optionGiveHelp.IsChecked());
        EXPECT_FALSE(Form().optionGradeOnly.IsChecked());
        EXPECT_TRUE(Form().lstQuizzes.HasFocus());
        Click(Form().OKButton);
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(Request(),
              L"ACAP\x05"
              L"1\x05SECTION_02\x05TOPIC_NAME_03\x05"
              L"1");
    EXPECT_TRUE(gQuizGiveHelp);
}

TEST_F(QuizzesTest, TheFourthQuizOfATeacherIsNumber4) {
    Show(false, 4, [] {
        Form().lstQuizzes.Select(3);
        Click(Form().OKButton);
    });
    EXPECT_EQ(Request(),
              L"ACAT\x05"
              L"1\x05SECTION_02\x05TOPIC_NAME_03\x05"
              L"4");
}

TEST_F(QuizzesTest, GradeOnlyIsMode2) {
    gQuizGiveHelp = true;
    Show(true, 4, [] {
        SendMessageW(Form().optionGradeOnly.Handle(), BM_CLICK, 0, 0);
        Click(Form().OKButton);
    });
    EXPECT_EQ(Request(),
              L"ACAP\x05"
              L"2\x05SECTION_02\x05TOPIC_NAME_03\x05"
              L"1");
    EXPECT_FALSE(gQuizGiveHelp);
}

TEST_F(QuizzesTest, NothingSelectedRequestsTheFirstQuiz) {
    Show(true, 4, [] {
        Form().lstQuizzes.Select(-1);
        EXPECT_EQ(Form().GetSelectedQuiz(), 1);
        Click(Form().OKButton);
    });
    EXPECT_EQ(Request(),
              L"ACAP\x05"
              L"1\x05SECTION_02\x05TOPIC_NAME_03\x05"
              L"1");
}

TEST_F(QuizzesTest, ATopicWithoutQuizzesSaysSoAndStaysOpen) {
    gQuizGiveHelp = false;
    const BoxWatch watch;
    const std::int16_t result = Show(true, 0, [] {
        EXPECT_EQ(Form().GetSelectedQuiz(), 0);
        Click(Form().OKButton);
        EXPECT_TRUE(Form().IsLoaded());
        EXPECT_EQ(Request(), L"nothing sent");
        Click(Form().CancelButton);
    });
    ASSERT_EQ(watch.boxes.size(), 1U);
    EXPECT_EQ(watch.boxes[0].text, L"There are no quizzes to select");
    EXPECT_EQ(Request(), L"ACAP\x05\x04");
    EXPECT_EQ(result, 2);
    EXPECT_FALSE(gQuizGiveHelp) << "only a request sets it";
}

TEST_F(QuizzesTest, EveryOpeningStartsWithPractice) {
    Show(true, 4, [] {
        SendMessageW(Form().optionGradeOnly.Handle(), BM_CLICK, 0, 0);
        Click(Form().OKButton);
    });
    Show(true, 4, [] {
        EXPECT_TRUE(Form().optionGiveHelp.IsChecked());
        Click(Form().CancelButton);
    });
    EXPECT_FALSE(gQuizGiveHelp);
}

// ---- preferences ----------------------------------------------------------------------------------------------------

class PreferencesDialogTest : public ChoiceFormsTest {
protected:
    void SetUp() override {
        ChoiceFormsTest::SetUp();
        if (IsSkipped()) return;
        Write("a=Speak slower\r\nb=Speak faster\r\n");
    }
    static void Write(const std::string& lines) {
        WriteBytes(RealCommonFolder() / L"KSUserPrefs.ini", "[UserPreferences]\r\n" + lines);
    }
    static dlgPreferences& Form() { return dlgPreferences::Default(); }

    static int Show(std::function<void()> act) {
        int result = 0;
        During([&] { Form().ShowPreferencesDialog(result); }, std::move(act));
        EXPECT_FALSE(Form().IsLoaded());
        return result;
    }
};

TEST_F(PreferencesDialogTest, TheOkButtonSendsThePluralAndLeavesTheTypingArea) {
    const int result = Show([] {
        EXPECT_EQ(Form().Caption(), L"User Preferences");
        EXPECT_TRUE(Form().lstPreferences.HasFocus());
        Form().lstPreferences.Select(1);
        Click(Form().OKButton);
    });
    EXPECT_EQ(Request(),
              L"Preferences\x05"
              L"2");
    EXPECT_EQ(Typed(), L"typed before");
    EXPECT_EQ(result, 2) << "the request alone tells of the choice";
}

TEST_F(PreferencesDialogTest, EnterInTheListSendsTheSingularAndEmptiesTheTypingArea) {
    const int result = Show([] {
        Form().lstPreferences.Select(1);
        PostKey(Form().lstPreferences, VK_RETURN);
    });
    EXPECT_EQ(Request(),
              L"Preference\x05"
              L"2");
    EXPECT_EQ(Typed(), L"");
    EXPECT_EQ(result, 2);
}

TEST_F(PreferencesDialogTest, EnterOnAButtonIsThatButton) {
    Show([] {
        Form().OKButton.Focus();
        PostKey(Form().OKButton, VK_RETURN);
    });
    EXPECT_EQ(Request(),
              L"Preferences\x05"
              L"1");
    EXPECT_EQ(Typed(), L"typed before");
    Show([] {
        Form().CancelButton.Focus();
        PostKey(Form().CancelButton, VK_RETURN);
    });
    EXPECT_EQ(Request(), L"Preferences\x05\x04");
}

TEST_F(PreferencesDialogTest, NothingSelectedIsTheFirst) {
    Show([] {
        Form().lstPreferences.Select(-1);
        EXPECT_EQ(Form().GetSelectedPreference(), 1);
        Click(Form().OKButton);
    });
    EXPECT_EQ(Request(),
              L"Preferences\x05"
              L"1");
}

TEST_F(PreferencesDialogTest, CancelSaysThatNothingWasChosen) {
    EXPECT_EQ(Show([] { PostKey(Form().lstPreferences, VK_ESCAPE); }), 2);
    EXPECT_EQ(Request(), L"Preferences\x05\x04");
    EXPECT_EQ(Typed(), L"typed before");
}

TEST_F(PreferencesDialogTest, AnEmptyListIsToldAndTheDialogStays) {
    Write("");
    const BoxWatch watch;
    Show([] {
        Click(Form().OKButton);
        EXPECT_TRUE(Form().IsLoaded());
        MSG enter{};
        enter.hwnd = Form().lstPreferences.Handle();
        enter.message = WM_KEYDOWN;
        enter.wParam = VK_RETURN;
        EXPECT_TRUE(Form().PreviewKey(enter));
        EXPECT_TRUE(Form().IsLoaded());
        EXPECT_EQ(Request(), L"nothing sent");
        Click(Form().CancelButton);
    });
    ASSERT_EQ(watch.boxes.size(), 2U);
    for (const BoxWatch::Box& box : watch.boxes) EXPECT_EQ(box.text, L"There are no preferences or tasks to select");
    EXPECT_EQ(Typed(), L"typed before");
}

TEST_F(PreferencesDialogTest, ABadLineEndsTheLoadAndLeavesNoHalfBuiltWindow) {
    Write("a=1\r\nbare\r\n");
    int result = 0;
    EXPECT_EQ(RaisedBy([&] { Form().ShowPreferencesDialog(result); }).Number(), win32::kSubscriptNumber);
    EXPECT_FALSE(Form().IsLoaded());
    EXPECT_EQ(Request(), L"nothing sent");
}

// ---- student profile ------------------------------------------------------------------------------------------------

class ProfileDialogTest : public ChoiceFormsTest {
protected:
    static dlgStudentProfile& Form() { return dlgStudentProfile::Default(); }

    static int Show(std::function<void()> act) {
        int result = 0;
        During([&] { Form().ShowStudentProfileDialog(L"StudentProfile", L"Student Profile", result); }, std::move(act));
        EXPECT_FALSE(Form().IsLoaded());
        return result;
    }
    static std::string Stored() { return ReadBytes(RealUserFolder() / L"KSDialogTutor.ini"); }
    static void Choose(const win32::ComboBox& list, int index) {
        SendMessageW(list.Handle(), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    }
    static void Check(const win32::CheckButton& button) { SendMessageW(button.Handle(), BM_CLICK, 0, 0); }
    /// A subclass procedure that notes what the file holds whenever the window gets a text.
    static LRESULT CALLBACK NoteStored(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                       DWORD_PTR stored) {
        if (message == WM_SETTEXT) reinterpret_cast<std::vector<std::string>*>(stored)->push_back(Stored());
        if (message == WM_NCDESTROY) RemoveWindowSubclass(window, &NoteStored, id);
        return DefSubclassProc(window, message, wParam, lParam);
    }

    static constexpr char kTutor[] = "[Tutor]\r\nVersion=1\r\n";
};

TEST_F(ProfileDialogTest, OpensWithItsDefaultsAndTexts) {
    const int result = Show([] {
        EXPECT_EQ(Form().Caption(), L"Student Profile");
        EXPECT_EQ(Form().rtfLessonTaskInfo.Text(), L"About you");
        EXPECT_EQ(Form().lblInstructions.Text(), L"Three\r\nFour");
        EXPECT_TRUE(Form().cmboBirthYear.HasFocus());
        EXPECT_TRUE(Form().optMale.IsChecked() && Form().optBrown.IsChecked() && Form().optElementary.IsChecked());
        EXPECT_EQ(Form().cmboBirthYear.Count(), 111);
        EXPECT_EQ(Form().cmboBirthMonth.Count(), 12);
        EXPECT_EQ(Form().cmboBirthDay.Count(), 31);
        EXPECT_EQ(Form().cmboBirthCountry.Count(), 5);
        for (const win32::ComboBox* list :
             {&Form().cmboBirthYear, &Form().cmboBirthMonth, &Form().cmboBirthDay, &Form().cmboBirthCountry})
            EXPECT_EQ(list->Selected(), -1);
        Click(Form().CancelButton);
    });
    EXPECT_EQ(result, 2);
    EXPECT_EQ(Request(), L"StudentProfile\x05\x04");
    EXPECT_EQ(Stored(), kTutor) << "a cancelled profile is not written";
}

TEST_F(ProfileDialogTest, NothingButTheYearListGetsTheFocusOnOpening) {
    EXPECT_EQ(FocusedOnOpening(Form(),
                               [] {
                                   int result = 0;
                                   Form().ShowStudentProfileDialog(L"StudentProfile", L"Student Profile", result);
                               }),
              Texts{L"cmboBirthYear"});
}

TEST_F(ProfileDialogTest, TheRequestGoesOutBeforeTheProfileIsWritten) {
    std::vector<std::string> stored;
    ASSERT_TRUE(
        SetWindowSubclass(Main().cmdAccessibility.Handle(), &NoteStored, 1, reinterpret_cast<DWORD_PTR>(&stored)));
    EXPECT_EQ(Show([] { Click(Form().OKButton); }), 1);
    EXPECT_EQ(stored, std::vector<std::string>{kTutor});
    EXPECT_NE(Stored(), kTutor);
}

TEST_F(ProfileDialogTest, ChoosingNothingStoresTheDefaults) {
    EXPECT_EQ(Show([] { Click(Form().OKButton); }), 1);
    EXPECT_EQ(Request(),
              L"StudentProfile\x05"
              L"1");
    EXPECT_EQ(Stored(), std::string(kTutor) +
                            "[StudentProfile]\r\nBirthYear=\r\nBirthMonth=\r\nBirthDay=\r\nBirthCountry=\r\nSex=M\r\n"
                            "Hair=Brown\r\nSchool=Elementary\r\nFood=\r\nFriend=\r\nAnimal=\r\nTVShow=\r\nSports=N\r\n"
                            "Music=N\r\nGames=N\r\nOther=N\r\n");
}

TEST_F(ProfileDialogTest, SaveStaysOpenAndSendsNothing) {
    const int result = Show([] {
        Choose(Form().cmboBirthYear, 110);
        Choose(Form().cmboBirthMonth, 8);
        Choose(Form().cmboBirthDay, 30);
        Choose(Form().cmboBirthCountry, 3);
        Check(Form().optFemale);
        Check(Form().optBlack);
        Check(Form().optJuniorHigh);
        Form().txtFood.SetText(L"two  blanks");
        Form().txtFriend.SetText(L"Ben");
        Form().txtAnimal.SetText(L"cat");
        Form().txtTVShow.SetText(L"news");
        Check(Form().chkMusic);
        Check(Form().chkOther);
        Click(Form().cmdSave);
        EXPECT_TRUE(Form().IsLoaded());
        EXPECT_EQ(Request(), L"nothing sent");
        Click(Form().cmdPrint);
        EXPECT_TRUE(Form().IsLoaded());
        Click(Form().CancelButton);
    });
    EXPECT_EQ(result, 2);
    const std::string year = std::to_string(win32::CurrentYear());
    const std::string expected = "[StudentProfile]\r\nBirthYear=" + year +
                                 "\r\nBirthMonth=September\r\nBirthDay=31\r\nBirthCountry=Austrailia\r\nSex=F\r\n"
                                 "Hair=Black\r\nSchool=Junior High\r\nFood=two  blanks\r\nFriend=Ben\r\nAnimal=cat\r\n"
                                 "TVShow=news\r\nSports=N\r\nMusic=Y\r\nGames=N\r\nOther=Y\r\n";
    EXPECT_EQ(Stored(), kTutor + expected);
}

TEST_F(ProfileDialogTest, EachOptionIsStoredByItsWord) {
    struct Row {
        const win32::CheckButton* option;
        const char* line;
    };
    Show([] {
        for (const Row& row :
             {Row{&Form().optBlonde, "Hair=Blonde"}, Row{&Form().optBlack, "Hair=Black"},
              Row{&Form().optRed, "Hair=Red"}, Row{&Form().optBrown, "Hair=Brown"},
              Row{&Form().optHighSchool, "School=High School"}, Row{&Form().optCollege, "School=College"},
              Row{&Form().optJuniorHigh, "School=Junior High"}, Row{&Form().optElementary, "School=Elementary"},
              Row{&Form().optFemale, "Sex=F"}, Row{&Form().optMale, "Sex=M"}, Row{&Form().chkSports, "Sports=Y"},
              Row{&Form().chkGames, "Games=Y"}}) {
            Check(*row.option);
            Click(Form().cmdSave);
            EXPECT_NE(Stored().find(std::string(row.line) + "\r\n"), std::string::npos) << row.line;
        }
        Click(Form().CancelButton);
    });
}

TEST_F(ProfileDialogTest, AnEmptiedListIsStoredAs0) {
    Show([] {
        SendMessageW(Form().cmboBirthDay.Handle(), CB_RESETCONTENT, 0, 0);
        Click(Form().OKButton);
    });
    EXPECT_NE(Stored().find("BirthMonth=\r\nBirthDay=0\r\n"), std::string::npos) << Stored();
}

TEST_F(ProfileDialogTest, ARefusedWriteClosesWithoutAWord) {
    const HeldFile held(RealUserFolder() / L"KSDialogTutor.ini");
    ASSERT_TRUE(held.Held());
    const BoxWatch watch;
    EXPECT_EQ(Show([] { Click(Form().OKButton); }), 1);
    EXPECT_TRUE(watch.boxes.empty());
    EXPECT_EQ(Request(),
              L"StudentProfile\x05"
              L"1");
    EXPECT_EQ(Stored(), kTutor);
}

TEST_F(ProfileDialogTest, LongInstructionsTakeASmallerFontButNeverPushTheAnswersOut) {
    WriteBytes(RealUserFolder() / L"KSGeneral.ini",
               "[StudentProfile]\r\nSingleRow=s\r\nMultiRow=a" + std::string(120, '\x07') + "z\r\n");
    Show([] {
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(Form().chkGames.Handle(), WM_GETFONT, 0, 0)), sizeof font,
                   &font);
        EXPECT_EQ(font.lfHeight, -MulDiv(11, Form().Dpi(), 72)) << "no smaller than can be read";
        EXPECT_LE(PlaceOf(Form().CancelButton.Handle()).bottom, Form().ToPixels(Form().ClientTwips().height));
        EXPECT_GE(PlaceOf(Form().frameBirthday.Handle()).top, PlaceOf(Form().lblInstructions.Handle()).bottom);
        Click(Form().CancelButton);
    });
}

// ---- short answers --------------------------------------------------------------------------------------------------

class GeneralDialogTest : public ChoiceFormsTest {
protected:
    static dlgGeneral& Form() { return dlgGeneral::Default(); }
    using Way = void (dlgGeneral::*)(int&);

    static int Show(Way way, std::function<void()> act) {
        int result = 0;
        During([&] { (Form().*way)(result); }, std::move(act));
        EXPECT_FALSE(Form().IsLoaded());
        return result;
    }
    static int ShowGeneral(std::function<void()> act) {
        int result = 0;
        During([&] { Form().ShowGeneralDialog(L"Ask", L"A question", result); }, std::move(act));
        EXPECT_FALSE(Form().IsLoaded());
        return result;
    }
    static constexpr Way kInsert = &dlgGeneral::ShowInsertALetterDialog;
    static constexpr Way kRemove = &dlgGeneral::ShowRemoveALetterDialog;
};

TEST_F(GeneralDialogTest, InsertShowsOneBoxWithoutLabels) {
    SpokenRecorder spoken;
    HWND window = nullptr;
    const int result = Show(kInsert, [&] {
        window = Form().Handle();
        EXPECT_EQ(Form().Caption(), L".");
        EXPECT_EQ(spoken.names[window].name, L"Insert a letter");
        EXPECT_EQ(Form().rtfLessonTaskInfo.Text(), L"Short & good");
        EXPECT_EQ(Form().lblInstructions.Text(), L"One\r\nTwo");
        EXPECT_TRUE(Form().lblInstructions.IsShown());
        EXPECT_TRUE(Form().txtGeneral.HasFocus());
        EXPECT_FALSE(Form().lblBox1.IsShown() || Form().lblBox2.IsShown() || Form().txtGeneral2.IsShown());
        EXPECT_FALSE(IsTabStop(Form().txtGeneral2));
        Form().txtGeneral.SetText(L"x");
        Form().txtGeneral2.SetText(L"never");
        Click(Form().OKButton);
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(Request(), L".\x05x");
    EXPECT_EQ(std::count(spoken.cleared.begin(), spoken.cleared.end(), window), 1) << "the spoken name goes with it";
}

TEST_F(GeneralDialogTest, RemoveShowsBothAndSendsTheSecond) {
    SpokenRecorder spoken;
    const int result = Show(kRemove, [&] {
        EXPECT_EQ(Form().Caption(), L"..");
        EXPECT_EQ(spoken.names[Form().Handle()].name, L"Remove a letter");
        EXPECT_TRUE(Form().lblBox1.IsShown() && Form().lblBox2.IsShown() && Form().txtGeneral2.IsShown());
        EXPECT_TRUE(IsTabStop(Form().txtGeneral2));
        EXPECT_EQ(Form().lblBox1.Text(), L"Box1");
        EXPECT_EQ(Form().lblBox2.Text(), L"Box2");
        EXPECT_TRUE(Form().txtGeneral.HasFocus()) << "the first box that takes input";
        Form().txtGeneral.SetText(L"whatever");
        Form().txtGeneral2.SetText(L"y");
        Click(Form().OKButton);
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(Request(), L"..\x05y");
}

TEST_F(GeneralDialogTest, AnEmptyBoxIsSentAsAnEmptyText) {
    EXPECT_EQ(Show(kInsert, [] { Click(Form().OKButton); }), 1);
    EXPECT_EQ(Request(), L".\x05");
    EXPECT_EQ(Show(kRemove,
                   [] {
                       Form().txtGeneral.SetText(L"ignored");
                       Click(Form().OKButton);
                   }),
              1);
    EXPECT_EQ(Request(), L"..\x05");
}

TEST_F(GeneralDialogTest, CancelSaysThatNothingWasEntered) {
    EXPECT_EQ(Show(kInsert, [] { PostKey(Form().txtGeneral, VK_ESCAPE); }), 2);
    EXPECT_EQ(Request(), L".\x05\x04");
    EXPECT_EQ(Show(kRemove, [] { Click(Form().CancelButton); }), 2);
    EXPECT_EQ(Request(), L"..\x05\x04");
    EXPECT_EQ(ShowGeneral([] { Click(Form().CancelButton); }), 2);
    EXPECT_EQ(Request(), L"Ask\x05\x04");
}

TEST_F(GeneralDialogTest, AnyOtherKindHasItsCaptionAndTheFirstBox) {
    SpokenRecorder spoken;
    const int result = ShowGeneral([&] {
        EXPECT_EQ(Form().Caption(), L"A question");
        EXPECT_FALSE(spoken.names.contains(Form().Handle())) << "the caption itself is spoken";
        EXPECT_EQ(Form().rtfLessonTaskInfo.Text(), L"Short & good");
        EXPECT_TRUE(Form().txtGeneral.HasFocus());
        EXPECT_FALSE(Form().txtGeneral2.IsShown());
        Form().txtGeneral.SetText(L"an answer");
        Form().txtGeneral2.SetText(L"never");
        Click(Form().OKButton);
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(Request(),
              L"Ask\x05"
              L"an answer");
}

TEST_F(GeneralDialogTest, AGeneralRequestAfterARemovalStartsAsDesigned) {
    Show(kRemove, [] { Click(Form().OKButton); });
    ShowGeneral([] {
        EXPECT_FALSE(Form().lblBox1.IsShown() || Form().txtGeneral2.IsShown() || Form().lblInstructions.IsShown());
        EXPECT_EQ(Form().txtGeneral.Text(), L"");
        Click(Form().CancelButton);
    });
}

TEST_F(GeneralDialogTest, LinesBelowTheInformationStandInOrderAboveTheButtons) {
    Show(kRemove, [] {
        LONG bottom = 0;
        for (const win32::Control* control : std::initializer_list<const win32::Control*>{
                 &Form().rtfLessonTaskInfo, &Form().lblInstructions, &Form().lblBox1, &Form().txtGeneral,
                 &Form().lblBox2, &Form().txtGeneral2, &Form().OKButton}) {
            const RECT place = PlaceOf(control->Handle());
            EXPECT_GE(place.top, bottom) << control->Name();
            EXPECT_GT(place.bottom, place.top) << control->Name();
            bottom = place.bottom;
        }
        EXPECT_LE(bottom, Form().ToPixels(Form().ClientTwips().height));
        Click(Form().CancelButton);
    });
}

TEST_F(GeneralDialogTest, NothingButTheAnswersBoxGetsTheFocusOnOpening) {
    for (const Way way : {kInsert, kRemove})
        EXPECT_EQ(FocusedOnOpening(Form(),
                                   [&] {
                                       int result = 0;
                                       (Form().*way)(result);
                                   }),
                  Texts{L"txtGeneral"});
}

TEST_F(GeneralDialogTest, LongInstructionsNeverPushTheAnswersOut) {
    WriteBytes(RealUserFolder() / L"KSGeneral.ini",
               "[General]\r\nSingleRow=s\r\nMultiRow=a" + std::string(120, '\x07') + "z\r\n");
    Show(kRemove, [] {
        EXPECT_GE(PlaceOf(Form().lblBox1.Handle()).top, PlaceOf(Form().lblInstructions.Handle()).bottom);
        EXPECT_GE(PlaceOf(Form().lblInstructions.Handle()).top, PlaceOf(Form().rtfLessonTaskInfo.Handle()).bottom);
        EXPECT_GE(Form().rtfLessonTaskInfo.HeightTwips(), Form().TextTwips(L"A").height) << "one line is to be seen";
        EXPECT_LE(PlaceOf(Form().CancelButton.Handle()).bottom, Form().ToPixels(Form().ClientTwips().height));
        Click(Form().CancelButton);
    });
}

TEST_F(GeneralDialogTest, ATextOfManyLinesIsSentAsOne) {
    Show(kInsert, [] {
        Form().txtGeneral.SetText(L"ab\r\ncd");
        Click(Form().OKButton);
    });
    EXPECT_EQ(Request(),
              L".\x05"
              L"abcd");
}

TEST_F(GeneralDialogTest, AMissingTextFileIsReportedAndNothingOpens) {
    std::filesystem::remove(RealUserFolder() / L"KSGeneral.ini");
    int result = 0;
    const win32::AppError error = RaisedBy([&] { Form().ShowInsertALetterDialog(result); });
    EXPECT_EQ(error.Description(), L"File " + gGeneralIni + L"not found.");
    EXPECT_FALSE(Form().IsLoaded());
    EXPECT_EQ(Request(), L"nothing sent");
}

// ---- controls -------------------------------------------------------------------------------------------------------

TEST_F(GeneralDialogTest, TheInformationLeavesTabAndEnterToTheDialog) {
    Show(kInsert, [] {
        const HWND info = Form().rtfLessonTaskInfo.Handle();
        EXPECT_EQ(SendMessageW(info, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS);
        MSG tab{};
        tab.hwnd = info;
        tab.message = WM_KEYDOWN;
        tab.wParam = VK_TAB;
        Form().rtfLessonTaskInfo.Focus();
        EXPECT_TRUE(IsDialogMessageW(Form().Handle(), &tab));
        EXPECT_TRUE(Form().txtGeneral.HasFocus());
        Form().rtfLessonTaskInfo.Focus();
        PostKey(Form().rtfLessonTaskInfo, VK_RETURN);
    });
    EXPECT_EQ(Request(), L".\x05") << "Enter is the default button";
}

TEST_F(GeneralDialogTest, NewDesktopColoursReachTheInformation) {
    Show(kInsert, [] {
        const HWND info = Form().rtfLessonTaskInfo.Handle();
        CHARFORMATW format{};
        format.cbSize = sizeof format;
        format.dwMask = CFM_COLOR;
        format.crTextColor = RGB(1, 2, 3);
        SendMessageW(info, EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format));
        SendMessageW(info, EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
        SendMessageW(Form().Handle(), WM_SYSCOLORCHANGE, 0, 0);
        SendMessageW(info, EM_GETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
        EXPECT_EQ(format.crTextColor, GetSysColor(COLOR_WINDOWTEXT));
        Click(Form().CancelButton);
    });
}

}  // namespace
}  // namespace unit
