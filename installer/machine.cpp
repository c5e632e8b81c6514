// Running copies, the rights of the data folder, hashes of files.
#include "machine.h"

#include "shell/running.h"
#include "win32/unique_handle.h"
#include "win32/windows_api.h"

#include <aclapi.h>
#include <bcrypt.h>
#include <sddl.h>
#include <tlhelp32.h>

#include <array>
#include <vector>

namespace installer {

using win32::UniqueHandle;

namespace {

constexpr wchar_t kProgramFile[] = L"keystride.exe";

/// System and administrators (BA) may do everything, everybody (WD) may read; nothing is inherited from above and all
/// of it is passed on. By SID: the groups' names differ from language to language.
constexpr wchar_t kDataFolderRights[] = L"O:BAD:PAI(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;OICI;0x1200a9;;;WD)";

/// A SHA-256 in the making.
class Hash {
public:
    Hash() {
        if (BCryptOpenAlgorithmProvider(&algorithm_, BCRYPT_SHA256_ALGORITHM, nullptr, 0) >= 0)
            BCryptCreateHash(algorithm_, &hash_, nullptr, 0, nullptr, 0, 0);
    }
    Hash(const Hash&) = delete;
    Hash& operator=(const Hash&) = delete;
    ~Hash() {
        if (hash_ != nullptr) BCryptDestroyHash(hash_);
        if (algorithm_ != nullptr) BCryptCloseAlgorithmProvider(algorithm_, 0);
    }

    bool Add(UCHAR* bytes, ULONG count) { return hash_ != nullptr && BCryptHashData(hash_, bytes, count, 0) >= 0; }

    std::string Digits() {
        std::array<UCHAR, 32> sum{};
        if (hash_ == nullptr || BCryptFinishHash(hash_, sum.data(), static_cast<ULONG>(sum.size()), 0) < 0) return {};
        std::string digits;
        for (const UCHAR byte : sum) {
            digits += "0123456789abcdef"[byte >> 4U];
            digits += "0123456789abcdef"[byte & 15U];
        }
        return digits;
    }

private:
    BCRYPT_ALG_HANDLE algorithm_ = nullptr;
    BCRYPT_HASH_HANDLE hash_ = nullptr;
};

}  // namespace

const wchar_t* const kRefusal =
    L"Keystride is running, on this screen or for another user who is signed in. Close it, then try again. Nothing has "
    L"been changed.";

bool IsRunning() {
    // The mutex shows any copy of this session; the list of processes those of the other sessions.
    const UniqueHandle<HANDLE, &CloseHandle> mutex(OpenMutexW(SYNCHRONIZE, FALSE, ModMain::kRunningMutex));
    if (mutex) return true;
    const HANDLE list = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (list == INVALID_HANDLE_VALUE) return false;
    const UniqueHandle<HANDLE, &CloseHandle> owned(list);
    PROCESSENTRY32W process{};
    process.dwSize = sizeof process;
    for (BOOL more = Process32FirstW(list, &process); more != FALSE; more = Process32NextW(list, &process)) {
        if (CompareStringOrdinal(process.szExeFile, -1, kProgramFile, -1, TRUE) == CSTR_EQUAL) return true;
    }
    return false;
}

unsigned long Protect(const std::filesystem::path& folder) {
    PSECURITY_DESCRIPTOR rights = nullptr;
    if (ConvertStringSecurityDescriptorToSecurityDescriptorW(kDataFolderRights, SDDL_REVISION_1, &rights, nullptr) ==
        FALSE)
        return GetLastError();
    const UniqueHandle<HLOCAL, &LocalFree> owned(rights);
    PSID owner = nullptr;
    PACL list = nullptr;
    BOOL present = FALSE;
    BOOL byDefault = FALSE;
    if (GetSecurityDescriptorOwner(rights, &owner, &byDefault) == FALSE ||
        GetSecurityDescriptorDacl(rights, &present, &list, &byDefault) == FALSE)
        return GetLastError();
    // A folder that a user made beforehand must not stay that user's: an owner can always give himself every right.
    std::wstring path = folder.wstring();
    return SetNamedSecurityInfoW(
        path.data(), SE_FILE_OBJECT,
        OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION, owner, nullptr,
        list, nullptr);
}

std::string HashOf(const std::filesystem::path& file) {
    const HANDLE opened =
        CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return {};
    const UniqueHandle<HANDLE, &CloseHandle> owned(opened);
    Hash hash;
    std::vector<UCHAR> buffer(std::size_t{1} << 16U);
    for (;;) {
        DWORD read = 0;
        if (ReadFile(opened, buffer.data(), static_cast<DWORD>(buffer.size()), &read, nullptr) == FALSE) return {};
        if (read == 0) return hash.Digits();
        if (!hash.Add(buffer.data(), read)) return {};
    }
}

}  // namespace installer
