// The way from the academics command to a quiz request: the subject picker, then the quiz picker.
#pragma once

namespace modAcademics {

/// Lets the learner pick a subject or topic, then one of its quizzes. Raises what reading the catalogue and the quiz
/// file raises; the picker that needs it is then not shown.
void ShowAcademics();

}  // namespace modAcademics
