// Opening the dictation picker on each of the two catalogues.
#pragma once

namespace modDictation {

/// The shipped dictation lessons. Raises what LoadDictations raises; the picker is then not shown.
void ShowDictationLessons();
/// The teacher's own dictation lessons, which can be added, edited and removed.
void ShowTeachersDictationLessons();

}  // namespace modDictation
