#include "automation/ControlPlacing.h"

#include "automation/ControlExtent.h"
#include "win/Checked.h"
#include "win/Module.h"
#include "win/Rects.h"

namespace ormisk {

namespace {

bool IsClipped(HWND window) {
    RECT box;
    return GetWindowRgnBox(window, &box) != ERROR;
}

// Cuts off what is outside the visible part, which is in the coordinates of the window; null shows it whole.
void Clip(HWND window, const RECT* visible) {
    if (visible) {
        Unique<HRGN> region(CreateRectRgnIndirect(visible));
        if (SetWindowRgn(window, region.get(), TRUE)) [[maybe_unused]]
            const HRGN given = region.release(); // to the system
    } else if (IsClipped(window)) {
        SetWindowRgn(window, nullptr, TRUE);
    }
}

} // namespace

HWND ControlPlacing::Parking() {
    if (!m_Parking) {
        m_Parking.reset(Checked(CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP | WS_CLIPCHILDREN, 0, 0, 0,
                                                0, nullptr, nullptr, ThisModule(), nullptr)));
    }
    return m_Parking.get();
}

void ControlPlacing::Park(HWND window) {
    if (IsWindow(window) && HasFocusWithin(window))
        SetFocus(GetParent(window));
    if (IsWindow(window))
        ShowWindow(window, SW_HIDE);
    if (IsWindow(window)) {
        Clip(window, nullptr);
        SetParent(window, m_Parking.get());
    }
}

bool ControlPlacing::Unpark(HWND window, HWND parent) {
    return IsWindow(window) && (GetParent(window) == parent || SetParent(window, parent) != nullptr);
}

bool ControlPlacing::Move(HWND window, const RECT& position, const RECT* clip) {
    const SIZE size = SizeOf(position);
    if (!IsWindow(window))
        return false;
    SetWindowPos(window, nullptr, position.left, position.top, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    RECT visible = position;
    if (clip)
        IntersectRect(&visible, &position, clip);
    const bool whole = EqualRect(&visible, &position);
    OffsetRect(&visible, -position.left, -position.top);
    if (IsWindow(window))
        Clip(window, whole ? nullptr : &visible);
    const bool isNew = size.cx != m_Size.cx || size.cy != m_Size.cy;
    m_Size = size;
    return isNew && IsWindow(window);
}

bool ControlPlacing::Resize(HWND window, SIZE size) {
    if (!IsWindow(window))
        return false;
    const Rect present = PlaceInParent(window);
    return Move(window, {present.left, present.top, present.left + size.cx, present.top + size.cy}, nullptr);
}

bool HasFocusWithin(HWND window) {
    const HWND focus = GetFocus();
    return focus && (focus == window || IsChild(window, focus));
}

} // namespace ormisk
