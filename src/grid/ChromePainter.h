#pragma once

#include "platform/Color.h"
#include "win/Gdi.h"

#include <string>

namespace ormisk {

class CProperty;
class Grid;

// Draws what surrounds the rows, each part into a context whose origin is that of its pane and whose surface is
// cleared: the tabs with the frame of their page, the column headers, the description pane. Reads geometry and state
// and changes neither.
class ChromePainter {
public:
    explicit ChromePainter(Grid& grid) : m_Grid(grid) {}

    void DrawTabs(HDC dc);
    void DrawColumnHeader(HDC dc, bool nameColumn);
    void DrawDescription(HDC dc);

private:
    class UnitLines;
    struct Tab;

    void DrawTab(HDC dc, const Tab& tab);
    void DrawPageFrame(HDC dc);
    void DrawHeaderCaption(HDC dc, bool nameColumn, const RECT& client);
    void DrawSortArrow(HDC dc, const RECT& client);
    Unique<HBITMAP> GetArrowBitmap(HDC dc, bool up);
    void DrawHelp(HDC dc, const CProperty& property, const RECT& client);
    // A caption of the library's own is plain text, which Unicode mode does not take as it is.
    std::wstring CaptionText(const std::wstring& caption, const wchar_t* defaultCaption) const;
    Color BackColor() const;
    Color ForeColor() const;

    Grid& m_Grid;
};

} // namespace ormisk
