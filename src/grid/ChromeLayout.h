#pragma once

#include "platform/Scale.h"
#include "win/Geometry.h"

#include <array>

namespace ormisk {

// Where everything around the rows lies: tabs and page, headers, description pane, record toolbar. All in pixels of the
// pane that it is drawn in.

// A line in a shade of the back colour. It leaves its last point out.
enum class Shade { Lighter, Dark, Darker };
struct ShadedLine {
    Shade shade = Shade::Lighter;
    Point from;
    Point to;
};

// Two tabs side by side in the left upper corner of their strip, and the page under them. Sizes are whole units of the
// strip.
class TabStrip {
public:
    TabStrip() = default;
    // Around captions of up to this size.
    TabStrip(UnitScale scale, Size client, Size caption, bool unicode);

    Rect Tab(int index) const;

    struct Face {
        std::array<ShadedLine, 7> lines;
        Rect caption;
    };
    // A tab behind is lower and, if it is the first one, narrower.
    Face TabFace(int index, bool behind) const;
    // The frame of the page. Under the tab in front it leaves a gap.
    std::array<ShadedLine, 7> Page(Size client, int front) const;

private:
    Point At(double x, double y) const;

    UnitScale m_Scale;
    double m_Width = 0;
    double m_Height = 0;
};

// In a column header of this size: the caption takes the middle half.
Rect HeaderCaption(Size client);
inline constexpr long kSortArrowSize = 8;
Point SortArrowPlace(Size client);

// In a description pane: a row for the name, and under it the help text, whose rectangle ends below the pane.
Rect HelpCaption(Size client, long rowHeight);
Rect HelpText(Size client, long rowHeight);
long DescriptionHeight(long textHeight, long rowHeight);

// The record toolbar at the bottom of the tab container, and in it from left to right: first, previous, record number,
// total, next, last. `text` is the size of two letters, `total` the width of that text, 0 for none. What does not fit
// is left out, with no width: the total first, then the number, then both ends.
struct ToolbarPlaces {
    Rect strip;
    std::array<Rect, 6> parts;
};
ToolbarPlaces LayoutToolbar(Size text, long total, Size container, bool framed);

// A triangle half as high as the button and half as deep as high, in the middle, with a bar behind its base if asked
// for.
struct ToolbarArrow {
    std::array<Point, 3> triangle;
    std::array<Point, 2> bar;
};
ToolbarArrow LayoutArrow(Size button, bool toLeft, bool withBar);

} // namespace ormisk
