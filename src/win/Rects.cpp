#include "win/Rects.h"

namespace ormisk {

Rect ClientRect(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    return FromRect(rect);
}

Rect WindowRect(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return FromRect(rect);
}

Rect WorkArea(HWND window) {
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &screen);
    return FromRect(screen.rcWork);
}

Rect PlaceInParent(HWND window) {
    RECT rect = ToRect(WindowRect(window));
    MapWindowPoints(HWND_DESKTOP, GetParent(window), reinterpret_cast<POINT*>(&rect), 2);
    return FromRect(rect);
}

} // namespace ormisk
