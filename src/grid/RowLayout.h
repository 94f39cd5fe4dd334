#pragma once

#include "win/Geometry.h"

#include <optional>

namespace ormisk {

// Where the rows lie: everything that follows from a row's number and a few sizes, all in pixels. Nothing is cached: a
// row's rectangles are computed when they are painted or hit.

inline constexpr double kMostIndentation = 1e6; // pixels: what is beyond is on no screen

// What the rectangles of all rows depend on.
struct LayoutMetrics {
    long rowHeight = 18;
    long headerHeight = 0; // 0 without headers
    Size client;           // of the tree pane
    long scrollBarWidth = 0;
    bool scrollBarShown = false;
    long scrollValue = 0;
    double indentation = 10.0;
    bool expanderStyle = true; // a tree style with expander boxes
    double divider = 0.0;      // of the column divider, from the left
};

// The expander and picture rectangles and the two abscissas are relative to the name cell.
struct RowGeometry {
    Rect row;
    Rect name;
    Rect value;
    Rect expander;
    Rect picture;
    long textLeft = 0;
    long treeLineLeft = 0;
};

// An even row height that leaves air around a text of this height.
long RowHeightOfText(long textHeight);

// Height of the header strip around a text of this height.
long HeaderHeightOfText(long textHeight);

// Rectangles of the row with this number, counted from 0 over the displayed rows. Rows above and below the window have
// them too. `picture` is the size of the row's picture, if it has one.
RowGeometry LayoutRow(const LayoutMetrics& metrics, long row, long level, std::optional<Size> picture);

// The strip of a row alone.
Rect RowRect(const LayoutMetrics& metrics, long row);

// Numbers of the first row that shows in [top, bottom) and of the first one behind it; they may lie outside the rows.
struct RowRange {
    long first = 0;
    long end = 0;
};
RowRange RowsBetween(const LayoutMetrics& metrics, long top, long bottom);

// Whether a point lies within a rectangle. All four edges are outside.
bool InRect(long x, long y, const Rect& rect);

// Number of the row at a point, whether or not there are so many rows; nothing on a row's edge.
std::optional<long> RowAtPoint(const LayoutMetrics& metrics, long x, long y);

// Range of the scroll bar.
struct ScrollRange {
    bool shown = false;
    long max = 0;
    long largeChange = 1;
};
// Nothing when there are no rows: the bar then keeps its state.
std::optional<ScrollRange> ScrollRangeFor(long rows, long clientHeight, long headerHeight, long rowHeight);

// Scroll value that brings a row into view, before it is capped to the range; nothing when the row is in view.
std::optional<long> ScrollValueFor(const LayoutMetrics& metrics, const Rect& row);

// Rows to scroll for a turn of the wheel, within the range 0 to `max`.
long WheelSteps(int delta, long value, long max);

// Rows that Page Up and Page Down move.
long PageStep(long largeChange);

// Location of the column divider that a host asked for, in units: it stays within the control. `bar` is the width of
// the scroll bar, 0 when it is hidden; `pixel` is one pixel.
double ClampDivider(double wanted, double controlWidth, double bar, double pixel);

// Location to which a moved divider is pulled back, in units; nothing when it may stay.
std::optional<double> DividerLimit(double location, double controlWidth, long bar);

// Where the editor of a row goes, in pixels: left, top, right and bottom of the value cell but for the grid line.
Rect EditorRect(const Rect& value, bool withGridLines);

// Side of the swatch in a value cell of a colour; it lies 2 pixels from the left and from the top.
Rect SwatchRect(const Rect& cell);

} // namespace ormisk
