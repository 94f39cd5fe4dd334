#include "AtlContainer.h"
#include "EventSink.h"

#include <functional>
#include <memory>

// The control ends, or never begins, in ways that no good host has.

namespace ormisk::test {
namespace {

CLSID ClassId() {
    CLSID id = {};
    EXPECT_EQ(CLSIDFromProgID(kProgId, &id), S_OK);
    return id;
}

ComPtr<IUnknown> CreateAlone() {
    ComPtr<IUnknown> control;
    EXPECT_EQ(CoCreateInstance(ClassId(), nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&control)), S_OK);
    return control;
}

TEST_F(GridInContainer, NeverSitedControlAnswers) {
    const ComPtr<IUnknown> bare = CreateAlone();
    UseEverything(LateBound(bare.Get()));
    const ComPtr<IUnknown> begun = CreateAlone();
    ComPtr<IPersistStreamInit> state;
    ASSERT_EQ(begun.As(&state), S_OK);
    EXPECT_EQ(state->InitNew(), S_OK);
    UseEverything(LateBound(begun.Get()));
    state->InitNew();
    EXPECT_EQ(LateBound(begun.Get()).Get(L"DefaultCategory"), _variant_t(L"Misc"));
}

TEST_F(GridInContainer, ControlOutlivesItsContainer) {
    AtlContainer host;
    host.AddRow(L"A", L"one", L"Cat");
    const LateBound row = host.properties.Object(L"Item", {1L});
    const LateBound entries = row.Object(L"ListItems");
    host.grid.Call(L"StartPropertyEdit", {_variant_t(row.Dispatch())});
    host.Destroy();
    UseEverything(host.grid);
    row.Put(L"Value", L"after");
    row.Put(L"Visible", false);
    row.Get(L"BackColor");
    row.Try(L"FormattedText", DISPATCH_PROPERTYGET);
    entries.Call(L"Add", {L"text", 1L});
    EXPECT_EQ(row.Get(L"Value"), _variant_t(L"after"));
}

TEST_F(GridInContainer, RowsOutliveTheirGrid) {
    LateBound row;
    LateBound properties;
    {
        AtlContainer host;
        host.AddRow(L"A", L"one", L"Cat");
        row = host.properties.Object(L"Item", {1L});
        properties = host.properties;
    }
    EXPECT_EQ(row.Get(L"Name"), _variant_t(L"A"));
    row.Put(L"Value", L"after");
    row.Put(L"ForeColor", 5L);
    EXPECT_EQ(row.Get(L"Value"), _variant_t(L"after"));
    properties.Try(L"Add", DISPATCH_METHOD, {L"B"});
    properties.Try(L"Clear", DISPATCH_METHOD);
}

TEST_F(GridInContainer, ContainerAloneKeepsTheControl) {
    AtlContainer host;
    host.AddRow(L"A", L"one");
    const HWND window = host.GridWindow();
    host.Release();
    PumpMessages();
    EXPECT_TRUE(IsWindow(window));
    EXPECT_TRUE(IsWindowVisible(window));
    SendMessageW(window, WM_SETFOCUS, 0, 0);
    host.Destroy();
    EXPECT_FALSE(IsWindow(window));
}

// What brings an event about while a handler of it ends the control.
struct Occasion {
    const wchar_t* event;
    std::function<void(const AtlContainer&)> bring;
};

const std::vector<Occasion>& Occasions() {
    static const std::vector<Occasion> occasions = {
        {L"PropertyAdded",
         [](const AtlContainer& host) {
             host.properties.Try(L"Add", DISPATCH_METHOD, {L"New", 1L, L"X|Y"});
         }},
        {L"PropertyDeleted", [](const AtlContainer& host) { host.properties.Try(L"Remove", DISPATCH_METHOD, {1L}); }},
        {L"PropertyValueChanged",
         [](const AtlContainer& host) {
             host.properties.Object(L"Item", {1L}).Try(L"Value", DISPATCH_PROPERTYPUT, {L"new"});
         }},
        {L"SelChanged",
         [](const AtlContainer& host) {
             host.grid.Try(L"SelectedProperty", DISPATCH_PROPERTYPUTREF, {host.properties.Get(L"Item", {2L})});
         }},
        {L"ActiveViewChanged",
         [](const AtlContainer& host) { host.grid.Try(L"ActiveView", DISPATCH_PROPERTYPUT, {0L}); }},
        {L"CategoryCollapsing",
         [](const AtlContainer& host) {
             host.grid.Try(L"ExpandCategory", DISPATCH_METHOD, {L"Cat", false});
         }},
        {L"ValidateValue",
         [](const AtlContainer& host) {
             if (const HWND edit = VisibleEdit(host.Window())) {
                 SendMessageW(edit, WM_CHAR, 'x', 1);
                 SendMessageW(edit, WM_CHAR, VK_RETURN, 1);
             }
         }},
        {L"KeyPress",
         [](const AtlContainer& host) {
             if (const HWND edit = VisibleEdit(host.Window()))
                 SendMessageW(edit, WM_CHAR, 'x', 1);
         }},
        {L"KeyDown", [](const AtlContainer& host) { SendMessageW(host.Tree(), WM_KEYDOWN, VK_DOWN, 1); }},
        {L"MouseDown",
         [](const AtlContainer& host) { SendMessageW(host.Tree(), WM_LBUTTONDOWN, 1, MAKELPARAM(50, 200)); }},
        {L"PropertyDraw",
         [](const AtlContainer& host) {
             host.properties.Object(L"Item", {1L}).Put(L"CustomDraw", true);
             UpdateWindow(host.Tree());
         }},
    };
    return occasions;
}

void FillForEdit(const AtlContainer& host) {
    host.MakePlain();
    host.grid.Put(L"ActiveView", 1L);
    host.AddRow(L"A", L"one", L"Cat");
    host.AddRow(L"B", L"two", L"Cat");
    host.grid.Call(L"StartPropertyEdit", {host.properties.Get(L"Item", {1L})});
    PumpMessages();
}

TEST_F(GridInContainer, ContainerMayGoInTheMiddleOfAnyEvent) {
    for (const Occasion& occasion : Occasions()) {
        AtlContainer host;
        FillForEdit(host);
        bool ended = false;
        const auto sink = EventSink::Connect(host.grid.Dispatch());
        sink->onEvent = [&](const std::wstring& name, const DISPPARAMS&) {
            if (name == occasion.event && !ended) {
                ended = true;
                host.Destroy();
            }
        };
        occasion.bring(host);
        PumpMessages();
        EXPECT_TRUE(ended) << occasion.event;
        sink->Disconnect();
    }
}

TEST_F(GridInContainer, LastReferenceMayGoInTheMiddleOfAnyEvent) {
    for (const Occasion& occasion : Occasions()) {
        AtlContainer host;
        FillForEdit(host);
        bool ended = false;
        const auto sink = EventSink::Connect(host.grid.Dispatch());
        // The caller's own objects: what is called is held by nobody else.
        AtlContainer* caller = &host;
        sink->onEvent = [&](const std::wstring& name, const DISPPARAMS&) {
            if (name == occasion.event && !ended) {
                ended = true;
                sink->Disconnect();
                caller->Destroy();
                caller->Release();
            }
        };
        occasion.bring(host);
        PumpMessages();
        EXPECT_TRUE(ended) << occasion.event;
    }
}

void MoveThereAndBack() {
    AtlContainer first;
    AtlContainer second;
    first.AddRow(L"A", L"one");
    ComPtr<IOleObject> moved;
    ComPtr<IOleObject> other;
    ASSERT_EQ(first.grid.Dispatch()->QueryInterface(IID_PPV_ARGS(&moved)), S_OK);
    ASSERT_EQ(second.grid.Dispatch()->QueryInterface(IID_PPV_ARGS(&other)), S_OK);
    ComPtr<IOleClientSite> home;
    ComPtr<IOleClientSite> site;
    ASSERT_EQ(moved->GetClientSite(&home), S_OK);
    ASSERT_EQ(other->GetClientSite(&site), S_OK);
    const RECT place = {0, 0, 200, 200};
    moved->SetClientSite(site.Get());
    moved->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site.Get(), 0, second.Window(), &place);
    PumpMessages();
    EXPECT_EQ(GetParent(first.GridWindow()), second.Window());
    first.AddRow(L"B", L"two");
    EXPECT_EQ(static_cast<long>(first.properties.Get(L"Count")), 2);
    moved->SetClientSite(nullptr);
    UseEverything(first.grid);
    moved->SetClientSite(home.Get());
    moved->DoVerb(OLEIVERB_UIACTIVATE, nullptr, home.Get(), 0, first.Window(), &place);
    PumpMessages();
    UseEverything(first.grid);
}

TEST_F(GridInContainer, ControlMovesToAnotherSiteAndBack) {
    MoveThereAndBack();
    CountAnew(); // a first move makes the system keep handles
    MoveThereAndBack();
}

TEST_F(GridInContainer, DeactivatedAndClosedControlAnswers) {
    AtlContainer host;
    FillForEdit(host);
    ComPtr<IOleObject> object;
    ComPtr<IOleInPlaceObject> place;
    ASSERT_EQ(host.grid.Dispatch()->QueryInterface(IID_PPV_ARGS(&object)), S_OK);
    ASSERT_EQ(object.As(&place), S_OK);
    EXPECT_EQ(place->UIDeactivate(), S_OK);
    EXPECT_EQ(place->InPlaceDeactivate(), S_OK);
    UseEverything(host.grid);
    EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
    UseEverything(host.grid);
    object->SetClientSite(nullptr);
    UseEverything(host.grid);
    object->Close(OLECLOSE_NOSAVE);
}

} // namespace
} // namespace ormisk::test
