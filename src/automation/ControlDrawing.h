#pragma once

#include <windows.h>

#include <functional>

namespace ormisk {

// Lets a picture of the given size in pixels be drawn into the bounds of any context, scaled if need be, and restores
// the context. Bounds are in the context's logical units; the context is only written to, so that it may be a metafile.
// Of an old-style metafile the host gives the window: its origin in left and top, its extents in right and bottom.
void DrawMapped(HDC dc, const RECTL& bounds, const RECTL* metafileWindow, SIZE pixels,
                const std::function<void(HDC, const RECT&)>& draw);

} // namespace ormisk
