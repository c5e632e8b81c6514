// Text helpers and the ANSI code page.
#include "win32/text.h"

#include <algorithm>

#include "win32/windows_api.h"

namespace win32 {

std::wstring TrimBlanks(std::wstring_view text) {
    const auto first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos) return {};
    return std::wstring(text.substr(first, text.find_last_not_of(L' ') - first + 1));
}

std::wstring ReplaceAll(std::wstring_view text, std::wstring_view from, std::wstring_view to) {
    std::wstring result;
    result.reserve(text.size());
    std::size_t done = 0;
    for (auto at = text.find(from); at != std::wstring_view::npos; at = text.find(from, done)) {
        result.append(text.substr(done, at - done)).append(to);
        done = at + from.size();
    }
    return result.append(text.substr(done));
}

std::vector<std::wstring> Split(std::wstring_view text, wchar_t separator) {
    std::vector<std::wstring> fields;
    for (auto at = text.find(separator); at != std::wstring_view::npos; at = text.find(separator)) {
        fields.emplace_back(text.substr(0, at));
        text.remove_prefix(at + 1);
    }
    fields.emplace_back(text);
    return fields;
}

std::int64_t LeadingNumber(std::wstring_view text) {
    constexpr std::int64_t kLimit = std::int64_t{1} << 40;
    std::size_t at = text.find_first_not_of(L" \t\n");
    if (at == std::wstring_view::npos) return 0;
    const bool negative = text[at] == L'-';
    if (negative || text[at] == L'+') ++at;
    std::int64_t number = 0;
    for (; at < text.size() && text[at] >= L'0' && text[at] <= L'9'; ++at)
        if (number < kLimit) number = number * 10 + (text[at] - L'0');
    return negative ? -number : number;
}

std::wstring DropLineBreaks(std::wstring_view text) {
    std::wstring kept(text);
    std::erase_if(kept, [](wchar_t c) { return c == L'\r' || c == L'\n' || c == L'\0'; });
    return kept;
}

std::wstring DropControlCharacters(std::wstring_view text) {
    constexpr wchar_t kDelete = L'\x7F';
    std::wstring kept(text);
    std::erase_if(kept, [](wchar_t c) { return c < L' ' || c == kDelete; });
    return kept;
}

std::string ToAnsi(std::wstring_view text) {
    std::string bytes(text.size(), '\0');
    const auto ascii = [](wchar_t c) { return c < 0x80; };
    if (std::all_of(text.begin(), text.end(), ascii)) {
        std::transform(text.begin(), text.end(), bytes.begin(), [](wchar_t c) { return static_cast<char>(c); });
        return bytes;
    }
    const int length = static_cast<int>(text.size());
    bytes.resize(AnsiLength(text));
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
}

std::wstring FromAnsi(std::string_view bytes) {
    // No code page makes more characters than there are bytes.
    std::wstring text(bytes.size(), L'\0');
    std::size_t done = 0;
    for (; done < bytes.size() && static_cast<unsigned char>(bytes[done]) < 0x80; ++done)
        text[done] = static_cast<wchar_t>(bytes[done]);
    if (done == bytes.size()) return text;
    const int length = static_cast<int>(bytes.size());
    text.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, text.data(), length)));
    return text;
}

std::size_t AnsiLength(std::wstring_view text) {
    return static_cast<std::size_t>(
        WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr));
}

bool FitsAnsi(std::wstring_view text) { return FromAnsi(ToAnsi(text)) == text; }

}  // namespace win32
