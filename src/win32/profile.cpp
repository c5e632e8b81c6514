// The system's profile functions and the one-call section reader that gives the same values.
#include "win32/profile.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <optional>
#include <utility>

#include "win32/error.h"
#include "win32/text.h"
#include "win32/windows_api.h"

namespace win32::profile {

namespace {

constexpr std::size_t kValueBuffer = kMaxValueBytes + 1;
constexpr std::size_t kSectionBuffer = 65536;
// Above this the system's single-value call and its section call are known to disagree, so the single call decides.
constexpr std::size_t kLongValue = 60000;

std::size_t callCount = 0;

/// Reads a section as the system lists it, NUL after every line; `full` tells that the buffer was too small.
std::string ReadSectionBytes(const std::string& file, const std::string& section, std::size_t bufferBytes, bool& full) {
    // Kept between calls: clearing a new buffer takes longer than reading most sections.
    static std::vector<char> buffer;
    if (buffer.size() < bufferBytes) buffer.resize(bufferBytes);
    ++callCount;
    const DWORD read =
        GetPrivateProfileSectionA(section.c_str(), buffer.data(), static_cast<DWORD>(bufferBytes), file.c_str());
    // An image that fits exactly also reports size - 2.
    full = read + 2 >= bufferBytes;
    return {buffer.data(), read};
}

void Check(BOOL written, std::wstring_view source, const std::wstring& file) {
    if (written == FALSE) throw WriteError(std::wstring(source), file, GetLastError());
}

std::string JoinLines(std::span<const Line> lines) {
    std::string bytes;
    for (const Line& line : lines) {
        bytes += ToAnsi(line.key) + '=' + ToAnsi(line.value);
        bytes += '\0';
    }
    return bytes;
}

char FoldAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Keys are alike when they differ in ASCII case only, whatever the locale. A key asked for may be wide while it is
// ASCII.
template <class Text>
std::size_t HashKey(Text key) {
    std::uint64_t hash = 14695981039346656037ULL;  // FNV-1a
    for (const auto c : key)
        hash = (hash ^ static_cast<unsigned char>(FoldAscii(static_cast<char>(c)))) * 1099511628211ULL;
    return static_cast<std::size_t>(hash ^ (hash >> 32));
}

template <class Text>
bool SameKey(std::string_view left, Text right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, auto b) { return FoldAscii(a) == FoldAscii(static_cast<char>(b)); });
}

/// Trims what the profile functions trim, which no locale's isspace matches.
std::string_view TrimProfile(std::string_view text) {
    constexpr std::string_view kTrimmed = "\t\n\v\f\r\x1a ";
    const auto stays = [](char c) { return static_cast<unsigned char>(c) > ' '; };
    if (!text.empty() && stays(text.front()) && stays(text.back())) return text;
    const auto first = text.find_first_not_of(kTrimmed);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kTrimmed) - first + 1);
}

std::wstring TrimTrailingBlanks(std::wstring_view text) {
    return std::wstring(text.substr(0, text.find_last_not_of(L' ') + 1));
}

/// A plain decimal number that both integer readers understand alike; anything else is left to the system.
std::optional<std::int32_t> PlainNumber(std::string_view value) {
    constexpr std::size_t kMaxLength = 9;
    if (value.empty() || value.size() > kMaxLength) return std::nullopt;
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    if (error != std::errc{} || end != value.data() + value.size()) return std::nullopt;
    return number;
}

}  // namespace

std::wstring ReadString(const std::wstring& file, std::wstring_view section, std::wstring_view key,
                        std::wstring_view defaultText) {
    std::array<char, kValueBuffer> buffer{};
    ++callCount;
    const DWORD read =
        GetPrivateProfileStringA(ToAnsi(section).c_str(), ToAnsi(key).c_str(), ToAnsi(defaultText).c_str(),
                                 buffer.data(), static_cast<DWORD>(buffer.size()), ToAnsi(file).c_str());
    return FromAnsi({buffer.data(), read});
}

std::int16_t ReadInt16(const std::wstring& file, std::wstring_view section, std::wstring_view key,
                       std::int16_t defaultNumber) {
    ++callCount;
    const UINT number =
        GetPrivateProfileIntA(ToAnsi(section).c_str(), ToAnsi(key).c_str(), defaultNumber, ToAnsi(file).c_str());
    return ToInt16(static_cast<std::int32_t>(number));
}

std::vector<std::wstring> ReadLines(const std::wstring& file, std::wstring_view section, std::size_t bufferBytes) {
    const std::string path = ToAnsi(file);
    bool full = false;
    std::string bytes = ReadSectionBytes(path, ToAnsi(section), bufferBytes, full);
    if (full && !bytes.empty() && bytes.back() != '\0') {
        // Only what would come next tells whether the buffer ends with a line or within one.
        bool stillFull = false;
        const std::string more = ReadSectionBytes(path, ToAnsi(section), bufferBytes * 2, stillFull);
        const bool whole = more.size() <= bytes.size() || more[bytes.size()] == '\0';
        if (!whole) bytes.resize(bytes.rfind('\0') + 1);
    }
    std::vector<std::wstring> lines;
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\0'));
        if (line.empty()) break;
        lines.push_back(FromAnsi(line));
        rest.remove_prefix(std::min(rest.size(), line.size() + 1));
    }
    return lines;
}

void WriteString(const std::wstring& file, std::wstring_view section, std::wstring_view key, std::wstring_view value,
                 std::wstring_view source) {
    ++callCount;
    Check(WritePrivateProfileStringA(ToAnsi(section).c_str(), ToAnsi(key).c_str(), ToAnsi(value).c_str(),
                                     ToAnsi(file).c_str()),
          source, file);
}

void WriteSection(const std::wstring& file, std::wstring_view section, std::span<const Line> lines,
                  std::wstring_view source) {
    ++callCount;
    Check(WritePrivateProfileSectionA(ToAnsi(section).c_str(), JoinLines(lines).c_str(), ToAnsi(file).c_str()), source,
          file);
}

void RemoveSection(const std::wstring& file, std::wstring_view section, std::wstring_view source) {
    ++callCount;
    Check(WritePrivateProfileSectionA(ToAnsi(section).c_str(), nullptr, ToAnsi(file).c_str()), source, file);
}

bool CopySection(const std::wstring& file, std::wstring_view from, std::wstring_view to, std::size_t bufferBytes,
                 std::wstring_view source) {
    const std::string path = ToAnsi(file);
    bool full = false;
    std::string bytes = ReadSectionBytes(path, ToAnsi(from), bufferBytes, full);
    bool cut = false;
    if (full) {
        bool stillFull = false;
        // A section that just fits lacks nothing but its last NUL here.
        cut = ReadSectionBytes(path, ToAnsi(from), bufferBytes * 2, stillFull).size() > bytes.size() + 1;
    }
    // The list that the section writer takes ends with one more NUL than its last line.
    bytes.append(2, '\0');
    ++callCount;
    Check(WritePrivateProfileSectionA(ToAnsi(to).c_str(), bytes.c_str(), path.c_str()), source, file);
    return cut;
}

std::size_t SectionBytes(std::span<const Line> lines) { return JoinLines(lines).size() + 1; }

std::size_t CallCount() { return callCount; }

/// The lines of one section, found by key without a separate allocation for each.
struct Section::Index {
    struct Entry {
        std::string_view key;
        std::optional<std::string_view> value;  // none for a line without "="
    };

    std::string bytes;
    std::vector<Entry> entries;
    std::vector<std::uint32_t> slots;  // open addressing: 0 is free, else the entry's number from 1

    // Only the first line of a key counts, as it does for the single-value call.
    template <class Text>
    std::uint32_t& SlotOf(Text key) {
        const std::size_t mask = slots.size() - 1;
        std::size_t slot = HashKey(key) & mask;
        while (slots[slot] != 0 && !SameKey(entries[slots[slot] - 1].key, key)) slot = (slot + 1) & mask;
        return slots[slot];
    }

    void Build() {
        entries.reserve(static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\0')) + 1);
        std::string_view rest = bytes;
        while (!rest.empty()) {
            const std::string_view line = rest.substr(0, rest.find('\0'));
            rest.remove_prefix(std::min(rest.size(), line.size() + 1));
            if (line.empty()) continue;
            const auto equals = line.find('=');
            std::optional<std::string_view> value;
            if (equals != std::string_view::npos) value = TrimProfile(line.substr(equals + 1));
            entries.push_back({TrimProfile(line.substr(0, equals)), value});
        }
        slots.resize(std::bit_ceil(entries.size() * 2 + 1));
        for (std::size_t i = 0; i < entries.size(); ++i) {
            std::uint32_t& slot = SlotOf(entries[i].key);
            if (slot == 0) slot = static_cast<std::uint32_t>(i + 1);
        }
    }

    [[nodiscard]] const std::optional<std::string_view>* Find(std::wstring_view key) {
        const bool ascii = std::all_of(key.begin(), key.end(), [](wchar_t c) { return c < 0x80; });
        const std::uint32_t found = ascii ? SlotOf(key) : SlotOf(std::string_view(ToAnsi(key)));
        return found == 0 ? nullptr : &entries[found - 1].value;
    }
};

Section::Section(std::wstring file, std::wstring_view name)
    : file_(std::move(file)), name_(name), index_(std::make_unique<Index>()) {
    const std::string path = ToAnsi(file_);
    const std::string section = ToAnsi(name_);
    bool full = true;
    for (std::size_t size = kSectionBuffer; full; size *= 2)
        index_->bytes = ReadSectionBytes(path, section, size, full);
    index_->Build();
}

Section::~Section() = default;
Section::Section(Section&&) noexcept = default;
Section& Section::operator=(Section&&) noexcept = default;

std::wstring Section::ReadString(std::wstring_view key, std::wstring_view defaultText) const {
    const std::optional<std::string_view>* found = index_->Find(key);
    if (found == nullptr) return TrimTrailingBlanks(defaultText);
    // A line without "=" and the edges of very long or just fitting quoted values differ between systems: ask the
    // system.
    if (!found->has_value() || (*found)->size() >= kLongValue)
        return profile::ReadString(file_, name_, key, defaultText);
    std::string_view value = **found;
    if (IsQuoted(value)) {
        value = value.substr(1, value.size() - 2);
        if (value.size() == kMaxValueBytes) return profile::ReadString(file_, name_, key, defaultText);
    }
    return FromAnsi(value.substr(0, kMaxValueBytes));
}

std::int16_t Section::ReadInt16(std::wstring_view key, std::int16_t defaultNumber) const {
    const std::optional<std::string_view>* found = index_->Find(key);
    if (found == nullptr) return defaultNumber;
    if (found->has_value())
        if (const auto number = PlainNumber(**found)) return ToInt16(*number);
    return profile::ReadInt16(file_, name_, key, defaultNumber);
}

bool Section::IsCut(std::wstring_view key) const {
    const std::optional<std::string_view>* found = index_->Find(key);
    if (found == nullptr || !found->has_value()) return false;
    const std::string_view value = **found;
    return value.size() - (IsQuoted(value) ? 2 : 0) > kMaxValueBytes;
}

}  // namespace win32::profile
