// Makes the generated data files from their sources, or checks all shipped files; scripts/make-data and
// scripts/check-data call it.
//
// Arguments: make or check, and the folder of the shipped files. The exit code is 0 only when nothing was found.
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string_view>

#include "tools/data_folder.h"
#include "tools/finding.h"
#include "win32/windows_api.h"

namespace {

/// Tells the findings and how many there are; gives the exit code.
int Report(const data_files::Findings& findings) {
    for (const auto& finding : findings) std::cout << ToLine(finding) << '\n';
    if (findings.empty()) return EXIT_SUCCESS;
    std::cout << findings.size() << (findings.size() == 1 ? " finding" : " findings") << std::endl;
    return EXIT_FAILURE;
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
        const std::filesystem::path folder = std::filesystem::absolute(arguments[2]);
        return Report(command == L"make" ? data_files::MakeData(folder) : data_files::CheckData(folder));
    } catch (const std::exception& problem) {
        std::cerr << "data_tool: " << problem.what() << std::endl;
        return kUsage;
    }
}
