// What the process as a whole holds: the mark of its first copy, COM and the common controls.
#pragma once

#include "win32/unique_handle.h"
#include "win32/windows_api.h"

namespace win32 {

/// Tells whether this process is the first that holds a mutex of this name; holds it for its lifetime.
class SingleInstance {
public:
    explicit SingleInstance(const wchar_t* mutexName);
    [[nodiscard]] bool IsFirst() const { return first_; }

private:
    UniqueHandle<HANDLE, &CloseHandle> mutex_;
    bool first_ = false;
};

/// COM and the common controls, for as long as windows live.
class UserInterface {
public:
    UserInterface();
    UserInterface(const UserInterface&) = delete;
    UserInterface& operator=(const UserInterface&) = delete;
    ~UserInterface();
};

}  // namespace win32
