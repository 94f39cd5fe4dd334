#include "platform/TextBox.h"

#include "platform/TextOutput.h"
#include "win/WindowText.h"

#include <algorithm>
#include <cwchar>
#include <utility>

namespace ormisk {
namespace {

// Whether the user or a program goes to work on the text by this message.
bool WorksOnText(UINT message, WPARAM wParam) {
    switch (message) {
    case WM_KEYDOWN:
        return wParam != VK_RETURN && wParam != VK_ESCAPE && wParam != VK_SHIFT && wParam != VK_CONTROL;
    case WM_CHAR:
        return wParam != VK_RETURN && wParam != VK_ESCAPE;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_CONTEXTMENU:
    case WM_IME_STARTCOMPOSITION:
    case WM_CUT:
    case WM_COPY:
    case WM_PASTE:
    case WM_CLEAR:
    case WM_UNDO:
    case EM_GETSEL:
    case EM_SETSEL:
    case EM_LINELENGTH:
    case EM_REPLACESEL:
    case EM_GETLINE:
    case EM_UNDO:
    case EM_POSFROMCHAR:
    case EM_CHARFROMPOS:
        return true;
    default:
        return false;
    }
}

} // namespace

void TextBox::Create(HWND parent, ChildWindowListener* listener) {
    ChildWindow::Create(L"EDIT", ES_AUTOHSCROLL, parent, listener);
    SetMaxLength(0);
}

std::wstring TextBox::Text() const { return WindowText(hWnd()); }

void TextBox::SetText(const std::wstring& text) {
    ++m_TextsSet;
    SetWindowTextW(hWnd(), text.c_str());
}

bool TextBox::IsModified() const { return SendMessageW(hWnd(), EM_GETMODIFY, 0, 0) != 0; }

void TextBox::SetModified(bool modified) { SendMessageW(hWnd(), EM_SETMODIFY, modified, 0); }

void TextBox::SetMaxLength(long length) {
    SendMessageW(hWnd(), EM_SETLIMITTEXT, static_cast<WPARAM>(std::max(length, 0L)), 0);
}

void TextBox::SetReadOnly(bool readOnly) { SendMessageW(hWnd(), EM_SETREADONLY, readOnly, 0); }

long TextBox::SelStart() const {
    DWORD start = 0;
    SendMessageW(hWnd(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
    return static_cast<long>(start);
}

long TextBox::SelLength() const {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(hWnd(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return static_cast<long>(end - start);
}

void TextBox::Select(long start, long length) {
    SendMessageW(hWnd(), EM_SETSEL, static_cast<WPARAM>(start), static_cast<LPARAM>(start) + length);
}

void TextBox::SelectAll() {
    std::wstring whole = std::exchange(m_Whole, {}); // what the window holds stands for all of it
    SendMessageW(hWnd(), EM_SETSEL, 0, -1);
    m_Whole = std::move(whole);
}

void TextBox::SetLeftMargin(int pixels) {
    m_LeftMargin = pixels;
    SendMessageW(hWnd(), EM_SETMARGINS, EC_LEFTMARGIN, MAKELPARAM(pixels, 0));
}

// The system makes margins of its own from a font.
void TextBox::SetFontHandle(HFONT font) {
    ChildWindow::SetFontHandle(font);
    SetLeftMargin(m_LeftMargin);
}

LRESULT TextBox::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool key = message == WM_KEYDOWN || message == WM_CHAR;
    if (key && !TellKey(message, wParam))
        return 0;
    if (HoldsBeginning() && WorksOnText(message, wParam))
        ShowWhole();
    switch (message) {
    case WM_SETTEXT:
        return OnSetText(reinterpret_cast<const wchar_t*>(lParam));
    case WM_GETTEXT:
        if (HoldsBeginning())
            return OnGetText(reinterpret_cast<wchar_t*>(lParam), wParam);
        break;
    case WM_GETTEXTLENGTH:
        if (HoldsBeginning())
            return static_cast<LRESULT>(m_Whole.size());
        break;
    case WM_NCHITTEST:
        if (m_PassesMouse)
            return HTTRANSPARENT;
        break;
    case WM_MOUSEWHEEL: // a single line scrolls nowhere: the parent's rows do
        return SendMessageW(Parent(), message, wParam, lParam);
    case WM_NCDESTROY:
        m_Whole.clear();
        break;
    default:
        break;
    }
    return key ? Default(window, message, wParam, lParam) : ChildWindow::OnMessage(window, message, wParam, lParam);
}

void TextBox::OnFocusChanged(bool gained) {
    if (!gained)
        ShowBeginning();
}

LRESULT TextBox::OnSetText(const wchar_t* text) {
    m_Whole.clear();
    std::wstring shown;
    if (text && wcsnlen(text, kMostShown + 1) > kMostShown)
        IgnoringFailures([&] {
            shown.assign(text, kMostShown);
            m_Whole = text;
        });
    return Default(hWnd(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(HoldsBeginning() ? shown.c_str() : text));
}

// For use within the window procedure.
void TextBox::ShowWhole() {
    const std::wstring whole = std::exchange(m_Whole, {});
    const bool modified = IsModified();
    const bool selected = SelLength() > 0;
    Default(hWnd(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(whole.c_str()));
    SetModified(modified);
    if (selected)
        SelectAll();
}

void TextBox::ShowBeginning() {
    if (HoldsBeginning() || static_cast<std::size_t>(GetWindowTextLengthW(hWnd())) <= kMostShown)
        return;
    const bool modified = IsModified();
    IgnoringFailures([&] { SetText(Text()); });
    SetModified(modified);
}

LRESULT TextBox::OnGetText(wchar_t* buffer, std::size_t size) const {
    if (!buffer || size == 0)
        return 0;
    const std::size_t length = m_Whole.copy(buffer, size - 1);
    buffer[length] = L'\0';
    return static_cast<LRESULT>(length);
}

} // namespace ormisk
