// The folder of the shipped files as a whole: making what is generated there, checking everything.
#pragma once

#include <filesystem>

#include "tools/finding.h"

namespace data_files {

/// Writes each generated file whose source has nothing that would be lost on the way; tells what there is. `folder` is
/// an absolute path. Raises std::runtime_error for a file that cannot be read or written.
Findings MakeData(const std::filesystem::path& folder);

/// Checks all shipped files, as MakeData.
Findings CheckData(const std::filesystem::path& folder);

}  // namespace data_files
