// The one place that includes the Windows headers, so that every file sees them with the same settings.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif

#include <windows.h>

#include <commctrl.h>
#include <objbase.h>
#include <oleauto.h>
#include <richedit.h>
#include <shellapi.h>
#include <uxtheme.h>

// A procedure of the session state has this name.
#undef GetUserName
