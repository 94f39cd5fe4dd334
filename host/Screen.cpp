#include "Screen.h"

#include "Failure.h"
#include "PngFile.h"

#include <dwmapi.h>

#include <memory>

namespace ormisk {
namespace {

struct ReleaseScreen {
    using pointer = HDC;
    void operator()(HDC context) const { ReleaseDC(nullptr, context); }
};

struct FreeContext {
    using pointer = HDC;
    void operator()(HDC context) const { DeleteDC(context); }
};

struct FreeBitmap {
    using pointer = HBITMAP;
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};

} // namespace

bool ScreenIsCurrent(POINT screen) {
    const HWND window = GetAncestor(WindowFromPoint(screen), GA_ROOT);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId())
        return true;
    POINT inside = screen;
    ScreenToClient(window, &inside);
    const HDC context = GetDCEx(window, nullptr, DCX_CACHE); // children included
    const COLORREF drawn = GetPixel(context, inside.x, inside.y);
    ReleaseDC(window, context);
    return drawn == CLR_INVALID || drawn == ScreenColor(screen);
}

bool ScreenIsCurrent(const RECT& part) {
    constexpr int kSteps = 8;
    for (int step = 0; step < kSteps * kSteps; ++step) {
        const LONG x = part.left + (part.right - part.left) * (2 * (step % kSteps) + 1) / (2 * kSteps);
        const LONG y = part.top + (part.bottom - part.top) * (2 * (step / kSteps) + 1) / (2 * kSteps);
        const POINT point = {x, y};
        if (MonitorFromPoint(point, MONITOR_DEFAULTTONULL) && !ScreenIsCurrent(point))
            return false;
    }
    return true;
}

COLORREF ScreenColor(POINT screen) {
    DwmFlush(); // what was drawn reaches the screen with the next composition
    const std::unique_ptr<HDC, ReleaseScreen> context(GetDC(nullptr));
    const COLORREF color = GetPixel(context.get(), screen.x, screen.y);
    if (color == CLR_INVALID)
        throw Failure{L"The point is not on the screen"};
    return color;
}

void SaveScreen(const RECT& part, const std::wstring& path) {
    DwmFlush();
    const int width = part.right - part.left;
    const int height = part.bottom - part.top;
    const std::unique_ptr<HDC, ReleaseScreen> screen(GetDC(nullptr));
    const std::unique_ptr<HBITMAP, FreeBitmap> bitmap(CreateCompatibleBitmap(screen.get(), width, height));
    CheckLast(bitmap != nullptr, L"The screenshot finds no memory");
    {
        const std::unique_ptr<HDC, FreeContext> memory(CreateCompatibleDC(screen.get()));
        const HGDIOBJ before = SelectObject(memory.get(), bitmap.get());
        const BOOL copied =
            BitBlt(memory.get(), 0, 0, width, height, screen.get(), part.left, part.top, SRCCOPY | CAPTUREBLT);
        SelectObject(memory.get(), before);
        CheckLast(copied != FALSE, L"The screen cannot be read");
    }
    SavePng(bitmap.get(), path);
}

} // namespace ormisk
