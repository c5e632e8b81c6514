// The program's start to its visible window, its working set and its size.
#include <catch2/catch.hpp>

#include <array>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

#include "figures.h"
#include "win32/error.h"
#include "win32/unique_handle.h"
#include "win32/windows_api.h"

// Needs what the Windows headers define.
#include <psapi.h>

namespace {

using bench::Table;

constexpr std::size_t kStarts = 15;
constexpr double kPatience = 20000;  // milliseconds
constexpr double kKilobyte = 1024;
constexpr double kLargestFile = 2048;  // kilobytes

using Handle = win32::UniqueHandle<HANDLE, &CloseHandle>;

std::filesystem::path Beside(const wchar_t* name) {
    std::array<wchar_t, 1024> own{};
    GetModuleFileNameW(nullptr, own.data(), static_cast<DWORD>(own.size()));
    return std::filesystem::path(own.data()).replace_filename(name);
}

/// A program whose window is open: started, measured until its window is visible, and closed at the end of the scope.
class StartedProgram {
public:
    StartedProgram(const wchar_t* file, const wchar_t* windowClass) {
        std::wstring command = L'"' + Beside(file).wstring() + L'"';
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process{};
        milliseconds_ = bench::Milliseconds([&] {
            if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                               &process) == FALSE)
                win32::ThrowLastError("CreateProcess");
            process_.Reset(process.hProcess);
            CloseHandle(process.hThread);
            WaitForWindow(windowClass, process.dwProcessId);
        });
    }
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;
    ~StartedProgram() {
        // The next start must find neither the window nor the process.
        PostMessageW(window_, WM_CLOSE, 0, 0);
        if (WaitForSingleObject(process_.Get(), static_cast<DWORD>(kPatience)) != WAIT_OBJECT_0) {
            TerminateProcess(process_.Get(), 1);
            WaitForSingleObject(process_.Get(), INFINITE);
        }
    }

    [[nodiscard]] double Milliseconds() const { return milliseconds_; }

    /// Kilobytes in memory once the program waits for input.
    [[nodiscard]] double WorkingSet() const {
        WaitForInputIdle(process_.Get(), static_cast<DWORD>(kPatience));
        PROCESS_MEMORY_COUNTERS counters{};
        GetProcessMemoryInfo(process_.Get(), &counters, sizeof counters);
        return static_cast<double>(counters.WorkingSetSize) / kKilobyte;
    }

private:
    void WaitForWindow(const wchar_t* windowClass, DWORD id) {
        const ULONGLONG start = GetTickCount64();
        for (;;) {
            // A box instead of the window, a crash or another copy must end the benchmark, not stop it for good.
            if (static_cast<double>(GetTickCount64() - start) > kPatience ||
                WaitForSingleObject(process_.Get(), 0) == WAIT_OBJECT_0)
                throw std::runtime_error("the window does not appear");
            window_ = FindWindowW(windowClass, nullptr);
            DWORD owner = 0;
            if (window_ != nullptr) GetWindowThreadProcessId(window_, &owner);
            if (owner == id && IsWindowVisible(window_) != FALSE) return;
            Sleep(1);
        }
    }

    Handle process_;
    HWND window_ = nullptr;
    double milliseconds_ = 0;
};

double TimeOf(const wchar_t* file, const wchar_t* windowClass) {
    return StartedProgram(file, windowClass).Milliseconds();
}

constexpr wchar_t kProgram[] = L"keystride.exe";
constexpr wchar_t kProgramClass[] = L"frmMain";
constexpr wchar_t kBareWindow[] = L"bare_window.exe";
constexpr wchar_t kEmptyWindow[] = L"bare_empty.exe";
constexpr wchar_t kEmptyClass[] = L"KeystrideEmpty";

}  // namespace

TEST_CASE("Starting the program", "[start]") {
    const auto medians = bench::AlternatingMedians(
        kStarts, {[] { return TimeOf(kProgram, kProgramClass); }, [] { return TimeOf(kBareWindow, kProgramClass); },
                  [] { return TimeOf(kEmptyWindow, kEmptyClass); }});
    Table::Default().AddAtMost("start: against a bare window with the same controls", medians[0], medians[1], 1.3);
    Table::Default().AddShown("start: against an empty window", medians[0], medians[2], "ms");
}

TEST_CASE("What the program takes", "[start]") {
    const double workingSet = StartedProgram(kProgram, kProgramClass).WorkingSet();
    const double bare = StartedProgram(kBareWindow, kProgramClass).WorkingSet();
    CHECK(workingSet > 0);
    Table::Default().AddShown("working set: against the bare window", workingSet, bare, "KB");
    const double size = static_cast<double>(std::filesystem::file_size(Beside(kProgram))) / kKilobyte;
    Table::Default().AddLimit("size of keystride.exe", size, "KB", kLargestFile);
    CHECK(size < kLargestFile);
}
