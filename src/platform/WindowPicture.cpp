#include "platform/WindowPicture.h"

#include "win/Gdi.h"
#include "win/Rects.h"

namespace ormisk {

namespace {

// Moves the origin, of brushes too, and the clipping of a context for the life of the guard.
class Frame {
public:
    Frame(HDC dc, POINT origin, SIZE size) : m_Saved(dc) {
        OffsetWindowOrgEx(dc, -origin.x, -origin.y, nullptr);
        IntersectClipRect(dc, 0, 0, size.cx, size.cy);
        POINT corner{};
        if (LPtoDP(dc, &corner, 1))
            SetBrushOrgEx(dc, corner.x, corner.y, nullptr);
    }

private:
    SavedDC m_Saved;
};

bool Has(HWND window, int index, LONG style) { return (GetWindowLongW(window, index) & style) != 0; }

void DrawBorder(HWND window, HDC dc, SIZE size) {
    RECT edge{0, 0, size.cx, size.cy};
    if (Has(window, GWL_STYLE, WS_BORDER))
        FrameRect(dc, &edge, GetSysColorBrush(COLOR_WINDOWFRAME));
    if (Has(window, GWL_EXSTYLE, WS_EX_CLIENTEDGE))
        DrawEdge(dc, &edge, EDGE_SUNKEN, BF_RECT);
}

} // namespace

// The system can be asked for all of this at once, but not every system does it. Painting may lead anywhere, so each
// step asks whether the window is still there.
void DrawWindowPicture(HWND window, HDC dc) {
    const Rect outside = WindowRect(window);
    const Rect client = ClientRect(window);
    POINT inside{};
    ClientToScreen(window, &inside);
    const SIZE size{outside.Width(), outside.Height()};
    const Frame whole(dc, {0, 0}, size);
    DrawBorder(window, dc, size);
    const Frame content(dc, {inside.x - outside.left, inside.y - outside.top}, {client.right, client.bottom});
    SendMessageW(window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    HWND child = IsWindow(window) ? GetWindow(window, GW_CHILD) : nullptr;
    if (child)
        child = GetWindow(child, GW_HWNDLAST);
    for (; child && IsWindow(child); child = GetWindow(child, GW_HWNDPREV)) {
        if (!Has(child, GWL_STYLE, WS_VISIBLE))
            continue;
        const Rect place = WindowRect(child);
        const Frame at(dc, {place.left - inside.x, place.top - inside.y}, {place.Width(), place.Height()});
        DrawWindowPicture(child, dc);
    }
}

} // namespace ormisk
