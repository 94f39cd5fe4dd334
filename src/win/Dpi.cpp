#include "win/Dpi.h"

#include "win/Gdi.h"

#include <bit>

namespace ormisk {

namespace {

constexpr int kUsualDpi = 96; // of a screen that does not tell

int DesktopDpi() {
    const WindowDC screen(nullptr);
    const int dpi = screen ? GetDeviceCaps(screen.Get(), LOGPIXELSX) : 0;
    return dpi > 0 ? dpi : kUsualDpi;
}

// Older systems have one resolution for all windows, and not this call.
using DpiForWindow = UINT(WINAPI*)(HWND);

DpiForWindow FindDpiForWindow() {
    return std::bit_cast<DpiForWindow>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow"));
}

} // namespace

int DpiOf(HWND window) {
    static const int desktop = DesktopDpi();
    static const DpiForWindow ofWindow = FindDpiForWindow();
    const UINT dpi = window && ofWindow ? ofWindow(window) : 0;
    return dpi ? static_cast<int>(dpi) : desktop;
}

} // namespace ormisk
