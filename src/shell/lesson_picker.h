// What the two pickers of numbered lessons share: the tree, its refilling, the editing buttons and the notice line.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "win32/controls.h"
#include "win32/dialog.h"

class LessonPicker : public win32::Dialog {
public:
    /// The buttons between OK and Cancel change the list: they are shown for a teacher's list only.
    void ShowEditingButtons(bool shown);

    win32::TreeView tvTasks;
    win32::Button cmdAccessibility;
    win32::NoticeLine lblNotice;

protected:
    struct Identifiers {
        int tasks;
        int accessibility;
        int notice;
    };
    struct Texts {
        const wchar_t* selectFirst;
        const wchar_t* nothingToSelect;
        const wchar_t* backup;  ///< the file that a removal leaves
    };

    LessonPicker(const wchar_t* name, int templateId, const Identifiers& identifiers, const Texts& texts,
                 win32::DialogStyle style = {});

    void OnLoad() override;
    win32::Control& FirstFocus() override { return tvTasks; }

    /// Reads a node's key into the session state.
    virtual void TakeKey(std::wstring_view key) = 0;
    /// Fills the emptied tree from the teacher's file; returns the number of lessons.
    virtual std::int16_t LoadTeachersList() = 0;

    /// Takes the selected node's key; false, after a message, when no node is selected.
    bool TakeSelection();
    /// Fills the tree again, selects `lesson` or its nearest neighbour, and gives the tree the focus.
    void Refill(std::int16_t lesson);
    /// Runs `remove`, which adds the lessons that lost their end on moving; fills the tree again, also when the system
    /// refuses half-way, and says which lessons were cut.
    void Remove(std::int16_t lesson, const std::function<void(std::vector<std::int16_t>&)>& remove);

private:
    Texts texts_;
};
