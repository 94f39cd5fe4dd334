#include "grid/RowLayout.h"

#include "platform/Rounding.h"

#include <algorithm>

namespace ormisk {

namespace {

// The glyph of the expander is half a row, and even, so that its signs have a middle.
long GlyphSize(long rowHeight) {
    const long size = RoundToLong(rowHeight / 2.0);
    return size % 2 == 0 ? size : size - 1;
}

long RowTop(const LayoutMetrics& metrics, long row) {
    const long scrolled = metrics.scrollBarShown ? metrics.scrollValue : 0;
    return metrics.headerHeight + (row - scrolled) * metrics.rowHeight;
}

long FloorDivide(long value, long by) { return value >= 0 ? value / by : -((-value + by - 1) / by); }

} // namespace

long RowHeightOfText(long textHeight) {
    const long height = textHeight + 4;
    return height % 2 == 0 ? height : height + 1;
}

long HeaderHeightOfText(long textHeight) { return textHeight + 6; }

Rect RowRect(const LayoutMetrics& metrics, long row) {
    const long top = RowTop(metrics, row);
    const long width = metrics.client.cx - (metrics.scrollBarShown ? metrics.scrollBarWidth : 0);
    return {0, top, width, top + metrics.rowHeight};
}

RowGeometry LayoutRow(const LayoutMetrics& metrics, long row, long level, std::optional<Size> picture) {
    RowGeometry g;
    g.row = RowRect(metrics, row);
    const long divider = RoundToLong(metrics.divider + 1.0);
    g.name = {g.row.left, g.row.top, divider, g.row.bottom};
    long right = RoundToLong((metrics.client.cx - metrics.divider) + divider - 1.0);
    if (metrics.scrollBarShown)
        right -= metrics.scrollBarWidth;
    g.value = {divider, g.row.top, right, g.row.bottom};

    const long glyph = GlyphSize(metrics.rowHeight);
    const double indentation = std::min(metrics.indentation * (level - 1), kMostIndentation);
    long x = 0;
    if (metrics.expanderStyle) {
        g.expander.left = RoundToLong(indentation + 2.0);
        g.expander.top = RoundToLong((metrics.rowHeight - glyph) / 2.0);
        g.expander.right = g.expander.left + glyph + 1;
        g.expander.bottom = g.expander.top + glyph + 1;
        x = g.expander.right + 2;
        g.treeLineLeft = RoundToLong((g.expander.right + g.expander.left) / 2.0);
    } else {
        x = RoundToLong(indentation);
        g.treeLineLeft = RoundToLong(glyph / 2.0 + x - std::min(metrics.indentation, kMostIndentation));
    }
    if (picture) {
        g.picture.left = x;
        g.picture.right = x + picture->cx;
        if (metrics.rowHeight > picture->cy) {
            g.picture.top = (metrics.rowHeight - picture->cy) / 2;
            g.picture.bottom = g.picture.top + picture->cy;
        } else {
            g.picture.bottom = metrics.rowHeight;
        }
        x = g.picture.right + 2;
    }
    g.textLeft = x;
    return g;
}

RowRange RowsBetween(const LayoutMetrics& metrics, long top, long bottom) {
    const long origin = RowTop(metrics, 0);
    return {FloorDivide(top - origin, metrics.rowHeight), FloorDivide(bottom - 1 - origin, metrics.rowHeight) + 1};
}

bool InRect(long x, long y, const Rect& rect) {
    return rect.left < x && x < rect.right && rect.top < y && y < rect.bottom;
}

std::optional<long> RowAtPoint(const LayoutMetrics& metrics, long x, long y) {
    const long row = FloorDivide(y - RowTop(metrics, 0), metrics.rowHeight);
    if (row < 0 || !InRect(x, y, RowRect(metrics, row)))
        return std::nullopt;
    return row;
}

std::optional<ScrollRange> ScrollRangeFor(long rows, long clientHeight, long headerHeight, long rowHeight) {
    if (rows < 1)
        return std::nullopt;
    const long fit = std::max((clientHeight - headerHeight) / rowHeight, 0L);
    ScrollRange range;
    if (fit < rows) {
        range.shown = true;
        range.largeChange = std::max(fit, 1L);
        range.max = rows - fit;
    }
    return range;
}

std::optional<long> ScrollValueFor(const LayoutMetrics& metrics, const Rect& row) {
    const long top = metrics.headerHeight;
    const long bottom = metrics.client.cy;
    const double height = static_cast<double>(row.Height());
    if (row.top >= top && row.bottom <= bottom)
        return std::nullopt;
    if (row.top >= top)
        return metrics.scrollValue + RoundToLong(static_cast<double>(row.bottom - bottom) / height + 1.0);
    const long rows = RoundToLong(static_cast<double>(top - row.top) / height);
    return metrics.scrollValue - (rows == 0 ? 1 : rows);
}

long WheelSteps(int delta, long value, long max) {
    const long steps = RoundToLong(-delta / 120.0);
    return std::clamp(value + steps, 0L, max) - value;
}

long PageStep(long largeChange) { return largeChange > 1 ? largeChange - 1 : largeChange; }

double ClampDivider(double wanted, double controlWidth, double bar, double pixel) {
    return controlWidth - 2.0 * bar < wanted ? controlWidth - pixel - 2.0 * bar : wanted;
}

std::optional<double> DividerLimit(double location, double controlWidth, long bar) {
    const double limit = controlWidth - 2.0 * bar;
    return limit < location ? std::optional(limit) : std::nullopt;
}

Rect EditorRect(const Rect& value, bool withGridLines) {
    return {value.left, withGridLines ? value.top : value.top + 1, value.right, value.bottom - 1};
}

Rect SwatchRect(const Rect& cell) {
    const long top = cell.top + 2;
    const long bottom = cell.bottom - 3;
    const long left = cell.left + 2;
    return {left, top, left + bottom - top, bottom};
}

} // namespace ormisk
