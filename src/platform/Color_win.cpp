#include "platform/Color.h"

#include <windows.h>

namespace ormisk {

Color TranslateColor(Color color) {
    constexpr Color kSystemColor = 0x80000000;
    return color & kSystemColor ? GetSysColor(static_cast<int>(color & ~kSystemColor)) : color;
}

} // namespace ormisk
