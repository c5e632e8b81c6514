// What a screen reader needs of every window: names, groups, tab order, default buttons, focus, room for every text.
#include "checks.h"
#include "fixture.h"

namespace e2e {
namespace {

constexpr int kNormalDpi = 96;
constexpr int kFontPoints = 16;

class Accessibility : public KeystrideTest {
protected:
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
