#pragma once

#include "platform/Color.h"
#include "platform/FontDescription.h"
#include "win/Geometry.h"

#include <windows.h>

#include <ocidl.h>

#include <optional>
#include <string>

namespace ormisk {

class CNode;
class CProperty;
class Grid;
struct LayoutMetrics;
struct RowGeometry;

// Draws the rows, straight into any context: background, then each row that meets the clip rectangle as a name cell and
// a value cell. Reads geometry and state and changes neither.
class RowPainter {
public:
    explicit RowPainter(Grid& grid) : m_Grid(grid) {}

    void PaintTree(HDC dc, const Rect& clip);

    // The font of a row's texts; owned by the resource cache.
    HFONT FontOf(const CNode& node);
    // The size of a row's picture in pixels, if it has one.
    std::optional<Size> PictureSize(const CNode& node) const;

private:
    struct Cell;

    void DrawBackgroundPicture(HDC dc, const Rect& clip);
    void DrawRow(HDC dc, CNode& node, const RowGeometry& geometry, bool lastRow);
    void DrawCell(HDC dc, Cell& cell);
    void FillCell(HDC dc, const Cell& cell);
    void DrawGridLines(HDC dc, const Cell& cell);
    void DrawTreeLines(HDC dc, const Cell& cell);
    void DrawPlusMinus(HDC dc, const Cell& cell);
    void DrawPropertyPicture(HDC dc, const Cell& cell);
    void DrawColorSwatch(HDC dc, Cell& cell);
    void DrawCellText(HDC dc, Cell& cell);
    void ValueText(const Cell& cell);
    void DrawGridLine(HDC dc, Color color, long x1, long y1, long x2, long y2, bool solid);
    Color FillColorOf(const Cell& cell) const;
    Color TextColorOf(const Cell& cell) const;
    bool RaiseDraw(HDC dc, const Cell& cell, long stage);

    Grid& m_Grid;
    // Of the cell in work; kept so that painting allocates nothing a row.
    std::wstring m_Text;
    FontDescription m_NodeFont;
};

} // namespace ormisk
