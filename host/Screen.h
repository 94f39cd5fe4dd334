#pragma once

#include <windows.h>

#include <string>

namespace ormisk {

// Whether the screen shows at a point what the window there has drawn. A window that was just made or moved is on the
// screen a little later; a window of another program is taken as it is.
bool ScreenIsCurrent(POINT screen);

// The same for points spread over a part of the screen.
bool ScreenIsCurrent(const RECT& part);

// The colour that a point of the screen shows. Throws a Failure for a point that is not on it.
COLORREF ScreenColor(POINT screen);

// Writes a part of the screen to a PNG file, with all that lies over it. Throws a Failure.
void SaveScreen(const RECT& part, const std::wstring& path);

} // namespace ormisk
