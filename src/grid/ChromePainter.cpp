#include "grid/ChromePainter.h"

#include "grid/Grid.h"
#include "grid/PaintPrimitives.h"
#include "platform/Rounding.h"
#include "platform/TextForms.h"
#include "platform/TextOutput.h"

namespace ormisk {

namespace {

constexpr UINT kTabFormat = DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_WORD_ELLIPSIS; // with access keys
constexpr UINT kHeaderFormat = DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;
constexpr UINT kHelpCaptionFormat = DT_SINGLELINE | DT_NOPREFIX;
constexpr UINT kHelpFormat = DT_WORDBREAK | DT_NOPREFIX | DT_WORD_ELLIPSIS;
constexpr long kArrowSize = 8;

// Transparent text of a colour, for the life of the guard.
class TextGuard {
public:
    TextGuard(HDC dc, Color color) : m_Dc(dc), m_Mode(SetBkMode(dc, TRANSPARENT)), m_Color(SetTextColor(dc, color)) {}
    TextGuard(const TextGuard&) = delete;
    TextGuard& operator=(const TextGuard&) = delete;
    ~TextGuard() {
        SetTextColor(m_Dc, m_Color);
        SetBkMode(m_Dc, m_Mode);
    }

private:
    HDC m_Dc;
    int m_Mode;
    COLORREF m_Color;
};

// A pane that the keyboard is in.
void DrawFocusWithin(HDC dc, RECT pane) {
    constexpr int kInset = 2;
    InflateRect(&pane, -kInset, -kInset);
    const COLORREF color = SetTextColor(dc, 0);
    DrawFocusRect(dc, &pane);
    SetTextColor(dc, color);
}

} // namespace

// Lines in the units of a pane, in one colour at a time. A line leaves its last point out.
class ChromePainter::UnitLines {
public:
    UnitLines(const Pane& pane, HDC dc, HPEN pen) : m_Pane(pane), m_Dc(dc), m_Pen(dc, pen) {}

    void Draw(double x1, double y1, double x2, double y2) const {
        MoveToEx(m_Dc, X(x1), Y(y1), nullptr);
        LineTo(m_Dc, X(x2), Y(y2));
    }
    int X(double units) const { return RoundToLong(static_cast<double>(m_Pane.UnitsToPixelsX(Single(units)))); }
    int Y(double units) const { return RoundToLong(static_cast<double>(m_Pane.UnitsToPixelsY(Single(units)))); }

private:
    static float Single(double units) { return static_cast<float>(units); }

    const Pane& m_Pane;
    HDC m_Dc;
    SelectGuard m_Pen;
};

// A tab in units of the strip. The insets are those of a tab that lies behind.
struct ChromePainter::Tab {
    std::wstring caption;
    double left = 0;
    double right = 0;
    double bottom = 0;
    double insetLeft = 0;
    double insetTop = 0;
    bool focused = false;
};

Color ChromePainter::BackColor() const { return TranslateColor(static_cast<Color>(m_Grid.m_State.backColor)); }

Color ChromePainter::ForeColor() const {
    return TextColor(m_Grid.m_State, static_cast<Color>(m_Grid.m_State.foreColor));
}

std::wstring ChromePainter::CaptionText(const std::wstring& caption, const wchar_t* defaultCaption) const {
    return m_Grid.m_State.unicode && caption == defaultCaption ? ExpandText(caption) : caption;
}

// The tab behind goes first, and the frame closes over both: under the tab in front it leaves a gap.
void ChromePainter::DrawTabs(HDC dc) {
    const GridState& state = m_Grid.m_State;
    if (!state.showTabs)
        return;
    const Pane& strip = m_Grid.m_Panes.m_picTabContainer;
    const auto width = static_cast<double>(m_Grid.m_ChromeMetrics.TabWidth());
    const auto height = static_cast<double>(m_Grid.m_ChromeMetrics.TabHeight());
    const auto insetX = static_cast<double>(3.0F * strip.PixelsToUnitsX(1.0F));
    const auto insetY = static_cast<double>(3.0F * strip.PixelsToUnitsY(1.0F));
    Tab alphabetic{CaptionText(state.alphabeticTabCaption, L"Alphabetic"), 0, width, height};
    Tab categorized{CaptionText(state.categorizedTabCaption, L"Categorized"), width, 2 * width, height};
    const bool inFront = state.activeView == omAlphabetic;
    Tab& behind = inFront ? categorized : alphabetic;
    Tab& front = inFront ? alphabetic : categorized;
    behind.insetTop = insetY;
    behind.insetLeft = inFront ? 0 : insetX;
    front.focused = m_Grid.m_Input.TabsFocused();

    const TextGuard text(dc, ForeColor());
    const HFONT treeFont = m_Grid.m_ResourceMgr.GetFont(state.font, L"TreeFont");
    const SelectGuard font(dc, treeFont);
    if (!treeFont) {
        behind.caption.clear();
        front.caption.clear();
    }
    DrawTab(dc, behind);
    DrawTab(dc, front);
    DrawPageFrame(dc);
}

void ChromePainter::DrawTab(HDC dc, const Tab& tab) {
    CResourceMgr& resources = m_Grid.m_ResourceMgr;
    const Pane& strip = m_Grid.m_Panes.m_picTabContainer;
    const auto px = static_cast<double>(strip.PixelsToUnitsX(1.0F));
    const double px2 = 2 * px;
    const double py2 = 2 * static_cast<double>(strip.PixelsToUnitsY(1.0F));
    const double left = RoundToLong(tab.left + tab.insetLeft);
    const double top = RoundToLong(tab.insetTop);
    const double right = RoundToLong(tab.right);
    const double bottom = tab.bottom;
    const Shades shades = ShadesOf(BackColor());
    RECT caption;
    {
        const UnitLines light(strip, dc, resources.GetPen(shades.Lighter, L"LighterBackColor"));
        light.Draw(tab.left, bottom, left, bottom);
        light.Draw(tab.right, bottom, right, bottom);
        light.Draw(left, bottom, left, top + py2);
        light.Draw(left, top + py2, left + px2, top);
        light.Draw(left + px2, top, right - px2, top);
        caption = {light.X(left) + 5, light.Y(top) + 3, light.X(right) - 5, light.Y(bottom) - 1};
    }
    {
        const UnitLines darker(strip, dc, resources.GetPen(shades.Darker, L"DarkerBackColor"));
        darker.Draw(right - px2, top, right, top + py2);
        darker.Draw(right, top + py2, right, bottom);
    }
    {
        const UnitLines dark(strip, dc, resources.GetPen(shades.Dark, L"DarkBackColor"));
        dark.Draw(right - px, top + py2, right - px, bottom);
    }
    DrawTextMultiLang(dc, tab.caption, caption, kTabFormat, m_Grid.m_State.unicode);
    if (tab.focused) {
        const COLORREF color = SetTextColor(dc, 0);
        DrawFocusRect(dc, &caption);
        SetTextColor(dc, color);
    }
}

void ChromePainter::DrawPageFrame(HDC dc) {
    CResourceMgr& resources = m_Grid.m_ResourceMgr;
    const Pane& strip = m_Grid.m_Panes.m_picTabContainer;
    const auto px = static_cast<double>(strip.PixelsToUnitsX(1.0F));
    const auto py = static_cast<double>(strip.PixelsToUnitsY(1.0F));
    const auto w = static_cast<double>(strip.ScaleWidth());
    const auto h = static_cast<double>(strip.ScaleHeight());
    const auto tabWidth = static_cast<double>(m_Grid.m_ChromeMetrics.TabWidth());
    const auto top = static_cast<double>(m_Grid.m_ChromeMetrics.TabHeight());
    const Shades shades = ShadesOf(BackColor());
    {
        const UnitLines light(strip, dc, resources.GetPen(shades.Lighter, L"LighterBackColor"));
        light.Draw(0, top, 0, h);
        if (m_Grid.m_State.activeView == omAlphabetic) {
            light.Draw(tabWidth, top, w - px, top);
        } else {
            light.Draw(0, top, tabWidth, top);
            light.Draw(2 * tabWidth, top, w - px, top);
        }
    }
    {
        const UnitLines darker(strip, dc, resources.GetPen(shades.Darker, L"DarkerBackColor"));
        darker.Draw(0, h - py, w - px, h - py);
        darker.Draw(w - px, top, w - px, h); // with the corner
    }
    const UnitLines dark(strip, dc, resources.GetPen(shades.Dark, L"DarkBackColor"));
    dark.Draw(px, h - 2 * py, w - px, h - 2 * py);
    dark.Draw(w - 2 * px, top, w - 2 * px, h - 2 * py);
}

void ChromePainter::DrawColumnHeader(HDC dc, bool nameColumn) {
    const GridState& state = m_Grid.m_State;
    if (state.headers == omHeadersNone)
        return;
    const Panes& panes = m_Grid.m_Panes;
    const Size size = (nameColumn ? panes.m_picNameHeader : panes.m_picValueHeader).ClientSize();
    RECT client{0, 0, size.cx, size.cy};
    if (const HBRUSH brush = m_Grid.m_ResourceMgr.GetBrush(BackColor(), L"BackColor"))
        FillRect(dc, &client, brush);
    if (state.headers == omHeaders3d)
        Draw3DBorder(m_Grid.m_ResourceMgr, dc, {0, 0, size.cx, size.cy}, BackColor());
    else
        DrawEdge(dc, &client, EDGE_RAISED, BF_RECT | BF_FLAT);
    DrawHeaderCaption(dc, nameColumn, client);
    // It stands on the names, whichever column sorts.
    if (nameColumn && state.sorted)
        DrawSortArrow(dc, client);
    if (nameColumn && panes.m_picHeaderContainer.HasFocus())
        DrawFocusWithin(dc, client);
}

// The caption takes the middle half.
void ChromePainter::DrawHeaderCaption(HDC dc, bool nameColumn, const RECT& client) {
    const GridState& state = m_Grid.m_State;
    const TextGuard text(dc, ForeColor());
    const HFONT font = m_Grid.m_ResourceMgr.GetFont(state.font, L"TreeFont");
    if (!font)
        return;
    const SelectGuard selected(dc, font);
    const auto width = static_cast<double>(client.right);
    RECT rc{RoundToLong(width / 4.0), client.top, 0, client.bottom};
    rc.right = rc.left + RoundToLong(width / 2.0);
    DrawTextMultiLang(
        dc, nameColumn ? CaptionText(state.nameCaption, L"Property") : CaptionText(state.valueCaption, L"Value"), rc,
        kHeaderFormat, state.unicode);
}

void ChromePainter::DrawSortArrow(HDC dc, const RECT& client) {
    const auto width = static_cast<double>(client.right);
    long x = RoundToLong(width - width / 4.0);
    if (x + kArrowSize > client.right - 2)
        x -= kArrowSize;
    const long y = RoundToLong(static_cast<double>(client.bottom - kArrowSize) / 2.0);
    const Unique<HBITMAP> arrow = GetArrowBitmap(dc, m_Grid.m_State.sortOrder == omAscending);
    if (arrow)
        DrawStateA(dc, nullptr, nullptr, reinterpret_cast<LPARAM>(arrow.get()), 0, x, y, 0, 0, DST_BITMAP);
}

// A raised triangle.
Unique<HBITMAP> ChromePainter::GetArrowBitmap(HDC dc, bool up) {
    CResourceMgr& resources = m_Grid.m_ResourceMgr;
    Unique<HBITMAP> bitmap(CreateCompatibleBitmap(dc, kArrowSize, kArrowSize));
    const MemoryDC memory(dc);
    if (!bitmap || !memory)
        return {};
    const SelectGuard target(memory.Get(), bitmap.get());
    const RECT area{0, 0, kArrowSize, kArrowSize};
    if (const HBRUSH brush = resources.GetBrush(BackColor(), L"ArrowColor"))
        FillRect(memory.Get(), &area, brush);
    const long apexX = kArrowSize / 2;
    const long apexY = up ? 0 : kArrowSize - 1;
    const long baseY = kArrowSize - 1 - apexY;
    constexpr long kBaseLeft = 1;
    constexpr long kBaseRight = kArrowSize - 1;
    {
        const SelectGuard pen(memory.Get(), resources.GetPen(TranslateColor(0x80000010), L"ArrowDark"));
        MoveToEx(memory.Get(), apexX, apexY, nullptr);
        LineTo(memory.Get(), kBaseLeft, baseY);
    }
    const SelectGuard pen(memory.Get(), resources.GetPen(TranslateColor(0x80000014), L"ArrowLight"));
    MoveToEx(memory.Get(), kBaseLeft, baseY, nullptr);
    LineTo(memory.Get(), kBaseRight, baseY);
    LineTo(memory.Get(), apexX, apexY);
    return bitmap;
}

void ChromePainter::DrawDescription(HDC dc) {
    const Size size = m_Grid.m_Panes.m_picDescPane.ClientSize();
    RECT client{0, 0, size.cx, size.cy};
    if (const CProperty* property = m_Grid.m_Selection.SelectedProperty())
        DrawHelp(dc, *property, client);
    DrawEdge(dc, &client, BDR_SUNKENOUTER, BF_RECT);
    if (m_Grid.m_Panes.m_picDescPane.HasFocus())
        DrawFocusWithin(dc, client);
}

void ChromePainter::DrawHelp(HDC dc, const CProperty& property, const RECT& client) {
    const TextGuard text(dc, ForeColor());
    FontDescription description = m_Grid.m_State.font;
    RECT rc{client.left + 2, client.top + 2, client.right - 2, client.top + 2 + m_Grid.m_Panes.RowHeight()};
    description.Bold = true;
    if (const HFONT font = m_Grid.m_ResourceMgr.GetFont(description, L"HELPCAPTION")) {
        const SelectGuard selected(dc, font);
        DrawTextMultiLang(dc, property.Name(), rc, kHelpCaptionFormat, property.ByteExpanded());
    }
    // Its bottom lies below the pane, which cuts what does not fit.
    rc.top = rc.bottom + 2;
    rc.bottom += client.bottom;
    description.Bold = false;
    if (const HFONT font = m_Grid.m_ResourceMgr.GetFont(description, L"HELPSTRING")) {
        const SelectGuard selected(dc, font);
        DrawTextMultiLang(dc, property.Help(), rc, kHelpFormat, property.ByteExpanded());
    }
}

} // namespace ormisk
