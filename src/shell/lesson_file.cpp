// What lesson and dictation files share.
#include "shell/lesson_file.h"

#include <algorithm>

#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "win32/error.h"
#include "win32/text.h"

namespace lesson_file {

namespace profile = win32::profile;

namespace {

// A longer section is written value by value: the system's documented limit for one write is not far above.
constexpr std::size_t kLargestSectionWrite = 60000;

}  // namespace

std::wstring SectionName(std::int16_t lesson) { return L"L" + modUtils::ZeroPad(lesson, 2); }

std::wstring TaskKey(std::wstring_view name, std::int16_t task) {
    return std::wstring(name) + modUtils::ZeroPad(task, 2);
}

std::wstring TaskNodeKey(std::int16_t lesson, std::int16_t task) {
    return SectionName(lesson) + modGlobals::gSep + modUtils::ZeroPad(task, 2);
}

Selection ParseNodeKey(std::wstring_view key) {
    if (key.empty()) return {};
    const auto fields = win32::Split(key.substr(1), modGlobals::gSep.front());
    const auto number = [&](std::size_t i) {
        return i < fields.size() ? win32::ToInt16(win32::LeadingNumber(fields[i])) : std::int16_t{0};
    };
    return {number(0), number(1), number(2)};
}

std::wstring ReadText(const profile::Section& section, std::wstring_view key) {
    std::wstring text = section.ReadString(key, L"");
    // Most of the many thousand texts of a list have no blank to trim and need no copy.
    if (text.empty() || (text.front() != L' ' && text.back() != L' ')) return text;
    return win32::TrimBlanks(text);
}

std::int16_t LessonCount(const File& file) {
    return std::max<std::int16_t>(profile::ReadInt16(file.path, file.listSection, kLessonCountKey), 0);
}

std::int16_t NextLesson(const File& file, std::wstring_view source) {
    modUtils::RequireFile(file.path, source);
    return win32::ToInt16(LessonCount(file) + 1);
}

void WriteLesson(const File& file, std::int16_t lesson, std::span<const profile::Line> lines,
                 std::wstring_view source) {
    modUtils::RequireFile(file.path, source);
    const std::int16_t lessonCount = LessonCount(file);
    modUtils::KeepBackup(file.path);
    const std::wstring section = SectionName(lesson);
    if (profile::SectionBytes(lines) <= kLargestSectionWrite) {
        profile::WriteSection(file.path, section, lines, source);
    } else {
        profile::WriteSection(file.path, section, lines.first(1), source);
        for (const profile::Line& line : lines.subspan(1))
            profile::WriteString(file.path, section, line.key, line.value, source);
    }
    if (lesson > lessonCount)
        profile::WriteString(file.path, file.listSection, kLessonCountKey, std::to_wstring(lesson), source);
}

std::int16_t RemoveLesson(const File& file, std::int16_t lesson, std::vector<std::int16_t>* cutLessons,
                          std::wstring_view source) {
    modUtils::RequireFile(file.path, source);
    const std::int16_t count = LessonCount(file);
    if (count < 1 || lesson < 1 || lesson > count) return 0;
    modUtils::KeepBackup(file.path);
    for (std::int16_t number = lesson; number < count; ++number) {
        const bool cut = profile::CopySection(file.path, SectionName(static_cast<std::int16_t>(number + 1)),
                                              SectionName(number), kMovedSectionBytes, source);
        if (cut && cutLessons != nullptr) cutLessons->push_back(number);
    }
    profile::RemoveSection(file.path, SectionName(count), source);
    profile::WriteString(file.path, file.listSection, kLessonCountKey, std::to_wstring(count - 1), source);
    return lesson;
}

}  // namespace lesson_file
