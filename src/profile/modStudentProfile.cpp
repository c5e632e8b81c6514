// The student profile.
#include "profile/modStudentProfile.h"

#include <array>
#include <utility>

#include "shell/modGlobals.h"
#include "win32/error.h"
#include "win32/profile.h"
#include "win32/text.h"

namespace modStudentProfile {

namespace {

constexpr int kYearsBack = 110;
constexpr int kDays = 31;

std::vector<Choice> Numbers(int first, int last) {
    std::vector<Choice> choices;
    for (int number = first; number <= last; ++number)
        choices.push_back({std::to_wstring(number), std::to_wstring(number)});
    return choices;
}

}  // namespace

std::vector<Choice> BirthYears(int currentYear) { return Numbers(currentYear - kYearsBack, currentYear); }

std::vector<Choice> BirthMonths() {
    std::vector<Choice> choices;
    for (const wchar_t* month : {L"January", L"February", L"March", L"April", L"May", L"June", L"July", L"August",
                                 L"September", L"October", L"November", L"December"})
        choices.push_back({month, month});
    return choices;
}

std::vector<Choice> BirthDays() { return Numbers(1, kDays); }

std::vector<Choice> BirthCountries() {
    return {{L"USA", L"USA"},
            {L"Canada", L"Canada"},
            {L"United Kingdom", L"United Kingdom"},
            // Existing profiles and their readers know it by this spelling.
            {L"Australia", L"Austrailia"},
            {L"New Zealand", L"New Zealand"}};
}

std::wstring ChosenValue(const std::vector<Choice>& choices, int selected, int count) {
    if (selected < 0) return count == 0 ? L"0" : L"";
    return choices.at(static_cast<std::size_t>(selected)).stored;
}

std::int16_t SaveStudentProfile(const StudentProfile& profile) {
    using Row = std::pair<const wchar_t*, std::wstring StudentProfile::*>;
    static constexpr std::array<Row, 15> kRows{{{L"BirthYear", &StudentProfile::birthYear},
                                                {L"BirthMonth", &StudentProfile::birthMonth},
                                                {L"BirthDay", &StudentProfile::birthDay},
                                                {L"BirthCountry", &StudentProfile::birthCountry},
                                                {L"Sex", &StudentProfile::sex},
                                                {L"Hair", &StudentProfile::hair},
                                                {L"School", &StudentProfile::school},
                                                {L"Food", &StudentProfile::food},
                                                {L"Friend", &StudentProfile::friendName},
                                                {L"Animal", &StudentProfile::animal},
                                                {L"TVShow", &StudentProfile::tvShow},
                                                {L"Sports", &StudentProfile::sports},
                                                {L"Music", &StudentProfile::music},
                                                {L"Games", &StudentProfile::games},
                                                {L"Other", &StudentProfile::other}}};
    std::int16_t status = 1;
    for (const auto& [key, member] : kRows) {
        try {
            win32::profile::WriteString(modGlobals::gDialogTutorIni, L"StudentProfile", key,
                                        win32::DropControlCharacters(profile.*member), L"SaveStudentProfile");
        } catch (const win32::AppError&) {
            status = 0;
        }
    }
    return status;
}

}  // namespace modStudentProfile
