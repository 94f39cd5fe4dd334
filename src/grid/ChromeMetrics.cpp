#include "grid/ChromeMetrics.h"

#include "grid/Grid.h"
#include "platform/TextForms.h"
#include "platform/TextOutput.h"

#include <algorithm>

namespace ormisk {

std::wstring ChromeMetrics::CaptionText(const std::wstring& caption, const wchar_t* defaultCaption) const {
    return m_Grid.m_State.unicode && caption == defaultCaption ? ExpandText(caption) : caption;
}

void ChromeMetrics::CalcTabRects() {
    const GridState& state = m_Grid.m_State;
    const WindowDC dc(nullptr);
    if (!dc)
        return; // the sizes stay as they were
    const SelectGuard font(dc.Get(), m_Grid.m_ResourceMgr.GetFont(state.font, L"TreeFont"));
    const SIZE first = MeasureText(dc.Get(), CaptionText(state.alphabeticTabCaption, L"Alphabetic"), state.unicode);
    const SIZE second = MeasureText(dc.Get(), CaptionText(state.categorizedTabCaption, L"Categorized"), state.unicode);
    const Pane& strip = m_Grid.m_Panes.m_picTabContainer;
    m_Tabs = TabStrip(strip.Units(), strip.ClientSize(), {std::max(first.cx, second.cx), std::max(first.cy, second.cy)},
                      state.unicode);
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
    return DescriptionHeight(height, panes.RowHeight());
}

} // namespace ormisk
