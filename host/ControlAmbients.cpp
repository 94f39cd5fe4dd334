// The ambient properties of the site.

#include "ControlSite.h"

#include <comutil.h>
#include <olectl.h>

#include <cwchar>

namespace ormisk {
namespace {

struct AmbientName {
    const wchar_t* name;
    DISPID id;
};

constexpr AmbientName kAmbientNames[] = {
    {L"BackColor", DISPID_AMBIENT_BACKCOLOR},
    {L"DisplayName", DISPID_AMBIENT_DISPLAYNAME},
    {L"Font", DISPID_AMBIENT_FONT},
    {L"ForeColor", DISPID_AMBIENT_FORECOLOR},
    {L"LocaleID", DISPID_AMBIENT_LOCALEID},
    {L"MessageReflect", DISPID_AMBIENT_MESSAGEREFLECT},
    {L"ScaleUnits", DISPID_AMBIENT_SCALEUNITS},
    {L"TextAlign", DISPID_AMBIENT_TEXTALIGN},
    {L"UserMode", DISPID_AMBIENT_USERMODE},
    {L"UIDead", DISPID_AMBIENT_UIDEAD},
    {L"ShowGrabHandles", DISPID_AMBIENT_SHOWGRABHANDLES},
    {L"ShowHatching", DISPID_AMBIENT_SHOWHATCHING},
    {L"DisplayAsDefault", DISPID_AMBIENT_DISPLAYASDEFAULT},
    {L"SupportsMnemonics", DISPID_AMBIENT_SUPPORTSMNEMONICS},
};

constexpr long kSystemColor = static_cast<long>(0x80000000);

} // namespace

HRESULT ControlSite::Ambient(DISPID id, VARIANT& value) const {
    _variant_t ambient;
    switch (id) {
    case DISPID_AMBIENT_BACKCOLOR:
        ambient = kSystemColor | COLOR_BTNFACE;
        break;
    case DISPID_AMBIENT_FORECOLOR:
        ambient = kSystemColor | COLOR_BTNTEXT;
        break;
    case DISPID_AMBIENT_FONT:
        ambient = m_Font.Get();
        break;
    case DISPID_AMBIENT_DISPLAYNAME:
        ambient = m_Name.c_str();
        break;
    case DISPID_AMBIENT_SCALEUNITS:
        ambient = L"Pixel";
        break;
    case DISPID_AMBIENT_LOCALEID:
        ambient = static_cast<long>(GetUserDefaultLCID());
        break;
    case DISPID_AMBIENT_TEXTALIGN:
        ambient = static_cast<short>(0);
        break;
    case DISPID_AMBIENT_USERMODE:
    case DISPID_AMBIENT_SUPPORTSMNEMONICS:
        ambient = true;
        break;
    case DISPID_AMBIENT_MESSAGEREFLECT:
    case DISPID_AMBIENT_UIDEAD:
    case DISPID_AMBIENT_SHOWGRABHANDLES:
    case DISPID_AMBIENT_SHOWHATCHING:
    case DISPID_AMBIENT_DISPLAYASDEFAULT:
        ambient = false;
        break;
    default:
        return DISP_E_MEMBERNOTFOUND;
    }
    value = ambient.Detach();
    return S_OK;
}

STDMETHODIMP ControlSite::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    for (UINT i = 0; i < count; ++i)
        ids[i] = DISPID_UNKNOWN;
    for (const AmbientName& ambient : kAmbientNames) {
        if (count == 1 && _wcsicmp(ambient.name, names[0]) == 0) {
            ids[0] = ambient.id;
            return S_OK;
        }
    }
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP ControlSite::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) {
    if (!(flags & DISPATCH_PROPERTYGET))
        return DISP_E_MEMBERNOTFOUND;
    return result ? Ambient(id, *result) : E_POINTER;
}

} // namespace ormisk
