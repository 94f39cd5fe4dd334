// List and Boolean rows: choosing by keys and mouse, what is stored, and lists that are odd or vanish meanwhile.

#include "DialogTools.h"

#include "editors/CListEditor.h"
#include "listbox/OrmiskListBox.h"
#include "platform/FontDescription.h"

#include <cwchar>

namespace ormisk::test {
namespace {

using Entries = std::vector<std::pair<const wchar_t*, _variant_t>>;

ComPtr<_CListItem> Entry(_CProperty* property, long position) {
    ComPtr<_CListItems> items;
    property->get_ListItems(items.GetAddressOf());
    ComPtr<_CListItem> item;
    items->get_Item(position, item.GetAddressOf());
    return item;
}

ComPtr<_CProperty> AddList(GridContainer& host, const wchar_t* name, const _variant_t& value, const Entries& entries) {
    auto property = host.Add(name, value, L"", omListEditor);
    ComPtr<_CListItems> items;
    property->get_ListItems(items.GetAddressOf());
    for (const auto& [text, entry] : entries) {
        ComPtr<_CListItem> item;
        EXPECT_EQ(items->Add(_bstr_t(text), entry, item.GetAddressOf()), S_OK);
    }
    return property;
}

VARTYPE TypeOf(const VARIANT& value) { return V_VT(&value); }

const Entries kColors{{L"Red", 1L}, {L"Green", 2L}, {L"Blue", 3L}};

// The windows of the list editor.
HWND Box(const GridContainer& host) { return FindWindowExW(host.Tree(), nullptr, L"ComboBox", nullptr); }
HWND ListOf(HWND box) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    GetComboBoxInfo(box, &parts);
    return parts.hwndList;
}
bool IsOpen(const GridContainer& host) { return IsWindowVisible(ListOf(Box(host))); }
std::wstring Shown(const GridContainer& host) {
    wchar_t text[200] = L"";
    const bool visible = GetWindowLongPtrW(Box(host), GWL_STYLE) & WS_VISIBLE;
    return visible && GetWindowTextW(Box(host), text, 200) > 0 ? text : L"";
}
long EntryCount(const GridContainer& host) { return static_cast<long>(SendMessageW(Box(host), CB_GETCOUNT, 0, 0)); }
RECT ScreenPlace(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}
void ClickEntry(GridContainer& host, long entry) {
    RECT place{};
    SendMessageW(ListOf(Box(host)), LB_GETITEMRECT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(&place));
    host.MouseTo(ListOf(Box(host)), place.left + 8, place.top + 4);
    host.RealClick(ListOf(Box(host)), place.left + 8, place.top + 4);
}

// The ways to the second entry of the first row, which has the first one.
const std::pair<const char*, void (*)(GridContainer&)> kChoices[] = {
    {"ENTER", [](GridContainer& host) { host.RealKeys({VK_F4, VK_DOWN, VK_RETURN}); }},
    {"an arrow", [](GridContainer& host) { SetFocus(Box(host)), host.RealKeys({VK_DOWN}); }},
    {"a click", [](GridContainer& host) { host.RealKeys({VK_F4}), ClickEntry(host, 1); }},
    {"a closed list", [](GridContainer& host) { host.RealKeys({VK_F4, VK_DOWN, VK_F4}); }},
    {"a double click", [](GridContainer& host) { host.RealClick(host.Tree(), 30, host.RowTop(0) + 6, 2); }},
};

TEST_F(GridTest, KeysInAListChooseTooEarlyOrNotAtAll) {
    GridContainer host;
    const auto row = AddList(host, L"A", 1L, kColors);
    host.Add(L"B", L"text");
    // The mouse rests where the list will be, and that says nothing.
    host.MouseTo(host.Tree(), host.Divider() + 20, host.RowTop(1) + 6);
    GoTo(host, row.Get());
    EXPECT_EQ(Shown(host), L"Red");
    // In the open list keys only move.
    host.RealKeys({VK_F4, VK_DOWN, VK_DOWN});
    EXPECT_TRUE(IsOpen(host));
    EXPECT_EQ(GetFocus(), Box(host));
    EXPECT_EQ(host.Heard(), L"");
    host.RealKeys({VK_ESCAPE});
    EXPECT_FALSE(IsOpen(host));
    EXPECT_EQ(Shown(host), L"Red");
    EXPECT_EQ(host.Heard(), L"");
    EXPECT_EQ(GetFocus(), host.Tree());
    host.RealKeys({VK_DOWN}, VK_MENU);
    host.RealKeys({'B', VK_UP, VK_RETURN});
    EXPECT_EQ(host.Heard(), L"ValidateValue A 2 False; PropertyValueChanged A");
    EXPECT_EQ(TypeOf(ValueOf(row.Get())), VT_I4) << "the value, not the text";
    EXPECT_EQ(GetFocus(), host.Tree());
    EXPECT_EQ(Shown(host), L"Green") << "the editor stays";
    // A key typed on the row chooses at once, and so do the arrows of the closed list.
    host.RealKeys({'B'});
    EXPECT_EQ(host.Heard(), L"ValidateValue A 3 False; PropertyValueChanged A");
    host.RealKeys({VK_UP, VK_HOME, VK_HOME});
    EXPECT_EQ(host.Heard(), L"ValidateValue A 2 False; PropertyValueChanged A; "
                            L"ValidateValue A 1 False; PropertyValueChanged A");
    // F4 closes as it opens, and takes what is highlighted.
    host.RealKeys({VK_F4, VK_END, VK_F4});
    EXPECT_EQ(host.Heard(), L"ValidateValue A 3 False; PropertyValueChanged A");
    host.RealKeys({VK_ESCAPE, VK_DOWN});
    EXPECT_EQ(host.Heard(), L"SelChanged B") << "after ESC the arrows are the rows' again";
    EXPECT_EQ(Shown(host), L"");
}

TEST_F(GridTest, TheMouseInAListMissesAnEntryOrTakesOneFromOutside) {
    GridContainer host;
    const auto row = AddList(host, L"A", 1L, kColors);
    GoTo(host, row.Get());
    host.RealClick(Box(host), 30, 5);
    EXPECT_TRUE(IsOpen(host));
    ClickEntry(host, 2);
    EXPECT_FALSE(IsOpen(host));
    EXPECT_EQ(host.Heard(), L"ValidateValue A 3 False; PropertyValueChanged A");
    EXPECT_EQ(Shown(host), L"Blue");
    host.RealClick(Box(host), 30, 5);
    host.RealKeys({VK_UP});
    host.RealClick(host.Tree(), 30, 200);
    EXPECT_FALSE(IsOpen(host));
    EXPECT_EQ(Shown(host), L"Blue");
    EXPECT_EQ(host.Heard(), L"");
    host.RealClick(host.Tree(), 30, host.RowTop(0) + 6, 2);
    EXPECT_EQ(host.Heard(), L"ValidateValue A 1 False; PropertyValueChanged A") << "a double click goes round";
}

TEST_F(GridTest, TheWheelChangesAListThatItShouldScrollPast) {
    GridContainer host;
    const auto row = AddList(host, L"A", 1L, kColors);
    for (int i = 0; i < 40; ++i)
        host.Add(L"B" + std::to_wstring(i));
    GoTo(host, row.Get());
    const auto wheelOver = [&](HWND target, long y, int amount) {
        host.MouseTo(target, 30, y);
        const POINT at{ScreenPlace(target).left + 30, ScreenPlace(target).top + y};
        SendMessageW(Box(host), WM_MOUSEWHEEL, MAKEWPARAM(0, amount), MAKELPARAM(at.x, at.y));
    };
    const auto top = [&] { return GetScrollPos(host.ScrollBarWindow(), SB_CTL); };
    wheelOver(Box(host), 5, -WHEEL_DELTA);
    EXPECT_EQ(top(), 1) << "without the focus the rows scroll";
    wheelOver(host.Tree(), 150, WHEEL_DELTA);
    EXPECT_EQ(top(), 0);
    EXPECT_EQ(host.Heard(), L"");
    SetFocus(Box(host));
    wheelOver(Box(host), 5, -WHEEL_DELTA);
    EXPECT_EQ(host.Heard(), L"ValidateValue A 2 False; PropertyValueChanged A");
    wheelOver(host.Tree(), 150, -WHEEL_DELTA);
    EXPECT_EQ(top(), 1) << "nor beside the list that has the focus";
    EXPECT_EQ(host.Heard(), L"");
}

TEST_F(GridTest, ABooleanRowStoresItsLabelOrSharesThoseOfAnother) {
    GridContainer host;
    const auto plain = host.Add(L"A", _variant_t(true), L"", omBooleanEditor);
    const auto named = host.Add(L"B", _variant_t(false), L"", omBooleanEditor);
    named->SetEditorParam(_bstr_t(L"True"), _bstr_t(L"Yes"));
    named->SetEditorParam(_bstr_t(L"False"), _bstr_t(L"No"));
    const auto odd = host.Add(L"C", _variant_t(7L), L"", omBooleanEditor);
    GoTo(host, plain.Get());
    EXPECT_EQ(Shown(host), L"True");
    host.RealKeys({'F', VK_ESCAPE});
    GoTo(host, named.Get());
    EXPECT_EQ(Shown(host), L"No");
    host.Heard();
    host.RealClick(host.Tree(), 30, host.RowTop(1) + 6, 2);
    EXPECT_EQ(host.Heard(), L"ValidateValue B True False; PropertyValueChanged B");
    EXPECT_EQ(Shown(host), L"Yes");
    for (const auto& [property, value] : {std::pair{plain, false}, std::pair{named, true}})
        EXPECT_EQ(ValueOf(property.Get()), _variant_t(value));
    GoTo(host, odd.Get());
    EXPECT_EQ(Shown(host), L"7") << "a value outside stands first";
    EXPECT_EQ(EntryCount(host), 3);
    host.RealKeys({VK_F4, VK_DOWN, VK_RETURN});
    EXPECT_EQ(ValueOf(odd.Get()), _variant_t(true)) << "True comes before False";
    GoTo(host, plain.Get());
    EXPECT_EQ(EntryCount(host), 2);
}

TEST_F(GridTest, OddValuesOfEntriesAreLostOrTakenForEachOther) {
    GridContainer host;
    const auto objectA = host.Add(L"X");
    const auto objectB = host.Add(L"Y");
    const _variant_t array = Array();
    const _variant_t null = Null();
    const auto row = AddList(
        host, L"A", L"elsewhere",
        {{L"first", 1L}, {L"second", 2L}, {L"list", array}, {L"nothing", null}, {L"one", 1L}, {L"x", 5L}, {L"y", 6L}});
    Entry(row.Get(), 2)->put_Text(_bstr_t(L"FIRST"));
    Entry(row.Get(), 6)->put_Value(_variant_t(static_cast<IDispatch*>(objectA.Get())));
    Entry(row.Get(), 7)->put_Value(_variant_t(static_cast<IDispatch*>(objectB.Get())));
    host.events.quiet.insert({L"SelChanged", L"ValidateValue"});
    GoTo(host, row.Get());
    EXPECT_EQ(Shown(host), L"elsewhere");
    EXPECT_EQ(EntryCount(host), 8);
    const auto choose = [&](WORD steps) {
        host.RealKeys({VK_F4, VK_HOME});
        for (WORD i = 0; i < steps; ++i)
            host.RealKeys({VK_DOWN});
        host.RealKeys({VK_RETURN});
        return ValueOf(row.Get());
    };
    EXPECT_EQ(choose(1), _variant_t(1L));
    EXPECT_EQ(choose(2), _variant_t(2L)) << "the same text in another case";
    EXPECT_EQ(choose(5), _variant_t(1L));
    EXPECT_EQ(Shown(host), L"first") << "of equal values the first is shown";
    EXPECT_EQ(V_DISPATCH(&static_cast<const VARIANT&>(choose(7))), static_cast<IDispatch*>(objectB.Get()));
    EXPECT_EQ(Shown(host), L"y");
    EXPECT_EQ(V_DISPATCH(&static_cast<const VARIANT&>(choose(6))), static_cast<IDispatch*>(objectA.Get()));
    EXPECT_EQ(Shown(host), L"x");
    EXPECT_EQ(TypeOf(choose(3)), VT_ARRAY | VT_I4);
    host.Add(L"Z");
    host.Select(host.Item(4L).Get());
    GoTo(host, row.Get());
    EXPECT_EQ(EntryCount(host), 8) << "an array equals no entry, and stands before them";
    EXPECT_EQ(TypeOf(choose(4)), VT_ARRAY | VT_I4) << "Null replaces nothing";
    const auto nothing = AddList(host, L"N", null, {{L"nothing", null}, {L"one", 1L}});
    GoTo(host, nothing.Get());
    host.RealKeys({VK_F4, VK_ESCAPE, VK_F4, VK_ESCAPE});
    EXPECT_EQ(EntryCount(host), 3) << "Null equals no entry, and is shown by one however often it is loaded";
    host.RealKeys({VK_F4, VK_END, VK_RETURN});
    EXPECT_EQ(ValueOf(nothing.Get()), _variant_t(1L));
    // Nothing to choose from.
    const auto empty = AddList(host, L"E", _variant_t(), {});
    host.Heard();
    GoTo(host, empty.Get());
    EXPECT_EQ(EntryCount(host), 1);
    host.RealKeys({VK_F4, VK_DOWN, 'A', VK_RETURN});
    host.RealClick(host.Tree(), 30, host.RowTop(1) + 6, 2);
    EXPECT_EQ(host.Heard(), L"") << "the only entry is the present value";
    // A load of other rows lets go of what the list shows.
    empty->putref_Value(_variant_t(static_cast<IDispatch*>(objectB.Get())));
    GoTo(host, empty.Get());
    VARIANT_BOOL result = VARIANT_FALSE;
    host->LoadObjectProperties(NewFont(L"Tahoma", 80000).Get(), VARIANT_TRUE, VARIANT_FALSE, &result);
    objectB.Get()->AddRef();
    EXPECT_EQ(objectB.Get()->Release(), 3U) << "but for this test, an entry and a value that it holds";
}

TEST_F(GridTest, ARefusedChoiceIsStoredOrForgottenAtOnce) {
    GridContainer host;
    const auto row = AddList(host, L"A", 1L, kColors);
    GoTo(host, row.Get());
    host.events.on[L"ValidateValue"] = [](const EventCall& call) { call.Set(2, true); };
    host.RealKeys({'G'});
    EXPECT_EQ(Shown(host), L"Green") << "the refused entry stays until the value is loaded again";
    EXPECT_EQ(ValueOf(row.Get()), _variant_t(1L));
    host.Heard();
    host.RealKeys({VK_ESCAPE});
    EXPECT_EQ(Shown(host), L"Red");
    EXPECT_EQ(host.Heard(), L"");
    // A handler that raises is reported, and ends the edit.
    host.events.on[L"ValidateValue"] = [&](const EventCall&) { host.events.answer = DISP_E_EXCEPTION; };
    host.RealKeys({VK_F4, VK_DOWN, VK_RETURN});
    EXPECT_EQ(host.Heard(), L"ValidateValue A 2 False; DisplayError The handler raised. -2146827288 True");
    EXPECT_EQ(Shown(host), L"");
    EXPECT_EQ(GetFocus(), host.Tree());
}

TEST_F(GridTest, OneChoiceIsAskedAboutTwiceOrAgainWhenItsRowIsLeft) {
    GridContainer host;
    const auto row = AddList(host, L"A", 1L, {{L"one", 1L}, {L"other", 2L}});
    const auto object = host.Add(L"X");
    const _variant_t values[] = {2L, static_cast<IDispatch*>(object.Get()), Array()};
    host.events.quiet.insert(L"ValidateValue");
    bool refuse = false;
    int asked = 0;
    host.events.on[L"ValidateValue"] = [&](const EventCall& call) {
        ++asked;
        call.Set(2, refuse);
    };
    std::size_t turn = 0; // each value meets several ways to choose
    for (const bool answer : {true, false})
        for (const auto& [name, choose] : kChoices) {
            refuse = answer;
            const _variant_t& value = values[turn++ % std::size(values)];
            SCOPED_TRACE(std::string(name) + (refuse ? ", refused, type " : ", type ") + std::to_string(V_VT(&value)));
            Entry(row.Get(), 2)->put_Value(value);
            row->put_Value(_variant_t(1L));
            GoTo(host, row.Get());
            asked = 0;
            choose(host);
            EXPECT_EQ(asked, 1);
            host.RealKeys({VK_TAB});
            EXPECT_EQ(host.Heard(), refuse ? L"" : L"PropertyValueChanged A");
            host.Select(object.Get());
            EXPECT_EQ(asked, 1);
            EXPECT_EQ(host.Heard(), L"SelChanged X");
        }
}

TEST_F(GridTest, AListDoesNotFollowTheHostsValueOrStaysOpenWithoutItsRow) {
    GridContainer host;
    const auto row = AddList(host, L"A", 2L, kColors);
    GoTo(host, row.Get());
    row->put_Value(_variant_t(77L));
    EXPECT_EQ(Shown(host), L"77") << "a value outside stands first";
    host.RealKeys({VK_F4, VK_HOME, VK_DOWN, VK_RETURN});
    EXPECT_EQ(ValueOf(row.Get()), _variant_t(1L));
    for (const bool cleared : {false, true}) {
        host->StartPropertyEdit(row.Get());
        host.RealKeys({VK_DOWN});
        EXPECT_TRUE(IsOpen(host));
        host.Heard();
        EXPECT_EQ(cleared ? host.Properties()->Clear(nullptr) : row->put_Visible(VARIANT_FALSE), S_OK);
        EXPECT_FALSE(IsOpen(host));
        EXPECT_EQ(host.Heard(), cleared ? L"" : L"SelChanged Nothing");
        row->put_Visible(VARIANT_TRUE);
    }
    host.RealKeys({VK_RETURN, VK_ESCAPE, VK_F4});
    EXPECT_EQ(host.Heard(), L"");
}

TEST_F(GridTest, TheHostDoesNotHearTheKeysOfAListOrCannotTakeThem) {
    GridContainer host;
    const auto row = AddList(host, L"A", 1L, kColors);
    GoTo(host, row.Get());
    host.events.quiet = {L"ValidateValue", L"MouseMove"}; // the mouse stands somewhere
    SetFocus(Box(host));
    host.RealKeys({'G'});
    EXPECT_EQ(host.Heard(), L"KeyDown 71 0; KeyPress 103; PropertyValueChanged A; KeyUp 71 0");
    host.events.on[L"KeyDown"] = [](const EventCall& call) { *V_I2REF(&call[0]) = 0; };
    host.events.on[L"KeyPress"] = [](const EventCall& call) { *V_I2REF(&call[0]) = 0; };
    host.RealKeys({VK_DOWN, VK_F4, 'R'});
    EXPECT_FALSE(IsOpen(host));
    EXPECT_EQ(Shown(host), L"Green");
}

TEST_F(GridTest, AListLiesBesideItsCellOrStaysWhereARowHasGone) {
    for (const omGrid lines : {omGridSolid, omGridNone}) {
        GridContainer host;
        host->put_Grid(lines);
        const auto row = AddList(host, L"A", 1L, kColors);
        AddList(host, L"Wide", 1L, {{L"An entry that is far wider than its cell can ever be", 1L}});
        for (int i = 0; i < 40; ++i)
            host.Add(L"B" + std::to_wstring(i));
        host.Select(row.Get());
        const RECT cell = host.ValueCell(0);
        RECT box = ScreenPlace(Box(host));
        MapWindowPoints(nullptr, host.Tree(), reinterpret_cast<POINT*>(&box), 2);
        EXPECT_EQ(box.left, cell.left);
        EXPECT_EQ(box.top, cell.top + (lines == omGridNone));
        EXPECT_EQ(box.right, cell.right);
        EXPECT_EQ(box.bottom, cell.bottom - 1);
        // The text in the editor covers the text of the row.
        const Picture face(Box(host));
        host.Select(nullptr);
        const Picture rows = host.Paint();
        long different = 0;
        for (long y = 0; y < box.bottom - box.top; ++y)
            for (long x = 0; x < 60; ++x)
                different += face.At(x, y) != rows.At(box.left + x, box.top + y);
        EXPECT_EQ(different, 0);
        host.Select(row.Get());
        host->StartPropertyEdit(row.Get());
        EXPECT_TRUE(IsOpen(host));
        EXPECT_EQ(ScreenPlace(ListOf(Box(host))).top, ScreenPlace(Box(host)).bottom);
        host.RealKeys({VK_DOWN});
        host.Heard();
        SendMessageW(host.Tree(), WM_VSCROLL, SB_LINEDOWN, reinterpret_cast<LPARAM>(host.ScrollBarWindow()));
        EXPECT_FALSE(IsOpen(host));
        EXPECT_EQ(Shown(host), L"Red");
        EXPECT_EQ(host.Heard(), L"") << "what was only highlighted is not stored";
        SetWindowPos(host.window, nullptr, 600, GetSystemMetrics(SM_CYSCREEN) - 80, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        host->StartPropertyEdit(host.Item(2L).Get());
        const RECT list = ScreenPlace(ListOf(Box(host)));
        EXPECT_EQ(list.bottom, ScreenPlace(Box(host)).top) << "upwards at the bottom of the screen";
        EXPECT_GT(list.right - list.left, cell.right - cell.left);
        EXPECT_LE(list.right, GetSystemMetrics(SM_CXSCREEN));
    }
}

TEST_F(GridTest, ThousandsOfEntriesMakeTheGridWait) {
    constexpr long kCount = 10000;
    GridContainer host;
    const auto row = AddList(host, L"A", kCount - 1, {});
    ComPtr<_CListItems> items;
    row->get_ListItems(items.GetAddressOf());
    for (long i = 0; i < kCount; ++i) {
        ComPtr<_CListItem> item;
        items->Add(_bstr_t((L"Entry " + std::to_wstring(i)).c_str()), _variant_t(i), item.GetAddressOf());
    }
    // Of the processor, which other programs may have most of the time.
    const auto milliseconds = [] {
        FILETIME none{}, kernel{}, user{};
        GetProcessTimes(GetCurrentProcess(), &none, &none, &kernel, &user);
        return (kernel.dwLowDateTime + user.dwLowDateTime) / 10'000;
    };
    const DWORD start = milliseconds();
    host.Select(row.Get());
    EXPECT_EQ(Shown(host), L"Entry 9999");
    host->StartPropertyEdit(row.Get());
    EXPECT_LT(ScreenPlace(ListOf(Box(host))).bottom - ScreenPlace(ListOf(Box(host))).top, 300);
    for (const wchar_t letter : std::wstring(L"entry 777"))
        SendMessageW(Box(host), WM_CHAR, letter, 1);
    EXPECT_LT(milliseconds() - start, 2000U);
    EXPECT_EQ(ValueOf(row.Get()), _variant_t(kCount - 1)) << "nothing is chosen before ENTER";
    host.RealKeys({VK_RETURN});
    EXPECT_EQ(ValueOf(row.Get()), _variant_t(777L));
}

TEST_F(GridTest, AHandlerThatEndsTheRowOrTheControlCatchesTheListOpen) {
    const std::vector<std::pair<const char*, std::function<void(GridContainer&)>>> deeds{
        {"clears", [](GridContainer& host) { host.Properties()->Clear(nullptr); }},
        {"removes", [](GridContainer& host) { host.Properties()->Remove(_variant_t(1L)); }},
        {"moves on", [](GridContainer& host) { host.Select(host.Item(2L).Get()); }},
        {"hides", [](GridContainer& host) { host.Item(1L)->put_Visible(VARIANT_FALSE); }},
        {"reopens", [](GridContainer& host) { host->StartPropertyEdit(host.Item(1L).Get()); }},
        {"ends the control", [](GridContainer& host) { host.LetGo(); }},
    };
    std::size_t turn = 0;                       // each event meets each deed, and each deed several ways to choose
    constexpr const wchar_t* kKey = L"KeyDown"; // of those in the list, which a click has none of
    for (const auto* event : {L"ValidateValue", L"PropertyValueChanged", kKey}) {
        ++turn;
        for (const auto& deed : deeds) {
            const auto& [choice, choose] = kChoices[turn++ % (event == kKey ? 2 : 3)];
            SCOPED_TRACE(std::string("a handler ") + deed.first + " at " + choice);
            GridContainer host;
            const auto row = AddList(host, L"A", 1L, kColors);
            host.Add(L"B", L"other");
            GoTo(host, row.Get());
            bool done = false;
            host.events.on[event] = [&](const EventCall& call) {
                if (done || (call.Name() == kKey && GetFocus() != Box(host)))
                    return;
                done = true;
                deed.second(host);
            };
            choose(host);
            host.events.on.clear();
            EXPECT_TRUE(done);
            if (!host.grid)
                continue;
            // The grid goes on working.
            host.Properties()->Clear(nullptr);
            const auto again = AddList(host, L"Again", 1L, kColors);
            GoTo(host, again.Get());
            host.RealKeys({VK_F4, VK_END, VK_RETURN});
            EXPECT_EQ(ValueOf(again.Get()), _variant_t(3L));
        }
    }
}

} // namespace
} // namespace ormisk::test
