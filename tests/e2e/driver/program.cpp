// The program under test as a process: started with a path, ended for certain when this object goes.
#include "driver/program.h"

#include <string>
#include <system_error>

namespace e2e {

Program::Program(const std::filesystem::path& executable) {
    std::wstring commandLine = L"\"" + executable.wstring() + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION information{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &information))
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                                "cannot start " + executable.string());
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
