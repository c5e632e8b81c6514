// What the installers ask and change on a machine: running copies, the rights of the data folder, hashes of files.
#pragma once

#include <filesystem>
#include <string>

namespace installer {

/// What to tell whoever meets a running copy.
extern const wchar_t* const kRefusal;

/// Whether Keystride runs: in this session or for another user who is signed in.
bool IsRunning();

/// Makes a folder readable by everybody and writable by administrators only. Returns the system's error number.
unsigned long Protect(const std::filesystem::path& folder);

/// The SHA-256 of a file in small hexadecimal digits; empty when it cannot be read.
std::string HashOf(const std::filesystem::path& file);

}  // namespace installer
