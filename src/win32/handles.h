// Window handles for headers that must not pull in the Windows headers.
#pragma once

#include <cstdint>

struct HWND__;
struct HFONT__;
struct HBRUSH__;

namespace win32 {

using WindowHandle = HWND__*;
using FontHandle = HFONT__*;
using MessageResult = std::intptr_t;

}  // namespace win32
