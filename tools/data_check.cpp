// The rules for the shipped data files.
#include "tools/data_check.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "dictation/dictation_text.h"
#include "lessons/command_keys.h"
#include "lessons/lesson_text.h"
#include "shell/lesson_file.h"
#include "tools/data_make.h"
#include "win32/text.h"

namespace data_files {

using namespace modTyping;

namespace {

constexpr std::size_t kMaxTasks = 100;
constexpr std::size_t kMaxQuestions = 99;
// The preferences are read through a buffer of this many bytes; what does not fit is not listed.
constexpr std::size_t kPreferencesBytes = 4096;

std::wstring Quoted(std::wstring_view text) { return L"\"" + std::wstring(text) + L"\""; }

std::wstring TaskName(std::int16_t number) { return L"task " + std::to_wstring(number); }

/// The text in small letters: names that differ in nothing else sound the same, and are the same to the system.
std::wstring Heard(std::wstring_view text) {
    std::wstring folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(),
                   [](wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c; });
    return folded;
}

/// Collects texts and tells those that came before.
class Unique {
public:
    explicit Unique(std::wstring what) : what_(std::move(what)) {}

    void Take(Findings& findings, const std::wstring& file, const std::wstring& section, const std::wstring& text) {
        if (!text.empty() && !seen_.insert(Heard(text)).second)
            findings.push_back({file, section, L"the " + what_ + L" " + Quoted(text) + L" stands twice"});
    }

private:
    std::wstring what_;
    std::set<std::wstring> seen_;
};

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

/// Reads one section key by key, tells what is missing, and in the end what nobody asked for.
class SectionReader {
public:
    SectionReader(const IniFile& file, std::wstring_view section, Findings& findings)
        : file_(file.name), name_(section), section_(file.Find(section)), findings_(findings) {
        if (section_ == nullptr) Tell(L"the section is missing");
    }
    SectionReader(const SectionReader&) = delete;
    SectionReader& operator=(const SectionReader&) = delete;

    [[nodiscard]] bool Exists() const { return section_ != nullptr; }
    [[nodiscard]] const std::wstring& Name() const { return name_; }
    /// Whether every count was understood, so that what is beyond one can be told.
    [[nodiscard]] bool CountsKnown() const { return countsKnown_; }

    /// The value of a key that may be missing; "" then.
    std::wstring Optional(const std::wstring& key) {
        known_.insert(Heard(key));
        return section_ == nullptr ? std::wstring() : section_->Value(key).value_or(L"");
    }

    /// The value of a key that has to be there.
    std::wstring Required(const std::wstring& key) {
        std::wstring value = Optional(key);
        if (section_ != nullptr && value.empty()) Tell(key + L" is missing or empty");
        return value;
    }

    /// A count; 0, and a finding, when it is not a plain number up to `most`.
    std::int16_t Count(const std::wstring& key, std::size_t least, std::size_t most) {
        const std::wstring value = Required(key);
        if (value.empty()) {
            countsKnown_ = false;
            return 0;
        }
        const auto number = PlainNumber(value);
        if (!number || *number < least || *number > most) {
            Tell(key + L" is " + Quoted(value) + L", not a number from " + std::to_wstring(least) + L" to " +
                 std::to_wstring(most));
            countsKnown_ = false;
            return 0;
        }
        return static_cast<std::int16_t>(*number);
    }

    /// Tells every key that was not asked for: beyond the counts, or misspelt.
    void TellUnknownKeys() {
        if (section_ == nullptr || !countsKnown_) return;
        for (const auto& line : section_->lines)
            if (!known_.contains(Heard(line.key)))
                Tell(line.key + L" is no key of this section, or is beyond its count");
    }

    void Tell(const std::wstring& what) { findings_.push_back({file_, name_, what}); }

    void TellTwice(Unique& unique, const std::wstring& text) { unique.Take(findings_, file_, name_, text); }

    /// Tells a section that would be cut on being moved.
    void TellSize(std::size_t most) {
        if (section_ == nullptr) return;
        const std::size_t bytes = win32::profile::SectionBytes(section_->lines);
        if (bytes > most) Tell(L"takes " + std::to_wstring(bytes) + L" bytes, more than " + std::to_wstring(most));
    }

private:
    std::wstring file_;
    std::wstring name_;
    const IniSection* section_;
    Findings& findings_;
    std::set<std::wstring> known_;
    bool countsKnown_ = true;
};

/// Tells every section that was not read.
void TellUnknownSections(const IniFile& file, const std::set<std::wstring>& known, Findings& findings) {
    for (const IniSection& section : file.sections)
        if (!known.contains(Heard(section.name)))
            findings.push_back({file.name, section.name, L"nothing leads to this section, or it is beyond its count"});
}

// ---- chords ---------------------------------------------------------------------------------------------------------

constexpr std::array<std::wstring_view, 4> kModifiers{L"Control", L"Alt", L"Shift", L"JawsKey"};
constexpr std::wstring_view kNeverWritten = L"Insert";

/// The names that a chord may end in.
std::set<std::wstring> ChordKeyNames() {
    std::set<std::wstring> names;
    for (const command_keys::KeyName& row : command_keys::KeyNames())
        for (int code = row.first; code <= row.last; ++code) {
            std::wstring name = row.name;
            if (row.counted != 0) name += static_cast<wchar_t>(row.counted + (code - row.first));
            if (name != kNeverWritten) names.insert(name);
        }
    return names;
}

/// What is wrong with a chord's name; "" when it is one that the task editor could have written.
std::wstring ChordProblem(std::wstring_view chord) {
    static const std::set<std::wstring> kNames = ChordKeyNames();
    const auto fields = win32::Split(chord, L'+');
    if (std::find(fields.begin(), fields.end(), kNeverWritten) != fields.end())
        return L"names Insert, which is only ever written as JawsKey";
    const auto* next = kModifiers.begin();
    for (std::size_t i = 0; i + 1 < fields.size(); ++i) {
        next = std::find(next, kModifiers.end(), fields[i]);
        if (next == kModifiers.end())
            return L"does not begin with Control, Alt, Shift and JawsKey in this order, each with a plus sign";
        ++next;
    }
    if (!kNames.contains(fields.back())) return L"ends in " + Quoted(fields.back()) + L", which is no key's name";
    return {};
}

// ---- lessons --------------------------------------------------------------------------------------------------------

bool IsChords(std::wstring_view kind) { return win32::LeadingNumber(kind) == kCommandKeysKind; }

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

// ---- keys that are introduced ---------------------------------------------------------------------------------------

constexpr wchar_t kSpaceKey[] = L"Space";
constexpr wchar_t kShiftKey[] = L"Shift";
constexpr wchar_t kNoEnd[] = L"Nothing";

/// The keys that a lesson may introduce beside characters and the keys with a chord name.
constexpr std::array<std::wstring_view, 7> kOtherKeys{L"Tab", L"Escape",  L"Shift",  L"Control",
                                                      L"Alt", L"Windows", L"JawsKey"};

bool IsKeyName(const std::wstring& name) {
    static const std::set<std::wstring> kNames = ChordKeyNames();
    return name.size() == 1 || kNames.contains(name) ||
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

// ---- quizzes --------------------------------------------------------------------------------------------------------

class QuizCheck {
public:
    QuizCheck(const IniFile& catalogue, std::span<const IniFile> quizFiles, std::wstring_view folder)
        : catalogue_(catalogue), folder_(folder) {
        for (const IniFile& file : quizFiles) files_.push_back({&file, {}});
    }

    Findings Check() {
        constexpr wchar_t kSection[] = L"Academics";
        SectionReader head(catalogue_, kSection, findings_);
        known_.insert(Heard(kSection));
        const std::int16_t count = head.Count(L"NbrOfSections", 1, kMaxTasks);
        head.TellUnknownKeys();
        for (std::int16_t subject = 1; subject <= count; ++subject) CheckSubject(subject);
        // What a count that was not understood hides is no finding of its own.
        if (!head.CountsKnown() || !topicsKnown_) return std::move(findings_);
        TellUnknownSections(catalogue_, known_, findings_);
        for (const QuizFile& file : files_) {
            if (file.known.empty())
                findings_.push_back({file.file->name, kWholeFile, L"no topic names this file"});
            else
                TellUnknownSections(*file.file, file.known, findings_);
        }
        return std::move(findings_);
    }

private:
    struct QuizFile {
        const IniFile* file;
        std::set<std::wstring> known;
    };

    void CheckSubject(std::int16_t number) {
        const std::wstring name = lesson_file::TaskKey(L"SECTION_", number);
        known_.insert(Heard(name));
        SectionReader section(catalogue_, name, findings_);
        section.TellTwice(subjects_, section.Required(L"SECTION_NAME"));
        const std::int16_t count = section.Count(L"NbrOfTopics", 1, kMaxTasks);
        Unique topics(L"topic");
        for (std::int16_t topic = 1; topic <= count; ++topic) {
            const std::wstring title = section.Required(lesson_file::TaskKey(L"TOPIC_NAME_", topic));
            section.TellTwice(topics, title);
            const std::wstring fileName = section.Required(lesson_file::TaskKey(L"FILE_NAME_", topic));
            if (!title.empty() && !fileName.empty()) CheckTopic(section, title, fileName);
        }
        section.TellUnknownKeys();
        topicsKnown_ = topicsKnown_ && section.CountsKnown();
    }

    void CheckTopic(SectionReader& section, const std::wstring& title, const std::wstring& fileName) {
        const std::wstring path = folder_ + L"/" + win32::ReplaceAll(fileName, L"\\", L"/");
        const auto found = std::find_if(files_.begin(), files_.end(),
                                        [&](const QuizFile& file) { return SameName(file.file->name, path); });
        if (found == files_.end()) {
            section.Tell(L"there is no file " + path);
            return;
        }
        const auto know = [&](const std::wstring& name) {
            if (found->known.insert(Heard(name)).second) return true;
            findings_.push_back({path, name, L"two topics or quizzes share this section"});
            return false;
        };
        if (!know(title)) return;
        SectionReader topic(*found->file, title, findings_);
        const std::int16_t count = topic.Count(L"NbrOfQuizzes", 1, kMaxTasks);
        topic.TellUnknownKeys();
        topicsKnown_ = topicsKnown_ && topic.CountsKnown();
        Unique quizzes(L"quiz");
        for (std::int16_t quiz = 1; quiz <= count; ++quiz)
            if (const std::wstring name = lesson_file::TaskKey(title, quiz); know(name)) {
                SectionReader questions(*found->file, name, findings_);
                CheckQuiz(questions, quizzes);
            }
    }

    static void CheckQuiz(SectionReader& quiz, Unique& titles) {
        if (!quiz.Exists()) return;
        quiz.TellTwice(titles, quiz.Required(lesson_file::kTitleKey));
        const std::int16_t count = quiz.Count(L"NbrOfQuestions", 1, kMaxQuestions);
        Unique questions(L"question");
        for (std::int16_t number = 1; number <= count; ++number) {
            quiz.TellTwice(questions, quiz.Required(lesson_file::TaskKey(L"QUESTION_", number)));
            quiz.Required(lesson_file::TaskKey(L"ANSWER_", number));
            quiz.Required(lesson_file::TaskKey(L"HINT_", number));
        }
        quiz.TellUnknownKeys();
    }

    const IniFile& catalogue_;
    std::wstring folder_;
    std::vector<QuizFile> files_;
    std::set<std::wstring> known_;
    bool topicsKnown_ = true;
    Unique subjects_{L"subject"};
    Findings findings_;
};

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
        const std::int16_t tasks = section.Count(lesson_file::kTaskCountKey, 1, kMaxTasks);
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

Findings CheckQuizzes(const IniFile& catalogue, std::span<const IniFile> quizFiles, std::wstring_view folder) {
    return QuizCheck(catalogue, quizFiles, folder).Check();
}

Findings CheckPreferences(const IniFile& file) {
    constexpr wchar_t kSection[] = L"UserPreferences";
    Findings findings;
    SectionReader section(file, kSection, findings);
    Unique preferences(L"preference");
    if (const IniSection* lines = file.Find(kSection); lines != nullptr) {
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
    TellUnknownSections(file, {Heard(kSection)}, findings);
    return findings;
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
