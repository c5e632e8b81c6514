// One run of the program as a user has it: its forms and controls by name, its focus, its boxes, and keys pressed into
// it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "driver/box.h"
#include "driver/controls.h"
#include "driver/program.h"
#include "driver/window.h"

namespace e2e {

class Session {
public:
    /// Starts the program and returns at once; nothing is waited for.
    explicit Session(const std::filesystem::path& executable) : program_(executable) {}

    const Program& Process() const { return program_; }

    /// The open, visible form of that name; no window when there is none.
    Window Form(std::wstring_view name) const;
    Window WaitForForm(std::wstring_view name, std::chrono::milliseconds patience = kPatience) const;
    /// Until the form is not just hidden but gone.
    bool WaitForNoForm(std::wstring_view name) const;
    Window Control(std::wstring_view form, std::wstring_view control) const;
    std::wstring Text(std::wstring_view form, std::wstring_view control) const;
    bool WaitForText(std::wstring_view form, std::wstring_view control, std::wstring_view expected) const;
    Tree TreeOf(std::wstring_view form, std::wstring_view control) const;
    RichText RichTextOf(std::wstring_view form, std::wstring_view control) const;

    /// The caption of the main window's hidden channel button; readable also while the main window is disabled.
    std::wstring Request() const;
    bool WaitForRequest(std::wstring_view expected, std::chrono::milliseconds patience = kPatience) const;

    /// The window that has the focus, and its name.
    Window Focus() const;
    std::wstring FocusName() const;
    bool WaitForFocus(std::wstring_view control, std::chrono::milliseconds patience = kPatience) const;

    std::optional<Box> TopBox() const { return FindBox(program_.Id()); }
    std::optional<Box> WaitForBox(std::chrono::milliseconds patience = kPatience) const;

    /// The window that keys go to: the program's active one.
    Window Active() const;
    /// Press and type wait until the program has the keyboard; false when it never gets it.
    bool Press(std::string_view chord) const;
    bool Type(std::wstring_view text) const;

    std::string Describe() const { return e2e::Describe(program_.Id()); }

private:
    bool WaitForKeyboard() const;

    Program program_;
};

}  // namespace e2e
