#include "grid/ChromeMetrics.h"

#include "grid/Grid.h"
#include "platform/Rounding.h"
#include "platform/TextForms.h"
#include "platform/TextOutput.h"

#include <algorithm>

namespace ormisk {

// In Unicode mode a caption of the library's own is plain text and has to be expanded first.
Size ChromeMetrics::CaptionSize(HDC dc, const std::wstring& caption, const wchar_t* defaultCaption) const {
    const bool unicode = m_Grid.m_State.unicode;
    const SIZE size = MeasureText(dc, unicode && caption == defaultCaption ? ExpandText(caption) : caption, unicode);
    return {size.cx, size.cy};
}

void ChromeMetrics::CalcTabRects() {
    const GridState& state = m_Grid.m_State;
    const WindowDC dc(nullptr);
    if (!dc)
        return; // the sizes stay as they were
    const SelectGuard font(dc.Get(), m_Grid.m_ResourceMgr.GetFont(state.font, L"TreeFont"));
    const Size alphabetic = CaptionSize(dc.Get(), state.alphabeticTabCaption, L"Alphabetic");
    const Size categorized = CaptionSize(dc.Get(), state.categorizedTabCaption, L"Categorized");
    Size widest{std::max(alphabetic.cx, categorized.cx), std::max(alphabetic.cy, categorized.cy)};
    if (state.unicode)
        widest.cx = RoundToLong(static_cast<double>(widest.cx) * 2.5);

    const Pane& strip = m_Grid.m_Panes.m_picTabContainer;
    const auto units = [](float value) { return static_cast<double>(RoundToLong(static_cast<double>(value))); };
    double width = units(strip.PixelsToUnitsX(static_cast<float>(widest.cx)));
    double height = units(strip.PixelsToUnitsY(static_cast<float>(widest.cy)));
    width = static_cast<double>(RoundToLong(width * 1.4 + static_cast<double>(strip.PixelsToUnitsX(10.0F)) + 3.0));
    height = static_cast<double>(RoundToLong(height * 1.5));
    const auto stripWidth = static_cast<double>(strip.ScaleWidth());
    if (stripWidth < 2.0 * width)
        width = static_cast<double>(RoundToLong(stripWidth / 2.0 - static_cast<double>(strip.PixelsToUnitsX(1.0F))));
    m_TabWidth = RoundToLong(width);
    m_TabHeight = RoundToLong(height);
}

Rect ChromeMetrics::TabFrom(long left) const {
    const Pane& strip = m_Grid.m_Panes.m_picTabContainer;
    const auto x = [&](long units) {
        return RoundToLong(static_cast<double>(strip.UnitsToPixelsX(static_cast<float>(units))));
    };
    const float height = strip.UnitsToPixelsY(static_cast<float>(m_TabHeight));
    return {x(left), 0, x(left + m_TabWidth), RoundToLong(static_cast<double>(height))};
}

long ChromeMetrics::CalcDescriptionHeight(const std::wstring& help) {
    const Panes& panes = m_Grid.m_Panes;
    const Size client = panes.m_picDescPane.ClientSize();
    RECT bounds{2, 2, client.cx - 2, client.cy};
    long height = 0;
    if (const WindowDC dc(panes.m_picDescPane.hWnd()); dc) {
        FontDescription font = m_Grid.m_State.font;
        font.Bold = false;
        const SelectGuard selected(dc.Get(), m_Grid.m_ResourceMgr.GetFont(font, L"HELPSTRING"));
        height = DrawTextMultiLang(dc.Get(), help, bounds, DT_WORDBREAK | DT_NOPREFIX | DT_WORD_ELLIPSIS | DT_CALCRECT,
                                   false);
    }
    return height + panes.RowHeight() + 4 + 4;
}

} // namespace ormisk
