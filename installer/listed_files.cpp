// The files of one version: putting them in place, and taking them away.
#include "listed_files.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <system_error>

#include "machine.h"
#include "win32/windows_api.h"

namespace installer {

namespace fs = std::filesystem;

namespace {

/// The setup program takes texts of up to 1023 characters.
constexpr std::size_t kLongestEnumeration = 600;

constexpr wchar_t kVendorFolder[] = L"Brightfield";

constexpr std::size_t kHashDigits = 64;
constexpr std::size_t kEntryStart = kHashDigits + 2;

struct ListedFile {
    std::string hash;
    std::string kind;
    fs::path entry;  // kind and path, as in the staged folder
    fs::path target;
};

/// Reads a list as sha256sum writes it, "hash  kind/path" a line; a list that is not there has no files.
std::vector<ListedFile> ReadList(const fs::path& list, const Folders& folders) {
    std::vector<ListedFile> files;
    std::ifstream stream(list);
    for (std::string line; std::getline(stream, line);) {
        const std::size_t slash = line.find('/', std::min(line.size(), kEntryStart));
        if (slash == std::string::npos) continue;
        ListedFile file;
        file.hash = line.substr(0, kHashDigits);
        file.kind = line.substr(kEntryStart, slash - kEntryStart);
        file.entry = fs::path(line.substr(kEntryStart)).make_preferred();
        const fs::path path = fs::path(line.substr(slash + 1)).make_preferred();
        if (file.kind == "program")
            file.target = folders.program / path;
        else if (file.kind == "guide")
            file.target = folders.program / file.entry;
        else
            file.target = folders.data / path;
        files.push_back(std::move(file));
    }
    return files;
}

/// Reads a list without which nothing can be done.
std::vector<ListedFile> ReadNeededList(const fs::path& list, const Folders& folders) {
    auto files = ReadList(list, folders);
    if (files.empty()) throw FileTrouble(list.wstring() + L" could not be read", ERROR_FILE_NOT_FOUND);
    return files;
}

/// Removes the folders above the file that are left empty, below `base`.
void RemoveEmptyFolders(const fs::path& file, const fs::path& base) {
    for (fs::path folder = file.parent_path(); folder != base && folder.has_relative_path();
         folder = folder.parent_path()) {
        if (RemoveDirectoryW(folder.c_str()) == FALSE) return;
    }
}

void Delete(const fs::path& file) {
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (DeleteFileW(file.c_str()) != FALSE) return;
    const DWORD error = GetLastError();
    if (error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND)
        throw FileTrouble(file.wstring() + L" could not be removed", error);
}

/// Gives the file a name that is still free; returns it.
fs::path KeepAside(const fs::path& file) {
    for (int number = 1;; ++number) {
        fs::path aside = file.wstring() + L"." + std::to_wstring(number) + L".bak";
        if (MoveFileExW(file.c_str(), aside.c_str(), 0) != FALSE) return aside;
        const DWORD error = GetLastError();
        if (error != ERROR_ALREADY_EXISTS && error != ERROR_FILE_EXISTS)
            throw FileTrouble(file.wstring() + L" could not be kept under another name", error);
    }
}

/// Copies in one step over what is there: a full disk leaves the old file whole. With `aside` the old file is kept
/// under another name, which is added there.
void Copy(const fs::path& source, const fs::path& target, std::vector<std::wstring>* aside = nullptr) {
    std::error_code ignored;
    fs::create_directories(target.parent_path(), ignored);
    const fs::path half(target.wstring() + L".new");
    fs::path kept;
    const auto check = [&](BOOL done) {
        if (const DWORD error = GetLastError(); done == FALSE)
            throw FileTrouble(target.wstring() + L" could not be written", error);
    };
    try {
        check(CopyFileW(source.c_str(), half.c_str(), FALSE));
        SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
        if (aside != nullptr) kept = KeepAside(target);
        check(MoveFileExW(half.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
    } catch (const FileTrouble&) {
        DeleteFileW(half.c_str());
        if (!kept.empty()) MoveFileExW(kept.c_str(), target.c_str(), 0);
        throw;
    }
    if (aside != nullptr) aside->push_back(kept.wstring());
}

const ListedFile* Find(const std::vector<ListedFile>& files, const fs::path& entry) {
    const auto found = std::find_if(files.begin(), files.end(), [&](const auto& file) { return file.entry == entry; });
    return found == files.end() ? nullptr : &*found;
}

/// Takes one file of a version away, unless somebody has to keep it. Settings and seeds stay always.
void RemoveListed(const ListedFile& file, const Folders& folders) {
    const bool ours = file.kind == "program" ||
                      ((file.kind == "guide" || file.kind == "catalogue") && HashOf(file.target) == file.hash);
    if (!ours) return;
    Delete(file.target);
    RemoveEmptyFolders(file.target, file.kind == "catalogue" ? folders.data : folders.program);
}

/// Removes what lies beside the program and is in no list, and the folder with its vendor's when nothing else is there.
void RemoveProgramFolder(const fs::path& folder) {
    DeleteFileW((folder / kListName).c_str());
    // An uninstaller that was told to run where it lies cannot remove itself.
    DeleteFileW((folder / kUninstallerName).c_str());
    if (RemoveDirectoryW(folder.c_str()) != FALSE && folder.parent_path().filename() == kVendorFolder)
        RemoveDirectoryW(folder.parent_path().c_str());
}

}  // namespace

std::vector<std::wstring> Put(const fs::path& staged, const fs::path& previous, const Folders& folders) {
    const auto files = ReadNeededList(staged / kListName, folders);
    const Folders before{previous.empty() ? folders.program : previous, folders.data};
    const auto oldFiles = ReadList(before.program / kListName, before);
    std::vector<std::wstring> aside;
    for (const auto& file : files) {
        const std::string present = HashOf(file.target);
        if (present == file.hash) continue;
        bool keeps = false;
        if (GetFileAttributesW(file.target.c_str()) != INVALID_FILE_ATTRIBUTES) {
            const ListedFile* old = Find(oldFiles, file.entry);
            const bool edited = old == nullptr || old->hash != present;
            if (file.kind == "settings" || (file.kind == "seed" && edited)) continue;
            keeps = file.kind == "catalogue" && edited;
        }
        Copy(staged / file.entry, file.target, keeps ? &aside : nullptr);
    }
    Copy(staged / kListName, folders.program / kListName);

    std::error_code error;
    const bool moved = !fs::equivalent(before.program, folders.program, error);
    for (const auto& old : oldFiles) {
        const ListedFile* now = Find(files, old.entry);
        if (now == nullptr || (moved && now->target != old.target)) RemoveListed(old, before);
    }
    if (moved) RemoveProgramFolder(before.program);
    return aside;
}

void Remove(const Folders& folders) {
    std::optional<FileTrouble> first;
    for (const auto& file : ReadNeededList(folders.program / kListName, folders)) {
        try {
            RemoveListed(file, folders);
        } catch (const FileTrouble& trouble) {
            if (!first) first = trouble;
        }
    }
    // The list is what another try would go by.
    if (first) throw FileTrouble(*first);
    RemoveProgramFolder(folders.program);
}

std::wstring Enumerate(const std::vector<std::wstring>& names) {
    std::wstring text;
    std::size_t told = 0;
    for (; told < names.size() && text.size() + names[told].size() < kLongestEnumeration; ++told)
        text += (told == 0 ? L"" : L", ") + names[told];
    if (told < names.size()) text += L" and " + std::to_wstring(names.size() - told) + L" more";
    return text;
}

std::wstring WhatStays(const fs::path& dataFolder) {
    std::vector<std::wstring> names;
    std::error_code error;
    for (fs::recursive_directory_iterator at(dataFolder, error), end; at != end; at.increment(error)) {
        if (!at->is_directory(error)) names.push_back(at->path().lexically_relative(dataFolder).wstring());
    }
    std::sort(names.begin(), names.end());
    std::wstring text = L"Keystride has been removed.\r\n";
    if (!names.empty()) text += L"These files stay in " + dataFolder.wstring() + L": " + Enumerate(names) + L".\r\n";
    return text + L"Each user's own lessons, settings and student records stay as well.";
}

}  // namespace installer
