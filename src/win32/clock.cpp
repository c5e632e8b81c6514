// The date on the user's calendar.
#include "win32/clock.h"

#include "win32/windows_api.h"

namespace win32 {

int CurrentYear() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return now.wYear;
}

}  // namespace win32
