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

} // namespace

Color ChromePainter::BackColor() const { return TranslateColor(static_cast<Color>(m_Grid.m_State.backColor)); }

void ChromePainter::PrepareText(HDC dc) const {
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, TextColor(m_Grid.m_State, m_Grid.m_State.foreColor));
}

// The tab behind goes first, and the frame closes over both.
void ChromePainter::DrawTabs(HDC dc) {
    const GridState& state = m_Grid.m_State;
    if (!state.showTabs)
        return;
    const std::wstring captions[] = {m_Grid.m_ChromeMetrics.CaptionText(state.alphabeticTabCaption, L"Alphabetic"),
                                     m_Grid.m_ChromeMetrics.CaptionText(state.categorizedTabCaption, L"Categorized")};
    const int front = state.activeView == omAlphabetic ? 0 : 1;
    PrepareText(dc);
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
    RECT place = ToRect(face.caption);
    if (const HFONT font = m_Grid.m_ResourceMgr.GetFont(m_Grid.m_State.font, L"TreeFont")) {
        const SelectGuard selected(dc, font);
        DrawTextMultiLang(dc, caption, place, kTabFormat, m_Grid.m_State.unicode);
    }
    if (inFront && m_Grid.m_Panes.m_picTabContainer.HasFocus())
        DrawFocus(dc, place);
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
    DrawHeaderCaption(dc, nameColumn, size);
    // It stands on the names, whichever column sorts.
    if (nameColumn && state.sorted)
        DrawSortArrow(dc, size);
    if (nameColumn && panes.m_picHeaderContainer.HasFocus())
        DrawFocusWithin(dc, size);
}

void ChromePainter::DrawHeaderCaption(HDC dc, bool nameColumn, Size client) {
    const GridState& state = m_Grid.m_State;
    const ChromeMetrics& metrics = m_Grid.m_ChromeMetrics;
    const HFONT font = m_Grid.m_ResourceMgr.GetFont(state.font, L"TreeFont");
    if (!font)
        return;
    const SelectGuard selected(dc, font);
    PrepareText(dc);
    RECT place = ToRect(HeaderCaption(client));
    DrawTextMultiLang(dc,
                      nameColumn ? metrics.CaptionText(state.nameCaption, L"Property")
                                 : metrics.CaptionText(state.valueCaption, L"Value"),
                      place, kHeaderFormat, state.unicode);
}

void ChromePainter::DrawSortArrow(HDC dc, Size client) {
    const Point at = SortArrowPlace(client);
    if (const Unique<HBITMAP> arrow = GetArrowBitmap(dc, m_Grid.m_State.sortOrder == omAscending))
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
    if (const CProperty* property = m_Grid.m_Session.SelectedProperty())
        DrawHelp(dc, *property, size);
    DrawEdge(dc, &client, BDR_SUNKENOUTER, BF_RECT);
    if (m_Grid.m_Panes.m_picDescPane.HasFocus())
        DrawFocusWithin(dc, size);
}

void ChromePainter::DrawHelp(HDC dc, const CProperty& property, Size client) {
    PrepareText(dc);
    FontDescription font = m_Grid.m_State.font;
    const auto draw = [&](const std::wstring& text, const wchar_t* key, const Rect& place, UINT format) {
        RECT rc = ToRect(place);
        if (const HFONT handle = m_Grid.m_ResourceMgr.GetFont(font, key)) {
            const SelectGuard selected(dc, handle);
            DrawTextMultiLang(dc, text, rc, format, property.ByteExpanded());
        }
    };
    const long rowHeight = m_Grid.m_Panes.RowHeight();
    font.Bold = true;
    draw(property.Name(), L"HELPCAPTION", HelpCaption(client, rowHeight), kHelpCaptionFormat);
    font.Bold = false;
    draw(property.Help(), L"HELPSTRING", HelpText(client, rowHeight), kHelpFormat);
}

} // namespace ormisk
