#include "GridContainer.h"

#include <gtest/gtest.h>

namespace ormisk {
namespace {

using test::Box;
using test::Host;
using test::SitedBox;

class ControlInHost : public test::LeakTest {
protected:
    void WarmUp() override {
        for (int i = 0; i < 2; ++i) {
            SitedBox box;
            Host second;
            box.Do(OLEIVERB_UIACTIVATE);
            box->SetClientSite(&second);
            box.Do(OLEIVERB_UIACTIVATE, &second);
            box->SetClientSite(nullptr);
        }
    }
};

// A container's property bag without properties.
class EmptyBag : public IPropertyBag {
public:
    STDMETHODIMP QueryInterface(REFIID, void** object) override { return *object = nullptr, E_NOINTERFACE; }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP Read(LPCOLESTR, VARIANT*, IErrorLog*) override { return E_INVALIDARG; }
    STDMETHODIMP Write(LPCOLESTR, VARIANT*) override { return S_OK; }
};

using Log = std::vector<std::string>;

TEST_F(ControlInHost, ActivationSkipsOrReordersStepsOfAHost) {
    SitedBox box;
    Host& host = box.host;
    EXPECT_EQ(GetParent(box->window), box->parking);
    EXPECT_FALSE(IsWindowVisible(box->parking));
    EXPECT_EQ(Query<IPersistStreamInit>(box.box)->InitNew(), S_OK);

    host.position = {10, 20, 110, 90};
    host.log.clear();
    EXPECT_EQ(box.Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_EQ(host.log, (Log{"CanInPlaceActivate", "OnInPlaceActivate", "GetWindowContext", "ShowObject"}));
    EXPECT_EQ(GetParent(box->window), host.window);
    EXPECT_TRUE(IsWindowVisible(box->window));
    EXPECT_EQ(PlaceInParent(box->window), FromRect(host.position));
    EXPECT_EQ(box->size.cx, 100);

    host.log.clear();
    EXPECT_EQ(box.Do(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(host.log, (Log{"OnUIActivate", "SetActiveObject", "SetBorderSpace", "OnFocus 1"}));
    EXPECT_EQ(GetFocus(), box->window);
    EXPECT_EQ(box.Do(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(host.log.size(), 4u) << "activated twice";

    host.log.clear();
    EXPECT_EQ(box->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(host.log, (Log{"SetActiveObject", "OnUIDeactivate", "OnFocus 0", "OnInPlaceDeactivate"}));
    EXPECT_EQ(GetParent(box->window), box->parking);
    EXPECT_EQ(GetFocus(), host.window);
    EXPECT_EQ(box->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(host.log.size(), 4u) << "deactivated twice";

    // By the mouse.
    box.Do(OLEIVERB_INPLACEACTIVATE);
    host.log.clear();
    SetFocus(box->window);
    EXPECT_EQ(host.log, (Log{"OnUIActivate", "SetActiveObject", "SetBorderSpace", "OnFocus 1"}));
    host.log.clear();
    SetFocus(host.window);
    EXPECT_EQ(host.log, Log{"OnFocus 0"});

    EXPECT_EQ(box->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(host.references, 1);
}

TEST_F(ControlInHost, FirstDefaultsRunTwiceOrWithoutWindowsOrNever) {
    Host host;
    EmptyBag empty;
    {
        auto box = MakeObject<Box>(); // new before sited
        auto persist = Query<IPersistStreamInit>(box);
        EXPECT_EQ(persist->IsDirty(), S_FALSE);
        EXPECT_EQ(persist->InitNew(), S_OK);
        EXPECT_EQ(box->news, 0);
        EXPECT_EQ(box->SetClientSite(&host), S_OK);
        EXPECT_EQ(box->news, 1);
        EXPECT_EQ(persist->InitNew(), S_OK);
        EXPECT_EQ(Query<IPersistPropertyBag>(box)->InitNew(), S_OK);
        EXPECT_EQ(box->news, 1);
        EXPECT_EQ(persist->IsDirty(), S_OK);
    }
    // Activated without a word about state: what the host sets before must stand. Then loaded.
    for (const bool loaded : {false, true}) {
        auto box = MakeObject<Box>();
        auto bag = Query<IPersistPropertyBag>(box);
        EXPECT_EQ(bag->Load(&empty, nullptr), E_UNEXPECTED);
        box->SetClientSite(&host);
        EXPECT_EQ(bag->Load(nullptr, nullptr), E_POINTER);
        if (loaded)
            EXPECT_EQ(bag->Load(&empty, nullptr), S_OK);
        EXPECT_EQ(box->news, 0);
        box->DoVerb(OLEIVERB_SHOW, nullptr, &host, 0, host.window, nullptr);
        EXPECT_EQ(box->news, 0);
        EXPECT_EQ(Query<IPersistStreamInit>(box)->IsDirty(), S_FALSE);
        box->NotifyChanged(1);
        EXPECT_EQ(bag->Save(&empty, FALSE, TRUE), S_OK);
        EXPECT_EQ(Query<IPersistStreamInit>(box)->IsDirty(), S_OK);
        EXPECT_EQ(bag->Save(&empty, TRUE, TRUE), S_OK);
        EXPECT_EQ(Query<IPersistStreamInit>(box)->IsDirty(), S_FALSE);
    }
    EXPECT_EQ(host.references, 1);
}

TEST_F(ControlInHost, SitingTwiceMakesWindowsTwiceOrKeepsTheOldSite) {
    Host second;
    SitedBox box;
    const HWND window = box->window;
    EXPECT_EQ(box->SetClientSite(&box.host), S_OK);
    box.Do(OLEIVERB_UIACTIVATE);
    EXPECT_EQ(box->SetClientSite(&second), S_OK);
    EXPECT_EQ(box.host.references, 1);
    EXPECT_EQ(box.host.log.back(), "OnInPlaceDeactivate");
    EXPECT_EQ(box->window, window);
    EXPECT_EQ(box->ambients, (std::vector<DISPID>{DISPID_UNKNOWN}));
    EXPECT_EQ(box.Do(OLEIVERB_UIACTIVATE, &second), S_OK);
    EXPECT_EQ(GetParent(window), second.window);
    EXPECT_EQ(test::Read(box, &Box::GetClientSite).Get(), static_cast<IOleClientSite*>(&second));
    box.box.Reset();
    second.active.Reset();
    EXPECT_FALSE(IsWindow(window)) << "a control let go while active keeps its window";
    EXPECT_EQ(second.references, 1);
}

TEST_F(ControlInHost, AHostThatNeverSitesTheControlCrashesItOrIsToldASuccess) {
    auto box = MakeObject<Box>();
    EXPECT_EQ(box->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr), OLEOBJ_S_CANNOT_DOVERB_NOW);
    EXPECT_EQ(box->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    HWND window = nullptr;
    EXPECT_EQ(box->GetWindow(&window), E_FAIL);
    const RECT rect{0, 0, 10, 10};
    EXPECT_EQ(box->SetObjectRects(&rect, &rect), S_OK);
    EXPECT_EQ(box->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(box->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
    EXPECT_TRUE(box->ambients.empty());
    const RECTL bounds{0, 0, 10, 10};
    const MemoryDC dc(nullptr);
    EXPECT_EQ(box->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc.Get(), &bounds, nullptr, nullptr, 0),
              OLE_E_BLANK);
    EXPECT_TRUE(box->UserMode());
    EXPECT_EQ(box->AmbientText(DISPID_AMBIENT_SCALEUNITS), L"");
    EXPECT_EQ(box->SetClientSite(nullptr), S_OK);
}

// What a host may do to the control from inside any of its own methods.
using Act = std::pair<const char*, void (*)(Host&, ComPtr<Box>&)>;
const Act kActs[] = {
    {"unsite", [](Host&, ComPtr<Box>& box) { box->SetClientSite(nullptr); }},
    {"deactivate", [](Host&, ComPtr<Box>& box) { box->InPlaceDeactivate(); }},
    {"activate",
     [](Host& host, ComPtr<Box>& box) { box->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &host, 0, host.window, nullptr); }},
    {"deactivate the UI", [](Host&, ComPtr<Box>& box) { box->UIDeactivate(); }},
    {"close", [](Host&, ComPtr<Box>& box) { box->Close(OLECLOSE_SAVEIFDIRTY); }},
    {"release",
     [](Host& host, ComPtr<Box>& box) {
         host.active.Reset();
         box.Reset();
     }},
    {"destroy the parent", [](Host& host, ComPtr<Box>&) { DestroyWindow(host.window); }},
    {"fail", [](Host& host, ComPtr<Box>&) { host.answer = E_FAIL; }},
};

TEST_F(ControlInHost, AHostThatTurnsOnTheControlInsideACallCrashesOrLeaksIt) {
    const char* const calls[] = {
        "CanInPlaceActivate",  "OnInPlaceActivate", "GetWindowContext", "ShowObject",     "OnUIActivate",
        "SetActiveObject",     "SetBorderSpace",    "OnFocus 1",        "OnUIDeactivate", "OnFocus 0",
        "OnInPlaceDeactivate", "SaveObject",        "Ambient",          "OnChanged"};
    for (const bool extended : {false, true}) {
        for (const char* during : calls) {
            for (const auto& [name, act] : kActs) {
                SCOPED_TRACE(std::string(name) + " in " + during);
                Host host;
                host.extended = extended;
                auto box = MakeObject<Box>();
                host.onCall = [&, act = act](const std::string& called) {
                    if (called == during && box) {
                        host.onCall = {};
                        act(host, box);
                    }
                };
                // A host's only reference to the control may go during the call that goes through it.
                const auto call = [&](auto&& body) {
                    if (box)
                        body(*box.Get());
                };
                const auto verb = [&](LONG number) {
                    call([&](Box& b) { b.DoVerb(number, nullptr, &host, 0, host.window, nullptr); });
                };
                call([&](Box& b) {
                    Connect(b.Identity(), IID_IPropertyNotifySink, static_cast<IPropertyNotifySink*>(&host));
                });
                call([&](Box& b) { b.SetClientSite(&host); });
                verb(OLEIVERB_INPLACEACTIVATE);
                verb(OLEIVERB_UIACTIVATE);
                call([&](Box& b) { b.NotifyChanged(1); });
                call([&](Box& b) { b.Close(OLECLOSE_SAVEIFDIRTY); });
                verb(OLEIVERB_UIACTIVATE);
                call([&](Box& b) { b.SetClientSite(nullptr); });
                call([&](Box& b) {
                    EXPECT_TRUE(!b.window || GetParent(b.window) == b.parking) << "left behind in the host";
                });
                if (box)
                    EXPECT_FALSE(host.active) << "still the active object";
                host.active.Reset(); // a host that let the control go may yet have been given it as its active object
                EXPECT_FALSE(host.onCall) << "never called";
                box.Reset();
                EXPECT_EQ(host.references, 1);
            }
        }
    }
}

TEST_F(ControlInHost, AnInterfaceThatTheHostTookBackAtOnceBecomesTheActiveObject) {
    SitedBox box;
    box.host.onCall = [&](const std::string& called) {
        if (called == "OnUIActivate")
            box->UIDeactivate();
    };
    box.Do(OLEIVERB_UIACTIVATE);
    EXPECT_FALSE(box.host.active);
    EXPECT_NE(GetFocus(), box->window);
}

TEST_F(ControlInHost, SizesAreConvertedWrongOrTheWindowDoesNotFollow) {
    Host host;
    auto box = MakeObject<Box>();
    SIZEL size{};
    EXPECT_EQ(Query<IOleObject>(box)->GetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(PixelsOf(size).cx, 240);
    EXPECT_EQ(PixelsOf(size).cy, 320);
    EXPECT_EQ(Query<IOleObject>(box)->GetExtent(DVASPECT_ICON, &size), DV_E_DVASPECT);

    // Sized before it has a window, then parked, then active.
    size = HimetricOf({77, 55});
    EXPECT_EQ(box->SetExtent(DVASPECT_CONTENT, &size), S_OK);
    box->SetClientSite(&host);
    EXPECT_EQ(box->size.cx, 77);
    size = HimetricOf({88, 66});
    box->SetExtent(DVASPECT_CONTENT, &size);
    EXPECT_EQ(box->size.cx, 88);
    EXPECT_EQ(PlaceInParent(box->window).Height(), 66);
    SIZEL wrong{-1, 5};
    EXPECT_EQ(box->SetExtent(DVASPECT_CONTENT, &wrong), E_INVALIDARG);
    SIZEL got{};
    Query<IViewObject2>(box)->GetExtent(DVASPECT_CONTENT, -1, nullptr, &got);
    EXPECT_EQ(got.cx, size.cx);

    box->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &host, 0, host.window, nullptr);
    const RECT position{5, 6, 105, 56}, clip{15, 6, 95, 30};
    EXPECT_EQ(box->SetObjectRects(&position, &clip), S_OK);
    EXPECT_EQ(PlaceInParent(box->window), FromRect(position));
    RECT cut{};
    GetWindowRgnBox(box->window, &cut);
    EXPECT_EQ(FromRect(cut), (Rect{10, 0, 90, 24}));
    EXPECT_EQ(box->SetObjectRects(&position, &position), S_OK);
    EXPECT_EQ(GetWindowRgnBox(box->window, &cut), ERROR) << "still cut off";
    box->SetClientSite(nullptr);
}

TEST_F(ControlInHost, AmbientPropertiesAreMissedOrBelievedBlindly) {
    SitedBox box;
    Host& host = box.host;
    host.ambient[DISPID_AMBIENT_USERMODE] = false;
    host.ambient[DISPID_AMBIENT_SCALEUNITS] = L"Twip";
    EXPECT_FALSE(box->UserMode());
    EXPECT_EQ(box->AmbientText(DISPID_AMBIENT_SCALEUNITS), L"Twip");
    EXPECT_FALSE(box->Ambient(DISPID_AMBIENT_FORECOLOR).has_value());
    EXPECT_EQ(box->AmbientFont(), nullptr);
    host.ambient[DISPID_AMBIENT_USERMODE] = L"neither";
    host.ambient[DISPID_AMBIENT_FONT] = 5l;
    EXPECT_TRUE(box->UserMode());
    EXPECT_EQ(box->AmbientFont(), nullptr);
    box->OnAmbientPropertyChange(DISPID_AMBIENT_FONT);
    EXPECT_EQ(box->ambients, (std::vector<DISPID>{DISPID_AMBIENT_FONT}));
}

TEST_F(ControlInHost, KeysDoNotReachTheControlOrTheHost) {
    SitedBox box;
    Host& host = box.host;
    box->keys = L"CX";
    CONTROLINFO info{};
    info.cb = sizeof info;
    ASSERT_EQ(box->GetControlInfo(&info), S_OK);
    ASSERT_EQ(info.cAccel, 2);
    MSG key{host.window, WM_SYSKEYDOWN, 'X', 0x20000001, 0, {}};
    WORD command = 0;
    BYTE state[256]{};
    state[VK_MENU] = 0x80;
    SetKeyboardState(state);
    EXPECT_TRUE(IsAccelerator(info.hAccel, info.cAccel, &key, &command));
    state[VK_MENU] = 0;
    SetKeyboardState(state);
    EXPECT_EQ(box->OnMnemonic(&key), S_OK);
    key = {host.window, WM_SYSCHAR, L'c', 0x20000001, 0, {}};
    box->OnMnemonic(&key);
    key.wParam = L'z';
    box->OnMnemonic(&key);
    EXPECT_EQ(box->pressed, L"XC");
    box->keys.clear();
    ASSERT_EQ(box->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.cAccel, 0);
    EXPECT_EQ(info.hAccel, nullptr);

    MSG down{host.window, WM_KEYDOWN, VK_DOWN, 1, 0, {}};
    host.log.clear();
    EXPECT_EQ(box->TranslateAccelerator(&down), S_OK); // the box takes it
    EXPECT_TRUE(host.log.empty());
    MSG tab{host.window, WM_KEYDOWN, VK_TAB, 1, 0, {}};
    EXPECT_EQ(box->TranslateAccelerator(&tab), S_FALSE);
    host.takesKeys = true;
    EXPECT_EQ(box->TranslateAccelerator(&tab), S_OK);
    EXPECT_EQ(host.log.size(), 2u);
}

TEST_F(ControlInHost, AChangeIsNotToldToPropertySinksOrTheView) {
    Host host;
    auto box = MakeObject<Box>();
    Connect(box->Identity(), IID_IPropertyNotifySink, static_cast<IPropertyNotifySink*>(&host));
    box->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, &host);
    EXPECT_EQ(host.log, Log{"OnViewChange"});
    host.log.clear();
    box->FreezeEvents(TRUE);
    box->NotifyChanged(42); // an event of the host's own making is held back, a change is not
    box->FreezeEvents(FALSE);
    EXPECT_EQ(host.log, (Log{"OnChanged", "OnViewChange"}));
    EXPECT_EQ(host.changed, 42);
    box->SetAdvise(DVASPECT_CONTENT, ADVF_ONLYONCE, &host);
    host.log.clear();
    box->NotifyChanged(1);
    box->NotifyChanged(1);
    EXPECT_EQ(host.log, (Log{"OnChanged", "OnViewChange", "OnChanged"}));
    DWORD cookie = 0;
    EXPECT_EQ(Query<IOleObject>(box)->Advise(&host, &cookie), S_OK);
    host.log.clear();
    box->Close(OLECLOSE_NOSAVE);
    EXPECT_EQ(host.log, Log{"OnClose"});
    EXPECT_EQ(Query<IOleObject>(box)->Unadvise(cookie), S_OK);
    box.Reset();
    EXPECT_EQ(host.references, 1);
}

TEST_F(ControlInHost, AQuickHostLosesItsSinksOrFlags) {
    Host host;
    auto box = MakeObject<Box>();
    QACONTAINER container{};
    container.cbSize = sizeof container;
    container.pClientSite = &host;
    container.pPropertyNotifySink = &host;
    container.pUnkEventSink = static_cast<IOleClientSite*>(&host); // no sink of events
    QACONTROL control{};
    EXPECT_EQ(box->QuickActivate(&container, &control), E_INVALIDARG);
    control.cbSize = sizeof control;
    EXPECT_EQ(box->QuickActivate(&container, &control), S_OK);
    EXPECT_TRUE(box->window);
    EXPECT_NE(control.dwPropNotifyCookie, 0u);
    EXPECT_EQ(control.dwEventCookie, 0u);
    DWORD status = 0;
    EXPECT_EQ(box->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ(control.dwMiscStatus, status);
    EXPECT_EQ(status, static_cast<DWORD>(OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                                         OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST));
    box->NotifyChanged(3);
    EXPECT_EQ(host.changed, 3);
    box->SetClientSite(nullptr);
}

TEST_F(ControlInHost, AHostReadsAWrongIdentityOrVerb) {
    auto box = MakeObject<Box>();
    auto object = Query<IOleObject>(box);
    EXPECT_TRUE(SameObject(object.Get(), box->Identity()));
    EXPECT_TRUE(SameObject(Query<IPersist>(box).Get(), box->Identity()));
    EXPECT_TRUE(SameObject(Query<IViewObject>(box).Get(), Query<IOleWindow>(box).Get()));
    CLSID id;
    EXPECT_EQ(Query<IPersist>(box)->GetClassID(&id), S_OK);
    EXPECT_EQ(id, __uuidof(::CListItem));
    LPOLESTR text = nullptr;
    ASSERT_EQ(object->GetUserType(USERCLASSTYPE_SHORT, &text), S_OK);
    EXPECT_STREQ(text, L"CListItem");
    CoTaskMemFree(text);
    ComPtr<IEnumOLEVERB> verbs;
    ASSERT_EQ(object->EnumVerbs(verbs.GetAddressOf()), S_OK);
    OLEVERB verb{};
    int count = 0;
    for (; verbs->Next(1, &verb, nullptr) == S_OK; ++count) {
        EXPECT_NE(object->DoVerb(verb.lVerb, nullptr, nullptr, 0, nullptr, nullptr), E_NOTIMPL) << verb.lVerb;
        CoTaskMemFree(verb.lpszVerbName);
    }
    EXPECT_GT(count, 0);
    EXPECT_EQ(object->DoVerb(OLEIVERB_PROPERTIES, nullptr, nullptr, 0, nullptr, nullptr), E_NOTIMPL);

    // Nothing is promised of untrusted callers.
    auto safety = Query<IObjectSafety>(box);
    DWORD supported = 1, enabled = 1;
    EXPECT_EQ(safety->GetInterfaceSafetyOptions(IID_IDispatch, &supported, &enabled), S_OK);
    EXPECT_EQ(supported | enabled, 0u);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IDispatch, 1, 1), E_FAIL);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IDispatch, 1, 0), S_OK);
    EXPECT_EQ(safety->GetInterfaceSafetyOptions(IID_IPersistFile, &supported, &enabled), E_NOINTERFACE);
}

} // namespace
} // namespace ormisk
