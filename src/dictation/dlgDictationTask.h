// The dictation text entry: one dictation, typed or pasted with tabs and line breaks.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "resource_ids.h"
#include "win32/controls.h"
#include "win32/dialog.h"

class dlgDictationTask final : public win32::Dialog {
public:
    static dlgDictationTask& Default();

    /// Shows the dialog, empty, for the dictation of that number; `result` is 1 when the session state holds its text
    /// and label, 2 when they were left as they were.
    void ShowFormAdd(std::int16_t task, int& result);
    /// Shows the dialog on a stored text; `result` as for a new one. The two numbers are of no use here.
    void ShowFormEdit(std::int16_t first, std::int16_t second, std::wstring_view text, int& result);

    /// Hands the text and its label over in the session state and closes the dialog.
    void SaveDictationText();
    /// Closes the dialog without saving.
    void CloseDictationText();

    win32::Label lblInstructions{*this, IDC_DICTATION_TASK_INSTRUCTIONS, L"lblInstructions"};
    win32::RichEdit rtfEdit{*this, IDC_DICTATION_TASK_TEXT, L"rtfEdit"};
    win32::NoticeLine lblNotice{*this, IDC_DICTATION_TASK_NOTICE, L"lblNotice"};

private:
    dlgDictationTask();

    void OnLoad() override;
    win32::Control& FirstFocus() override { return rtfEdit; }
    bool OnKeyDown(const win32::KeyEvent& key) override;
    void OnColoursChanged() override { rtfEdit.Refresh(); }
    void Cancel() override { CloseDictationText(); }

    /// The text with every line break as CR LF.
    [[nodiscard]] std::wstring TypedText() const;
    void Show(const wchar_t* editorCaption, const std::wstring& text, int& result);
    void TypeInto(const wchar_t* text);
    void UpdateNotice();

    std::int16_t task_ = 0;
};
