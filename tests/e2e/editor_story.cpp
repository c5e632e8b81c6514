// What the tests of the lesson editors share: the ways into the three dialogs, and single keys that are held and let
// go.
#include "editor_story.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace e2e {

namespace fs = std::filesystem;

namespace {

std::string Padded(std::size_t number) { return number < 10 ? '0' + std::to_string(number) : std::to_string(number); }

bool IsExtended(WORD key) {
    static constexpr std::array<WORD, 15> kExtended{VK_UP,   VK_DOWN,  VK_LEFT, VK_RIGHT,  VK_HOME,
                                                    VK_END,  VK_PRIOR, VK_NEXT, VK_DELETE, VK_INSERT,
                                                    VK_LWIN, VK_RWIN,  VK_APPS, VK_DIVIDE, VK_NUMLOCK};
    return std::find(kExtended.begin(), kExtended.end(), key) != kExtended.end();
}

void SendKey(WORD key, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = (up ? KEYEVENTF_KEYUP : 0U) | (IsExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0U);
    SendInput(1, &input, sizeof(INPUT));
}

}  // namespace

std::string StoredSection(int number, const StoredLesson& lesson) {
    std::string text = "[L" + Padded(static_cast<std::size_t>(number)) + "]\r\nDefTitle=" + lesson.title +
                       "\r\nINTRO_LSN_JAWS=" + lesson.intro + "\r\nTaskReps=" + lesson.repetitions +
                       "\r\nTaskDL=" + lesson.terminator + "\r\nNbrOfTasks=" + std::to_string(lesson.tasks.size()) +
                       "\r\n";
    for (std::size_t i = 0; i < lesson.tasks.size(); ++i) {
        const StoredTask& task = lesson.tasks[i];
        const std::string number2 = Padded(i + 1);
        text += "KIND_TASK_" + number2 + '=' + task.kind + "\r\n";
        text += "PRINT_" + lesson.variant + "_TASK_" + number2 + '=' + task.text + "\r\n";
        text += "SPELL_" + lesson.variant + "_TASK_" + number2 + '=' + task.spelled + "\r\n";
        text += "EXPLN_" + lesson.variant + "_CHILD_" + number2 + '=' + task.explanation + "\r\n";
    }
    return text;
}

std::string StoredFile(const std::vector<StoredLesson>& lessons) {
    std::string text = "[Lessons]\r\nNbrOfLessons=" + std::to_string(lessons.size()) + "\r\n";
    for (std::size_t i = 0; i < lessons.size(); ++i) text += StoredSection(static_cast<int>(i) + 1, lessons[i]);
    return text;
}

StoredTask Letters(const std::string& text, const std::string& explanation) {
    std::string spelled;
    for (const char character : text) spelled += std::string(1, character) + '\x05';
    return {"1", text, spelled, explanation};
}

void HoldKey(WORD key) { SendKey(key, false); }

void ReleaseKey(WORD key) { SendKey(key, true); }

void PressVirtual(std::initializer_list<WORD> keys) {
    for (const WORD key : keys) HoldKey(key);
    for (const WORD* key = keys.end(); key != keys.begin();) ReleaseKey(*--key);
}

fs::path EditorTest::TeachersFile() { return UserFolder() / L"TeachersLessons.ini"; }

fs::path EditorTest::BackupFile() { return UserFolder() / L"TeachersLessons.bak"; }

std::string EditorTest::TeachersBytes() { return ReadBytes(TeachersFile()); }

void EditorTest::WriteTeachersFile(const std::vector<StoredLesson>& lessons) {
    WriteBytes(TeachersFile(), StoredFile(lessons));
}

std::vector<std::wstring> EditorTest::TaskLines() {
    const Window list = In(L"dlgLessonEdit", L"lstTasks");
    std::vector<std::wstring> lines;
    const LRESULT count = list.Send(LB_GETCOUNT);
    for (LRESULT line = 0; line < count; ++line) {
        std::wstring text(1024, L'\0');
        const LRESULT length = list.Send(LB_GETTEXT, static_cast<WPARAM>(line), std::bit_cast<LPARAM>(text.data()));
        if (length == LB_ERR) return {L"(changing)"};
        text.resize(static_cast<std::size_t>(length));
        lines.push_back(text);
    }
    return lines;
}

int EditorTest::SelectedTask() { return static_cast<int>(In(L"dlgLessonEdit", L"lstTasks").Send(LB_GETCURSEL)); }

void EditorTest::StartInTeachersList() {
    ASSERT_NO_FATAL_FAILURE(StartUnsigned());
    ASSERT_TRUE(OpenPicker("F7"));
}

bool EditorTest::WaitForSelectedLesson(std::wstring_view text) {
    const bool selected = WaitUntil([&] { return App().Form(L"dlgTyping") && Lessons().SelectedText() == text; },
                                    std::chrono::seconds(3));
    EXPECT_TRUE(selected) << "selected is: " << ToUtf8(Lessons().SelectedText());
    return selected;
}

void EditorTest::SelectLesson(int lesson) {
    ASSERT_NO_FATAL_FAILURE(TabTo(L"tvTasks"));
    const std::vector<std::wstring> lessons = Lessons().RootTexts();
    ASSERT_GE(static_cast<int>(lessons.size()), lesson);
    const bool fromEnd = lesson > static_cast<int>(lessons.size()) / 2;
    ASSERT_TRUE(App().Press(fromEnd ? "End" : "Home"));
    const int steps = fromEnd ? static_cast<int>(lessons.size()) - lesson : lesson - 1;
    for (int step = 0; step < steps; ++step) ASSERT_TRUE(App().Press(fromEnd ? "Up" : "Down"));
    ASSERT_TRUE(WaitForSelectedLesson(lessons[static_cast<std::size_t>(lesson) - 1]));
}

void EditorTest::OpenLesson(int lesson) {
    ASSERT_NO_FATAL_FAILURE(SelectLesson(lesson));
    Click(L"dlgTyping", L"cmdEditLesson");
    ASSERT_TRUE(App().WaitForForm(L"dlgLessonEdit"));
    ASSERT_TRUE(App().WaitForFocus(TaskLines().empty() ? L"cmdCreateTask" : L"lstTasks"));
}

void EditorTest::AddLesson() {
    Click(L"dlgTyping", L"cmdAddLesson");
    ASSERT_TRUE(App().WaitForForm(L"dlgLessonDetails"));
    ASSERT_TRUE(App().WaitForFocus(L"txtLessonTitle"));
}

void EditorTest::ConfirmDetails(std::wstring_view title, std::wstring_view intro) {
    ASSERT_NO_FATAL_FAILURE(Retype(L"dlgLessonDetails", L"txtLessonTitle", title));
    ASSERT_NO_FATAL_FAILURE(Retype(L"dlgLessonDetails", L"txtLessonIntro", intro));
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(App().WaitForNoForm(L"dlgLessonDetails"));
    ASSERT_TRUE(App().WaitForForm(L"dlgLessonEdit"));
    ASSERT_TRUE(App().WaitForText(L"dlgLessonEdit", L"lblLessonTitle", title));
    ASSERT_TRUE(WaitUntil([&] {
        const std::wstring focus = App().FocusName();
        return App().Form(L"dlgLessonEdit").Enabled() && (focus == L"cmdCreateTask" || focus == L"cmdEditLesson");
    })) << "the focus is on the empty list's button, or back on the button that opened the details";
}

void EditorTest::OpenNewTask() {
    Click(L"dlgLessonEdit", L"cmdCreateTask");
    ASSERT_TRUE(App().WaitForForm(L"dlgTaskEdit"));
    ASSERT_TRUE(App().WaitForFocus(L"txtTask"));
}

void EditorTest::OpenSelectedTask() {
    Click(L"dlgLessonEdit", L"cmdEditTask");
    ASSERT_TRUE(App().WaitForForm(L"dlgTaskEdit"));
    ASSERT_TRUE(App().WaitForFocus(L"txtTask"));
}

void EditorTest::ChooseKind(int kind) {
    static constexpr std::array<const wchar_t*, 4> kOptions{L"optionLetters", L"optionSingleWord", L"optionWords",
                                                            L"optionCommandKeys"};
    const std::size_t wanted = kind == 5 ? 3 : static_cast<std::size_t>(kind) - 1;
    const auto selected = [&] {
        return static_cast<std::size_t>(
            std::find_if(kOptions.begin(), kOptions.end(),
                         [&](const wchar_t* option) { return Checked(L"dlgTaskEdit", option); }) -
            kOptions.begin());
    };
    // Each step gives the focus back to the task.
    while (selected() != wanted) {
        const std::size_t before = selected();
        ASSERT_TRUE(App().WaitForFocus(L"txtTask"));
        ASSERT_TRUE(App().Press("Shift+Tab"));
        ASSERT_TRUE(App().WaitForFocus(kOptions[before]));
        ASSERT_TRUE(App().Press(before < wanted ? "Down" : "Up"));
        ASSERT_TRUE(WaitUntil([&] { return selected() != before; }));
        ASSERT_TRUE(App().WaitForFocus(L"txtTask"));
    }
}

void EditorTest::ConfirmTask() {
    ASSERT_TRUE(App().Press("Enter"));
    ASSERT_TRUE(App().WaitForNoForm(L"dlgTaskEdit"));
}

void EditorTest::CreateTask(int kind, std::wstring_view text, std::wstring_view explanation) {
    const std::size_t before = TaskLines().size();
    ASSERT_NO_FATAL_FAILURE(OpenNewTask());
    ASSERT_NO_FATAL_FAILURE(ChooseKind(kind));
    ASSERT_TRUE(App().Type(text));
    ASSERT_TRUE(App().WaitForText(L"dlgTaskEdit", L"txtTask", text));
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"txtTaskExplanation"));
    ASSERT_TRUE(App().Type(explanation));
    ASSERT_TRUE(App().WaitForText(L"dlgTaskEdit", L"txtTaskExplanation", explanation));
    ASSERT_NO_FATAL_FAILURE(ConfirmTask());
    ASSERT_TRUE(WaitUntil([&] { return TaskLines().size() == before + 1; }));
}

void EditorTest::SaveLesson() {
    Click(L"dlgLessonEdit", L"OKButton");
    ASSERT_TRUE(App().WaitForNoForm(L"dlgLessonEdit"));
    ASSERT_TRUE(App().WaitForFocus(L"tvTasks"));
}

void EditorTest::LeaveEditor() {
    ASSERT_TRUE(App().Press("Esc"));
    ASSERT_TRUE(App().WaitForNoForm(L"dlgLessonEdit"));
}

bool EditorTest::InMenuMode() {
    GUITHREADINFO information{};
    information.cbSize = sizeof(information);
    return GetGUIThreadInfo(App().Focus().ThreadId(), &information) != FALSE &&
           (information.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE)) != 0;
}

}  // namespace e2e
