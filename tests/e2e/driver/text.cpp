// Text as the tests read and print it: conversions, and control characters made readable.
#include "driver/text.h"

#include "win32/windows_api.h"

namespace e2e {

std::string ToUtf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int needed = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), needed, nullptr, nullptr);
    return utf8;
}

std::wstring ToWide(std::string_view utf8) {
    const int length = static_cast<int>(utf8.size());
    const int needed = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, text.data(), needed);
    return text;
}

std::string Readable(std::wstring_view text) {
    std::string readable;
    for (const wchar_t character : text) {
        if (character < L' ')
            readable += '<' + std::to_string(static_cast<unsigned>(character)) + '>';
        else
            readable += ToUtf8(std::wstring_view(&character, 1));
    }
    return readable;
}

}  // namespace e2e
