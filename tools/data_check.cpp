// The rules for dictations, preferences, texts and generated files.
#include "tools/data_check.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "dictation/dictation_text.h"
#include "shell/lesson_file.h"
#include "tools/data_make.h"
#include "tools/section_reader.h"

namespace data_files {

namespace {

constexpr std::size_t kMaxDictations = 100;

}  // namespace

Findings CheckDictations(const IniFile& file, std::size_t fewestLessons) {
    Findings findings;
    SectionReader head(file, modDictation::kListSection, findings);
    const std::int16_t count =
        head.Count(lesson_file::kLessonCountKey, fewestLessons, static_cast<std::size_t>(INT16_MAX));
    head.TellUnknownKeys();
    std::set<std::wstring> known{Heard(modDictation::kListSection)};
    Unique titles(L"title");
    for (std::int16_t number = 1; number <= count; ++number) {
        SectionReader section(file, lesson_file::SectionName(number), findings);
        known.insert(Heard(section.Name()));
        if (!section.Exists()) continue;
        section.TellTwice(titles, section.Required(lesson_file::kTitleKey));
        const std::int16_t tasks = section.Count(lesson_file::kTaskCountKey, 1, kMaxDictations);
        Unique labels(L"label");
        for (std::int16_t task = 1; task <= tasks; ++task) {
            const std::wstring labelKey = modDictation::PrintTaskKey(task);
            const std::wstring label = section.Required(labelKey);
            const std::wstring text = section.Required(modDictation::SpellTaskKey(task));
            section.TellTwice(labels, label);
            if (!label.empty() && !text.empty() && label != ReadBackLabel(modDictation::DecodeText(text)))
                section.Tell(labelKey + L" is not the label that the program makes of the text");
        }
        section.TellUnknownKeys();
        section.TellSize(lesson_file::kMovedSectionBytes);
    }
    if (head.CountsKnown()) TellUnknownSections(file, known, findings);
    return findings;
}

Findings CheckPreferences(const IniFile& file) {
    Findings findings;
    SectionReader section(file, kPreferencesSection, findings);
    Unique preferences(L"preference");
    if (const IniSection* lines = file.Find(kPreferencesSection); lines != nullptr) {
        if (lines->lines.empty()) section.Tell(L"there is no preference");
        for (std::size_t i = 0; i < lines->lines.size(); ++i) {
            // A preference is known by its place; its key tells the place to whoever reads the file.
            const std::wstring key = lesson_file::TaskKey(L"PREF_", static_cast<std::int16_t>(i + 1));
            if (!SameName(lines->lines[i].key, key))
                section.Tell(lines->lines[i].key + L" stands in the place of " + key);
            section.TellTwice(preferences, section.Required(lines->lines[i].key));
        }
        section.TellSize(kPreferencesBytes);
    }
    TellUnknownSections(file, {Heard(kPreferencesSection)}, findings);
    return findings;
}

Findings CheckListedPreferences(const IniFile& file, std::span<const std::wstring> lines) {
    std::vector<std::wstring> stored;
    if (const IniSection* section = file.Find(kPreferencesSection); section != nullptr)
        for (const auto& line : section->lines) stored.push_back(line.key + L"=" + line.value);
    if (std::equal(stored.begin(), stored.end(), lines.begin(), lines.end())) return {};
    return {{file.name, kPreferencesSection,
             L"the program reads " + std::to_wstring(lines.size()) + L" of " + std::to_wstring(stored.size()) +
                 L" lines, or reads one otherwise"}};
}

Findings CheckGeneral(const IniFile& file) {
    Findings findings;
    std::set<std::wstring> known;
    for (const wchar_t* name : {L"Main", L"General", L"StudentProfile"}) {
        SectionReader section(file, name, findings);
        known.insert(Heard(name));
        section.Required(L"SingleRow");
        section.Required(L"MultiRow");
        if (section.Name() == L"Main") {
            section.Required(L"DefSingleRow");
            section.Required(L"DefMultiRow");
        }
        section.TellUnknownKeys();
    }
    TellUnknownSections(file, known, findings);
    return findings;
}

Findings CheckGenerated(std::wstring_view name, std::string_view bytes, std::string_view made) {
    if (bytes == made) return {};
    const auto [differs, end] = std::mismatch(bytes.begin(), bytes.end(), made.begin(), made.end());
    const auto line = std::count(bytes.begin(), differs, '\n') + 1;
    return {{std::wstring(name), kWholeFile,
             L"is not what its source makes from line " + std::to_wstring(line) + L" on; run scripts/make-data"}};
}

}  // namespace data_files
