#pragma once

#include "platform/Geometry.h"

#include <windows.h>

#include <string>

namespace ormisk {

class Grid;

// Sizes of what surrounds the rows, in pixels: the tabs and the text of the description pane.
class ChromeMetrics {
public:
    explicit ChromeMetrics(Grid& grid) : m_Grid(grid) {}

    // From the font, the captions and the width of the tab container.
    void CalcTabRects();
    long TabWidth() const { return m_TabWidth; }
    long TabHeight() const { return m_TabHeight; }
    Rect AlphabeticTab() const { return {0, 0, m_TabWidth, m_TabHeight}; }
    Rect CategorizedTab() const { return {m_TabWidth, 0, 2 * m_TabWidth, m_TabHeight}; }

    // The height at which the description pane shows a help text whole.
    long CalcDescriptionHeight(const std::wstring& help);

private:
    Size CaptionSize(HDC dc, const std::wstring& caption, const wchar_t* defaultCaption) const;

    Grid& m_Grid;
    long m_TabWidth = 0;
    long m_TabHeight = 0;
};

} // namespace ormisk
