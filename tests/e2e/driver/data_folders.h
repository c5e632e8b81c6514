// The folders in which the program keeps its data, as a test or the demo finds, seeds, reads and blocks them.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "driver/program.h"

namespace e2e {

/// <CommonAppData>\Brightfield\Keystride
std::filesystem::path CommonFolder();
/// <AppData>\Brightfield\Keystride
std::filesystem::path UserFolder();

/// Removes both Brightfield folders with everything in them.
void WipeDataFolders();
void RemoveTree(const std::filesystem::path& path);

/// The bytes of a file; of a file that is not there, nothing.
std::string ReadBytes(const std::filesystem::path& file);
/// Writes a file anew, together with the folders that it needs.
void WriteBytes(const std::filesystem::path& file, std::string_view bytes);

/// Every file below a folder with its bytes, and every folder (its path ends in a backslash).
std::map<std::wstring, std::string> Snapshot(const std::filesystem::path& folder);

/// Holds a file open so that others may read but not write it, as a second program would.
class HeldFile {
public:
    explicit HeldFile(const std::filesystem::path& file, bool othersMayRead = true);
    bool Held() const { return handle_ != nullptr; }

private:
    struct Closer {
        void operator()(HANDLE handle) const { CloseHandle(handle); }
    };
    std::unique_ptr<void, Closer> handle_;
};

/// Builds a lesson file line by line in the shape that the program itself writes.
struct LessonText {
    std::string title;
    std::vector<std::string> tasks;
};
std::string LessonFile(const std::vector<LessonText>& lessons);
/// One lesson's section under the given number, header included.
std::string LessonSection(int number, const LessonText& lesson);

}  // namespace e2e
