// The preferences file.
#include "profile/modPreferences.h"

#include <vector>

#include "shell/modUtils.h"
#include "win32/error.h"
#include "win32/profile.h"

namespace modPreferences {

std::int16_t LoadPreferences(const std::wstring& file, win32::ListBox& list) {
    constexpr wchar_t kSource[] = L"LoadPreferences";
    constexpr std::size_t kBufferBytes = 4096;
    modUtils::RequireFile(file, kSource);
    std::vector<std::wstring> entries;
    for (const std::wstring& line : win32::profile::ReadLines(file, L"UserPreferences", kBufferBytes)) {
        const auto equals = line.find(L'=');
        if (equals == std::wstring::npos) throw win32::SubscriptError(kSource);
        entries.push_back(line.substr(equals + 1));
    }
    list.SetRedraw(false);
    for (const std::wstring& entry : entries) list.Add(entry);
    if (list.Count() > 0) list.Select(0);
    list.SetRedraw(true);
    return win32::ToInt16(list.Count());
}

}  // namespace modPreferences
