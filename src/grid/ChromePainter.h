#pragma once

#include "platform/Color.h"
#include "win/Gdi.h"
#include "win/Geometry.h"

#include <string>

namespace ormisk {

class CProperty;
class Grid;
struct ShadedLine;

// Draws what surrounds the rows, each part into a context whose origin is that of its pane and whose surface is
// cleared: the tabs with the frame of their page, the column headers, the description pane. Reads geometry and state
// and changes neither. What it sets in the context is for the caller to undo.
class ChromePainter {
public:
    explicit ChromePainter(Grid& grid) : m_Grid(grid) {}

    void DrawTabs(HDC dc);
    void DrawColumnHeader(HDC dc, bool nameColumn);
    void DrawDescription(HDC dc);

private:
    void DrawTab(HDC dc, int index, const std::wstring& caption, bool inFront);
    void DrawLine(HDC dc, const ShadedLine& line);
    void DrawSortArrow(HDC dc, Size client);
    Unique<HBITMAP> GetArrowBitmap(HDC dc, bool up);
    void DrawHelp(HDC dc, const CProperty& property, Size client);
    // Text becomes transparent and of the control's colour. Gives the control's font, or null.
    HFONT PrepareText(HDC dc) const;
    Color BackColor() const;

    Grid& m_Grid;
};

} // namespace ormisk
