// What every check of a section needs: reading it key by key, and telling what is missing, unknown, or there twice.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "tools/finding.h"
#include "tools/ini_text.h"

namespace data_files {

std::wstring Quoted(std::wstring_view text);

/// The text in small letters: names that differ in nothing else sound the same, and are the same to the system.
std::wstring Heard(std::wstring_view text);

/// Collects texts and tells those that came before.
class Unique {
public:
    explicit Unique(std::wstring what);
    void Take(Findings& findings, const std::wstring& file, const std::wstring& section, const std::wstring& text);

private:
    std::wstring what_;
    std::set<std::wstring> seen_;
};

/// Reads one section key by key, tells what is missing, and in the end what nobody asked for.
class SectionReader {
public:
    /// Tells a section that is missing. The file lives longer than the reader.
    SectionReader(const IniFile& file, std::wstring_view section, Findings& findings);
    SectionReader(const SectionReader&) = delete;
    SectionReader& operator=(const SectionReader&) = delete;

    [[nodiscard]] bool Exists() const { return section_ != nullptr; }
    [[nodiscard]] const std::wstring& Name() const { return name_; }
    /// Whether every count was understood, so that what is beyond one can be told.
    [[nodiscard]] bool CountsKnown() const { return countsKnown_; }

    /// The value of a key that may be missing; "" then.
    std::wstring Optional(const std::wstring& key);
    /// The value of a key that has to be there.
    std::wstring Required(const std::wstring& key);
    /// A count; 0, and a finding, when it is not a plain number of the range.
    std::int16_t Count(const std::wstring& key, std::size_t least, std::size_t most);

    /// Tells every key that was not asked for: beyond the counts, or misspelt.
    void TellUnknownKeys();
    /// Tells a section that takes more bytes than the program can move or read at once.
    void TellSize(std::size_t most);
    /// Tells a text that came before.
    void TellTwice(Unique& unique, const std::wstring& text);
    void Tell(const std::wstring& what);

private:
    std::wstring file_;
    std::wstring name_;
    const IniSection* section_;
    Findings& findings_;
    std::set<std::wstring> known_;
    bool countsKnown_ = true;
};

/// Tells every section whose name, in small letters, is not in the list.
void TellUnknownSections(const IniFile& file, const std::set<std::wstring>& known, Findings& findings);

}  // namespace data_files
