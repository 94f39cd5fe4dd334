#include "grid/RowPainter.h"

#include "grid/Grid.h"
#include "grid/PaintPrimitives.h"
#include "platform/Rounding.h"
#include "platform/TextForms.h"
#include "platform/TextOutput.h"

#include <algorithm>
#include <array>

#include <olectl.h>

namespace ormisk {

namespace {

constexpr UINT kCellFormat = DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;

RECT ToRect(const Rect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

Rect Intersection(const Rect& a, const Rect& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

// A row's colour of -1 is not set.
Color ResolveColor(Color own, long fallback) {
    return own == static_cast<Color>(-1) ? static_cast<Color>(fallback) : own;
}

// Names of categories that come from the library itself, in plain form.
bool IsBuiltInCategory(const std::wstring& name) {
    static constexpr std::array<const wchar_t*, 11> kNames = {
        L"Misc", L"Nil", L"Font", L"Position", L"Appearance", L"Behavior", L"Data", L"List", L"Text", L"Scale", L"DDE"};
    return std::ranges::any_of(kNames, [&](const wchar_t* known) { return name == known; });
}

void FillWith(HDC dc, const Rect& rect, HBRUSH brush) {
    const RECT area = ToRect(rect);
    if (brush)
        FillRect(dc, &area, brush);
}

class TextColorGuard {
public:
    TextColorGuard(HDC dc, Color color) : m_Dc(dc), m_Old(SetTextColor(dc, color)) {}
    TextColorGuard(const TextColorGuard&) = delete;
    TextColorGuard& operator=(const TextColorGuard&) = delete;
    ~TextColorGuard() { SetTextColor(m_Dc, m_Old); }

private:
    HDC m_Dc;
    COLORREF m_Old;
};

// Moves the origin of a context to a cell for the life of the guard. The window origin serves every context, also one
// that a host scaled or that records a metafile.
class CellOrigin {
public:
    CellOrigin(HDC dc, long x, long y) : m_Dc(dc), m_X(x), m_Y(y) { OffsetWindowOrgEx(dc, -x, -y, nullptr); }
    CellOrigin(const CellOrigin&) = delete;
    CellOrigin& operator=(const CellOrigin&) = delete;
    ~CellOrigin() { OffsetWindowOrgEx(m_Dc, m_X, m_Y, nullptr); }

private:
    HDC m_Dc;
    long m_X;
    long m_Y;
};

} // namespace

// A cell in work, in coordinates of its own.
struct RowPainter::Cell {
    CNode& node;
    CProperty* property = nullptr; // null for a category
    const RowGeometry& geometry;
    bool nameCell = false;
    bool selected = false;
    bool lastRow = false;
    Rect rect;   // what is left for the text as drawing goes on
    Size extent; // of the whole cell, less a pixel: what the host hears
    Color fill = 0;
    Color textColor = 0;
    bool raise = false; // the host draws along
};

HFONT RowPainter::FontOf(const CNode& node) {
    const FontDescription& font = m_Grid.m_State.font;
    if (node.Bold() == font.Bold && node.Italic() == font.Italic)
        return m_Grid.m_ResourceMgr.GetFont(font, L"TreeFont");
    m_NodeFont = font;
    m_NodeFont.Bold = node.Bold();
    m_NodeFont.Italic = node.Italic();
    return m_Grid.m_ResourceMgr.GetFont(m_NodeFont, L"NodeFont");
}

std::optional<Size> RowPainter::PictureSize(const CNode& node) const {
    const ComPtr<IPicture> picture = Query<IPicture>(node.Picture());
    if (PictureType(picture.Get()) == PICTYPE_NONE)
        return std::nullopt;
    return PicturePixels(picture.Get());
}

void RowPainter::PaintTree(HDC dc, const Rect& clip) {
    const GridState& state = m_Grid.m_State;
    if (state.picture)
        DrawBackgroundPicture(dc, clip);
    else
        FillWith(dc, clip, m_Grid.m_ResourceMgr.GetBrush(TranslateColor(state.propertyBackColor), L"BackColor"));
    CNodes& nodes = *m_Grid.m_ActiveNodes;
    if (nodes.RootCount() == 0)
        return;
    const SelectGuard font(dc, m_Grid.m_ResourceMgr.GetFont(state.font, L"TreeFont"));
    const int mode = SetBkMode(dc, TRANSPARENT);
    // Between the dots of a line shows the colour of the pane.
    const COLORREF backColor = SetBkColor(dc, TranslateColor(state.backColor));
    const LayoutMetrics metrics = m_Grid.m_Panes.Metrics();
    const RowRange rows = RowsBetween(metrics, clip.top, clip.bottom);
    const long first = std::max(rows.first, 0L);
    Ref<CNode> node(nodes.NodeAtRow(first));
    // A handler of custom draw may change the tree: each step starts from a node that is held, and a row that went is
    // not drawn.
    for (long row = first; node && row < rows.end; ++row) {
        const Ref<CNode> next(node->NextVisible());
        const RowGeometry geometry = LayoutRow(metrics, row, node->Level(), PictureSize(*node));
        if (Intersection(geometry.row, clip).Width() > 0)
            DrawRow(dc, *node, geometry, !next);
        if (!m_Grid.IsAlive())
            break;
        node = next;
    }
    SetBkColor(dc, backColor);
    SetBkMode(dc, mode);
}

void RowPainter::DrawRow(HDC dc, CNode& node, const RowGeometry& geometry, bool lastRow) {
    const ComPtr<CProperty> property(node.Property());
    if (!node.IsCategory() && !property)
        return;
    const bool selected = m_Grid.m_Selection.IsSelected(node);
    for (const bool nameCell : {true, false}) {
        const Rect& place = nameCell ? geometry.name : geometry.value;
        const CellOrigin origin(dc, place.left, place.top);
        Cell cell{node,
                  property.Get(),
                  geometry,
                  nameCell,
                  selected,
                  lastRow,
                  {0, 0, place.Width(), place.Height()},
                  {place.Width() - 1, place.Height() - 1}};
        DrawCell(dc, cell);
        if (!m_Grid.IsAlive())
            return;
    }
}

// Around an open editor a selected row does not shine through.
Color RowPainter::FillColorOf(const Cell& cell) const {
    const GridState& state = m_Grid.m_State;
    if (!cell.selected)
        return TranslateColor(ResolveColor(cell.node.BackColor(), state.propertyBackColor));
    const bool behindEditor = !cell.nameCell && cell.property && m_Grid.m_Session.IsEditorOpen();
    return TranslateColor(static_cast<Color>(behindEditor ? state.propertyBackColor : state.highlightBackColor));
}

// The control's text colour stands in when the node's comes out as -1 after translation.
Color RowPainter::TextColorOf(const Cell& cell) const {
    const GridState& state = m_Grid.m_State;
    if (cell.selected)
        return TextColor(state, state.highlightForeColor);
    const Color color = TextColor(state, cell.node.ForeColor());
    return color == static_cast<Color>(-1) ? TextColor(state, state.foreColor) : color;
}

// A handler that raises does not keep the rest of the rows off the screen.
bool RowPainter::RaiseDraw(HDC dc, const Cell& cell, long stage) {
    bool doDefault = true;
    IgnoringFailures([&] {
        m_Grid.m_Events.PropertyDraw(dc, *cell.property, cell.extent.cx, cell.extent.cy,
                                     static_cast<omDrawStage>(stage), doDefault);
    });
    return doDefault;
}

void RowPainter::DrawCell(HDC dc, Cell& cell) {
    const GridState& state = m_Grid.m_State;
    // The colours are those of before the host draws along.
    cell.fill = FillColorOf(cell);
    cell.textColor = TextColorOf(cell);
    // A read-only row keeps its colour also when it is selected.
    const bool readOnly = cell.property && (cell.property->IsReadOnly() || state.readOnly);
    const TextColorGuard color(dc, readOnly ? TextColor(state, state.readOnlyPropertyColor) : cell.textColor);
    const SelectGuard font(dc, FontOf(cell.node));
    cell.raise = cell.property && cell.property->CustomDraw() && !cell.nameCell;

    if (!cell.raise || RaiseDraw(dc, cell, omPreErase))
        FillCell(dc, cell);
    if (cell.node.Appearance() == om3d) {
        const Color base = cell.selected ? static_cast<Color>(state.highlightBackColor)
                                         : ResolveColor(cell.node.BackColor(), state.propertyBackColor);
        Draw3DBorder(m_Grid.m_ResourceMgr, dc, cell.rect, TranslateColor(base));
    }
    if (cell.raise)
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
        DrawColorSwatch(dc, cell);
    }
    DrawCellText(dc, cell);
    if (cell.raise)
        RaiseDraw(dc, cell, omPostDraw);
}

// Rows over a background picture are transparent, but for the selected one.
void RowPainter::FillCell(HDC dc, const Cell& cell) {
    if (!m_Grid.m_State.picture || cell.selected)
        FillWith(dc, cell.rect, m_Grid.m_ResourceMgr.GetBrush(cell.fill, L"BackColor"));
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
        const HPEN pen = m_Grid.m_ResourceMgr.GetPen(color, L"LineColor");
        if (!pen)
            return;
        const SelectGuard selected(dc, pen);
        MoveToEx(dc, x1, y1, nullptr);
        LineTo(dc, x2, y2);
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
    const long top = cell.rect.top;
    const long height = cell.rect.Height();
    CNode& node = cell.node;

    for (CNode* parent = node.ParentNode(); parent; parent = parent->ParentNode()) {
        if (parent->IsLastSibling() || (parent->Level() == 1 && (textOnly || alphabetic)))
            continue;
        const long x = LayoutRow(metrics, 0, parent->Level(), {}).treeLineLeft;
        if (x >= cell.geometry.row.right)
            continue; // deeply nested: off the screen
        DrawGridLine(dc, color, x, top, x, top + height, false);
    }
    if (node.Level() == 1 && (alphabetic || textOnly))
        return;

    const long x = cell.geometry.treeLineLeft;
    const bool last = node.IsLastSibling();
    const long start = node.IsFirstRoot() ? RoundToLong(static_cast<double>(cell.rect.bottom + top) / 2.0) : top;
    const long half = RoundToLong(static_cast<double>(height) / 2.0);
    const long length = !last && !node.IsFirstRoot() ? height : half;
    DrawGridLine(dc, color, x, start, x, start + length, false);

    const long middle = RoundToLong(static_cast<double>(height) / 2.0 + static_cast<double>(top));
    const double fontSize =
        ConvertScale(state.font.Size, ScaleMode::Point, ScaleMode::Pixel, GetDeviceCaps(dc, LOGPIXELSX), Axis::X);
    const long branchStart = last ? x : x + 1;
    const long branch =
        last ? RoundToLong(static_cast<double>(state.indentation) - fontSize / 2.0) : RoundToLong(fontSize / 2.0);
    DrawGridLine(dc, color, branchStart, middle, branchStart + branch, middle, false);
}

void RowPainter::DrawPlusMinus(HDC dc, const Cell& cell) {
    const GridState& state = m_Grid.m_State;
    CResourceMgr& resources = m_Grid.m_ResourceMgr;
    const Rect& r = cell.geometry.expander;
    if (!state.picture || cell.selected) {
        const Color fill = cell.selected ? static_cast<Color>(state.highlightBackColor)
                                         : ResolveColor(cell.node.BackColor(), state.categoryBackColor);
        FillWith(dc, r, resources.GetBrush(TranslateColor(fill), L"BackColor"));
    }
    const HPEN sign = cell.selected ? resources.GetPen(TranslateColor(state.highlightForeColor), L"HighlightForeColor")
                                    : resources.GetPen(TranslateColor(state.categoryForeColor), L"ForeColor");
    const SelectGuard signSelected(dc, sign);
    const long y = (r.top + r.bottom) / 2;
    MoveToEx(dc, r.left + 2, y, nullptr);
    LineTo(dc, r.right - 2, y);
    if (!cell.node.Expanded()) {
        const long x = (r.left + r.right) / 2;
        MoveToEx(dc, x, r.top + 2, nullptr);
        LineTo(dc, x, r.bottom - 2);
    }
    const SelectGuard outline(dc, resources.GetPen(TranslateColor(state.lineColor), L"LineColor"));
    MoveToEx(dc, r.left, r.top, nullptr);
    LineTo(dc, r.right - 1, r.top);
    LineTo(dc, r.right - 1, r.bottom - 1);
    LineTo(dc, r.left, r.bottom - 1);
    LineTo(dc, r.left, r.top);
}

// A bitmap is drawn in its own size: one taller than the row is covered by the next row.
void RowPainter::DrawPropertyPicture(HDC dc, const Cell& cell) {
    const ComPtr<IPicture> picture = Query<IPicture>(cell.node.Picture());
    const short type = PictureType(picture.Get());
    if (type == PICTYPE_NONE)
        return;
    const Rect& r = cell.geometry.picture;
    const HANDLE handle = PictureHandle(picture.Get());
    if (type == PICTYPE_ICON) {
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
    TransparentBlit(dc, {r.left, r.top, r.left + bitmap.bmWidth, r.top + bitmap.bmHeight}, source.Get(), {0, 0},
                    {bitmap.bmWidth, bitmap.bmHeight}, TranslateColor(mask));
}

void RowPainter::DrawColorSwatch(HDC dc, Cell& cell) {
    const Rect swatch = SwatchRect(cell.rect);
    Color color = 0;
    const _variant_t value(cell.property->Value()); // an object may do anything when it is asked for a number
    const bool isColor = SUCCEEDED(ReadColor(value, color));
    const SelectGuard brush(dc, m_Grid.m_ResourceMgr.GetBrush(isColor ? TranslateColor(color) : 0, L"ColorEditorRet"));
    const SelectGuard pen(dc, m_Grid.m_ResourceMgr.GetPen(cell.textColor, L"ForeColor"));
    Rectangle(dc, swatch.left, swatch.top, swatch.right, swatch.bottom);
    cell.rect.left = swatch.right;
}

void RowPainter::DrawCellText(HDC dc, Cell& cell) {
    const bool category = !cell.property;
    const bool byteExpanded = category ? m_Grid.m_State.unicode : cell.property->ByteExpanded();
    if (cell.nameCell) {
        m_Text.assign(cell.node.Name(), 0, kMostShown);
        if (category && byteExpanded && IsBuiltInCategory(m_Text))
            m_Text = ExpandText(m_Text);
        cell.rect.left += cell.geometry.textLeft;
    } else if (!IgnoringFailures([&] { ValueText(cell); })) {
        m_Text.clear(); // a value without a text, such as Null, leaves its cell empty
    }
    RECT rc = ToRect(cell.rect);
    rc.left += 2;
    rc.right -= 2;
    DrawTextMultiLang(dc, m_Text, rc, kCellFormat, byteExpanded);
}

void RowPainter::ValueText(const Cell& cell) {
    if (cell.property)
        cell.property->FormatText(m_Text, kMostShown);
    else
        m_Text = TextOf(cell.node.Value());
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
        FillWith(dc, clip, m_Grid.m_ResourceMgr.GetBrush(TranslateColor(state.propertyBackColor), L"BackColor"));
        BitBlt(dc, RoundToLong(static_cast<double>(area.Width() - size.cx) / 2.0),
               RoundToLong(static_cast<double>(area.Height() - size.cy) / 2.0) + area.top, size.cx, size.cy,
               source.Get(), 0, 0, SRCCOPY);
        break;
    case omPictureStretched: {
        const int mode = SetStretchBltMode(dc, COLORONCOLOR);
        StretchBlt(dc, area.left, area.top, area.Width(), area.Height(), source.Get(), 0, 0, size.cx, size.cy, SRCCOPY);
        SetStretchBltMode(dc, mode);
        break;
    }
    case omPictureTiled:
        TileBitmap(dc, picture.Get(), area, source.Get());
        break;
    default:
        break;
    }
}

} // namespace ormisk
