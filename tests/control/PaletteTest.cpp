// The colour field and its palette, used as a user does it, by mouse and keys.

#include "PaletteTools.h"

#include "automation/Error.h"
#include "platform/TextForms.h"

namespace ormisk::test {
namespace {

// Values under their names, as a form keeps them.
class Store : public NamedValues {
public:
    std::map<std::wstring, _variant_t> values;
    std::vector<std::wstring> order;
    std::map<std::wstring, _variant_t> defaults;
    std::function<void()> onUse = [] {};

    _variant_t Read(const wchar_t* name, const _variant_t& defaultValue) override {
        onUse();
        defaults[name] = defaultValue;
        order.emplace_back(name);
        return values.contains(name) ? values[name] : defaultValue;
    }
    void Write(const wchar_t* name, const _variant_t& value, const _variant_t& defaultValue) override {
        onUse();
        values[name] = value;
        defaults[name] = defaultValue;
        order.emplace_back(name);
    }
};

// Settings.

TEST_F(PaletteTest, ASettingStartsOtherwiseOrItsChangeIsToldWrongly) {
    FieldInFrame in;
    EXPECT_EQ(in->BackColor(), 0x80000005U);
    EXPECT_EQ(in->BorderStyle(), 1);
    EXPECT_EQ(in->HighlightForeColor(), 0x8000000EU);
    EXPECT_EQ(in->PaletteBackColor(), DarkenColor(GetSysColor(COLOR_BTNFACE)));
    EXPECT_EQ(in->SelectedColor(), 0x8000000FU);
    EXPECT_EQ(in->ActiveTab(), 0);
    EXPECT_EQ(in->ToolTipBackColor(), 0x80000018U);
    EXPECT_EQ(in->ToolTipForeColor(), 0U) << "black, not a system colour";
    EXPECT_EQ(in.BoxText(), L"&H8000000F&");
    EXPECT_EQ(in.Heard(), "");

    const std::pair<const char*, std::function<void(OrmiskSwatch&)>> changes[] = {
        {"Appearance", [](OrmiskSwatch& f) { f.Appearance(1); }},
        {"ActiveTab", [](OrmiskSwatch& f) { f.ActiveTab(1); }},
        {"Backcolor", [](OrmiskSwatch& f) { f.BackColor(1); }},
        {"BorderStyle", [](OrmiskSwatch& f) { f.BorderStyle(0); }},
        {"Font", [](OrmiskSwatch& f) { f.Font(Tahoma(9)); }},
        {"Forecolor", [](OrmiskSwatch& f) { f.ForeColor(1); }},
        {"HighlightColor", [](OrmiskSwatch& f) { f.HighlightColor(1); }},
        {"HighlightForeColor", [](OrmiskSwatch& f) { f.HighlightForeColor(1); }},
        {"PaletteColor", [](OrmiskSwatch& f) { f.PaletteBackColor(1); }},
        {"PaletteTabCaption", [](OrmiskSwatch& f) { f.PaletteTabCaption(L"P"); }},
        {"SystemTabCaption", [](OrmiskSwatch& f) { f.SystemTabCaption(L"S"); }},
        {"SystemPaletteColor", [](OrmiskSwatch& f) { f.SystemBackColor(1); }},
        {"ActiveTab Color SelectedColor", [](OrmiskSwatch& f) { f.SelectedColor(1); }},
        {"ToolTipBackColor", [](OrmiskSwatch& f) { f.ToolTipBackColor(1); }},
        {"ToolTipForeColor", [](OrmiskSwatch& f) { f.ToolTipForeColor(1); }},
        {"Unicode", [](OrmiskSwatch& f) { f.Unicode(true); }},
        {"CustomColor15", [](OrmiskSwatch& f) { f.SetCustomColor(15, 1); }},
    };
    for (const auto& [told, change] : changes) {
        change(*in.field);
        EXPECT_EQ(in.Heard(), told);
        if (std::string(told) == "CustomColor15")
            continue;
        change(*in.field);
        EXPECT_EQ(in.Heard(), "") << "the value that it has";
    }
}

TEST_F(PaletteTest, TheFieldShowsAnotherColorThanItHas) {
    FieldInFrame in;
    in->SelectedColor(0x0000FF);
    EXPECT_EQ(in.Heard(), "Color SelectedColor");
    EXPECT_EQ(in.BoxText(), L"&H000000FF&");
    EXPECT_EQ(Picture(in->hwnd()).At(8, 8), RGB(255, 0, 0));
    in->SelectedColor(0x80000018);
    EXPECT_EQ(in.Heard(), "ActiveTab Color SelectedColor");
    EXPECT_EQ(in->SelectedColor(), 0x80000018U) << "the reference stays";
    EXPECT_EQ(Picture(in->hwnd()).At(8, 8), GetSysColor(COLOR_INFOBK));
    in->SelectedColor(0x80000099);
    EXPECT_EQ(in.BoxText(), L"&H80000099&") << "a system colour that there is none of";
    const Rect box = PlaceInParent(in.Box());
    const Rect client = ClientRect(in->hwnd());
    EXPECT_EQ(box.left, 2 + (client.bottom - 4) + 2);
    EXPECT_EQ(box.right, client.right - GetSystemMetrics(SM_CXVSCROLL));
    EXPECT_LE(std::abs(box.top - (client.bottom - box.bottom)), 1);
    in->Move(0, 0, 3, 1);
    EXPECT_FALSE(in->hwnd() == nullptr);
}

TEST_F(PaletteTest, NamesAndCustomColorsLieBeyondTheirBoundsOrAreNotReset) {
    FieldInFrame in;
    in->SystemColorName(5, L"Fenster");
    EXPECT_EQ(in->SystemColorName(5), L"Fenster");
    in->ResetSystemColorsNames();
    EXPECT_EQ(in->SystemColorName(5), L"Window Background");
    EXPECT_EQ(in->GetCustomColor(15), 0xFFFFFFU);
    const std::function<void()> faults[] = {
        [&] { in->SystemColorName(28); },   [&] { in->SystemColorName(-1); }, [&] { in->SystemColorName(28, L"x"); },
        [&] { in->SetCustomColor(16, 0); }, [&] { in->GetCustomColor(-1); },  [&] { in->GetCustomColor(0x7FFFFFFF); }};
    for (const auto& fault : faults) {
        try {
            fault();
            ADD_FAILURE() << "no error";
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number, static_cast<HRESULT>(0x800A0009));
        }
    }
    EXPECT_EQ(in.Heard(), "");
}

TEST_F(PaletteTest, StoredSettingsComeBackChangedOrFailTheRest) {
    Store store;
    {
        FieldInFrame in;
        in->SelectedColor(0x80000005);
        in->PaletteTabCaption(L"Farben");
        in->SystemBackColor(0x123456);
        in->Font(Tahoma(14));
        in->SetCustomColor(3, 0xABCDEF);
        in->WriteProperties(store);
    }
    const std::vector<std::wstring> keys{
        L"Appearance",       L"ActiveTab",       L"Backcolor",          L"BorderStyle",      L"Font",
        L"Forecolor",        L"HighlightColor",  L"HighlightForeColor", L"PaletteBackColor", L"PaletteTabCaption",
        L"SystemTabCaption", L"SystemBackColor", L"SelectedColor",      L"ToolTipBackColor", L"ToolTipForeColor",
        L"Unicode"};
    ASSERT_EQ(store.order.size(), 32U);
    EXPECT_TRUE(std::equal(keys.begin(), keys.end(), store.order.begin()));
    EXPECT_EQ(store.order.back(), L"CustomColor15");
    EXPECT_EQ(store.defaults[L"SelectedColor"], _variant_t(static_cast<long>(0x8000000F)));
    EXPECT_EQ(store.defaults[L"PaletteTabCaption"], _variant_t(L"Palette"));
    EXPECT_EQ(store.defaults[L"CustomColor3"], _variant_t(0xFFFFFFL));
    store.values[L"Backcolor"] = L"no colour";
    store.values[L"BorderStyle"] = _variant_t(L"many");
    store.values[L"Forecolor"] = _variant_t(1e300);
    store.values[L"CustomColor4"] = L"none";
    store.values[L"ActiveTab"] = 77L;
    {
        FieldInFrame in;
        in->ReadProperties(store);
        EXPECT_EQ(in->SelectedColor(), 0x80000005U);
        EXPECT_EQ(in.BoxText(), L"&H80000005&");
        EXPECT_EQ(in->PaletteTabCaption(), L"Farben");
        EXPECT_EQ(in->SystemBackColor(), 0x123456U);
        EXPECT_NEAR(in->Font().Size, 14, 0.5);
        EXPECT_EQ(in->GetCustomColor(3), 0xABCDEFU);
        EXPECT_EQ(in->BackColor(), 0x80000005U) << "what is no colour leaves the one before";
        EXPECT_EQ(in->BorderStyle(), 1);
        EXPECT_EQ(in->ForeColor(), 0x80000012U);
        EXPECT_EQ(in->GetCustomColor(4), 0xFFFFFFU);
        EXPECT_EQ(in.Heard(), "");
        in.Open();
        EXPECT_TRUE(in->IsPaletteOpen());
    }
    FieldInFrame in;
    store.onUse = [&] { in.field.reset(); };
    in->ReadProperties(store);
    EXPECT_FALSE(in.field) << "a store that ends the field";
    OrmiskSwatch bare;
    Store empty;
    bare.WriteProperties(empty);
    bare.ReadProperties(empty);
    bare.ShowDropDown(true);
    EXPECT_EQ(bare.PaletteWindow(), nullptr) << "without a window there is no palette";
}

// The palette by mouse and keys.

TEST_F(PaletteTest, AClickPicksAnotherCellOrTellsItOutOfOrder) {
    FieldInFrame in;
    in->SelectedColor(0x808080);
    in.Heard();
    in.ClickButton();
    EXPECT_EQ(in.Heard(), "Opened");
    ASSERT_TRUE(in->IsPaletteOpen());
    const Rect field = WindowRect(in->hwnd());
    const Rect palette = WindowRect(in->PaletteWindow());
    EXPECT_EQ(palette.right, field.right);
    EXPECT_EQ(palette.top, field.bottom);
    EXPECT_TRUE(GetWindowLongPtrW(in->PaletteWindow(), GWL_EXSTYLE) & WS_EX_TOPMOST);
    EXPECT_EQ(GetForegroundWindow(), in->PaletteWindow());
    in.Click(in.Page(), in.Middle({false, 17}));
    EXPECT_EQ(in.Heard(), "Closed Color SelectedColor Color");
    EXPECT_EQ(in->SelectedColor(), 0x0000FFU);
    EXPECT_FALSE(in->IsPaletteOpen());
    EXPECT_FALSE(IsWindowVisible(in->PaletteWindow()));

    in.Open();
    in.Click(in.Page(), in.Middle({false, 17}));
    EXPECT_EQ(in.Heard(), "Closed Color") << "the same again";
    in.Open();
    in.Click(in.Page(), {1, 1});
    EXPECT_EQ(in.Heard(), "Closed") << "beside the cells";
    in.Open();
    in.Click(in.Page(), in.Middle({false, 3}), true);
    EXPECT_EQ(in.Heard(), "Closed") << "the right button on a cell of the palette";
    EXPECT_EQ(in->SelectedColor(), 0x0000FFU);
    in->SetCustomColor(9, 0x445566);
    in.Open();
    in.Click(in.Page(), in.Middle({true, 9}));
    EXPECT_EQ(in->SelectedColor(), 0x445566U);
}

TEST_F(PaletteTest, AKeyLeadsElsewhereOrTellsItsColorTooLate) {
    FieldInFrame in;
    in->SelectedColor(0x0000FF); // 17
    in.Heard();
    SendKey(VK_MENU, 0);
    in.Keys({VK_DOWN});
    SendKey(VK_MENU, KEYEVENTF_KEYUP);
    in.Pump();
    EXPECT_EQ(in.Heard(), "Opened");
    in.Keys({VK_RIGHT, VK_DOWN, VK_RETURN}); // 26
    EXPECT_EQ(in.Heard(), "Color SelectedColor Color Closed");
    EXPECT_EQ(in->SelectedColor(), PaletteColor(26));
    in.Open();
    in.Keys({VK_UP, VK_ESCAPE});
    EXPECT_EQ(in.Heard(), "Closed");
    EXPECT_EQ(in->SelectedColor(), PaletteColor(26));
    in->SelectedColor(0x010203);
    in.Open();
    in.Keys({VK_RETURN});
    EXPECT_EQ(in.Heard(), "Closed") << "no cell has the colour, and none is picked";
    in.Open();
    in.Keys({VK_LEFT, VK_LEFT, VK_RETURN});
    EXPECT_EQ(in->SelectedColor(), 0xFFFFFFU) << "from nowhere to the first cell, and round to the last custom one";
    in.Open();
    in.Keys({'A', VK_TAB, VK_F2, VK_SPACE});
    EXPECT_TRUE(in->IsPaletteOpen()) << "other keys";
    SendMessageW(in->PaletteWindow(), WM_CLOSE, 0, 0);
    EXPECT_FALSE(in->IsPaletteOpen());
    EXPECT_TRUE(IsWindow(in->PaletteWindow())) << "Alt+F4 only closes";
}

TEST_F(PaletteTest, SystemColorsAreOutOfReachOrPickedWrongly) {
    FieldInFrame in;
    in->SelectedColor(0x80000005);
    in.Open();
    ASSERT_TRUE(GetWindowLongPtrW(in.Bar(), GWL_STYLE) & WS_VISIBLE) << "the tab of system colours";
    const Picture picture(in.Page());
    EXPECT_EQ(picture.At(in.PageSize().cx - 3, in.MiddleOfRow(5).y), GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_NE(picture.At(in.PageSize().cx - 3, in.MiddleOfRow(4).y), GetSysColor(COLOR_HIGHLIGHT));
    in.Click(in.Page(), in.MiddleOfRow(2));
    EXPECT_EQ(in.Heard(), "Closed Color SelectedColor Color");
    EXPECT_EQ(in->SelectedColor(), 0x80000002U);

    in.Open();
    in.MouseTo(in->hwnd(), {30, 5});
    in.Keys({VK_DOWN, VK_LEFT, VK_RIGHT, VK_RETURN});
    EXPECT_EQ(in.Heard(), "Color SelectedColor Color Closed") << "sideways leads nowhere";
    EXPECT_EQ(in->SelectedColor(), 0x80000003U) << "on from the selected row";
    in.Open();
    for (int i = 0; i < 40; ++i)
        SendMessageW(in->PaletteWindow(), WM_KEYDOWN, VK_DOWN, 1);
    SCROLLINFO info{sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
    GetScrollInfo(in.Bar(), SB_CTL, &info);
    EXPECT_EQ(info.nPos, info.nMax) << "the list followed";
    in.Keys({VK_RETURN});
    EXPECT_EQ(in->SelectedColor(), 0x8000001CU) << "the last one";

    in.Open();
    in.MouseTo(in.Page(), in.MiddleOfRow(0));
    in.Mouse(MOUSEEVENTF_WHEEL, WHEEL_DELTA);
    GetScrollInfo(in.Bar(), SB_CTL, &info);
    EXPECT_EQ(info.nPos, info.nMax - 3);
    in.Mouse(MOUSEEVENTF_LEFTDOWN);
    in.Mouse(MOUSEEVENTF_LEFTUP);
    EXPECT_EQ(in->SelectedColor(), SystemColor(RowAt(in.MiddleOfRow(0), in.PageSize(), in.Edge(), info.nPos)))
        << "what the list has under the mouse";
    in.Open();
    SendMessageW(in.Page(), WM_VSCROLL, SB_TOP, reinterpret_cast<LPARAM>(in.Bar()));
    in.Click(in.Page(), in.MiddleOfRow(0));
    EXPECT_EQ(in->SelectedColor(), 0x80000000U);
    in.Heard();
    in.Open();
    in.Click(in.Page(), in.MiddleOfRow(3), true);
    EXPECT_EQ(in.Heard(), "Closed");
}

TEST_F(PaletteTest, ATabIsNotReachedOrToldTooOften) {
    FieldInFrame in;
    in->SelectedColor(0x0000FF);
    in.Open();
    const auto bar = [&] { return (GetWindowLongPtrW(in.Bar(), GWL_STYLE) & WS_VISIBLE) != 0; };
    EXPECT_FALSE(bar());
    in.Click(in.Tabs(), {10, 10});
    EXPECT_EQ(in.Heard(), "Tab") << "the first click on the tab in front counts";
    in.Click(in.Tabs(), {10, 10});
    EXPECT_EQ(in.Heard(), "");
    in.Keys({VK_LEFT, VK_DOWN});
    EXPECT_EQ(in.Heard(), "");
    EXPECT_FALSE(bar());
    in.Keys({VK_RIGHT});
    EXPECT_EQ(in.Heard(), "Tab");
    EXPECT_TRUE(bar());
    in.Keys({VK_RIGHT});
    EXPECT_EQ(in.Heard(), "");
    in.Keys({VK_LEFT});
    EXPECT_EQ(in.Heard(), "Tab");
    EXPECT_FALSE(bar());
    in.Keys({VK_RIGHT});
    in.Click(in.Tabs(), {10, 10});
    EXPECT_EQ(in.Heard(), "Tab Tab");
    in.Keys({VK_RETURN});
    EXPECT_EQ(in->SelectedColor(), 0x0000FFU) << "the keys on the tabs have not moved the cell";
    in.Open();
    in.Keys({VK_RIGHT, VK_RETURN});
    EXPECT_EQ(in->SelectedColor(), PaletteColor(18)) << "opened again, they do";
    EXPECT_EQ(in->ActiveTab(), 0);
}

TEST_F(PaletteTest, ThePaletteStaysOverOtherWindowsOrTellsAPick) {
    FieldInFrame in;
    const HWND other = MakeFrame(20, 500);
    SetForegroundWindow(in.frame);
    in.Open();
    in.Click(other, {5, 5});
    EXPECT_TRUE(Eventually([&] { return !in->IsPaletteOpen(); }));
    EXPECT_EQ(in.Heard(), "Closed");
    SetForegroundWindow(in.frame);
    in.Open();
    in->ShowDropDown(true);
    EXPECT_EQ(in.Heard(), "") << "shown already";
    in->SetVisible(false);
    EXPECT_EQ(in.Heard(), "Closed") << "hidden with its field";
    in->SetVisible(true);
    in.Open();
    in->ShowDropDown(false);
    in->ShowDropDown(false);
    EXPECT_EQ(in.Heard(), "Closed");
    DestroyWindow(other);
}

TEST_F(PaletteTest, ThePaletteOpensBelowTheScreenOrFollowsAnOldFrame) {
    FieldInFrame in(300, 700);
    in.Open();
    EXPECT_EQ(WindowRect(in->PaletteWindow()).bottom, WindowRect(in->hwnd()).top);
    in->ShowDropDown(false);
    const HWND other = MakeFrame(20, 20);
    SetParent(in->hwnd(), other);
    in.Open();
    EXPECT_TRUE(in->IsPaletteOpen());
    EXPECT_EQ(GetWindow(in->PaletteWindow(), GW_OWNER), other);
    in.Heard();
    DestroyWindow(other);
    EXPECT_EQ(in.Heard(), "Closed");
    EXPECT_EQ(in->hwnd(), nullptr);
    EXPECT_EQ(in->PaletteWindow(), nullptr);
    in->SelectedColor(1);
    in->ShowDropDown(true);
    EXPECT_FALSE(in->IsPaletteOpen());
}

// What it looks like.

TEST_F(PaletteTest, AHoverErasesTheGridOrLeavesItsFrame) {
    FieldInFrame in;
    in->SelectedColor(0x0000FF);
    in->HighlightColor(0x00FF00);
    in->HighlightForeColor(0x00FFFF);
    in.Open();
    const auto corner = [&](int index) {
        const Rect place = CellRect({false, index}, in.PageSize(), in.Edge());
        return in.OnScreen(in.Page(), {place.left, place.top});
    };
    EXPECT_EQ(corner(17), RGB(255, 255, 0)) << "the selected cell";
    in.MouseTo(in.Page(), in.Middle({false, 28}));
    EXPECT_EQ(corner(28), RGB(0, 255, 0));
    in.MouseTo(in.Page(), in.Middle({false, 30}));
    EXPECT_EQ(corner(28), in->PaletteBackColor());
    EXPECT_EQ(corner(30), RGB(0, 255, 0));
    in.MouseTo(in.Page(), in.Middle({false, 17}));
    EXPECT_EQ(corner(17), RGB(255, 255, 0)) << "the selection frame lies over the hot one";
    in.MouseTo(in.Page(), {1, 1});
    EXPECT_EQ(corner(17), RGB(255, 255, 0));
    // The cells are not painted again. On a busy machine the display may want that by itself, but not each time.
    const Point mark = in.Middle({false, 28});
    bool stays = false;
    for (int round = 0; !stays && round < 5; ++round) {
        SetPixel(WindowDC(in.Page()).Get(), mark.x, mark.y, RGB(1, 2, 3));
        for (const int cell : {28, 30, 17})
            in.MouseTo(in.Page(), in.Middle({false, cell}));
        in.MouseTo(in.Page(), {1, 1});
        stays = in.OnScreen(in.Page(), mark) == RGB(1, 2, 3);
    }
    EXPECT_TRUE(stays);
    RedrawWindow(in.Page(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_EQ(in.OnScreen(in.Page(), mark), PaletteColor(28));
}

TEST_F(PaletteTest, CellsHaveOtherColours) {
    FieldInFrame in;
    in->SetCustomColor(2, 0x112233);
    in->SelectedColor(0x998877);
    in.Open();
    const Picture picture(in.Page());
    for (int i = 0; i < 48; ++i)
        EXPECT_EQ(picture.At(in.Middle({false, i}).x, in.Middle({false, i}).y), PaletteColor(i)) << i;
    EXPECT_EQ(picture.At(in.Middle({true, 2}).x, in.Middle({true, 2}).y), 0x112233U);
}

TEST_F(PaletteTest, ANameThatIsCutHasNoTipOrItStandsElsewhere) {
    FieldInFrame in;
    in->SelectedColor(0x80000005);
    in->SystemColorName(1, L"A name that is far too long for the row that it stands in");
    in->SystemColorName(2, L"Kurz");
    in.Open();
    in.MouseTo(in.Page(), in.MiddleOfRow(2));
    in.MouseTo(in.Page(), in.MiddleOfRow(1));
    POINT start{in.MiddleOfRow(1).x + 2, in.MiddleOfRow(1).y};
    in.MouseTo(in.Page(), {start.x, start.y});
    HWND tip = nullptr;
    EXPECT_TRUE(Eventually([&] {
        tip = FindWindowW(TOOLTIPS_CLASSW, nullptr);
        return tip && IsWindowVisible(tip);
    }));
    const Rect row = RowRect(1, in.PageSize(), in.Edge(), 0);
    POINT corner{row.Height(), row.top};
    ClientToScreen(in.Page(), &corner);
    EXPECT_EQ(WindowRect(tip).left, corner.x);
    EXPECT_EQ(WindowRect(tip).top, corner.y);
    in.MouseTo(in.Page(), in.MiddleOfRow(2));
    EXPECT_TRUE(Eventually([&] { return !IsWindowVisible(tip); })) << "the short one has none";
    in.Keys({VK_ESCAPE});
}

TEST_F(PaletteTest, CaptionsFontsAndNamesOfAnySizeBreakTheWindow) {
    FieldInFrame in;
    const std::wstring endless(100'000, L'W');
    for (const auto& caption : {std::wstring(), endless, std::wstring(L"&Farben")}) {
        for (const double size : {6.0, 8.0, 8.25, 14.0, 36.0, 0.0, 2000.0}) {
            in->PaletteTabCaption(caption);
            in->Font(Tahoma(size));
            in.Open();
            ASSERT_TRUE(in->IsPaletteOpen());
            const Rect palette = WindowRect(in->PaletteWindow());
            EXPECT_LE(palette.Width(), GetSystemMetrics(SM_CXSCREEN)) << size;
            EXPECT_GT(palette.Width(), 9);
            Picture tabs(in.Tabs());
            in->ShowDropDown(false);
        }
    }
    FontDescription wrong;
    wrong.Name.assign(100, L'x');
    in->Font(wrong);
    in.Open();
    EXPECT_TRUE(in->IsPaletteOpen());
    in->ShowDropDown(false);
    in->Font(Tahoma(8));

    // Texts of our own are shown the same in both forms; a host's are byte-expanded.
    const auto rows = [&](bool unicode, const std::wstring& name) {
        in->Unicode(unicode);
        in->PaletteTabCaption(unicode ? ExpandText(L"Farben") : L"Farben");
        in->SystemColorName(1, name);
        in->SelectedColor(0x80000005);
        in.Open();
        const Size size{120, 120};
        std::vector<COLORREF> pixels;
        for (const HWND window : {in.Page(), in.Tabs()}) {
            const Picture picture(window);
            for (long y = 0; y < size.cy; ++y)
                for (long x = 0; x < size.cx; ++x)
                    pixels.push_back(picture.At(x, y));
        }
        in->ShowDropDown(false);
        return pixels;
    };
    EXPECT_EQ(rows(false, L"Schreibtisch"), rows(true, ExpandText(L"Schreibtisch")));
    EXPECT_NE(rows(false, L"Schreibtisch"), rows(false, endless));
}

} // namespace
} // namespace ormisk::test
