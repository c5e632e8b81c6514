// An INI file as its bytes have it: sections and lines for the checks, and what is wrong with the bytes themselves.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/finding.h"
#include "win32/profile.h"

namespace data_files {

struct IniSection {
    std::wstring name;
    std::vector<win32::profile::Line> lines;

    /// The value of the first line with this key, ASCII case aside; none when there is no such line.
    [[nodiscard]] std::optional<std::wstring> Value(std::wstring_view key) const;
};

struct IniFile {
    std::wstring name;
    std::vector<IniSection> sections;

    /// The first section of this name, ASCII case aside; null when there is none.
    [[nodiscard]] const IniSection* Find(std::wstring_view section) const;
};

/// Whether two names are the same to the profile functions: ASCII case aside.
bool SameName(std::wstring_view left, std::wstring_view right);

/// The sections of a file. Lines that are no "key=value" are left out, as are comments.
IniFile ParseIni(std::wstring_view name, std::string_view bytes);

/// What the bytes of a shipped file must not hold: other line ends than CR LF, characters outside code page 1252,
/// control characters other than the markers, lines that are no "key=value", a section or key twice, and values that
/// would not be read back as they stand (blanks at the ends, quotation marks around them, more than 254 bytes).
Findings CheckIniText(std::wstring_view name, std::string_view bytes);

/// Gives the value of a key as the program reads it.
using ValueReader = std::function<std::wstring(std::wstring_view section, std::wstring_view key)>;

/// Every value that the program would read differently from how it stands. Those that CheckIniText reports are left
/// out.
Findings CheckReadBack(const IniFile& file, const ValueReader& read);

}  // namespace data_files
