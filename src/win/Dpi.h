#pragma once

#include <windows.h>

namespace ormisk {

// Pixels per inch of the screen that a window is on; of the desktop for no window.
int DpiOf(HWND window);

} // namespace ormisk
