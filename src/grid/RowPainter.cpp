#include "grid/RowPainter.h"

#include "grid/Grid.h"
#include "grid/PaintPrimitives.h"
#include "platform/Rounding.h"
#include "platform/TextOutput.h"
#include "win/Dpi.h"
#include "win/Rects.h"

#include <algorithm>
#include <array>

#include <olectl.h>

namespace ormisk {

// A cell in work, in coordinates of its own.
struct RowPainter::Cell {
    CNode& node;
    CProperty* property = nullptr; // null for a category
    const RowGeometry& geometry;
    bool nameCell = false;
    bool selected = false;
    bool lastRow = false;
    Rect rect; // what is left for the text as drawing goes on
};

void RowPainter::PaintTree(HDC dc, const Rect& clip) {
    const GridState& state = m_Grid.m_State;
    if (state.picture)
        DrawBackgroundPicture(dc, clip);
    else
        Fill(dc, clip, TranslateColor(state.propertyBackColor));
    CNodes& nodes = *m_Grid.m_ActiveNodes;
    if (nodes.RootCount() == 0)
        return;
    const SelectGuard font(dc, m_Grid.m_ResourceMgr.GetFont(state.font, L"TreeFont"));
    SetBkMode(dc, TRANSPARENT);
    // Between the dots of a line shows the colour of the pane.
    SetBkColor(dc, TranslateColor(state.backColor));
    const LayoutMetrics metrics = m_Grid.m_Panes.Metrics();
    const RowRange rows = RowsBetween(metrics, clip.top, clip.bottom);
    const long first = std::max(rows.first, 0L);
    Ref<CNode> node(nodes.NodeAtRow(first));
    // A handler of custom draw may change the tree: each step starts from a node that is held, and a row that went is
    // not drawn.
    for (long row = first; node && row < rows.end; ++row) {
        const Ref<CNode> next(node->NextVisible());
        const RowGeometry geometry = LayoutRow(metrics, row, node->Level(), m_Grid.m_RowLook.PictureSize(*node));
        if (std::max(geometry.row.left, clip.left) < std::min(geometry.row.right, clip.right))
            DrawRow(dc, *node, geometry, !next);
        if (!m_Grid.IsAlive())
            break;
        node = next;
    }
}

void RowPainter::DrawRow(HDC dc, CNode& node, const RowGeometry& geometry, bool lastRow) {
    const ComPtr<CProperty> property(node.Property());
    if (!node.IsCategory() && !property)
        return;
    const bool selected = m_Grid.m_Selection.IsSelected(node);
    for (const bool nameCell : {true, false}) {
        const Rect& place = nameCell ? geometry.name : geometry.value;
        Cell cell{node, property.Get(), geometry, nameCell, selected, lastRow, {0, 0, place.Width(), place.Height()}};
        // The window origin serves every context, also one that a host scaled or that records a metafile.
        OffsetWindowOrgEx(dc, -place.left, -place.top, nullptr);
        DrawCell(dc, cell);
        OffsetWindowOrgEx(dc, place.left, place.top, nullptr);
        if (!m_Grid.IsAlive())
            return;
    }
}

// A handler that raises does not keep the rest of the rows off the screen.
bool RowPainter::RaiseDraw(HDC dc, const Cell& cell, omDrawStage stage) {
    bool doDefault = true;
    IgnoringFailures([&] {
        const Rect& place = cell.geometry.value;
        m_Grid.m_Events.PropertyDraw(dc, *cell.property, place.Width() - 1, place.Height() - 1, stage, doDefault);
    });
    return doDefault;
}

void RowPainter::DrawCell(HDC dc, Cell& cell) {
    const GridState& state = m_Grid.m_State;
    RowLook& look = m_Grid.m_RowLook;
    // The colours are those of before the host draws along.
    const Color fill = look.CellColor(cell.node, cell.property, cell.nameCell, cell.selected);
    const Color foreColor = look.ForeColor(cell.node, cell.selected);
    SetTextColor(dc, look.Ink(cell.property, foreColor));
    const SelectGuard font(dc, look.FontOf(cell.node));
    const bool raise = cell.property && cell.property->CustomDraw() && !cell.nameCell;

    // Rows over a background picture are transparent, but for the selected one.
    if ((!raise || RaiseDraw(dc, cell, omPreErase)) && (!state.picture || cell.selected))
        Fill(dc, cell.rect, fill);
    if (cell.node.Appearance() == om3d)
        Draw3DBorder(m_Grid.m_ResourceMgr, dc, cell.rect,
                     look.BackColor(cell.node, cell.selected, state.propertyBackColor));
    if (raise)
        RaiseDraw(dc, cell, omPostErase);
    if (state.grid != omGridNone)
        DrawGridLines(dc, cell);
    if (cell.nameCell) {
        if (state.treeStyle == omTreelinesText || state.treeStyle == omTreeLinesPlusMinusText)
            DrawTreeLines(dc, cell);
        if (cell.node.ChildCount() > 0 &&
            (state.treeStyle == omPlusMinusText || state.treeStyle == omTreeLinesPlusMinusText))
            DrawPlusMinus(dc, cell);
        DrawPropertyPicture(dc, cell);
    } else if (cell.property && cell.property->EditorKind() == omColorEditor) {
        DrawColorSwatch(dc, cell, foreColor);
    }
    DrawCellText(dc, cell);
    if (raise)
        RaiseDraw(dc, cell, omPostDraw);
}

void RowPainter::Fill(HDC dc, const Rect& rect, Color color) {
    FillWith(dc, rect, m_Grid.m_ResourceMgr.GetBrush(color, L"BackColor"));
}

void RowPainter::DrawGridLines(HDC dc, const Cell& cell) {
    const long style = m_Grid.m_State.grid;
    const bool solid = style == omGridSolid || style == omHorzSolid || style == omVertSolid;
    const bool horizontal = style != omVertSolid && style != omVertDotted;
    const bool vertical = style != omHorzSolid && style != omHorzDotted;
    const Color color = TranslateColor(m_Grid.m_State.lineColor);
    const Rect& rc = cell.rect;
    const long x = cell.nameCell ? rc.right - 1 : rc.right;
    // Vertical lines too are closed at the bottom.
    if (horizontal || cell.lastRow)
        DrawGridLine(dc, color, rc.left, rc.bottom - 1, x + 1, rc.bottom - 1, solid);
    if (vertical)
        DrawGridLine(dc, color, x, rc.top - 1, x, rc.bottom - 1, solid);
}

void RowPainter::DrawGridLine(HDC dc, Color color, long x1, long y1, long x2, long y2, bool solid) {
    if (solid) {
        DrawPath(dc, m_Grid.m_ResourceMgr.GetPen(color, L"LineColor"), {{x1, y1}, {x2, y2}});
        return;
    }
    static constexpr std::array<std::uint32_t, 4> kCheckerboard = {0xAAAA5555, 0xAAAA5555, 0xAAAA5555, 0xAAAA5555};
    const HBRUSH brush = m_Grid.m_ResourceMgr.GetPatternBrush(kCheckerboard, L"GridBrush");
    if (!brush)
        return;
    const COLORREF oldColor = SetTextColor(dc, color);
    POINT oldOrigin{};
    GetBrushOrgEx(dc, &oldOrigin);
    SetBrushOrgEx(dc, (oldOrigin.x - x1) & 7, (oldOrigin.y - y1) & 7, nullptr);
    {
        const SelectGuard selected(dc, brush);
        PatBlt(dc, x1, y1, x1 == x2 ? 1 : x2 - x1, y1 == y2 ? 1 : y2 - y1, PATCOPY);
    }
    SetBrushOrgEx(dc, oldOrigin.x, oldOrigin.y, nullptr);
    SetTextColor(dc, oldColor);
}

void RowPainter::DrawTreeLines(HDC dc, const Cell& cell) {
    const GridState& state = m_Grid.m_State;
    const LayoutMetrics metrics = m_Grid.m_Panes.Metrics();
    const bool textOnly = state.treeStyle == omTreelinesText;
    const bool alphabetic = state.activeView == omAlphabetic;
    const Color color = TranslateColor(state.lineColor);
    const long height = cell.rect.bottom;
    const long middle = RoundToLong(height / 2.0);
    CNode& node = cell.node;

    for (CNode* parent = node.ParentNode(); parent; parent = parent->ParentNode()) {
        if (parent->IsLastSibling() || (parent->Level() == 1 && (textOnly || alphabetic)))
            continue;
        const long x = LayoutRow(metrics, 0, parent->Level(), {}).treeLineLeft;
        if (x < cell.geometry.row.right) // else deeply nested: off the screen
            DrawGridLine(dc, color, x, 0, x, height, false);
    }
    if (node.Level() == 1 && (alphabetic || textOnly))
        return;

    const long x = cell.geometry.treeLineLeft;
    const bool last = node.IsLastSibling();
    const long start = node.IsFirstRoot() ? middle : 0;
    const long length = !last && !node.IsFirstRoot() ? height : middle;
    DrawGridLine(dc, color, x, start, x, start + length, false);

    const double fontSize =
        ConvertScale(state.font.Size, ScaleMode::Point, ScaleMode::Pixel, DpiOf(m_Grid.m_Panes.TreeWnd()), Axis::X);
    const long left = last ? x : x + 1;
    const long branch =
        RoundToLong(last ? std::min<double>(state.indentation, kMostIndentation) - fontSize / 2.0 : fontSize / 2.0);
    DrawGridLine(dc, color, left, middle, left + branch, middle, false);
}

void RowPainter::DrawPlusMinus(HDC dc, const Cell& cell) {
    const GridState& state = m_Grid.m_State;
    CResourceMgr& resources = m_Grid.m_ResourceMgr;
    const Rect& r = cell.geometry.expander;
    if (!state.picture || cell.selected)
        Fill(dc, r, m_Grid.m_RowLook.BackColor(cell.node, cell.selected, state.categoryBackColor));
    const HPEN sign = cell.selected ? resources.GetPen(TranslateColor(state.highlightForeColor), L"HighlightForeColor")
                                    : resources.GetPen(TranslateColor(state.categoryForeColor), L"ForeColor");
    const long x = (r.left + r.right) / 2;
    const long y = (r.top + r.bottom) / 2;
    DrawPath(dc, sign, {{r.left + 2, y}, {r.right - 2, y}});
    if (!cell.node.Expanded())
        DrawPath(dc, sign, {{x, r.top + 2}, {x, r.bottom - 2}});
    DrawPath(
        dc, resources.GetPen(TranslateColor(state.lineColor), L"LineColor"),
        {{r.left, r.top}, {r.right - 1, r.top}, {r.right - 1, r.bottom - 1}, {r.left, r.bottom - 1}, {r.left, r.top}});
}

// A bitmap is drawn in its own size: one taller than the row is covered by the next row.
void RowPainter::DrawPropertyPicture(HDC dc, const Cell& cell) {
    const ComPtr<IPicture> picture = m_Grid.m_RowLook.PictureOf(cell.node);
    if (!picture)
        return;
    const Rect& r = cell.geometry.picture;
    const HANDLE handle = PictureHandle(picture.Get());
    if (PictureType(picture.Get()) == PICTYPE_ICON) {
        DrawStateW(dc, nullptr, nullptr, reinterpret_cast<LPARAM>(handle), 0, r.left, r.top, r.Width(), r.Height(),
                   DST_ICON);
        return;
    }
    BITMAP bitmap{};
    const MemoryDC source(dc);
    if (!source || !GetObjectW(handle, sizeof bitmap, &bitmap))
        return;
    const SelectGuard selected(source.Get(), handle);
    const Color mask = cell.property ? cell.property->PictureMaskColor() : 0xFFFFFF;
    TransparentBlit(dc, {r.left, r.top}, source.Get(), {bitmap.bmWidth, bitmap.bmHeight}, TranslateColor(mask));
}

void RowPainter::DrawColorSwatch(HDC dc, Cell& cell, Color outline) {
    const Rect swatch = SwatchRect(cell.rect);
    Color color = 0;
    const _variant_t value(cell.property->Value()); // an object may do anything when it is asked for a number
    const bool isColor = SUCCEEDED(ReadColor(value, color));
    const SelectGuard brush(dc, m_Grid.m_ResourceMgr.GetBrush(isColor ? TranslateColor(color) : 0, L"ColorEditorRet"));
    const SelectGuard pen(dc, m_Grid.m_ResourceMgr.GetPen(outline, L"ForeColor"));
    Rectangle(dc, swatch.left, swatch.top, swatch.right, swatch.bottom);
    cell.rect.left = swatch.right;
}

void RowPainter::DrawCellText(HDC dc, Cell& cell) {
    constexpr UINT kFormat = DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;
    RowLook& look = m_Grid.m_RowLook;
    const std::wstring& text = look.CellText(cell.node, cell.property, cell.nameCell);
    RECT rc = ToRect(cell.rect);
    rc.left += 2 + (cell.nameCell ? cell.geometry.textLeft : 0);
    rc.right -= 2;
    DrawTextMultiLang(dc, text, rc, kFormat, look.ByteExpanded(cell.property));
}

void RowPainter::DrawBackgroundPicture(HDC dc, const Rect& clip) {
    const GridState& state = m_Grid.m_State;
    const LayoutMetrics metrics = m_Grid.m_Panes.Metrics();
    const ComPtr<IPicture> picture = Query<IPicture>(state.picture);
    const MemoryDC source(nullptr);
    if (!source || !picture)
        return;
    const Rect area{0, metrics.headerHeight, metrics.client.cx - (metrics.scrollBarShown ? metrics.scrollBarWidth : 0),
                    metrics.client.cy};
    const Size size = PicturePixels(picture.Get());
    const SelectGuard selected(source.Get(), PictureHandle(picture.Get()));
    switch (state.pictureLayout) {
    case omPictureCentered:
        Fill(dc, clip, TranslateColor(state.propertyBackColor));
        BitBlt(dc, RoundToLong((area.Width() - size.cx) / 2.0), RoundToLong((area.Height() - size.cy) / 2.0) + area.top,
               size.cx, size.cy, source.Get(), 0, 0, SRCCOPY);
        break;
    case omPictureStretched: {
        const int mode = SetStretchBltMode(dc, COLORONCOLOR);
        StretchBlt(dc, area.left, area.top, area.Width(), area.Height(), source.Get(), 0, 0, size.cx, size.cy, SRCCOPY);
        SetStretchBltMode(dc, mode);
        break;
    }
    case omPictureTiled:
        TileBitmap(dc, picture.Get(),
                   {std::max(area.left, clip.left), std::max(area.top, clip.top), std::min(area.right, clip.right),
                    std::min(area.bottom, clip.bottom)},
                   source.Get());
        break;
    default:
        break;
    }
}

} // namespace ormisk
