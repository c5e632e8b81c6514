// The entries of the library that the setup program and the MSI carry. Texts go into buffers of 1024 characters.
#pragma once

#include "win32/windows_api.h"

#include <msiquery.h>

#define KEYSTRIDE_ENTRY extern "C" __declspec(dllexport)

// For the setup program, which calls by name.

/// 1 while a copy of Keystride runs, else 0.
KEYSTRIDE_ENTRY int KeystrideIsRunning();

/// What to tell whoever meets a running copy.
KEYSTRIDE_ENTRY void RefusalText(wchar_t* text);

/// What to tell whoever has a Windows that is too old; empty when it is not.
KEYSTRIDE_ENTRY void OldWindowsText(wchar_t* text);

/// Makes a folder and all in it readable by everybody and writable by administrators only. Returns the system's error
/// number.
KEYSTRIDE_ENTRY int ProtectFolder(const wchar_t* folder);

/// Puts a version in place over the one in `previous` (empty for none). Returns the system's error number; the text is
/// the trouble, or the edited files that are kept under another name (empty for none).
KEYSTRIDE_ENTRY int PutFiles(const wchar_t* staged, const wchar_t* previous, const wchar_t* program,
                             const wchar_t* data, wchar_t* text);

/// Removes the version that lies in `program`. Returns the system's error number; the text is the trouble, or what
/// stays.
KEYSTRIDE_ENTRY int RemoveFiles(const wchar_t* program, const wchar_t* data, wchar_t* text);

// For the MSI: its own actions.

/// Ends the installation with the sentence in REFUSAL, if there is one, on a Windows that is too old, and while
/// Keystride runs.
KEYSTRIDE_ENTRY UINT __stdcall MsiRefuse(MSIHANDLE session);

/// Protects the folder whose path came with the action.
KEYSTRIDE_ENTRY UINT __stdcall MsiProtectFolder(MSIHANDLE session);

/// Tells what stays after a removal: in the log always, on the screen where the installer may show anything.
KEYSTRIDE_ENTRY UINT __stdcall MsiTellWhatStays(MSIHANDLE session);
