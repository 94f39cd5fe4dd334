#include "grid/PaintPrimitives.h"

#include "automation/ComPtr.h"
#include "grid/GridState.h"
#include "platform/ResourceMgr.h"
#include "platform/Rounding.h"
#include "platform/Scale.h"
#include "win/Dpi.h"
#include "win/Gdi.h"
#include "win/Rects.h"

#include <algorithm>

#include <olectl.h>

namespace ormisk {

Color TextColor(const GridState& state, Color color) {
    return state.enabled ? TranslateColor(color) : GetSysColor(COLOR_GRAYTEXT);
}

void FillWith(HDC dc, const Rect& rect, HBRUSH brush) {
    const RECT area = ToRect(rect);
    if (brush)
        FillRect(dc, &area, brush);
}

void DrawPath(HDC dc, HPEN pen, std::initializer_list<POINT> points) {
    const SelectGuard selected(dc, pen);
    if (pen)
        Polyline(dc, points.begin(), static_cast<int>(points.size()));
}

void Draw3DBorder(CResourceMgr& resources, HDC dc, const Rect& rc, Color base) {
    const Shades shades = ShadesOf(base);
    const auto& [l, t, r, b] = rc;
    const auto path = [&](Color color, const wchar_t* key, std::initializer_list<POINT> points) {
        DrawPath(dc, resources.GetPen(color, key), points);
    };
    path(shades.Light, L"LightBackColor", {{l + 1, b - 2}, {l + 1, t + 1}, {r - 2, t + 1}});
    path(shades.Lighter, L"LighterBackColor", {{l, b - 1}, {l, t}, {r - 1, t}});
    path(shades.Dark, L"DarkBackColor", {{l + 1, b - 2}, {r - 2, b - 2}, {r - 2, t + 1}});
    path(shades.Darker, L"DarkerBackColor", {{l, b - 1}, {r - 1, b - 1}, {r - 1, t - 1}});
}

bool TransparentBlit(HDC target, Point place, HDC source, Size size, Color maskColor) {
    const Unique<HBITMAP> mask(CreateBitmap(size.cx, size.cy, 1, 1, nullptr));
    const Unique<HBITMAP> copy(CreateCompatibleBitmap(target, size.cx, size.cy));
    const MemoryDC maskDc(target);
    const MemoryDC copyDc(target);
    if (!mask || !copy || !maskDc || !copyDc)
        return false;
    const SelectGuard maskSelected(maskDc.Get(), mask.get());
    const SelectGuard copySelected(copyDc.Get(), copy.get());
    BitBlt(copyDc.Get(), 0, 0, size.cx, size.cy, source, 0, 0, SRCCOPY);
    SetBkColor(copyDc.Get(), maskColor);
    BitBlt(maskDc.Get(), 0, 0, size.cx, size.cy, copyDc.Get(), 0, 0, SRCCOPY);
    // Where the mask is set it stands for the copy's background, the mask colour: XOR blacks these pixels out.
    BitBlt(copyDc.Get(), 0, 0, size.cx, size.cy, maskDc.Get(), 0, 0, SRCINVERT);
    const SavedDC undone(target);
    SetTextColor(target, 0);
    SetBkColor(target, 0xFFFFFF);
    BitBlt(target, place.x, place.y, size.cx, size.cy, maskDc.Get(), 0, 0, SRCAND);
    BitBlt(target, place.x, place.y, size.cx, size.cy, copyDc.Get(), 0, 0, SRCINVERT);
    return true;
}

void TileBitmap(HDC target, IPicture* picture, const Rect& area, HDC source) {
    const short type = PictureType(picture);
    const Size tile = PicturePixels(picture);
    if ((type != PICTYPE_BITMAP && type != PICTYPE_ICON) || tile.cx <= 0 || tile.cy <= 0)
        return;
    for (long y = area.top; y < area.bottom; y += tile.cy - y % tile.cy) {
        const long height = std::min(tile.cy - y % tile.cy, area.bottom - y);
        for (long x = area.left; x < area.right; x += tile.cx - x % tile.cx)
            BitBlt(target, x, y, std::min(tile.cx - x % tile.cx, area.right - x), height, source, x % tile.cx,
                   y % tile.cy, SRCCOPY);
    }
}

short PictureType(IUnknown* object) {
    const ComPtr<IPicture> picture = Query<IPicture>(object);
    short type = PICTYPE_NONE;
    if (!picture || FAILED(picture->get_Type(&type)))
        return PICTYPE_NONE;
    return type == PICTYPE_UNINITIALIZED ? static_cast<short>(PICTYPE_NONE) : type;
}

Size PicturePixels(IPicture* picture) {
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    if (!picture || FAILED(picture->get_Width(&width)) || FAILED(picture->get_Height(&height)))
        return {};
    const auto pixels = [](long himetric, Axis axis) {
        return RoundToLong(ConvertScale(himetric, ScaleMode::Himetric, ScaleMode::Pixel, DpiOf(nullptr), axis));
    };
    return {pixels(width, Axis::X), pixels(height, Axis::Y)};
}

HANDLE PictureHandle(IPicture* picture) {
    OLE_HANDLE handle = 0;
    if (!picture || FAILED(picture->get_Handle(&handle)))
        return nullptr;
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(static_cast<LONG>(handle)));
}

} // namespace ormisk
