// What the editors say of texts that the file would not keep.
#include "shell/notices.h"

#include "shell/lesson_file.h"
#include "shell/row_table.h"
#include "win32/profile.h"
#include "win32/text.h"

namespace notices {

std::wstring ValueNotice(std::wstring_view what, std::wstring_view value) {
    const std::wstring subject(what);
    if (win32::AnsiLength(value) > win32::profile::kMaxValueBytes)
        return subject + L" is too long: only its first 254 characters are read back.";
    if (!win32::FitsAnsi(value)) return subject + L" has characters that the file cannot keep.";
    if (win32::IsQuoted(win32::TrimBlanks(value)))
        return subject + L" stands in quotation marks, and these are not read back.";
    return {};
}

std::wstring CutValueNotice(const std::vector<std::wstring>& cut) {
    if (cut.empty()) return {};
    std::wstring names = cut.front();
    for (std::size_t i = 1; i < cut.size(); ++i) {
        std::wstring name = cut[i];
        name.front() = L't';  // each begins with "The"
        names += (i + 1 == cut.size() ? L" and " : L", ") + name;
    }
    return names + (cut.size() == 1 ? L" was" : L" were") +
           L" stored too long: only the first 254 characters were read, and no more can be saved.";
}

std::wstring LessonSizeNotice(std::size_t bytes) {
    if (bytes <= lesson_file::kMovedSectionBytes) return {};
    return L"This lesson takes more than 4000 bytes: its end would be cut when an earlier lesson is removed.";
}

std::wstring FullTableNotice(std::wstring_view items, bool full) {
    if (!full) return {};
    return L"The 100 " + std::wstring(items) + L" that are saved are reached: another one would not be kept.";
}

std::wstring UnsavedNotice(std::wstring_view items, std::size_t count) {
    if (count <= kSavedRows) return {};
    return L"Only the first 100 of these " + std::to_wstring(count) + L" " + std::wstring(items) + L" are saved.";
}

std::wstring RepetitionsNotice(int stored, bool twiceSelected) {
    if (stored <= 2 || !twiceSelected) return {};
    return L"This lesson has " + std::to_wstring(stored) + L" repetitions; they stand at 2 now.";
}

std::wstring JoinNotices(const std::vector<std::wstring>& sentences) {
    std::wstring joined;
    for (const std::wstring& sentence : sentences) {
        if (sentence.empty()) continue;
        if (!joined.empty()) joined += L" ";
        joined += sentence;
    }
    return joined;
}

}  // namespace notices
