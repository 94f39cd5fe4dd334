#pragma once

#include "automation/Value.h"

#include <ocidl.h>
#include <olectl.h>

#include <optional>
#include <string>

namespace ormisk {

// What a control knows of the host's client site, and asks of it. Every call can come back into the control.
class ControlSite {
public:
    bool IsSited() const { return m_Site.Get() != nullptr; }
    bool Is(IOleClientSite* site) const { return m_Site.Get() == site; }
    IOleClientSite* Get() const { return m_Site.Get(); } // borrowed
    void Attach(IOleClientSite* site);                   // null lets the site go
    template <class T> ComPtr<T> As() const { return Query<T>(m_Site); }

    // An ambient property by number or name; nothing without a site, without ambient properties or without this one.
    std::optional<_variant_t> Ambient(DISPID id) const;
    std::optional<_variant_t> Ambient(const std::wstring& name) const;
    std::wstring AmbientText(DISPID id) const; // "" without one
    ComPtr<IFontDisp> AmbientFont() const;     // null without one
    bool UserMode() const;                     // true without one

    // Offers a key to the host; true when the host used it.
    bool TranslateAccelerator(MSG& message) const;
    void TellFocus(bool hasFocus) const;
    void TellControlInfoChanged() const;
    void AskToSave() const;
    void AskToShow() const;

private:
    ComPtr<IOleClientSite> m_Site;
};

} // namespace ormisk
