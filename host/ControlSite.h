#pragma once

#include "ComObject.h"
#include "ControlFrame.h"
#include "EventBinder.h"
#include "ExtendedControl.h"
#include "SettingsBag.h"

#include <ocidl.h>
#include <oleidl.h>
#include <servprov.h>

#include <memory>
#include <optional>
#include <string>

namespace ormisk {

class Form;

// The place of a control on the form, with what a control may ask of its container. The ambient properties are answered
// through IDispatch.
class ControlSite final
    : public UntypedObject<IOleClientSite, IOleInPlaceSiteEx, IOleControlSite, IDispatch, IServiceProvider> {
public:
    enum class Align { None, Top, Bottom, Left, Right };

    // Without a place the control fills what the others leave.
    ControlSite(Form& form, std::wstring name, std::optional<RECT> place);

    // Creates the control of that class, with what the bag holds or, without one, new, and activates it in place. It
    // replaces the one that was here, and gets the focus where that had it. Throws a Failure; nothing has changed then.
    void Load(const std::wstring& progId, SettingsBag* stored = nullptr);

    // Has the events of the control heard for as long as it is here.
    void Hear(std::unique_ptr<EventBinder> events) { m_Events = std::move(events); }

    // Takes the control out again and lets go of it.
    void Unload();

    const std::wstring& ProgId() const { return m_ProgId; }
    IUnknown* Control() const { return m_Loaded.control.Get(); }
    ComPtr<IDispatch> Automation() const; // null when the control has none
    ExtendedControl* Extended() const { return m_Extended.Get(); }

    // The control's window, null while it has none.
    HWND ControlWindow() const;

    bool IsOfControl(HWND window) const;

    // True when the key is an access key of the control, which has worked it off.
    bool TranslateAccessKey(MSG& message);
    // For a reason in a message, such as TAB. False when the control refuses.
    bool Activate(LONG verb, MSG* cause);
    void DeactivateUi();

    // Where it is, in pixels of the window. An aligned control keeps its edge and one measure; one that fills what the
    // others leave does so until it gets another place.
    const RECT& Place() const { return m_Place; }
    void MoveTo(const RECT& place);
    bool Fills() const { return m_Fills; }
    void SetFills(bool fills);
    void TakeEdge(RECT& rest); // of an aligned control
    void Place(const RECT& rest);

    // What its form knows of it.
    const std::wstring& Name() const { return m_Name; }
    IDispatch* Parent() const;
    bool IsVisible() const { return m_Visible; }
    void Show(bool visible);
    long TabIndex() const;
    void SetTabIndex(long index);
    bool IsTabStop() const { return m_TabStop; }
    void SetTabStop(bool stop) { m_TabStop = stop; }
    Align Alignment() const { return m_Align; }
    void SetAlignment(long align); // throws a Failure for a number that is none
    const std::wstring& ToolTip() const { return m_ToolTip; }
    void SetToolTip(const std::wstring& text);
    const std::wstring& Tag() const { return m_Tag; }
    void SetTag(const std::wstring& tag) { m_Tag = tag; }
    long HelpContext() const { return m_HelpContext; }
    void SetHelpContext(long context) { m_HelpContext = context; }

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

    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* error, UINT* argumentError) override;

    STDMETHODIMP QueryService(REFGUID service, REFIID iid, void** result) override;

private:
    struct Loaded {
        ComPtr<IUnknown> control;
        ComPtr<IOleObject> object;
    };

    void* Find(REFIID iid) override;
    void BringUp(SettingsBag* stored);
    static void Close(IOleObject* object);
    bool IsAccessKey(MSG& message) const;
    HRESULT Ambient(DISPID id, VARIANT& value) const;

    Form& m_Form;
    ComPtr<ExtendedControl> m_Extended;
    ComPtr<IDispatch> m_Font;
    Loaded m_Loaded;
    std::unique_ptr<EventBinder> m_Events;
    std::wstring m_ProgId;
    std::wstring m_Name;
    std::wstring m_ToolTip;
    std::wstring m_Tag;
    RECT m_Place{};
    Align m_Align = Align::None;
    bool m_Fills;
    bool m_Visible = true;
    bool m_TabStop = true;
    long m_HelpContext = 0;
};

} // namespace ormisk
