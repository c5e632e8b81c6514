// What the setup program and the MSI call in the library that they carry.
#include "setup_helper.h"

#include <algorithm>
#include <exception>
#include <string>

#include "listed_files.h"
#include "machine.h"
#include "rights.h"

namespace {

constexpr std::size_t kTextSize = 1024;

/// Puts a text into one of the setup program's variables, cut when it is too long.
void Give(const std::wstring& text, wchar_t* variable) {
    const std::size_t length = std::min(text.size(), kTextSize - 1);
    std::copy_n(text.begin(), length, variable);
    variable[length] = L'\0';
}

/// Runs the work and gives the text that it returns; nothing that goes wrong gets out of the library but as a text.
template <typename Work>
int Guarded(wchar_t* variable, Work work) {
    try {
        Give(work(), variable);
        return ERROR_SUCCESS;
    } catch (const installer::FileTrouble& trouble) {
        Give(trouble.Sentence() + L" (error " + std::to_wstring(trouble.Error()) + L").", variable);
        return static_cast<int>(trouble.Error());
    } catch (const std::exception& problem) {
        const std::string what = problem.what();
        Give(std::wstring(what.begin(), what.end()) + L".", variable);
        return ERROR_INSTALL_FAILURE;
    }
}

void Say(MSIHANDLE session, INSTALLMESSAGE kind, const std::wstring& text) {
    const MSIHANDLE record = MsiCreateRecord(1);
    // The text must not be read as a format: it may hold brackets.
    MsiRecordSetStringW(record, 0, L"[1]");
    MsiRecordSetStringW(record, 1, text.c_str());
    MsiProcessMessage(session, kind, record);
    MsiCloseHandle(record);
}

std::wstring Property(MSIHANDLE session, const wchar_t* name) {
    std::wstring value(1, L'\0');
    DWORD length = 0;
    if (MsiGetPropertyW(session, name, value.data(), &length) != ERROR_MORE_DATA) return {};
    ++length;
    value.resize(length);
    if (MsiGetPropertyW(session, name, value.data(), &length) != ERROR_SUCCESS) return {};
    value.resize(length);
    return value;
}

/// A folder of the MSI's, which ends in a backslash there.
std::wstring Folder(MSIHANDLE session, const wchar_t* name) {
    std::wstring folder = Property(session, name);
    while (!folder.empty() && folder.back() == L'\\') folder.pop_back();
    return folder;
}

}  // namespace

int KeystrideIsRunning() { return installer::IsRunning() ? 1 : 0; }

void RefusalText(wchar_t* text) { Give(installer::kRefusal, text); }

void OldWindowsText(wchar_t* text) { Give(installer::IsOldWindows() ? installer::kOldWindows : L"", text); }

int ProtectFolder(const wchar_t* folder) { return static_cast<int>(installer::Protect(folder)); }

int PutFiles(const wchar_t* staged, const wchar_t* previous, const wchar_t* program, const wchar_t* data,
             wchar_t* text) {
    return Guarded(text, [&] { return installer::Enumerate(installer::Put(staged, previous, {program, data})); });
}

int RemoveFiles(const wchar_t* program, const wchar_t* data, wchar_t* text) {
    return Guarded(text, [&] {
        installer::Remove({program, data});
        return installer::WhatStays(data);
    });
}

UINT __stdcall MsiRefuse(MSIHANDLE session) {
    std::wstring refusal = Property(session, L"REFUSAL");
    const bool installed = !Property(session, L"Installed").empty();
    if (refusal.empty() && !installed && installer::IsOldWindows()) refusal = installer::kOldWindows;
    if (refusal.empty() && installer::IsRunning()) refusal = installer::kRefusal;
    if (refusal.empty()) return ERROR_SUCCESS;
    Say(session, INSTALLMESSAGE_ERROR, refusal);
    return ERROR_INSTALL_FAILURE;
}

UINT __stdcall MsiProtectFolder(MSIHANDLE session) {
    const std::wstring folder = Folder(session, L"CustomActionData");
    const unsigned long error = installer::Protect(folder);
    if (error == ERROR_SUCCESS) return ERROR_SUCCESS;
    Say(session, INSTALLMESSAGE_ERROR,
        L"The rights of " + folder + L" could not be set (error " + std::to_wstring(error) + L").");
    return ERROR_INSTALL_FAILURE;
}

UINT __stdcall MsiTellWhatStays(MSIHANDLE session) {
    const std::wstring text = installer::WhatStays(Folder(session, L"DATAFOLDER"));
    Say(session, INSTALLMESSAGE_INFO, text);
    // Level 2 is a silent run.
    if (Property(session, L"UILevel") > L"2")
        Say(session, static_cast<INSTALLMESSAGE>(INSTALLMESSAGE_USER | MB_OK | MB_ICONINFORMATION), text);
    return ERROR_SUCCESS;
}
