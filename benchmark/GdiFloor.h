#pragma once

#include "Rows.h"

#include <windows.h>

#include <string>
#include <vector>

namespace ormisk::bench {

// The least that painting a window of rows can cost: the fills, texts and lines of the rows from the first one on,
// issued bare into the window. Everything that they need is made before.
class GdiFloor {
public:
    // `font` is the control's own.
    GdiFloor(HWND window, HFONT font, const Rows& rows);
    ~GdiFloor();
    GdiFloor(const GdiFloor&) = delete;
    GdiFloor& operator=(const GdiFloor&) = delete;

    void Paint() const;

private:
    struct Line {
        std::string name;
        std::string value;
        bool category;
    };

    void PaintRow(HDC dc, const Line& line, int top) const;
    void PaintCell(HDC dc, const Line& line, const std::string& text, RECT cell, int indent) const;
    void PaintRelief(HDC dc, const RECT& cell) const;
    void PaintExpander(HDC dc, int top) const;
    void PaintDots(HDC dc, int x, int y, int width, int height) const;

    HWND m_Window;
    HFONT m_Font;
    HFONT m_Bold;
    HBRUSH m_Back;
    HBRUSH m_CategoryBack;
    HBRUSH m_Dots;
    HPEN m_Pen;
    RECT m_Client = {};
    int m_RowHeight = 0;
    std::vector<Line> m_Lines;
};

} // namespace ormisk::bench
