// What the installers ask a machine: its Windows, running copies, hashes of files.
#pragma once

#include <filesystem>
#include <string>

namespace installer {

/// What to tell whoever meets a running copy.
extern const wchar_t* const kRefusal;

/// What to tell whoever has a Windows that is too old.
extern const wchar_t* const kOldWindows;

/// Whether this Windows is older than Windows 10, version 1607.
bool IsOldWindows();

/// Whether Keystride runs: in this session or for another user who is signed in.
bool IsRunning();

/// The SHA-256 of a file in small hexadecimal digits; empty when it cannot be read.
std::string HashOf(const std::filesystem::path& file);

}  // namespace installer
