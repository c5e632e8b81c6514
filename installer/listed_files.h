// The files of one version: putting them in place over another version's, and taking them away.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace installer {

/// The list that lies beside the installed program: the SHA-256 of each file, its kind and its path.
inline constexpr wchar_t kListName[] = L"files.txt";
/// What the setup program puts there in the end.
inline constexpr wchar_t kUninstallerName[] = L"Uninstall.exe";

/// A file that could not be written or removed.
class FileTrouble : public std::runtime_error {
public:
    FileTrouble(std::wstring sentence, unsigned long error)
        : std::runtime_error("a file could not be changed"), sentence_(std::move(sentence)), error_(error) {}
    [[nodiscard]] const std::wstring& Sentence() const { return sentence_; }
    [[nodiscard]] unsigned long Error() const { return error_; }

private:
    std::wstring sentence_;
    unsigned long error_;
};

/// Where the files of each kind belong: the program and its guide to one folder, all data to the other.
struct Folders {
    std::filesystem::path program;
    std::filesystem::path data;
};

/// Puts every file of the list in `staged` in place. What an installation has set for itself stays; an edited seed
/// stays; an edited catalogue is kept beside the new one. Then takes away what the version in `previous` (may be empty)
/// has and this one has not. Returns the edited catalogues by their new names. Raises FileTrouble.
std::vector<std::wstring> Put(const std::filesystem::path& staged, const std::filesystem::path& previous,
                              const Folders& folders);

/// Takes away the program and what is unchanged of its guide and catalogues. Raises FileTrouble after the last file.
void Remove(const Folders& folders);

/// The names, as many as a message has room for, and how many more there are.
std::wstring Enumerate(const std::vector<std::wstring>& names);

/// What a removal has left alone, to be told to the user.
std::wstring WhatStays(const std::filesystem::path& dataFolder);

}  // namespace installer
