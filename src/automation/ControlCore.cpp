#include "automation/ControlCore.h"

#include "automation/StoredValues.h"

#include <shlwapi.h>

namespace ormisk {

namespace {

constexpr wchar_t kStorageStream[] = L"Contents";

} // namespace

void* ControlCore::FindInterface(REFIID iid) {
    if (iid == __uuidof(IOleObject))
        return static_cast<IOleObject*>(this);
    if (iid == __uuidof(IOleControl))
        return static_cast<IOleControl*>(this);
    if (iid == __uuidof(IOleInPlaceObject) || iid == __uuidof(IOleWindow))
        return static_cast<IOleInPlaceObject*>(this);
    if (iid == __uuidof(IOleInPlaceActiveObject))
        return static_cast<IOleInPlaceActiveObject*>(this);
    if (iid == __uuidof(IViewObject2) || iid == __uuidof(IViewObject))
        return static_cast<IViewObject2*>(this);
    if (iid == __uuidof(IPersistStreamInit) || iid == __uuidof(IPersist))
        return static_cast<IPersistStreamInit*>(this);
    if (iid == __uuidof(IPersistStorage))
        return static_cast<IPersistStorage*>(this);
    if (iid == __uuidof(IPersistPropertyBag))
        return static_cast<IPersistPropertyBag*>(this);
    if (iid == __uuidof(IQuickActivate))
        return static_cast<IQuickActivate*>(this);
    if (iid == __uuidof(IObjectSafety))
        return static_cast<IObjectSafety*>(this);
    return nullptr;
}

HRESULT ControlCore::SetClientSite(IOleClientSite* site) {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IOleObject), [&] {
        if (m_Site.Is(site))
            return;
        Deactivate(); // the activation belongs to the old site
        m_Site.Attach(site);
        if (!site) {
            OnUseEnded();
            return;
        }
        if (!m_WindowsMade)
            CreateWindows();
        else
            OnAmbientChange(DISPID_UNKNOWN);
        if (m_NewWanted)
            Initialize();
    });
}

HRESULT ControlCore::GetClientSite(IOleClientSite** site) {
    if (!site)
        return E_POINTER;
    *site = ComPtr<IOleClientSite>(m_Site.Get()).Detach();
    return S_OK;
}

void ControlCore::CreateWindows() {
    m_WindowsMade = true;
    try {
        OnFirstSited(m_Placing.Parking());
    } catch (...) {
        m_WindowsMade = false;
        DestroyWindow(Window());
        m_Site.Attach(nullptr);
        throw;
    }
    ApplyExtent();
}

// First defaults need windows and ambient properties: those of a control without a site wait for it.
void ControlCore::Initialize() {
    if (m_Initialized)
        return;
    m_NewWanted = !m_WindowsMade;
    if (m_WindowsMade) {
        m_Initialized = true;
        m_Dirty = true; // nothing of it is stored anywhere
        OnInitNew();
    }
}

void ControlCore::CloseForever() {
    // Nobody holds the control any more: what happens from here on is not the host's affair.
    Points().SuspendEvents(true);
    m_Session.End();
    m_Site.Attach(nullptr);
    if (const HWND window = Window())
        DestroyWindow(window);
}

void ControlCore::NotifyChanged(DISPID id) {
    const ComPtr<IUnknown> alive(Self());
    m_Dirty = true;
    for (const auto& sink : Points().SinksOf(__uuidof(IPropertyNotifySink)))
        static_cast<IPropertyNotifySink*>(sink.Get())->OnChanged(id);
    m_Advises.TellViewChanged();
}

void ControlCore::NotifyAccessKeysChanged() {
    const ComPtr<IUnknown> alive(Self());
    m_Site.TellControlInfoChanged();
}

HRESULT ControlCore::GetClassID(CLSID* id) {
    if (!id)
        return E_POINTER;
    *id = ClassId();
    return S_OK;
}

HRESULT ControlCore::InitNew() {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IPersistStreamInit), [&] { Initialize(); });
}

HRESULT ControlCore::IsDirty() { return m_Dirty ? S_OK : S_FALSE; }

void ControlCore::LoadFrom(NamedValues& store) {
    OnLoad(store);
    m_Initialized = true;
    m_Dirty = false;
}

void ControlCore::Saved(bool clearDirty) {
    if (clearDirty)
        m_Dirty = false;
    m_Advises.TellSaved();
}

HRESULT ControlCore::Load(IStream* stream) {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IPersistStreamInit), [&]() -> HRESULT {
        CheckPointer(stream);
        if (!m_WindowsMade)
            return E_UNEXPECTED; // OLEMISC_SETCLIENTSITEFIRST
        StreamValues values(stream);
        LoadFrom(values);
        return S_OK;
    });
}

HRESULT ControlCore::Save(IStream* stream, BOOL clearDirty) {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IPersistStreamInit), [&] {
        CheckPointer(stream);
        StreamValues values;
        OnSave(values);
        values.Save(stream);
        Saved(clearDirty);
    });
}

HRESULT ControlCore::GetSizeMax(ULARGE_INTEGER* size) {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IPersistStreamInit), [&] {
        CheckPointer(size);
        StreamValues values;
        OnSave(values);
        size->QuadPart = values.Size();
    });
}

// Of a storage one stream is used, and only within a call.
HRESULT ControlCore::InitNew(IStorage* storage) { return storage ? InitNew() : E_POINTER; }

HRESULT ControlCore::Load(IStorage* storage) {
    if (!storage)
        return E_POINTER;
    ComPtr<IStream> stream;
    storage->OpenStream(kStorageStream, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, stream.GetAddressOf());
    if (!stream) // of a store without one everything is the default
        *stream.GetAddressOf() = SHCreateMemStream(nullptr, 0);
    return Load(stream.Get());
}

HRESULT ControlCore::Save(IStorage* storage, BOOL sameAsLoad) {
    if (!storage)
        return E_POINTER;
    m_SavedInPlace = sameAsLoad;
    ComPtr<IStream> stream;
    const HRESULT hr = storage->CreateStream(kStorageStream, STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0,
                                             stream.GetAddressOf());
    return FAILED(hr) ? hr : Save(stream.Get(), FALSE);
}

// What went to another storage, which is not the control's from now on, was a copy.
HRESULT ControlCore::SaveCompleted(IStorage* storage) {
    if (m_SavedInPlace || storage)
        m_Dirty = false;
    return S_OK;
}

HRESULT ControlCore::HandsOffStorage() { return S_OK; }

HRESULT ControlCore::Load(IPropertyBag* bag, IErrorLog* log) {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IPersistPropertyBag), [&]() -> HRESULT {
        CheckPointer(bag);
        if (!m_WindowsMade)
            return E_UNEXPECTED;
        BagValues values(bag, log);
        LoadFrom(values);
        return S_OK;
    });
}

HRESULT ControlCore::Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IPersistPropertyBag), [&] {
        CheckPointer(bag);
        BagValues values(bag, nullptr, saveAll);
        OnSave(values);
        Saved(clearDirty);
    });
}

DWORD ControlCore::Connect(REFIID source, IUnknown* sink) {
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    if (sink && SUCCEEDED(Points().FindConnectionPoint(source, point.GetAddressOf())))
        point->Advise(sink, &cookie);
    return cookie;
}

HRESULT ControlCore::QuickActivate(QACONTAINER* container, QACONTROL* control) {
    if (!container || !control)
        return E_POINTER;
    if (container->cbSize < sizeof(QACONTAINER) || control->cbSize < sizeof(QACONTROL))
        return E_INVALIDARG;
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IQuickActivate), [&]() -> HRESULT {
        const ULONG size = control->cbSize;
        *control = {};
        control->cbSize = size;
        if (container->pClientSite) {
            const HRESULT hr = SetClientSite(container->pClientSite);
            if (FAILED(hr))
                return hr;
        }
        if (container->pAdviseSink)
            m_Advises.SetViewAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
        control->dwPropNotifyCookie = Connect(__uuidof(IPropertyNotifySink), container->pPropertyNotifySink);
        control->dwEventCookie = Connect(EventSource(), container->pUnkEventSink);
        control->dwMiscStatus = kControlMiscStatus;
        control->dwViewStatus = VIEWSTATUS_OPAQUE;
        return S_OK;
    });
}

HRESULT ControlCore::SetContentExtent(SIZEL* size) { return SetExtent(DVASPECT_CONTENT, size); }

HRESULT ControlCore::GetContentExtent(SIZEL* size) { return GetExtent(DVASPECT_CONTENT, size); }

// A control promises nothing unless it says so: a script can make a grid read and write whatever object it is handed.
HRESULT ControlCore::GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) {
    if (!supported || !enabled)
        return E_POINTER;
    *supported = *enabled = 0;
    ComPtr<IUnknown> asked;
    if (FAILED(Self()->QueryInterface(iid, reinterpret_cast<void**>(asked.GetAddressOf()))))
        return E_NOINTERFACE;
    *supported = SafetyPromised();
    *enabled = m_SafetyEnabled;
    return S_OK;
}

HRESULT ControlCore::SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) {
    DWORD supported = 0, present = 0;
    const HRESULT hr = GetInterfaceSafetyOptions(iid, &supported, &present);
    if (FAILED(hr))
        return hr;
    if (mask & enabled & ~supported)
        return E_FAIL;
    m_SafetyEnabled = (present & ~mask) | (enabled & mask);
    return S_OK;
}

} // namespace ormisk
