// Entry of the end-to-end tests: finds the program to test and refuses to wipe a real user's data.
//
// KEYSTRIDE_EXE or the first argument that is no option: the path of keystride.exe. The tests wipe the program's data
// folders before each test, so outside Wine they run only when KEYSTRIDE_E2E_WIPE is 1.
#include <cstdlib>
#include <iostream>
#include <string_view>

#include <gtest/gtest.h>

#include "driver/text.h"
#include "fixture.h"
#include "win32/windows_api.h"

namespace {

bool RunsUnderWine() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

bool MayWipe() {
    const char* consent = std::getenv("KEYSTRIDE_E2E_WIPE");
    return RunsUnderWine() || (consent != nullptr && std::string_view(consent) == "1");
}

}  // namespace

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    if (count > 1) e2e::SetProgramPath(e2e::ToWide(arguments[1]));
    if (!MayWipe()) {
        std::cerr << "These tests wipe Keystride's data folders; set KEYSTRIDE_E2E_WIPE=1 to allow it." << std::endl;
        return EXIT_FAILURE;
    }
    return RUN_ALL_TESTS();
}
