// What the editors say of texts that the file would not keep.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace notices {

/// What the file will not keep of a value, in one sentence that begins with `what` ("The title"); "" when it keeps all.
std::wstring ValueNotice(std::wstring_view what, std::wstring_view value);

/// What was already lost on loading, in one sentence; "" when nothing was.
std::wstring CutValueNotice(const std::vector<std::wstring>& cut);

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
