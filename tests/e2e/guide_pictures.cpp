// Opens the windows that the guide shows, one after the other, and has a picture taken of each (scripts/make-pictures).
//
// Argument: the path of keystride.exe. It replaces the data folders of the prefix it runs in.
#include <filesystem>
#include <string>

#include "driver/data_folders.h"
#include "driver/session.h"
#include "driver/show.h"
#include "driver/text.h"

namespace {

namespace fs = std::filesystem;

using e2e::Expect;
using e2e::ExpectForm;
using e2e::Screenshot;
using e2e::Session;
using e2e::Window;

/// The shipped files, and a teacher who has written something already.
void PrepareFolders() {
    e2e::WipeDataFolders();
    fs::create_directories(e2e::CommonFolder());
    fs::copy(fs::path(e2e::ToWide(KEYSTRIDE_SOURCE_DIR)) / L"data", e2e::CommonFolder(), fs::copy_options::recursive);
    e2e::WriteBytes(e2e::CommonFolder() / L"TeachersLessons.ini",
                    e2e::LessonFile({{"Our names", {"ann", "ben", "cara", "dan"}}, {"At the zoo", {"seal", "zebra"}}}));
    e2e::WriteBytes(e2e::CommonFolder() / L"TeachersDictations.ini",
                    "[Dictations]\r\nNbrOfLessons=1\r\n[L01]\r\nDefTitle=Letters home\r\nNbrOfTasks=1\r\n"
                    "PRINT_USA_TASK_01=Dear Tom,\r\nSPELL_USA_TASK_01=Dear Tom,\x07Write soon.\r\n");
}

void Press(const Session& session, const std::string& keys) {
    Expect(session.Press(keys), "nothing has the keyboard for " + keys);
}

void Click(const Session& session, std::wstring_view form, std::wstring_view button) {
    Expect(session.Control(form, button).Click(), e2e::Readable(button) + " cannot be pressed");
}

/// Leaves a dialog; the one that opened it gets the focus back.
void Leave(const Session& session, std::wstring_view form, std::wstring_view focusAfter) {
    Press(session, "Esc");
    Expect(session.WaitForNoForm(form), e2e::Readable(form) + " does not close");
    Expect(session.WaitForFocus(focusAfter), e2e::Readable(focusAfter) + " does not have the focus again");
}

void ShowMainWindow(const Session& session, const Window& mainWindow) {
    Expect(static_cast<bool>(session.WaitForForm(L"frmMain", e2e::kStartPatience)), "the main window does not open");
    const Window login = ExpectForm(session, L"dlgLogin", L"txtLoginName");
    Expect(session.Type(L"Ann Baker"), "the name cannot be typed");
    Expect(session.WaitForText(L"dlgLogin", L"txtLoginName", L"Ann Baker"), "the name does not arrive");
    Screenshot("sign-on", login);
    Press(session, "Enter");
    Expect(session.WaitForNoForm(L"dlgLogin") && session.WaitForFocus(L"rtfEdit"), "the sign-on does not end");
    Screenshot("main-window", mainWindow);
    Press(session, "F11");
    // The check mark comes last.
    const Window mode = session.Control(L"frmMain", L"chkF11");
    Expect(e2e::WaitUntil([&] { return mode.Send(BM_GETCHECK) == BST_CHECKED; }), "F11 does not change the mode");
    Screenshot("teachers-mode", mainWindow);
    Press(session, "F11");
}

void ShowLessons(const Session& session) {
    Press(session, "F3");
    const Window list = ExpectForm(session, L"dlgTyping", L"tvTasks");
    Press(session, "Right");
    Press(session, "Down");
    const auto selected = [&] { return session.TreeOf(L"dlgTyping", L"tvTasks").SelectedText(); };
    const auto roots = session.TreeOf(L"dlgTyping", L"tvTasks").Roots();
    Expect(e2e::WaitUntil([&] { return selected() == roots.at(0).children.at(0).text; }),
           "the first task is not reached");
    Screenshot("lesson-list", list);
    Leave(session, L"dlgTyping", L"rtfEdit");
}

void ShowLessonEditor(const Session& session) {
    Press(session, "F7");
    ExpectForm(session, L"dlgTyping", L"tvTasks");
    Click(session, L"dlgTyping", L"cmdEditLesson");
    const Window editor = ExpectForm(session, L"dlgLessonEdit", L"lstTasks");
    Screenshot("lesson-editor", editor);
    Click(session, L"dlgLessonEdit", L"cmdCreateTask");
    const Window task = ExpectForm(session, L"dlgTaskEdit", L"txtTask");
    // The way that the guide teaches: from the first kind Up leads to the last one and back into the text.
    Press(session, "Shift+Tab");
    Expect(session.WaitForFocus(L"optionLetters"), "the kinds of task are not reached");
    Press(session, "Up");
    Expect(
        session.WaitForFocus(L"txtTask") && session.Text(L"dlgTaskEdit", L"lblTask").starts_with(L"Press Control+F3"),
        "the last kind is not chosen");
    for (const char* keys : {"Ctrl+F3", "Ctrl+C", "Ctrl+V"}) Press(session, keys);
    Expect(session.WaitForText(L"dlgTaskEdit", L"txtTask", L"Control+C  Control+V"), "the keys are not written");
    Press(session, "Ctrl+F3");
    Press(session, "Tab");
    Expect(session.WaitForFocus(L"txtTaskExplanation"), "the explanation is not reached");
    Expect(session.Type(L"Copy, then paste."), "the explanation cannot be typed");
    Expect(session.WaitForText(L"dlgTaskEdit", L"txtTaskExplanation", L"Copy, then paste."),
           "the explanation does not arrive");
    Screenshot("task-editor", task);
    Leave(session, L"dlgTaskEdit", L"cmdCreateTask");
    Leave(session, L"dlgLessonEdit", L"cmdEditLesson");
    Leave(session, L"dlgTyping", L"rtfEdit");
}

void ShowDictationText(const Session& session) {
    Press(session, "F8");
    ExpectForm(session, L"dlgDictation", L"tvTasks");
    Click(session, L"dlgDictation", L"cmdEditDictation");
    ExpectForm(session, L"dlgDictationEdit", L"lstTasks");
    Click(session, L"dlgDictationEdit", L"cmdCreateTask");
    const Window text = ExpectForm(session, L"dlgDictationTask", L"rtfEdit");
    Expect(session.Type(L"Dear Grandma,"), "the dictation cannot be typed");
    Press(session, "Enter");
    Press(session, "Tab");
    Expect(session.Type(L"thank you for the cake."), "the dictation cannot be typed");
    Expect(e2e::WaitUntil(
               [&] { return session.Text(L"dlgDictationTask", L"rtfEdit").ends_with(L"\tthank you for the cake."); }),
           "the dictation does not arrive");
    Screenshot("dictation-text", text);
    Leave(session, L"dlgDictationTask", L"cmdCreateTask");
    Leave(session, L"dlgDictationEdit", L"cmdEditDictation");
    Leave(session, L"dlgDictation", L"rtfEdit");
}

void ShowQuizzes(const Session& session) {
    Press(session, "F6");
    ExpectForm(session, L"dlgAcademics", L"tvAcademics");
    Press(session, "Enter");
    const Window quizzes = ExpectForm(session, L"dlgQuizzes", L"lstQuizzes");
    Screenshot("quiz-list", quizzes);
    Leave(session, L"dlgQuizzes", L"rtfEdit");
}

void ShowPreferences(const Session& session) {
    Press(session, "Ctrl+U");
    const Window preferences = ExpectForm(session, L"dlgPreferences", L"lstPreferences");
    Press(session, "Down");
    Expect(e2e::WaitUntil([&] { return e2e::ReadList(preferences.Descendant(L"lstPreferences")).selected == 1; }),
           "the second preference is not reached");
    Screenshot("preferences", preferences);
    Leave(session, L"dlgPreferences", L"rtfEdit");
}

void ShowStudentProfile(const Session& session) {
    Press(session, "Ctrl+Alt+Shift+F12");
    const Window profile = ExpectForm(session, L"dlgStudentProfile", L"cmboBirthYear");
    Screenshot("student-profile", profile);
    Leave(session, L"dlgStudentProfile", L"rtfEdit");
}

void Play(const std::string& program) {
    PrepareFolders();
    const Session session(e2e::ToWide(program));
    const Window mainWindow = session.WaitForForm(L"frmMain", e2e::kStartPatience);
    ShowMainWindow(session, mainWindow);
    ShowLessons(session);
    ShowLessonEditor(session);
    ShowDictationText(session);
    ShowQuizzes(session);
    ShowPreferences(session);
    ShowStudentProfile(session);
    Press(session, "Alt+F4");
    Expect(session.Process().WaitForEnd(), "the program does not end");
}

}  // namespace

int main(int count, char** arguments) { return e2e::PlaySession(count, arguments, Play); }
