// The system's profile functions: every INI value that the program reads or writes passes through here, in ANSI bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace win32::profile {

/// A value is read back at most this long, in ANSI bytes.
inline constexpr std::size_t kMaxValueBytes = 254;

/// One "key=value" line of a section.
struct Line {
    std::wstring key;
    std::wstring value;
};

/// The value of a key, cut at 254 ANSI bytes and not trimmed by the caller's rules; a missing key gives the default
/// text.
std::wstring ReadString(const std::wstring& file, std::wstring_view section, std::wstring_view key,
                        std::wstring_view defaultText);

/// The number of a key, the default when it is missing or empty; error 6 when it does not fit 16 bits.
std::int16_t ReadInt16(const std::wstring& file, std::wstring_view section, std::wstring_view key,
                       std::int16_t defaultNumber = 0);

/// The lines of a section as the system lists them, as far as they fit whole into a buffer of `bufferBytes`.
std::vector<std::wstring> ReadLines(const std::wstring& file, std::wstring_view section, std::size_t bufferBytes);

/// Writes one value. Raises WriteError under `source` when the system refuses.
void WriteString(const std::wstring& file, std::wstring_view section, std::wstring_view key, std::wstring_view value,
                 std::wstring_view source);

/// Replaces the whole section by these lines, in their order. Raises WriteError under `source` when the system refuses.
void WriteSection(const std::wstring& file, std::wstring_view section, std::span<const Line> lines,
                  std::wstring_view source);

/// Removes the whole section. Raises WriteError under `source` when the system refuses.
void RemoveSection(const std::wstring& file, std::wstring_view section, std::wstring_view source);

/// Writes the section `from` as the whole section `to`, through a buffer of `bufferBytes`: what does not fit is cut.
/// Returns whether something was cut. Raises WriteError under `source` when the system refuses.
bool CopySection(const std::wstring& file, std::wstring_view from, std::wstring_view to, std::size_t bufferBytes,
                 std::wstring_view source);

/// How many ANSI bytes a section of these lines takes in a whole-section read, its final NUL included.
std::size_t SectionBytes(std::span<const Line> lines);

/// How many profile calls this process has made.
std::size_t CallCount();

/// One section read in a single call; every value is the one that ReadString or ReadInt16 would give.
class Section {
public:
    Section(std::wstring file, std::wstring_view name);
    ~Section();
    Section(Section&&) noexcept;
    Section& operator=(Section&&) noexcept;
    Section(const Section&) = delete;
    Section& operator=(const Section&) = delete;

    [[nodiscard]] std::wstring ReadString(std::wstring_view key, std::wstring_view defaultText) const;
    [[nodiscard]] std::int16_t ReadInt16(std::wstring_view key, std::int16_t defaultNumber = 0) const;

    /// Whether ReadString cut the stored value of this key at 254 bytes.
    [[nodiscard]] bool IsCut(std::wstring_view key) const;

private:
    struct Index;

    std::wstring file_;
    std::wstring name_;
    std::unique_ptr<Index> index_;
};

}  // namespace win32::profile
