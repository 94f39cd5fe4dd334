#pragma once

#include <windows.h>

#include <string>

namespace ormisk {

// Empty without a window.
std::wstring WindowText(HWND window);

} // namespace ormisk
