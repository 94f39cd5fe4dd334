#include "automation/ControlSite.h"

namespace ormisk {

namespace {

std::optional<_variant_t> Get(IDispatch* ambients, DISPID id) {
    DISPPARAMS none{};
    _variant_t value;
    if (FAILED(ambients->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value, nullptr,
                                nullptr))) {
        return std::nullopt;
    }
    return value;
}

// The KEYMOD flags of IOleControlSite::TranslateAccelerator.
DWORD KeyModifiers() {
    constexpr DWORD kShift = 1, kControl = 2, kAlt = 4;
    const auto pressed = [](int key, DWORD flag) { return GetKeyState(key) < 0 ? flag : 0; };
    return pressed(VK_SHIFT, kShift) | pressed(VK_CONTROL, kControl) | pressed(VK_MENU, kAlt);
}

} // namespace

void ControlSite::Attach(IOleClientSite* site) {
    // The old site goes when the new one stands: letting go can call back.
    const ComPtr<IOleClientSite> old = m_Site;
    m_Site = site;
}

std::optional<_variant_t> ControlSite::Ambient(DISPID id) const {
    const auto ambients = As<IDispatch>();
    return ambients ? ormisk::Get(ambients.Get(), id) : std::nullopt;
}

std::optional<_variant_t> ControlSite::Ambient(const std::wstring& name) const {
    const auto ambients = As<IDispatch>();
    wchar_t* text = const_cast<wchar_t*>(name.c_str());
    DISPID id = DISPID_UNKNOWN;
    if (!ambients || FAILED(ambients->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id)))
        return std::nullopt;
    return ormisk::Get(ambients.Get(), id);
}

std::wstring ControlSite::AmbientText(DISPID id) const {
    std::wstring text;
    if (const auto value = Ambient(id))
        IgnoringFailures([&] { text = TextOf(*value); });
    return text;
}

ComPtr<IFontDisp> ControlSite::AmbientFont() const {
    const auto value = Ambient(DISPID_AMBIENT_FONT);
    return Query<IFontDisp>(value ? ObjectOf(*value) : nullptr);
}

bool ControlSite::UserMode() const {
    const auto value = Ambient(DISPID_AMBIENT_USERMODE);
    _variant_t mode;
    return !value || FAILED(ConvertValue(*value, VT_BOOL, mode)) || V_BOOL(&mode) != VARIANT_FALSE;
}

bool ControlSite::TranslateAccelerator(MSG& message) const {
    const auto site = As<IOleControlSite>();
    return site && site->TranslateAccelerator(&message, KeyModifiers()) == S_OK;
}

void ControlSite::TellFocus(bool hasFocus) const {
    if (const auto site = As<IOleControlSite>())
        site->OnFocus(hasFocus);
}

void ControlSite::TellControlInfoChanged() const {
    if (const auto site = As<IOleControlSite>())
        site->OnControlInfoChanged();
}

void ControlSite::AskToSave() const {
    if (const auto site = m_Site)
        site->SaveObject();
}

void ControlSite::AskToShow() const {
    if (const auto site = m_Site)
        site->ShowObject();
}

} // namespace ormisk
