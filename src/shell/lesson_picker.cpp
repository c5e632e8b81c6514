// What the two pickers of numbered lessons share.
#include "shell/lesson_picker.h"

#include <algorithm>

#include "shell/lesson_file.h"
#include "shell/notices.h"
#include "shell/tree_selection.h"

namespace {

/// What the notice line says when lessons lost their end on moving.
std::wstring CutNotice(const std::vector<std::int16_t>& lessons, const std::wstring& backup) {
    if (lessons.empty()) return {};
    return notices::Numbered({L"Lesson ", L"Lessons "}, {lessons.begin(), lessons.end()}).name +
           L" lost the end beyond 4000 bytes. " + backup + L" holds the file as it was.";
}

}  // namespace

LessonPicker::LessonPicker(const wchar_t* name, int templateId, const Identifiers& identifiers, const Texts& texts,
                           win32::DialogStyle style)
    : Dialog(name, templateId, style),
      tvTasks(*this, identifiers.tasks, L"tvTasks"),
      cmdAccessibility(*this, identifiers.accessibility, L"cmdAccessibility"),
      lblNotice(*this, identifiers.notice, L"lblNotice"),
      texts_(texts) {
    parts.main = &tvTasks;
    parts.notice = &lblNotice;
}

void LessonPicker::OnLoad() { cmdAccessibility.Show(false); }

void LessonPicker::ShowEditingButtons(bool shown) {
    for (win32::Control* button : parts.buttons)
        if (button != &OKButton && button != &CancelButton) button->Show(shown);
    LayOut();
}

bool LessonPicker::TakeSelection() {
    const auto key = tree_selection::SelectedKey(tvTasks, texts_.selectFirst, texts_.nothingToSelect);
    if (key) TakeKey(*key);
    return key.has_value();
}

void LessonPicker::Refill(std::int16_t lesson) {
    // What it says of the backup holds until the file is written again.
    lblNotice.Say({});
    tvTasks.Clear();
    const std::int16_t nearest = std::min(lesson, LoadTeachersList());
    if (nearest > 0) tvTasks.Select(tvTasks.FindKey(lesson_file::SectionName(nearest)));
    tvTasks.Focus();
}

void LessonPicker::Remove(std::int16_t lesson, const std::function<void(std::vector<std::int16_t>&)>& remove) {
    std::vector<std::int16_t> cutLessons;
    const auto show = [&] {
        Refill(lesson);
        lblNotice.Say(CutNotice(cutLessons, texts_.backup));
    };
    try {
        remove(cutLessons);
    } catch (...) {
        // Some lessons may have moved: from the list as it was, another try would remove the wrong one.
        show();
        throw;
    }
    show();
}
