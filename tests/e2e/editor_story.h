// What the tests of the lesson editors share: the ways into the three dialogs, single keys that are held and let go,
// the clipboard, and what a screen reader needs of a dialog.
#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "checks.h"
#include "fixture.h"

namespace e2e {

// At this resolution the tests' desktop is as wide as one of 1366 at one and a half times the usual one: the narrowest
// that must do.
inline constexpr int kTightDpi = 135;

/// One task as it stands in the teacher's file.
struct StoredTask {
    std::string kind = "1";
    std::string text{};
    std::string spelled{};
    std::string explanation{};
};

/// One lesson as it stands in the teacher's file; `variant` is USA or ENG.
struct StoredLesson {
    std::string title{};
    std::string intro = "Listen.";
    std::string repetitions = "2";
    std::string terminator = "Space";
    std::vector<StoredTask> tasks{};
    std::string variant = "USA";
};

/// A lesson's section, line by line.
std::string StoredSection(int number, const StoredLesson& lesson);
/// A whole lesson file.
std::string StoredFile(const std::vector<StoredLesson>& lessons);
/// A task of kind 1 to 3 without blanks in its text, spelled out.
StoredTask Letters(const std::string& text, const std::string& explanation = "Type it.");

// ---- keys that the driver's chords do not name ----------------------------------------------------------------------

void HoldKey(WORD key);
void ReleaseKey(WORD key);
/// Holds the first keys down, presses and lets go the last one, and lets the others go.
void PressVirtual(std::initializer_list<WORD> keys);

/// Puts a text on the clipboard.
bool CopyToClipboard(std::wstring_view text);

/// The resolution that Wine gives to programs started from now on.
class DisplayResolution {
public:
    explicit DisplayResolution(DWORD dpi);
    ~DisplayResolution();
    DisplayResolution(const DisplayResolution&) = delete;
    DisplayResolution& operator=(const DisplayResolution&) = delete;
};

/// A test in the teacher's lesson list and its editors.
class EditorTest : public KeystrideTest {
protected:
    static std::filesystem::path TeachersFile();
    static std::filesystem::path BackupFile();
    static std::string TeachersBytes();
    static void WriteTeachersFile(const std::vector<StoredLesson>& lessons);

    Tree Lessons() { return App().TreeOf(L"dlgTyping", L"tvTasks"); }
    Window In(std::wstring_view form, std::wstring_view control) { return App().Control(form, control); }
    /// The editor's list; it may be refilled while it is read.
    std::vector<std::wstring> TaskLines();
    int SelectedTask();
    /// Puts a text into a box at once, as another program would.
    void SetTextOf(std::wstring_view form, std::wstring_view box, const std::wstring& text);
    std::wstring Notice(std::wstring_view form);
    bool WaitForNotice(std::wstring_view form, std::wstring_view text);
    bool Checked(std::wstring_view form, std::wstring_view option);

    /// Starts without a learner and opens the teacher's list.
    void StartInTeachersList();
    /// Selects a lesson of the open list with the keyboard.
    void SelectLesson(int lesson);
    bool WaitForSelectedLesson(std::wstring_view text);
    /// Moves the focus with Tab until it is on that control.
    void TabTo(std::wstring_view control);
    /// Presses a button by the keyboard.
    void PressButton(std::wstring_view control);

    /// From the open list: the editor on a stored lesson.
    void OpenLesson(int lesson);
    /// From the open list: the details of a new lesson.
    void AddLesson();
    /// From the details: the editor, with these values; the boxes are typed into with real keys.
    void ConfirmDetails(std::wstring_view title, std::wstring_view intro);
    /// Empties the box that has the focus and types a text.
    void Retype(std::wstring_view form, std::wstring_view box, std::wstring_view text);

    /// From the lesson editor: the task editor for a new task, or on the selected one.
    void OpenNewTask();
    void OpenSelectedTask();
    /// Chooses a kind with the keyboard: 1, 2, 3 or 5.
    void ChooseKind(int kind);
    void ConfirmTask();
    /// Writes one task from the lesson editor's Create button to the list.
    void CreateTask(int kind, std::wstring_view text, std::wstring_view explanation);
    /// Saves the lesson and waits for the list of lessons.
    void SaveLesson();
    /// Leaves the lesson editor with Esc.
    void LeaveEditor();

    /// Clicks a control of a form without waiting for what it opens.
    void Click(std::wstring_view form, std::wstring_view control);
    bool InMenuMode();

    // What a screen reader needs.
    static std::vector<std::wstring> Order(const Window& form);
    void ExpectTabOrder(const std::vector<std::wstring>& expected);
    static void ExpectGroup(const Window& form, std::wstring_view group, const std::vector<std::wstring>& members);
    static void ExpectOneDefaultButton(const Window& dialog);
    /// Nothing overlaps, leaves the dialog or the screen, or is clipped.
    static void ExpectEverythingReadable(const Window& dialog, int dpi);

private:
    std::vector<std::wstring> TabRound(const char* chord);
};

}  // namespace e2e
