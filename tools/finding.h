// What a check of the data files has to say, one line a finding.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace data_files {

struct Finding {
    std::wstring file;
    std::wstring section;
    std::wstring what;

    bool operator==(const Finding&) const = default;
};

using Findings = std::vector<Finding>;

/// Stands for the section in a finding that concerns the whole file.
inline constexpr wchar_t kWholeFile[] = L"whole file";

/// "file: section: what", in UTF-8.
std::string ToLine(const Finding& finding);

/// The text of UTF-8 bytes; `valid` tells whether they are UTF-8 at all.
std::wstring FromUtf8(std::string_view bytes, bool& valid);

}  // namespace data_files
