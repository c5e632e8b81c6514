// Spoken names and live regions over the system's annotation service.
#include "win32/accessible.h"

#include <array>
#include <string>
#include <utility>

#include "win32/unique_handle.h"
#include "win32/windows_api.h"

#include <initguid.h>
#include <oleacc.h>

// Two identifiers that not every tool chain's headers carry.
DEFINE_GUID(kLiveSettingProperty, 0xc12bcd8e, 0x2a8e, 0x4950, 0x8a, 0xe7, 0x36, 0x25, 0x11, 0x1d, 0x58, 0xeb);
#ifndef EVENT_OBJECT_LIVEREGIONCHANGED
#define EVENT_OBJECT_LIVEREGIONCHANGED 0x8019
#endif

namespace win32 {

namespace {

constexpr LONG kPolite = 1;

class SystemProperties final : public AccessibleProperties {
public:
    void SetName(WindowHandle window, std::wstring_view name, std::wstring_view shortcut) override {
        const ComPtr<IAccPropServices> services = Create();
        if (!services) return;
        const auto set = [&](const GUID& property, std::wstring_view text) {
            services->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, property,
                                     std::wstring(text).c_str());
        };
        set(PROPID_ACC_NAME, name);
        if (!shortcut.empty()) set(PROPID_ACC_KEYBOARDSHORTCUT, shortcut);
    }

    void SetLiveRegion(WindowHandle window) override {
        const ComPtr<IAccPropServices> services = Create();
        if (!services) return;
        VARIANT polite{};
        polite.vt = VT_I4;
        polite.lVal = kPolite;
        services->SetHwndProp(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, kLiveSettingProperty, polite);
    }

    void AnnounceLiveRegion(WindowHandle window) override {
        NotifyWinEvent(EVENT_OBJECT_LIVEREGIONCHANGED, window, OBJID_CLIENT, CHILDID_SELF);
    }

    void Clear(WindowHandle window) override {
        const ComPtr<IAccPropServices> services = Create();
        if (!services) return;
        const std::array properties{PROPID_ACC_NAME, PROPID_ACC_KEYBOARDSHORTCUT, kLiveSettingProperty};
        services->ClearHwndProps(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, properties.data(),
                                 static_cast<int>(properties.size()));
    }

private:
    static ComPtr<IAccPropServices> Create() {
        ComPtr<IAccPropServices> services;
        void* created = nullptr;
        if (SUCCEEDED(
                CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices, &created)))
            *services.Put() = static_cast<IAccPropServices*>(created);
        return services;
    }
};

std::unique_ptr<AccessibleProperties>& Current() {
    static std::unique_ptr<AccessibleProperties> current = std::make_unique<SystemProperties>();
    return current;
}

}  // namespace

AccessibleProperties& Accessibility() { return *Current(); }

std::unique_ptr<AccessibleProperties> ReplaceAccessibility(std::unique_ptr<AccessibleProperties> replacement) {
    if (!replacement) replacement = std::make_unique<SystemProperties>();
    return std::exchange(Current(), std::move(replacement));
}

}  // namespace win32
