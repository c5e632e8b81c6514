// Spoken names beside window texts, and live regions, through the system's accessibility services.
#pragma once

#include <memory>
#include <string_view>

#include "win32/handles.h"

namespace win32 {

/// What the program asks of the accessibility services; tests put a recorder in its place.
class AccessibleProperties {
public:
    AccessibleProperties() = default;
    AccessibleProperties(const AccessibleProperties&) = delete;
    AccessibleProperties& operator=(const AccessibleProperties&) = delete;
    virtual ~AccessibleProperties() = default;

    /// What is spoken for the window instead of its text, and the key that is spoken with it ("" for none).
    virtual void SetName(WindowHandle window, std::wstring_view name, std::wstring_view shortcut) = 0;
    /// Makes the window a polite live region.
    virtual void SetLiveRegion(WindowHandle window) = 0;
    /// Tells that the text of a live region changed.
    virtual void AnnounceLiveRegion(WindowHandle window) = 0;
    /// Takes back what was set for a window that is about to go.
    virtual void Clear(WindowHandle window) = 0;
};

/// The services in use. Where the system lacks them every call does nothing.
AccessibleProperties& Accessibility();

/// Puts other services in place and returns the former ones; null brings back the system's.
std::unique_ptr<AccessibleProperties> ReplaceAccessibility(std::unique_ptr<AccessibleProperties> replacement);

}  // namespace win32
