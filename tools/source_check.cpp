// The rules for the source of the lessons: keys are introduced before they are used.
#include <algorithm>
#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <utility>

#include "shell/lesson_file.h"
#include "tools/chords.h"
#include "tools/data_check.h"
#include "tools/section_reader.h"
#include "win32/text.h"

namespace data_files {

namespace {

constexpr wchar_t kSpaceKey[] = L"Space";
constexpr wchar_t kShiftKey[] = L"Shift";
constexpr wchar_t kNoEnd[] = L"Nothing";

/// The keys that a lesson may introduce beside characters and the keys with a chord name.
constexpr std::array<std::wstring_view, 7> kOtherKeys{L"Tab", L"Escape",  L"Shift",  L"Control",
                                                      L"Alt", L"Windows", L"JawsKey"};

bool IsKeyName(const std::wstring& name) {
    return name.size() == 1 || IsChordKey(name) ||
           std::find(kOtherKeys.begin(), kOtherKeys.end(), name) != kOtherKeys.end();
}

/// Follows the lessons and tells each key that is used before it was introduced, once a lesson.
class IntroducedKeys {
public:
    IntroducedKeys(std::wstring_view name, Findings& findings) : name_(name), findings_(findings) {}

    void Enter(std::wstring section, const SourceLesson& lesson) {
        section_ = std::move(section);
        told_.clear();
        if (!lesson.introduces) return;
        for (std::wstring& key : Words(lesson.introduces->text)) {
            if (!IsKeyName(key))
                Tell(lesson.introduces->line, L"introduces " + Quoted(key) + L", which is no key's name");
            known_.insert(std::move(key));
        }
    }

    void UseText(const SourceText& text) {
        for (const wchar_t c : text.text) {
            const std::wstring key(1, c);
            const bool isCapital = c >= L'A' && c <= L'Z' && known_.contains(kShiftKey);
            Use(text.line, c == L' ' ? kSpaceKey : isCapital && !known_.contains(key) ? Heard(key) : key);
        }
    }

    void UseChords(const SourceText& text) {
        for (const std::wstring& chord : Words(text.text)) {
            if (!ChordProblem(chord).empty()) continue;
            for (const std::wstring& key : win32::Split(chord, L'+')) UseChordKey(text.line, key);
        }
    }

    void Use(std::size_t line, const std::wstring& key) {
        if (!known_.contains(key) && told_.insert(key).second)
            Tell(line, L"uses " + Quoted(key) + L" before a lesson introduces it");
    }

private:
    /// Letters stand in capitals in chords; the key is the same.
    void UseChordKey(std::size_t line, const std::wstring& key) {
        const bool isWindowsKey = key.ends_with(L"Windows") && known_.contains(L"Windows");
        const bool isLetter = key.size() == 1 && known_.contains(Heard(key));
        if (!isWindowsKey && !isLetter) Use(line, key);
    }

    void Tell(std::size_t line, const std::wstring& what) {
        findings_.push_back({name_, section_, L"line " + std::to_wstring(line) + L" " + what});
    }

    std::wstring name_;
    Findings& findings_;
    std::wstring section_;
    std::set<std::wstring> known_;
    std::set<std::wstring> told_;
};

void UseTask(IntroducedKeys& keys, const SourceTask& task) {
    const auto use = [&](const SourceText& text) {
        if (IsChords(task.kind))
            keys.UseChords(text);
        else
            keys.UseText(text);
    };
    use(task.text);
    for (const auto* variant : {&task.eng, &task.nonEng, &task.mag})
        if (*variant) use(**variant);
}

}  // namespace

Findings CheckLessonSource(std::wstring_view name, std::span<const SourceLesson> lessons) {
    Findings findings;
    IntroducedKeys keys(name, findings);
    std::int16_t number = 0;
    for (const SourceLesson& lesson : lessons) {
        const std::wstring section = lesson_file::SectionName(++number);
        const auto tell = [&](const SourceText& at, const wchar_t* what) {
            findings.push_back({std::wstring(name), section, L"line " + std::to_wstring(at.line) + L" " + what});
        };
        if (!lesson.intro) tell(lesson.title, L"begins a lesson without \"intro:\"");
        if (lesson.tasks.empty()) tell(lesson.title, L"begins a lesson without a task");
        keys.Enter(section, lesson);
        const std::wstring ends = lesson.ends ? lesson.ends->text : std::wstring(kDefaultEnds);
        if (ends != kNoEnd) keys.Use((lesson.ends ? *lesson.ends : lesson.title).line, ends);
        for (const SourceTask& task : lesson.tasks) {
            if (!task.explanation) tell(task.text, L"begins a task without \"explain:\"");
            if (task.nonEngExplanation && !task.nonEng)
                tell(*task.nonEngExplanation, L"explains a text that is not there");
            UseTask(keys, task);
        }
    }
    return findings;
}

}  // namespace data_files
