#include "automation/ControlExtent.h"

#include "win/Dpi.h"

namespace ormisk {

namespace {

constexpr int kHimetricPerInch = 2540;

} // namespace

SIZEL HimetricOf(SIZE pixels) {
    const int dpi = DpiOf(nullptr);
    return {MulDiv(pixels.cx, kHimetricPerInch, dpi), MulDiv(pixels.cy, kHimetricPerInch, dpi)};
}

SIZE PixelsOf(SIZEL himetric) {
    const int dpi = DpiOf(nullptr);
    return {MulDiv(himetric.cx, dpi, kHimetricPerInch), MulDiv(himetric.cy, dpi, kHimetricPerInch)};
}

} // namespace ormisk
