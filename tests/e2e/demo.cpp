// Plays one real session with the program for ./run: sign on, open the lessons, choose a task, leave.
//
// Argument: the path of keystride.exe. Every "@screenshot NAME" line waits for one line on the standard input.
// The exit code is 0 only when everything came as it should.
#include <stdexcept>
#include <string>

#include "driver/session.h"
#include "driver/show.h"
#include "driver/text.h"

namespace {

using e2e::Expect;
using e2e::Say;
using e2e::Screenshot;

void ExpectRequest(const e2e::Session& session, std::wstring_view request, const std::string& meaning) {
    Expect(session.WaitForRequest(request),
           "no request " + e2e::Readable(request) + " came, the last one is " + e2e::Readable(session.Request()));
    Say("request: " + e2e::Readable(request) + "  (" + meaning + ")");
}

/// Walks down the tree until a task, the first line below a lesson, is selected; returns the request that it stands
/// for.
std::wstring WalkToFirstTask(const e2e::Session& session) {
    const auto selected = [&] { return session.TreeOf(L"dlgTyping", L"tvTasks").SelectedText(); };
    const auto roots = session.TreeOf(L"dlgTyping", L"tvTasks").Roots();
    for (std::size_t lesson = 0; lesson < roots.size(); ++lesson) {
        Expect(e2e::WaitUntil([&] { return selected() == roots[lesson].text; }), "the next lesson is not selected");
        if (!roots[lesson].children.empty()) {
            session.Press("Right");
            session.Press("Down");
            Expect(e2e::WaitUntil([&] { return selected() == roots[lesson].children.front().text; }),
                   "the first task of the lesson is not selected");
            return L"KYBP\x05" + std::to_wstring(lesson + 1) + L"\x05" + L"1";
        }
        session.Press("Down");
    }
    throw std::runtime_error("no lesson of the list has a task");
}

void Play(const std::string& program) {
    const e2e::Session session(e2e::ToWide(program));
    Say("Keystride starts.");
    Expect(static_cast<bool>(session.WaitForForm(L"frmMain", e2e::kStartPatience)), "the main window does not open");
    Say("The main window is open: " + e2e::Readable(session.Text(L"frmMain", L"rtfLessonTaskInfo")));
    Expect(static_cast<bool>(session.WaitForForm(L"dlgLogin")), "the sign-on dialog does not open");
    Expect(session.WaitForFocus(L"txtLoginName"), "the sign-on dialog does not wait for a name");
    Screenshot("01-sign-on");

    Say("A learner types her name and presses Enter.");
    session.Type(L"Ann Baker");
    Expect(session.WaitForText(L"dlgLogin", L"txtLoginName", L"Ann Baker"), "the name does not arrive");
    session.Press("Enter");
    ExpectRequest(session,
                  L"Signon\x05"
                  L"Ann Baker",
                  "Ann Baker signs on");
    Expect(session.WaitForNoForm(L"dlgLogin"), "the sign-on dialog does not close");
    Expect(session.WaitForFocus(L"rtfEdit"), "the typing area does not have the focus");
    Screenshot("02-main-window");

    Say("She presses F3 for the lesson list.");
    session.Press("F3");
    Expect(static_cast<bool>(session.WaitForForm(L"dlgTyping")), "the lesson list does not open");
    ExpectRequest(session, L"KYBP\x05\x04", "the lesson list is open, nothing is chosen yet");
    Expect(session.WaitForFocus(L"tvTasks"), "the lesson tree does not have the focus");
    const std::wstring request = WalkToFirstTask(session);
    Say("She walks to a task: " + e2e::Readable(session.TreeOf(L"dlgTyping", L"tvTasks").SelectedText()));
    Screenshot("03-lesson-list");

    Say("She presses Enter for OK.");
    session.Press("Enter");
    ExpectRequest(session, request, "run that lesson and task");
    Expect(session.WaitForNoForm(L"dlgTyping"), "the lesson list does not close");
    Expect(session.WaitForFocus(L"rtfEdit"), "the typing area does not have the focus back");
    Screenshot("04-task-chosen");

    Say("She leaves with Alt+F4.");
    session.Press("Alt+F4");
    Expect(session.Process().WaitForEnd(), "the program does not end");
    Expect(session.Process().ExitCode() == 0U, "the program ends with an error");
    Say("Keystride has ended.");
}

}  // namespace

int main(int count, char** arguments) { return e2e::PlaySession(count, arguments, Play); }
