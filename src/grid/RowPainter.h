#pragma once

#include "platform/Color.h"
#include "win/Geometry.h"

#include <windows.h>

#include "ormisk.h"

namespace ormisk {

class CNode;
class Grid;
struct RowGeometry;

// Draws the rows, straight into any context: background, then each row that meets the clip rectangle as a name cell and
// a value cell. Reads geometry, look and state and changes none. What it sets in the context is for the caller to undo.
class RowPainter {
public:
    explicit RowPainter(Grid& grid) : m_Grid(grid) {}

    void PaintTree(HDC dc, const Rect& clip);

private:
    struct Cell;

    void DrawBackgroundPicture(HDC dc, const Rect& clip);
    void DrawRow(HDC dc, CNode& node, const RowGeometry& geometry, bool lastRow);
    void DrawCell(HDC dc, Cell& cell);
    void Fill(HDC dc, const Rect& rect, Color color);
    void DrawGridLines(HDC dc, const Cell& cell);
    void DrawTreeLines(HDC dc, const Cell& cell);
    void DrawPlusMinus(HDC dc, const Cell& cell);
    void DrawPropertyPicture(HDC dc, const Cell& cell);
    void DrawColorSwatch(HDC dc, Cell& cell, Color outline);
    void DrawCellText(HDC dc, Cell& cell);
    void DrawGridLine(HDC dc, Color color, long x1, long y1, long x2, long y2, bool solid);
    bool RaiseDraw(HDC dc, const Cell& cell, omDrawStage stage);

    Grid& m_Grid;
};

} // namespace ormisk
