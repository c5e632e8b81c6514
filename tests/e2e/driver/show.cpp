// What a played session tells the script that runs it: lines to print, screenshots to take; and how it gives up.
#include "driver/show.h"

#include <cstdlib>
#include <exception>
#include <iostream>
#include <stdexcept>

#include "driver/text.h"

namespace e2e {

namespace {

void AskForScreenshot(const std::string& request) {
    Say("@screenshot " + request);
    std::string answer;
    std::getline(std::cin, answer);
}

}  // namespace

void Say(const std::string& text) { std::cout << text << std::endl; }

void Expect(bool happened, const std::string& what) {
    if (!happened) throw std::runtime_error(what);
}

void Screenshot(const std::string& name) { AskForScreenshot(name); }

void Screenshot(const std::string& name, const Window& window) {
    // Painting is what a program does last, after its focus has long been where it should be.
    UpdateWindow(window.Handle());
    const RECT box = window.ScreenRect();
    AskForScreenshot(name + ' ' + std::to_string(box.right - box.left) + 'x' + std::to_string(box.bottom - box.top) +
                     '+' + std::to_string(box.left) + '+' + std::to_string(box.top));
}

Window ExpectForm(const Session& session, std::wstring_view form, std::wstring_view focus) {
    const Window window = session.WaitForForm(form, kStartPatience);
    Expect(static_cast<bool>(window), Readable(form) + " does not open");
    Expect(session.WaitForFocus(focus), Readable(focus) + " of " + Readable(form) + " does not get the focus");
    return window;
}

int PlaySession(int count, char** arguments, const std::function<void(const std::string& program)>& play) {
    if (count != 2) {
        std::cerr << "the only argument is the path of keystride.exe" << std::endl;
        return EXIT_FAILURE;
    }
    try {
        play(arguments[1]);
        return EXIT_SUCCESS;
    } catch (const std::exception& problem) {
        std::cerr << "The session failed: " << problem.what() << '.' << std::endl;
        return EXIT_FAILURE;
    }
}

}  // namespace e2e
