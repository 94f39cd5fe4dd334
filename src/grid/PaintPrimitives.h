#pragma once

#include "platform/Color.h"
#include "win/Geometry.h"

#include <windows.h>

#include <initializer_list>
#include <ocidl.h>

namespace ormisk {

class CResourceMgr;
struct GridState;

// What a text of the colour is drawn in: in a disabled control everything is gray.
Color TextColor(const GridState& state, Color color);

void FillWith(HDC dc, const Rect& rect, HBRUSH brush);

// Lines from point to point, of which the last is left out. No brush or pen: nothing is drawn.
void DrawPath(HDC dc, HPEN pen, std::initializer_list<POINT> points);

// A relief on the rectangle, in shades of the base colour, which is an RGB value.
void Draw3DBorder(CResourceMgr& resources, HDC dc, const Rect& rc, Color base);

// Copies a bitmap but for the pixels of the mask colour, an RGB value; true on success.
bool TransparentBlit(HDC target, Point place, HDC source, Size size, Color maskColor);

// Tiles over an area, aligned to the coordinate origin. Draws bitmaps and icons only.
void TileBitmap(HDC target, IPicture* picture, const Rect& area, HDC source);

// Type of a picture (0 none, 1 bitmap, 2 metafile, 3 icon, 4 enhanced metafile); 0 without one or when it fails.
short PictureType(IUnknown* object);

// Size in pixels, rounded.
Size PicturePixels(IPicture* picture);

// The bitmap or icon handle, null when it fails. Stays the picture's.
HANDLE PictureHandle(IPicture* picture);

} // namespace ormisk
