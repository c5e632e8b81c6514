// Opening the lesson picker on each of the three lesson lists.
#include "lessons/lesson_lists.h"

#include <string>

#include "lessons/dlgTyping.h"
#include "lessons/modTyping.h"
#include "shell/modGlobals.h"

namespace modTyping {

using namespace modGlobals;

namespace {

void Show(const wchar_t* prefix, const wchar_t* caption, const std::wstring& file, bool editable) {
    gLessonTreePrefix = prefix;
    dlgTyping& picker = dlgTyping::Default();
    const win32::UnloadAtExit unload(picker);
    picker.Load();
    picker.SetCaption(caption);
    picker.ShowEditingButtons(editable);
    picker.tvTasks.Clear();
    LoadLessons(file, picker.tvTasks);
    picker.ShowForm(prefix);
}

}  // namespace

void ShowLessons() { Show(L"KYBP", L"Pick a Lesson or Task", gLessonsIni, false); }

void ShowTeachersLessons() { Show(L"KYBT", L"Pick a Teacher's Lesson or Task", gTeachersLessonsIni, true); }

void ShowCustomLessons() { Show(L"KYBC", L"Pick a Lesson or Task", gCustomLessonsIni, false); }

}  // namespace modTyping
