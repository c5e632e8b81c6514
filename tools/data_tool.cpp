// Makes the generated data files from their sources, or checks all shipped files; scripts/make-data and
// scripts/check-data call it.
//
// Arguments: make or check, and the folder of the shipped files. The exit code is 0 only when nothing was found.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "lessons/modTyping.h"
#include "shell/modGlobals.h"
#include "tools/data_check.h"
#include "tools/data_make.h"
#include "tools/finding.h"
#include "tools/ini_text.h"
#include "tools/lesson_source.h"
#include "win32/error.h"
#include "win32/profile.h"
#include "win32/windows_api.h"

namespace {

namespace fs = std::filesystem;
using data_files::Findings;

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

/// Tells the findings and how many there are; gives the exit code.
int Report(const Findings& findings) {
    for (const auto& finding : findings) std::cout << ToLine(finding) << '\n';
    if (findings.empty()) return EXIT_SUCCESS;
    std::cout << findings.size() << (findings.size() == 1 ? " finding" : " findings") << std::endl;
    return EXIT_FAILURE;
}

/// A generated file: where it comes from and what its source makes of it today.
struct Generated {
    const wchar_t* name;
    std::string bytes;
    // Of its source alone: what cannot be read as it was meant.
    Findings findings;
};

std::string ReadSource(const fs::path& folder, const wchar_t* name, Findings& findings) {
    if (fs::is_regular_file(folder / name)) return ReadBytes(folder / name);
    findings.push_back({name, data_files::kWholeFile, L"the file is missing"});
    return {};
}

std::vector<data_files::SourceLesson> ReadLessonSource(const fs::path& folder, Findings& findings) {
    return data_files::ParseLessons(kLessonSource, ReadSource(folder, kLessonSource, findings), findings);
}

std::array<Generated, 2> Generate(const fs::path& folder) {
    Generated lessons{kLessons, {}, {}};
    lessons.bytes = data_files::MakeLessonFile(ReadLessonSource(folder, lessons.findings));
    Generated dictations{kDictations, {}, {}};
    dictations.bytes = data_files::MakeDictationFile(data_files::ParseDictations(
        kDictationSource, ReadSource(folder, kDictationSource, dictations.findings), dictations.findings));
    return {lessons, dictations};
}

int Make(const fs::path& folder) {
    Findings findings;
    for (const Generated& file : Generate(folder)) {
        // Nothing is written of a source that would lose something on its way.
        if (file.findings.empty()) WriteBytes(folder / file.name, file.bytes);
        Append(findings, file.findings);
    }
    return Report(findings);
}

/// The rules that every shipped file keeps, whatever it holds.
data_files::IniFile CheckText(const fs::path& folder, const std::wstring& name, Findings& findings) {
    if (!fs::is_regular_file(folder / name)) {
        findings.push_back({name, data_files::kWholeFile, L"the file is missing"});
        return {name, {}};
    }
    const std::string bytes = ReadBytes(folder / name);
    Append(findings, data_files::CheckIniText(name, bytes));
    data_files::IniFile file = data_files::ParseIni(name, bytes);
    const std::wstring path = (folder / name).make_preferred().wstring();
    Append(findings, CheckReadBack(file, [&](std::wstring_view section, std::wstring_view key) {
               return win32::profile::ReadString(path, section, key, L"");
           }));
    return file;
}

/// Lists the lessons as a learner with each of the settings would see them.
void CheckListedLessons(const fs::path& folder, const data_files::IniFile& file, Findings& findings) {
    for (const bool magnifier : {false, true})
        for (const int language : {0, 1, 2}) {
            modGlobals::gMAGic = magnifier;
            modGlobals::gLanguageOne = language == 1;
            modGlobals::gLanguageTwo = language == 2;
            const std::wstring switches =
                L"Language=" + std::to_wstring(language) + L" and MAGic=" + (magnifier ? L"1" : L"0");
            try {
                const std::wstring path = (folder / file.name).make_preferred().wstring();
                Append(findings, CheckCatalogue(file, modTyping::ReadCatalogue(path), switches));
            } catch (const win32::AppError& error) {
                findings.push_back({file.name, data_files::kWholeFile,
                                    L"the program cannot list it with " + switches + L": " + error.Description()});
            }
        }
}

std::vector<data_files::IniFile> ReadQuizFiles(const fs::path& folder, Findings& findings) {
    std::vector<data_files::IniFile> files;
    std::vector<fs::path> paths;
    for (const auto& entry : fs::recursive_directory_iterator(folder / kQuizFolder))
        if (entry.is_regular_file()) paths.push_back(fs::relative(entry.path(), folder));
    // The order in which a folder lists its files is not the same everywhere.
    std::sort(paths.begin(), paths.end());
    for (const fs::path& path : paths)
        if (const std::wstring name = path.generic_wstring(); name != kQuizzes)
            files.push_back(CheckText(folder, name, findings));
    return files;
}

int Check(const fs::path& folder) {
    Findings findings;
    for (const Generated& file : Generate(folder)) {
        Append(findings, file.findings);
        if (file.findings.empty() && fs::is_regular_file(folder / file.name))
            Append(findings, data_files::CheckGenerated(file.name, ReadBytes(folder / file.name), file.bytes));
    }
    Findings toldAlready;
    Append(findings, CheckLessonSource(kLessonSource, ReadLessonSource(folder, toldAlready)));
    for (const std::wstring_view name : kShipped) {
        const data_files::IniFile file = CheckText(folder, std::wstring(name), findings);
        if (name == kLessons || name == kTeachersLessons) {
            Append(findings, CheckLessons(file, name == kLessons ? 1 : 0));
            CheckListedLessons(folder, file, findings);
        }
        if (name == kDictations || name == kTeachersDictations)
            Append(findings, CheckDictations(file, name == kDictations ? 1 : 0));
        if (name == kPreferences) Append(findings, CheckPreferences(file));
        if (name == kGeneral) Append(findings, CheckGeneral(file));
        if (name == kQuizzes) Append(findings, CheckQuizzes(file, ReadQuizFiles(folder, findings), kQuizFolder));
    }
    return Report(findings);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    constexpr unsigned kCodePage = 1252;
    constexpr int kUsage = 2;
    const std::wstring_view command = count > 1 ? arguments[1] : L"";
    if (count != 3 || (command != L"make" && command != L"check")) {
        std::cerr << "usage: data_tool make|check FOLDER-OF-THE-SHIPPED-FILES" << std::endl;
        return kUsage;
    }
    try {
        if (GetACP() != kCodePage) throw std::runtime_error("the shipped files need a system of code page 1252");
        // A name without a folder would be looked for in the folder of Windows.
        const fs::path folder = fs::absolute(arguments[2]);
        return command == L"make" ? Make(folder) : Check(folder);
    } catch (const std::exception& problem) {
        std::cerr << "data_tool: " << problem.what() << std::endl;
        return kUsage;
    }
}
