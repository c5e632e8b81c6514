// Owner and rights of the data folder and of what lies in it.
#include "rights.h"

#include "win32/unique_handle.h"
#include "win32/windows_api.h"

#include <aclapi.h>
#include <sddl.h>

#include <string>

namespace installer {

using win32::UniqueHandle;

namespace {

/// The system's number for a path that leads elsewhere.
constexpr unsigned long kReparsePointEncountered = 4395;

/// System and administrators (BA) may do everything, everybody (WD) may read; nothing is inherited from above and all
/// of it is passed on. By SID: the groups' names differ from language to language.
constexpr wchar_t kDataFolderRights[] = L"O:BAD:PAI(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;OICI;0x1200a9;;;WD)";

struct Rights {
    PSID owner = nullptr;
    PACL list = nullptr;
};

/// Gives this process a privilege that its user has.
void Enable(const wchar_t* privilege) {
    HANDLE token = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES, &token) == FALSE) return;
    const UniqueHandle<HANDLE, &CloseHandle> owned(token);
    TOKEN_PRIVILEGES wanted{};
    wanted.PrivilegeCount = 1;
    wanted.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
    if (LookupPrivilegeValueW(nullptr, privilege, &wanted.Privileges[0].Luid) != FALSE)
        AdjustTokenPrivileges(token, FALSE, &wanted, 0, nullptr, nullptr);
}

bool LeadsElsewhere(const WIN32_FIND_DATAW& entry) {
    // Bit 29 of the tag: a name for something that lies elsewhere, not just a special way of storing it.
    constexpr DWORD kNameSurrogate = 0x20000000;
    return (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && (entry.dwReserved0 & kNameSurrogate) != 0;
}

bool LeadsElsewhere(const std::filesystem::path& path) {
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW(path.c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return false;
    FindClose(search);
    return LeadsElsewhere(entry);
}

/// Whether neither the administrators nor the system own a folder.
bool BelongsToUser(const std::filesystem::path& folder) {
    PSID owner = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    std::wstring path = folder.wstring();
    if (GetNamedSecurityInfoW(path.data(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, &owner, nullptr, nullptr,
                              nullptr, &descriptor) != ERROR_SUCCESS)
        return true;
    const UniqueHandle<HLOCAL, &LocalFree> owned(descriptor);
    return IsWellKnownSid(owner, WinBuiltinAdministratorsSid) == FALSE &&
           IsWellKnownSid(owner, WinLocalSystemSid) == FALSE;
}

/// Sets owner and rights; `inheritance` says whether those of the folder above count as well.
unsigned long Set(const std::filesystem::path& file, const Rights& rights, SECURITY_INFORMATION inheritance) {
    std::wstring path = file.wstring();
    // What a user made beforehand must not stay that user's: an owner can always give himself every right. And only the
    // owner may change the rights of what shuts everybody out.
    const unsigned long error = SetNamedSecurityInfoW(path.data(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION,
                                                      rights.owner, nullptr, nullptr, nullptr);
    if (error != ERROR_SUCCESS) return error;
    return SetNamedSecurityInfoW(path.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inheritance, nullptr, nullptr,
                                 rights.list, nullptr);
}

/// Sets owner and rights of all that lies in a folder, which inherits what the folder passes on.
unsigned long SetInside(const std::filesystem::path& folder, const Rights& rights) {
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW((folder / L"*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return GetLastError();
    const UniqueHandle<HANDLE, &FindClose> owned(search);
    do {
        const std::wstring name = static_cast<const wchar_t*>(entry.cFileName);
        if (name == L"." || name == L"..") continue;
        if (LeadsElsewhere(entry)) return kReparsePointEncountered;
        unsigned long error = Set(folder / name, rights, UNPROTECTED_DACL_SECURITY_INFORMATION);
        if (error == ERROR_SUCCESS && (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            error = SetInside(folder / name, rights);
        if (error != ERROR_SUCCESS) return error;
    } while (FindNextFileW(search, &entry) != FALSE);
    return ERROR_SUCCESS;
}

}  // namespace

unsigned long Protect(const std::filesystem::path& folder) {
    PSECURITY_DESCRIPTOR parsed = nullptr;
    if (ConvertStringSecurityDescriptorToSecurityDescriptorW(kDataFolderRights, SDDL_REVISION_1, &parsed, nullptr) ==
        FALSE)
        return GetLastError();
    const UniqueHandle<HLOCAL, &LocalFree> owned(parsed);
    Rights rights;
    BOOL present = FALSE;
    BOOL byDefault = FALSE;
    if (GetSecurityDescriptorOwner(parsed, &rights.owner, &byDefault) == FALSE ||
        GetSecurityDescriptorDacl(parsed, &present, &rights.list, &byDefault) == FALSE)
        return GetLastError();
    // Without these not even an administrator may take what a user has closed.
    Enable(SE_TAKE_OWNERSHIP_NAME);
    Enable(SE_RESTORE_NAME);
    const std::filesystem::path vendor = folder.parent_path();
    if (LeadsElsewhere(vendor) || LeadsElsewhere(folder)) return kReparsePointEncountered;
    if (BelongsToUser(vendor)) {
        if (const unsigned long error = Set(vendor, rights, PROTECTED_DACL_SECURITY_INFORMATION);
            error != ERROR_SUCCESS)
            return error;
    }
    if (const unsigned long error = Set(folder, rights, PROTECTED_DACL_SECURITY_INFORMATION); error != ERROR_SUCCESS)
        return error;
    ACL none{};
    InitializeAcl(&none, sizeof none, ACL_REVISION);
    rights.list = &none;
    return SetInside(folder, rights);
}

}  // namespace installer
