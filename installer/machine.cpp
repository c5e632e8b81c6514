// The Windows and the running copies of a machine, hashes of files.
#include "machine.h"

#include "shell/running.h"
#include "win32/unique_handle.h"
#include "win32/windows_api.h"

#include <bcrypt.h>
#include <tlhelp32.h>

#include <array>
#include <vector>

// The headers of user programs do not declare it.
extern "C" LONG NTAPI RtlGetVersion(PRTL_OSVERSIONINFOW version);

namespace installer {

using win32::UniqueHandle;

namespace {

constexpr wchar_t kProgramFile[] = L"keystride.exe";

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

const wchar_t* const kOldWindows =
    L"Keystride needs Windows 10, version 1607, or a newer Windows. Nothing has been changed.";

bool IsOldWindows() {
    constexpr DWORD kVersion1607 = 14393;
    RTL_OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    // Other calls tell a program that does not know this Windows of an older one.
    return RtlGetVersion(&version) < 0 || version.dwBuildNumber < kVersion1607;
}

const wchar_t* const kRefusal =
    L"Keystride is running, on this screen or for another user who is signed in. Close it, then try again. Nothing has "
    L"been changed.";

bool IsRunning() {
    // The mutex shows any copy of this session; the list of processes those of the other sessions.
    const UniqueHandle<HANDLE, &CloseHandle> mutex(OpenMutexW(SYNCHRONIZE, FALSE, ModMain::kRunningMutex));
    // A copy that another user started here with an administrator's rights lets nobody look.
    if (mutex || GetLastError() == ERROR_ACCESS_DENIED) return true;
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
