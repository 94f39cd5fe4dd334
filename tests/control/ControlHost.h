#pragma once

#include "HandleCount.h"
#include "ModelTestTools.h"

#include "automation/ControlBase.h"
#include "win/Gdi.h"
#include "win/Rects.h"

#include "ormisk.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace ormisk::test {

// The smallest control: one window, whose left half is red and the rest blue.
class Box : public ControlBase<::_CListItem, ::CListItem, ::__CListItems> {
public:
    HWND window = nullptr;
    HWND parking = nullptr;
    SIZE size{};
    int news = 0;
    std::vector<DISPID> ambients;
    std::wstring keys;
    std::wstring pressed;

    using ControlCore::Ambient;
    using ControlCore::AmbientFont;
    using ControlCore::AmbientText;
    using ControlCore::NotifyChanged;
    using ControlCore::UserMode;

    STDMETHODIMP get_Value(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_Value(VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_Text(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_Text(BSTR) override { return E_NOTIMPL; }

private:
    void OnFirstSited(HWND parkingWindow) override;
    HWND Window() const override { return window; }
    void OnInitNew() override;
    void OnAmbientChange(DISPID id) override { ambients.push_back(id); }
    void OnSize(int cx, int cy) override { size = {cx, cy}; }
    void OnDraw(HDC dc, const RECT& pixels) override;
    std::wstring AccessKeys() const override { return keys; }
    void OnAccessKey(wchar_t key) override { pressed += key; }
    HRESULT OnTranslateKey(MSG& message) override { return message.wParam == VK_DOWN ? S_OK : S_FALSE; }
    void OnLoad(NamedValues&) override {}
    void OnSave(NamedValues&) override {}

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
};

// A container with one site and a frame window. It writes down what is called and can turn on the control meanwhile.
class Host : public IOleClientSite,
             public IOleInPlaceSiteEx,
             public IOleControlSite,
             public IOleInPlaceFrame,
             public IAdviseSink,
             public IPropertyNotifySink,
             public IDispatch {
public:
    Host();
    ~Host();

    HWND window = nullptr;
    RECT position{0, 0, 100, 100};
    RECT clip{0, 0, 1000, 1000};
    std::map<DISPID, _variant_t> ambient;
    bool extended = false; // answers IOleInPlaceSiteEx
    bool takesKeys = false;
    HRESULT answer = S_OK; // to what can be refused
    DISPID changed = 0;
    std::vector<std::string> log;
    std::function<void(const std::string&)> onCall;
    ComPtr<IOleInPlaceActiveObject> active;
    int references = 1;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }

    STDMETHODIMP SaveObject() override { return Called("SaveObject"); }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer**) override { return E_NOINTERFACE; }
    STDMETHODIMP ShowObject() override { return Called("ShowObject"); }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    STDMETHODIMP GetWindow(HWND* result) override { return *result = window, S_OK; }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return Called("CanInPlaceActivate"); }
    STDMETHODIMP OnInPlaceActivate() override { return Called("OnInPlaceActivate"); }
    STDMETHODIMP OnUIActivate() override { return Called("OnUIActivate"); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                  LPRECT visible, LPOLEINPLACEFRAMEINFO info) override;
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return Called("OnUIDeactivate"); }
    STDMETHODIMP OnInPlaceDeactivate() override { return Called("OnInPlaceDeactivate"); }
    STDMETHODIMP DiscardUndoState() override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }
    STDMETHODIMP OnInPlaceActivateEx(BOOL*, DWORD) override { return Called("OnInPlaceActivate"); }
    STDMETHODIMP OnInPlaceDeactivateEx(BOOL) override { return Called("OnInPlaceDeactivate"); }
    STDMETHODIMP RequestUIActivate() override { return S_OK; }

    STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*, DWORD) override;
    STDMETHODIMP OnFocus(BOOL focus) override { return Called(focus ? "OnFocus 1" : "OnFocus 0"); }
    STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

    STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return Called("SetBorderSpace"); }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override;
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL enable) override {
        return Called(enable ? "EnableModeless 1" : "EnableModeless 0");
    }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { Called("OnViewChange"); }
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override {}
    STDMETHODIMP_(void) OnClose() override { Called("OnClose"); }

    STDMETHODIMP OnChanged(DISPID id) override { return changed = id, Called("OnChanged"); }
    STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) override;

private:
    HRESULT Called(const std::string& name);
};

// A box in a host, till its end.
struct SitedBox {
    SitedBox() { box->SetClientSite(&host); }
    ~SitedBox() {
        if (box)
            box->SetClientSite(nullptr);
    }
    Box* operator->() const { return box.Get(); }
    HRESULT Do(LONG verb, Host* site = nullptr) {
        Host& by = site ? *site : host;
        return box->DoVerb(verb, nullptr, &by, 0, by.window, nullptr);
    }

    Host host;
    ComPtr<Box> box = MakeObject<Box>();
};

// Tests that may leave nothing behind.
class LeakTest : public testing::Test {
protected:
    void SetUp() override;
    // The system keeps windows and drawing handles of its own from their first use on.
    virtual void WarmUp() {}
    void TearDown() override;
    void ExpectNothingLeft() const;

private:
    long m_Objects = 0;
    Inventory m_Before;
};

} // namespace ormisk::test
