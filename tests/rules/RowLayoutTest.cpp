#include "grid/RowLayout.h"

#include <gtest/gtest.h>

namespace ormisk {
namespace {

LayoutMetrics Metrics(long rowHeight) {
    LayoutMetrics m;
    m.rowHeight = rowHeight;
    m.headerHeight = 19;
    m.client = {200, 19 + 5 * rowHeight};
    m.scrollBarWidth = 16;
    m.divider = 100.0;
    return m;
}

TEST(RowLayout, HeightsAreEvenAndGlyphsHaveAMiddle) {
    EXPECT_EQ(RowHeightOfText(13), 18);
    EXPECT_EQ(RowHeightOfText(14), 18);
    EXPECT_EQ(HeaderHeightOfText(13), 19);
    const long glyphs[][2] = {{18, 8}, {16, 8}, {20, 10}, {22, 10}};
    for (const auto& [height, glyph] : glyphs) {
        const RowGeometry g = LayoutRow(Metrics(height), 0, 1, {});
        EXPECT_EQ(g.expander.Width(), glyph + 1) << height;
        EXPECT_EQ(g.expander.Height(), glyph + 1) << height;
        EXPECT_EQ(g.expander.top, (height - glyph) / 2) << height;
    }
}

TEST(RowLayout, TextStartsBehindGlyphIndentAndPicture) {
    LayoutMetrics m = Metrics(18);
    RowGeometry g = LayoutRow(m, 0, 1, {});
    EXPECT_EQ(g.expander.left, 2);
    EXPECT_EQ(g.expander.right, 11);
    EXPECT_EQ(g.textLeft, 13);
    EXPECT_EQ(g.treeLineLeft, 6); // the middle of 2 and 11, tied to even

    g = LayoutRow(m, 0, 2, Size{12, 10});
    EXPECT_EQ(g.picture, (Rect{23, 4, 35, 14}));
    EXPECT_EQ(g.textLeft, 37);
    g = LayoutRow(m, 0, 2, Size{12, 40});
    EXPECT_EQ(g.picture, (Rect{23, 0, 35, 18})) << "a tall picture is cut to the row";

    m.expanderStyle = false;
    g = LayoutRow(m, 0, 2, {});
    EXPECT_EQ(g.textLeft, 10);
    EXPECT_EQ(g.treeLineLeft, 4);
    EXPECT_EQ(LayoutRow(m, 0, 1, {}).treeLineLeft, -6);
    for (const bool expanderStyle : {false, true}) {
        m.indentation = 1e300;
        m.expanderStyle = expanderStyle;
        g = LayoutRow(m, 0, 1000, {});
        EXPECT_GE(g.textLeft, 1000000) << "off every screen";
        EXPECT_LT(g.textLeft, 1100000);
    }
}

TEST(RowLayout, CellsMeetAtTheDividerAndLeaveTheScrollBarFree) {
    LayoutMetrics m = Metrics(18);
    RowGeometry g = LayoutRow(m, 2, 1, {});
    EXPECT_EQ(g.row, (Rect{0, 55, 200, 73}));
    EXPECT_EQ(g.name, (Rect{0, 55, 101, 73}));
    EXPECT_EQ(g.value, (Rect{101, 55, 200, 73}));
    m.scrollBarShown = true;
    m.scrollValue = 3;
    g = LayoutRow(m, 0, 1, {});
    EXPECT_EQ(g.row, (Rect{0, 19 - 54, 184, 19 - 36}));
    EXPECT_EQ(g.value.right, 184);
    m.scrollBarShown = false;
    EXPECT_EQ(RowRect(m, 0).top, 19) << "a hidden bar does not scroll";
}

TEST(RowLayout, EdgesOfRowsAreOutside) {
    const LayoutMetrics m = Metrics(18);
    EXPECT_FALSE(RowAtPoint(m, 50, 19));
    EXPECT_EQ(RowAtPoint(m, 50, 20), 0);
    EXPECT_EQ(RowAtPoint(m, 50, 36), 0);
    EXPECT_FALSE(RowAtPoint(m, 50, 37));
    EXPECT_EQ(RowAtPoint(m, 50, 38), 1);
    EXPECT_FALSE(RowAtPoint(m, 0, 30));
    EXPECT_FALSE(RowAtPoint(m, 200, 30));
    EXPECT_FALSE(RowAtPoint(m, 50, 10)) << "above the first row";
}

TEST(RowLayout, RangesCoverEveryRowThatMeetsTheStrip) {
    LayoutMetrics m = Metrics(18);
    m.scrollBarShown = true;
    m.scrollValue = 7;
    const RowRange range = RowsBetween(m, 19, 19 + 90);
    EXPECT_EQ(range.first, 7);
    EXPECT_EQ(range.end, 12);
    const RowRange above = RowsBetween(m, 0, 1);
    EXPECT_EQ(above.first, 5) << "rows under the header count too";
    EXPECT_EQ(above.end, 6);
}

TEST(RowLayout, ScrollRangeKeepsAtLeastOneRowAStep) {
    EXPECT_FALSE(ScrollRangeFor(0, 100, 0, 18)) << "no rows leave the bar as it is";
    EXPECT_FALSE(ScrollRangeFor(10, 180, 0, 18)->shown);
    const auto nine = ScrollRangeFor(10, 179, 0, 18);
    EXPECT_TRUE(nine->shown);
    EXPECT_EQ(nine->max, 1);
    EXPECT_EQ(nine->largeChange, 9);
    const auto none = ScrollRangeFor(4, 0, 19, 18);
    EXPECT_EQ(none->largeChange, 1);
    EXPECT_EQ(none->max, 4);
}

TEST(RowLayout, ARowOutOfViewIsBroughtInWhole) {
    LayoutMetrics m = Metrics(18);
    m.scrollBarShown = true;
    m.scrollValue = 10;
    EXPECT_FALSE(ScrollValueFor(m, RowRect(m, 10)));
    EXPECT_FALSE(ScrollValueFor(m, RowRect(m, 14)));
    EXPECT_EQ(ScrollValueFor(m, RowRect(m, 15)), 12);
    EXPECT_EQ(ScrollValueFor(m, RowRect(m, 9)), 9);
    EXPECT_EQ(ScrollValueFor(m, RowRect(m, 2)), 2);
    m.client.cy -= 9; // the last row is half below the edge: a half step more ties to the even number
    EXPECT_EQ(ScrollValueFor(m, RowRect(m, 14)), 12);
    m.client.cy += 8; // a sliver below
    EXPECT_EQ(ScrollValueFor(m, RowRect(m, 14)), 11);
}

TEST(RowLayout, WheelAndPageStayInRange) {
    EXPECT_EQ(WheelSteps(-120, 3, 10), 1);
    EXPECT_EQ(WheelSteps(120, 3, 10), -1);
    EXPECT_EQ(WheelSteps(60, 3, 10), 0);
    EXPECT_EQ(WheelSteps(-1200, 3, 10), 7);
    EXPECT_EQ(WheelSteps(1200, 3, 10), -3);
    EXPECT_EQ(WheelSteps(-120, 10, 10), 0);
    EXPECT_EQ(PageStep(5), 4);
    EXPECT_EQ(PageStep(2), 1);
    EXPECT_EQ(PageStep(1), 1);
}

TEST(RowLayout, DividerStaysInTheControl) {
    EXPECT_DOUBLE_EQ(ClampDivider(80, 200, 16, 1), 80);
    EXPECT_DOUBLE_EQ(ClampDivider(168, 200, 16, 1), 168);
    EXPECT_DOUBLE_EQ(ClampDivider(169, 200, 16, 1), 167);
    EXPECT_DOUBLE_EQ(ClampDivider(900, 200, 0, 1), 199);
    EXPECT_FALSE(DividerLimit(168, 200, 16));
    EXPECT_DOUBLE_EQ(*DividerLimit(190, 200, 16), 168);
}

} // namespace
} // namespace ormisk
