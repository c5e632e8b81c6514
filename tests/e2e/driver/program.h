// The program under test as a process: started with a path, ended for certain when this object goes.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "driver/wait.h"
#include "win32/windows_api.h"

namespace e2e {

class Program {
public:
    /// Starts the program; throws std::system_error when it cannot be started.
    explicit Program(const std::filesystem::path& executable);
    /// Ends the process if it still runs, so that no failed test leaves one behind.
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    DWORD Id() const { return id_; }
    HANDLE Process() const { return process_.get(); }
    bool Running() const;
    bool WaitForEnd(std::chrono::milliseconds patience = kPatience) const;
    /// Nothing while the process runs.
    std::optional<DWORD> ExitCode() const;
    void Kill() const;

private:
    struct HandleCloser {
        void operator()(HANDLE handle) const { CloseHandle(handle); }
    };
    std::unique_ptr<void, HandleCloser> process_;
    DWORD id_ = 0;
};

}  // namespace e2e
