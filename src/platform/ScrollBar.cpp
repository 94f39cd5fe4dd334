#include "platform/ScrollBar.h"

#include "win/Rects.h"

#include <algorithm>

namespace ormisk {

void ScrollBar::Create(HWND parent, ScrollBarListener& listener) {
    ChildWindow::Create(L"SCROLLBAR", SBS_VERT, parent, nullptr);
    m_ScrollListener = &listener;
}

LRESULT ScrollBar::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    // A bar takes a context with either, but not every system knows both.
    const LRESULT result = Default(window, message == WM_PRINTCLIENT ? WM_PAINT : message, wParam, lParam);
    if (message == WM_SETFOCUS)
        m_ScrollListener->OnScrollBarFocus();
    return result;
}

void ScrollBar::SetRange(long max, long largeChange) {
    m_Max = max;
    m_LargeChange = largeChange;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
    info.nMax = max + largeChange - 1;
    info.nPage = static_cast<UINT>(largeChange);
    info.nPos = std::min(m_Value, max);
    // Painted with all else that is invalid, once for many changes.
    SetScrollInfo(hWnd(), SB_CTL, &info, FALSE);
    Repaint();
    if (m_Value > max)
        SetValue(max);
}

void ScrollBar::SetValue(long value) {
    value = std::clamp(value, 0L, std::max(m_Max, 0L));
    if (value == m_Value)
        return;
    m_Value = value;
    SetScrollPos(hWnd(), SB_CTL, value, TRUE);
    if (m_ScrollListener)
        m_ScrollListener->OnScroll();
}

void ScrollBar::MovePixels(const Rect& place) {
    const bool onTop = hWnd() && !GetWindow(hWnd(), GW_HWNDPREV);
    if (hWnd() && !(onTop && PlaceInParent(hWnd()) == place))
        SetWindowPos(hWnd(), nullptr, place.left, place.top, std::max(place.Width(), 0L), std::max(place.Height(), 0L),
                     SWP_NOACTIVATE);
}

void ScrollBar::HideCaret() {
    if (hWnd())
        ::HideCaret(hWnd());
}

bool ScrollBar::HandleScroll(WPARAM wParam, LPARAM lParam) {
    if (!hWnd() || reinterpret_cast<HWND>(lParam) != hWnd())
        return false;
    long value = m_Value;
    switch (LOWORD(wParam)) {
    case SB_LINEUP:
        value -= 1;
        break;
    case SB_LINEDOWN:
        value += 1;
        break;
    case SB_PAGEUP:
        value -= m_LargeChange;
        break;
    case SB_PAGEDOWN:
        value += m_LargeChange;
        break;
    case SB_TOP:
        value = 0;
        break;
    case SB_BOTTOM:
        value = m_Max;
        break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: {
        // The message itself carries 16 bits only.
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_TRACKPOS;
        if (GetScrollInfo(hWnd(), SB_CTL, &info))
            value = info.nTrackPos;
        break;
    }
    default:
        return true;
    }
    SetValue(value);
    return true;
}

} // namespace ormisk
