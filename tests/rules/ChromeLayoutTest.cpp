#include "grid/ChromeLayout.h"

#include <gtest/gtest.h>

namespace ormisk {
namespace {

TEST(ChromeLayout, TabsAreAsWideAsTheirTextsOrHalfOfTheStrip) {
    const UnitScale pixels;
    const UnitScale twips{ScaleMode::Twip, 96};
    const UnitScale inches{ScaleMode::Inch, 96};
    const struct {
        UnitScale scale;
        long strip = 0;
        bool unicode = false;
        Rect first;
        long end = 0; // of the second tab
    } cases[] = {
        {pixels, 400, false, {0, 0, 97, 20}, 194}, // 60 * 1.4 + 10 + 3
        {pixels, 194, false, {0, 0, 97, 20}, 194},
        {pixels, 193, false, {0, 0, 96, 20}, 192}, // 96.5 - 1, tied to even
        {pixels, 101, false, {0, 0, 50, 20}, 100},
        {pixels, 400, true, {0, 0, 199, 20}, 398}, // a text is taken for 150 pixels: 223 are too wide
        {twips, 400, false, {0, 0, 94, 19}, 188},  // the 3 are units
        {inches, 400, false, {0, 0, 192, 0}, 384}, // whole units, or too few of them
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << static_cast<int>(c.scale.mode) << ' ' << c.strip);
        const TabStrip tabs(c.scale, {c.strip, 300}, {60, 13}, c.unicode);
        EXPECT_EQ(tabs.Tab(0), c.first);
        EXPECT_EQ(tabs.Tab(1), (Rect{c.first.right, 0, c.end, c.first.bottom}));
    }
}

TEST(ChromeLayout, HeadersAndHelpKeepClearOfTheirEdges) {
    const struct {
        long width;
        long arrow;
    } cases[] = {{100, 75}, {41, 31}, {38, 28}, {37, 20}, {32, 16}};
    for (const auto& c : cases)
        EXPECT_EQ(SortArrowPlace({c.width, 19}), (Point{c.arrow, 6})) << c.width; // 5.5, tied to even
    EXPECT_EQ(HeaderCaption({102, 19}), (Rect{26, 0, 77, 19}));
    EXPECT_EQ(HelpCaption({200, 60}, 18), (Rect{2, 2, 198, 20}));
    EXPECT_EQ(HelpText({200, 60}, 18), (Rect{2, 22, 198, 80}));
    EXPECT_EQ(DescriptionHeight(26, 18), 52);
}

TEST(ChromeLayout, PartsOfTheToolbarStandSideBySide) {
    const ToolbarPlaces places = LayoutToolbar({13, 15}, 72, {300, 200}, true);
    EXPECT_EQ(places.strip, (Rect{4, 171, 296, 196}));
    EXPECT_EQ(LayoutToolbar({13, 15}, 72, {300, 200}, false).strip, (Rect{0, 175, 300, 200}));
    long x = 4;
    const long widths[] = {17, 17, 48, 72, 17, 17};
    for (std::size_t i = 0; i < places.parts.size(); ++i) {
        EXPECT_EQ(places.parts[i], (Rect{x, 4, x + widths[i], 21})) << i;
        x += widths[i];
    }
}

TEST(ChromeLayout, AToolbarThatIsTooNarrowKeepsTheStepsLongest) {
    const auto shown = [](long width, long total) {
        std::string parts;
        for (const Rect& part : LayoutToolbar({13, 15}, total, {width, 200}, false).parts)
            parts += part.Width() > 0 ? 'x' : '-';
        return parts;
    };
    EXPECT_EQ(shown(196, 72), "xxxxxx");
    EXPECT_EQ(shown(195, 72), "xxx-xx");
    EXPECT_EQ(shown(124, 0), "xxx-xx"); // a total that is not known
    EXPECT_EQ(shown(123, 72), "xx--xx");
    EXPECT_EQ(shown(75, 72), "-x--xx");
    EXPECT_EQ(shown(58, 72), "-x--x-");
    EXPECT_EQ(shown(0, 72), "-x--x-");
}

TEST(ChromeLayout, ArrowsAreMirroredAndInTheMiddle) {
    const struct {
        bool toLeft = false;
        bool withBar = false;
        Point apex;
        long base = 0;
        long bar = 0;
    } cases[] = {
        {true, false, {6, 8}, 10, 10},
        {false, false, {10, 8}, 6, 6},
        {true, true, {5, 8}, 9, 11},
        {false, true, {11, 8}, 7, 5},
    };
    for (const auto& c : cases) {
        const ToolbarArrow arrow = LayoutArrow({17, 17}, c.toLeft, c.withBar);
        EXPECT_EQ(arrow.triangle[0], c.apex);
        EXPECT_EQ(arrow.triangle[1], (Point{c.base, 4}));
        EXPECT_EQ(arrow.triangle[2], (Point{c.base, 12}));
        EXPECT_EQ(arrow.bar[0], (Point{c.bar, 4}));
        EXPECT_EQ(arrow.bar[1], (Point{c.bar, 13}));
    }
    EXPECT_EQ(LayoutArrow({2, 2}, true, false).triangle[1].y, -1) << "never of no depth";
}

} // namespace
} // namespace ormisk
