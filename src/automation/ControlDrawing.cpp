#include "automation/ControlDrawing.h"

#include "win/Gdi.h"

namespace ormisk {

namespace {

// A metafile has no device to measure by: its window is laid so that one unit is one pixel of the picture.
void MapByWindow(HDC dc, const RECTL& bounds, const RECTL& window, SIZE pixels) {
    const LONG width = bounds.right - bounds.left;
    const LONG height = bounds.bottom - bounds.top;
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowOrgEx(dc, MulDiv(window.left - bounds.left, pixels.cx, width),
                   MulDiv(window.top - bounds.top, pixels.cy, height), nullptr);
    SetWindowExtEx(dc, MulDiv(window.right, pixels.cx, width), MulDiv(window.bottom, pixels.cy, height), nullptr);
}

void MapByViewport(HDC dc, const RECTL& bounds, SIZE pixels) {
    POINT corners[2]{{bounds.left, bounds.top}, {bounds.right, bounds.bottom}};
    LPtoDP(dc, corners, 2);
    if (GetGraphicsMode(dc) == GM_ADVANCED)
        ModifyWorldTransform(dc, nullptr, MWT_IDENTITY); // the corners have it in them already
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowOrgEx(dc, 0, 0, nullptr);
    SetWindowExtEx(dc, pixels.cx, pixels.cy, nullptr);
    SetViewportOrgEx(dc, corners[0].x, corners[0].y, nullptr);
    SetViewportExtEx(dc, corners[1].x - corners[0].x, corners[1].y - corners[0].y, nullptr);
}

} // namespace

void DrawMapped(HDC dc, const RECTL& bounds, const RECTL* metafileWindow, SIZE pixels,
                const std::function<void(HDC, const RECT&)>& draw) {
    if (bounds.right == bounds.left || bounds.bottom == bounds.top || pixels.cx <= 0 || pixels.cy <= 0)
        return;
    const SavedDC saved(dc);
    if (GetObjectType(dc) == OBJ_METADC) {
        const RECTL whole{bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top};
        MapByWindow(dc, bounds, metafileWindow ? *metafileWindow : whole, pixels);
    } else {
        MapByViewport(dc, bounds, pixels);
    }
    IntersectClipRect(dc, 0, 0, pixels.cx, pixels.cy);
    draw(dc, {0, 0, pixels.cx, pixels.cy});
}

} // namespace ormisk
