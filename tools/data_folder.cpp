// The folder of the shipped files as a whole: making what is generated there, checking everything.
#include "tools/data_folder.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "academics/modAcademics.h"
#include "lessons/modTyping.h"
#include "shell/modGlobals.h"
#include "tools/data_check.h"
#include "tools/data_make.h"
#include "tools/ini_text.h"
#include "tools/lesson_source.h"
#include "win32/error.h"
#include "win32/profile.h"

namespace data_files {

namespace fs = std::filesystem;

namespace {

constexpr wchar_t kLessons[] = L"KSLessons.ini";
constexpr wchar_t kTeachersLessons[] = L"TeachersLessons.ini";
constexpr wchar_t kDictations[] = L"KSDictations.ini";
constexpr wchar_t kTeachersDictations[] = L"TeachersDictations.ini";
constexpr wchar_t kPreferences[] = L"KSUserPrefs.ini";
constexpr wchar_t kGeneral[] = L"KSGeneral.ini";
constexpr wchar_t kQuizFolder[] = L"QuizzesKS";
constexpr wchar_t kQuizzes[] = L"QuizzesKS/KSQuizzes.ini";
constexpr wchar_t kLessonSource[] = L"source/lessons.txt";
constexpr wchar_t kDictationSource[] = L"source/dictations.txt";

constexpr std::array<std::wstring_view, 10> kShipped{
    L"Keystride.ini", kGeneral,    L"KSDialogTutor.ini", kTeachersLessons, kTeachersDictations,
    kLessons,         kDictations, L"KSUserInfo.ini",    kPreferences,     kQuizzes};

std::string ReadBytes(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw std::runtime_error("cannot read " + file.string());
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void WriteBytes(const fs::path& file, std::string_view bytes) {
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) throw std::runtime_error("cannot write " + file.string());
}

void Append(Findings& findings, const Findings& more) { findings.insert(findings.end(), more.begin(), more.end()); }

/// A generated file: where it comes from and what its source makes of it today.
struct Generated {
    const wchar_t* name;
    std::string bytes;
    // Of its source alone: what cannot be read as it was meant.
    Findings findings;
};

std::string ReadSource(const fs::path& folder, const wchar_t* name, Findings& findings) {
    if (fs::is_regular_file(folder / name)) return ReadBytes(folder / name);
    findings.push_back({name, kWholeFile, L"the file is missing"});
    return {};
}

std::vector<SourceLesson> ReadLessonSource(const fs::path& folder, Findings& findings) {
    return ParseLessons(kLessonSource, ReadSource(folder, kLessonSource, findings), findings);
}

std::array<Generated, 2> Generate(const fs::path& folder) {
    Generated lessons{kLessons, {}, {}};
    lessons.bytes = MakeLessonFile(ReadLessonSource(folder, lessons.findings));
    Generated dictations{kDictations, {}, {}};
    dictations.bytes = MakeDictationFile(ParseDictations(
        kDictationSource, ReadSource(folder, kDictationSource, dictations.findings), dictations.findings));
    return {lessons, dictations};
}

std::wstring PathOf(const fs::path& folder, std::wstring_view name) {
    return (folder / name).make_preferred().wstring();
}

/// A shipped file after the rules that each of them keeps; none when it is missing.
std::optional<IniFile> CheckText(const fs::path& folder, std::wstring_view name, Findings& findings) {
    if (!fs::is_regular_file(folder / name)) {
        findings.push_back({std::wstring(name), kWholeFile, L"the file is missing"});
        return std::nullopt;
    }
    const std::string bytes = ReadBytes(folder / name);
    Append(findings, CheckIniText(name, bytes));
    IniFile file = ParseIni(name, bytes);
    Append(findings, CheckReadBack(file, [&](std::wstring_view section, std::wstring_view key) {
               return win32::profile::ReadString(PathOf(folder, name), section, key, L"");
           }));
    return file;
}

/// Sets the learner's switches, and puts them back at the end of the scope.
class Switches {
public:
    Switches(int language, bool magnifier) {
        modGlobals::gLanguageOne = language == 1;
        modGlobals::gLanguageTwo = language == 2;
        modGlobals::gMAGic = magnifier;
    }
    Switches(const Switches&) = delete;
    Switches& operator=(const Switches&) = delete;
    ~Switches() {
        modGlobals::gLanguageOne = languageOne_;
        modGlobals::gLanguageTwo = languageTwo_;
        modGlobals::gMAGic = magnifier_;
    }

private:
    bool languageOne_ = modGlobals::gLanguageOne;
    bool languageTwo_ = modGlobals::gLanguageTwo;
    bool magnifier_ = modGlobals::gMAGic;
};

/// Lists the lessons as a learner with each of the settings would see them.
void CheckListedLessons(const fs::path& folder, const IniFile& file, Findings& findings) {
    for (const bool magnifier : {false, true})
        for (const int language : {0, 1, 2}) {
            const Switches switches(language, magnifier);
            const std::wstring named =
                L"Language=" + std::to_wstring(language) + L" and MAGic=" + (magnifier ? L"1" : L"0");
            try {
                Append(findings, CheckCatalogue(file, modTyping::ReadCatalogue(PathOf(folder, file.name)), named));
            } catch (const win32::AppError& error) {
                findings.push_back(
                    {file.name, kWholeFile, L"the program cannot list it with " + named + L": " + error.Description()});
            }
        }
}

/// All files of the quiz folder but the catalogue.
std::vector<IniFile> CheckQuizTexts(const fs::path& folder, Findings& findings) {
    std::vector<std::wstring> names;
    for (const auto& entry : fs::recursive_directory_iterator(folder / kQuizFolder))
        if (entry.is_regular_file()) names.push_back(fs::relative(entry.path(), folder).generic_wstring());
    // The order in which a folder lists its files is not the same everywhere.
    std::sort(names.begin(), names.end());
    std::erase(names, kQuizzes);
    std::vector<IniFile> files;
    files.reserve(names.size());
    for (const std::wstring& name : names) files.push_back(*CheckText(folder, name, findings));
    return files;
}

/// The subjects with their topics and quizzes, read as the two pickers are filled.
std::vector<ListedSubject> ListSubjects(const std::wstring& catalogue) {
    std::vector<std::wstring> names;
    std::vector<std::int16_t> counts;
    modAcademics::TopicTable topics;
    modAcademics::LoadAcademics(catalogue, names, counts, topics);
    std::vector<ListedSubject> subjects;
    subjects.reserve(names.size());
    for (std::size_t subject = 0; subject < names.size(); ++subject) {
        subjects.push_back({names[subject], {}});
        const std::wstring section = modAcademics::SectionKey(static_cast<std::int16_t>(subject + 1));
        for (std::int16_t topic = 1; topic <= counts[subject]; ++topic) {
            modAcademics::ParseAcademicSelection(section + modGlobals::gSep + modAcademics::TopicKey(topic));
            ListedTopic listed{modAcademics::GetTopicName(catalogue, section, modAcademics::AcademicTopic), {}};
            modAcademics::LoadQuizTitles(
                modAcademics::GetQuizFileName(catalogue, section, modAcademics::AcademicFileKey), listed.name,
                listed.quizzes);
            subjects.back().topics.push_back(std::move(listed));
        }
    }
    return subjects;
}

void CheckQuizFolder(const fs::path& folder, const IniFile& catalogue, Findings& findings) {
    const std::vector<IniFile> files = CheckQuizTexts(folder, findings);
    Append(findings, CheckQuizzes(catalogue, files, kQuizFolder));
    const std::wstring kept = std::exchange(modGlobals::gQuizzesPath, PathOf(folder, kQuizFolder));
    try {
        const auto listed = ListSubjects(PathOf(folder, kQuizzes));
        Append(findings, CheckListedQuizzes(catalogue, files, kQuizFolder, listed));
    } catch (const win32::AppError& error) {
        findings.push_back({catalogue.name, kWholeFile, L"the program cannot list it: " + error.Description()});
    }
    modGlobals::gQuizzesPath = kept;
}

/// The rules for what a file holds.
void CheckContent(const fs::path& folder, const IniFile& file, Findings& findings) {
    if (file.name == kLessons || file.name == kTeachersLessons) {
        Append(findings, CheckLessons(file, file.name == kLessons ? 1 : 0));
        CheckListedLessons(folder, file, findings);
    }
    if (file.name == kDictations || file.name == kTeachersDictations)
        Append(findings, CheckDictations(file, file.name == kDictations ? 1 : 0));
    if (file.name == kPreferences) {
        Append(findings, CheckPreferences(file));
        Append(findings,
               CheckListedPreferences(file, win32::profile::ReadLines(PathOf(folder, kPreferences), kPreferencesSection,
                                                                      kPreferencesBytes)));
    }
    if (file.name == kGeneral) Append(findings, CheckGeneral(file));
    if (file.name == kQuizzes) CheckQuizFolder(folder, file, findings);
}

}  // namespace

Findings MakeData(const fs::path& folder) {
    Findings findings;
    for (const Generated& file : Generate(folder)) {
        // Nothing is written of a source that would lose something on its way.
        if (file.findings.empty()) WriteBytes(folder / file.name, file.bytes);
        Append(findings, file.findings);
    }
    return findings;
}

Findings CheckData(const fs::path& folder) {
    Findings findings;
    for (const Generated& file : Generate(folder)) {
        Append(findings, file.findings);
        if (file.findings.empty() && fs::is_regular_file(folder / file.name))
            Append(findings, CheckGenerated(file.name, ReadBytes(folder / file.name), file.bytes));
    }
    Findings toldAlready;
    Append(findings, CheckLessonSource(kLessonSource, ReadLessonSource(folder, toldAlready)));
    for (const std::wstring_view name : kShipped)
        if (const auto file = CheckText(folder, name, findings)) CheckContent(folder, *file, findings);
    return findings;
}

}  // namespace data_files
