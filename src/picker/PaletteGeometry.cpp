#include "picker/PaletteGeometry.h"

#include "platform/Rounding.h"

#include <algorithm>

namespace ormisk {

namespace {

constexpr long kMargin = 10; // of both sides of the cells together
constexpr int kGridRows = (kPaletteColors + kCustomColors) / kCellsPerRow;
constexpr long kTabInset = 3;

// Cells are numbered through, the custom ones behind the others.
constexpr int kCells = kPaletteColors + kCustomColors;

PaletteCell CellOfNumber(int number) {
    return number < kPaletteColors ? PaletteCell{false, number} : PaletteCell{true, number - kPaletteColors};
}

long Pixels(double value) { return RoundToLong(value); }

} // namespace

bool Contains(const Rect& rect, Point point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}

PaletteSizes MeasurePalette(Size caption, long textHeight, Size screen) {
    const double tabHeight = static_cast<float>(static_cast<double>(caption.cy) * 1.5);
    // Cells are square, so the screen's height bounds the width as well.
    const double widest = std::max(
        std::min<double>(static_cast<double>(screen.cx), static_cast<double>(screen.cy) - tabHeight), 2.0 * kMargin);
    const double tabWidth =
        static_cast<float>(std::min(static_cast<double>(caption.cx) * 1.4, static_cast<double>(widest) / 2));
    const double cells = static_cast<double>(textHeight) * 1.2 * kCellsPerRow + kMargin;

    PaletteSizes sizes;
    sizes.window.cx = Pixels(std::min(std::max(cells, 2 * tabWidth), widest));
    sizes.cell = static_cast<float>(sizes.window.cx - kMargin) / kCellsPerRow;
    sizes.window.cy = Pixels(static_cast<double>(sizes.cell) * kGridRows + tabHeight + kMargin);
    sizes.tabs[0] = {0, 0, Pixels(tabWidth), Pixels(tabHeight)};
    sizes.tabs[1] = {sizes.tabs[0].right, 0, Pixels(2 * tabWidth), Pixels(tabHeight)};
    return sizes;
}

Rect TabShape(const PaletteSizes& sizes, int tab, int activeTab) {
    Rect shape = sizes.tabs[static_cast<std::size_t>(tab)];
    if (tab != activeTab) {
        shape.top += kTabInset;
        shape.left += tab == 0 ? kTabInset : 0;
    }
    return shape;
}

int TabAt(const PaletteSizes& sizes, Point point) {
    for (int tab = 0; tab < 2; ++tab)
        if (Contains(sizes.tabs[static_cast<std::size_t>(tab)], point))
            return tab;
    return -1;
}

Rect CellRect(PaletteCell cell, Size area, float edge) {
    const double c = edge;
    const int number = cell.index + (cell.custom ? kPaletteColors : 0);
    const int row = number / kCellsPerRow;
    const double x = (static_cast<double>(area.cx) - kCellsPerRow * c) / 2 + number % kCellsPerRow * c;
    const double y = (static_cast<double>(area.cy) - kGridRows * c) / 2 + row * c;
    return {Pixels(x), Pixels(y), Pixels(x + c), Pixels(y + c)};
}

PaletteCell CellAt(Point point, Size area, float edge) {
    for (int number = 0; number < kCells; ++number)
        if (Contains(CellRect(CellOfNumber(number), area, edge), point))
            return CellOfNumber(number);
    return {};
}

PaletteCell CellOfColor(Color color, const CustomColors& custom) {
    for (int i = kCustomColors - 1; i >= 0; --i)
        if (custom[static_cast<std::size_t>(i)] == color)
            return {true, i};
    for (int i = kPaletteColors - 1; i >= 0; --i)
        if (PaletteColor(i) == color)
            return {false, i};
    return {};
}

Rect RowRect(int row, Size area, float edge, long scroll) {
    const double c = edge;
    const long shift = Pixels(static_cast<double>(scroll) * c);
    return {0, Pixels(row * c) - shift, area.cx, Pixels(row * c + c) - shift};
}

int RowAt(Point point, Size area, float edge, long scroll) {
    for (int row = 0; row < kSystemColors; ++row)
        if (Contains(RowRect(row, area, edge, scroll), point))
            return row;
    return -1;
}

int RowOfColor(Color color) {
    for (int row = 0; row < kSystemColors; ++row)
        if (SystemColor(row) == color)
            return row;
    return -1;
}

long LastScroll(Size area, float edge) {
    return std::clamp(Pixels(kSystemColors - static_cast<double>(area.cy) / static_cast<double>(edge)), 0L,
                      kSystemColors - 1L);
}

long ScrollFor(int row, Size area, float edge, long scroll) {
    const long visible = std::max(static_cast<long>(static_cast<float>(area.cy) / edge), 1L);
    return std::clamp(scroll, row - visible + 1, static_cast<long>(row));
}

Point PlaceOfPalette(const Rect& control, Size window, long screenHeight) {
    const bool up = control.bottom + window.cy >= screenHeight;
    return {control.right - window.cx, up ? control.top - window.cy : control.bottom};
}

} // namespace ormisk
