// The task editor: kind, text and explanation of one task; command keys are captured as they are pressed.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "resource_ids.h"
#include "win32/controls.h"
#include "win32/dialog.h"

class dlgTaskEdit final : public win32::Dialog {
public:
    static dlgTaskEdit& Default();

    /// Shows the dialog, empty, for a new task; `result` is 1 when the session state holds the task, 2 otherwise.
    void ShowFormAdd(std::int16_t task, int& result);
    /// Shows the dialog on the task in the session state; `result` as for a new one.
    void ShowFormEdit(std::int16_t task, int& result);

    /// From now on a task of command keys is taken: typed characters are swallowed.
    void BeginCommandKeys();
    /// Neither captures keys nor swallows characters any more.
    void EndCommandKeys();

    win32::Label fraKind{*this, IDC_TASK_EDIT_KIND, L"fraKind"};
    win32::CheckButton optionLetters{*this, IDC_TASK_EDIT_LETTERS, L"optionLetters"};
    win32::CheckButton optionSingleWord{*this, IDC_TASK_EDIT_SINGLE_WORD, L"optionSingleWord"};
    win32::CheckButton optionWords{*this, IDC_TASK_EDIT_WORDS, L"optionWords"};
    win32::CheckButton optionCommandKeys{*this, IDC_TASK_EDIT_COMMAND_KEYS, L"optionCommandKeys"};
    win32::Label lblTaskNumber{*this, IDC_TASK_EDIT_NUMBER, L"lblTaskNumber"};
    win32::LiveLabel lblTask{*this, IDC_TASK_EDIT_TASK_NAME, L"lblTask"};
    win32::ValueBox txtTask{*this, IDC_TASK_EDIT_TASK, L"txtTask"};
    win32::Label lblExplanation{*this, IDC_TASK_EDIT_EXPLANATION_NAME, L"lblExplanation"};
    win32::ValueBox txtTaskExplanation{*this, IDC_TASK_EDIT_EXPLANATION, L"txtTaskExplanation"};
    win32::NoticeLine lblNotice{*this, IDC_TASK_EDIT_NOTICE, L"lblNotice"};

private:
    struct KindOption;
    static const std::array<KindOption, 4> kKinds;

    dlgTaskEdit();

    void OnPlace() override;
    void OnLoad() override;
    void OnLayout() override;
    win32::Control& FirstFocus() override { return txtTask; }
    bool OnKeyDown(const win32::KeyEvent& key) override;
    bool OnKeyUp(const win32::KeyEvent& key) override;

    /// The option that is selected; the command keys' when none is.
    [[nodiscard]] const KindOption& SelectedKind() const;
    void SelectKind(std::int16_t kind);
    void OnOptionClick();
    void OnOKButtonClick();
    void ToggleCapture();
    /// Writes a captured key; true when the text box may not act on it.
    bool CaptureKey(const win32::KeyEvent& key);
    void UpdateNotice();
    /// The height of the prompt's label in a width, whichever prompt it shows; twips.
    [[nodiscard]] int PromptHeight(int width);
    /// The height that all controls take in a width, the prompt's being known; twips.
    [[nodiscard]] int ContentHeight(int width, int promptHeight);

    const win32::OptionFrame kindFrame_{&fraKind,
                                        {&optionLetters, &optionSingleWord, &optionWords, &optionCommandKeys}};
    std::int16_t task_ = 0;
    std::int16_t shownKind_ = 0;
    bool mbCaptureKeys = false;
    bool mbCommandKeysTask = false;
    bool mbNumLockOn = false;
    bool mbJawsKeyDown = false;
};
