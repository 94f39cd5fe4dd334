// The colours of the palette, where its cells, rows and tabs stand, and where the keys go among them.

#include "picker/PaletteMoves.h"

#include <gtest/gtest.h>

#include <set>

namespace ormisk {
namespace {

constexpr Size kScreen{1024, 768};
constexpr Direction kAll[] = {Direction::Left, Direction::Right, Direction::Up, Direction::Down};

TEST(PaletteColors, ATableIsTooShortOrNumbersItsRowsThrough) {
    std::set<Color> all;
    for (int i = 0; i < kPaletteColors; ++i)
        all.insert(PaletteColor(i));
    EXPECT_EQ(all.size(), 48U) << "no colour twice";
    const SystemColorNames names = DefaultSystemColorNames();
    EXPECT_EQ(names[15], L"Button Face");
    EXPECT_EQ(names[27], L"Gradient Inactive Caption");
    for (int i = 0; i < kSystemColors; ++i)
        EXPECT_EQ(RowOfColor(SystemColor(i)), i);
    EXPECT_EQ(SystemColor(24), 0x80000018U);
    EXPECT_EQ(RowOfColor(0x80000019), -1) << "left out";
    EXPECT_FALSE(IsSystemColor(0x7FFFFFFF));
}

TEST(PaletteColors, TheDialogFillsTheLastCellOrLeavesTheRound) {
    int picks = 0;
    for (const int expected : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 0, 1}) {
        EXPECT_EQ(CellOfPick(picks), expected);
        picks = CellOfPick(picks) + 1;
    }
}

TEST(PaletteMoves, TheRingOfCellsClosesElsewhere) {
    using enum Direction;
    const struct {
        PaletteCell from;
        Direction key = Direction::Left;
        PaletteCell to;
    } moves[] = {
        {{false, 20}, Right, {false, 21}}, {{false, 47}, Right, {true, 0}},  {{false, 20}, Left, {false, 19}},
        {{false, 0}, Left, {true, 15}},    {{false, 20}, Down, {false, 28}}, {{false, 39}, Down, {false, 47}},
        {{false, 40}, Down, {true, 0}},    {{false, 47}, Down, {true, 7}},   {{false, 20}, Up, {false, 12}},
        {{false, 8}, Up, {false, 0}},      {{false, 0}, Up, {true, 15}},     {{false, 1}, Up, {true, 8}},
        {{false, 7}, Up, {true, 14}},      {{true, 3}, Right, {true, 4}},    {{true, 15}, Right, {false, 0}},
        {{true, 3}, Left, {true, 2}},      {{true, 0}, Left, {false, 47}},   {{true, 7}, Down, {true, 15}},
        {{true, 8}, Down, {false, 1}},     {{true, 14}, Down, {false, 7}},   {{true, 15}, Down, {false, 0}},
        {{true, 8}, Up, {true, 0}},        {{true, 0}, Up, {false, 40}},     {{true, 7}, Up, {false, 47}},
    };
    for (const auto& [from, key, to] : moves)
        EXPECT_EQ(MovedCell(from, key), to) << from.custom << ' ' << from.index << ' ' << static_cast<int>(key);
    for (const Direction key : kAll)
        EXPECT_EQ(MovedCell({}, key), (PaletteCell{false, 0})) << "from nowhere";
}

TEST(PaletteGeometry, TextOrCaptionDoesNotDecideAboutTheSize) {
    const PaletteSizes narrow = MeasurePalette({40, 13}, 13, kScreen);
    EXPECT_EQ(narrow.window, (Size{135, 154})) << "8 cells of 1.2 lines, and 10 pixels";
    EXPECT_FLOAT_EQ(narrow.cell, 15.625F);
    EXPECT_EQ(narrow.tabs[0], (Rect{0, 0, 56, 20}));
    EXPECT_EQ(narrow.tabs[1], (Rect{56, 0, 112, 20}));
    const PaletteSizes wide = MeasurePalette({100, 13}, 13, kScreen);
    EXPECT_EQ(wide.window, (Size{280, 300})) << "two tabs";
    EXPECT_FLOAT_EQ(wide.cell, 33.75F);
    const PaletteSizes none = MeasurePalette({0, 13}, 13, kScreen);
    EXPECT_EQ(none.window, narrow.window);
    EXPECT_EQ(none.tabs[1].right, 0);
    for (const long endless : {5'000L, 2'000'000'000L}) {
        const PaletteSizes sizes = MeasurePalette({endless, 13}, 13, kScreen);
        EXPECT_LE(sizes.window.cx, kScreen.cx);
        EXPECT_LE(sizes.window.cy, kScreen.cy + 1);
        EXPECT_LE(sizes.tabs[1].right, sizes.window.cx);
    }
    EXPECT_GT(MeasurePalette({40, 13}, 0, {0, 0}).cell, 0);
}

TEST(PaletteGeometry, ATabBehindStandsAsTheOneInFront) {
    const PaletteSizes sizes = MeasurePalette({40, 13}, 13, kScreen);
    EXPECT_EQ(TabShape(sizes, 0, 0), sizes.tabs[0]);
    EXPECT_EQ(TabShape(sizes, 1, 1), sizes.tabs[1]);
    EXPECT_EQ(TabShape(sizes, 0, 1), (Rect{3, 3, 56, 20}));
    EXPECT_EQ(TabShape(sizes, 1, 0), (Rect{56, 3, 112, 20}));
    EXPECT_EQ(TabAt(sizes, {55, 19}), 0);
    EXPECT_EQ(TabAt(sizes, {56, 0}), 1);
    EXPECT_EQ(TabAt(sizes, {112, 0}), -1);
    EXPECT_EQ(TabAt(sizes, {0, 20}), -1);
}

TEST(PaletteGeometry, CellsOverlapLeaveGapsOrStandOutsideTheMiddle) {
    for (const long textHeight : {9L, 13L, 14L, 22L, 57L}) {
        const PaletteSizes sizes = MeasurePalette({40, textHeight}, textHeight, kScreen);
        const Size area{sizes.window.cx, sizes.window.cy - sizes.TabHeight()};
        EXPECT_EQ(CellRect({false, 0}, area, sizes.cell).left, 5);
        EXPECT_NEAR(CellRect({true, 15}, area, sizes.cell).bottom, area.cy - 5, 1);
        for (int i = 0; i < 48; ++i) {
            const Rect cell = CellRect({false, i}, area, sizes.cell);
            if (i % 8 != 7)
                EXPECT_EQ(CellRect({false, i + 1}, area, sizes.cell).left, cell.right);
            EXPECT_EQ(CellRect(MovedCell({false, i}, Direction::Down), area, sizes.cell).top, cell.bottom);
        }
    }
}

TEST(PaletteGeometry, APointHitsTheNeighbour) {
    const Size area{170, 170};
    for (int number = 0; number < 64; ++number) {
        const PaletteCell cell{number >= 48, number >= 48 ? number - 48 : number};
        const Rect rect = CellRect(cell, area, 20);
        EXPECT_EQ(CellAt({rect.left, rect.top}, area, 20), cell);
        EXPECT_EQ(CellAt({rect.right - 1, rect.bottom - 1}, area, 20), cell);
    }
    for (const Point outside : {Point{4, 5}, Point{5, 4}, Point{165, 5}, Point{5, 165}, Point{-9, -9}})
        EXPECT_FALSE(CellAt(outside, area, 20));
    EXPECT_EQ(RowRect(3, area, 20.5F, 0), (Rect{0, 62, 170, 82})) << "halves to the even pixel";
    EXPECT_EQ(RowRect(3, area, 20, 2), (Rect{0, 20, 170, 40}));
    EXPECT_EQ(RowAt({0, 19}, area, 20, 2), 2);
    EXPECT_EQ(RowAt({169, 20}, area, 20, 2), 3);
    EXPECT_EQ(RowAt({170, 20}, area, 20, 2), -1) << "on the scroll bar";
    EXPECT_EQ(RowAt({5, 165}, area, 20, 20), -1) << "below the last row";
}

TEST(PaletteGeometry, TheSelectedCellIsNotTheLastOfItsColour) {
    CustomColors custom;
    custom.fill(0x123456);
    EXPECT_EQ(CellOfColor(0x0000FF, custom), (PaletteCell{false, 17}));
    EXPECT_EQ(CellOfColor(0x123456, custom), (PaletteCell{true, 15}));
    custom[4] = custom[6] = 0x0000FF;
    EXPECT_EQ(CellOfColor(0x0000FF, custom), (PaletteCell{true, 6})) << "a custom cell beats the palette";
    EXPECT_FALSE(CellOfColor(0x654321, custom));
    EXPECT_FALSE(CellOfColor(0x80000005, custom));
}

TEST(PaletteGeometry, RowsScrollTooFarOrTooLittle) {
    const Size area{170, 170};
    EXPECT_EQ(LastScroll(area, 20), 20) << "28 less 8.5, to the even one";
    EXPECT_EQ(LastScroll({135, 135}, 15.625F), 19);
    EXPECT_EQ(LastScroll({170, 1000}, 20), 0);
    EXPECT_EQ(ScrollFor(7, area, 20, 0), 0);
    EXPECT_EQ(ScrollFor(8, area, 20, 0), 1);
    EXPECT_EQ(ScrollFor(4, area, 20, 5), 4);
    EXPECT_EQ(ScrollFor(27, area, 20, 0), 20);
    EXPECT_EQ(ScrollFor(3, {170, 5}, 20, 0), 3) << "less than a row";
}

TEST(PaletteGeometry, ThePaletteHidesItsFieldOrLeavesTheScreenBelow) {
    const Size window{135, 160};
    EXPECT_EQ(PlaceOfPalette({300, 100, 500, 120}, window, 768), (Point{365, 120}));
    EXPECT_EQ(PlaceOfPalette({300, 700, 500, 720}, window, 768), (Point{365, 540})) << "upward, on its top";
    EXPECT_EQ(PlaceOfPalette({300, 588, 500, 608}, window, 768), (Point{365, 428})) << "it would touch the edge";
    EXPECT_EQ(PlaceOfPalette({300, 587, 500, 607}, window, 768), (Point{365, 607}));
    EXPECT_EQ(PlaceOfPalette({0, 100, 50, 120}, window, 768), (Point{-85, 120})) << "out at the left";
}

} // namespace
} // namespace ormisk
