#include "platform/ChildWindow.h"

#include "win/Checked.h"
#include "win/Keys.h"
#include "win/Module.h"

#include <algorithm>

namespace ormisk {

void ChildWindow::Create(const wchar_t* className, DWORD style, HWND parent, ChildWindowListener* listener) {
    m_Listener = listener;
    m_hWnd = Checked(CreateWindowExW(0, className, L"", WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0, 0, 0, parent, nullptr,
                                     ThisModule(), nullptr));
    Subclass(m_hWnd);
}

void ChildWindow::Destroy() {
    m_Listener = nullptr;
    if (m_hWnd)
        DestroyWindow(m_hWnd);
}

// By hand: thousands of messages pass here while a list is filled, and the system's own way of subclassing looks up a
// window property for each.
void ChildWindow::Subclass(HWND window) {
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_Before.emplace_back(window, reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC)));
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProc));
}

void ChildWindow::Forget(HWND window) {
    std::erase_if(m_Before, [&](const auto& before) { return before.first == window; });
}

WNDPROC ChildWindow::ProcedureBefore(HWND window) const {
    return std::ranges::find(m_Before, window, &std::pair<HWND, WNDPROC>::first)->second;
}

bool ChildWindow::IsVisible() const { return m_hWnd && (GetWindowLongPtrW(m_hWnd, GWL_STYLE) & WS_VISIBLE) != 0; }

void ChildWindow::SetVisible(bool visible) {
    if (visible != IsVisible())
        ShowWindow(m_hWnd, visible ? SW_SHOWNA : SW_HIDE);
}

void ChildWindow::Move(int left, int top, int width, int height) {
    SetWindowPos(m_hWnd, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void ChildWindow::SetFocus() {
    if (m_hWnd)
        ::SetFocus(m_hWnd);
}

void ChildWindow::SetEnabled(bool enabled) {
    if (m_Enabled == enabled)
        return;
    m_Enabled = enabled;
    Repaint();
}

void ChildWindow::SetBackColor(Color color) {
    m_BackColor = color;
    Repaint();
}

void ChildWindow::SetForeColor(Color color) {
    m_ForeColor = color;
    Repaint();
}

HBRUSH ChildWindow::BackBrush() {
    m_Background.UpdateInfo(BackColor());
    return m_Background.hBrush();
}

HBRUSH ChildWindow::OnCtlColor(HDC dc) {
    SetTextColor(dc, m_Enabled ? ForeColor() : GetSysColor(COLOR_GRAYTEXT));
    SetBkColor(dc, BackColor());
    return BackBrush();
}

void ChildWindow::SetFont(const FontDescription& font) {
    IgnoringFailures([&] { m_Font.UpdateInfo(font); }); // a name that is too long leaves the system's font
    SetFontHandle(m_Font.hFont());
}

void ChildWindow::SetFontHandle(HFONT font) { Ask(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE); }

void ChildWindow::Repaint() {
    if (m_hWnd)
        InvalidateRect(m_hWnd, nullptr, TRUE);
}

LRESULT ChildWindow::Default(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const std::weak_ptr<char> life = m_Life;
    ++m_Depth;
    const LRESULT result = CallWindowProcW(ProcedureBefore(window), window, message, wParam, lParam);
    if (!life.expired())
        --m_Depth;
    return result;
}

LRESULT ChildWindow::Ask(UINT message, WPARAM wParam, LPARAM lParam) {
    const std::weak_ptr<char> life = m_Life;
    ++m_Depth;
    const LRESULT result = SendMessageW(m_hWnd, message, wParam, lParam);
    if (!life.expired())
        --m_Depth;
    return result;
}

LRESULT CALLBACK ChildWindow::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto& self = *reinterpret_cast<ChildWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self.m_Enabled && message >= WM_KEYFIRST && message <= WM_KEYLAST)
        return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(self.ProcedureBefore(window)));
        if (window == self.m_hWnd)
            self.m_hWnd = nullptr;
    }
    LRESULT result = 0;
    const std::weak_ptr<char> life = self.m_Life;
    IgnoringFailures([&] {
        result = self.OnMessage(window, message, wParam, lParam);
        if (!life.expired() && self.m_Depth == 0)
            self.OnSettled();
    });
    if (message == WM_NCDESTROY && !life.expired())
        self.Forget(window);
    return result;
}

LRESULT ChildWindow::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_KEYUP:
    case WM_SYSKEYUP:
    case WM_CHAR:
        return TellKey(message, wParam) ? Default(window, message, wParam, lParam) : 0;
    case WM_GETDLGCODE: {
        // A dialog keeps ENTER and ESC to itself unless a window asks for them.
        const LRESULT code = Default(window, message, wParam, lParam);
        return wParam == VK_RETURN || wParam == VK_ESCAPE ? code | DLGC_WANTMESSAGE : code;
    }
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
        const bool gained = message == WM_SETFOCUS;
        const std::weak_ptr<char> life = m_Life;
        const LRESULT result = Default(window, message, wParam, lParam);
        if (!life.expired() && Tell([&](ChildWindowListener& to) { gained ? to.OnGotFocus() : to.OnLostFocus(); }))
            OnFocusChanged(gained);
        return result;
    }
    default:
        return Default(window, message, wParam, lParam);
    }
}

bool ChildWindow::TellKey(UINT message, WPARAM& key) {
    auto code = static_cast<int>(key);
    const bool alive = Tell([&](ChildWindowListener& to) {
        if (message == WM_CHAR)
            to.OnKeyPress(code);
        else if (message == WM_KEYDOWN || message == WM_SYSKEYDOWN)
            to.OnKeyDown(code, ShiftState());
        else
            to.OnKeyUp(code, ShiftState());
    });
    key = static_cast<WPARAM>(code);
    return alive && code != 0;
}

} // namespace ormisk
