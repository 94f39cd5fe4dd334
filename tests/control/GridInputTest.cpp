// Keys, mouse, scrolling and the bars between the panes.

#include "GridContainer.h"

namespace ormisk::test {
namespace {

// Holds keys down for this thread.
class Held {
public:
    Held(std::initializer_list<int> keys) {
        GetKeyboardState(m_Old.data());
        auto state = m_Old;
        for (const int key : keys)
            state[static_cast<std::size_t>(key)] = 0x80;
        SetKeyboardState(state.data());
    }
    ~Held() { SetKeyboardState(m_Old.data()); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

private:
    std::array<BYTE, 256> m_Old{};
};

struct Bar {
    explicit Bar(const GridContainer& host) {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        const HWND window = host.ScrollBarWindow();
        GetScrollInfo(window, SB_CTL, &info);
        shown = GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE;
        value = info.nPos;
        page = static_cast<long>(info.nPage);
        max = info.nMax - page + 1;
    }
    bool shown;
    long value, page, max;
};

void AddRows(GridContainer& host, long count) {
    host->put_LockRefresh(VARIANT_TRUE);
    for (long i = 0; i < count; ++i)
        host.Add(L"Row" + std::to_wstring(i), L"v");
    host->put_LockRefresh(VARIANT_FALSE);
}

TEST_F(GridTest, ANavigationKeyMovesElsewhere) {
    GridContainer host;
    host.Press(VK_DOWN); // no rows at all
    EXPECT_EQ(host.Selected(), L"");
    AddRows(host, 40);
    host.Press(VK_END);
    EXPECT_EQ(host.Selected(), L"Row0") << "the first key only finds a place to start from";
    const long page = Bar(host).page - 1;
    const std::pair<WPARAM, long> steps[] = {
        {VK_DOWN, 1}, {VK_NEXT, 1 + page}, {VK_PRIOR, 1},         {VK_UP, 0},    {VK_UP, 0},  {VK_PRIOR, 0},
        {VK_END, 39}, {VK_DOWN, 39},       {VK_PRIOR, 39 - page}, {VK_NEXT, 39}, {VK_HOME, 0}};
    for (const auto& [key, row] : steps) {
        host.Press(key);
        EXPECT_EQ(host.Selected(), L"Row" + std::to_wstring(row)) << "key " << key;
        const Bar bar(host);
        EXPECT_GE(row, bar.value);
        EXPECT_LT(row, bar.value + bar.page) << "the row is not in view";
    }
    // Without a scroll bar the page keys do nothing.
    _variant_t result;
    host.Properties()->Clear(&result);
    AddRows(host, 3);
    host.Press(VK_HOME);
    host.Press(VK_NEXT);
    EXPECT_EQ(host.Selected(), L"Row0");
}

TEST_F(GridTest, KeysOfTheTreeOpenOrCloseTheWrongRow) {
    GridContainer host;
    host->put_ActiveView(omCatagorized);
    host.Add(L"A", L"", L"X");
    host.Add(L"B", L"", L"Y");
    host.Press(VK_HOME);
    host.Heard();
    const auto heard = [&](WPARAM key) {
        host.Press(key);
        return host.Heard();
    };
    EXPECT_EQ(heard(VK_LEFT), L"CategoryCollapsing X False");
    EXPECT_EQ(heard(VK_LEFT), L"") << "there is nothing above";
    EXPECT_EQ(heard(VK_SUBTRACT), L"");
    EXPECT_EQ(heard(VK_RIGHT), L"CategoryExpanding X False");
    EXPECT_EQ(heard(VK_RIGHT), L"SelChanged A");
    EXPECT_EQ(heard(VK_RIGHT), L"SelChanged Nothing") << "down to Y";
    EXPECT_EQ(heard(VK_SUBTRACT), L"CategoryCollapsing Y False");
    EXPECT_EQ(heard(VK_SUBTRACT), L"");
    EXPECT_EQ(heard(VK_ADD), L"CategoryExpanding Y False");
    EXPECT_EQ(heard(VK_ADD), L"");
    {
        const Held alt({VK_MENU});
        EXPECT_EQ(heard(VK_DOWN), L"SelChanged B") << "on a category plain Down";
    }
    EXPECT_EQ(heard(VK_LEFT), L"SelChanged Nothing");
}

TEST_F(GridTest, TheSearchForAnInitialSkipsRowsOrNeedsNoModifiers) {
    GridContainer host;
    for (const wchar_t* name : {L"Apple", L"bear", L"Bee", L"2nd", L"\x00C4pfel"})
        host.Add(name);
    host.Item(1L)->put_ReadOnly(VARIANT_TRUE); // typed keys have no editor to go to
    host.Press(VK_HOME);
    host.Press('B');
    EXPECT_EQ(host.Selected(), L"Apple");
    const Held both({VK_CONTROL, VK_SHIFT});
    const std::pair<WPARAM, const wchar_t*> steps[] = {{'B', L"bear"}, {'B', L"Bee"},   {'B', L"bear"}, {'2', L"2nd"},
                                                       {'Z', L"2nd"},  {'A', L"Apple"}, {'A', L"Apple"}};
    for (const auto& [key, name] : steps) {
        host.Press(key);
        EXPECT_EQ(host.Selected(), name);
    }
}

TEST_F(GridTest, AHostCannotEatOrReplaceAKeyOrIsNotAskedForHelp) {
    GridContainer host;
    host.events.quiet = {L"PropertyDraw", L"MouseMove"};
    AddRows(host, 3);
    host.Press(VK_HOME);
    host.Heard();
    host.events.on[L"KeyDown"] = [](const EventCall& call) { *V_I2REF(&call[0]) = 0; };
    host.Press(VK_DOWN);
    EXPECT_EQ(host.Heard(), L"KeyDown 40 0");
    host.events.on[L"KeyDown"] = [](const EventCall& call) { *V_I2REF(&call[0]) = VK_END; };
    host.Press(VK_DOWN);
    EXPECT_EQ(host.Heard(), L"KeyDown 40 0; SelChanged Row2");
    host.events.on.clear();
    host.Press(VK_F1);
    EXPECT_EQ(host.Heard(), L"HelpRequested Row2 True") << "in place of the key";
    {
        const Held shift({VK_SHIFT});
        SendMessageW(host.Tree(), WM_KEYUP, 'A', 1);
        SendMessageW(host.Tree(), WM_CHAR, 'A', 1);
    }
    EXPECT_EQ(host.Heard(), L"KeyUp 65 1; KeyPress 65");
    host.Select(nullptr);
    host.Heard();
    host.Press(VK_F1); // the first key only selects
    EXPECT_EQ(host.Heard(), L"KeyDown 112 0; SelChanged Row0");
    // In the editor a key can be replaced as well.
    host.events.quiet.insert({L"KeyDown", L"KeyUp"});
    host.events.on[L"KeyPress"] = [](const EventCall& call) { *V_I2REF(&call[0]) += 1; };
    host.TypeIntoEditor(L"ab");
    EXPECT_EQ(host.EditText(), L"bc");
    EXPECT_EQ(host.Heard(), L"KeyPress 97; KeyPress 98");
}

TEST_F(GridTest, AKeyTypedOnARowLosesItsModifierOnTheWayToTheEditor) {
    GridContainer host;
    host.Select(host.Add(L"A", L"old").Get());
    host.events.quiet.erase(L"KeyPress");
    bool slow = false;
    host.events.on[L"KeyDown"] = [&](const EventCall& call) {
        if (*V_I2REF(&call[0]) == 'B' && std::exchange(slow, false))
            host.Pump();
    };
    // Everything is up again before the row hears of the key, or when the host has heard of it.
    const auto type = [&](BYTE modifier) {
        SetFocus(host.Tree());
        host.Pump();
        host.Heard();
        keybd_event(modifier, 0, 0, 0);
        for (const DWORD flags : {0, KEYEVENTF_KEYUP})
            keybd_event('B', 0, flags, 0);
        keybd_event(modifier, 0, KEYEVENTF_KEYUP, 0);
        host.Pump();
        EXPECT_GE(GetAsyncKeyState(modifier), 0);
        return host.EditText();
    };
    for (const bool slowly : {false, true}) {
        slow = slowly;
        EXPECT_EQ(type(VK_SHIFT), L"B") << slowly;
        EXPECT_EQ(host.Heard(), L"KeyPress 66; KeyPress 66") << "of the row and of the editor";
        slow = slowly;
        EXPECT_EQ(type(VK_CONTROL), L"") << slowly;
        EXPECT_EQ(host.Heard(), L"KeyPress 2; KeyPress 2");
    }
    // Both give characters on many keyboards; ALT alone belongs to the menu.
    for (const BYTE modifier : {VK_CONTROL, VK_SHIFT}) {
        SetFocus(host.Tree());
        keybd_event(modifier, 0, 0, 0);
        host.RealKeys({'B'}, VK_MENU);
        keybd_event(modifier, 0, KEYEVENTF_KEYUP, 0);
        host.Pump();
        EXPECT_EQ(GetFocus(), modifier == VK_CONTROL ? host.EditBox() : host.Tree());
    }
}

TEST_F(GridTest, ADisabledControlTakesTheKeysOfItsOpenEditor) {
    GridContainer host;
    host.Add(L"A", L"old");
    const auto list = host.Add(L"B", true, L"", omBooleanEditor);
    for (long row = 1; row <= 2; ++row) {
        host->StartPropertyEdit(host.Item(row).Get());
        const HWND editor = GetFocus();
        EXPECT_NE(editor, host.Tree());
        host->put_Enabled(VARIANT_FALSE);
        EXPECT_FALSE(SendMessageW(editor, CB_GETDROPPEDSTATE, 0, 0)) << "the list is open";
        host.Heard();
        host.RealKeys({'F', VK_DOWN, VK_RETURN});
        EXPECT_EQ(GetFocus(), editor);
        EXPECT_EQ(host.Heard(), L"");
        host->put_Enabled(VARIANT_TRUE);
    }
    host.Select(host.Item(1L).Get());
    EXPECT_EQ(host.EditText(), L"old");
    EXPECT_EQ(ValueText(list.Get()), L"True");
    // Nor do the panes tell a key, of which none comes in part: F10 is a key of the system.
    host.events.quiet.clear();
    SetFocus(host.Tree());
    for (const bool enabled : {true, false}) {
        host->put_Enabled(enabled ? VARIANT_TRUE : VARIANT_FALSE);
        host.Heard();
        for (const UINT message : {WM_SYSKEYDOWN, WM_SYSKEYUP})
            SendMessageW(host.Tree(), message, VK_SHIFT, 0);
        SendMessageW(host.Tree(), WM_CHAR, L'x', 1);
        EXPECT_EQ(host.Heard(), enabled ? L"KeyDown 16 0; KeyUp 16 0; KeyPress 120" : L"");
    }
}

TEST_F(GridTest, TheContainerIsNotToldThatTheFocusCameOrLeft) {
    for (const omEditorType type : {omTextEditor, omBooleanEditor, omDateEditor, omColorEditor}) {
        GridContainer host;
        const auto row = host.Add(L"A", _variant_t(), L"", type);
        const auto told = [&] {
            std::string focus;
            for (const std::string& call : std::exchange(host.log, {}))
                if (call.starts_with("OnFocus"))
                    focus += call.back();
            return focus;
        };
        SetFocus(host.window);
        told();
        host->StartPropertyEdit(row.Get());
        SetFocus(host.window);
        const std::string calls = told(); // a palette or a calendar may have had it meanwhile
        EXPECT_TRUE(calls.starts_with('1') && calls.ends_with('0')) << type << ' ' << calls;
        for (const HWND pane : {host.Tree(), host.TabStrip(), host.HeaderStrip()}) {
            SetFocus(pane);
            EXPECT_EQ(told(), "1");
            SetFocus(host.DescriptionPane());
            EXPECT_EQ(told(), "") << "within the control";
            SetFocus(host.window);
            EXPECT_EQ(told(), "0");
        }
    }
}

TEST_F(GridTest, TheMouseIsToldWithAnotherPartPlaceOrStage) {
    GridContainer host;
    AddRows(host, 2);
    host.events.quiet.clear();
    const HWND tree = host.Tree(), strip = host.HeaderStrip(), tabs = host.TabStrip();
    const HWND names = PaneAt(strip, 0), values = PaneAt(strip, 1);
    const auto toldBy = [&](HWND pane, POINT at) {
        host.Heard();
        const LPARAM point = MAKELPARAM(at.x, at.y);
        SendMessageW(pane, WM_MOUSEMOVE, 0, point);
        SendMessageW(pane, WM_RBUTTONDOWN, MK_RBUTTON, point);
        SendMessageW(pane, WM_RBUTTONUP, 0, point);
        return host.Heard();
    };
    const auto told = [&](HWND pane, POINT at, long item, bool turned = false) {
        POINT place = at;
        MapWindowPoints(pane, host.Window(), &place, 1);
        const std::wstring rest =
            L" 0 " + std::to_wstring(place.x) + L" " + std::to_wstring(place.y) + L" " + std::to_wstring(item);
        return (turned ? L"MouseUp 0" : L"MouseMove 0") + rest + L"; MouseDown 2" + rest +
               (turned ? L"; MouseDown 2" : L"; MouseUp 2") + rest;
    };
    EXPECT_EQ(toldBy(tree, {20, 60}), told(tree, {20, 60}, omPropertiesArea));
    EXPECT_EQ(toldBy(names, {5, 4}), told(names, {5, 4}, omNameHeader));
    EXPECT_EQ(toldBy(values, {5, 4}), told(values, {5, 4}, omValueHeader, true)) << "the stages of this one are turned";
    EXPECT_EQ(toldBy(host.DescriptionPane(), {5, 4}), told(host.DescriptionPane(), {5, 4}, omDescriptionPane));
    EXPECT_EQ(toldBy(strip, {5, 4}), told(strip, {5, 4}, omHeaderSplitter));
    EXPECT_EQ(toldBy(GetParent(tabs), {5, 4}), told(GetParent(tabs), {5, 4}, omDescriptionSplitter));
    EXPECT_EQ(toldBy(tabs, {299, 4}), told(tabs, {299, 4}, omNowhere));
    EXPECT_EQ(toldBy(tabs, {10, 10}), told(tabs, {10, 10}, omAlphabeticTab));
    host.SetAmbient(L"ScaleUnits", L"Twip");
    POINT at{20, 60};
    MapWindowPoints(tree, host.Window(), &at, 1);
    EXPECT_TRUE(
        toldBy(tree, {20, 60})
            .starts_with(L"MouseMove 0 0 " + std::to_wstring(at.x * 15) + L" " + std::to_wstring(at.y * 15) + L" 3; "));
}

TEST_F(GridTest, AClickOnATabShowsTheOtherViewOrNone) {
    GridContainer host;
    const HWND tabs = host.TabStrip();
    const auto click = [&](long x) {
        SendMessageW(tabs, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, 8));
        SendMessageW(tabs, WM_LBUTTONUP, 0, MAKELPARAM(x, 8));
        return host.Heard();
    };
    long second = 20; // a place on the second tab
    while (second < 290 && Read(host.grid.Get(), &OrmiskGrid::get_ActiveView) == omAlphabetic)
        click(second += 10);
    ASSERT_EQ(Read(host.grid.Get(), &OrmiskGrid::get_ActiveView), omCatagorized);
    EXPECT_EQ(click(10), L"ActiveViewChanged");
    EXPECT_EQ(click(10), L"");
    EXPECT_EQ(click(second), L"ActiveViewChanged");
    // The strip takes arrows after a click, until it loses the focus.
    SendMessageW(tabs, WM_KEYDOWN, VK_LEFT, 1);
    EXPECT_EQ(host.Heard(), L"ActiveViewChanged");
    SendMessageW(tabs, WM_KEYDOWN, VK_LEFT, 1);
    EXPECT_EQ(host.Heard(), L"");
    SendMessageW(tabs, WM_KEYDOWN, VK_RIGHT, 1);
    EXPECT_EQ(host.Heard(), L"ActiveViewChanged");
    SetFocus(host.Tree());
    SendMessageW(tabs, WM_KEYDOWN, VK_LEFT, 1);
    EXPECT_EQ(host.Heard(), L"");
    host->put_ShowTabs(VARIANT_FALSE);
    EXPECT_EQ(click(10), L"");
}

TEST_F(GridTest, AClickHitsTheWrongRow) {
    GridContainer host;
    AddRows(host, 3);
    host.ClickTree(40, host.RowTop(1) + 1);
    EXPECT_EQ(host.Selected(), L"Row1");
    host.ClickTree(host.Divider() + 20, host.RowTop(2) + 1);
    EXPECT_EQ(host.Selected(), L"Row2") << "the value cell";
    host.ClickTree(40, host.RowTop(3) + 4);
    EXPECT_EQ(host.Selected(), L"Row2") << "below the rows";
    host->put_Headers(omHeadersNone);
    host.ClickTree(40, host.RowHeight() / 2);
    EXPECT_EQ(host.Selected(), L"Row0");
}

TEST_F(GridTest, TheScrollBarComesTooLateOrStaysBehindTheRows) {
    GridContainer host;
    RECT client{};
    GetClientRect(host.Tree(), &client);
    const long fit = (client.bottom - host.HeaderHeight()) / host.RowHeight();
    AddRows(host, fit);
    EXPECT_FALSE(Bar(host).shown);
    for (int i = 0; i < 10; ++i)
        host.Add(L"More" + std::to_wstring(i));
    EXPECT_TRUE(Bar(host).shown);
    EXPECT_EQ(Bar(host).max, 10);
    SendMessageW(host.Tree(), WM_VSCROLL, SB_BOTTOM, reinterpret_cast<LPARAM>(host.ScrollBarWindow()));
    EXPECT_EQ(Bar(host).value, 10);
    // What is on screen is what was scrolled to.
    host->put_Grid(omGridNone);
    host.Item(11L)->put_BackColor(RGB(255, 0, 0));
    EXPECT_EQ(host.Paint().At(host.Divider() - 2, host.RowTop(0) + 3), RGB(255, 0, 0));
    SetFocus(host.ScrollBarWindow());
    EXPECT_EQ(GetFocus(), host.Tree());
    // Fewer rows pull the value back.
    host.Properties()->Remove(_variant_t(1L));
    EXPECT_EQ(Bar(host).max, 9);
    EXPECT_EQ(Bar(host).value, 9);
    host.Resize({300, 60});
    EXPECT_TRUE(Bar(host).shown);
    EXPECT_EQ(Bar(host).page, 1) << "no row fits, and still there is a page";
}

TEST_F(GridTest, TheDescriptionPaneLosesItsShareWhenTheControlGrows) {
    GridContainer host;
    const float share = Read(host.grid.Get(), &OrmiskGrid::get_DescriptionPaneHeight) / 300;
    host.Resize({300, 200});
    EXPECT_NEAR(Read(host.grid.Get(), &OrmiskGrid::get_DescriptionPaneHeight) / 200, share, 0.03F);
}

TEST_F(GridTest, TabSkipsAPlaceOrNeverLeaves) {
    GridContainer host;
    host.Add(L"A", L"one");
    host.Heard();
    host.Select(host.Item(1L).Get());
    const HWND places[] = {host.TabStrip(), host.HeaderStrip(), host.Tree(), host.EditBox(), host.DescriptionPane()};
    SetFocus(host.Tree());
    host.RealKeys({VK_TAB});
    EXPECT_EQ(GetFocus(), host.EditBox());
    host.TypeIntoEditor(L"two");
    host.RealKeys({VK_TAB});
    EXPECT_EQ(GetFocus(), host.DescriptionPane());
    EXPECT_EQ(host.Heard(), L"SelChanged A; ValidateValue A two False; PropertyValueChanged A");
    MSG tab{host.Tree(), WM_KEYDOWN, VK_TAB, 1, 0, {}};
    EXPECT_EQ(Query<IOleInPlaceActiveObject>(static_cast<IOleObject*>(host.grid.Get()))->TranslateAccelerator(&tab),
              S_FALSE)
        << "behind the last place the host goes on";
    for (long i = 3; i >= 0; --i) {
        host.RealKeys({VK_TAB}, VK_SHIFT);
        EXPECT_EQ(GetFocus(), places[i]) << i;
    }
    host.RealKeys({VK_RIGHT});
    EXPECT_EQ(Read(host.grid.Get(), &OrmiskGrid::get_ActiveView), omCatagorized);
    SetFocus(host.DescriptionPane());
    host->put_ShowDescription(VARIANT_FALSE);
    EXPECT_EQ(GetFocus(), host.Tree()) << "a place that goes gives the keys to the rows";
}

} // namespace
} // namespace ormisk::test
