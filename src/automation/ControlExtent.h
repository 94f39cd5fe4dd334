#pragma once

#include <windows.h>

namespace ormisk {

// Hosts measure a control in HIMETRIC, hundredths of a millimetre; its window has pixels of the screen.
SIZEL HimetricOf(SIZE pixels);
SIZE PixelsOf(SIZEL himetric);

// The size of a control that no host has sized yet, in pixels.
inline constexpr SIZE kDefaultSize{240, 320};

inline SIZE SizeOf(const RECT& rect) { return {rect.right - rect.left, rect.bottom - rect.top}; }

} // namespace ormisk
