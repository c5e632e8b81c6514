// Who may do what in the data folder of all users.
#pragma once

#include <filesystem>

namespace installer {

/// Makes a folder and all in it readable by everybody and writable by administrators only, and takes the vendor's
/// folder above it from a user who made it beforehand. Returns the system's error number; a folder that leads elsewhere
/// is refused.
unsigned long Protect(const std::filesystem::path& folder);

}  // namespace installer
