#pragma once

#include "win/Geometry.h"

#include <windows.h>

#include <string>

namespace ormisk {

class Grid;

// Sizes of what surrounds the rows: the tabs and the text of the description pane.
class ChromeMetrics {
public:
    explicit ChromeMetrics(Grid& grid) : m_Grid(grid) {}

    // From the font, the captions and the width of the tab container.
    void CalcTabRects();
    // In units of the tab container, and whole: tabs side by side, from its left upper corner.
    long TabWidth() const { return m_TabWidth; }
    long TabHeight() const { return m_TabHeight; }
    // In pixels.
    Rect AlphabeticTab() const { return TabFrom(0); }
    Rect CategorizedTab() const { return TabFrom(m_TabWidth); }

    // The height in pixels at which the description pane shows a help text whole.
    long CalcDescriptionHeight(const std::wstring& help);

private:
    Rect TabFrom(long left) const;
    Size CaptionSize(HDC dc, const std::wstring& caption, const wchar_t* defaultCaption) const;

    Grid& m_Grid;
    long m_TabWidth = 0;
    long m_TabHeight = 0;
};

} // namespace ormisk
