#pragma once

#include "win/Geometry.h"

#include <windows.h>

namespace ormisk {

// Between our rectangles and those of the system.
inline RECT ToRect(const Rect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }
inline Rect FromRect(const RECT& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

Rect ClientRect(HWND window); // from 0, 0; empty without a window
Rect WindowRect(HWND window); // on the screen
Rect WorkArea(HWND window);   // of the screen that the window is on
// Where a child window stands, in its parent.
Rect PlaceInParent(HWND window);

} // namespace ormisk
