// Reads the sources of the shipped lessons and dictations.
#include "tools/lesson_source.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "shell/lesson_file.h"
#include "win32/text.h"

namespace data_files {

namespace {

constexpr wchar_t kLineBreak[] = L"\r\n";

/// The kinds of tasks, by the name that their line begins with.
constexpr std::array<std::pair<std::wstring_view, std::wstring_view>, 4> kTaskKinds{
    {{L"letters", L"1"}, {L"word", L"2"}, {L"phrase", L"3"}, {L"keys", L"5"}}};

std::wstring_view KindOf(std::wstring_view name) {
    const auto* found =
        std::find_if(kTaskKinds.begin(), kTaskKinds.end(), [&](const auto& row) { return row.first == name; });
    return found == kTaskKinds.end() ? std::wstring_view() : found->second;
}

bool IsControl(wchar_t c) { return c < L' '; }

/// Goes through a source line by line and keeps the findings.
class Reader {
public:
    Reader(std::wstring_view name, std::string_view bytes, Findings& findings) : name_(name), findings_(findings) {
        bool valid = false;
        const std::wstring text = FromUtf8(bytes, valid);
        if (!valid) findings_.push_back({name_, kWholeFile, L"is not UTF-8"});
        lines_ = win32::Split(text, L'\n');
        // What stands behind the last line end is no line.
        if (lines_.back().empty()) lines_.pop_back();
        if (text.find(L'\r') != std::wstring::npos)
            findings_.push_back({name_, kWholeFile, L"has a carriage return; its lines end in LF alone"});
    }

    /// The next line as it stands; false at the end.
    bool NextText(SourceText& line) {
        if (done_ == lines_.size()) return false;
        line.text = lines_[done_];
        line.line = ++done_;
        return true;
    }

    /// The next "name: value" line; false at the end. A line that is none is told and left out.
    bool Next(SourceText& value, std::wstring& name) {
        SourceText line;
        while (NextText(line)) {
            if (line.text.empty() || line.text.front() == L'#') continue;
            const auto colon = line.text.find(L':');
            if (colon == std::wstring::npos) {
                Tell(line.line, L"has no \"name:\" at its start");
                continue;
            }
            name = line.text.substr(0, colon);
            value.text = line.text.substr(std::min(line.text.size(), line.text.find_first_not_of(L' ', colon + 1)));
            value.line = line.line;
            CheckText(value);
            return true;
        }
        return false;
    }

    void Tell(std::size_t line, std::wstring_view what) {
        findings_.push_back({name_, section_, L"line " + std::to_wstring(line) + L" " + std::wstring(what)});
    }

    void EnterSection(std::wstring section) { section_ = std::move(section); }

    /// What a value cannot keep on its way into the file.
    void CheckText(const SourceText& value) {
        if (value.text.ends_with(L' ')) Tell(value.line, L"ends in a blank");
        if (std::any_of(value.text.begin(), value.text.end(), IsControl))
            Tell(value.line, L"holds a control character");
        CheckCharacters(value);
    }

    void CheckCharacters(const SourceText& value) {
        for (const wchar_t& c : value.text)
            if (!win32::FitsAnsi({&c, 1}))
                Tell(value.line, L"holds \"" + std::wstring(1, c) + L"\", which the code page does not have");
    }

private:
    std::wstring name_;
    Findings& findings_;
    std::wstring section_ = kWholeFile;
    std::vector<std::wstring> lines_;
    std::size_t done_ = 0;
};

std::wstring SectionOf(std::size_t lesson) { return lesson_file::SectionName(static_cast<std::int16_t>(lesson)); }

/// Reads lessons: a line belongs to the lesson or the task that began last.
class LessonParser {
public:
    LessonParser(std::wstring_view name, std::string_view bytes, Findings& findings) : reader_(name, bytes, findings) {}

    std::vector<SourceLesson> Parse() {
        SourceText value;
        std::wstring name;
        while (reader_.Next(value, name)) {
            if (value.text.empty())
                reader_.Tell(value.line, L"says nothing behind \"" + name + L":\"");
            else if (!Take(name, value))
                reader_.Tell(value.line, L"begins with \"" + name + L":\", which has no meaning there");
        }
        return std::move(lessons_);
    }

private:
    bool Take(std::wstring_view name, const SourceText& value) {
        if (name == L"lesson") {
            lessons_.push_back({value, {}, {}, {}, {}, {}});
            reader_.EnterSection(SectionOf(lessons_.size()));
            return true;
        }
        if (lessons_.empty()) return false;
        if (const std::wstring_view kind = KindOf(name); !kind.empty()) {
            lessons_.back().tasks.push_back({std::wstring(kind), value, {}, {}, {}, {}, {}, {}});
            return true;
        }
        std::optional<SourceText>* field = lessons_.back().tasks.empty() ? LessonField(name) : TaskField(name);
        if (field == nullptr) return false;
        if (field->has_value()) reader_.Tell(value.line, L"says \"" + std::wstring(name) + L":\" again");
        *field = value;
        return true;
    }

    std::optional<SourceText>* LessonField(std::wstring_view name) {
        SourceLesson& lesson = lessons_.back();
        if (name == L"introduces") return &lesson.introduces;
        if (name == L"intro") return &lesson.intro;
        if (name == L"ends") return &lesson.ends;
        if (name == L"repeats") return &lesson.repeats;
        return nullptr;
    }

    std::optional<SourceText>* TaskField(std::wstring_view name) {
        SourceTask& task = lessons_.back().tasks.back();
        if (name == L"explain") return &task.explanation;
        if (name == L"eng") return &task.eng;
        if (name == L"noneng") return &task.nonEng;
        if (name == L"mag") return &task.mag;
        if (name == L"eng-explain") return &task.engExplanation;
        if (name == L"noneng-explain") return &task.nonEngExplanation;
        return nullptr;
    }

    Reader reader_;
    std::vector<SourceLesson> lessons_;
};

/// The lines of one dictation, up to "end.".
SourceText ReadDictation(Reader& reader, std::size_t startLine) {
    SourceText text{L"", startLine};
    SourceText line;
    bool first = true;
    while (reader.NextText(line)) {
        if (line.text == L"end.") return text;
        reader.CheckCharacters(line);
        if (!first) text.text += kLineBreak;
        text.text += line.text;
        first = false;
    }
    reader.Tell(startLine, L"begins a dictation that no line \"end.\" closes");
    return text;
}

}  // namespace

std::vector<SourceLesson> ParseLessons(std::wstring_view name, std::string_view bytes, Findings& findings) {
    return LessonParser(name, bytes, findings).Parse();
}

std::vector<SourceDictationLesson> ParseDictations(std::wstring_view name, std::string_view bytes, Findings& findings) {
    Reader reader(name, bytes, findings);
    std::vector<SourceDictationLesson> lessons;
    SourceText value;
    std::wstring field;
    while (reader.Next(value, field)) {
        if (field == L"lesson" && !value.text.empty()) {
            lessons.push_back({value, {}});
            reader.EnterSection(SectionOf(lessons.size()));
        } else if (field == L"dictation" && value.text.empty() && !lessons.empty()) {
            lessons.back().dictations.push_back(ReadDictation(reader, value.line));
        } else {
            reader.Tell(value.line, L"is neither \"lesson:\" with a title nor \"dictation:\" below one");
        }
    }
    return lessons;
}

std::vector<std::wstring> Words(std::wstring_view text) {
    std::vector<std::wstring> words = win32::Split(text, L' ');
    std::erase(words, std::wstring());
    return words;
}

}  // namespace data_files
