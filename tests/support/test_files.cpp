// Files as both kinds of tests read, write, list and block them.
#include "support/test_files.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace test_files {

namespace fs = std::filesystem;

std::string ReadBytes(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void WriteBytes(const fs::path& file, std::string_view bytes) {
    fs::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) throw std::runtime_error("cannot write " + file.string());
}

std::map<std::wstring, std::string> Snapshot(const fs::path& folder) {
    std::map<std::wstring, std::string> content;
    if (!fs::exists(folder)) return content;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        const std::wstring name = fs::relative(entry.path(), folder).wstring();
        if (entry.is_directory())
            content[name + L"\\"] = {};
        else
            content[name] = ReadBytes(entry.path());
    }
    return content;
}

HeldFile::HeldFile(const fs::path& file, bool othersMayRead) {
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ, othersMayRead ? FILE_SHARE_READ : 0, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle != INVALID_HANDLE_VALUE) handle_.Reset(handle);
}

}  // namespace test_files
