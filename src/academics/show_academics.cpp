// The way from the academics command to a quiz request.
#include "academics/show_academics.h"

#include <string>

#include "academics/dlgAcademics.h"
#include "academics/dlgQuizzes.h"
#include "academics/modAcademics.h"
#include "shell/modGlobals.h"

namespace modAcademics {

using namespace modGlobals;

void ShowAcademics() {
    constexpr bool kIsProduct = true;
    const std::wstring& catalogue = gQuizzesIni;
    const std::int16_t sections = LoadAcademics(catalogue, AcademicSections, AcademicTopicCounts, AcademicTopics);
    dlgAcademics::Default().ShowForm(kIsProduct, sections, AcademicSections, AcademicTopicCounts, AcademicTopics,
                                     AcademicsResult);
    if (AcademicsResult != win32::kResultOk) return;
    const std::wstring quizFile = GetQuizFileName(catalogue, AcademicSection, AcademicFileKey);
    const std::wstring topicName = GetTopicName(catalogue, AcademicSection, AcademicTopic);
    const std::int16_t quizzes = LoadQuizTitles(quizFile, topicName, QuizTitles);
    dlgQuizzes::Default().ShowForm(kIsProduct, AcademicSection, AcademicTopic, quizzes, QuizTitles, AcademicsResult);
}

}  // namespace modAcademics
