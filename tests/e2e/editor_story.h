// What the tests of the lesson editors share: the ways into the three dialogs, and single keys that are held and let
// go.
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

/// A test in the teacher's lesson list and its editors.
class EditorTest : public KeystrideTest {
protected:
    static std::filesystem::path TeachersFile();
    static std::filesystem::path BackupFile();
    static std::string TeachersBytes();
    static void WriteTeachersFile(const std::vector<StoredLesson>& lessons);

    Tree Lessons() { return App().TreeOf(L"dlgTyping", L"tvTasks"); }
    /// The editor's list; it may be refilled while it is read.
    std::vector<std::wstring> TaskLines();
    int SelectedTask();

    /// Starts without a learner and opens the teacher's list.
    void StartInTeachersList();
    /// Selects a lesson of the open list with the keyboard.
    void SelectLesson(int lesson);
    bool WaitForSelectedLesson(std::wstring_view text);

    /// From the open list: the editor on a stored lesson.
    void OpenLesson(int lesson);
    /// From the open list: the details of a new lesson.
    void AddLesson();
    /// From the details: the editor, with these values; the boxes are typed into with real keys.
    void ConfirmDetails(std::wstring_view title, std::wstring_view intro);

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

    bool InMenuMode();
};

}  // namespace e2e
