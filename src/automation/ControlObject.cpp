// The IOleObject and IViewObject2 side of a control: what it is, how big it is, how it is drawn.

#include "automation/ControlCore.h"
#include "automation/ControlDrawing.h"
#include "automation/Give.h"
#include "automation/SnapshotEnumerator.h"
#include "automation/TypeLibrary.h"

namespace ormisk {

namespace {

LPOLESTR NewTaskString(const std::wstring& text) {
    const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    auto* copy = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
    if (copy)
        memcpy(copy, text.c_str(), bytes);
    return copy;
}

struct Verb {
    LONG number;
    const wchar_t* name;
    DWORD attributes;
};

struct CopyVerb {
    static HRESULT Copy(const Verb& from, OLEVERB* to) {
        *to = {from.number, NewTaskString(from.name), MF_ENABLED, from.attributes};
        return to->lpszVerbName ? S_OK : E_OUTOFMEMORY;
    }
    static void Clear(OLEVERB* to) { CoTaskMemFree(to->lpszVerbName); }
};

const std::vector<Verb> kVerbs{{OLEIVERB_PRIMARY, L"&Edit", OLEVERBATTRIB_ONCONTAINERMENU},
                               {OLEIVERB_SHOW, L"Show", 0},
                               {OLEIVERB_HIDE, L"Hide", 0},
                               {OLEIVERB_UIACTIVATE, L"UIActivate", 0},
                               {OLEIVERB_INPLACEACTIVATE, L"InPlaceActivate", 0}};

} // namespace

// A control without names of its own in its title has no use for those of the host.
HRESULT ControlCore::SetHostNames(LPCOLESTR, LPCOLESTR) { return S_OK; }

HRESULT ControlCore::Close(DWORD saveOption) {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IOleObject), [&] {
        if (m_Dirty && saveOption != OLECLOSE_NOSAVE)
            m_Site.AskToSave();
        Deactivate();
        m_Advises.TellClosed();
        OnUseEnded();
    });
}

HRESULT ControlCore::SetMoniker(DWORD, IMoniker*) { return E_NOTIMPL; }

HRESULT ControlCore::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (moniker)
        *moniker = nullptr;
    return E_NOTIMPL;
}

HRESULT ControlCore::InitFromData(IDataObject*, BOOL, DWORD) { return E_NOTIMPL; }

HRESULT ControlCore::GetClipboardData(DWORD, IDataObject** data) {
    if (data)
        *data = nullptr;
    return E_NOTIMPL;
}

HRESULT ControlCore::EnumVerbs(IEnumOLEVERB** verbs) {
    return Guarded(__uuidof(IOleObject), [&] {
        Give(verbs, [] { return SnapshotEnumerator<IEnumOLEVERB, OLEVERB, Verb, CopyVerb>::Make(kVerbs); });
    });
}

HRESULT ControlCore::Update() { return S_OK; }

HRESULT ControlCore::IsUpToDate() { return S_OK; }

HRESULT ControlCore::GetUserClassID(CLSID* id) { return GetClassID(id); }

std::wstring ControlCore::UserTypeName(DWORD form) const {
    const auto info = TypeInfoOf(ClassId());
    _bstr_t help;
    if (form == USERCLASSTYPE_FULL &&
        SUCCEEDED(info->GetDocumentation(MEMBERID_NIL, nullptr, help.GetAddress(), nullptr, nullptr)) &&
        help.length()) {
        return FromBstr(help.GetBSTR());
    }
    return NameOf(info.Get());
}

HRESULT ControlCore::GetUserType(DWORD form, LPOLESTR* text) {
    return Guarded(__uuidof(IOleObject), [&] {
        CheckPointer(text);
        *text = nullptr;
        *text = NewTaskString(UserTypeName(form));
        return *text ? S_OK : E_OUTOFMEMORY;
    });
}

// The window follows at once only while parked: that of an active control is moved by the host.
HRESULT ControlCore::SetExtent(DWORD aspect, SIZEL* size) {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IOleObject), [&]() -> HRESULT {
        CheckPointer(size);
        if (aspect != DVASPECT_CONTENT)
            return DV_E_DVASPECT;
        if (size->cx < 0 || size->cy < 0)
            return E_INVALIDARG;
        const bool changed = size->cx != m_Extent.cx || size->cy != m_Extent.cy;
        m_Extent = *size;
        if (changed && !m_Session.IsActive())
            ApplyExtent();
        if (changed)
            m_Advises.TellViewChanged();
        return S_OK;
    });
}

void ControlCore::ApplyExtent() {
    const SIZE pixels = PixelsOf(m_Extent);
    if (m_Placing.Resize(Window(), pixels))
        OnSize(pixels.cx, pixels.cy);
}

HRESULT ControlCore::GetExtent(DWORD aspect, SIZEL* size) {
    if (!size)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT) {
        *size = {};
        return DV_E_DVASPECT;
    }
    *size = m_Extent;
    return S_OK;
}

HRESULT ControlCore::Advise(IAdviseSink* sink, DWORD* cookie) {
    return Guarded(__uuidof(IOleObject), [&] { return m_Advises.Advise(sink, cookie); });
}

HRESULT ControlCore::Unadvise(DWORD cookie) { return m_Advises.Unadvise(cookie); }

HRESULT ControlCore::EnumAdvise(IEnumSTATDATA** connections) {
    return Guarded(__uuidof(IOleObject), [&] { return m_Advises.EnumAdvise(connections); });
}

HRESULT ControlCore::GetMiscStatus(DWORD aspect, DWORD* status) {
    if (!status)
        return E_POINTER;
    *status = aspect == DVASPECT_CONTENT ? kControlMiscStatus : 0;
    return S_OK;
}

HRESULT ControlCore::SetColorScheme(LOGPALETTE*) { return E_NOTIMPL; }

HRESULT ControlCore::Draw(DWORD aspect, LONG index, void*, DVTARGETDEVICE*, HDC, HDC dc, LPCRECTL bounds,
                          LPCRECTL windowBounds, BOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR), ULONG_PTR goOnArgument) {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IViewObject), [&]() -> HRESULT {
        if (aspect != DVASPECT_CONTENT)
            return DV_E_DVASPECT;
        if (index != -1)
            return DV_E_LINDEX;
        CheckPointer(bounds);
        if (!dc)
            return E_INVALIDARG;
        RECT window;
        if (!GetWindowRect(Window(), &window))
            return OLE_E_BLANK; // no site yet: there is nothing to show
        if (goOn && !goOn(goOnArgument))
            return E_ABORT;
        DrawMapped(dc, *bounds, windowBounds, SizeOf(window),
                   [&](HDC mapped, const RECT& pixels) { OnDraw(mapped, pixels); });
        return S_OK;
    });
}

HRESULT ControlCore::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colors) {
    if (!colors)
        return E_POINTER;
    *colors = nullptr;
    return S_FALSE;
}

HRESULT ControlCore::Freeze(DWORD, LONG, void*, DWORD*) { return E_NOTIMPL; }

HRESULT ControlCore::Unfreeze(DWORD) { return E_NOTIMPL; }

HRESULT ControlCore::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    const ComPtr<IUnknown> alive(Self());
    return m_Advises.SetViewAdvise(aspects, flags, sink);
}

HRESULT ControlCore::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
    return m_Advises.GetViewAdvise(aspects, flags, sink);
}

HRESULT ControlCore::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, SIZEL* size) { return GetExtent(aspect, size); }

} // namespace ormisk
