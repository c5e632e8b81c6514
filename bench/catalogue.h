// A lesson file as large as one can be: 201 lessons with 100 tasks each, the same at every run.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "lessons/task_table.h"

namespace bench {

inline constexpr std::int16_t kLessons = 201;
inline constexpr std::int16_t kTasks = 100;

struct Lesson {
    std::wstring title;
    std::wstring intro;
    std::wstring terminator;
    std::int16_t repetitions = 0;
    std::vector<modTyping::TaskRow> tasks;
};

/// A key and its value, in the order in which a lesson's section holds them.
struct Entry {
    std::string key;
    std::string value;
};

/// The lesson of that number; another `edition` has other texts.
Lesson MakeLesson(std::int16_t number, std::uint32_t edition = 0);

std::vector<Entry> Entries(const Lesson& lesson);

/// A folder of this process in the temp folder, removed with all it holds at the end of the scope.
class TempFolder {
public:
    TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();

    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

/// Writes the whole catalogue, dated an hour ago: a system that keeps read profile files trusts only older ones.
void WriteCatalogue(const std::filesystem::path& file);

std::string ReadBytes(const std::filesystem::path& file);

}  // namespace bench
