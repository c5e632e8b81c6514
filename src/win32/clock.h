// The date on the user's calendar.
#pragma once

namespace win32 {

/// The present year in the user's time zone.
int CurrentYear();

}  // namespace win32
