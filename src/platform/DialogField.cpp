#include "platform/DialogField.h"

#include "platform/TextOutput.h"
#include "win/Checked.h"
#include "win/Gdi.h"
#include "win/Module.h"
#include "win/Rects.h"

namespace ormisk {

void DialogField::Create(HWND parent, DialogFieldListener* listener, Content content) {
    Destroy();
    ChildWindow::Create(L"STATIC", SS_LEFTNOWORDWRAP | SS_NOPREFIX | SS_CENTERIMAGE | WS_CLIPCHILDREN, parent,
                        listener);
    m_FieldListener = listener;
    if (content == Content::Box) {
        m_Box.Create(hWnd(), listener);
        m_Box.SetReadOnly(true);
        m_Box.SetVisible(true);
    }
    m_Button = Checked(CreateWindowExW(0, L"BUTTON", L"...", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, 0, 0, 0,
                                       hWnd(), nullptr, ThisModule(), nullptr));
    Subclass(m_Button);
}

// A caption draws all of its text at each repaint.
void DialogField::SetText(const std::wstring& text) {
    if (m_Box.hWnd())
        m_Box.SetText(text);
    else if (hWnd())
        SetWindowTextW(hWnd(), text.substr(0, kMostShown).c_str());
}

void DialogField::Arrange(const Rect& box, const Rect& button) {
    m_Box.Move(box.left, box.top, box.Width(), box.Height());
    SetWindowPos(m_Button, nullptr, button.left, button.top, button.Width(), button.Height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// The system takes the focus from a window that it hides, but not from those in it.
void DialogField::SetVisible(bool visible) {
    if (!visible && IsChild(hWnd(), GetFocus()))
        ::SetFocus(Parent());
    ChildWindow::SetVisible(visible);
}

void DialogField::SetEnabled(bool enabled) {
    ChildWindow::SetEnabled(enabled);
    m_Box.SetEnabled(enabled);
    EnableWindow(m_Button, enabled);
}

void DialogField::SetColors(Color back, Color fore) {
    for (ChildWindow* window : {static_cast<ChildWindow*>(this), static_cast<ChildWindow*>(&m_Box)}) {
        window->SetBackColor(back);
        window->SetForeColor(fore);
    }
}

void DialogField::SetFontHandle(HFONT font) {
    ChildWindow::SetFontHandle(font);
    m_Box.SetFontHandle(font);
    if (m_Button)
        SendMessageW(m_Button, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

LRESULT DialogField::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window == m_Button)
        return OnButtonMessage(message, wParam, lParam);
    switch (message) {
    case WM_COMMAND:
        if (HIWORD(wParam) == BN_CLICKED && m_FieldListener && (!lParam || reinterpret_cast<HWND>(lParam) == m_Button))
            Tell<DialogFieldListener>([](DialogFieldListener& to) { to.OnButton(); });
        return 0;
    case WM_CTLCOLORSTATIC: // of a box that is only read
    case WM_CTLCOLOREDIT:
        return reinterpret_cast<LRESULT>(m_Box.OnCtlColor(reinterpret_cast<HDC>(wParam)));
    case WM_PAINT: {
        if (m_Box.hWnd() || GetFocus() != window)
            break;
        InvalidateRect(window, nullptr, TRUE); // what is drawn over the caption must not meet itself
        const LRESULT result = Default(window, message, wParam, lParam);
        DrawFocus();
        return result;
    }
    case WM_NCDESTROY:
        m_Button = nullptr;
        break;
    default:
        break;
    }
    return ChildWindow::OnMessage(window, message, wParam, lParam);
}

// Let go beside the button, the mouse leaves the focus there: the keys are for the field.
LRESULT DialogField::OnButtonMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const std::weak_ptr<char> life = m_Life;
    const HWND button = m_Button;
    const LRESULT result = Default(button, message, wParam, lParam);
    if (message == WM_LBUTTONUP && !life.expired() && GetFocus() == button)
        SetFocus();
    return result;
}

void DialogField::OnFocusChanged(bool /*gained*/) { Repaint(); }

void DialogField::DrawFocus() const {
    const WindowDC dc(hWnd());
    RECT around = ToRect(ClientRect(hWnd()));
    around.right -= ClientRect(m_Button).Width();
    DrawFocusRect(dc.Get(), &around);
}

} // namespace ormisk
