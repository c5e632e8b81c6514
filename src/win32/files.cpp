// Files, folders and the shell's copy.
#include "win32/files.h"

#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

#include "win32/error.h"
#include "win32/text.h"
#include "win32/unique_handle.h"
#include "win32/windows_api.h"

#include <shldisp.h>

namespace win32::files {

namespace {

UniqueHandle<HANDLE, &CloseHandle> OpenToRead(const std::wstring& path) {
    return UniqueHandle<HANDLE, &CloseHandle>(CreateFileW(path.c_str(), GENERIC_READ,
                                                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                                          nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::string ReadBytes(const std::wstring& path, bool& read) {
    const auto file = OpenToRead(path);
    read = file.Get() != INVALID_HANDLE_VALUE;
    std::string bytes;
    if (!read) return bytes;
    std::vector<char> block(65536);
    DWORD count = 0;
    while ((read = ReadFile(file.Get(), block.data(), static_cast<DWORD>(block.size()), &count, nullptr) != FALSE) &&
           count > 0)
        bytes.append(block.data(), count);
    return bytes;
}

void CheckCom(HRESULT result, const char* call) {
    if (result != S_OK) throw std::system_error(result, std::system_category(), call);
}

}  // namespace

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

void RequireReadable(const std::wstring& path, std::wstring_view source) {
    const auto file = OpenToRead(path);
    if (file.Get() == INVALID_HANDLE_VALUE) throw ReadError(std::wstring(source), path, GetLastError());
}

void CreateFolder(const std::wstring& path) {
    if (CreateDirectoryW(path.c_str(), nullptr) == FALSE && !IsFolder(path)) ThrowLastError("CreateDirectory");
}

bool CopyOver(const std::wstring& source, const std::wstring& target) {
    // A read-only source would leave a copy that the next one cannot replace.
    SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
    const bool copied = CopyFileW(source.c_str(), target.c_str(), FALSE) != FALSE;
    SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
    return copied;
}

bool HaveSameBytes(const std::wstring& first, const std::wstring& second) {
    bool firstRead = false;
    bool secondRead = false;
    const std::string firstBytes = ReadBytes(first, firstRead);
    const std::string secondBytes = ReadBytes(second, secondRead);
    return firstRead && secondRead && firstBytes == secondBytes;
}

bool ShellCopy(const std::wstring& source, const std::wstring& destinationFolder) {
    // The shell takes lists of names: each needs a second NUL behind its own.
    std::string from = ToAnsi(source) + '\0';
    std::string to = ToAnsi(destinationFolder) + '\0';
    SHFILEOPSTRUCTA operation{};
    operation.wFunc = FO_COPY;
    operation.pFrom = from.c_str();
    operation.pTo = to.c_str();
    operation.fFlags = FOF_NOCONFIRMATION | FOF_FILESONLY;
    return SHFileOperationA(&operation) == 0;
}

std::wstring SpecialFolder(int shellNumber) {
    ComPtr<IShellDispatch> shell;
    CheckCom(CoCreateInstance(CLSID_Shell, nullptr, CLSCTX_INPROC_SERVER, IID_IShellDispatch,
                              reinterpret_cast<void**>(shell.Put())),
             "Shell.Application");
    VARIANT number{};
    number.vt = VT_I4;
    number.lVal = shellNumber;
    ComPtr<Folder> folder;
    // An unknown number is answered with S_FALSE and no folder.
    CheckCom(shell->NameSpace(number, folder.Put()), "Shell.Application.Namespace");
    const ComPtr<Folder2> folder2 = folder.As<Folder2>(IID_Folder2);
    if (!folder2) throw std::system_error(E_NOINTERFACE, std::system_category(), "Shell.Application.Namespace");
    ComPtr<FolderItem> item;
    CheckCom(folder2->get_Self(item.Put()), "Folder.Self");
    BSTR name = nullptr;
    CheckCom(item->get_Path(&name), "FolderItem.Path");
    const UniqueHandle<BSTR, &SysFreeString> owner(name);
    std::wstring path(name, SysStringLen(name));
    if (!path.empty() && path.back() == L'\\') path.pop_back();
    return path;
}

}  // namespace win32::files
