#pragma once

#include "ComObject.h"
#include "ControlFrame.h"
#include "HostWindow.h"

#include <ocidl.h>
#include <oleidl.h>
#include <servprov.h>

namespace ormisk {

// The place of the control in the host's window, with what a control may ask of its container. The ambient properties
// are answered through IDispatch.
class ControlSite final
    : public ComObject<IOleClientSite, IOleInPlaceSiteEx, IOleControlSite, IDispatch, IServiceProvider> {
public:
    explicit ControlSite(HostWindow& window);

    // Creates the control of that class, new and without stored state, and activates it in place over the whole client
    // area. Throws a Failure.
    void Load(const wchar_t* progId);

    // Takes the control out again and lets go of it.
    void Unload();

    IUnknown* Control() const { return m_Control.Get(); }

    // The control's window, null while it has none.
    HWND ControlWindow() const;

    // Offers a key to the control: to its own key handling first, then to its access keys. True when it was used up.
    bool TranslateKey(MSG& message);

    void FollowWindowSize();
    void FollowActivation(bool active);

    // Gives the focus to where it was in the control, or to the control as a whole.
    void TakeFocus();

    STDMETHODIMP SaveObject() override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override;
    STDMETHODIMP OnShowWindow(BOOL show) override;
    STDMETHODIMP RequestNewObjectLayout() override;

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
    STDMETHODIMP CanInPlaceActivate() override;
    STDMETHODIMP OnInPlaceActivate() override;
    STDMETHODIMP OnUIActivate() override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* position, RECT* clip,
                                  OLEINPLACEFRAMEINFO* info) override;
    STDMETHODIMP Scroll(SIZE extent) override;
    STDMETHODIMP OnUIDeactivate(BOOL undoable) override;
    STDMETHODIMP OnInPlaceDeactivate() override;
    STDMETHODIMP DiscardUndoState() override;
    STDMETHODIMP DeactivateAndUndo() override;
    STDMETHODIMP OnPosRectChange(LPCRECT position) override;
    STDMETHODIMP OnInPlaceActivateEx(BOOL* noRedraw, DWORD flags) override;
    STDMETHODIMP OnInPlaceDeactivateEx(BOOL noRedraw) override;
    STDMETHODIMP RequestUIActivate() override;

    STDMETHODIMP OnControlInfoChanged() override;
    STDMETHODIMP LockInPlaceActive(BOOL lock) override;
    STDMETHODIMP GetExtendedControl(IDispatch** extended) override;
    STDMETHODIMP TransformCoords(POINTL* himetric, POINTF* pixels, DWORD flags) override;
    STDMETHODIMP TranslateAccelerator(MSG* message, DWORD modifiers) override;
    STDMETHODIMP OnFocus(BOOL gained) override;
    STDMETHODIMP ShowPropertyFrame() override;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* error, UINT* argumentError) override;

    STDMETHODIMP QueryService(REFGUID service, REFIID iid, void** result) override;

private:
    void* Find(REFIID iid) override;
    void Activate(LONG verb);
    bool IsOfControl(HWND window) const;
    bool IsAccessKey(MSG& message) const;
    HRESULT Ambient(DISPID id, VARIANT& value) const;

    HostWindow& m_Window;
    ComPtr<ControlFrame> m_Frame;
    ComPtr<IDispatch> m_Font;
    ComPtr<IUnknown> m_Control;
    ComPtr<IOleObject> m_Object;
    HWND m_LastFocus = nullptr;
};

} // namespace ormisk
