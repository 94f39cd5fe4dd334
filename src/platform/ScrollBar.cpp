#include "platform/ScrollBar.h"

#include "automation/Error.h"
#include "win/Checked.h"
#include "win/Module.h"
#include "win/Rects.h"

#include <algorithm>
#include <commctrl.h>

namespace ormisk {

void ScrollBar::Create(HWND parent, ScrollBarListener& listener) {
    m_hWnd = Checked(CreateWindowExW(0, L"SCROLLBAR", L"", WS_CHILD | WS_CLIPSIBLINGS | SBS_VERT, 0, 0, 0, 0, parent,
                                     nullptr, ThisModule(), nullptr));
    m_Listener = &listener;
    SetWindowSubclass(m_hWnd, SubclassProc, 1, reinterpret_cast<DWORD_PTR>(this));
}

void ScrollBar::Destroy() {
    m_Listener = nullptr;
    if (m_hWnd)
        DestroyWindow(m_hWnd);
}

LRESULT CALLBACK ScrollBar::SubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR data) {
    auto* bar = reinterpret_cast<ScrollBar*>(data);
    if (message == WM_NCDESTROY) {
        bar->m_hWnd = nullptr;
        RemoveWindowSubclass(window, SubclassProc, id);
    }
    if (message == WM_PRINTCLIENT)
        message = WM_PAINT; // a bar takes a context with either, but not every system knows both
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    if (message == WM_SETFOCUS && bar->m_Listener)
        IgnoringFailures([&] { bar->m_Listener->OnScrollBarFocus(); });
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
    if (m_hWnd) {
        // Painted with all else that is invalid, once for many changes.
        SetScrollInfo(m_hWnd, SB_CTL, &info, FALSE);
        InvalidateRect(m_hWnd, nullptr, FALSE);
    }
    if (m_Value > max)
        SetValue(max);
}

void ScrollBar::SetValue(long value) {
    value = std::clamp(value, 0L, std::max(m_Max, 0L));
    if (value == m_Value)
        return;
    m_Value = value;
    if (m_hWnd)
        SetScrollPos(m_hWnd, SB_CTL, value, TRUE);
    if (m_Listener)
        m_Listener->OnScroll();
}

void ScrollBar::Show(bool show) {
    if (m_Shown == show)
        return;
    m_Shown = show;
    if (m_hWnd)
        ShowWindow(m_hWnd, show ? SW_SHOWNA : SW_HIDE);
}

void ScrollBar::MovePixels(const Rect& place) {
    const bool onTop = m_hWnd && !GetWindow(m_hWnd, GW_HWNDPREV);
    if (m_hWnd && !(onTop && PlaceInParent(m_hWnd) == place))
        SetWindowPos(m_hWnd, nullptr, place.left, place.top, std::max(place.Width(), 0L), std::max(place.Height(), 0L),
                     SWP_NOACTIVATE);
}

void ScrollBar::HideCaret() {
    if (m_hWnd)
        ::HideCaret(m_hWnd);
}

bool ScrollBar::HandleScroll(WPARAM wParam, LPARAM lParam) {
    if (!m_hWnd || reinterpret_cast<HWND>(lParam) != m_hWnd)
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
        if (GetScrollInfo(m_hWnd, SB_CTL, &info))
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
