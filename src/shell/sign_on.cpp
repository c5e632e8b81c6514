// Signing a learner on by name.
#include "shell/sign_on.h"

#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "win32/text.h"

namespace sign_on {

using namespace modGlobals;

std::wstring ValidateName(std::wstring_view name) {
    constexpr std::size_t kShortest = 3;
    if (name.size() < kShortest)
        return L"Must be first name, followed by a space, followed by the last name or last initial";
    if (win32::TrimBlanks(name).find(L' ') == std::wstring::npos)
        return L"There must be a space between the first name and the last name (or last initial)";
    return {};
}

void SignOnLearner(const std::wstring& name) {
    gUserName = name;
    // A name that is no folder name has no file of its own; nothing may look for one elsewhere.
    const auto folder = modUtils::LearnerFolderName(name);
    gCustomLessonsIni = folder ? gStudentRecordsPath + L"\\" + *folder + L"\\CustomLessons.ini" : std::wstring();
    if (modUtils::isNetworkVersion()) modUtils::GetStudentRecordsFromNetwork();
    modUtils::EnsureLearnerFolder();
}

}  // namespace sign_on
