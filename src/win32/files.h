// Files and folders: tests, copies and the special folders of the shell.
#pragma once

#include <string>
#include <string_view>

namespace win32::files {

/// Whether the path's attributes can be read and name a folder; any error gives false.
bool IsFolder(const std::wstring& path);
/// Whether the path's attributes can be read and name no folder; any error gives false.
bool IsFile(const std::wstring& path);

/// Raises the system's reason under `source` when a file cannot be opened for reading.
void RequireReadable(const std::wstring& path, std::wstring_view source);

/// Makes one folder level; one that exists already is no error. Raises std::system_error when it cannot be made.
void CreateFolder(const std::wstring& path);

/// Copies a file over another name; the copy is never read-only. Returns whether it was copied.
bool CopyOver(const std::wstring& source, const std::wstring& target);

/// Whether two files can both be read and hold the same bytes.
bool HaveSameBytes(const std::wstring& first, const std::wstring& second);

/// Copies a file, or a folder with its contents, into a folder by the shell's file operation. Returns the shell's word.
bool ShellCopy(const std::wstring& source, const std::wstring& destinationFolder);

/// The path of a special folder by its shell number, without a trailing backslash.
/// Raises std::system_error when the shell does not give it.
std::wstring SpecialFolder(int shellNumber);

}  // namespace win32::files
