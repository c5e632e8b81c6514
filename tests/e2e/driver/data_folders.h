// The folders in which the program keeps its data, as a test or the demo finds, seeds, reads and blocks them.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "driver/program.h"
#include "support/test_files.h"

namespace e2e {

/// <CommonAppData>\Brightfield\Keystride
std::filesystem::path CommonFolder();
/// <AppData>\Brightfield\Keystride
std::filesystem::path UserFolder();

/// Removes both Brightfield folders with everything in them.
void WipeDataFolders();
void RemoveTree(const std::filesystem::path& path);

using test_files::HeldFile;
using test_files::ReadBytes;
using test_files::Snapshot;
using test_files::WriteBytes;

/// Builds a lesson file line by line in the shape that the program itself writes.
struct LessonText {
    std::string title;
    std::vector<std::string> tasks;
};
std::string LessonFile(const std::vector<LessonText>& lessons);
/// One lesson's section under the given number, header included.
std::string LessonSection(int number, const LessonText& lesson);

}  // namespace e2e
