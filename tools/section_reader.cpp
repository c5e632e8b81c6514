// Reading a section key by key.
#include "tools/section_reader.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "win32/profile.h"

namespace data_files {

namespace {

/// A plain decimal number from 0 on.
std::optional<std::size_t> PlainNumber(std::wstring_view text) {
    constexpr std::size_t kMaxDigits = 5;
    if (text.empty() || text.size() > kMaxDigits) return std::nullopt;
    std::size_t number = 0;
    for (const wchar_t c : text) {
        if (c < L'0' || c > L'9') return std::nullopt;
        number = number * 10 + static_cast<std::size_t>(c - L'0');
    }
    return number;
}

}  // namespace

std::wstring Quoted(std::wstring_view text) { return L"\"" + std::wstring(text) + L"\""; }

std::wstring Heard(std::wstring_view text) {
    std::wstring folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(),
                   [](wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c; });
    return folded;
}

Unique::Unique(std::wstring what) : what_(std::move(what)) {}

void Unique::Take(Findings& findings, const std::wstring& file, const std::wstring& section, const std::wstring& text) {
    if (!text.empty() && !seen_.insert(Heard(text)).second)
        findings.push_back({file, section, L"the " + what_ + L" " + Quoted(text) + L" stands twice"});
}

SectionReader::SectionReader(const IniFile& file, std::wstring_view section, Findings& findings)
    : file_(file.name), name_(section), section_(file.Find(section)), findings_(findings) {
    if (section_ == nullptr) Tell(L"the section is missing");
}

std::wstring SectionReader::Optional(const std::wstring& key) {
    known_.insert(Heard(key));
    return section_ == nullptr ? std::wstring() : section_->Value(key).value_or(L"");
}

std::wstring SectionReader::Required(const std::wstring& key) {
    std::wstring value = Optional(key);
    if (section_ != nullptr && value.empty()) Tell(key + L" is missing or empty");
    return value;
}

std::int16_t SectionReader::Count(const std::wstring& key, std::size_t least, std::size_t most) {
    const std::wstring value = Required(key);
    const auto number = PlainNumber(value);
    if (number && *number >= least && *number <= most) return static_cast<std::int16_t>(*number);
    countsKnown_ = false;
    if (!value.empty())
        Tell(key + L" is " + Quoted(value) + L", not a number from " + std::to_wstring(least) + L" to " +
             std::to_wstring(most));
    return 0;
}

void SectionReader::TellUnknownKeys() {
    if (section_ == nullptr || !countsKnown_) return;
    for (const auto& line : section_->lines)
        if (!known_.contains(Heard(line.key))) Tell(line.key + L" is no key of this section, or is beyond its count");
}

void SectionReader::TellSize(std::size_t most) {
    if (section_ == nullptr) return;
    const std::size_t bytes = win32::profile::SectionBytes(section_->lines);
    if (bytes > most) Tell(L"takes " + std::to_wstring(bytes) + L" bytes, more than " + std::to_wstring(most));
}

void SectionReader::TellTwice(Unique& unique, const std::wstring& text) { unique.Take(findings_, file_, name_, text); }

void SectionReader::Tell(const std::wstring& what) { findings_.push_back({file_, name_, what}); }

void TellUnknownSections(const IniFile& file, const std::set<std::wstring>& known, Findings& findings) {
    for (const IniSection& section : file.sections)
        if (!known.contains(Heard(section.name)))
            findings.push_back({file.name, section.name, L"nothing leads to this section, or it is beyond its count"});
}

}  // namespace data_files
