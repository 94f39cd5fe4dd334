#pragma once

#include <windows.h>

#include <vector>

namespace ormisk {

class Grid;

// The places of the control that TAB goes through: tab strip, headers, rows, open editor, record number, description
// pane. Beyond the ends it is for the host to go on.
class FocusOrder {
public:
    explicit FocusOrder(Grid& grid) : m_Grid(grid) {}

    // TAB was pressed in the control. False at the end: the focus should leave.
    bool Move(bool backward);
    // The focus comes into the control by TAB.
    void Enter(bool backward);

    // Whether ENTER or ESC means something where the focus is.
    bool Uses(int keyCode) const;
    // The focus goes to the rows from a place that is hidden.
    void LeaveHidden();

    // A key in the headers: the arrows move the divider, SPACE and ENTER sort as a click on the name header does. With
    // Ctrl or Alt it is somebody else's.
    void HeaderKeyDown(int keyCode, int shift);
    // A key in the description pane: the arrows move its upper edge.
    void DescriptionKeyDown(int keyCode, int shift);

private:
    std::vector<HWND> Stops(bool shown) const; // or those that are hidden
    void FocusTo(HWND stop);

    Grid& m_Grid;
};

} // namespace ormisk
