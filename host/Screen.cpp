#include "Screen.h"

#include "Failure.h"
#include <dwmapi.h>

namespace ormisk {
namespace {

// Of this thread; null without one.
HWND CaretWindow() {
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof thread;
    return GetGUIThreadInfo(GetCurrentThreadId(), &thread) ? thread.hwndCaret : nullptr;
}

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
    const ScreenContext context(GetDC(nullptr));
    const COLORREF color = GetPixel(context.get(), screen.x, screen.y);
    if (color == CLR_INVALID)
        throw Failure{L"The point is not on the screen"};
    return color;
}

Bitmap CopyScreen(const RECT& part) {
    DwmFlush();
    const int width = part.right - part.left;
    const int height = part.bottom - part.top;
    if (width <= 0 || height <= 0)
        throw Failure{L"A grid without a size has no picture"};
    const ScreenContext screen(GetDC(nullptr));
    Bitmap bitmap(CreateCompatibleBitmap(screen.get(), width, height));
    CheckLast(bitmap != nullptr, L"The screenshot finds no memory");
    const MemoryContext memory(CreateCompatibleDC(screen.get()));
    const Selected target(memory.get(), bitmap.get());
    const BOOL copied =
        BitBlt(memory.get(), 0, 0, width, height, screen.get(), part.left, part.top, SRCCOPY | CAPTUREBLT);
    CheckLast(copied != FALSE, L"The screen cannot be read");
    return bitmap;
}

HiddenCaret::HiddenCaret() {
    const HWND caret = CaretWindow();
    if (caret && HideCaret(caret))
        m_Window = caret;
}

bool HiddenCaret::IsCurrent() const { return CaretWindow() == m_Window; }

HiddenCaret::~HiddenCaret() {
    if (m_Window)
        ShowCaret(m_Window);
}

} // namespace ormisk
