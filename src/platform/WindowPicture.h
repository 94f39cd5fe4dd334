#pragma once

#include <windows.h>

namespace ormisk {

// Draws a window with its border and all it shows, as it is on screen, with its upper left corner at the origin of any
// context. Of its children those count that are shown themselves, wherever the window itself is.
void DrawWindowPicture(HWND window, HDC dc);

} // namespace ormisk
