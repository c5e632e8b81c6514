// Opening the lesson picker on each of the three lesson lists.
#pragma once

namespace modTyping {

/// The built-in lessons. Raises what LoadLessons raises; the picker is then not shown.
void ShowLessons();
/// The teacher's own lessons, which can be added, edited and removed.
void ShowTeachersLessons();
/// The lessons of the signed-on learner.
void ShowCustomLessons();

}  // namespace modTyping
