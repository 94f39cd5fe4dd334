#include "HostWindow.h"

#include "Failure.h"

namespace ormisk {
namespace {

constexpr wchar_t kClassName[] = L"OrmiskHostWindow";
constexpr DWORD kStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;

} // namespace

HostWindow::HostWindow(const std::wstring& title, int width, int height, Listener& listener) : m_Listener(listener) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = kClassName;
    CheckLast(RegisterClassExW(&windowClass) != 0, L"The window class cannot be registered");
    m_Handle = CreateWindowExW(0, kClassName, title.c_str(), kStyle, 0, 0, 0, 0, nullptr, nullptr,
                               windowClass.hInstance, this);
    CheckLast(m_Handle != nullptr, L"The window cannot be created");
    ResizeClient(width, height);
}

HostWindow::~HostWindow() {
    DestroyWindow(m_Handle);
    UnregisterClassW(kClassName, GetModuleHandleW(nullptr));
}

void HostWindow::Show() {
    ShowWindow(m_Handle, SW_SHOWNORMAL);
    SetForegroundWindow(m_Handle);
    UpdateWindow(m_Handle);
}

void HostWindow::ResizeClient(int width, int height) {
    RECT frame = {0, 0, width, height};
    AdjustWindowRectEx(&frame, kStyle, FALSE, 0);
    SetWindowPos(m_Handle, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

RECT HostWindow::ClientRect() const {
    RECT client = {};
    GetClientRect(m_Handle, &client);
    return client;
}

RECT HostWindow::ScreenRect() const {
    RECT area = ClientRect();
    MapWindowPoints(m_Handle, nullptr, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

LRESULT CALLBACK HostWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<HostWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
        self->m_Handle = window;
    }
    auto* self = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self && self->Handle(message, wParam, lParam))
        return 0;
    return DefWindowProcW(window, message, wParam, lParam);
}

bool HostWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_GETMINMAXINFO: {
        // A script may ask for a grid of any size, however small its frame or large its screen.
        auto& limits = *reinterpret_cast<MINMAXINFO*>(lParam);
        limits.ptMinTrackSize = {1, 1};
        limits.ptMaxTrackSize = {32000, 32000};
        return true;
    }
    case WM_SIZE:
        if (wParam != SIZE_MINIMIZED)
            m_Listener.OnSized();
        return true;
    case WM_ACTIVATE:
        m_Listener.OnActivated(LOWORD(wParam) != WA_INACTIVE);
        return false;
    case WM_SETFOCUS:
        m_Listener.OnFocused();
        return true;
    case WM_CLOSE:
        m_Listener.OnClosing();
        return true;
    default:
        return false;
    }
}

} // namespace ormisk
