#include "platform/TextBox.h"

#include "automation/Error.h"
#include "platform/TextOutput.h"
#include "win/Checked.h"
#include "win/Module.h"

#include <algorithm>
#include <commctrl.h>
#include <cwchar>
#include <utility>

namespace ormisk {
namespace {

constexpr UINT_PTR kSubclassId = 1;

bool IsDown(int key) { return GetKeyState(key) < 0; }

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

int ShiftState() { return (IsDown(VK_SHIFT) ? 1 : 0) | (IsDown(VK_CONTROL) ? 2 : 0) | (IsDown(VK_MENU) ? 4 : 0); }

} // namespace

TextBox::TextBox() : m_BackColor(0x80000000U | COLOR_WINDOW), m_ForeColor(0x80000000U | COLOR_WINDOWTEXT) {}

TextBox::~TextBox() {
    m_Listener = nullptr;
    if (m_Window)
        DestroyWindow(m_Window);
}

void TextBox::Create(HWND parent, TextBoxListener* listener) {
    m_Life = std::make_shared<char>();
    m_Listener = listener;
    const HWND window = Checked(CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_CLIPSIBLINGS | ES_AUTOHSCROLL, 0, 0, 0,
                                                0, parent, nullptr, ThisModule(), nullptr));
    if (!SetWindowSubclass(window, WindowProc, kSubclassId, reinterpret_cast<DWORD_PTR>(this))) {
        DestroyWindow(window);
        CheckSystem(E_OUTOFMEMORY);
    }
    m_Window = window;
    SetMaxLength(0);
}

HWND TextBox::Parent() const { return m_Window ? GetParent(m_Window) : nullptr; }

std::wstring TextBox::Text() const {
    std::wstring text(static_cast<std::size_t>(m_Window ? GetWindowTextLengthW(m_Window) : 0), L'\0');
    if (!text.empty())
        text.resize(static_cast<std::size_t>(GetWindowTextW(m_Window, text.data(), static_cast<int>(text.size()) + 1)));
    return text;
}

void TextBox::SetText(const std::wstring& text) {
    ++m_TextsSet;
    SetWindowTextW(m_Window, text.c_str());
}

bool TextBox::IsModified() const { return SendMessageW(m_Window, EM_GETMODIFY, 0, 0) != 0; }

void TextBox::SetModified(bool modified) { SendMessageW(m_Window, EM_SETMODIFY, modified, 0); }

void TextBox::SetMaxLength(long length) {
    SendMessageW(m_Window, EM_SETLIMITTEXT, static_cast<WPARAM>(std::max(length, 0L)), 0);
}

long TextBox::SelStart() const {
    DWORD start = 0;
    SendMessageW(m_Window, EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
    return static_cast<long>(start);
}

long TextBox::SelLength() const {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(m_Window, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return static_cast<long>(end - start);
}

void TextBox::Select(long start, long length) {
    SendMessageW(m_Window, EM_SETSEL, static_cast<WPARAM>(start), static_cast<LPARAM>(start) + length);
}

void TextBox::SelectAll() {
    std::wstring whole = std::exchange(m_Whole, {}); // what the window holds stands for all of it
    SendMessageW(m_Window, EM_SETSEL, 0, -1);
    m_Whole = std::move(whole);
}

void TextBox::SetBackColor(Color color) {
    m_BackColor = color;
    Repaint();
}

void TextBox::SetForeColor(Color color) {
    m_ForeColor = color;
    Repaint();
}

HBRUSH TextBox::OnCtlColor(HDC dc) {
    const Color background = TranslateColor(m_BackColor);
    m_Background.UpdateInfo(background);
    SetTextColor(dc, m_Enabled ? TranslateColor(m_ForeColor) : GetSysColor(COLOR_GRAYTEXT));
    SetBkColor(dc, background);
    return m_Background.hBrush();
}

void TextBox::SetFont(const FontDescription& font) {
    IgnoringFailures([&] { m_Font.UpdateInfo(font); }); // a name that is too long leaves the system's font
    SendMessageW(m_Window, WM_SETFONT, reinterpret_cast<WPARAM>(m_Font.hFont()), TRUE);
}

void TextBox::SetLeftMargin(int pixels) { SendMessageW(m_Window, EM_SETMARGINS, EC_LEFTMARGIN, MAKELPARAM(pixels, 0)); }

void TextBox::SetEnabled(bool enabled) {
    m_Enabled = enabled;
    Repaint();
}

bool TextBox::IsVisible() const { return m_Window && (GetWindowLongPtrW(m_Window, GWL_STYLE) & WS_VISIBLE) != 0; }

void TextBox::SetVisible(bool visible) { ShowWindow(m_Window, visible ? SW_SHOWNA : SW_HIDE); }

void TextBox::Move(int left, int top, int width, int height) {
    SetWindowPos(m_Window, nullptr, left, top, width, height, SWP_NOZORDER);
}

void TextBox::SetFocus() {
    if (m_Window)
        ::SetFocus(m_Window);
}

void TextBox::Repaint() {
    if (m_Window)
        InvalidateRect(m_Window, nullptr, TRUE);
}

// Calls the listener; false when the box is gone afterwards.
template <class Call> bool TextBox::Tell(Call&& call) {
    if (!m_Listener)
        return true;
    const std::weak_ptr<char> life = m_Life;
    HWND window = m_Window;
    IgnoringFailures([&] { call(*m_Listener); });
    return !life.expired() && m_Window == window;
}

LRESULT CALLBACK TextBox::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR box) {
    return reinterpret_cast<TextBox*>(box)->OnMessage(window, message, wParam, lParam);
}

LRESULT TextBox::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool key = message == WM_KEYDOWN || message == WM_CHAR; // the listener is asked first
    if (HoldsBeginning() && !key && WorksOnText(message, wParam))
        ShowWhole();
    switch (message) {
    case WM_SETTEXT:
        return OnSetText(window, reinterpret_cast<const wchar_t*>(lParam));
    case WM_GETTEXT:
        if (HoldsBeginning())
            return OnGetText(reinterpret_cast<wchar_t*>(lParam), wParam);
        break;
    case WM_GETTEXTLENGTH:
        if (HoldsBeginning())
            return static_cast<LRESULT>(m_Whole.size());
        break;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_KEYUP:
    case WM_SYSKEYUP:
    case WM_CHAR:
        return OnKey(window, message, wParam, lParam);
    case WM_GETDLGCODE:
        return OnDialogCode(window, wParam, lParam);
    case WM_MOUSEWHEEL: // a single line scrolls nowhere: the parent's rows do
        return SendMessageW(GetParent(window), message, wParam, lParam);
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
        const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
        const bool alive =
            Tell([&](TextBoxListener& to) { message == WM_SETFOCUS ? to.OnGotFocus() : to.OnLostFocus(); });
        if (alive && message == WM_KILLFOCUS)
            ShowBeginning();
        return result;
    }
    case WM_NCDESTROY:
        m_Window = nullptr;
        m_Whole.clear();
        RemoveWindowSubclass(window, WindowProc, kSubclassId);
        break;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

LRESULT TextBox::OnKey(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!m_Enabled)
        return DefWindowProcW(window, message, wParam, lParam);
    int key = static_cast<int>(wParam);
    const bool alive = Tell([&](TextBoxListener& to) {
        if (message == WM_CHAR)
            to.OnKeyPress(key);
        else if (message == WM_KEYDOWN || message == WM_SYSKEYDOWN)
            to.OnKeyDown(key, ShiftState());
        else
            to.OnKeyUp(key, ShiftState());
    });
    if (!alive || key == 0)
        return 0;
    if (HoldsBeginning() && WorksOnText(message, static_cast<WPARAM>(key)))
        ShowWhole();
    return DefSubclassProc(window, message, static_cast<WPARAM>(key), lParam);
}

LRESULT TextBox::OnSetText(HWND window, const wchar_t* text) {
    m_Whole.clear();
    std::wstring shown;
    if (text && wcsnlen(text, kMostShown + 1) > kMostShown)
        IgnoringFailures([&] {
            shown.assign(text, kMostShown);
            m_Whole = text;
        });
    return DefSubclassProc(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(HoldsBeginning() ? shown.c_str() : text));
}

// For use within the window procedure.
void TextBox::ShowWhole() {
    const std::wstring whole = std::exchange(m_Whole, {});
    const bool modified = IsModified();
    const bool selected = SelLength() > 0;
    DefSubclassProc(m_Window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(whole.c_str()));
    SetModified(modified);
    if (selected)
        SelectAll();
}

void TextBox::ShowBeginning() {
    if (HoldsBeginning() || static_cast<std::size_t>(GetWindowTextLengthW(m_Window)) <= kMostShown)
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

// A dialog keeps ENTER and ESC to itself unless a window asks for them.
LRESULT TextBox::OnDialogCode(HWND window, WPARAM wParam, LPARAM lParam) {
    const LRESULT code = DefSubclassProc(window, WM_GETDLGCODE, wParam, lParam);
    return wParam == VK_RETURN || wParam == VK_ESCAPE ? code | DLGC_WANTMESSAGE : code;
}

} // namespace ormisk
