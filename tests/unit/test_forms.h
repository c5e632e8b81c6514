// Small forms for tests, on the program's own dialog templates: one with a tree, one with rich edits, one with the keys
// of dialogs.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "resource_ids.h"
#include "shell/frmMain.h"
#include "win32/controls.h"
#include "win32/dialog.h"
#include "win32/form.h"

namespace unit {

/// A form on the lesson picker's template with a tree and a notice line; what it does on events is the test's.
class TreeForm final : public win32::Form {
public:
    TreeForm() : Form(L"unitTreeForm", IDD_TYPING) {}
    TreeForm(const TreeForm&) = delete;
    TreeForm& operator=(const TreeForm&) = delete;
    // The controls are gone when the base would do it.
    ~TreeForm() override { Unload(); }

    win32::TreeView tvTasks{*this, IDC_TYPING_TASKS, L"unitTree"};
    win32::NoticeLine lblNotice{*this, IDC_TYPING_NOTICE, L"unitNotice"};
    win32::Button cmdAddLesson{*this, IDC_TYPING_ADD_LESSON, L"unitAdd"};

    struct Shown {
        std::wstring key;
        std::wstring text;
        int depth;
        bool operator==(const Shown&) const = default;
    };
    /// The tree as it stands, from top to bottom.
    [[nodiscard]] std::vector<Shown> Nodes() const;

    std::function<void()> whenLoaded;
    std::function<void()> whenTimed;
    int layouts = 0;
    int closes = 0;
    int unloads = 0;

protected:
    void OnLoad() override {
        if (whenLoaded) whenLoaded();
    }
    void OnLayout() override { ++layouts; }
    void OnClose() override { ++closes; }
    void OnTimer(std::uintptr_t /*id*/) override {
        if (whenTimed) whenTimed();
    }
    void OnUnloaded() override { ++unloads; }
};

/// A form on the main window's template with its rich edits and one button.
class RichForm final : public win32::Form {
public:
    RichForm() : Form(L"unitRichForm", IDD_MAIN) {
        // The template's window class comes with the main window.
        frmMain::Default();
    }
    RichForm(const RichForm&) = delete;
    RichForm& operator=(const RichForm&) = delete;
    ~RichForm() override { Unload(); }

    win32::RichEdit rtfEdit{*this, IDC_MAIN_EDIT, L"unitEdit"};
    win32::RichEdit rtfMain{*this, IDC_MAIN_TEXT, L"unitText"};
    win32::Button cmdF1{*this, IDC_MAIN_F1, L"unitF1"};
    win32::CheckButton chkF11{*this, IDC_MAIN_F11, L"unitF11"};

protected:
    void OnLoad() override {
        win32::Placer placer(*this);
        placer.Put(rtfEdit, {0, 0, 9000, 3000});
    }
    void OnClose() override { Unload(); }
};

/// A dialog on the sign-on dialog's template that counts how often its cancel procedure runs.
class KeyDialog final : public win32::Dialog {
public:
    explicit KeyDialog(win32::DialogStyle style = {}) : Dialog(L"unitKeyDialog", IDD_LOGIN, style) {}
    KeyDialog(const KeyDialog&) = delete;
    KeyDialog& operator=(const KeyDialog&) = delete;
    ~KeyDialog() override { Unload(); }

    win32::TextBox txtLoginName{*this, IDC_LOGIN_NAME, L"unitName"};
    int cancels = 0;
    std::function<void()> whenTimed;

    using Dialog::Close;
    using Dialog::ShowModal;

protected:
    void OnPlace() override {}
    win32::Control& FirstFocus() override { return txtLoginName; }
    void OnTimer(std::uintptr_t /*id*/) override {
        if (whenTimed) whenTimed();
    }
    void Cancel() override {
        ++cancels;
        Dialog::Cancel();
    }
};

}  // namespace unit
