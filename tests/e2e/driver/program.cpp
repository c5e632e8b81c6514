// The program under test as a process: started with a path, ended for certain when this object goes.
#include "driver/program.h"

#include <string>
#include <system_error>

#include "driver/wait.h"

namespace e2e {

Program::Program(const std::filesystem::path& executable) {
    std::wstring commandLine = L"\"" + executable.wstring() + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION information{};
    // Right after its server has started, Wine now and then answers the first start with an internal error.
    DWORD error = ERROR_SUCCESS;
    WaitUntil([&] {
        const BOOL started = CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                            &startup, &information);
        error = started != FALSE ? ERROR_SUCCESS : GetLastError();
        return error != ERROR_INTERNAL_ERROR;
    });
    if (error != ERROR_SUCCESS)
        throw std::system_error(static_cast<int>(error), std::system_category(), "cannot start " + executable.string());
    CloseHandle(information.hThread);
    process_.reset(information.hProcess);
    id_ = information.dwProcessId;
}

Program::~Program() { Kill(); }

bool Program::Running() const { return WaitForSingleObject(process_.get(), 0) == WAIT_TIMEOUT; }

bool Program::WaitForEnd(std::chrono::milliseconds patience) const {
    return WaitForSingleObject(process_.get(), static_cast<DWORD>(patience.count())) == WAIT_OBJECT_0;
}

std::optional<DWORD> Program::ExitCode() const {
    if (Running()) return std::nullopt;
    DWORD code = 0;
    GetExitCodeProcess(process_.get(), &code);
    return code;
}

void Program::Kill() const {
    if (!Running()) return;
    TerminateProcess(process_.get(), 1);
    WaitForEnd();
}

}  // namespace e2e
