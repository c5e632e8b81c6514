// Makes the generated data files.
#include "tools/data_make.h"

#include <cstdint>
#include <optional>

#include "dictation/dictation_text.h"
#include "lessons/command_keys.h"
#include "lessons/lesson_text.h"
#include "shell/lesson_file.h"
#include "win32/text.h"

namespace data_files {

using namespace modTyping;

namespace {

constexpr wchar_t kLineBreak[] = L"\r\n";

/// Writes sections and lines, one behind the other.
class IniWriter {
public:
    void Section(std::wstring_view name) {
        if (!text_.empty()) text_ += kLineBreak;
        text_.append(L"[").append(name).append(L"]").append(kLineBreak);
    }
    void Line(std::wstring_view key, std::wstring_view value) {
        text_.append(key).append(L"=").append(value).append(kLineBreak);
    }
    [[nodiscard]] std::string Bytes() const { return win32::ToAnsi(text_); }

private:
    std::wstring text_;
};

std::wstring TextOr(const std::optional<SourceText>& value, std::wstring_view otherwise) {
    return value ? value->text : std::wstring(otherwise);
}

void WriteTask(IniWriter& ini, std::int16_t number, const SourceTask& task) {
    const auto stored = [&](const SourceText& text) { return StoredText(task.kind, text.text); };
    const auto spelled = [&](const SourceText& text) { return SpellOutTask(task.kind, stored(text)); };
    const auto line = [&](const wchar_t* key, std::wstring_view value) {
        ini.Line(lesson_file::TaskKey(key, number), value);
    };

    ini.Line(KindTaskKey(number), task.kind);
    ini.Line(PrintTaskKey(number, Variant::Usa), stored(task.text));
    if (task.eng) ini.Line(PrintTaskKey(number, Variant::Eng), stored(*task.eng));
    if (task.nonEng) line(kNonEngTextKey, stored(*task.nonEng));
    if (task.mag) line(kMagTextKey, stored(*task.mag));

    // Where British English is set, nothing falls back to the base spelling and explanation.
    ini.Line(SpellTaskKey(number, Variant::Usa), spelled(task.text));
    ini.Line(SpellTaskKey(number, Variant::Eng), spelled(task.eng.value_or(task.text)));
    if (task.nonEng) line(kNonEngSpellingKey, spelled(*task.nonEng));
    if (task.mag) line(kMagSpellingKey, spelled(*task.mag));

    const std::wstring explanation = TextOr(task.explanation, L"");
    ini.Line(ExplanationKey(number, Variant::Usa), explanation);
    ini.Line(ExplanationKey(number, Variant::Eng), TextOr(task.engExplanation, explanation));
    if (task.nonEngExplanation) line(kNonEngExplanationKey, task.nonEngExplanation->text);
}

}  // namespace

std::wstring StoredText(std::wstring_view kind, std::wstring_view sourceText) {
    if (win32::LeadingNumber(kind) != kCommandKeysKind) return std::wstring(sourceText);
    std::wstring chords;
    for (const std::wstring& chord : Words(sourceText)) {
        if (!chords.empty()) chords += command_keys::kChordSeparator;
        chords += chord;
    }
    return chords;
}

std::wstring ReadBackLabel(std::wstring_view text) {
    std::wstring label = modDictation::LabelText(text);
    if (label.ends_with(L'\r')) label.pop_back();
    return win32::TrimBlanks(label);
}

std::string MakeLessonFile(std::span<const SourceLesson> lessons) {
    IniWriter ini;
    ini.Section(kListSection);
    ini.Line(lesson_file::kLessonCountKey, std::to_wstring(lessons.size()));
    std::int16_t lessonNumber = 0;
    for (const SourceLesson& lesson : lessons) {
        ini.Section(lesson_file::SectionName(++lessonNumber));
        ini.Line(lesson_file::kTitleKey, lesson.title.text);
        ini.Line(kIntroKey, TextOr(lesson.intro, L""));
        ini.Line(kRepetitionsKey, TextOr(lesson.repeats, kDefaultRepeats));
        ini.Line(kTerminatorKey, TextOr(lesson.ends, kDefaultEnds));
        ini.Line(lesson_file::kTaskCountKey, std::to_wstring(lesson.tasks.size()));
        std::int16_t taskNumber = 0;
        for (const SourceTask& task : lesson.tasks) WriteTask(ini, ++taskNumber, task);
    }
    return ini.Bytes();
}

std::string MakeDictationFile(std::span<const SourceDictationLesson> lessons) {
    IniWriter ini;
    ini.Section(modDictation::kListSection);
    ini.Line(lesson_file::kLessonCountKey, std::to_wstring(lessons.size()));
    std::int16_t lessonNumber = 0;
    for (const SourceDictationLesson& lesson : lessons) {
        ini.Section(lesson_file::SectionName(++lessonNumber));
        ini.Line(lesson_file::kTitleKey, lesson.title.text);
        ini.Line(lesson_file::kTaskCountKey, std::to_wstring(lesson.dictations.size()));
        std::int16_t number = 0;
        for (const SourceText& dictation : lesson.dictations) {
            ini.Line(modDictation::PrintTaskKey(++number), ReadBackLabel(dictation.text));
            ini.Line(modDictation::SpellTaskKey(number), modDictation::EncodeText(dictation.text));
        }
    }
    return ini.Bytes();
}

}  // namespace data_files
