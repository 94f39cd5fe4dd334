#pragma once

#include "win/Geometry.h"

#include <ormisk.h>

namespace ormisk {

class CNode;
class Grid;

// Where the editor lies: over the value cell of its row.
class EditorPlace {
public:
    explicit EditorPlace(Grid& grid) : m_Grid(grid) {}

    // Moves the editor there. Raises what it raises.
    void Put(_CEditor* editor, const CNode& node);
    // Whether the row has gone elsewhere since. Off the screen, that can wait for the end of a lock: windows are slow
    // to move.
    bool IsLeft(const CNode& node) const;

private:
    Rect PlaceFor(const CNode& node) const;
    bool IsOffScreen(const Rect& place) const;

    Grid& m_Grid;
    Rect m_Place; // where an editor was put last, in pixels
};

} // namespace ormisk
