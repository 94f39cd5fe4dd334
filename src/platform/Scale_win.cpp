#include "platform/Gdi.h"
#include "platform/Geometry.h"
#include "platform/Scale.h"

namespace ormisk {

double ScreenDpi(Axis axis) {
    static const Size dpi = [] {
        const WindowDC screen(nullptr);
        if (!screen)
            return Size{96, 96};
        return Size{GetDeviceCaps(screen.Get(), LOGPIXELSX), GetDeviceCaps(screen.Get(), LOGPIXELSY)};
    }();
    return static_cast<double>(axis == Axis::X ? dpi.cx : dpi.cy);
}

} // namespace ormisk
