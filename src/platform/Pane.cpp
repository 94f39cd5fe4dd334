#include "platform/Pane.h"

#include "automation/ComPtr.h"
#include "automation/Error.h"
#include "platform/Rounding.h"
#include "win/Checked.h"
#include "win/Dpi.h"
#include "win/Gdi.h"
#include "win/Keys.h"
#include "win/Module.h"

#include <algorithm>
#include <utility>
#include <windowsx.h>

namespace ormisk {

namespace {

constexpr wchar_t kClassName[] = L"OrmiskPane";

int ButtonsDown(WPARAM keys) {
    return (keys & MK_LBUTTON ? 1 : 0) | (keys & MK_RBUTTON ? 2 : 0) | (keys & MK_MBUTTON ? 4 : 0);
}

// The class of all panes, from the first one on. It goes with the module that holds its procedure: while a window of it
// is being destroyed the system keeps it.
class WindowClass {
public:
    explicit WindowClass(WNDPROC procedure) {
        WNDCLASSEXW windowClass{};
        windowClass.cbSize = sizeof windowClass;
        windowClass.style = CS_DBLCLKS;
        windowClass.lpfnWndProc = procedure;
        windowClass.hInstance = ThisModule();
        windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        windowClass.lpszClassName = kClassName;
        Checked(RegisterClassExW(&windowClass));
    }
    ~WindowClass() { UnregisterClassW(kClassName, ThisModule()); }
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;
};

Pane* PaneOf(HWND window) { return reinterpret_cast<Pane*>(GetWindowLongPtrW(window, GWLP_USERDATA)); }

} // namespace

void Pane::Create(HWND parent, PaneListener& listener, Options options) {
    static const WindowClass windowClass(WindowProc);
    m_Listener = &listener;
    m_Options = options;
    const DWORD style =
        (options.popup ? WS_POPUP : WS_CHILD | WS_CLIPSIBLINGS) | WS_CLIPCHILDREN | (options.visible ? WS_VISIBLE : 0);
    Checked(CreateWindowExW(options.popup ? WS_EX_TOOLWINDOW | WS_EX_TOPMOST : 0, kClassName, L"", style, 0, 0, 0, 0,
                            parent, nullptr, ThisModule(), this));
}

void Pane::Destroy() {
    m_Listener = nullptr;
    if (m_hWnd)
        DestroyWindow(m_hWnd);
    if (m_hWnd) // about to go already, and will find nobody
        SetWindowLongPtrW(std::exchange(m_hWnd, nullptr), GWLP_USERDATA, 0);
}

LRESULT CALLBACK Pane::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* pane = static_cast<Pane*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        pane->m_hWnd = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pane));
        return DefWindowProcW(window, message, wParam, lParam);
    }
    Pane* pane = PaneOf(window);
    if (message == WM_NCDESTROY) {
        if (pane)
            pane->m_hWnd = nullptr;
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        return DefWindowProcW(window, message, wParam, lParam);
    }
    if (!pane || !pane->m_Listener)
        return DefWindowProcW(window, message, wParam, lParam);
    LRESULT result = 0;
    const ComPtr<IUnknown> keeper(pane->m_Listener->Keeper());
    // What a handler raises has no caller to go to.
    IgnoringFailures([&] { result = pane->Handle(message, wParam, lParam); });
    return result;
}

// Nothing of the pane is touched after its listener was called, unless the window is known to live.
LRESULT Pane::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = m_hWnd;
    LRESULT result = 0;
    if (m_Listener->OnMessage(*this, message, wParam, lParam, result))
        return result;
    if (PaneOf(window) != this || !m_Listener)
        return 0;
    switch (message) {
    case WM_SIZE:
        m_Listener->OnResize(*this);
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        m_Listener->OnFocusChange(*this, message == WM_SETFOCUS);
        return 0;
    case WM_GETDLGCODE:
        return m_Options.takesFocus ? DLGC_WANTARROWS | DLGC_WANTCHARS : 0;
    case WM_CANCELMODE:
        m_Pressed = false;
        break;
    case WM_CAPTURECHANGED:
        if (!m_Releasing && reinterpret_cast<HWND>(lParam) != window) {
            m_Pressed = false; // a release that comes all the same makes no click
            m_Listener->OnCaptureLost(*this);
        }
        return 0;
    case WM_SETCURSOR:
        if (LOWORD(lParam) == HTCLIENT && reinterpret_cast<HWND>(wParam) == window &&
            m_MousePointer != MousePointer::Default) {
            SetCursor(LoadCursorW(nullptr, m_MousePointer == MousePointer::SizeNS ? IDC_SIZENS : IDC_SIZEWE));
            return TRUE;
        }
        break;
    default:
        if (HandlePainting(message, wParam))
            return message == WM_ERASEBKGND;
        if (HandleMouse(message, wParam, lParam) || HandleKey(message, wParam))
            return 0;
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

bool Pane::HandlePainting(UINT message, WPARAM wParam) {
    const Rect client = ClientRect(m_hWnd);
    if (message == WM_ERASEBKGND) {
        const RECT area = ToRect(client);
        const Unique<HBRUSH> brush(m_Options.erases ? CreateSolidBrush(TranslateColor(m_BackColor)) : nullptr);
        if (brush)
            FillRect(reinterpret_cast<HDC>(wParam), &area, brush.get());
        return true;
    }
    if (message == WM_PRINTCLIENT) {
        m_Listener->OnPaint(*this, reinterpret_cast<HDC>(wParam), client);
        return true;
    }
    if (message != WM_PAINT)
        return false;
    const PaintDC paint(m_hWnd);
    if (paint)
        m_Listener->OnPaint(*this, paint.Get(), FromRect(paint.UpdateRect()));
    return true;
}

// The messages of a button come by three (down, up, double click), and those of the left, the right and the middle one
// follow each other.
bool Pane::HandleMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    MouseEvent event{MouseStage::Move, ButtonsDown(wParam), ShiftStateOf(wParam), GET_X_LPARAM(lParam),
                     GET_Y_LPARAM(lParam)};
    if (message == WM_MOUSEMOVE) {
        m_Listener->OnMouse(*this, event);
        return true;
    }
    if (message < WM_LBUTTONDOWN || message > WM_MBUTTONDBLCLK)
        return false;
    const UINT kind = (message - WM_LBUTTONDOWN) % 3;
    event.button = 1 << (message - WM_LBUTTONDOWN) / 3;
    event.stage = kind == 1 ? MouseStage::Up : MouseStage::Down;
    if (kind == 1)
        ButtonUp(event);
    else
        ButtonDown(event, kind == 2 && event.button == 1);
    return true;
}

void Pane::ButtonDown(const MouseEvent& event, bool doubleClick) {
    const HWND window = m_hWnd;
    const auto isDown = [&] { return GetKeyState(event.button) < 0; }; // buttons have the numbers of their keys
    const bool down = isDown();
    if (m_Options.takesFocus)
        SetFocus(window);
    if (PaneOf(window) != this || !m_Listener)
        return;
    if (down && !isDown()) // a message that came up with the loss of the focus took the release
        return;
    SetCapture(window);
    m_Pressed = event.button == 1 && !doubleClick;
    // The second press of a double click is told as such only.
    if (doubleClick)
        m_Listener->OnDblClick(*this);
    else
        m_Listener->OnMouse(*this, event);
}

void Pane::ButtonUp(const MouseEvent& event) {
    const HWND window = m_hWnd;
    const bool pressed = m_Pressed;
    if (event.button == 1)
        m_Pressed = false;
    if (GetCapture() == window && GetKeyState(VK_LBUTTON) >= 0 && GetKeyState(VK_RBUTTON) >= 0 &&
        GetKeyState(VK_MBUTTON) >= 0) {
        m_Releasing = true;
        ReleaseCapture();
        m_Releasing = false;
    }
    m_Listener->OnMouse(*this, event);
    if (PaneOf(window) != this || !m_Listener || !pressed || event.button != 1)
        return;
    const Size client = ClientSize();
    if (event.x >= 0 && event.y >= 0 && event.x < client.cx && event.y < client.cy)
        m_Listener->OnClick(*this);
}

bool Pane::HandleKey(UINT message, WPARAM wParam) {
    int code = static_cast<int>(wParam);
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        m_Listener->OnKeyDown(*this, code, ShiftState());
        return message == WM_KEYDOWN || code == 0;
    case WM_KEYUP:
    case WM_SYSKEYUP:
        m_Listener->OnKeyUp(*this, code, ShiftState());
        return message == WM_KEYUP || code == 0;
    case WM_CHAR:
        m_Listener->OnKeyPress(*this, code);
        return true;
    default:
        return false;
    }
}

Size Pane::ClientSize() const {
    const Rect client = ClientRect(m_hWnd);
    return {client.right, client.bottom};
}

UnitScale Pane::Units() const { return {m_Scale, static_cast<double>(DpiOf(m_hWnd))}; }

void Pane::SetBounds(float left, float top, float width, float height) {
    const long x = RoundToLong(UnitsToPixelsX(left));
    const long y = RoundToLong(UnitsToPixelsY(top));
    MovePixels({x, y, x + RoundToLong(UnitsToPixelsX(width)), y + RoundToLong(UnitsToPixelsY(height))});
}

void Pane::MovePixels(const Rect& place) {
    if (m_hWnd && PlaceInParent(m_hWnd) != place)
        SetWindowPos(m_hWnd, nullptr, place.left, place.top, std::max(place.Width(), 0L), std::max(place.Height(), 0L),
                     SWP_NOZORDER | SWP_NOACTIVATE);
}

void Pane::SetVisible(bool visible) { ShowWindow(m_hWnd, visible ? SW_SHOWNA : SW_HIDE); }

void Pane::BringToTop() { SetWindowPos(m_hWnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE); }

void Pane::SetBackColor(Color color) {
    m_BackColor = color;
    Invalidate(true);
}

void Pane::SetBorder(Border border) {
    if (!m_hWnd)
        return;
    const auto set = [&](int index, LONG_PTR bit, bool on) {
        const LONG_PTR style = GetWindowLongPtrW(m_hWnd, index);
        SetWindowLongPtrW(m_hWnd, index, on ? style | bit : style & ~bit);
    };
    set(GWL_STYLE, WS_BORDER, border == Border::Line);
    set(GWL_EXSTYLE, WS_EX_CLIENTEDGE, border == Border::Sunken);
    SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

void Pane::Invalidate(bool erase) {
    if (m_hWnd)
        InvalidateRect(m_hWnd, nullptr, erase);
}

void Pane::Invalidate(const Rect& part, bool erase) {
    const RECT rect = ToRect(part);
    if (m_hWnd)
        InvalidateRect(m_hWnd, &rect, erase);
}

void Pane::Refresh() {
    if (m_hWnd)
        RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

void Pane::TakeFocus() {
    if (m_hWnd)
        SetFocus(m_hWnd);
}

} // namespace ormisk
