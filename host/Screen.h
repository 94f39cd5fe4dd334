#pragma once

#include <windows.h>

#include <string>

namespace ormisk {

// The colour that a point of the screen shows. Throws a Failure for a point that is not on it.
COLORREF ScreenColor(POINT screen);

// Writes a part of the screen to a PNG file, with all that lies over it. Throws a Failure.
void SaveScreen(const RECT& part, const std::wstring& path);

} // namespace ormisk
