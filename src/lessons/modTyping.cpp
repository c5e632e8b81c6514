// The lesson files.
#include "lessons/modTyping.h"

#include <algorithm>
#include <utility>

#include "shell/channel.h"
#include "shell/lesson_file.h"
#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "win32/error.h"
#include "win32/profile.h"
#include "win32/text.h"

namespace modTyping {

using namespace modGlobals;
namespace profile = win32::profile;

namespace {

constexpr wchar_t kDefaultTerminator[] = L"Space";

/// The keys of a text's variants without their number, and the number that ends each of them.
struct VariantKeys {
    const wchar_t* magnifier;
    const wchar_t* eng;
    const wchar_t* nonEng;
    const wchar_t* base;
    std::wstring number;
};

constexpr wchar_t kTitleMagKey[] = L"TitleMAG";
constexpr wchar_t kTitleEngKey[] = L"TitleEng";
constexpr wchar_t kTitleNonEngKey[] = L"TitleNonEng";

VariantKeys TitleKeys() { return {kTitleMagKey, kTitleEngKey, kTitleNonEngKey, lesson_file::kTitleKey, {}}; }

/// The title's variants stand before the introduction too: such a lesson shows its title twice.
VariantKeys IntroKeys() { return {kTitleMagKey, kTitleEngKey, kTitleNonEngKey, kIntroKey, {}}; }

VariantKeys TaskTextKeys(std::int16_t task) {
    return {kMagTextKey, L"PRINT_ENG_TASK_", kNonEngTextKey, L"PRINT_USA_TASK_", modUtils::ZeroPad(task, 2)};
}

/// The first key of the chain, by the switches, whose text is not empty; else the base one.
std::wstring ChosenKey(const profile::Section& section, const VariantKeys& keys) {
    const auto hasText = [&](const std::wstring& key) { return !lesson_file::ReadText(section, key).empty(); };
    if (IsMAGicUser())
        if (std::wstring key = keys.magnifier + keys.number; hasText(key)) return key;
    if (IsLanguageOne())
        if (std::wstring key = keys.eng + keys.number; hasText(key)) return key;
    if (IsLanguageTwo())
        if (std::wstring key = keys.nonEng + keys.number; hasText(key)) return key;
    return keys.base + keys.number;
}

std::wstring ReadVariant(const profile::Section& section, const VariantKeys& keys) {
    return lesson_file::ReadText(section, ChosenKey(section, keys));
}

lesson_file::File ListIn(const std::wstring& file) { return {file, kListSection}; }

CatalogueLesson ReadLesson(const std::wstring& file, std::int16_t number) {
    CatalogueLesson lesson;
    lesson.key = lesson_file::SectionName(number);
    const profile::Section section(file, lesson.key);
    const std::int16_t taskCount = section.ReadInt16(lesson_file::kTaskCountKey);
    lesson.text = std::to_wstring(number) + L". " + ReadVariant(section, TitleKeys());
    lesson.tasks.reserve(static_cast<std::size_t>(std::clamp<std::int16_t>(taskCount, 0, kMaxListedTasks)));
    for (std::int16_t task = 1; task <= taskCount; ++task) {
        if (task > kMaxListedTasks) throw win32::SubscriptError(L"LoadLessons");
        lesson.tasks.push_back({lesson_file::TaskNodeKey(number, task), ReadVariant(section, TaskTextKeys(task))});
    }
    return lesson;
}

/// Reads one stored task into the table's next row and adds its text to the list, unless it has nothing at all.
void ReadTaskForEdit(const profile::Section& section, std::int16_t task, TaskTable& tasks, win32::ListBox& list) {
    const Variant variant = WritingVariant();
    const std::wstring textKey = ChosenKey(section, TaskTextKeys(task));
    const std::wstring explanationKey = ExplanationKey(task, variant);
    const std::wstring text = lesson_file::ReadText(section, textKey);
    if (tasks.Load({lesson_file::ReadText(section, SpellTaskKey(task, variant)),
                    lesson_file::ReadText(section, explanationKey), lesson_file::ReadText(section, KindTaskKey(task)),
                    text, section.IsCut(textKey), section.IsCut(explanationKey)}))
        list.Add(text);
}

/// The spelled-out text of a row. A stored one without a text to make it from is kept.
std::wstring SpellingOf(const TaskRow& row, std::wstring_view kind) {
    const bool storedOnly = row.text.empty() && row.spelling != kNewTaskSpelling;
    return storedOnly ? row.spelling : SpellOutTask(kind, row.text);
}

/// The lines of a lesson's section in the order in which they stand in the file.
std::vector<profile::Line> LessonLines(std::wstring_view title, std::wstring_view intro, std::wstring_view terminator,
                                       std::int16_t repetitions, const TaskTable& tasks) {
    const Variant variant = WritingVariant();
    const auto count = static_cast<std::int16_t>(tasks.UsedRows());
    std::vector<profile::Line> lines{{lesson_file::kTitleKey, std::wstring(title)},
                                     {kIntroKey, std::wstring(intro)},
                                     {kRepetitionsKey, std::to_wstring(repetitions)},
                                     {kTerminatorKey, std::wstring(terminator)},
                                     {lesson_file::kTaskCountKey, std::to_wstring(count)}};
    for (std::int16_t task = 1; task <= count; ++task) {
        const TaskRow& row = tasks[static_cast<std::size_t>(task - 1)];
        const std::wstring kind = WrittenKind(row.kind);
        lines.push_back({KindTaskKey(task), kind});
        lines.push_back({PrintTaskKey(task, variant), row.text});
        lines.push_back({SpellTaskKey(task, variant), SpellingOf(row, kind)});
        lines.push_back({ExplanationKey(task, variant), row.explanation});
    }
    return lines;
}

}  // namespace

Variant WritingVariant() { return IsLanguageOne() ? Variant::Eng : Variant::Usa; }

std::wstring GetLessonTitle(const std::wstring& file, std::int16_t lesson) {
    modUtils::RequireFile(file, L"GetLessonTitle");
    return ReadVariant(profile::Section(file, lesson_file::SectionName(lesson)), TitleKeys());
}

std::wstring GetLessonIntro(const std::wstring& file, std::int16_t lesson) {
    modUtils::RequireFile(file, L"GetLessonIntro");
    return ReadVariant(profile::Section(file, lesson_file::SectionName(lesson)), IntroKeys());
}

std::wstring GetTaskDisplay(const std::wstring& file, std::wstring_view section, std::int16_t task) {
    modUtils::RequireFile(file, L"GetTaskDisplay");
    return ReadVariant(profile::Section(file, section), TaskTextKeys(task));
}

std::vector<CatalogueLesson> ReadCatalogue(const std::wstring& file) {
    const std::int16_t count = lesson_file::LessonCount(ListIn(file));
    std::vector<CatalogueLesson> lessons;
    for (std::int16_t number = 1; number <= count; ++number) {
        if (number > kMaxListedLessons) throw win32::SubscriptError(L"LoadLessons");
        lessons.push_back(ReadLesson(file, number));
    }
    return lessons;
}

std::int16_t LoadLessons(const std::wstring& file, win32::TreeView& tree) {
    modUtils::RequireFile(file, L"LoadLessons");
    const win32::HiddenTree hidden(tree);
    std::vector<CatalogueLesson> lessons = ReadCatalogue(file);
    for (CatalogueLesson& lesson : lessons) {
        const auto root = tree.Add(nullptr, std::move(lesson.key), lesson.text);
        for (CatalogueTask& task : lesson.tasks) tree.Add(root, std::move(task.key), task.text);
    }
    return static_cast<std::int16_t>(lessons.size());
}

std::int16_t GetNextTeachersLessonNbr() {
    return lesson_file::NextLesson(ListIn(gTeachersLessonsIni), L"GetNextTeachersLessonNbr");
}

std::int16_t LoadLessonForEdit(const std::wstring& file, std::int16_t lesson, TaskTable& tasks, win32::ListBox& list,
                               CutDetails* cut) {
    modUtils::RequireFile(file, L"LoadLessonForEdit");
    const profile::Section section(file, lesson_file::SectionName(lesson));
    const std::int16_t taskCount = section.ReadInt16(lesson_file::kTaskCountKey);
    const std::wstring titleKey = ChosenKey(section, TitleKeys());
    gLessonTitle = lesson_file::ReadText(section, titleKey);
    const std::wstring introKey = ChosenKey(section, IntroKeys());
    gLessonIntro = lesson_file::ReadText(section, introKey);
    if (cut != nullptr) *cut = {section.IsCut(titleKey), section.IsCut(introKey)};
    gTaskTerminator = win32::TrimBlanks(section.ReadString(kTerminatorKey, kDefaultTerminator));
    gTaskReps = win32::ToInt16(win32::LeadingNumber(section.ReadString(kRepetitionsKey, L"0")));
    for (std::int16_t task = 1; task <= taskCount; ++task) ReadTaskForEdit(section, task, tasks, list);
    return static_cast<std::int16_t>(tasks.Count());
}

void LoadTaskForEdit(const std::wstring& file, std::wstring_view section, std::int16_t task, TaskTable& tasks,
                     win32::ListBox& list) {
    modUtils::RequireFile(file, L"LoadTaskForEdit");
    ReadTaskForEdit(profile::Section(file, section), task, tasks, list);
}

std::size_t LessonBytes(std::wstring_view title, std::wstring_view intro, std::wstring_view terminator,
                        std::int16_t repetitions, const TaskTable& tasks) {
    return profile::SectionBytes(LessonLines(title, intro, terminator, repetitions, tasks));
}

std::int16_t SaveLesson(std::int16_t lesson, std::wstring_view title, std::wstring_view intro,
                        std::wstring_view terminator, std::int16_t repetitions, const TaskTable& tasks) {
    lesson_file::WriteLesson(ListIn(gTeachersLessonsIni), lesson,
                             LessonLines(title, intro, terminator, repetitions, tasks), L"SaveLesson");
    return static_cast<std::int16_t>(tasks.UsedRows());
}

std::int16_t SaveNewLesson(std::int16_t lesson, std::vector<std::int16_t>* cutLessons) {
    return lesson_file::RemoveLesson(ListIn(gTeachersLessonsIni), lesson, cutLessons, L"SaveNewLesson");
}

std::wstring ParseSelection(std::wstring_view nodeKey) {
    const lesson_file::Selection selection = lesson_file::ParseNodeKey(nodeKey);
    gCurLessonNbr = selection.lesson;
    gCurTaskNbr = selection.task;
    gCurSubTaskNbr = selection.subTask;
    return std::to_wstring(gCurLessonNbr) + gSep + std::to_wstring(gCurTaskNbr);
}

void SendRunRequest(std::int16_t lesson, std::int16_t task, std::int16_t subTask) {
    gRunLessonNbr = lesson;
    gRunTaskNbr = task;
    gRunSubTaskNbr = subTask;
    channel::SendToScreenReader(RunRequestText(gLessonTreePrefix, lesson, task));
}

}  // namespace modTyping
