// File helpers that the whole program shares: tests, single INI values, the per-user and network switches, copies.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "win32/error.h"

namespace modUtils {

/// The number of the program's own errors.
inline constexpr std::int32_t kFileNotFoundNumber = static_cast<std::int32_t>(0x80040000);

/// True when the path names a folder; any error gives false.
bool FolderExists(const std::wstring& path);
/// True when the path names a file; a folder never is one, any error gives false.
bool FileExists(const std::wstring& path);
/// The file-not-found error, with the procedure's name as its source.
win32::AppError FileNotFound(const std::wstring& path, std::wstring_view source);
/// Raises the file-not-found error when the file does not exist, and the system's reason when it cannot be read: to the
/// INI calls such a file would be an empty one.
void RequireFile(const std::wstring& path, std::wstring_view source);

/// The decimal digits with "0" in front until the text has `width` characters; a longer number is returned whole.
std::wstring ZeroPad(std::int16_t number, std::size_t width);

/// The value of an INI key with blanks trimmed at both ends, at most 254 ANSI bytes.
std::wstring ReadTrimmed(const std::wstring& file, std::wstring_view section, std::wstring_view key,
                         std::wstring_view defaultText);

/// The single-row text of a section, or its default form. Raises file-not-found as "LoadLabel1Text".
std::wstring LoadLabel1Text(const std::wstring& file, std::wstring_view section, bool useDefault);
/// The multi-row text of section "Main", whatever section is asked for. Raises file-not-found as "LoadLabel1Text".
std::wstring LoadMultiRowText(const std::wstring& file, std::wstring_view section, bool useDefault);
/// The instructions of a section. Raises file-not-found as "LoadInstructionsCaption".
std::wstring LoadInstructionsCaption(const std::wstring& file, std::wstring_view section);

/// Records gUserDataPath in the file when another value stands there. Always false. Raises file-not-found as
/// "SaveUserPath".
bool SaveUserPath(const std::wstring& file);
/// Reads the language, adult and magnifier switches. Raises file-not-found as "ReadKeystrideIni".
void ReadKeystrideIni();

/// The folder of the shared network data, "" when there is none. Raises file-not-found as "isNetworkVersion".
std::wstring GetNetworkDataPath();
/// Whether a network folder is set; any error gives false.
bool isNetworkVersion();

/// Copies a file, or a folder with its contents, into an existing folder; false when nothing was copied.
/// A backslash at the source's end is dropped for the caller too.
bool CopyPath(std::wstring& source, const std::wstring& destinationFolder);

/// Keeps a file as it is now beside itself, with the ending .bak. A failing backup stops nothing.
void KeepBackup(const std::wstring& file);

/// The folder name of a learner, without blanks and full stops at its end; none when the name is no legal single folder
/// name.
std::optional<std::wstring> LearnerFolderName(std::wstring_view userName);

/// Whether a path relative to a folder names something in that folder or below it, by plain legal names.
bool StaysInside(std::wstring_view relativePath);

/// Makes the folder of the signed-on learner under Student Records when it is not there and the name allows one.
/// Raises std::system_error when it cannot be made.
void EnsureLearnerFolder();

// Network copies; each returns true when it copied, and false on any error.
bool GetStudentRecordsFromNetwork();
bool PutStudentRecordsToNetwork();
bool PutTeachersLessonsToNetwork();
bool PutTeachersDictationsToNetwork();
/// Copies one teacher file from the network folder into the user folder; the local one is kept as .bak when it differs.
bool GetTeacherFileFromNetwork(std::wstring_view name);

}  // namespace modUtils
