// What a played session tells the script that runs it: lines to print, screenshots to take; and how it gives up.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "driver/session.h"

namespace e2e {

/// How long a first start in a new prefix may take.
inline constexpr std::chrono::seconds kStartPatience{30};

/// Prints one line; those that begin with "@" are for the script.
void Say(const std::string& text);

/// Throws std::runtime_error with that text when it did not happen.
void Expect(bool happened, const std::string& what);

/// Has the script take a screenshot of the whole display and waits until it is done.
void Screenshot(const std::string& name);
/// The same of one window alone.
void Screenshot(const std::string& name, const Window& window);

/// Waits for a form that must come, with the focus on one of its controls; returns it.
Window ExpectForm(const Session& session, std::wstring_view form, std::wstring_view focus);

/// A main function's body: plays the session with the program that the only argument names, returns the exit code.
int PlaySession(int count, char** arguments, const std::function<void(const std::string& program)>& play);

}  // namespace e2e
