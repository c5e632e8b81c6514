// The rules for files of lessons.
#include <algorithm>
#include <array>
#include <cstdint>
#include <set>
#include <string>

#include "lessons/lesson_text.h"
#include "shell/lesson_file.h"
#include "tools/chords.h"
#include "tools/data_check.h"
#include "tools/data_make.h"
#include "tools/section_reader.h"

namespace data_files {

using namespace modTyping;

namespace {

constexpr std::size_t kMaxTasks = 100;

std::wstring TaskName(std::int16_t number) { return L"task " + std::to_wstring(number); }

class TaskCheck {
public:
    TaskCheck(SectionReader& section, std::int16_t number)
        : section_(section), number_(number), kind_(section.Required(KindTaskKey(number))) {}

    void Check() {
        constexpr std::array<std::wstring_view, 4> kKinds{L"1", L"2", L"3", L"5"};
        if (!kind_.empty() && std::find(kKinds.begin(), kKinds.end(), kind_) == kKinds.end())
            section_.Tell(KindTaskKey(number_) + L" is " + Quoted(kind_) + L", which is no kind of task");

        const std::wstring text = section_.Required(PrintTaskKey(number_, Variant::Usa));
        CheckText(text);
        CheckSpelling(SpellTaskKey(number_, Variant::Usa), text);
        const std::wstring eng = section_.Optional(PrintTaskKey(number_, Variant::Eng));
        CheckText(eng);
        CheckSpelling(SpellTaskKey(number_, Variant::Eng), eng.empty() ? text : eng);
        CheckVariant(kNonEngTextKey, kNonEngSpellingKey);
        CheckVariant(kMagTextKey, kMagSpellingKey);

        section_.Required(ExplanationKey(number_, Variant::Usa));
        section_.Required(ExplanationKey(number_, Variant::Eng));
        section_.Optional(lesson_file::TaskKey(kNonEngExplanationKey, number_));
    }

private:
    /// A variant that the program only reads: it is spelled out where it is in use.
    void CheckVariant(const wchar_t* textKey, const wchar_t* spellingKey) {
        const std::wstring text = section_.Optional(lesson_file::TaskKey(textKey, number_));
        CheckText(text);
        const std::wstring key = lesson_file::TaskKey(spellingKey, number_);
        if (!text.empty())
            CheckSpelling(key, text);
        else if (!section_.Optional(key).empty())
            section_.Tell(key + L" spells a text that is not there");
    }

    void CheckText(const std::wstring& text) {
        if (!IsChords(kind_)) return;
        for (const std::wstring& chord : Words(text))
            if (const std::wstring problem = ChordProblem(chord); !problem.empty())
                section_.Tell(TaskName(number_) + L": " + Quoted(chord) + L" " + problem);
        if (StoredText(kind_, text) != text)
            section_.Tell(TaskName(number_) + L": its chords are not parted by two blanks");
    }

    void CheckSpelling(const std::wstring& key, const std::wstring& text) {
        const std::wstring spelled = section_.Required(key);
        if (!spelled.empty() && spelled != SpellOutTask(kind_, text))
            section_.Tell(key + L" is not how the program spells the task out");
    }

    SectionReader& section_;
    std::int16_t number_;
    std::wstring kind_;
};

template <std::size_t Size>
void CheckOneOf(SectionReader& section, const std::wstring& key, const std::array<std::wstring_view, Size>& values) {
    const std::wstring value = section.Required(key);
    if (!value.empty() && std::find(values.begin(), values.end(), value) == values.end())
        section.Tell(key + L" is " + Quoted(value) + L", which it never is");
}

void CheckLesson(SectionReader& section, Unique& titles) {
    constexpr std::array<std::wstring_view, 2> kRepeats{L"2", L"4"};
    constexpr std::array<std::wstring_view, 3> kEnds{L"Enter", L"Space", L"Nothing"};
    if (!section.Exists()) return;
    section.TellTwice(titles, section.Required(lesson_file::kTitleKey));
    section.Required(kIntroKey);
    CheckOneOf(section, kRepetitionsKey, kRepeats);
    CheckOneOf(section, kTerminatorKey, kEnds);
    const std::int16_t count = section.Count(lesson_file::kTaskCountKey, 1, kMaxTasks);
    for (std::int16_t task = 1; task <= count; ++task) TaskCheck(section, task).Check();
    section.TellUnknownKeys();
    section.TellSize(lesson_file::kMovedSectionBytes);
}

/// Every PRINT text of a task.
std::set<std::wstring> StoredTexts(const IniSection& section, std::int16_t task) {
    std::set<std::wstring> texts;
    for (const std::wstring& key :
         {PrintTaskKey(task, Variant::Usa), PrintTaskKey(task, Variant::Eng),
          lesson_file::TaskKey(kNonEngTextKey, task), lesson_file::TaskKey(kMagTextKey, task)})
        if (const auto text = section.Value(key); text && !text->empty()) texts.insert(*text);
    return texts;
}

}  // namespace

Findings CheckLessons(const IniFile& file, std::size_t fewestLessons) {
    Findings findings;
    SectionReader head(file, kListSection, findings);
    const std::int16_t count = head.Count(lesson_file::kLessonCountKey, fewestLessons, kMaxListedLessons);
    head.TellUnknownKeys();
    std::set<std::wstring> known{Heard(kListSection)};
    Unique titles(L"title");
    for (std::int16_t number = 1; number <= count; ++number) {
        SectionReader section(file, lesson_file::SectionName(number), findings);
        known.insert(Heard(section.Name()));
        CheckLesson(section, titles);
    }
    if (head.CountsKnown()) TellUnknownSections(file, known, findings);
    return findings;
}

Findings CheckCatalogue(const IniFile& file, std::span<const CatalogueLesson> catalogue, std::wstring_view switches) {
    Findings findings;
    const std::wstring with = L" with " + std::wstring(switches);
    const auto lessons = static_cast<std::size_t>(
        std::count_if(file.sections.begin(), file.sections.end(),
                      [](const IniSection& section) { return !SameName(section.name, kListSection); }));
    if (catalogue.size() != lessons)
        findings.push_back({file.name, kListSection,
                            L"the program lists " + std::to_wstring(catalogue.size()) + L" of " +
                                std::to_wstring(lessons) + L" lessons" + with});
    std::int16_t number = 0;
    for (const CatalogueLesson& listed : catalogue) {
        const std::wstring name = lesson_file::SectionName(++number);
        const IniSection* section = file.Find(name);
        if (section == nullptr) continue;
        if (listed.text != std::to_wstring(number) + L". " + section->Value(lesson_file::kTitleKey).value_or(L""))
            findings.push_back({file.name, name, L"the program lists it as " + Quoted(listed.text) + with});
        if (std::to_wstring(listed.tasks.size()) != section->Value(lesson_file::kTaskCountKey).value_or(L""))
            findings.push_back(
                {file.name, name, L"the program lists " + std::to_wstring(listed.tasks.size()) + L" tasks" + with});
        std::int16_t task = 0;
        for (const CatalogueTask& listedTask : listed.tasks)
            if (!StoredTexts(*section, ++task).contains(listedTask.text))
                findings.push_back({file.name, name,
                                    L"the program lists " + TaskName(task) + L" as " + Quoted(listedTask.text) + with});
    }
    return findings;
}

}  // namespace data_files
