#include "AtlContainer.h"
#include "EventSink.h"

namespace ormisk::test {
namespace {

using Names = std::vector<std::wstring>;

// The colour that a window shows at a point.
COLORREF ColorAt(HWND window, int x, int y) {
    PumpMessages();
    UpdateWindow(window);
    const HDC dc = GetDC(window);
    const COLORREF color = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return color;
}

TEST_F(GridInContainer, RowsAddedByNameAreOnScreen) {
    AtlContainer host;
    host.MakePlain();
    host.AddRow(L"Red", L"");
    host.properties.Object(L"Item", {1L}).Put(L"BackColor", 0x0000FFL);
    EXPECT_EQ(ColorAt(host.Tree(), 100, 5), RGB(255, 0, 0));
    host.grid.Put(L"PropertyBackColor", 0xFF0000L);
    EXPECT_EQ(ColorAt(host.Tree(), 100, 150), RGB(0, 0, 255));
    EXPECT_EQ(static_cast<long>(host.properties.Get(L"Count")), 1);
}

TEST_F(GridInContainer, GridFollowsTheSizeOfItsContainer) {
    AtlContainer host;
    for (const SIZE size : {SIZE{400, 200}, SIZE{0, 0}, SIZE{30, 700}, SIZE{300, 300}}) {
        SetWindowPos(host.Window(), nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
        PumpMessages();
        RECT client;
        GetClientRect(host.GridWindow(), &client);
        EXPECT_EQ(client.right, size.cx);
        EXPECT_EQ(client.bottom, size.cy);
    }
}

TEST_F(GridInContainer, EditIsCommittedWithItsEventsInOrder) {
    AtlContainer host;
    host.AddRow(L"A", L"one");
    host.AddRow(L"B", L"two");
    const LateBound first = host.properties.Object(L"Item", {1L});
    const auto sink = EventSink::Connect(host.grid.Dispatch());
    host.grid.Call(L"StartPropertyEdit", {_variant_t(first.Dispatch())});
    PumpMessages();
    const HWND edit = VisibleEdit(host.Window());
    ASSERT_NE(edit, nullptr);
    for (const wchar_t typed : {L'n', L'e', L'w'})
        SendMessageW(edit, WM_CHAR, static_cast<WPARAM>(typed), 1);
    EXPECT_EQ(sink->names, (Names{L"SelChanged", L"KeyPress", L"KeyPress", L"KeyPress"}));
    sink->names.clear();
    SendMessageW(edit, WM_CHAR, VK_RETURN, 1);
    EXPECT_EQ(sink->names, (Names{L"KeyPress", L"ValidateValue", L"PropertyValueChanged"}));
    EXPECT_EQ(first.Get(L"Value"), _variant_t(L"new"));
    sink->names.clear();
    host.grid.PutRef(L"SelectedProperty", LateBound());
    EXPECT_EQ(sink->names, Names{L"SelChanged"});
    EXPECT_EQ(VisibleEdit(host.Window()), nullptr);
    sink->Disconnect();
}

TEST_F(GridInContainer, RefusalsReachALateBoundCaller) {
    AtlContainer host;
    host.properties.Call(L"Add", {L"A", 1L, L"", L"key"});
    const Outcome taken = host.properties.Try(L"Add", DISPATCH_METHOD, {L"B", 1L, L"", L"KEY"});
    EXPECT_EQ(taken.number, static_cast<HRESULT>(0x80040005));
    EXPECT_EQ(taken.source, L"CProperties.Add");
    EXPECT_EQ(taken.description, L"Property with this key is already present.");
    const Outcome separator = host.grid.Try(L"CategorySeparator", DISPATCH_PROPERTYPUT, {L" "});
    EXPECT_EQ(separator.number, static_cast<HRESULT>(0x80040002));
    EXPECT_EQ(separator.description, L"CategorySeparator : Invalid property value.");
    EXPECT_EQ(host.grid.Get(L"CategorySeparator"), _variant_t(L"|"));
    EXPECT_FALSE(host.grid.Try(L"BackColor", DISPATCH_PROPERTYPUT, {L"red"}).Succeeded());
    EXPECT_FALSE(host.grid.Try(L"NoSuchMember", DISPATCH_METHOD).Succeeded());
    EXPECT_EQ(host.properties.Try(L"Add", DISPATCH_METHOD).result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(static_cast<long>(host.properties.Get(L"Count")), 1);
}

TEST_F(GridInContainer, RowsOfAnotherGridAreRefused) {
    AtlContainer one;
    AtlContainer other;
    one.AddRow(L"A", L"x");
    other.AddRow(L"A", L"x");
    const LateBound alien = other.properties.Object(L"Item", {1L});
    for (const Outcome& outcome :
         {one.grid.Try(L"SelectedProperty", DISPATCH_PROPERTYPUTREF, {_variant_t(alien.Dispatch())}),
          one.grid.Try(L"StartPropertyEdit", DISPATCH_METHOD, {_variant_t(alien.Dispatch())})}) {
        EXPECT_EQ(outcome.number, static_cast<HRESULT>(0x8004000D));
        EXPECT_EQ(outcome.description, L"Alien property object.");
        EXPECT_EQ(outcome.source, L"OrmiskGrid");
    }
    EXPECT_FALSE(one.grid.Object(L"SelectedProperty"));
    EXPECT_FALSE(other.grid.Object(L"SelectedProperty"));
}

TEST_F(GridInContainer, TwoGridsKeepApart) {
    AtlContainer one;
    AtlContainer other;
    one.AddRow(L"A", L"one");
    other.AddRow(L"A", L"other");
    one.grid.Put(L"ActiveView", 1L);
    one.grid.Call(L"StartPropertyEdit", {_variant_t(one.properties.Object(L"Item", {1L}).Dispatch())});
    other.grid.Call(L"StartPropertyEdit", {_variant_t(other.properties.Object(L"Item", {1L}).Dispatch())});
    PumpMessages();
    const HWND edits[] = {VisibleEdit(one.Window()), VisibleEdit(other.Window())};
    ASSERT_TRUE(edits[0] && edits[1] && edits[0] != edits[1]);
    SendMessageW(edits[0], WM_CHAR, 'x', 1);
    SendMessageW(edits[0], WM_CHAR, VK_RETURN, 1);
    EXPECT_EQ(other.properties.Object(L"Item", {1L}).Get(L"Value"), _variant_t(L"other"));
    EXPECT_NE(one.properties.Object(L"Item", {1L}).Get(L"Value"), _variant_t(L"one"));
    EXPECT_EQ(static_cast<long>(other.grid.Get(L"ActiveView")), 0);
    one.Destroy();
    SendMessageW(edits[1], WM_CHAR, 'y', 1);
    SendMessageW(edits[1], WM_CHAR, VK_RETURN, 1);
    EXPECT_NE(other.properties.Object(L"Item", {1L}).Get(L"Value"), _variant_t(L"other"));
}

} // namespace
} // namespace ormisk::test
