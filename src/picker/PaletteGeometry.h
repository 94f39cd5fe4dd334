#pragma once

#include "picker/PaletteColors.h"
#include "win/Geometry.h"

#include <array>

namespace ormisk {

// Where everything of the palette window stands, in pixels, and what is at a point.

inline constexpr int kCellsPerRow = 8;
inline constexpr int kPaletteTab = 0;
inline constexpr int kSystemTab = 1;

// A cell of the palette tab: an index into the palette or into the custom colours, -1 for none.
struct PaletteCell {
    bool custom = false;
    int index = -1;

    explicit operator bool() const { return index >= 0; }
    bool operator==(const PaletteCell&) const = default;
};

bool Contains(const Rect& rect, Point point);

struct PaletteSizes {
    Size window;
    float cell = 1; // the edge of a cell and the height of a row
    std::array<Rect, 2> tabs;

    long TabHeight() const { return tabs[0].bottom; }
};

// The wider caption decides about the tabs, they or the text about the cells: a wide caption makes the cells bigger.
// `caption` is as wide and as high as the greatest of both. No window is made that the screen cannot show.
PaletteSizes MeasurePalette(Size caption, long textHeight, Size screen);

// A tab as it is drawn: the one that lies behind is lower, and the first one then begins further right.
Rect TabShape(const PaletteSizes& sizes, int tab, int activeTab);
// -1 for none.
int TabAt(const PaletteSizes& sizes, Point point);

// The cells, in the middle of an area: the custom ones follow the others without a gap.
Rect CellRect(PaletteCell cell, Size area, float edge);
PaletteCell CellAt(Point point, Size area, float edge);
// The cell that shows a colour: the last one, and a custom one before all others.
PaletteCell CellOfColor(Color color, const CustomColors& custom);

// The rows of system colours, with `scroll` of them above the area.
Rect RowRect(int row, Size area, float edge, long scroll);
int RowAt(Point point, Size area, float edge, long scroll); // -1 for none
int RowOfColor(Color color);                                // -1 for none
long LastScroll(Size area, float edge);
// Scrolls as little as brings the row into view.
long ScrollFor(int row, Size area, float edge, long scroll);

// Where the window opens, with its right edge on that of its control: below, or above when there is no room. A control
// at the left of the screen lets it stick out.
Point PlaceOfPalette(const Rect& control, Size window, long screenHeight);

} // namespace ormisk
