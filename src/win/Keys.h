#pragma once

#include <windows.h>

namespace ormisk {

inline bool IsKeyDown(int key) { return GetKeyState(key) < 0; }

// Modifier keys held down now: 1 Shift, 2 Ctrl, 4 Alt.
inline int ShiftState() {
    return (IsKeyDown(VK_SHIFT) ? 1 : 0) | (IsKeyDown(VK_CONTROL) ? 2 : 0) | (IsKeyDown(VK_MENU) ? 4 : 0);
}

// The same for a mouse message, which tells two of them.
inline int ShiftStateOf(WPARAM mouseKeys) {
    return (mouseKeys & MK_SHIFT ? 1 : 0) | (mouseKeys & MK_CONTROL ? 2 : 0) | (IsKeyDown(VK_MENU) ? 4 : 0);
}

} // namespace ormisk
