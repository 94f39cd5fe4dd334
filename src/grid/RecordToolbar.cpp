#include "grid/RecordToolbar.h"

#include "grid/Grid.h"
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

// From left to right: first, previous, record number, total, next, last; 4 pixels of air around them.
void RecordToolbar::LayoutRecordToolbar() {
    constexpr long kAir = 4;
    constexpr long kClearOfFrame = 2;
    constexpr long kFrame = 2;
    Panes& panes = m_Grid.m_Panes;
    const GridState& state = m_Grid.m_State;
    SIZE text{};
    if (const WindowDC dc(panes.m_picRSToolbar.hWnd()); dc) {
        const SelectGuard selected(dc.Get(), m_Grid.m_ResourceMgr.GetFont(state.font, L"RSToolbarFont"));
        text = MeasureText(dc.Get(), L"Ag", false);
    }
    const long height = text.cy + 2;
    const Size client = panes.m_picTabContainer.ClientSize();
    const long margin = state.showTabs ? kFrame + kClearOfFrame : 0;
    const long bottom = client.cy - margin;
    panes.m_picRSToolbar.MovePixels({margin, bottom - height - 2 * kAir, client.cx - margin, bottom});
    m_txtRecordNo.SetFont(state.font);

    long x = kAir;
    const auto place = [&](Pane& pane, long width) {
        pane.MovePixels({x, kAir, x + width, kAir + height});
        x += width;
    };
    place(panes.m_picShowFirst, height);
    place(panes.m_picShowPrevious, height);
    const long numberWidth = text.cx / 2 * 8;
    m_txtRecordNo.Move(static_cast<int>(x), kAir, static_cast<int>(numberWidth), static_cast<int>(height));
    m_txtRecordNo.SetVisible(true);
    x += numberWidth;
    place(panes.m_lblTotalRecords, text.cx / 2 * 12); // room for what it says of most tables
    place(panes.m_picShowNext, height);
    place(panes.m_picShowLast, height);
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
    const CButton* button = ButtonOn(pane);
    if (event.stage == MouseStage::Move)
        MouseMove(pane);
    else if (event.stage == MouseStage::Up)
        MouseUp();
    else if (button && event.button == 1)
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
    static constexpr struct {
        Arrow arrow;
        bool twoLines;
    } kFaces[] = {{Arrow::Left, true}, {Arrow::Left, false}, {Arrow::Right, false}, {Arrow::Right, true}};
    for (std::size_t i = 0; i < m_Buttons.size(); ++i) {
        if (m_Buttons[i].PictureContainer() == &pane)
            DrawToolbarButton(dc, m_Buttons[i], kFaces[i].arrow, kFaces[i].twoLines);
    }
}

void RecordToolbar::DrawToolbarButton(HDC dc, const CButton& button, Arrow arrow, bool twoLines) {
    const Pane& surface = *button.PictureContainer();
    const Size size = surface.ClientSize();
    RECT rc{0, 0, size.cx, size.cy};
    Color color = TranslateColor(static_cast<Color>(m_Grid.m_State.foreColor));
    const bool enabled = button.Enabled() && m_Grid.m_State.enabled;
    if (!enabled) {
        const Color back = TranslateColor(surface.BackColor());
        color = BlendColor(std::max(color, back), std::min(color, back), 0.75F);
    }
    DrawArrow(dc, rc, arrow, color, twoLines);
    if (!enabled)
        return;
    if (button.Pressed())
        DrawEdge(dc, &rc, BDR_SUNKENOUTER, BF_RECT);
    else if (button.Highlighted())
        DrawEdge(dc, &rc, BDR_RAISEDINNER, BF_RECT);
}

// A triangle half as high as the surface and half as deep as high, in the middle with its bar.
void RecordToolbar::DrawArrow(HDC dc, const RECT& rc, Arrow arrow, Color color, bool twoLines) {
    const HPEN pen = m_Grid.m_ResourceMgr.GetPen(color, L"ArrowColor");
    const HBRUSH brush = m_Grid.m_ResourceMgr.GetBrush(color, L"ArrowFillColor");
    if (!pen || !brush)
        return;
    const long depth = std::max(std::min(rc.right, rc.bottom) / 4, 1L);
    const long behind = twoLines ? 2 : 0; // from the base to the bar
    const long total = depth + 1 + behind;
    const bool sideways = arrow == Arrow::Left || arrow == Arrow::Right;
    const long sign = arrow == Arrow::Left || arrow == Arrow::Up ? 1 : -1; // from the apex to the base
    const long extent = sideways ? rc.right : rc.bottom;
    const long middle = ((sideways ? rc.bottom : rc.right) - 1) / 2;
    const long start = (extent - total) / 2;
    const long apex = sign > 0 ? start : start + total - 1;
    const auto point = [&](long along, long across) {
        return sideways ? POINT{apex + sign * along, middle + across} : POINT{middle + across, apex + sign * along};
    };
    const SelectGuard penSelected(dc, pen);
    const SelectGuard brushSelected(dc, brush);
    const POINT triangle[] = {point(0, 0), point(depth, -depth), point(depth, depth)};
    Polygon(dc, triangle, 3);
    if (!twoLines)
        return;
    const POINT from = point(depth + behind, -depth);
    const POINT to = point(depth + behind, depth + 1);
    MoveToEx(dc, from.x, from.y, nullptr);
    LineTo(dc, to.x, to.y);
}

} // namespace ormisk
