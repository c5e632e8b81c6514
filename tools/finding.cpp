// Findings as lines of text.
#include "tools/finding.h"

#include "win32/windows_api.h"

namespace data_files {

namespace {

std::string ToUtf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    std::string bytes(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr)),
        '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                        nullptr);
    return bytes;
}

}  // namespace

std::string ToLine(const Finding& finding) {
    return ToUtf8(finding.file + L": " + finding.section + L": " + finding.what);
}

std::wstring FromUtf8(std::string_view bytes, bool& valid) {
    const int length = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    const int made = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), length, text.data(), length);
    valid = bytes.empty() || made > 0;
    text.resize(static_cast<std::size_t>(made));
    return text;
}

}  // namespace data_files
