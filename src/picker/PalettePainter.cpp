#include "picker/PalettePainter.h"

#include "platform/TextForms.h"
#include "platform/TextOutput.h"
#include "win/Rects.h"

#include <algorithm>

namespace ormisk {

namespace {

constexpr Color kTabHighlight = 0x80000014;
constexpr Color kTabDarkShadow = 0x80000015;
constexpr UINT kNameFormat = DT_SINGLELINE | DT_NOPREFIX;
constexpr UINT kCaptionFormat = DT_SINGLELINE; // access keys show, as in a label
constexpr long kCorner = 2;

std::wstring ShownText(const std::wstring& text, const std::wstring& own, bool unicode) {
    return unicode && text == own ? ExpandText(text) : text;
}

std::wstring Caption(const SwatchSettings& settings, int tab) {
    static const SwatchSettings own;
    return tab == kPaletteTab ? ShownText(settings.PaletteTabCaption, own.PaletteTabCaption, settings.Unicode)
                              : ShownText(settings.SystemTabCaption, own.SystemTabCaption, settings.Unicode);
}

Rect Inset(const Rect& rect, long by) { return {rect.left + by, rect.top + by, rect.right - by, rect.bottom - by}; }

void Line(HDC dc, std::initializer_list<POINT> points) {
    Polyline(dc, points.begin(), static_cast<int>(points.size()));
}

} // namespace

Color PaletteView::PageColor() const {
    return TranslateColor(activeTab == kSystemTab ? settings.SystemBackColor : settings.PaletteBackColor);
}

Color PaletteView::ColorOf(PaletteCell cell) const {
    return cell.custom ? custom[static_cast<std::size_t>(cell.index)] : PaletteColor(cell.index);
}

std::wstring PalettePainter::RowText(const PaletteView& view, int row) {
    static const SystemColorNames own = DefaultSystemColorNames();
    const auto index = static_cast<std::size_t>(row);
    return ShownText(view.names[index], own[index], view.settings.Unicode);
}

long PalettePainter::LineHeight(HDC dc) const { return MeasureText(dc, L"Ag", false).cy; }

Size PalettePainter::CaptionSize(HDC dc, const PaletteView& view) const {
    Size most{0, LineHeight(dc)};
    for (const int tab : {kPaletteTab, kSystemTab}) {
        RECT rect{};
        DrawTextMultiLang(dc, Caption(view.settings, tab), rect, kCaptionFormat | DT_CALCRECT, view.settings.Unicode);
        most = {std::max<long>(most.cx, rect.right), std::max<long>(most.cy, rect.bottom)};
    }
    return most;
}

long PalettePainter::RowTextWidth(HDC dc, const PaletteView& view, int row) const {
    return MeasureText(dc, RowText(view, row), view.settings.Unicode).cx;
}

void PalettePainter::Fill(HDC dc, const Rect& place, Color color) {
    const RECT rect = ToRect(place);
    FillRect(dc, &rect, m_Resources.GetBrush(color, L"BackgroundBrush"));
}

void PalettePainter::DrawTabs(HDC dc, const PaletteView& view) {
    const SavedDC saved(dc);
    SelectObject(dc, Font(view));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, TranslateColor(view.settings.ForeColor));
    Fill(dc, {0, 0, view.sizes.window.cx, view.sizes.TabHeight()}, TranslateColor(view.settings.BackColor));
    DrawTab(dc, view, 1 - view.activeTab);
    {
        const SelectGuard pen(dc, m_Resources.GetPen(TranslateColor(kTabShadow), L"TabShadow"));
        const long bottom = view.sizes.TabHeight() - 1;
        Line(dc, {{0, bottom}, {view.sizes.window.cx, bottom}});
    }
    DrawTab(dc, view, view.activeTab);
}

// The tab in front has the colour of its page.
void PalettePainter::DrawTab(HDC dc, const PaletteView& view, int tab) {
    const bool front = tab == view.activeTab;
    const Rect shape = TabShape(view.sizes, tab, view.activeTab);
    const long right = shape.right - 1;
    if (front)
        Fill(dc, {shape.left + 1, shape.top + 1, right, shape.bottom}, view.PageColor());
    {
        const SelectGuard pen(dc, m_Resources.GetPen(TranslateColor(kTabHighlight), L"TabHighlight"));
        Line(dc, {{shape.left, shape.bottom},
                  {shape.left, shape.top + kCorner},
                  {shape.left + kCorner, shape.top},
                  {right - kCorner, shape.top}});
    }
    {
        const SelectGuard pen(dc, m_Resources.GetPen(TranslateColor(kTabDarkShadow), L"TabDarkShadow"));
        Line(dc, {{right - kCorner, shape.top}, {right, shape.top + kCorner}, {right, shape.bottom}});
    }
    {
        const SelectGuard pen(dc, m_Resources.GetPen(TranslateColor(kTabShadow), L"TabShadow"));
        Line(dc, {{right - 1, shape.top + kCorner}, {right - 1, shape.bottom}});
    }
    RECT caption = ToRect(Inset(shape, kCorner + 1));
    DrawTextMultiLang(dc, Caption(view.settings, tab), caption,
                      kCaptionFormat | DT_CENTER | DT_VCENTER | DT_END_ELLIPSIS, view.settings.Unicode);
    if (front && view.tabFocus)
        DrawFocusRect(dc, &caption);
}

void PalettePainter::DrawPage(HDC dc, const PaletteView& view) {
    const SavedDC saved(dc);
    SelectObject(dc, Font(view));
    SetBkMode(dc, TRANSPARENT);
    Fill(dc, {0, 0, view.area.cx, view.area.cy}, view.PageColor());
    SelectObject(dc, m_Resources.GetPen(TranslateColor(view.settings.ForeColor), L"ForecolorPen"));
    SelectObject(dc, GetStockObject(DC_BRUSH)); // each of many swatches changes its colour
    if (view.activeTab == kSystemTab) {
        for (int row = 0; row < kSystemColors; ++row)
            DrawRow(dc, view, row);
    } else {
        for (int i = 0; i < kPaletteColors; ++i)
            DrawCell(dc, view, {false, i});
        for (int i = 0; i < kCustomColors; ++i)
            DrawCell(dc, view, {true, i});
    }
    DrawHotFrame(dc, view, true);
    DrawSelectionFrame(dc, view);
}

void PalettePainter::DrawSwatch(HDC dc, const Rect& place, Color color) {
    SetDCBrushColor(dc, TranslateColor(color));
    Rectangle(dc, place.left, place.top, place.right, place.bottom);
}

void PalettePainter::DrawCell(HDC dc, const PaletteView& view, PaletteCell cell) {
    DrawSwatch(dc, Inset(view.Place(cell), 1), view.ColorOf(cell));
}

void PalettePainter::DrawRow(HDC dc, const PaletteView& view, int row) {
    const Rect place = view.Place(row);
    if (place.bottom <= 0 || place.top >= view.area.cy)
        return;
    const bool selected = row == view.selectedRow;
    if (selected)
        Fill(dc, place, TranslateColor(view.settings.HighlightColor));
    const Rect swatch{place.left, place.top, place.left + place.Height(), place.bottom};
    DrawSwatch(dc, Inset(swatch, 2), SystemColor(row));

    SetTextColor(dc, TranslateColor(selected ? view.settings.HighlightForeColor : view.settings.ForeColor));
    RECT text = ToRect({swatch.right, place.top, place.right, place.bottom});
    text.top += std::max((place.Height() - LineHeight(dc)) / 2, 0L);
    DrawTextMultiLang(dc, RowText(view, row), text, kNameFormat, view.settings.Unicode);
}

void PalettePainter::Outline(HDC dc, const Rect& place, Color color) {
    const SelectGuard pen(dc, GetStockObject(DC_PEN));
    SetDCPenColor(dc, color);
    const long right = place.right - 1;
    const long bottom = place.bottom - 1;
    Line(dc,
         {{place.left, place.top}, {place.left, bottom}, {right, bottom}, {right, place.top}, {place.left, place.top}});
}

// Without it, a frame has the colour of what lies under it.
void PalettePainter::DrawHotFrame(HDC dc, const PaletteView& view, bool hot) {
    const Color highlight = TranslateColor(view.settings.HighlightColor);
    if (view.activeTab == kPaletteTab && view.hotCell)
        Outline(dc, view.Place(view.hotCell), hot ? highlight : view.PageColor());
    if (view.activeTab == kSystemTab && view.hotRow >= 0)
        Outline(dc, view.Place(view.hotRow), hot || view.hotRow == view.selectedRow ? highlight : view.PageColor());
}

void PalettePainter::DrawSelectionFrame(HDC dc, const PaletteView& view) {
    if (view.activeTab == kPaletteTab && view.selectedCell)
        Outline(dc, view.Place(view.selectedCell), TranslateColor(view.settings.HighlightForeColor));
}

} // namespace ormisk
