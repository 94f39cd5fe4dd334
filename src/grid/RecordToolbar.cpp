#include "grid/RecordToolbar.h"

#include "grid/Grid.h"
#include "grid/PaintPrimitives.h"
#include "platform/TextOutput.h"

#include <algorithm>

namespace ormisk {

void CButton::Change(bool& state, bool value) {
    if (state == value)
        return;
    state = value;
    if (m_Surface)
        m_Surface->Refresh();
}

void CButton::Enabled(bool enabled) {
    if (!m_Surface || enabled == Enabled())
        return;
    EnableWindow(m_Surface->hWnd(), enabled);
    m_Surface->Refresh();
}

RecordToolbar::RecordToolbar(Grid& grid) : m_Grid(grid) {
    Panes& panes = grid.m_Panes;
    Pane* surfaces[] = {&panes.m_picShowFirst, &panes.m_picShowPrevious, &panes.m_picShowNext, &panes.m_picShowLast};
    for (std::size_t i = 0; i < m_Buttons.size(); ++i)
        m_Buttons[i].PictureContainer(surfaces[i]);
}

void RecordToolbar::Create() { m_txtRecordNo.Create(m_Grid.m_Panes.m_picRSToolbar.hWnd(), nullptr); }

void RecordToolbar::LayoutRecordToolbar() {
    Panes& panes = m_Grid.m_Panes;
    const GridState& state = m_Grid.m_State;
    SIZE text{};
    if (const WindowDC dc(panes.m_picRSToolbar.hWnd()); dc) {
        const SelectGuard selected(dc.Get(), m_Grid.m_ResourceMgr.GetFont(state.font, L"RSToolbarFont"));
        text = MeasureText(dc.Get(), L"Ag", false);
    }
    const ToolbarPlaces places =
        LayoutToolbar({text.cx, text.cy}, panes.m_picTabContainer.ClientSize(), state.showTabs);
    panes.m_picRSToolbar.MovePixels(places.strip);
    panes.m_picShowFirst.MovePixels(places.parts[0]);
    panes.m_picShowPrevious.MovePixels(places.parts[1]);
    panes.m_lblTotalRecords.MovePixels(places.parts[3]);
    panes.m_picShowNext.MovePixels(places.parts[4]);
    panes.m_picShowLast.MovePixels(places.parts[5]);
    const Rect& number = places.parts[2];
    m_txtRecordNo.SetFont(state.font);
    m_txtRecordNo.Move(number.left, number.top, number.Width(), number.Height());
    m_txtRecordNo.SetVisible(true);
}

CButton* RecordToolbar::ButtonOn(const Pane& pane) {
    const auto found =
        std::ranges::find(m_Buttons, &pane, [](const CButton& button) { return button.PictureContainer(); });
    return found == m_Buttons.end() ? nullptr : &*found;
}

void RecordToolbar::Highlight(const CButton* button) {
    for (CButton& each : m_Buttons)
        each.Highlighted(&each == button);
}

void RecordToolbar::Press(const CButton* button) {
    for (CButton& each : m_Buttons)
        each.Pressed(&each == button);
}

// While a form is designed nothing tells that the mouse leaves, so nothing is raised.
void RecordToolbar::MouseMove(const Pane& pane) {
    if (&pane == &m_Grid.m_Panes.m_picRSToolbar) {
        Highlight(nullptr);
        Press(nullptr);
        return;
    }
    const CButton* button = ButtonOn(pane);
    if (!button || !m_Grid.m_PaneEvents.AtRunTime())
        return;
    if (m_Tracked != pane.hWnd()) {
        TRACKMOUSEEVENT request{sizeof request, TME_LEAVE, pane.hWnd(), 0};
        m_Tracked = TrackMouseEvent(&request) ? pane.hWnd() : nullptr;
    }
    Highlight(button);
}

void RecordToolbar::Mouse(const Pane& pane, const MouseEvent& event) {
    if (event.stage == MouseStage::Move)
        MouseMove(pane);
    else if (event.stage == MouseStage::Up)
        MouseUp();
    else if (const CButton* button = ButtonOn(pane); button && event.button == 1)
        Press(button);
}

// The mouse may be on the next button already.
void RecordToolbar::MouseLeft(HWND window) {
    if (window != m_Tracked)
        return;
    m_Tracked = nullptr;
    Highlight(nullptr);
}

void RecordToolbar::Paint(const Pane& pane, HDC dc) {
    const CButton* button = ButtonOn(pane);
    if (!button)
        return;
    const auto index = button - m_Buttons.data();
    const bool enabled = button->Enabled() && m_Grid.m_State.enabled;
    const Size size = pane.ClientSize();
    Color color = TranslateColor(m_Grid.m_State.foreColor);
    if (!enabled) {
        const Color back = TranslateColor(pane.BackColor());
        color = BlendColor(std::max(color, back), std::min(color, back), 0.75F);
    }
    const HPEN pen = m_Grid.m_ResourceMgr.GetPen(color, L"ArrowColor");
    const HBRUSH brush = m_Grid.m_ResourceMgr.GetBrush(color, L"ArrowFillColor");
    if (pen && brush) {
        // The first two lead back, and the outer ones to an end.
        const bool toEnd = index == 0 || index == 3;
        const auto [triangle, bar] = LayoutArrow(size, index < 2, toEnd);
        const auto point = [](const Point& at) { return POINT{at.x, at.y}; };
        const POINT corners[] = {point(triangle[0]), point(triangle[1]), point(triangle[2])};
        const SelectGuard penSelected(dc, pen);
        const SelectGuard brushSelected(dc, brush);
        Polygon(dc, corners, 3);
        if (toEnd)
            DrawPath(dc, pen, {point(bar[0]), point(bar[1])});
    }
    RECT rc{0, 0, size.cx, size.cy};
    if (enabled && button->Pressed())
        DrawEdge(dc, &rc, BDR_SUNKENOUTER, BF_RECT);
    else if (enabled && button->Highlighted())
        DrawEdge(dc, &rc, BDR_RAISEDINNER, BF_RECT);
}

} // namespace ormisk
