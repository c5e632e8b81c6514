// An INI file as its bytes have it.
#include "tools/ini_text.h"

#include <algorithm>

#include "win32/text.h"

namespace data_files {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

wchar_t FoldAscii(wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c; }

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view TrimBlanks(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

/// One line of a file, without its end.
struct TextLine {
    enum class Kind { Nothing, Section, Value, Other };

    std::size_t number = 0;
    Kind kind = Kind::Nothing;
    std::string_view name;   // of the section or of the key
    std::string_view value;  // as it stands, blanks and all
    std::string_view text;
    bool endsInCrLf = false;
};

void Classify(TextLine& line) {
    const std::string_view text = TrimBlanks(line.text);
    if (text.empty() || text.front() == ';') return;
    if (text.front() == '[' && text.back() == ']') {
        line.kind = TextLine::Kind::Section;
        line.name = text.substr(1, text.size() - 2);
        return;
    }
    const auto equals = line.text.find('=');
    line.kind = equals == std::string_view::npos ? TextLine::Kind::Other : TextLine::Kind::Value;
    if (line.kind == TextLine::Kind::Other) return;
    line.name = TrimBlanks(line.text.substr(0, equals));
    line.value = line.text.substr(equals + 1);
}

std::vector<TextLine> SplitLines(std::string_view bytes) {
    std::vector<TextLine> lines;
    while (!bytes.empty()) {
        const auto end = bytes.find('\n');
        TextLine line;
        line.number = lines.size() + 1;
        line.text = bytes.substr(0, end);
        line.endsInCrLf = end != std::string_view::npos && line.text.ends_with('\r');
        if (line.text.ends_with('\r')) line.text.remove_suffix(1);
        Classify(line);
        lines.push_back(line);
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    }
    return lines;
}

/// A byte that stands for nothing in code page 1252.
bool IsUnused(char c) {
    constexpr std::string_view kUnused = "\x81\x8D\x8F\x90\x9D";
    return kUnused.find(c) != std::string_view::npos;
}

/// A control character that is neither TAB nor one of the markers 5 to 7.
bool IsControl(char c) {
    const auto code = static_cast<unsigned char>(c);
    return code == 0x7F || (code < ' ' && code != '\t' && (code < 5 || code > 7));
}

bool IsQuoted(std::string_view value) {
    return value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
}

/// What would keep the program from reading the value as it stands; "" when nothing does.
std::wstring ValueProblem(std::string_view value) {
    if (value.size() > win32::profile::kMaxValueBytes)
        return L"takes " + std::to_wstring(value.size()) + L" bytes, more than " +
               std::to_wstring(win32::profile::kMaxValueBytes);
    if (TrimBlanks(value) != value) return L"has blanks at an end, which would be dropped";
    if (IsQuoted(value)) return L"stands in quotation marks, which would be dropped";
    return {};
}

/// Walks through the lines and collects what is wrong with them.
class TextCheck {
public:
    explicit TextCheck(std::wstring_view name) : name_(name) {}

    void Check(const TextLine& line) {
        if (line.kind == TextLine::Kind::Section) EnterSection(line);
        const std::wstring where = L"line " + std::to_wstring(line.number);
        if (!line.endsInCrLf && !lineEndTold_) {
            Add(where + L" does not end with CR LF");
            lineEndTold_ = true;
        }
        if (std::any_of(line.text.begin(), line.text.end(), IsControl))
            Add(where + L" holds a control character that no value has");
        if (std::any_of(line.text.begin(), line.text.end(), IsUnused))
            Add(where + L" holds a byte that is no character of code page 1252");
        if (line.kind == TextLine::Kind::Other) Add(where + L" has no \"=\"");
        if (line.kind == TextLine::Kind::Value) CheckValue(line);
    }

    /// A file that a text editor saved as UTF-8: its letters beyond ASCII would be read as two or three each.
    void CheckEncoding(std::string_view bytes) {
        const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
        bool valid = false;
        FromUtf8(bytes, valid);
        if (valid && !std::all_of(bytes.begin(), bytes.end(), isAscii))
            findings_.push_back({name_, kWholeFile, L"is UTF-8; the program reads code page 1252"});
    }

    Findings Take() { return std::move(findings_); }

private:
    void Add(const std::wstring& what) { findings_.push_back({name_, section_, what}); }

    void EnterSection(const TextLine& line) {
        section_ = win32::FromAnsi(line.name);
        keys_.clear();
        if (Seen(sections_, section_)) Add(L"the section stands twice; only the first is read");
    }

    void CheckValue(const TextLine& line) {
        const std::wstring key = win32::FromAnsi(line.name);
        if (sections_.empty()) Add(key + L" stands before the first section");
        if (Seen(keys_, key)) Add(key + L" stands twice; only the first is read");
        if (const std::wstring problem = ValueProblem(line.value); !problem.empty()) Add(key + L" " + problem);
    }

    static bool Seen(std::vector<std::wstring>& names, const std::wstring& name) {
        const bool seen =
            std::any_of(names.begin(), names.end(), [&](const auto& known) { return SameName(known, name); });
        if (!seen) names.push_back(name);
        return seen;
    }

    std::wstring name_;
    std::wstring section_ = kWholeFile;
    std::vector<std::wstring> sections_;
    std::vector<std::wstring> keys_;
    bool lineEndTold_ = false;
    Findings findings_;
};

std::string_view WithoutMark(std::string_view bytes) {
    return bytes.starts_with(kUtf8Mark) ? bytes.substr(kUtf8Mark.size()) : bytes;
}

}  // namespace

bool SameName(std::wstring_view left, std::wstring_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](wchar_t a, wchar_t b) { return FoldAscii(a) == FoldAscii(b); });
}

std::optional<std::wstring> IniSection::Value(std::wstring_view key) const {
    const auto found =
        std::find_if(lines.begin(), lines.end(), [&](const auto& line) { return SameName(line.key, key); });
    if (found == lines.end()) return std::nullopt;
    return found->value;
}

const IniSection* IniFile::Find(std::wstring_view section) const {
    const auto found = std::find_if(sections.begin(), sections.end(),
                                    [&](const IniSection& candidate) { return SameName(candidate.name, section); });
    return found == sections.end() ? nullptr : &*found;
}

IniFile ParseIni(std::wstring_view name, std::string_view bytes) {
    IniFile file{std::wstring(name), {}};
    for (const TextLine& line : SplitLines(WithoutMark(bytes))) {
        if (line.kind == TextLine::Kind::Section) file.sections.push_back({win32::FromAnsi(line.name), {}});
        if (line.kind == TextLine::Kind::Value && !file.sections.empty())
            file.sections.back().lines.push_back({win32::FromAnsi(line.name), win32::FromAnsi(line.value)});
    }
    return file;
}

Findings CheckIniText(std::wstring_view name, std::string_view bytes) {
    TextCheck check(name);
    check.CheckEncoding(bytes);
    for (const TextLine& line : SplitLines(WithoutMark(bytes))) check.Check(line);
    return check.Take();
}

Findings CheckReadBack(const IniFile& file, const ValueReader& read) {
    Findings findings;
    for (const IniSection& section : file.sections)
        for (const auto& line : section.lines)
            if (ValueProblem(win32::ToAnsi(line.value)).empty() && read(section.name, line.key) != line.value)
                findings.push_back({file.name, section.name, line.key + L" is not read back as it stands"});
    return findings;
}

}  // namespace data_files
