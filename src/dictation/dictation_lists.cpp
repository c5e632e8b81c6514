// Opening the dictation picker on each of the two catalogues.
#include "dictation/dictation_lists.h"

#include <string>

#include "dictation/dlgDictation.h"
#include "dictation/modDictation.h"
#include "shell/modGlobals.h"

namespace modDictation {

using namespace modGlobals;

namespace {

void Show(const std::wstring& file, bool isShipped) {
    mDictationKind = isShipped ? kShippedKind : kTeachersKind;
    dlgDictation& picker = dlgDictation::Default();
    const win32::UnloadAtExit unload(picker);
    picker.Load();
    picker.tvTasks.Clear();
    LoadDictations(file, picker.tvTasks);
    picker.ShowEditingButtons(!isShipped);
    int result = win32::kResultCancelled;
    picker.ShowForm(isShipped, result);
}

}  // namespace

void ShowDictationLessons() { Show(gDictationsIni, true); }

void ShowTeachersDictationLessons() { Show(gTeachersDictationsIni, false); }

}  // namespace modDictation
