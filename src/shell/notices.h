// What the editors say of texts that the file would not keep.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace notices {

/// What the file will not keep of a value, in one sentence that begins with `what` ("The title"); "" when it keeps all.
std::wstring ValueNotice(std::wstring_view what, std::wstring_view value);

/// How one of an editor's numbered texts is called, and several: "The text of task ", "The texts of tasks ".
struct RowNames {
    const wchar_t* one;
    const wchar_t* many;
};

/// The same for the texts of a table, from number 1 on: one sentence for all that lose the same, so that a lesson of
/// long texts does not fill the window.
std::wstring RowNotice(const RowNames& names, const std::vector<std::wstring_view>& values);

/// What a notice is about: one text, or several that share a name.
struct Subject {
    std::wstring name;
    bool isMany = false;
};

/// What has these numbers, for one sentence: "The texts of tasks 1 to 4 and 9".
Subject Numbered(const RowNames& names, const std::vector<std::size_t>& numbers);

/// What was already lost on loading, in one sentence; "" when nothing was.
std::wstring CutValueNotice(const std::vector<Subject>& cut);

/// Numbers as they are read out: "1, 2 and 5", "1 to 4 and 9".
std::wstring NumberList(const std::vector<std::size_t>& numbers);

/// Says that a lesson of so many bytes would lose its end; "" while it would not.
std::wstring LessonSizeNotice(std::size_t bytes);

/// Says that no more of the lesson's `items` ("tasks") are saved; "" while there is room.
std::wstring FullTableNotice(std::wstring_view items, bool full);

/// Says how many of a lesson's items are saved; "" when all are.
std::wstring UnsavedNotice(std::wstring_view items, std::size_t count);

/// Says that repetitions stand at 2 that were more; "" otherwise.
std::wstring RepetitionsNotice(int stored, bool twiceSelected);

/// The sentences that are not empty, one after the other.
std::wstring JoinNotices(const std::vector<std::wstring>& sentences);

}  // namespace notices
