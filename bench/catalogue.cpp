// The generated catalogue.
#include "catalogue.h"

#include <array>
#include <chrono>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

#include "lessons/lesson_text.h"
#include "shell/lesson_file.h"
#include "win32/text.h"
#include "win32/windows_api.h"

namespace bench {

namespace {

constexpr std::array<std::wstring_view, 24> kWords{L"the",    L"home",   L"row",    L"keys",      L"finger", L"little",
                                                   L"space",  L"letter", L"word",   L"caf\u00e9", L"shift",  L"return",
                                                   L"quick",  L"brown",  L"jumper", L"garden",    L"window", L"silver",
                                                   L"planet", L"yellow", L"seven",  L"kitchen",   L"music",  L"river"};
constexpr std::size_t kTaskWords = 8;
constexpr std::size_t kExplanationWords = 8;
constexpr std::size_t kTitleWords = 4;
constexpr std::size_t kIntroWords = 25;

/// A small generator of its own: the same texts with every compiler.
class Words {
public:
    explicit Words(std::uint32_t seed) : state_(seed * 2654435761U + 1) {}

    std::wstring Phrase(std::size_t count) {
        std::wstring phrase;
        for (std::size_t i = 0; i < count; ++i) {
            state_ = state_ * 1664525U + 1013904223U;
            if (i > 0) phrase += L' ';
            phrase += kWords[(state_ >> 16) % kWords.size()];
        }
        return phrase;
    }

private:
    std::uint32_t state_;
};

void AppendSection(std::string& bytes, std::wstring_view name, const std::vector<Entry>& entries) {
    bytes += '[' + win32::ToAnsi(name) + "]\r\n";
    for (const Entry& entry : entries) bytes += entry.key + '=' + entry.value + "\r\n";
}

}  // namespace

Lesson MakeLesson(std::int16_t number, std::uint32_t edition) {
    Words words(static_cast<std::uint32_t>(number) + edition * 1000);
    Lesson lesson{words.Phrase(kTitleWords), words.Phrase(kIntroWords), L"Space", 2, {}};
    for (std::int16_t task = 1; task <= kTasks; ++task) {
        modTyping::TaskRow row;
        row.kind = std::to_wstring(modTyping::kPhraseKind);
        row.text = words.Phrase(kTaskWords);
        row.spelling = modTyping::SpellOutTask(row.kind, row.text);
        row.explanation = words.Phrase(kExplanationWords);
        lesson.tasks.push_back(row);
    }
    return lesson;
}

std::vector<Entry> Entries(const Lesson& lesson) {
    using modTyping::Variant;
    const auto ansi = [](std::wstring_view text) { return win32::ToAnsi(text); };
    std::vector<Entry> entries{{"DefTitle", ansi(lesson.title)},
                               {"INTRO_LSN_JAWS", ansi(lesson.intro)},
                               {"TaskReps", std::to_string(lesson.repetitions)},
                               {"TaskDL", ansi(lesson.terminator)},
                               {"NbrOfTasks", std::to_string(lesson.tasks.size())}};
    std::int16_t task = 0;
    for (const modTyping::TaskRow& row : lesson.tasks) {
        ++task;
        entries.push_back({ansi(modTyping::KindTaskKey(task)), ansi(row.kind)});
        entries.push_back({ansi(modTyping::PrintTaskKey(task, Variant::Usa)), ansi(row.text)});
        entries.push_back({ansi(modTyping::SpellTaskKey(task, Variant::Usa)), ansi(row.spelling)});
        entries.push_back({ansi(modTyping::ExplanationKey(task, Variant::Usa)), ansi(row.explanation)});
    }
    return entries;
}

TempFolder::TempFolder()
    : path_(std::filesystem::temp_directory_path() / ("keystride-bench-" + std::to_string(GetCurrentProcessId()))) {
    std::filesystem::create_directories(path_);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

void WriteCatalogue(const std::filesystem::path& file) {
    std::string bytes;
    AppendSection(bytes, L"Lessons", {{"NbrOfLessons", std::to_string(kLessons)}});
    for (std::int16_t number = 1; number <= kLessons; ++number)
        AppendSection(bytes, lesson_file::SectionName(number), Entries(MakeLesson(number)));
    {
        std::ofstream stream(file, std::ios::binary);
        stream.exceptions(std::ios::badbit | std::ios::failbit);
        stream << bytes;
    }
    std::filesystem::last_write_time(file, std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
}

std::string ReadBytes(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace bench
