#include "AtlContainer.h"

// What the control is to a container that is not ours, good or odd.

namespace ormisk::test {
namespace {

TEST_F(GridInContainer, RowsAreNotOnScreenOrDoNotFollowTheContainersSize) {
    AtlContainer host;
    for (const wchar_t* name : {L"ShowTabs", L"ShowDescription", L"Headers", L"Appearance", L"Grid"})
        host.grid.Put(name, 0L);
    host.properties.Object(L"Add", {L"Red"}).Put(L"BackColor", 0x0000FFL);
    PumpMessages();
    const HWND tree = host.Tree();
    UpdateWindow(tree);
    const HDC dc = GetDC(tree);
    EXPECT_EQ(GetPixel(dc, 100, 5), RGB(255, 0, 0));
    ReleaseDC(tree, dc);
    for (const SIZE size : {SIZE{400, 200}, SIZE{0, 0}, SIZE{30, 700}}) {
        SetWindowPos(host.Window(), nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
        PumpMessages();
        RECT client;
        GetClientRect(host.GridWindow(), &client);
        EXPECT_EQ(client.right, size.cx);
        EXPECT_EQ(client.bottom, size.cy);
    }
}

TEST_F(GridInContainer, TwoGridsMixTheirEditsOrOneTakesTheOthersAlong) {
    AtlContainer one;
    AtlContainer other;
    one.FillForEdit();
    other.FillForEdit();
    const auto type = [](HWND edit, wchar_t key) {
        SendMessageW(edit, WM_CHAR, key, 1);
        SendMessageW(edit, WM_CHAR, VK_RETURN, 1);
    };
    const auto values = [&] {
        return std::pair(std::wstring(_bstr_t(one.properties.Object(L"Item", {1L}).Get(L"Value"))),
                         std::wstring(_bstr_t(other.properties.Object(L"Item", {1L}).Get(L"Value"))));
    };
    const HWND edits[] = {VisibleEdit(one.Window()), VisibleEdit(other.Window())};
    ASSERT_TRUE(edits[0] && edits[1] && edits[0] != edits[1]);
    type(edits[0], L'x');
    EXPECT_EQ(values(), std::pair(std::wstring(L"x"), std::wstring(L"one")));
    one.Destroy();
    type(edits[1], L'y');
    EXPECT_EQ(std::wstring(_bstr_t(other.properties.Object(L"Item", {1L}).Get(L"Value"))), L"y");
}

TEST_F(GridInContainer, ANeverSitedControlDoesNotAnswer) {
    for (const bool begun : {false, true}) {
        const ComPtr<IUnknown> control = CreateAlone();
        ComPtr<IPersistStreamInit> state;
        ASSERT_EQ(control.As(&state), S_OK);
        if (begun) {
            EXPECT_EQ(state->InitNew(), S_OK);
        }
        UseEverything(LateBound(control.Get()));
        EXPECT_EQ(state->InitNew(), S_OK);
    }
}

TEST_F(GridInContainer, ALostContainerTakesWhatTheHostStillHolds) {
    AtlContainer host;
    host.FillForEdit();
    const LateBound row = host.properties.Object(L"Item", {1L});
    const LateBound entries = row.Object(L"ListItems");
    host.Destroy();
    UseEverything(host.grid);
    host.Release();
    row.Put(L"Value", L"after");
    row.Put(L"Visible", false);
    row.Get(L"BackColor");
    entries.Call(L"Add", {L"text", 1L});
    EXPECT_EQ(row.Get(L"Value"), _variant_t(L"after"));
}

TEST_F(GridInContainer, TheControlNeedsMoreThanItsContainerToLive) {
    AtlContainer host;
    host.FillForEdit();
    const HWND window = host.GridWindow();
    host.Release();
    PumpMessages();
    EXPECT_TRUE(IsWindowVisible(window));
    SendMessageW(window, WM_SETFOCUS, 0, 0);
    host.Destroy();
    EXPECT_FALSE(IsWindow(window));
}

void MoveThereAndBack() {
    AtlContainer first;
    AtlContainer second;
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
    first.FillForEdit();
    EXPECT_EQ(static_cast<long>(first.properties.Get(L"Count")), 2);
    moved->SetClientSite(nullptr);
    UseEverything(first.grid);
    moved->SetClientSite(home.Get());
    moved->DoVerb(OLEIVERB_UIACTIVATE, nullptr, home.Get(), 0, first.Window(), &place);
    PumpMessages();
    UseEverything(first.grid);
}

TEST_F(GridInContainer, AControlThatMovesToAnotherSiteAndBackIsLost) {
    MoveThereAndBack();
    CountAnew(); // a first move makes the system keep handles
    MoveThereAndBack();
}

TEST_F(GridInContainer, ADeactivatedOrClosedControlDoesNotAnswer) {
    AtlContainer host;
    host.FillForEdit();
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
