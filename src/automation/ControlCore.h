#pragma once

#include "automation/ControlAdvises.h"
#include "automation/ControlExtent.h"
#include "automation/ControlPlacing.h"
#include "automation/ControlSite.h"
#include "automation/Events.h"
#include "automation/InPlaceSession.h"
#include "automation/NamedValues.h"

#include <objsafe.h>

#ifdef __CRT_UUID_DECL // the toolchain's header leaves this one out
__CRT_UUID_DECL(IObjectSafety, 0xcb5bdc81, 0x93c1, 0x11cf, 0x8f, 0x20, 0x00, 0x80, 0x5f, 0x2c, 0xd0, 0x64)
#endif

namespace ormisk {

// OLEMISC flags of our controls, for GetMiscStatus and for the registration.
inline constexpr DWORD kControlMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                                            OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;

// The hosting interfaces of a windowed control: site, extent, in-place activation, ambient properties, dirty flag. What
// the control is comes in through the hooks. A base of ControlBase, which knows the types.
class ControlCore : public IOleObject,
                    public IOleControl,
                    public IOleInPlaceObject,
                    public IOleInPlaceActiveObject,
                    public IViewObject2,
                    public IPersistStreamInit,
                    public IPersistStorage,
                    public IPersistPropertyBag,
                    public IQuickActivate,
                    public IObjectSafety {
public:
    void* FindInterface(REFIID iid);

    // IOleObject
    STDMETHODIMP SetClientSite(IOleClientSite* site) override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) override;
    STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR document) override;
    STDMETHODIMP Close(DWORD saveOption) override;
    STDMETHODIMP SetMoniker(DWORD which, IMoniker* moniker) override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
    STDMETHODIMP InitFromData(IDataObject* data, BOOL creation, DWORD reserved) override;
    STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** data) override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* activeSite, LONG index, HWND parent,
                        LPCRECT position) override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) override;
    STDMETHODIMP Update() override;
    STDMETHODIMP IsUpToDate() override;
    STDMETHODIMP GetUserClassID(CLSID* id) override;
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* text) override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** connections) override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
    STDMETHODIMP SetColorScheme(LOGPALETTE* palette) override;

    // IOleControl
    STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
    STDMETHODIMP OnMnemonic(MSG* message) override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID id) override;
    STDMETHODIMP FreezeEvents(BOOL freeze) override;

    // IOleWindow, IOleInPlaceObject
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    STDMETHODIMP InPlaceDeactivate() override;
    STDMETHODIMP UIDeactivate() override;
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) override;
    STDMETHODIMP ReactivateAndUndo() override;

    // IOleInPlaceActiveObject
    STDMETHODIMP TranslateAccelerator(LPMSG message) override;
    STDMETHODIMP OnFrameWindowActivate(BOOL activate) override;
    STDMETHODIMP OnDocWindowActivate(BOOL activate) override;
    STDMETHODIMP ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window, BOOL isFrame) override;
    STDMETHODIMP EnableModeless(BOOL enable) override;

    // IViewObject2
    STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC targetDc, HDC dc,
                      LPCRECTL bounds, LPCRECTL windowBounds, BOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR),
                      ULONG_PTR goOnArgument) override;
    STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC targetDc,
                             LOGPALETTE** colors) override;
    STDMETHODIMP Freeze(DWORD aspect, LONG index, void* aspectInfo, DWORD* cookie) override;
    STDMETHODIMP Unfreeze(DWORD cookie) override;
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, SIZEL* size) override;

    // IPersist, IPersistStreamInit, IPersistStorage, IPersistPropertyBag: one set of named values in all of them
    STDMETHODIMP GetClassID(CLSID* id) override;
    STDMETHODIMP InitNew() override;
    STDMETHODIMP IsDirty() override;
    STDMETHODIMP Load(IStream* stream) override;
    STDMETHODIMP Save(IStream* stream, BOOL clearDirty) override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
    STDMETHODIMP InitNew(IStorage* storage) override;
    STDMETHODIMP Load(IStorage* storage) override;
    STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) override;
    STDMETHODIMP SaveCompleted(IStorage* storage) override;
    STDMETHODIMP HandsOffStorage() override;
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) override;
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) override;

    // IQuickActivate
    STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* control) override;
    STDMETHODIMP SetContentExtent(SIZEL* size) override;
    STDMETHODIMP GetContentExtent(SIZEL* size) override;

    // IObjectSafety
    STDMETHODIMP GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) override;
    STDMETHODIMP SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) override;

protected:
    ControlCore() = default;
    ~ControlCore() = default;

    // What a control asks of its base.

    bool IsSited() const { return m_Site.IsSited(); }
    bool IsInPlaceActive() const { return m_Session.IsActive(); }
    bool UserMode() const { return m_Site.UserMode(); } // true without that ambient property
    std::optional<_variant_t> Ambient(DISPID id) const { return m_Site.Ambient(id); }
    std::optional<_variant_t> Ambient(const std::wstring& name) const { return m_Site.Ambient(name); }
    std::wstring AmbientText(DISPID id) const { return m_Site.AmbientText(id); } // "" without one
    ComPtr<IFontDisp> AmbientFont() const { return m_Site.AmbientFont(); }       // null without one
    bool TranslateByHost(MSG& message) { return m_Site.TranslateAccelerator(message); }

    // A persistent property has another value: sets the dirty flag, tells the property sinks, then the view.
    void NotifyChanged(DISPID id);
    // The picture of the control is another one, without a change of a persistent property.
    void NotifyViewChanged() { m_Advises.TellViewChanged(); }
    // AccessKeys gives other keys than before.
    void NotifyAccessKeysChanged();
    // A window of the control has taken the focus, or the focus has left the control's windows.
    void UiActivate();
    void FocusLost();
    // Of the container, while the control is active in it; else null.
    ComPtr<IOleInPlaceFrame> ContainerFrame() const { return m_Session.Frame(); }
    // Lets the window be destroyed and the events end. Once, from FinalRelease.
    void CloseForever();

    // What a control tells its base.

    // Makes the windows, as children of a hidden parking window: once, when a site is there for the first time.
    virtual void OnFirstSited(HWND parking) = 0;
    // The control's window; null before OnFirstSited and after its destruction, which can come at any time.
    virtual HWND Window() const = 0;
    // First defaults of a control without stored state. Once, with windows and a site.
    virtual void OnInitNew() = 0;
    // An ambient property changed; DISPID_UNKNOWN when several did, or when the site is another one.
    virtual void OnAmbientChange(DISPID id) = 0;
    // The host has done with the control, for good or for now: it was closed, lost its site, or is held by nobody but
    // itself. What is held of the host's objects has to go, as any of them may hold the control.
    virtual void OnUseEnded() {}
    // Whether these references to the control are all its own, held by parts of it.
    virtual bool OwnsReferences(ULONG /*count*/) const { return false; }
    // The control's window has been given a new outer size, in pixels.
    virtual void OnSize(int cx, int cy) = 0;
    // Draws the whole control. The context may be a metafile: it must not be read, and moved only by its window origin.
    virtual void OnDraw(HDC dc, const RECT& pixels) = 0;
    virtual std::wstring AccessKeys() const = 0;
    // A key of AccessKeys, in upper case, was pressed.
    virtual void OnAccessKey(wchar_t key) = 0;
    // S_OK when the control used the key, else S_FALSE: it is offered to the host then.
    virtual HRESULT OnTranslateKey(MSG& message) = 0;
    // The host went on to the control by TAB, or back to it by Shift+TAB.
    virtual void OnTabbedInto(bool /*backward*/) {}
    // CTRLINFO flags: keys that the control uses itself before a default or cancel button of the host.
    virtual DWORD KeysEaten() const { return 0; }
    // Stored state: with windows and a site. What cannot be read leaves its setting as it is.
    virtual void OnLoad(NamedValues& store) = 0;
    virtual void OnSave(NamedValues& store) = 0;
    // INTERFACESAFE flags that the control promises to keep.
    virtual DWORD SafetyPromised() const { return 0; }

    // What ControlBase knows of the types.
    virtual const CLSID& ClassId() const = 0;
    virtual const IID& EventSource() const = 0;
    virtual ConnectionPoints& Points() = 0;

private:
    IUnknown* Self() { return static_cast<IOleObject*>(this); }
    void CreateWindows();
    void Initialize();
    void LoadFrom(NamedValues& store);
    void Saved(bool clearDirty);
    void ApplyExtent();
    HRESULT ActivateInPlace();
    HRESULT ActivateUi(const MSG* cause);
    void Deactivate();
    void Place(const RECT& position, const RECT* clip);
    std::wstring UserTypeName(DWORD form) const;
    DWORD Connect(REFIID source, IUnknown* sink);

    ControlSite m_Site;
    ControlAdvises m_Advises;
    InPlaceSession m_Session;
    ControlPlacing m_Placing;
    SIZEL m_Extent = HimetricOf(kDefaultSize);
    Unique<HACCEL> m_Accelerators;
    DWORD m_SafetyEnabled = 0;
    bool m_WindowsMade = false;
    bool m_NewWanted = false; // InitNew came before there was a site
    bool m_Initialized = false;
    bool m_Dirty = false;
    bool m_SavedInPlace = false; // the last time, into a storage
    bool m_Focused = false;
};

} // namespace ormisk
