#include "grid/ChromePainter.h"

#include "grid/Grid.h"
#include "grid/PaintPrimitives.h"
#include "platform/TextOutput.h"
#include "win/Rects.h"

namespace ormisk {

namespace {

constexpr UINT kTabFormat = DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_WORD_ELLIPSIS; // with access keys
constexpr UINT kHeaderFormat = DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;
constexpr UINT kHelpCaptionFormat = DT_SINGLELINE | DT_NOPREFIX;
constexpr UINT kHelpFormat = DT_WORDBREAK | DT_NOPREFIX | DT_WORD_ELLIPSIS;

void DrawFocus(HDC dc, const RECT& place) {
    SetTextColor(dc, 0);
    DrawFocusRect(dc, &place);
}

// A pane that the keyboard is in.
void DrawFocusWithin(HDC dc, Size pane) { DrawFocus(dc, {2, 2, pane.cx - 2, pane.cy - 2}); }

// Without a font there is no text.
void DrawTextIn(HDC dc, HFONT font, const std::wstring& text, const Rect& place, UINT format, bool unicode) {
    const SelectGuard selected(dc, font);
    RECT rc = ToRect(place);
    if (font)
        DrawTextMultiLang(dc, text, rc, format, unicode);
}

} // namespace

Color ChromePainter::BackColor() const { return TranslateColor(static_cast<Color>(m_Grid.m_State.backColor)); }

HFONT ChromePainter::PrepareText(HDC dc) const {
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, TextColor(m_Grid.m_State, m_Grid.m_State.foreColor));
    return m_Grid.m_ResourceMgr.GetFont(m_Grid.m_State.font, L"TreeFont");
}

// The tab behind goes first, and the frame closes over both.
void ChromePainter::DrawTabs(HDC dc) {
    const GridState& state = m_Grid.m_State;
    if (!state.showTabs)
        return;
    const std::wstring captions[] = {m_Grid.m_ChromeMetrics.CaptionText(state.alphabeticTabCaption, L"Alphabetic"),
                                     m_Grid.m_ChromeMetrics.CaptionText(state.categorizedTabCaption, L"Categorized")};
    const int front = state.activeView == omAlphabetic ? 0 : 1;
    DrawTab(dc, 1 - front, captions[1 - front], false);
    DrawTab(dc, front, captions[front], true);
    for (const ShadedLine& line :
         m_Grid.m_ChromeMetrics.Tabs().Page(m_Grid.m_Panes.m_picTabContainer.ClientSize(), front))
        DrawLine(dc, line);
}

void ChromePainter::DrawTab(HDC dc, int index, const std::wstring& caption, bool inFront) {
    const TabStrip::Face face = m_Grid.m_ChromeMetrics.Tabs().TabFace(index, !inFront);
    for (const ShadedLine& line : face.lines)
        DrawLine(dc, line);
    DrawTextIn(dc, PrepareText(dc), caption, face.caption, kTabFormat, m_Grid.m_State.unicode);
    if (inFront && m_Grid.m_Panes.m_picTabContainer.HasFocus())
        DrawFocus(dc, ToRect(face.caption));
}

void ChromePainter::DrawLine(HDC dc, const ShadedLine& line) {
    CResourceMgr& resources = m_Grid.m_ResourceMgr;
    const Shades shades = ShadesOf(BackColor());
    const HPEN pen = line.shade == Shade::Lighter  ? resources.GetPen(shades.Lighter, L"LighterBackColor")
                     : line.shade == Shade::Darker ? resources.GetPen(shades.Darker, L"DarkerBackColor")
                                                   : resources.GetPen(shades.Dark, L"DarkBackColor");
    DrawPath(dc, pen, {{line.from.x, line.from.y}, {line.to.x, line.to.y}});
}

void ChromePainter::DrawColumnHeader(HDC dc, bool nameColumn) {
    const GridState& state = m_Grid.m_State;
    if (state.headers == omHeadersNone)
        return;
    const Panes& panes = m_Grid.m_Panes;
    const Size size = (nameColumn ? panes.m_picNameHeader : panes.m_picValueHeader).ClientSize();
    const Rect client{0, 0, size.cx, size.cy};
    FillWith(dc, client, m_Grid.m_ResourceMgr.GetBrush(BackColor(), L"BackColor"));
    RECT edge = ToRect(client);
    if (state.headers == omHeaders3d)
        Draw3DBorder(m_Grid.m_ResourceMgr, dc, client, BackColor());
    else
        DrawEdge(dc, &edge, EDGE_RAISED, BF_RECT | BF_FLAT);
    DrawTextIn(dc, PrepareText(dc),
               nameColumn ? m_Grid.m_ChromeMetrics.CaptionText(state.nameCaption, L"Property")
                          : m_Grid.m_ChromeMetrics.CaptionText(state.valueCaption, L"Value"),
               HeaderCaption(size), kHeaderFormat, state.unicode);
    // It stands on the names, whichever column sorts.
    if (nameColumn && state.sorted)
        DrawSortArrow(dc, size);
    if (nameColumn && panes.m_picHeaderContainer.HasFocus())
        DrawFocusWithin(dc, size);
}

void ChromePainter::DrawSortArrow(HDC dc, Size client) {
    const Point at = SortArrowPlace(client);
    if (const Unique<HBITMAP> arrow = GetArrowBitmap(dc, m_Grid.m_State.sortOrder != omDescending))
        DrawStateA(dc, nullptr, nullptr, reinterpret_cast<LPARAM>(arrow.get()), 0, at.x, at.y, 0, 0, DST_BITMAP);
}

// A raised triangle.
Unique<HBITMAP> ChromePainter::GetArrowBitmap(HDC dc, bool up) {
    CResourceMgr& resources = m_Grid.m_ResourceMgr;
    Unique<HBITMAP> bitmap(CreateCompatibleBitmap(dc, kSortArrowSize, kSortArrowSize));
    const MemoryDC memory(dc);
    if (!bitmap || !memory)
        return {};
    const SelectGuard target(memory.Get(), bitmap.get());
    FillWith(memory.Get(), {0, 0, kSortArrowSize, kSortArrowSize}, resources.GetBrush(BackColor(), L"ArrowColor"));
    constexpr long kLast = kSortArrowSize - 1;
    const POINT apex{kSortArrowSize / 2, up ? 0 : kLast};
    const POINT left{1, kLast - apex.y};
    const POINT right{kLast, kLast - apex.y};
    DrawPath(memory.Get(), resources.GetPen(TranslateColor(0x80000010), L"ArrowDark"), {apex, left});
    DrawPath(memory.Get(), resources.GetPen(TranslateColor(0x80000014), L"ArrowLight"), {left, right, apex});
    return bitmap;
}

void ChromePainter::DrawDescription(HDC dc) {
    const Size size = m_Grid.m_Panes.m_picDescPane.ClientSize();
    RECT client{0, 0, size.cx, size.cy};
    if (const CProperty* property = m_Grid.m_Selection.SelectedProperty())
        DrawHelp(dc, *property, size);
    DrawEdge(dc, &client, BDR_SUNKENOUTER, BF_RECT);
    if (m_Grid.m_Panes.m_picDescPane.HasFocus())
        DrawFocusWithin(dc, size);
}

void ChromePainter::DrawHelp(HDC dc, const CProperty& property, Size client) {
    CResourceMgr& resources = m_Grid.m_ResourceMgr;
    const long rowHeight = m_Grid.m_Panes.RowHeight();
    FontDescription font = m_Grid.m_State.font;
    PrepareText(dc);
    font.Bold = true;
    DrawTextIn(dc, resources.GetFont(font, L"HELPCAPTION"), property.Name(), HelpCaption(client, rowHeight),
               kHelpCaptionFormat, property.ByteExpanded());
    font.Bold = false;
    DrawTextIn(dc, resources.GetFont(font, L"HELPSTRING"), property.Help(), HelpText(client, rowHeight), kHelpFormat,
               property.ByteExpanded());
}

} // namespace ormisk
