// What the editors say of texts that the file would not keep.
#include "shell/notices.h"

#include <map>

#include "shell/lesson_file.h"
#include "shell/row_table.h"
#include "win32/profile.h"
#include "win32/text.h"

namespace notices {

namespace {

/// What the file does not keep of a value, in the order in which it is told.
enum class Loss { None, End, Characters, Marks };

Loss LossOf(std::wstring_view value) {
    if (win32::AnsiLength(value) > win32::profile::kMaxValueBytes) return Loss::End;
    if (!win32::FitsAnsi(value)) return Loss::Characters;
    if (win32::IsQuoted(win32::TrimBlanks(value))) return Loss::Marks;
    return Loss::None;
}

std::wstring JoinNames(const std::vector<std::wstring>& names) {
    std::wstring joined;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0) joined += i + 1 == names.size() ? L" and " : L", ";
        joined += names[i];
    }
    return joined;
}

std::wstring Sentence(const Subject& subject, Loss loss) {
    const bool many = subject.isMany;
    switch (loss) {
        case Loss::End:
            return subject.name + (many ? L" are too long: of each" : L" is too long:") +
                   L" only its first 254 characters are read back.";
        case Loss::Characters:
            return subject.name + (many ? L" have" : L" has") + L" characters that the file cannot keep.";
        case Loss::Marks:
            return subject.name + (many ? L" stand" : L" stands") +
                   L" in quotation marks, and these are not read back.";
        case Loss::None:
            break;
    }
    return {};
}

}  // namespace

std::wstring ValueNotice(std::wstring_view what, std::wstring_view value) {
    return Sentence({std::wstring(what)}, LossOf(value));
}

std::wstring RowNotice(const RowNames& names, const std::vector<std::wstring_view>& values) {
    std::map<Loss, std::vector<std::size_t>> numbersOf;
    for (std::size_t row = 0; row < values.size(); ++row) numbersOf[LossOf(values[row])].push_back(row + 1);
    numbersOf.erase(Loss::None);
    std::vector<std::wstring> sentences;
    sentences.reserve(numbersOf.size());
    for (const auto& [loss, numbers] : numbersOf) sentences.push_back(Sentence(Numbered(names, numbers), loss));
    return JoinNotices(sentences);
}

std::wstring NumberList(const std::vector<std::size_t>& numbers) {
    std::vector<std::wstring> parts;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        std::size_t last = i;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) ++last;
        parts.push_back(std::to_wstring(numbers[i]));
        if (last < i + 2) continue;
        parts.back() += L" to " + std::to_wstring(numbers[last]);
        i = last;
    }
    return JoinNames(parts);
}

Subject Numbered(const RowNames& names, const std::vector<std::size_t>& numbers) {
    const bool isMany = numbers.size() > 1;
    return {(isMany ? names.many : names.one) + NumberList(numbers), isMany};
}

std::wstring CutValueNotice(const std::vector<Subject>& cut) {
    if (cut.empty()) return {};
    std::vector<std::wstring> names;
    for (const Subject& subject : cut) {
        names.push_back(subject.name);
        if (names.size() > 1) names.back().front() = L't';  // each begins with "The"
    }
    const bool isMany = cut.size() > 1 || cut.front().isMany;
    return JoinNames(names) + (isMany ? L" were" : L" was") +
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
