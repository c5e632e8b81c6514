// Program entry and the set-up of the data folders.
#pragma once

#include <string>

#include "win32/error.h"

namespace ModMain {

/// Runs the program: refuses a second copy with a message box, else shows the main window until it is closed.
/// Returns the process's exit code.
int Main();

/// Finds the special folders, sets all file names, creates and fills the user folder and reads the per-user switches.
/// Each step stands alone: what it raises goes to `report`, and the next step follows.
void SetupDataFolders(const win32::ErrorSink& report);

/// Sets every file-name global from the three special folders, and empties gUserName.
void SetFileNames(const std::wstring& userAppData, const std::wstring& commonAppData, const std::wstring& documents);

/// Makes the user folder's three levels when the user folder does not exist.
void CreateUserFolders();
/// Copies each settings file that the user folder lacks from the common folder.
void CopyDefaultFiles();
/// Copies the network's teacher files over the local ones; what the user folder lacks then comes from the common
/// folder.
void CopyNetworkTeacherFiles();
/// Copies each teacher file that the user folder lacks from the common folder.
void CopyTeacherFiles();

}  // namespace ModMain
