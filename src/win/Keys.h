#pragma once

#include <windows.h>

namespace ormisk {

inline bool IsKeyDown(int key) { return GetKeyState(key) < 0; }

// Modifier keys, as events tell them in a sum.
inline constexpr int kShiftKey = 1;
inline constexpr int kCtrlKey = 2;
inline constexpr int kAltKey = 4;

// Those held down now.
inline int ShiftState() {
    return (IsKeyDown(VK_SHIFT) ? kShiftKey : 0) | (IsKeyDown(VK_CONTROL) ? kCtrlKey : 0) |
           (IsKeyDown(VK_MENU) ? kAltKey : 0);
}

// Whether a key moves among rows, or within a text.
inline bool IsMovingKey(int key) {
    switch (key) {
    case VK_UP:
    case VK_DOWN:
    case VK_LEFT:
    case VK_RIGHT:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
        return true;
    default:
        return false;
    }
}

// Whether a key asks for what an editor drops down or opens.
inline bool OpensEditor(int key, int shift) {
    const bool alt = (shift & kAltKey) != 0;
    return alt ? key == VK_DOWN : key == VK_F4;
}

// The same for a mouse message, which tells two of them.
inline int ShiftStateOf(WPARAM mouseKeys) {
    return (mouseKeys & MK_SHIFT ? kShiftKey : 0) | (mouseKeys & MK_CONTROL ? kCtrlKey : 0) |
           (IsKeyDown(VK_MENU) ? kAltKey : 0);
}

// Before something opens by ALT and an arrow that will have the keys: the system has to know that ALT was not pressed
// alone, which would open a menu when it comes up.
inline void SettleAlt(HWND window) { DefWindowProcW(window, WM_SYSKEYDOWN, VK_DOWN, 1 << 29); }

} // namespace ormisk
