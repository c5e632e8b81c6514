// Files as both kinds of tests read, write, list and block them.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "win32/unique_handle.h"
#include "win32/windows_api.h"

namespace test_files {

/// The bytes of a file; of a file that is not there, nothing.
std::string ReadBytes(const std::filesystem::path& file);
/// Writes a file anew, together with the folders that it needs.
void WriteBytes(const std::filesystem::path& file, std::string_view bytes);
/// Every file below a folder with its bytes, and every folder (its path ends in a backslash).
std::map<std::wstring, std::string> Snapshot(const std::filesystem::path& folder);

/// Holds a file open so that others may not write it, and read it only when told so, as a second program would.
class HeldFile {
public:
    explicit HeldFile(const std::filesystem::path& file, bool othersMayRead = true);
    [[nodiscard]] bool Held() const { return static_cast<bool>(handle_); }

private:
    win32::UniqueHandle<HANDLE, &CloseHandle> handle_;
};

}  // namespace test_files
