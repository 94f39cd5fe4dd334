#pragma once

#include "picker/PaletteGeometry.h"
#include "picker/SwatchSettings.h"
#include "platform/ResourceMgr.h"

namespace ormisk {

inline constexpr Color kTabShadow = 0x80000010;

// What the palette window shows.
struct PaletteView {
    SwatchSettings settings;
    SystemColorNames names;
    CustomColors custom{};
    PaletteSizes sizes;
    Size area; // of the cells or rows
    int activeTab = kPaletteTab;
    bool tabFocus = false;
    PaletteCell hotCell;
    PaletteCell selectedCell;
    int hotRow = -1;
    int selectedRow = -1;
    long scroll = 0;

    Rect Place(PaletteCell cell) const { return CellRect(cell, area, sizes.cell); }
    Rect Place(int row) const { return RowRect(row, area, sizes.cell, scroll); }
    Color PageColor() const;
    Color ColorOf(PaletteCell cell) const;
};

// Draws the palette window; reads what it shows and changes nothing of it.
class PalettePainter {
public:
    HFONT Font(const PaletteView& view) { return m_Resources.GetFont(view.settings.Font, L"CurrentFont"); }
    Size CaptionSize(HDC dc, const PaletteView& view) const; // the greatest of both; in the context's font
    long LineHeight(HDC dc) const;
    long RowTextWidth(HDC dc, const PaletteView& view, int row) const;
    // As it is drawn: a name or caption of our own is spelled out in Unicode mode.
    static std::wstring RowText(const PaletteView& view, int row);

    void DrawTabs(HDC dc, const PaletteView& view);
    void DrawPage(HDC dc, const PaletteView& view);
    // The frame of the cell or row that the mouse or the keys have come to, or have left.
    static void DrawHotFrame(HDC dc, const PaletteView& view, bool hot);
    static void DrawSelectionFrame(HDC dc, const PaletteView& view);

private:
    void DrawTab(HDC dc, const PaletteView& view, int tab);
    void DrawCell(HDC dc, const PaletteView& view, PaletteCell cell);
    void DrawRow(HDC dc, const PaletteView& view, int row);
    static void DrawSwatch(HDC dc, const Rect& place, Color color);
    void Fill(HDC dc, const Rect& place, Color color);
    static void Outline(HDC dc, const Rect& place, Color color);

    CResourceMgr m_Resources;
};

} // namespace ormisk
