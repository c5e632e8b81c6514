// The sign-on dialog: when it comes, which names it takes, what it sends and which folders it makes.
#include <functional>

#include "fixture.h"

namespace e2e {
namespace {

namespace fs = std::filesystem;

constexpr wchar_t kTooShort[] = L"Must be first name, followed by a space, followed by the last name or last initial";
constexpr wchar_t kNoSpace[] = L"There must be a space between the first name and the last name (or last initial)";
constexpr wchar_t kCancelled[] = L"Signon\x05\x04";

class SignOnDialog : public KeystrideTest {
protected:
    static fs::path Records() { return UserFolder() / L"Student Records"; }

    void StartToSignOn() {
        ASSERT_NO_FATAL_FAILURE(Start());
        ASSERT_TRUE(App().WaitForForm(L"dlgLogin"));
        ASSERT_TRUE(App().WaitForFocus(L"txtLoginName"));
    }

    void OpenAgain() {
        ASSERT_TRUE(App().Press("Ctrl+Alt+Shift+F9"));
        ASSERT_TRUE(App().WaitForForm(L"dlgLogin"));
        ASSERT_TRUE(App().WaitForFocus(L"txtLoginName"));
    }

    void ExpectRefused(std::wstring_view name, std::wstring_view message) {
        ASSERT_NO_FATAL_FAILURE(SignOn(name));
        EXPECT_EQ(App().Request(), L"Signon\x05" + std::wstring(name)) << "a refused name is sent too";
        const auto box = App().WaitForBox();
        ASSERT_TRUE(box) << Readable(name);
        EXPECT_EQ(box->text, message) << Readable(name);
        EXPECT_EQ(box->title, L"Keystride");
        EXPECT_EQ(box->ButtonIds(), std::vector<int>{IDOK});
        EXPECT_FALSE(box->hasIcon);
        EXPECT_EQ(box->owner, App().Form(L"frmMain")) << "the dialog has closed before the box comes";
        ASSERT_TRUE(box->Answer(IDOK));
        EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
    }

    void ExpectAccepted(std::wstring_view name) {
        ASSERT_NO_FATAL_FAILURE(SignOn(name));
        EXPECT_EQ(App().Request(), L"Signon\x05" + std::wstring(name)) << "the name is sent exactly as typed";
        EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
        EXPECT_FALSE(App().TopBox()) << Readable(name);
    }

    /// The custom lessons are missing, so their opener tells the path that the sign-on has set.
    void ExpectCustomLessonsAt(const std::wstring& path) {
        ASSERT_TRUE(App().Press("Ctrl+Alt+Shift+F8"));
        const auto box = App().WaitForBox();
        ASSERT_TRUE(box);
        EXPECT_EQ(box->text, L"File " + path + L"not found.");
        ASSERT_TRUE(box->Answer(IDOK));
        ASSERT_TRUE(App().WaitForFocus(L"rtfEdit"));
    }
};

TEST_F(SignOnDialog, OpensOnceHalfASecondAfterTheWindowAndNeverByItselfAgain) {
    ASSERT_NO_FATAL_FAILURE(Start());
    const auto shown = std::chrono::steady_clock::now();
    ASSERT_TRUE(App().WaitForForm(L"dlgLogin"));
    const auto waited = std::chrono::steady_clock::now() - shown;
    EXPECT_GT(waited, std::chrono::milliseconds(200)) << "the window is there before the dialog comes";
    EXPECT_LT(waited, std::chrono::milliseconds(3000));
    ASSERT_TRUE(App().WaitForFocus(L"txtLoginName"));
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(App().WaitForNoForm(L"dlgLogin"));
    EXPECT_TRUE(HoldsFor(std::chrono::milliseconds(1500), [&] { return !App().Form(L"dlgLogin"); }));
}

TEST_F(SignOnDialog, HasItsTexts) {
    StartToSignOn();
    const Window dialog = App().Form(L"dlgLogin");
    EXPECT_EQ(dialog.Text(), L"Type Your Full Name");
    EXPECT_EQ(dialog.ClassName(), L"#32770");
    EXPECT_EQ(dialog.Owner(), App().Form(L"frmMain"));
    EXPECT_FALSE(App().Form(L"frmMain").Enabled());
    EXPECT_EQ(App().Text(L"dlgLogin", L"lblLoginInstructions"),
              L"Type your first and last name.\r\nThat way I'll know what to call you.");
    EXPECT_EQ(App().Text(L"dlgLogin", L"OKButton"), L"OK");
    EXPECT_EQ(App().Text(L"dlgLogin", L"CancelButton"), L"Cancel");
    EXPECT_EQ(App().Text(L"dlgLogin", L"txtLoginName"), L"");
}

TEST_F(SignOnDialog, AcceptsFirstAndLastNameAndMakesTheLearnersFolder) {
    StartToSignOn();
    ExpectAccepted(L"Ann Baker");
    EXPECT_TRUE(fs::is_directory(Records() / L"Ann Baker"));
    EXPECT_TRUE(fs::is_empty(Records() / L"Ann Baker")) << "the program never makes the custom lessons";
    ExpectCustomLessonsAt((Records() / L"Ann Baker" / L"CustomLessons.ini").wstring());
}

TEST_F(SignOnDialog, RefusesNamesAfterTheDialogHasClosed) {
    StartToSignOn();
    ExpectRefused(L"Al", kTooShort);
    ExpectRefused(L"", kTooShort);
    ExpectRefused(L"Al   ", kNoSpace);
    ExpectRefused(L"   ", kNoSpace);
    ExpectRefused(L"Annabel", kNoSpace);
    EXPECT_TRUE(fs::is_empty(Records()));
    ExpectCustomLessonsAt(L"");
}

TEST_F(SignOnDialog, KeepsTheOuterSpacesOfAName) {
    StartToSignOn();
    ExpectAccepted(L" Ann B ");
    // As Windows stores it, a folder's name does not end with a blank.
    EXPECT_TRUE(fs::is_directory(Records() / L" Ann B"));
}

TEST_F(SignOnDialog, FolderNameLosesBlanksAndFullStopsAtItsEnd) {
    StartToSignOn();
    ExpectAccepted(L"Ann B. . ");
    EXPECT_TRUE(fs::is_directory(Records() / L"Ann B"));
    EXPECT_EQ(Snapshot(Records()).size(), 1U);
}

TEST_F(SignOnDialog, CancelSendsTheCancelRequestHoweverItIsPressed) {
    StartToSignOn();
    const auto press = [&](const char* chord) { EXPECT_TRUE(App().Press(chord)); };
    const std::vector<std::function<void()>> ways{
        [&] { press("Esc"); },
        [&] { press("Shift+Esc"); },
        [&] { press("Alt+F4"); },
        [&] { EXPECT_TRUE(App().Control(L"dlgLogin", L"CancelButton").Click()); },
        [&] { EXPECT_TRUE(App().Form(L"dlgLogin").Post(WM_CLOSE)); },
        [&] {
            press("Shift+Tab");
            EXPECT_TRUE(App().WaitForFocus(L"CancelButton"));
            press("Enter");
        },
    };
    for (std::size_t way = 0; way < ways.size(); ++way) {
        if (!App().Form(L"dlgLogin")) {
            ASSERT_NO_FATAL_FAILURE(OpenAgain());
        }
        ASSERT_TRUE(App().Type(L"Ann Baker"));
        ASSERT_TRUE(App().WaitForText(L"dlgLogin", L"txtLoginName", L"Ann Baker"));
        ways[way]();
        ASSERT_TRUE(App().WaitForNoForm(L"dlgLogin")) << "way " << way;
        EXPECT_EQ(App().Request(), kCancelled) << "way " << way;
        EXPECT_TRUE(App().WaitForFocus(L"rtfEdit")) << "way " << way;
        EXPECT_FALSE(App().TopBox());
        // Another request in between, so that the next cancel request is seen to come.
        ASSERT_TRUE(OpenPicker("F3"));
        ClosePicker();
    }
    EXPECT_TRUE(fs::is_empty(Records()));
    EXPECT_TRUE(App().Process().Running()) << "Alt+F4 in a dialog leaves the program running";
}

TEST_F(SignOnDialog, ControlEscDoesNotCancel) {
    StartToSignOn();
    ASSERT_TRUE(App().Press("Ctrl+Esc"));
    ASSERT_TRUE(App().Press("Ctrl+Shift+Esc"));
    ASSERT_TRUE(App().Type(L"Ann"));
    EXPECT_TRUE(App().WaitForText(L"dlgLogin", L"txtLoginName", L"Ann"));
    EXPECT_TRUE(App().Form(L"dlgLogin"));
    EXPECT_NE(App().Request(), kCancelled);
}

TEST_F(SignOnDialog, ControlASelectsTheWholeNameAndTypesNothing) {
    StartToSignOn();
    ASSERT_TRUE(App().Type(L"Ann Baker"));
    ASSERT_TRUE(App().WaitForText(L"dlgLogin", L"txtLoginName", L"Ann Baker"));
    const Window name = App().Control(L"dlgLogin", L"txtLoginName");
    ASSERT_TRUE(App().Press("Ctrl+A"));
    EXPECT_TRUE(WaitUntil([&] { return EditSelection(name) == std::pair(0, 9); }));
    EXPECT_EQ(name.Text(), L"Ann Baker");
    EXPECT_EQ(name.Style() & ES_READONLY, 0U) << "the lock is lifted again";
    ASSERT_TRUE(App().Type(L"Bob"));
    EXPECT_TRUE(App().WaitForText(L"dlgLogin", L"txtLoginName", L"Bob")) << "typing replaces the selection";
}

TEST_F(SignOnDialog, ControlShiftADoesNotSelect) {
    StartToSignOn();
    ASSERT_TRUE(App().Type(L"Ann Baker"));
    ASSERT_TRUE(App().WaitForText(L"dlgLogin", L"txtLoginName", L"Ann Baker"));
    ASSERT_TRUE(App().Press("Ctrl+Shift+A"));
    ASSERT_TRUE(App().Type(L"x"));
    EXPECT_TRUE(App().WaitForText(L"dlgLogin", L"txtLoginName", L"Ann Bakerx"));
}

TEST_F(SignOnDialog, CancelledSecondSignOnKeepsTheFirstLearner) {
    StartToSignOn();
    ExpectAccepted(L"Ann Baker");
    OpenAgain();
    EXPECT_EQ(App().Text(L"dlgLogin", L"txtLoginName"), L"") << "the dialog starts empty";
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(App().WaitForNoForm(L"dlgLogin"));
    ExpectCustomLessonsAt((Records() / L"Ann Baker" / L"CustomLessons.ini").wstring());
    ExpectRefused(L"Al", kTooShort);
    ExpectCustomLessonsAt((Records() / L"Ann Baker" / L"CustomLessons.ini").wstring());
    ExpectAccepted(L"Bob Carter");
    ExpectCustomLessonsAt((Records() / L"Bob Carter" / L"CustomLessons.ini").wstring());
    EXPECT_TRUE(fs::is_directory(Records() / L"Bob Carter"));
}

TEST_F(SignOnDialog, IllegalFolderNamesAreAcceptedButNeverTouchFiles) {
    WriteBytes(CommonFolder() / L"KSUserInfo.ini", UserInfoIni(NetworkFolder().string()));
    WriteBytes(NetworkFolder() / L"Student Records" / L"Ann Baker" / L"progress.ini", "[Progress]\r\n");
    WriteBytes(NetworkFolder() / L"x y" / L"decoy.ini", "[Decoy]\r\n");
    StartToSignOn();
    const auto parent = UserFolder().parent_path();
    const auto before = Snapshot(parent);
    const auto network = Snapshot(NetworkFolder());
    for (const wchar_t* name : {L"..\\x y", L"Ann\\Baker B", L"Ann/Baker B", L"Ann: B", L"Ann* B", L"Ann? B",
                                L"\"Ann B\"", L"<Ann B", L"Ann> B", L"Ann | B", L". . .", L".. ..", L"C:\\x y"}) {
        ASSERT_NO_FATAL_FAILURE(ExpectAccepted(name));
        EXPECT_EQ(Snapshot(parent), before) << Readable(name);
        EXPECT_EQ(Snapshot(NetworkFolder()), network) << Readable(name);
    }
    Leave();
    EXPECT_EQ(Snapshot(NetworkFolder()), network) << "nor are they pushed";
    EXPECT_EQ(Snapshot(parent), before);
}

TEST_F(SignOnDialog, NameTooLongForAFolderIsNoCrash) {
    StartToSignOn();
    const std::wstring name = L"Ann " + std::wstring(300, L'b');
    ASSERT_TRUE(App().Type(name));
    ASSERT_TRUE(WaitUntil([&] { return App().Text(L"dlgLogin", L"txtLoginName").size() >= 254; }));
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(WaitUntil([&] { return App().TopBox() || !App().Form(L"dlgLogin"); }));
    if (const auto box = App().TopBox()) {
        EXPECT_FALSE(box->text.empty());
        ASSERT_TRUE(box->Answer(IDOK));
    }
    if (App().Form(L"dlgLogin")) {
        ASSERT_TRUE(App().WaitForFocus(L"txtLoginName") || App().WaitForFocus(L"OKButton"));
        ASSERT_TRUE(App().Press("Esc"));
        ASSERT_TRUE(App().WaitForNoForm(L"dlgLogin"));
    }
    EXPECT_TRUE(KeysDealtWith());
    EXPECT_TRUE(fs::is_empty(Records()));
}

TEST_F(SignOnDialog, LearnersFolderThatExistsIsLeftAsItIs) {
    WriteBytes(Records() / L"Ann Baker" / L"CustomLessons.ini", LessonFile({{"Own", {"o"}}}));
    const auto before = Snapshot(Records());
    StartToSignOn();
    ExpectAccepted(L"Ann Baker");
    EXPECT_EQ(Snapshot(Records()), before);
}

TEST_F(SignOnDialog, OkButtonSignsOnByClickAndBySpace) {
    StartToSignOn();
    ASSERT_TRUE(App().Type(L"Ann Baker"));
    ASSERT_TRUE(App().WaitForText(L"dlgLogin", L"txtLoginName", L"Ann Baker"));
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"OKButton"));
    ASSERT_TRUE(App().Press("Space"));
    ASSERT_TRUE(App().WaitForNoForm(L"dlgLogin"));
    EXPECT_EQ(App().Request(),
              L"Signon\x05"
              L"Ann Baker");
    EXPECT_TRUE(fs::is_directory(Records() / L"Ann Baker"));
}

TEST_F(SignOnDialog, WaitsUntilADialogThatWasOpenedFirstIsClosed) {
    // Whether F3 comes before the dialog depends on the machine's load, so a late try is started anew.
    bool listFirst = false;
    for (int attempt = 0; attempt < 5 && !listFirst; ++attempt) {
        ForgetProgram();
        ASSERT_NO_FATAL_FAILURE(Start());
        ASSERT_TRUE(App().Press("F3"));
        ASSERT_TRUE(WaitUntil([&] { return App().Form(L"dlgTyping") || App().Form(L"dlgLogin"); }));
        listFirst = static_cast<bool>(App().Form(L"dlgTyping"));
    }
    ASSERT_TRUE(listFirst) << "the list never opened before the sign-on dialog";
    EXPECT_TRUE(HoldsFor(std::chrono::milliseconds(1200), [&] { return !App().Form(L"dlgLogin"); }));
    ASSERT_TRUE(App().WaitForFocus(L"tvTasks"));
    ClosePicker();
    EXPECT_TRUE(App().WaitForForm(L"dlgLogin")) << "the dialog comes once the list is closed";
}

}  // namespace
}  // namespace e2e
