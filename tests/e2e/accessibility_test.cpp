// What a screen reader needs of every window: names, groups, tab order, default buttons, focus, room for every text.
#include "checks.h"
#include "fixture.h"

namespace e2e {
namespace {

constexpr int kNormalDpi = 96;
constexpr int kFontPoints = 16;

class Accessibility : public KeystrideTest {
protected:
    /// What holds for every dialog on opening.
    static void ExpectReadableDialog(const Window& dialog) {
        EXPECT_EQ(dialog.ClassName(), L"#32770");
        ExpectOneDefaultButton(dialog);
        ExpectEverythingReadable(dialog, kNormalDpi);
        CheckDialogPlace(dialog, kNormalDpi);
    }

    /// A group of options that the arrow keys walk through.
    static void ExpectOptionSet(const Window& form, std::wstring_view group, const std::vector<std::wstring>& options) {
        ExpectGroup(form, group, options);
        ExpectStyles(form.Descendant(options.front()), WS_TABSTOP);
        for (const std::wstring& option : options)
            EXPECT_EQ(form.Descendant(option).Style() & BS_TYPEMASK, static_cast<DWORD>(BS_AUTORADIOBUTTON));
    }

    /// Read out when the dialog opens: a static that is seen and is not the label of what follows.
    static void ExpectInstructions(const Window& instructions) {
        EXPECT_TRUE(instructions.IsStatic() && instructions.Visible() && instructions.Enabled());
        EXPECT_FALSE(instructions.Text().empty());
        EXPECT_FALSE(instructions.Next().IsTextOrListControl());
    }

    static void ExpectStyles(const Window& control, DWORD styles) {
        EXPECT_EQ(control.Style() & styles, styles) << ToUtf8(control.Name());
    }
};

TEST_F(Accessibility, MainWindow) {
    StartUnsigned();
    const Window main = App().Form(L"frmMain");
    EXPECT_EQ(Order(main), (std::vector<std::wstring>{L"fraCommands",   L"cmdF1",
                                                      L"cmdF2",         L"cmdF3",
                                                      L"cmdF4",         L"cmdF5",
                                                      L"cmdF6",         L"chkF11",
                                                      L"cmdF12",        L"fraAppearance",
                                                      L"cmdChangeFont", L"cmdChangeContrast",
                                                      L"cmdTest1",      L"cmdAccessibility",
                                                      L"lblTitle",      L"lblSubTitle",
                                                      L"h:Information", L"rtfLessonTaskInfo",
                                                      L"h:Text",        L"rtfMain",
                                                      L"h:Typing area", L"rtfEdit"}));
    CheckSpokenNames(main,
                     {{L"rtfLessonTaskInfo", L"Information"}, {L"rtfMain", L"Text"}, {L"rtfEdit", L"Typing area"}});
    CheckGroup(main, L"fraCommands",
               {L"cmdF1", L"cmdF2", L"cmdF3", L"cmdF4", L"cmdF5", L"cmdF6", L"chkF11", L"cmdF12"});
    CheckGroup(main, L"fraAppearance", {L"cmdChangeFont", L"cmdChangeContrast", L"cmdTest1"});
    EXPECT_EQ(App().FocusName(), L"rtfEdit");
    ExpectTabOrder({L"rtfEdit", L"cmdF1", L"cmdF2", L"cmdF3", L"cmdF4", L"cmdF5", L"cmdF6", L"chkF11", L"cmdF12",
                    L"cmdChangeFont", L"cmdChangeContrast", L"cmdTest1", L"rtfLessonTaskInfo", L"rtfMain"});
    const DWORD switchType = main.Descendant(L"chkF11").Style() & BS_TYPEMASK;
    EXPECT_TRUE(switchType == BS_CHECKBOX || switchType == BS_AUTOCHECKBOX) << "the mode switch is a check box";
    for (const wchar_t* area : {L"rtfLessonTaskInfo", L"rtfMain", L"rtfEdit"}) {
        EXPECT_EQ(main.Descendant(area).ClassName(), L"RICHEDIT50W");
        ExpectStyles(main.Descendant(area), WS_TABSTOP | ES_MULTILINE);
    }
}

TEST_F(Accessibility, MainWindowShowsEverything) {
    StartUnsigned();
    const Window main = App().Form(L"frmMain");
    CheckNothingOverlaps(main);
    CheckEverythingInside(main);
    CheckNothingClipped(main, kFontPoints, kNormalDpi);
    ASSERT_TRUE(App().Press("F11"));
    ASSERT_TRUE(App().WaitForText(L"frmMain", L"chkF11", L"< F11 >\r\nTeacher's\r\nMode"));
    CheckNothingClipped(main, kFontPoints, kNormalDpi);
}

TEST_F(Accessibility, SignOnDialog) {
    Start();
    const Window dialog = App().WaitForForm(L"dlgLogin");
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(App().WaitForFocus(L"txtLoginName"));
    EXPECT_EQ(Order(dialog), (std::vector<std::wstring>{L"lblLoginInstructions", L"h:Full name", L"txtLoginName",
                                                        L"OKButton", L"CancelButton"}));
    CheckSpokenNames(dialog, {{L"txtLoginName", L"Full name"}});
    const Window instructions = dialog.Descendant(L"lblLoginInstructions");
    EXPECT_TRUE(instructions.IsStatic() && instructions.Visible() && instructions.Enabled());
    ExpectOneDefaultButton(dialog);
    ExpectTabOrder({L"txtLoginName", L"OKButton", L"CancelButton"});
    CheckNothingOverlaps(dialog);
    CheckEverythingInside(dialog);
    CheckNothingClipped(dialog, kFontPoints, kNormalDpi);
    const RECT screen = ScreenAboveTaskbar();
    const RECT rect = dialog.ScreenRect();
    EXPECT_TRUE(rect.left >= screen.left && rect.top >= screen.top && rect.right <= screen.right &&
                rect.bottom <= screen.bottom);
}

TEST_F(Accessibility, LessonList) {
    StartUnsigned();
    const Window picker = OpenPicker("F7");
    const std::vector<std::wstring> order{L"h:Lessons and tasks", L"tvTasks",       L"lblNotice",       L"OKButton",
                                          L"cmdAddLesson",        L"cmdEditLesson", L"cmdRemoveLesson", L"CancelButton",
                                          L"cmdAccessibility"};
    EXPECT_EQ(Order(picker), order);
    CheckSpokenNames(picker, {{L"tvTasks", L"Lessons and tasks"}});
    ExpectStyles(picker.Descendant(L"tvTasks"),
                 TVS_HASLINES | TVS_LINESATROOT | TVS_HASBUTTONS | TVS_SHOWSELALWAYS | WS_TABSTOP);
    ExpectOneDefaultButton(picker);
    ExpectTabOrder({L"tvTasks", L"OKButton", L"cmdAddLesson", L"cmdEditLesson", L"cmdRemoveLesson", L"CancelButton"});
    CheckNothingOverlaps(picker);
    CheckEverythingInside(picker);
    CheckNothingClipped(picker, kFontPoints, kNormalDpi);
    ClosePicker();

    const Window shipped = OpenPicker("F3");
    EXPECT_EQ(Order(shipped), order);
    ExpectTabOrder({L"tvTasks", L"OKButton", L"CancelButton"});
    CheckNothingOverlaps(shipped);
    CheckEverythingInside(shipped);
}

TEST_F(Accessibility, SubjectList) {
    StartUnsigned();
    const Window picker = OpenForm("F6", L"dlgAcademics", L"tvAcademics");
    EXPECT_EQ(Order(picker),
              (std::vector<std::wstring>{L"h:Subjects and topics", L"tvAcademics", L"OKButton", L"CancelButton"}));
    CheckSpokenNames(picker, {{L"tvAcademics", L"Subjects and topics"}});
    ExpectStyles(picker.Descendant(L"tvAcademics"),
                 TVS_HASLINES | TVS_LINESATROOT | TVS_HASBUTTONS | TVS_SHOWSELALWAYS | WS_TABSTOP);
    ExpectReadableDialog(picker);
    ExpectTabOrder({L"tvAcademics", L"OKButton", L"CancelButton"});
}

TEST_F(Accessibility, QuizList) {
    StartUnsigned();
    ASSERT_TRUE(OpenForm("F6", L"dlgAcademics", L"tvAcademics"));
    const Window picker = OpenForm("Enter", L"dlgQuizzes", L"lstQuizzes");
    EXPECT_EQ(Order(picker),
              (std::vector<std::wstring>{L"lblQuizSelection", L"lstQuizzes", L"frmQuizOptions", L"optionGiveHelp",
                                         L"optionGradeOnly", L"OKButton", L"CancelButton"}));
    CheckSpokenNames(picker, {{L"lstQuizzes", L"Choose your quiz"}});
    EXPECT_EQ(picker.Descendant(L"frmQuizOptions").Text(), L"How to take the quiz");
    ExpectOptionSet(picker, L"frmQuizOptions", {L"optionGiveHelp", L"optionGradeOnly"});
    ExpectStyles(picker.Descendant(L"lstQuizzes"), LBS_NOTIFY | WS_TABSTOP);
    ExpectReadableDialog(picker);
    ExpectTabOrder({L"lstQuizzes", L"optionGiveHelp", L"OKButton", L"CancelButton"});
}

TEST_F(Accessibility, PreferenceList) {
    StartUnsigned();
    const Window dialog = OpenForm("Ctrl+U", L"dlgPreferences", L"lstPreferences");
    EXPECT_EQ(Order(dialog),
              (std::vector<std::wstring>{L"h:Preferences", L"lstPreferences", L"OKButton", L"CancelButton"}));
    CheckSpokenNames(dialog, {{L"lstPreferences", L"Preferences"}});
    ExpectStyles(dialog.Descendant(L"lstPreferences"), LBS_NOTIFY | WS_TABSTOP);
    ExpectReadableDialog(dialog);
    ExpectTabOrder({L"lstPreferences", L"OKButton", L"CancelButton"});
}

TEST_F(Accessibility, StudentProfile) {
    StartUnsigned();
    const Window dialog = OpenForm("Ctrl+Alt+Shift+F12", L"dlgStudentProfile", L"cmboBirthYear");
    EXPECT_EQ(Order(dialog),
              (std::vector<std::wstring>{
                  L"h:Information",   L"rtfLessonTaskInfo", L"lblInstructions", L"frameBirthday", L"lblBirthYear",
                  L"cmboBirthYear",   L"lblBirthMonth",     L"cmboBirthMonth",  L"lblBirthDay",   L"cmboBirthDay",
                  L"lblBirthCountry", L"cmboBirthCountry",  L"frameSex",        L"optMale",       L"optFemale",
                  L"frameHairColor",  L"optBrown",          L"optBlonde",       L"optBlack",      L"optRed",
                  L"frameSchool",     L"optElementary",     L"optJuniorHigh",   L"optHighSchool", L"optCollege",
                  L"lblFood",         L"txtFood",           L"lblFriend",       L"txtFriend",     L"lblAnimal",
                  L"txtAnimal",       L"lblTVShow",         L"txtTVShow",       L"frameHobbies",  L"chkSports",
                  L"chkMusic",        L"chkGames",          L"chkOther",        L"OKButton",      L"cmdSave",
                  L"cmdPrint",        L"CancelButton"}));
    CheckSpokenNames(dialog, {{L"rtfLessonTaskInfo", L"Information"},
                              {L"cmboBirthYear", L"Year"},
                              {L"cmboBirthMonth", L"Month"},
                              {L"cmboBirthDay", L"Day"},
                              {L"cmboBirthCountry", L"Country"},
                              {L"txtFood", L"Favorite food"},
                              {L"txtFriend", L"Best friend"},
                              {L"txtAnimal", L"Favorite animal"},
                              {L"txtTVShow", L"Favorite TV show"}});
    CheckGroup(dialog, L"frameBirthday",
               {L"lblBirthYear", L"cmboBirthYear", L"lblBirthMonth", L"cmboBirthMonth", L"lblBirthDay", L"cmboBirthDay",
                L"lblBirthCountry", L"cmboBirthCountry"});
    ExpectOptionSet(dialog, L"frameSex", {L"optMale", L"optFemale"});
    ExpectOptionSet(dialog, L"frameHairColor", {L"optBrown", L"optBlonde", L"optBlack", L"optRed"});
    ExpectOptionSet(dialog, L"frameSchool", {L"optElementary", L"optJuniorHigh", L"optHighSchool", L"optCollege"});
    ExpectGroup(dialog, L"frameHobbies", {L"chkSports", L"chkMusic", L"chkGames", L"chkOther"});
    for (const auto& [frame, text] :
         std::vector<std::pair<std::wstring, std::wstring>>{{L"frameBirthday", L"Birthday"},
                                                            {L"frameSex", L"Sex"},
                                                            {L"frameHairColor", L"Hair Color"},
                                                            {L"frameSchool", L"School"},
                                                            {L"frameHobbies", L"Hobbies"}})
        EXPECT_EQ(dialog.Descendant(frame).Text(), text);
    for (const wchar_t* box : {L"chkSports", L"chkMusic", L"chkGames", L"chkOther"})
        EXPECT_EQ(dialog.Descendant(box).Style() & BS_TYPEMASK, static_cast<DWORD>(BS_AUTOCHECKBOX)) << ToUtf8(box);
    for (const wchar_t* list : {L"cmboBirthYear", L"cmboBirthMonth", L"cmboBirthDay", L"cmboBirthCountry"}) {
        EXPECT_EQ(dialog.Descendant(list).ClassName(), L"ComboBox");
        ExpectStyles(dialog.Descendant(list), CBS_DROPDOWNLIST | WS_TABSTOP);
    }
    ExpectInstructions(dialog.Descendant(L"lblInstructions"));
    ExpectReadableDialog(dialog);
    ExpectTabOrder({L"cmboBirthYear", L"cmboBirthMonth", L"cmboBirthDay", L"cmboBirthCountry", L"optMale",
                    L"optBrown",      L"optElementary",  L"txtFood",      L"txtFriend",        L"txtAnimal",
                    L"txtTVShow",     L"chkSports",      L"chkMusic",     L"chkGames",         L"chkOther",
                    L"OKButton",      L"cmdSave",        L"cmdPrint",     L"CancelButton",     L"rtfLessonTaskInfo"});
}

TEST_F(Accessibility, LetterDialogs) {
    StartUnsigned();
    const std::vector<std::wstring> inserting{L"h:Information", L"rtfLessonTaskInfo", L"lblInstructions",
                                              L"lblBox1",       L"txtGeneral",        L"lblBox2",
                                              L"txtGeneral2",   L"OKButton",          L"CancelButton"};
    const SpokenNames names{
        {L"rtfLessonTaskInfo", L"Information"}, {L"txtGeneral", L"Box1"}, {L"txtGeneral2", L"Box2"}};
    const Window insert = OpenForm("Ctrl+Alt+Shift+F10", L"dlgGeneral", L"txtGeneral");
    EXPECT_EQ(Order(insert), inserting);
    CheckSpokenNames(insert, names);
    ExpectInstructions(insert.Descendant(L"lblInstructions"));
    ExpectReadableDialog(insert);
    ExpectTabOrder({L"txtGeneral", L"OKButton", L"CancelButton", L"rtfLessonTaskInfo"});
    ASSERT_NO_FATAL_FAILURE(CloseForm(L"dlgGeneral"));

    const Window remove = OpenForm("Ctrl+Alt+Shift+F11", L"dlgGeneral", L"txtGeneral");
    EXPECT_EQ(Order(remove), inserting);
    CheckSpokenNames(remove, names);
    ExpectInstructions(remove.Descendant(L"lblInstructions"));
    ExpectReadableDialog(remove);
    ExpectTabOrder({L"txtGeneral", L"txtGeneral2", L"OKButton", L"CancelButton", L"rtfLessonTaskInfo"});
}

TEST_F(Accessibility, MessageBoxesBelongToTheActiveForm) {
    WriteBytes(CommonFolder() / L"TeachersLessons.ini", "[Lessons]\r\nNbrOfLessons=0\r\n");
    StartUnsigned();
    ASSERT_TRUE(App().Control(L"frmMain", L"cmdTest1").Click());
    auto box = App().WaitForBox();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->owner, App().Form(L"frmMain"));
    ASSERT_TRUE(box->Answer(IDOK));
    const Window picker = OpenPicker("F7");
    ASSERT_TRUE(App().Press("Enter"));
    box = App().WaitForBox();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->owner, picker);
    ASSERT_TRUE(box->Answer(IDOK));
    EXPECT_TRUE(App().WaitForFocus(L"tvTasks")) << "the focus is on a live control after a box";
}

TEST_F(Accessibility, RequestIsSetInOneStepAndNeverBlanked) {
    StartUnsigned();
    ASSERT_TRUE(OpenPicker("F3"));
    ASSERT_TRUE(App().Press("Enter"));
    bool blank = false;
    ASSERT_TRUE(WaitUntil([&] {
        const std::wstring request = App().Request();
        blank = blank || request.empty();
        return request ==
               L"KYBP\x05"
               L"1\x05"
               L"0";
    }));
    EXPECT_FALSE(blank);
}

}  // namespace
}  // namespace e2e
