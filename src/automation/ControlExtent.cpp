#include "automation/ControlExtent.h"

namespace ormisk {

namespace {

constexpr int kHimetricPerInch = 2540;

SIZE PixelsPerInch() {
    const HDC screen = GetDC(nullptr);
    const SIZE result{GetDeviceCaps(screen, LOGPIXELSX), GetDeviceCaps(screen, LOGPIXELSY)};
    ReleaseDC(nullptr, screen);
    return result;
}

} // namespace

SIZEL HimetricOf(SIZE pixels) {
    const SIZE perInch = PixelsPerInch();
    return {MulDiv(pixels.cx, kHimetricPerInch, perInch.cx), MulDiv(pixels.cy, kHimetricPerInch, perInch.cy)};
}

SIZE PixelsOf(SIZEL himetric) {
    const SIZE perInch = PixelsPerInch();
    return {MulDiv(himetric.cx, perInch.cx, kHimetricPerInch), MulDiv(himetric.cy, perInch.cy, kHimetricPerInch)};
}

} // namespace ormisk
