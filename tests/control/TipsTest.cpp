// Tips over texts that their cells cut off, by the real mouse, and the help of a row.

#include "Eventually.h"
#include "GridContainer.h"
#include "HandleCount.h"

#include "grid/TipsAndHelp.h"
#include "win/Rects.h"
#include "win/WindowText.h"

#include <commctrl.h>

namespace ormisk::test {
namespace {

const std::wstring kLong = L"A text that is a good deal longer than the cell in which it stands, and then some more";

// The tip of a grid, as it is on screen.
class Tip {
public:
    explicit Tip(const GridContainer& host) {
        EnumThreadWindows(GetCurrentThreadId(), &Find, reinterpret_cast<LPARAM>(this));
        EXPECT_TRUE(window) << "no tooltip";
        tree = host.Tree();
    }
    HWND window = nullptr;
    HWND tree = nullptr;

    bool IsShown() const { return IsWindowVisible(window); }
    bool Comes() const {
        return Eventually([&] { return IsShown(); });
    }
    // It had the time to come.
    bool StaysAway() const {
        const ULONGLONG end = GetTickCount64() + 900;
        return Eventually([&] { return GetTickCount64() > end; }) && !IsShown();
    }
    std::wstring Text() const { return WindowText(window); }
    POINT Corner() const { // in the tree
        RECT place{};
        GetWindowRect(window, &place);
        POINT corner{place.left, place.top};
        ScreenToClient(tree, &corner);
        return corner;
    }

private:
    static BOOL CALLBACK Find(HWND found, LPARAM self) {
        wchar_t name[32] = L"";
        GetClassNameW(found, name, 32);
        HWND* const window = &reinterpret_cast<Tip*>(self)->window;
        // Of the tree's, and not of a palette's.
        if (std::wstring(name) == TOOLTIPS_CLASSW && SendMessageW(found, TTM_GETTOOLCOUNT, 0, 0) == 1)
            *window = found;
        return *window == nullptr;
    }
};

struct TipHost : GridContainer {
    explicit TipHost(int more = 0) {
        Add(L"Short", L"fits");
        Add(L"Long", kLong.c_str());
        Add(kLong, L"x");
        Add(L"Color", 255L, L"", omColorEditor);
        for (int i = 0; i < more; ++i)
            Add(L"Row" + std::to_wstring(i), L"v");
    }
    void Over(long row, bool name) {
        const RECT cell = name ? NameCell(row) : ValueCell(row);
        MouseTo(Tree(), cell.left + 20, (cell.top + cell.bottom) / 2);
    }
    void Aside() { MouseTo(Tree(), 5, RowTop(8)); }
};

TEST_F(GridTest, ATipShowsWhereTheTextFitsOrNotWhereItIsCutOff) {
    TipHost host;
    const Tip tip(host);
    host.Over(1, false);
    ASSERT_TRUE(tip.Comes());
    EXPECT_EQ(tip.Text(), kLong);
    EXPECT_EQ(tip.Corner().x, host.ValueCell(1).left - 1);
    EXPECT_EQ(tip.Corner().y, host.ValueCell(1).top);
    host.Over(0, false);
    EXPECT_TRUE(tip.StaysAway());
    host.Over(2, true);
    ASSERT_TRUE(tip.Comes());
    EXPECT_EQ(tip.Text(), kLong);
    EXPECT_GT(tip.Corner().x, host.NameCell(2).left) << "where the text starts";
    host.Over(3, false);
    EXPECT_TRUE(tip.StaysAway()) << "a colour that fits";

    EXPECT_EQ(host->put_ShowToolTip(VARIANT_FALSE), S_OK);
    host.Over(1, false);
    EXPECT_TRUE(tip.StaysAway());
    EXPECT_EQ(host->put_ShowToolTip(VARIANT_TRUE), S_OK);
    host.Aside();
}

TEST_F(GridTest, ATipLeavesTheScreen) {
    TipHost host;
    std::wstring words;
    for (int i = 0; i < 60; ++i)
        words += L"a number of words ";
    host.Add(L"Words", (words + L"\r\nand a line").c_str());
    const Tip tip(host);
    const HWND window = GetAncestor(host.Tree(), GA_ROOT);
    const Rect screen = WorkArea(window);
    for (const POINT corner : {POINT{screen.right - 180, 0}, POINT{0, screen.bottom - 140}, POINT{-60, 20}}) {
        SetWindowPos(window, nullptr, corner.x, corner.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        for (const long row : {1L, 4L}) {
            host.Over(row, false);
            ASSERT_TRUE(tip.Comes()) << corner.x << ' ' << row;
            const Rect place = WindowRect(tip.window);
            EXPECT_GE(place.left, screen.left);
            EXPECT_LE(place.right, screen.right) << corner.x << ' ' << row;
            EXPECT_LE(place.bottom, screen.bottom) << corner.x << ' ' << row;
            EXPECT_EQ(place.Height() > 3 * host.RowHeight(), row == 4) << "in lines";
            host.Over(0, false);
        }
    }
    host.Aside();
}

TEST_F(GridTest, ATipTakesTheMouseFromItsRow) {
    TipHost host(40);
    const Tip tip(host);
    const auto show = [&] {
        host.Aside();
        host.Over(1, false);
        return tip.Comes();
    };
    ASSERT_TRUE(show());
    host.events.quiet.clear();
    host.Heard();
    const RECT cell = host.ValueCell(1);
    host.MouseTo(host.Tree(), cell.left + 21, (cell.top + cell.bottom) / 2);
    EXPECT_NE(host.Heard().find(L"MouseMove"), std::wstring::npos);
    EXPECT_TRUE(tip.IsShown()) << "a step within the cell";
    host.RealClick(host.Tree(), cell.left + 21, (cell.top + cell.bottom) / 2);
    EXPECT_EQ(host.Selected(), L"Long");
    host.Select(nullptr);
    ASSERT_TRUE(show());
    host.RealWheel(-WHEEL_DELTA);
    EXPECT_NE(GetScrollPos(host.ScrollBarWindow(), SB_CTL), 0);
    host.Aside();
}

TEST_F(GridTest, AnOldTipHangsOverAnotherRow) {
    TipHost host(40);
    const Tip tip(host);
    const std::function<void()> changes[] = {
        [&] { SendMessageW(host.Tree(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0); },
        [&] { host.Resize({240, 300}); },
        [&] { host->put_ActiveView(omCatagorized); },
        [&] { host->put_ActiveView(omAlphabetic); },
        [&] { host.Item(L"_Long")->put_Value(ToVariant(kLong + L"!")); },
        [&] { host->put_ColumnDividerPosition(90); },
        [&] { host->put_ShowToolTip(VARIANT_FALSE), host->put_ShowToolTip(VARIANT_TRUE); },
        [&] { host.Select(host.Item(L"_Long").Get()), host.Select(nullptr); },
        [&] { host.Remove(L"_Long"); },
        [&] { host.Clear(); },
    };
    for (const auto& change : changes) {
        if (Read(host, &OrmiskGrid::get_ActiveView) == omAlphabetic) {
            SendMessageW(host.Tree(), WM_MOUSEWHEEL, MAKEWPARAM(0, 10 * WHEEL_DELTA), 0);
            host.Aside();
            host.Over(1, !host.Item(L"_Long")); // the next row has a long name
            ASSERT_TRUE(tip.Comes()) << &change - changes;
            host.Item(L"_Row3")->put_Value(_variant_t(L"live"));
            EXPECT_TRUE(tip.IsShown()) << "another row changed";
        }
        change();
        EXPECT_FALSE(tip.IsShown()) << &change - changes;
    }
    host.Aside();
}

std::wstring g_Shown;

TEST_F(GridTest, TheHelpOfARowIsShownWithoutAskingOrByAnotherProgram) {
    GridContainer host;
    const HelpCalls system = HelpCallsInUse();
    HelpCallsInUse() = {
        [](const std::wstring& file, long topic) { g_Shown = L"html " + file + std::to_wstring(topic); },
        [](const std::wstring& file, long topic) { g_Shown = L"hlp " + file + std::to_wstring(topic); }};
    const auto row = host.Add(L"Row", L"x");
    row->put_HelpContext(42);
    host.Select(row.Get());
    const auto shown = [&](const wchar_t* file) {
        row->put_HelpFile(_bstr_t(file));
        host.Heard();
        g_Shown.clear();
        host.Press(VK_F1);
        EXPECT_EQ(host.Heard(), L"HelpRequested Row True");
        return g_Shown;
    };
    EXPECT_EQ(shown(L" grid.chm "), L"html grid.chm42");
    EXPECT_EQ(shown(L"grid.HLP"), L"hlp grid.HLP42");
    host.events.on[L"HelpRequested"] = [](const EventCall& call) { call.Set(1, false); };
    EXPECT_EQ(shown(L"grid.chm"), L"");
    HelpCallsInUse() = system;
}

} // namespace
} // namespace ormisk::test
