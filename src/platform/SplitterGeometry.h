#pragma once

namespace ormisk {

enum class SplitterOrientation : int {
    Vertical = 0,   // a vertical bar, panes side by side
    Horizontal = 1, // a horizontal bar, panes one above the other
};

// A rectangle in the units of the splitter's container.
struct UnitRect {
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;

    bool operator==(const UnitRect&) const = default;
};

struct SplitPanes {
    UnitRect First;
    UnitRect Second;
};

// Where the bar stands before its owner places it: half of the extent across its movement, less the bar.
float InitialSplitterLocation(float width, float height, float bar, SplitterOrientation orientation);

// The location that keeps its fraction when the bar is turned; a whole number.
float TurnedSplitterLocation(float location, float oldExtent, float newExtent);

// The nearest location to the wanted one that leaves each pane `minimum`. When the container is too small for both,
// the second pane keeps it.
float ClampedSplitterLocation(float wanted, float extent, float bar, float minimum);

// The location that keeps the first pane's fraction in a container of a new extent, told by what the panes measure.
float ProportionalSplitterLocation(float location, float extent, float first, float second, float bar);

// The two panes on both sides of the bar. A size is negative when there is no room.
SplitPanes ArrangedPanes(float width, float height, float location, float bar, SplitterOrientation orientation);

} // namespace ormisk
