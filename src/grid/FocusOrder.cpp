#include "grid/FocusOrder.h"

#include "grid/Grid.h"

#include <algorithm>

namespace ormisk {

namespace {

constexpr float kStep = 8; // pixels that a key moves a bar
constexpr int kCtrlOrAlt = 2 | 4;

bool IsWithin(HWND window, HWND ancestor) {
    return window && (window == ancestor || (ancestor && IsChild(ancestor, window)));
}

} // namespace

std::vector<HWND> FocusOrder::Stops(bool shown) const {
    const Panes& panes = m_Grid.m_Panes;
    const GridState& state = m_Grid.m_State;
    const HWND editor = m_Grid.m_Session.TabStop();
    const std::pair<HWND, bool> places[] = {
        {panes.m_picTabContainer.hWnd(), state.showTabs},
        {panes.m_picHeaderContainer.hWnd(), state.headers != omHeadersNone},
        {panes.TreeWnd(), true},
        {editor, editor != nullptr},
        {m_Grid.m_RecordToolbar.m_txtRecordNo.hWnd(),
         panes.RecordToolbarShown() && m_Grid.m_RecordToolbar.TakesNumber()},
        {panes.m_picDescPane.hWnd(), state.showDescription},
    };
    std::vector<HWND> stops;
    for (const auto& [window, isShown] : places)
        if (isShown == shown)
            stops.push_back(window);
    return stops;
}

bool FocusOrder::Move(bool backward) {
    // Nothing in a control that was disabled can take the focus: it would be caught here.
    if (!m_Grid.m_State.enabled)
        return false;
    const HWND focus = GetFocus();
    const std::vector<HWND> stops = Stops(true);
    // Panes lie in each other: the innermost one that has the focus is where it is.
    auto at = stops.end();
    for (auto stop = stops.begin(); stop != stops.end(); ++stop)
        if (IsWithin(focus, *stop) && (at == stops.end() || IsChild(*at, *stop)))
            at = stop;
    if (at == stops.end() || (backward ? at == stops.begin() : at + 1 == stops.end()))
        return false;
    FocusTo(backward ? *(at - 1) : *(at + 1));
    return true;
}

bool FocusOrder::Uses(int keyCode) const {
    const Panes& panes = m_Grid.m_Panes;
    const HWND focus = GetFocus();
    const bool headers = IsWithin(focus, panes.m_picHeaderContainer.hWnd());
    const bool rows = IsWithin(focus, panes.TreeWnd()) && !headers;
    return rows || IsWithin(focus, m_Grid.m_Session.DropDownWindow()) ||
           focus == m_Grid.m_RecordToolbar.m_txtRecordNo.hWnd() || (headers && keyCode == VK_RETURN);
}

void FocusOrder::LeaveHidden() {
    const HWND focus = GetFocus();
    if (focus && std::ranges::count(Stops(false), focus) > 0)
        SetFocus(m_Grid.m_Panes.TreeWnd());
}

void FocusOrder::Enter(bool backward) {
    const std::vector<HWND> stops = Stops(true);
    FocusTo(backward ? stops.back() : stops.front());
}

// Leaving an editor commits it, so that the stop may be gone or the control ended afterwards.
void FocusOrder::FocusTo(HWND stop) {
    Panes& panes = m_Grid.m_Panes;
    SetFocus(stop);
    for (TextBox* box : {&panes.m_TextEditor, &m_Grid.m_RecordToolbar.m_txtRecordNo})
        if (m_Grid.IsAlive() && stop == box->hWnd())
            box->SelectAll();
}

void FocusOrder::HeaderKeyDown(int keyCode, int shift) {
    if (shift & kCtrlOrAlt)
        return;
    Panes& panes = m_Grid.m_Panes;
    if (keyCode == VK_SPACE || keyCode == VK_RETURN) {
        m_Grid.m_ModelView.HeaderSort(true);
    } else if (keyCode == VK_LEFT || keyCode == VK_RIGHT) {
        const float step = panes.m_picHeaderContainer.PixelsToUnitsX(keyCode == VK_LEFT ? -kStep : kStep);
        panes.SetColumnDivider(std::max(panes.ColumnDividerPosition() + step, 0.0F));
    }
}

void FocusOrder::DescriptionKeyDown(int keyCode, int shift) {
    if ((keyCode != VK_UP && keyCode != VK_DOWN) || shift & kCtrlOrAlt)
        return;
    Panes& panes = m_Grid.m_Panes;
    const float step = panes.m_picBG.PixelsToUnitsY(keyCode == VK_UP ? kStep : -kStep);
    const float height = panes.DescriptionPaneHeight() + step;
    if (height > 0)
        panes.SetDescriptionPaneHeight(height);
}

} // namespace ormisk
