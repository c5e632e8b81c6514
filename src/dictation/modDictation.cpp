// The dictation files.
#include "dictation/modDictation.h"

#include <algorithm>
#include <utility>

#include "shell/channel.h"
#include "shell/lesson_file.h"
#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "win32/error.h"

namespace modDictation {

using namespace modGlobals;
namespace profile = win32::profile;
using lesson_file::ReadText;

namespace {

lesson_file::File ListIn(const std::wstring& file) { return {file, kListSection}; }

void AddTask(const profile::Section& section, win32::TreeView::Node lessonNode, std::int16_t lesson, std::int16_t task,
             win32::TreeView& tree) {
    tree.Add(lessonNode, lesson_file::TaskNodeKey(lesson, task), NodeText(ReadText(section, PrintTaskKey(task))));
}

std::int16_t AddLesson(const std::wstring& file, std::int16_t lesson, win32::TreeView& tree) {
    std::wstring key = lesson_file::SectionName(lesson);
    const profile::Section section(file, key);
    const std::int16_t taskCount = section.ReadInt16(lesson_file::kTaskCountKey);
    const auto node = tree.Add(nullptr, std::move(key), ReadText(section, lesson_file::kTitleKey));
    for (int task = 1; task <= taskCount; ++task) AddTask(section, node, lesson, static_cast<std::int16_t>(task), tree);
    return taskCount;
}

/// The lines of a lesson's section in the order in which they stand in the file.
std::vector<profile::Line> LessonLines(std::wstring_view title, const DictationTable& tasks) {
    // Every row has a label, and there is no gap between them.
    const auto count = static_cast<std::int16_t>(std::min(tasks.Count(), kSavedRows));
    std::vector<profile::Line> lines{{lesson_file::kTitleKey, std::wstring(title)},
                                     {lesson_file::kTaskCountKey, std::to_wstring(count)}};
    for (std::int16_t task = 1; task <= count; ++task) {
        const DictationRow& row = tasks[static_cast<std::size_t>(task - 1)];
        lines.push_back({PrintTaskKey(task), row.label});
        lines.push_back({SpellTaskKey(task), row.text});
    }
    return lines;
}

}  // namespace

std::optional<DictationRow> WrittenRow(std::wstring label, std::wstring text) {
    const std::wstring decoded = DecodeText(text);
    if (IsBlankText(decoded)) return std::nullopt;
    if (label.empty()) label = FirstSpokenLine(decoded);
    return DictationRow{std::move(label), std::move(text)};
}

std::int16_t LoadDictations(const std::wstring& file, win32::TreeView& tree) {
    modUtils::RequireFile(file, L"LoadDictations");
    const win32::HiddenTree hidden(tree);
    const std::int16_t count = lesson_file::LessonCount(ListIn(file));
    for (int lesson = 1; lesson <= count; ++lesson) AddLesson(file, static_cast<std::int16_t>(lesson), tree);
    return count;
}

std::int16_t LoadDictation(const std::wstring& file, std::int16_t lesson, win32::TreeView& tree) {
    modUtils::RequireFile(file, L"LoadDictation");
    return AddLesson(file, lesson, tree);
}

void LoadTask(const std::wstring& file, std::wstring_view section, std::int16_t task, win32::TreeView& tree) {
    modUtils::RequireFile(file, L"LoadTask");
    AddTask(profile::Section(file, section), tree.FindKey(section), lesson_file::ParseNodeKey(section).lesson, task,
            tree);
}

std::int16_t LoadDictationForEdit(const std::wstring& file, std::int16_t lesson, DictationTable& tasks,
                                  bool* titleCut) {
    constexpr wchar_t kSource[] = L"LoadDictation";
    modUtils::RequireFile(file, kSource);
    const profile::Section section(file, lesson_file::SectionName(lesson));
    const std::int16_t taskCount = section.ReadInt16(lesson_file::kTaskCountKey);
    gDictationTitle = ReadText(section, lesson_file::kTitleKey);
    if (titleCut != nullptr) *titleCut = section.IsCut(lesson_file::kTitleKey);
    for (int number = 1; number <= taskCount; ++number) {
        const auto task = static_cast<std::int16_t>(number);
        const std::wstring textKey = SpellTaskKey(task);
        DictationRow row{ReadText(section, PrintTaskKey(task)), ReadText(section, textKey), section.IsCut(textKey)};
        if (row.label.empty()) row.label = UsableLabel(DecodeText(row.text));
        if (row.label.empty()) continue;
        if (!tasks.Add(std::move(row))) throw win32::SubscriptError(kSource);
    }
    return static_cast<std::int16_t>(tasks.Count());
}

std::size_t LessonBytes(std::wstring_view title, const DictationTable& tasks) {
    return profile::SectionBytes(LessonLines(title, tasks));
}

std::int16_t SaveLesson(std::int16_t lesson, std::wstring_view title, const DictationTable& tasks) {
    lesson_file::WriteLesson(ListIn(gTeachersDictationsIni), lesson, LessonLines(title, tasks), L"SaveLesson");
    return static_cast<std::int16_t>(std::min(tasks.Count(), kSavedRows));
}

std::int16_t RemoveLesson(std::int16_t lesson, std::vector<std::int16_t>* cutLessons) {
    return lesson_file::RemoveLesson(ListIn(gTeachersDictationsIni), lesson, cutLessons, L"SaveNewLesson");
}

std::int16_t GetNextTeachersDictationNbr() {
    return lesson_file::NextLesson(ListIn(gTeachersDictationsIni), L"GetNextTeachersDictationNbr");
}

std::wstring GetSelectedDictation(std::wstring_view nodeKey) {
    const lesson_file::Selection selection = lesson_file::ParseNodeKey(nodeKey);
    gCurLessonNbr = selection.lesson;
    gCurTaskNbr = selection.task;
    return std::wstring(nodeKey.substr(std::min<std::size_t>(nodeKey.size(), 1)));
}

void RunDictation(std::int16_t lesson, std::int16_t task) {
    gRunTaskNbr = task;
    gRunLessonNbr = lesson;
    channel::SendToScreenReader(mDictationKind + gSep + std::to_wstring(lesson) + gSep + std::to_wstring(task));
}

}  // namespace modDictation
