// The student profile: what its lists offer, and writing it for the screen-reader side.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace modStudentProfile {

/// An entry of a list: what is shown and what is stored for it.
struct Choice {
    std::wstring shown;
    std::wstring stored;

    bool operator==(const Choice&) const = default;
};

/// The years of birth that are offered in a year: the 110 before it and the year itself, ascending.
std::vector<Choice> BirthYears(int currentYear);
std::vector<Choice> BirthMonths();
std::vector<Choice> BirthDays();
std::vector<Choice> BirthCountries();

/// What is stored for a list of `count` entries of which `selected` is chosen: with none chosen (-1) the empty text, or
/// "0" when the list is empty.
std::wstring ChosenValue(const std::vector<Choice>& choices, int selected, int count);

/// The answers, in the order in which they stand in the file.
struct StudentProfile {
    std::wstring birthYear{};
    std::wstring birthMonth{};
    std::wstring birthDay{};
    std::wstring birthCountry{};
    std::wstring sex{};
    std::wstring hair{};
    std::wstring school{};
    std::wstring food{};
    std::wstring friendName{};
    std::wstring animal{};
    std::wstring tvShow{};
    std::wstring sports{};
    std::wstring music{};
    std::wstring games{};
    std::wstring other{};
};

/// Writes the profile to gDialogTutorIni, value by value and without control characters. Returns 1 when every value was
/// written; a refused one is not reported and makes the result 0.
std::int16_t SaveStudentProfile(const StudentProfile& profile);

}  // namespace modStudentProfile
