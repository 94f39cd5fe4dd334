// What surrounds the rows, pixel by pixel: tabs and page, headers, description pane, record toolbar.

#include "Eventually.h"
#include "GridContainer.h"

#include "platform/Color.h"

#include <algorithm>
#include <cmath>

namespace ormisk::test {
namespace {

constexpr COLORREF kBack = RGB(120, 140, 160);

COLORREF Highlight() { return GetSysColor(COLOR_BTNHIGHLIGHT); }
COLORREF Shadow() { return GetSysColor(COLOR_BTNSHADOW); }

POINT OriginIn(HWND window, HWND frame) {
    POINT origin{};
    MapWindowPoints(window, frame, &origin, 1);
    return origin;
}

RECT Whole(const Picture& picture) { return {0, 0, picture.Size().cx, picture.Size().cy}; }

HWND Toolbar(const GridContainer& host) {
    for (HWND child = GetWindow(host.TabStrip(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (child != host.Tree())
            return child;
    return nullptr;
}

Picture Snapshot(const GridContainer& host) {
    RECT place{};
    GetWindowRect(host.Window(), &place);
    return Picture({place.right - place.left, place.bottom - place.top}, [&](HDC dc) {
        const RECTL bounds{0, 0, place.right - place.left, place.bottom - place.top};
        EXPECT_EQ(host->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr, nullptr, 0), S_OK);
    });
}

Picture OnScreen(const GridContainer& host) {
    RECT place{};
    GetWindowRect(host.Window(), &place);
    const POINT corner = OriginIn(nullptr, host.window);
    return Picture({place.right - place.left, place.bottom - place.top}, [&](HDC dc) {
        const HDC screen = GetDC(host.window);
        BitBlt(dc, 0, 0, place.right - place.left, place.bottom - place.top, screen, place.left + corner.x,
               place.top + corner.y, SRCCOPY);
        ReleaseDC(host.window, screen);
    });
}

long Differences(const Picture& a, const Picture& b) {
    long count = a.Size().cx != b.Size().cx || a.Size().cy != b.Size().cy;
    for (long y = 0; y < a.Size().cy; ++y)
        for (long x = 0; x < a.Size().cx; ++x)
            count += a.At(x, y) != b.At(x, y);
    return count;
}

// What the system makes at the first use of these things stays, and is no leak.
class ChromeTest : public GridTest {
protected:
    void WarmUp() override {
        GridTest::WarmUp();
        static const bool warm = [] {
            GridContainer host;
            host->put_RecordsetToolbar(omShow);
            host->put_Sorted(VARIANT_TRUE);
            host.Select(host.Add(L"A", L"1").Get());
            for (int i = 0; i < 30; ++i)
                host.Add(L"Row" + std::to_wstring(i), L"v", L"Group");
            host.MouseTo(PaneAt(Toolbar(host), 0), 5, 5);
            host.RealClick(host.TabStrip(), 10, 8);
            Snapshot(host);
            OnScreen(host);
            return true;
        }();
        ASSERT_TRUE(warm);
    }
};

TEST_F(ChromeTest, ThePageIsClosedUnderItsTabOrOpenElsewhere) {
    for (const wchar_t* units : {L"Pixel", L"Twip"}) {
        SCOPED_TRACE(units);
        GridContainer::Setup setup;
        setup.scaleUnits = units;
        GridContainer host(setup);
        host->put_BackColor(kBack);
        const Shades shades = ShadesOf(kBack);
        const HWND strip = host.TabStrip();
        const long top = OriginIn(host.Tree(), strip).y - 2 - 4; // less a sunken border and the margin
        const auto edge = [&](const Picture& picture) {
            long x = 0;
            while (x < picture.Size().cx && picture.At(x, top - 1) != shades.Darker)
                ++x;
            return x;
        };
        const Picture alphabetic(strip);
        const long width = edge(alphabetic);
        const long right = alphabetic.Size().cx - 1, bottom = alphabetic.Size().cy - 1;
        host->put_ActiveView(omCatagorized);
        const Picture categorized(strip);
        // The surface itself is not drawn: a gap is untouched.
        EXPECT_EQ(alphabetic.Count(Picture::kUntouched, {1, top, width, top + 1}), width - 1);
        EXPECT_EQ(alphabetic.Count(shades.Lighter, {width, top, right - 1, top + 1}), right - 1 - width);
        EXPECT_EQ(categorized.Count(shades.Lighter, {0, top, width, top + 1}), width);
        long second = width + 1; // the end of the gap: each tab has the same width, in units
        while (categorized.At(second, top) == Picture::kUntouched)
            ++second;
        EXPECT_NEAR(static_cast<double>(second), static_cast<double>(2 * width), 1.0);
        EXPECT_EQ(categorized.Count(shades.Lighter, {second, top, right - 1, top + 1}), right - 1 - second);
        for (const Picture* picture : {&alphabetic, &categorized}) {
            EXPECT_EQ(picture->Count(shades.Darker, {right, top, right + 1, bottom + 1}), bottom + 1 - top);
            EXPECT_EQ(picture->Count(shades.Darker, {0, bottom, right + 1, bottom + 1}), right + 1);
            EXPECT_EQ(picture->Count(shades.Lighter, {0, top, 1, bottom}), bottom - top);
            EXPECT_EQ(picture->At(right - 1, bottom - 1), shades.Dark);
        }
        EXPECT_EQ(alphabetic.At(width + 4, 2), Picture::kUntouched) << "the tab behind is lower";
        EXPECT_EQ(alphabetic.At(width + 4, 3), shades.Lighter);
        EXPECT_EQ(categorized.At(3, top - 1), shades.Lighter) << "and narrower at the left";

        host->put_ShowTabs(VARIANT_FALSE);
        const Picture plain(strip);
        EXPECT_EQ(plain.Count(Picture::kUntouched, Whole(plain)), plain.Size().cx * plain.Size().cy);
    }
}

TEST_F(ChromeTest, TheSortArrowPointsTheWrongWayStandsElsewhereOrIsMissing) {
    GridContainer host;
    host->put_BackColor(kBack);
    host->put_NameCaption(_bstr_t(L""));
    const HWND name = PaneAt(host.HeaderStrip(), 0), value = PaneAt(host.HeaderStrip(), 1);
    const auto arrow = [&] {
        const Picture picture(name);
        RECT box{1000, 1000, -1, -1};
        for (long y = 0; y < picture.Size().cy; ++y)
            for (long x = 0; x < picture.Size().cx; ++x) {
                if (picture.At(x, y) != Highlight() && picture.At(x, y) != Shadow())
                    continue;
                box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                       std::max(box.bottom, y + 1)};
            }
        const long first = picture.Count(Highlight(), {box.left, box.top, box.right, box.top + 1});
        const long last = picture.Count(Highlight(), {box.left, box.bottom - 1, box.right, box.bottom});
        return std::tuple(box.right, box.top, box.bottom, first < last);
    };
    const auto at = [&](long right, bool up) {
        const long top = std::lrint(static_cast<double>(Picture(name).Size().cy - 8) / 2.0);
        return std::tuple(right, top, top + 8, up);
    };
    const Picture unsorted(name);
    EXPECT_EQ(unsorted.Count(Highlight(), Whole(unsorted)), 0);
    host.RealClick(value, 20, 8);
    const long width = unsorted.Size().cx;
    EXPECT_EQ(arrow(), at(width - width / 4 + 8, true));
    host->put_SortOrder(omDescending);
    EXPECT_EQ(arrow(), at(width - width / 4 + 8, false));
    const Picture other(value);
    EXPECT_EQ(other.Count(Highlight(), Whole(other)), 0);
    host->put_Headers(omHeadersNone);
    const Picture none(name);
    EXPECT_EQ(none.Count(Picture::kUntouched, Whole(none)), none.Size().cx * none.Size().cy);
}

TEST_F(ChromeTest, TheDescriptionTellsOfNothingOrOfTheWrongRow) {
    GridContainer host;
    host->put_ActiveView(omCatagorized);
    host->put_ForeColor(RGB(255, 0, 0));
    const auto a = host.Add(L"A", L"1", L"Group");
    a->put_Help(_bstr_t(L"Help"));
    const auto ink = [&] {
        const Picture pane(host.DescriptionPane());
        EXPECT_EQ(pane.At(0, 0), Shadow());
        EXPECT_EQ(pane.At(pane.Size().cx - 1, pane.Size().cy - 1), Highlight());
        const RECT caption{0, 0, pane.Size().cx, 2 + host.RowHeight()};
        const RECT text{0, caption.bottom, caption.right, pane.Size().cy};
        return std::pair(pane.Count(RGB(255, 0, 0), caption) > 0, pane.Count(RGB(255, 0, 0), text) > 0);
    };
    EXPECT_EQ(ink(), std::pair(false, false));
    host.ClickRow(0);
    EXPECT_EQ(ink(), std::pair(false, false)) << "a category";
    host.ClickRow(1);
    EXPECT_EQ(ink(), std::pair(true, true));
    a->put_Help(_bstr_t(L""));
    EXPECT_EQ(ink(), std::pair(true, false));
    a->put_Visible(VARIANT_FALSE);
    EXPECT_EQ(ink(), std::pair(false, false));
}

TEST_F(ChromeTest, AToolbarButtonLooksHotPressedOrEnabledWhenItIsNot) {
    GridContainer host;
    host->put_BackColor(kBack);
    host->put_RecordsetToolbar(omShow);
    const HWND toolbar = Toolbar(host);
    ASSERT_TRUE(toolbar);
    const HWND first = PaneAt(toolbar, 0), previous = PaneAt(toolbar, 1);
    const auto edge = [](HWND button) { return Picture(button).At(0, 0); };
    EXPECT_EQ(edge(first), Picture::kUntouched);
    host.MouseTo(first, 5, 5);
    EXPECT_EQ(edge(first), Highlight());
    host.MouseTo(previous, 5, 5);
    host.MouseTo(previous, 6, 5);
    EXPECT_EQ(edge(first), Picture::kUntouched);
    EXPECT_EQ(edge(previous), Highlight());
    host.events.quiet.erase(L"MouseUp");
    SendMessageW(previous, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(edge(previous), Shadow());
    SendMessageW(previous, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(edge(previous), Highlight());
    EXPECT_NE(host.Heard().find(L" 9"), std::wstring::npos) << "the previous button";
    EnableWindow(previous, FALSE);
    const Picture disabled(previous);
    EXPECT_EQ(disabled.At(0, 0), Picture::kUntouched);
    EXPECT_GT(disabled.Count(BlendColor(kBack, GetSysColor(COLOR_BTNTEXT), 0.75F), Whole(disabled)), 5);
    EnableWindow(previous, TRUE);
    // Some systems look only every now and then whether the mouse has left.
    host.MouseTo(host.DescriptionPane(), 20, 20);
    EXPECT_TRUE(Eventually([&] { return edge(previous) == Picture::kUntouched; }));
}

TEST_F(ChromeTest, ADisabledControlLooksAsIfItTookInput) {
    GridContainer host;
    constexpr COLORREF kInk = RGB(200, 0, 0);
    host->put_ActiveView(omCatagorized);
    host->put_RecordsetToolbar(omShow);
    host->put_ForeColor(kInk);
    host->put_PropertyForeColor(kInk);
    host->put_CategoryForeColor(kInk);
    host->put_HighlightForeColor(kInk);
    host->put_ReadOnlyPropertyColor(kInk);
    host->put_TreeStyle(omText);
    const auto text = host.Add(L"Text", L"text", L"Group"), flag = host.Add(L"Flag", true, L"Group", omBooleanEditor);
    host.Add(L"Fixed", L"fixed", L"Group")->put_ReadOnly(VARIANT_TRUE);
    text->put_Help(_bstr_t(L"Help"));
    // How much is drawn in a colour of tabs, headers, rows, description, button and open editor.
    const auto drawn = [&](COLORREF color) {
        std::vector<long> counts;
        const HWND list = FindWindowExW(host.Tree(), nullptr, L"ComboBox", nullptr);
        for (const HWND part :
             {host.TabStrip(), PaneAt(host.HeaderStrip(), 0), PaneAt(host.HeaderStrip(), 1), host.Tree(),
              host.DescriptionPane(), PaneAt(Toolbar(host), 0), IsWindowVisible(list) ? list : host.EditBox()}) {
            const Picture picture(part);
            counts.push_back(picture.Count(color, Whole(picture)));
        }
        return counts;
    };
    const std::vector<long> none(7);
    for (const auto& row : {text, flag}) {
        host.Select(row.Get());
        const auto ink = drawn(kInk), gray = drawn(GetSysColor(COLOR_GRAYTEXT));
        EXPECT_EQ(std::ranges::count(ink, 0), 0);
        host->put_Enabled(VARIANT_FALSE);
        EXPECT_EQ(drawn(kInk), none);
        const auto grayed = drawn(GetSysColor(COLOR_GRAYTEXT));
        for (std::size_t part = 0; part < none.size(); ++part)
            EXPECT_EQ(grayed[part] > gray[part], part != 5) << part << ": a button has the look of a disabled one";
        host->put_Enabled(VARIANT_TRUE);
        EXPECT_EQ(drawn(kInk), ink);
    }
}

TEST_F(ChromeTest, ScreenAndSnapshotAreNotTheSameAfterAChange) {
    GridContainer host;
    const auto a = host.Add(L"A", L"1", L"Group");
    a->put_Help(_bstr_t(L"Help"));
    for (int i = 0; i < 20; ++i)
        host.Add(L"Row" + std::to_wstring(i), L"v", L"Group");
    FONTDESC bold{sizeof bold, const_cast<LPOLESTR>(L"Tahoma"), {}, FW_BOLD, 0, FALSE, FALSE, FALSE};
    bold.cySize.int64 = 110000;
    ComPtr<IFontDisp> font;
    ASSERT_EQ(OleCreateFontIndirect(&bold, IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf())), S_OK);
    const struct {
        const char* name;
        std::function<void()> make;
    } changes[] = {
        {"BackColor", [&] { host->put_BackColor(kBack); }},
        {"ForeColor", [&] { host->put_ForeColor(RGB(80, 0, 0)); }},
        {"selection", [&] { host.Select(a.Get()); }},
        {"Help", [&] { a->put_Help(_bstr_t(L"Other help")); }},
        {"Name", [&] { a->put_Name(_bstr_t(L"Other name")); }},
        {"RecordsetToolbar", [&] { host->put_RecordsetToolbar(omShow); }},
        {"disabled", [&] { host->put_Enabled(VARIANT_FALSE); }},
        {"enabled", [&] { host->put_Enabled(VARIANT_TRUE); }},
        {"Sorted", [&] { host->put_Sorted(VARIANT_TRUE); }},
        {"SortOrder", [&] { host->put_SortOrder(omDescending); }},
        {"ActiveView", [&] { host->put_ActiveView(omCatagorized); }},
        {"a focused tab", [&] { host.RealClick(host.TabStrip(), 10, 8); }},
        {"tab caption", [&] { host->put_CategorizedTabCaption(_bstr_t(L"A && rather &long caption of a tab")); }},
        {"captions", [&] { host->put_NameCaption(_bstr_t(L"")), host->put_ValueCaption(_bstr_t(L"&V")); }},
        {"flat headers", [&] { host->put_Headers(omHeadersFlat); }},
        {"flat", [&] { host->put_Appearance(omFlat); }},
        {"BorderStyle", [&] { host->put_BorderStyle(omFixedSingle); }},
        {"font", [&] { host->putref_Font(font.Get()); }},
        {"divider", [&] { host->put_ColumnDividerPosition(60); }},
        {"description", [&] { host->put_DescriptionPaneHeight(-1); }},
        {"smaller", [&] { host.Resize({140, 220}); }},
        {"nothing and back", [&] { host.Resize({0, 0}), host.Resize({260, 280}); }},
        {"no headers", [&] { host->put_Headers(omHeadersNone); }},
        {"no tabs", [&] { host->put_ShowTabs(VARIANT_FALSE); }},
        {"no description", [&] { host->put_ShowDescription(VARIANT_FALSE); }},
        {"raised", [&] { host->put_Appearance(om3d); }},
    };
    Picture before = Snapshot(host);
    for (const auto& change : changes) {
        SCOPED_TRACE(change.name);
        change.make();
        host.Pump();
        const Picture after = Snapshot(host);
        EXPECT_GT(Differences(before, after), 0) << "the change is not to be seen";
        EXPECT_EQ(Differences(after, OnScreen(host)), 0);
        EXPECT_EQ(after.Count(Picture::kUntouched, Whole(after)), 0);
        before = after;
    }
}

TEST_F(ChromeTest, LargeUnitsLoseABarOrWhereItWasBefore) {
    GridContainer host;
    const HWND strip = host.HeaderStrip(), ground = GetParent(host.TabStrip());
    const auto bar = [&] { return OriginIn(host.DescriptionPane(), ground).y - 2; };
    const long first = bar();
    host.RealDrag(ground, {20, first}, {20, first - 30});
    host.SetAmbient(L"ScaleUnits", L"Inch");
    EXPECT_NEAR(static_cast<double>(bar()), static_cast<double>(first - 30), 1.0);
    host.RealClick(ground, 20, bar(), 2);
    EXPECT_NEAR(static_cast<double>(bar()), static_cast<double>(first), 1.0) << "a double click goes back";
    const long divider = OriginIn(PaneAt(strip, 1), strip).x - 1;
    host.RealDrag(strip, {divider, 8}, {divider - 40, 8});
    EXPECT_NEAR(static_cast<double>(OriginIn(PaneAt(strip, 1), strip).x), static_cast<double>(divider + 1 - 40), 1.0);
    // A drag that somebody else's capture ends leaves the bar and the cursor alone.
    const long last = bar();
    const LPARAM on = MAKELPARAM(20, last), beyond = MAKELPARAM(20, last - 50);
    SendMessageW(ground, WM_LBUTTONDOWN, MK_LBUTTON, on);
    SendMessageW(ground, WM_MOUSEMOVE, MK_LBUTTON, beyond);
    SetCapture(host.window);
    EXPECT_EQ(GetCapture(), host.window);
    SendMessageW(ground, WM_LBUTTONUP, 0, beyond);
    ReleaseCapture();
    EXPECT_EQ(bar(), last);
    EXPECT_TRUE(Eventually([] {
        RECT clip{};
        GetClipCursor(&clip);
        return clip.right - clip.left >= GetSystemMetrics(SM_CXSCREEN);
    }));
}

} // namespace
} // namespace ormisk::test
