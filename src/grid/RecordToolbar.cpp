#include "grid/RecordToolbar.h"

#include "grid/Grid.h"
#include "grid/PaintPrimitives.h"
#include "platform/TextOutput.h"
#include "win/WindowText.h"

#include <algorithm>

namespace ormisk {

namespace {

constexpr wchar_t kToolbarFont[] = L"RSToolbarFont";
constexpr UINT kTotalFormat = DT_SINGLELINE | DT_NOPREFIX; // on a line with the number
using enum RecordButton;

// What cannot be read is not so.
template <class Call> bool Holds(Call&& call) {
    bool holds = false;
    IgnoringFailures([&] { holds = call(); });
    return holds;
}

bool IsForwardOnly(const Recordset& recordset) {
    return Holds([&] { return recordset.IsForwardOnly(); });
}

} // namespace

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

void RecordToolbar::Create() { m_txtRecordNo.Create(m_Grid.m_Panes.m_picRSToolbar.hWnd(), this); }

void RecordToolbar::ApplyEnabled() { m_txtRecordNo.SetEnabled(m_Grid.m_State.enabled && !m_Emptied); }

void RecordToolbar::LayoutRecordToolbar() {
    Panes& panes = m_Grid.m_Panes;
    const GridState& state = m_Grid.m_State;
    SIZE text{};
    long total = 0;
    if (const WindowDC dc(panes.m_picRSToolbar.hWnd()); dc) {
        const SelectGuard selected(dc.Get(), m_Grid.m_ResourceMgr.GetFont(state.font, kToolbarFont));
        text = MeasureText(dc.Get(), L"Ag", false);
        if (m_bRecordCountKnown)
            total = MeasureText(dc.Get(), WindowText(panes.m_lblTotalRecords.hWnd()), false).cx;
    }
    const ToolbarPlaces places =
        LayoutToolbar({text.cx, text.cy}, total, panes.m_picTabContainer.ClientSize(), state.showTabs);
    panes.m_picRSToolbar.MovePixels(places.strip);
    const auto place = [&](Pane& pane, std::size_t part) {
        pane.MovePixels(places.parts[part]);
        pane.SetVisible(places.parts[part].Width() > 0);
    };
    place(panes.m_picShowFirst, 0);
    place(panes.m_picShowPrevious, 1);
    place(panes.m_lblTotalRecords, 3);
    place(panes.m_picShowNext, 4);
    place(panes.m_picShowLast, 5);
    const Rect& number = places.parts[2];
    m_txtRecordNo.SetFont(state.font);
    m_txtRecordNo.Move(number.left, number.top, number.Width(), number.Height());
    if (number.Width() <= 0 && GetFocus() == m_txtRecordNo.hWnd())
        panes.m_picTreeContainer.TakeFocus();
    m_txtRecordNo.SetVisible(number.Width() > 0);
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

void RecordToolbar::PaintTotal(HDC dc, Size client) {
    const HWND window = m_Grid.m_Panes.m_lblTotalRecords.hWnd();
    const HFONT font = m_Grid.m_ResourceMgr.GetFont(m_Grid.m_State.font, kToolbarFont);
    if (!font)
        return;
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, IsWindowEnabled(window) ? TextColor(m_Grid.m_State, m_Grid.m_State.foreColor)
                                             : GetSysColor(COLOR_GRAYTEXT));
    const SelectGuard selected(dc, font);
    RECT place{0, 0, client.cx, client.cy};
    DrawTextMultiLang(dc, WindowText(window), place, kTotalFormat, false);
}

void RecordToolbar::Paint(const Pane& pane, HDC dc) {
    if (&pane == &m_Grid.m_Panes.m_lblTotalRecords)
        PaintTotal(dc, pane.ClientSize());
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

void RecordToolbar::Enable(std::initializer_list<RecordButton> buttons, bool enabled) {
    for (const RecordButton button : buttons)
        m_Buttons[static_cast<std::size_t>(button)].Enabled(enabled);
}

void RecordToolbar::EnableFor(const Recordset& recordset, std::initializer_list<RecordButton> buttons) {
    const bool forwardOnly = IsForwardOnly(recordset);
    for (const RecordButton button : buttons)
        if (!forwardOnly || button == Next)
            Enable({button}, true);
}

void RecordToolbar::SetTotal(const std::wstring& caption, bool countKnown) {
    Pane& label = m_Grid.m_Panes.m_lblTotalRecords;
    m_bRecordCountKnown = countKnown;
    if (WindowText(label.hWnd()) == caption)
        return;
    SetWindowTextW(label.hWnd(), caption.c_str());
    label.Invalidate(true);
    LayoutRecordToolbar();
}

void RecordToolbar::RecordsetLoaded(const Recordset& recordset) {
    Enable({First, Previous, Next, Last}, true);
    m_txtRecordNo.SetText({});
    ShowPosition(recordset);
    UpdateRecordsetToolbar(recordset);
}

void RecordToolbar::ShowPosition(const Recordset& recordset) {
    std::int64_t position = 0;
    IgnoringFailures([&] {
        if (!recordset.IsBof() || !recordset.IsEof())
            position = recordset.AbsolutePosition();
    });
    const std::wstring text = std::to_wstring(position);
    if (position >= 1 && m_txtRecordNo.Text() != text)
        m_txtRecordNo.SetText(text);
}

void RecordToolbar::UpdateRecordsetToolbar(const Recordset& recordset) {
    Pane& label = m_Grid.m_Panes.m_lblTotalRecords;
    if (m_Emptied == static_cast<bool>(recordset)) {
        m_Emptied = !recordset;
        ApplyEnabled();
        EnableWindow(label.hWnd(), !m_Emptied);
    }
    if (m_Emptied) {
        Enable({First, Next, Previous, Last}, false);
        SetTotal({}, true);
        m_txtRecordNo.SetText({});
        return;
    }
    if (IsForwardOnly(recordset))
        Enable({First, Previous, Last}, false);
    std::int64_t count = -1;
    IgnoringFailures([&] { count = recordset.RecordCount(); });
    if (count < 0)
        m_txtRecordNo.SetText({});
    SetTotal(count < 0 ? L" 0" : L" of " + std::to_wstring(count) + L' ', count >= 0);
    if (Holds([&] { return recordset.IsBof(); }))
        Enable({First, Previous}, false);
    if (Holds([&] { return recordset.IsEof(); }))
        Enable({Next, Last}, false);
}

void RecordToolbar::MoveComplete(const Recordset& recordset, MoveReason reason) {
    UpdateRecordsetToolbar(recordset);
    switch (reason) {
    case MoveReason::First:
        Enable({First, Previous}, false);
        EnableFor(recordset, {Next, Last});
        break;
    case MoveReason::Next:
        EnableFor(recordset, {First, Previous});
        break;
    case MoveReason::Previous:
        EnableFor(recordset, {Next, Last});
        break;
    case MoveReason::Last:
        EnableFor(recordset, {First, Previous});
        Enable({Next, Last}, false);
        break;
    default:
        IgnoringFailures([&] { EnableAt(recordset, recordset.AbsolutePosition()); });
        break;
    }
    RefreshRecordToolbar();
}

// A place in the table that was named, and not come to step by step.
void RecordToolbar::EnableAt(const Recordset& recordset, std::int64_t position) {
    if (position < 1)
        return;
    const std::int64_t count = recordset.RecordCount();
    const bool last = count >= 0 && position >= count;
    if (last)
        Enable({Next, Last}, false);
    else
        EnableFor(recordset, {Next, Last});
    if (last || position > 1)
        EnableFor(recordset, {First, Previous});
    else
        Enable({First, Previous}, false);
}

void RecordToolbar::RecordsetChangeComplete(const Recordset& recordset) {
    IgnoringFailures([&] {
        if (recordset && recordset.IsOpen() && !recordset.CanMoveBack())
            Enable({First, Previous}, false);
    });
}

void RecordToolbar::RefreshRecordToolbar() {
    if (const HWND strip = m_Grid.m_Panes.m_picRSToolbar.hWnd())
        RedrawWindow(strip, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void RecordToolbar::Click(RecordButton button) {
    RecordBinding& records = m_Grid.m_Records;
    const bool moved = m_Grid.Trapped([&] {
        const Recordset source = records.Source();
        if (!source || !source.IsOpen())
            return;
        if (button == First)
            records.MoveFirst();
        else if (button == Previous)
            records.MovePrevious();
        else if (button == Last)
            records.MoveLast();
        else if (!source.IsEof())
            records.MoveNext();
    });
    if (!moved)
        m_Grid.m_Panes.m_picTreeContainer.TakeFocus();
    if (m_Grid.IsAlive())
        Press(nullptr);
}

// The record whose number is in the box. One that the recordset refuses stays there as it was typed.
void RecordToolbar::GoToNumber() {
    RecordBinding& records = m_Grid.m_Records;
    const Recordset source = records.Source();
    if (!source || !m_Grid.IsAlive())
        return;
    IgnoringFailures([&] {
        _variant_t number;
        CheckSystem(ConvertValue(ToVariant(m_txtRecordNo.Text()), VT_I4, number));
        const long position = V_I4(&number);
        if (position < 1)
            return;
        if (position != source.AbsolutePosition()) {
            records.MoveTo(position); // and what shows follows
        } else {
            EnableAt(source, position);
            RefreshRecordToolbar();
        }
    });
}

// The box is no pane: the control is held here while the host is told, and acts on what it was told.

void RecordToolbar::OnKeyDown(int& keyCode, int shift) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    m_Grid.m_Events.KeyDown(keyCode, shift);
}

void RecordToolbar::OnKeyPress(int& keyAscii) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    IgnoringFailures([&] { m_Grid.m_Events.KeyPress(keyAscii); }); // no letter gets in by it
    if (!m_Grid.IsAlive())
        return;
    const Recordset source = m_Grid.m_Records.Source();
    if (keyAscii == VK_RETURN)
        GoToNumber();
    else if (keyAscii == VK_ESCAPE && source)
        ShowPosition(source);
    if ((keyAscii < L'0' || keyAscii > L'9') && keyAscii != VK_BACK)
        keyAscii = 0;
}

void RecordToolbar::OnKeyUp(int& keyCode, int shift) { m_Grid.m_Events.KeyUp(keyCode, shift); }

void RecordToolbar::OnGotFocus() { m_Grid.m_Host.FocusEntered(); }

void RecordToolbar::OnLostFocus() {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    if (!m_Grid.IsReporting()) // the box of the report took the focus
        GoToNumber();
    m_Grid.m_Host.FocusLeft();
}

} // namespace ormisk
