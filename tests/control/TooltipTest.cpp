// The tooltip window behind its properties.

#include "HandleCount.h"

#include "platform/TextForms.h"
#include "platform/Tooltip.h"

#include <gtest/gtest.h>

namespace ormisk::test {
namespace {

class TooltipTest : public testing::Test {
protected:
    void SetUp() override {
        parent = CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
        CTooltip().init(parent); // the system keeps what the first one made
        before = {};
    }
    void TearDown() override {
        before.ExpectNoMore();
        DestroyWindow(parent);
    }

    HWND parent = nullptr;
    Inventory before;
};

TEST_F(TooltipTest, ToolsAreAddedTwiceRefusedWithoutATextOrLost) {
    CTooltip tip;
    tip.init(parent);
    EXPECT_TRUE(tip.AddTool(7, false, 1, 2, 3, 4, L"  some text "));
    EXPECT_FALSE(tip.AddTool(7, false, 0, 0, 0, 0, L"again"));
    EXPECT_TRUE(tip.AddTool(8, false, 0, 0, 9, 9, L""));
    EXPECT_TRUE(tip.AddTool(reinterpret_cast<UINT_PTR>(parent), true, 0, 0, 0, 0, L"all of it"));
    EXPECT_EQ(tip.ToolCount(), 3);
    EXPECT_EQ(tip.Text(7), L"some text");
    EXPECT_EQ(tip.Text(reinterpret_cast<UINT_PTR>(parent)), L"all of it");
    EXPECT_EQ(tip.ToolId(0) + tip.ToolId(1), 15U);
    EXPECT_EQ(tip.ToolId(3), 0U);
    EXPECT_EQ(tip.ToolId(-1), 0U);

    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = parent;
    tool.uId = 7;
    ASSERT_TRUE(SendMessageW(tip.hwnd(), TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool)));
    EXPECT_EQ(tool.uFlags & 0x111U, 0x110U);
    EXPECT_EQ(tool.rect.right, 4);
    tip.SetNewToolRect(7, 10, 20, 30, 40);
    SendMessageW(tip.hwnd(), TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool));
    EXPECT_EQ(tool.rect.left, 10);
    EXPECT_EQ(tool.rect.bottom, 60);
    tip.DeleteTool(7);
    tip.DeleteTool(7);
    EXPECT_EQ(tip.ToolCount(), 2);
}

TEST_F(TooltipTest, TextsOfEitherFormComeBackChanged) {
    CTooltip tip;
    tip.init(parent);
    tip.AddTool(1, false, 0, 0, 1, 1, L"x");
    const std::wstring longText(70, L'\x00E9');
    for (const std::wstring& text : {std::wstring(L"Caf\x00E9 & co"), longText, std::wstring()}) {
        tip.Text(1, text);
        EXPECT_EQ(tip.Text(1), text);
    }
    tip.Unicode(true);
    const std::wstring expanded = ExpandText(L"plain text");
    tip.Text(1, expanded);
    EXPECT_EQ(tip.Text(1), expanded);
    tip.Unicode(false);
    EXPECT_EQ(tip.Text(1), L"plain text");
    tip.Text(99, L"nobody's");
    EXPECT_EQ(tip.Text(99), L"");
}

TEST_F(TooltipTest, OneSettingMovesAnotherOrIsLost) {
    CTooltip tip;
    tip.init(parent);
    tip.LeftMargin(1);
    tip.TopMargin(2);
    tip.RightMargin(3);
    tip.BottomMargin(4);
    tip.TopMargin(7);
    EXPECT_EQ(tip.LeftMargin(), 1);
    EXPECT_EQ(tip.TopMargin(), 7);
    EXPECT_EQ(tip.RightMargin(), 3);
    EXPECT_EQ(tip.BottomMargin(), 4);

    const LONG_PTR style = GetWindowLongPtrW(tip.hwnd(), GWL_STYLE);
    EXPECT_EQ(style & 0x13, 0x13);
    tip.BallonStyle(true);
    EXPECT_EQ(GetWindowLongPtrW(tip.hwnd(), GWL_STYLE), style | 0x40);
    EXPECT_TRUE(tip.BallonStyle());
    tip.BallonStyle(false);
    EXPECT_EQ(GetWindowLongPtrW(tip.hwnd(), GWL_STYLE), style);
}

TEST_F(TooltipTest, ATooltipIsUsedBeforeItsWindowOrOutlivesIt) {
    CTooltip tip;
    EXPECT_EQ(tip.hwnd(), nullptr);
    EXPECT_FALSE(tip.AddTool(1, false, 0, 0, 0, 0, L"x"));
    EXPECT_EQ(tip.Text(1), L"");
    tip.BallonStyle(true);
    EXPECT_FALSE(tip.BallonStyle());
    const HWND other = CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    tip.init(other);
    EXPECT_NE(tip.hwnd(), nullptr);
    DestroyWindow(other);
    EXPECT_EQ(tip.hwnd(), nullptr);
    tip.SetToolWindowPos(1, 1);
    EXPECT_EQ(tip.ToolCount(), 0);
    tip.init(parent);
    tip.init(parent);
    EXPECT_TRUE(IsWindow(tip.hwnd()));
}

} // namespace
} // namespace ormisk::test
