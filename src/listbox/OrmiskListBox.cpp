#include "listbox/OrmiskListBox.h"

#include "automation/Error.h"
#include "listbox/ListPlace.h"
#include "platform/TextOutput.h"
#include "win/Checked.h"
#include "win/Module.h"
#include "win/Rects.h"

#include <algorithm>
#include <windowsx.h>

namespace ormisk {
namespace {

constexpr int kTextMargin = 2; // beside a text, as in the cells of a row
constexpr int kItemAir = 2;    // above and below the texts of the list, together
constexpr UINT kTextFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;

bool IsDown(int key) { return GetKeyState(key) < 0; }

int ShiftState() { return (IsDown(VK_SHIFT) ? 1 : 0) | (IsDown(VK_CONTROL) ? 2 : 0) | (IsDown(VK_MENU) ? 4 : 0); }

bool IsInput(UINT message) { return (message >= WM_KEYFIRST && message <= WM_KEYLAST) || message == WM_MOUSEWHEEL; }

bool IsUnderCursor(HWND window) {
    RECT place{};
    POINT cursor{};
    return GetWindowRect(window, &place) && GetCursorPos(&cursor) && PtInRect(&place, cursor);
}

} // namespace

OrmiskListBox::OrmiskListBox() : m_BackColor(0x80000000U | COLOR_WINDOW), m_ForeColor(0x80000000U | COLOR_WINDOWTEXT) {}

OrmiskListBox::~OrmiskListBox() {
    m_Listener = nullptr;
    if (m_Window)
        DestroyWindow(m_Window);
}

void OrmiskListBox::Create(HWND parent, ListBoxListener* listener) {
    m_Life = std::make_shared<char>();
    m_Listener = listener;
    constexpr DWORD kStyle = WS_CHILD | WS_CLIPSIBLINGS | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED |
                             CBS_HASSTRINGS | CBS_NOINTEGRALHEIGHT;
    const HWND window =
        Checked(CreateWindowExW(0, L"COMBOBOX", L"", kStyle, 0, 0, 0, 0, parent, nullptr, ThisModule(), nullptr));
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    if (!GetComboBoxInfo(window, &parts)) {
        const HRESULT failure = HRESULT_FROM_WIN32(GetLastError());
        DestroyWindow(window);
        CheckSystem(failure);
    }
    m_Window = window;
    m_List = parts.hwndList;
    m_WindowProc = Subclass(m_Window);
    m_ListProc = Subclass(m_List);
}

// Thousands of messages pass here while a list is filled, and looking up a window property for each takes long.
WNDPROC OrmiskListBox::Subclass(HWND window) {
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    return reinterpret_cast<WNDPROC>(SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProc)));
}

HWND OrmiskListBox::Parent() const { return m_Window ? GetParent(m_Window) : nullptr; }

void OrmiskListBox::Clear() {
    const std::weak_ptr<char> life = m_Life;
    ShowList(false);
    if (life.expired())
        return;
    m_Index = -1;
    m_TypeAhead = {};
    Ask(CB_RESETCONTENT);
    Repaint();
    // A value that is let go can call its maker, who finds the list empty.
    const std::vector<Item> gone = std::exchange(m_Items, {});
}

void OrmiskListBox::AddItem(const std::wstring& text, const VARIANT& value, long index) {
    if (!m_Window)
        return;
    if (m_Items.size() == m_Items.capacity()) {
        const std::size_t more = std::max<std::size_t>(m_Items.size(), 16);
        m_Items.reserve(m_Items.size() + more);
        Ask(CB_INITSTORAGE, more, static_cast<LPARAM>(more * 32));
    }
    const long position = IsPosition(index) ? index : ListCount();
    Item item{text, _variant_t(value)}; // what may fail comes before either list has it
    const LRESULT added = Ask(CB_INSERTSTRING, static_cast<WPARAM>(position), reinterpret_cast<LPARAM>(text.c_str()));
    if (added < 0)
        CheckSystem(E_OUTOFMEMORY);
    m_Items.insert(m_Items.begin() + position, std::move(item));
    if (position <= m_Index)
        SetListIndex(m_Index + 1);
}

const OrmiskListBox::Item& OrmiskListBox::ItemAt(long index) const {
    static const Item kNone;
    return IsPosition(index) ? m_Items[static_cast<std::size_t>(index)] : kNone;
}

const std::wstring& OrmiskListBox::ItemText(long index) const { return ItemAt(index).Text; }

const _variant_t& OrmiskListBox::ItemValue(long index) const { return ItemAt(index).Value; }

ULONG OrmiskListBox::CountOf(const IUnknown* object) const {
    return static_cast<ULONG>(std::ranges::count_if(m_Items, [&](const Item& item) {
        return (V_VT(&item.Value) == VT_DISPATCH || V_VT(&item.Value) == VT_UNKNOWN) &&
               V_UNKNOWN(&item.Value) == object;
    }));
}

void OrmiskListBox::SetListIndex(long index) {
    if (index != -1 && !IsPosition(index))
        return;
    m_Index = index;
    Highlight(index);
}

// The closed control shows what is chosen, the open list where the user has got to.
void OrmiskListBox::Highlight(long index) {
    Ask(CB_SETCURSEL, static_cast<WPARAM>(index));
    Repaint();
}

void OrmiskListBox::SetBackColor(Color color) {
    m_BackColor = color;
    Repaint();
}

void OrmiskListBox::SetForeColor(Color color) {
    m_ForeColor = color;
    Repaint();
}

void OrmiskListBox::SetFont(const FontDescription& font) {
    IgnoringFailures([&] { m_Font.UpdateInfo(font); }); // a name that is too long leaves the system's font
    Ask(WM_SETFONT, reinterpret_cast<WPARAM>(m_Font.hFont()), FALSE);
    const WindowDC dc(m_Window);
    const SelectGuard selected(dc.Get(), m_Font.hFont());
    Ask(CB_SETITEMHEIGHT, 0, MeasureText(dc.Get(), L"Ag", false).cy + kItemAir);
    Repaint();
}

bool OrmiskListBox::IsVisible() const { return m_Window && (GetWindowLongPtrW(m_Window, GWL_STYLE) & WS_VISIBLE) != 0; }

void OrmiskListBox::SetVisible(bool visible) {
    const std::weak_ptr<char> life = m_Life;
    if (!visible)
        ShowList(false);
    if (!life.expired())
        ShowWindow(m_Window, visible ? SW_SHOWNA : SW_HIDE);
}

void OrmiskListBox::Move(int left, int top, int width, int height) {
    if (!m_Window || PlaceInParent(m_Window) == Rect{left, top, left + width, top + height})
        return;
    const std::weak_ptr<char> life = m_Life;
    ShowList(false);
    if (life.expired())
        return;
    SetHeight(height);
    // The height that is told is the one with the list, which ListPlace decides in the end.
    SetWindowPos(m_Window, nullptr, left, top, width, height + 100, SWP_NOZORDER | SWP_NOACTIVATE);
}

// The closed control is as high as its item and a frame, which is the system's affair: so it is tried out.
void OrmiskListBox::SetHeight(int height) {
    const int item = std::max(height, 1);
    Ask(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), item);
    const int frame = static_cast<int>(WindowRect(m_Window).Height()) - item;
    Ask(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), std::max(height - frame, 1));
}

void OrmiskListBox::SetEnabled(bool enabled) {
    m_Enabled = enabled;
    Repaint();
    if (!enabled)
        ShowList(false);
}

void OrmiskListBox::ShowList(bool show) {
    if (!m_Window || show == m_Open)
        return;
    if (!show) {
        CloseList(Ending::Dismissed);
        Settle();
    } else if (IsVisible()) {
        Ask(CB_SHOWDROPDOWN, TRUE);
    }
}

void OrmiskListBox::CloseList(Ending ending) {
    m_Ending = ending;
    m_Picked = static_cast<long>(Ask(CB_GETCURSEL));
    Ask(CB_SHOWDROPDOWN, FALSE);
}

void OrmiskListBox::Repaint() {
    if (m_Window)
        InvalidateRect(m_Window, nullptr, FALSE);
}

// A message to the control about which its listener hears nothing.
LRESULT OrmiskListBox::Ask(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!m_Window)
        return 0;
    const std::weak_ptr<char> life = m_Life;
    ++m_Depth;
    const LRESULT result = SendMessageW(m_Window, message, wParam, lParam);
    if (!life.expired())
        --m_Depth;
    return result;
}

LRESULT OrmiskListBox::Default(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const std::weak_ptr<char> life = m_Life;
    ++m_Depth;
    const WNDPROC own = window == m_List ? m_ListProc : m_WindowProc;
    const LRESULT result = CallWindowProcW(own, window, message, wParam, lParam);
    if (!life.expired())
        --m_Depth;
    return result;
}

// Calls the listener; false when the box is gone afterwards.
template <class Call> bool OrmiskListBox::Tell(Call&& call) {
    if (!m_Listener)
        return true;
    const std::weak_ptr<char> life = m_Life;
    HWND window = m_Window;
    IgnoringFailures([&] { call(*m_Listener); });
    return !life.expired() && m_Window == window;
}

LRESULT CALLBACK OrmiskListBox::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto& self = *reinterpret_cast<OrmiskListBox*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const std::weak_ptr<char> life = self.m_Life;
    const bool list = window == self.m_List;
    if (message == WM_NCDESTROY) {
        const WNDPROC own = list ? self.m_ListProc : self.m_WindowProc;
        (list ? self.m_List : self.m_Window) = nullptr;
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(own));
        return CallWindowProcW(own, window, message, wParam, lParam);
    }
    const LRESULT result =
        list ? self.OnListMessage(window, message, wParam, lParam) : self.OnMessage(window, message, wParam, lParam);
    if (!life.expired() && self.m_Depth == 0)
        self.Settle();
    return result;
}

LRESULT OrmiskListBox::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!m_Enabled && IsInput(message))
        return DefWindowProcW(window, message, wParam, lParam);
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return OnKeyDown(message, wParam, lParam);
    case WM_KEYUP:
    case WM_SYSKEYUP: {
        auto key = static_cast<int>(wParam);
        const bool alive = Tell([&](ListBoxListener& to) { to.OnKeyUp(key, ShiftState()); });
        return alive && key != 0 ? Default(window, message, static_cast<WPARAM>(key), lParam) : 0;
    }
    case WM_CHAR:
        return OnChar(wParam);
    case WM_MOUSEWHEEL:
        return OnWheel(wParam, lParam);
    case WM_GETDLGCODE: {
        // A dialog keeps ENTER and ESC to itself unless a window asks for them.
        const LRESULT code = Default(window, message, wParam, lParam);
        return wParam == VK_RETURN || wParam == VK_ESCAPE ? code | DLGC_WANTMESSAGE : code;
    }
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        // The window that loses the focus may end this one, which must not happen to the system in mid-click.
        if (GetFocus() != window) {
            const std::weak_ptr<char> life = m_Life;
            SetFocus(window);
            if (life.expired() || m_Window != window)
                return 0;
        }
        break;
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
        const std::weak_ptr<char> life = m_Life;
        const LRESULT result = Default(window, message, wParam, lParam);
        if (!life.expired()) {
            Repaint();
            m_TypeAhead = {};
            if (message == WM_SETFOCUS)
                Tell([](ListBoxListener& to) { to.OnGotFocus(); });
        }
        return result;
    }
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT: {
        const PaintDC paint(window);
        if (paint)
            Paint(paint.Get());
        return 0;
    }
    case WM_PRINTCLIENT:
        Paint(reinterpret_cast<HDC>(wParam));
        return 0;
    }
    return Default(window, message, wParam, lParam);
}

LRESULT OrmiskListBox::OnListMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_MOUSEMOVE) {
        // A mouse that rests where the list came up does not take the highlight from the keys.
        POINT cursor{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
        ClientToScreen(window, &cursor);
        if (cursor.x == m_Cursor.x && cursor.y == m_Cursor.y)
            return 0;
        m_Cursor = {cursor.x, cursor.y};
    }
    if (message == WM_WINDOWPOSCHANGING && m_Open) {
        auto& place = *reinterpret_cast<WINDOWPOS*>(lParam);
        if (!(place.flags & SWP_NOMOVE) || !(place.flags & SWP_NOSIZE)) {
            place.flags &= ~static_cast<UINT>(SWP_NOMOVE | SWP_NOSIZE);
            place.x = m_ListPlace.left;
            place.y = m_ListPlace.top;
            place.cx = m_ListPlace.Width();
            place.cy = m_ListPlace.Height();
        }
    }
    return Default(window, message, wParam, lParam);
}

LRESULT OrmiskListBox::OnKeyDown(UINT message, WPARAM wParam, LPARAM lParam) {
    auto key = static_cast<int>(wParam);
    const bool open = m_Open;
    if (!Tell([&](ListBoxListener& to) { to.OnKeyDown(key, ShiftState()); }) || key == 0)
        return 0;
    // The key was for the list that a handler has closed: what the control shows now it must not change.
    if (open && !m_Open)
        return 0;
    const bool alt = message == WM_SYSKEYDOWN;
    if (alt ? key == VK_UP || key == VK_DOWN : key == VK_F4) {
        if (m_Open)
            CloseList(Ending::Chosen);
        else
            ShowList(true);
        // The system must see that ALT was not pressed alone, or its release goes to the menu.
        return alt ? DefWindowProcW(m_Window, message, wParam, lParam) : 0;
    }
    if (m_Open && (key == VK_RETURN || key == VK_ESCAPE)) {
        CloseList(key == VK_RETURN ? Ending::Chosen : Ending::Dismissed);
        return 0;
    }
    return Default(m_Window, message, static_cast<WPARAM>(key), lParam);
}

LRESULT OrmiskListBox::OnChar(WPARAM wParam) {
    auto key = static_cast<int>(wParam);
    if (!Tell([&](ListBoxListener& to) { to.OnKeyPress(key); }) || key < L' ')
        return 0;
    const auto entry = m_TypeAhead.Type(
        static_cast<wchar_t>(key), GetTickCount64(), static_cast<long>(Ask(CB_GETCURSEL)), ListCount(),
        [&](long index) { return std::wstring_view(m_Items[static_cast<std::size_t>(index)].Text); }, SystemUpper);
    if (entry)
        Highlight(*entry);
    return 0;
}

// Over the control that has the focus the wheel goes through the entries; elsewhere it is the parent's.
LRESULT OrmiskListBox::OnWheel(WPARAM wParam, LPARAM lParam) {
    if (m_Open)
        return SendMessageW(m_List, WM_MOUSEWHEEL, wParam, lParam);
    if (GetFocus() != m_Window || !IsUnderCursor(m_Window))
        return SendMessageW(Parent(), WM_MOUSEWHEEL, wParam, lParam);
    // Fine wheels turn by parts of a notch.
    m_Turned -= GET_WHEEL_DELTA_WPARAM(wParam);
    const long steps = m_Turned / WHEEL_DELTA;
    m_Turned %= WHEEL_DELTA;
    const long target = std::clamp(m_Index + steps, 0L, std::max(ListCount() - 1, 0L));
    if (steps != 0 && IsPosition(target))
        Highlight(target);
    return 0;
}

bool OrmiskListBox::OnParentMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (!m_Window)
        return false;
    switch (message) {
    case WM_COMMAND:
        if (reinterpret_cast<HWND>(lParam) != m_Window)
            return false;
        OnNotice(HIWORD(wParam));
        result = 0;
        return true;
    case WM_DRAWITEM: {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        if (item.hwndItem != m_Window)
            return false;
        PaintItem(item);
        result = TRUE;
        return true;
    }
    case WM_CTLCOLORLISTBOX:
        if (reinterpret_cast<HWND>(lParam) != m_List)
            return false;
        m_Background.UpdateInfo(TranslateColor(m_BackColor));
        result = reinterpret_cast<LRESULT>(m_Background.hBrush());
        return result != 0;
    default:
        return false;
    }
}

// Comes from within the system: what is to be done about it waits until that has come to its end.
void OrmiskListBox::OnNotice(WORD code) {
    switch (code) {
    case CBN_DROPDOWN:
        m_Open = true;
        m_Ending = Ending::Unknown;
        m_ListPlace = ListPlace();
        if (POINT cursor{}; GetCursorPos(&cursor))
            m_Cursor = {cursor.x, cursor.y};
        Repaint();
        break;
    case CBN_SELENDOK:
        if (m_Ending == Ending::Unknown) {
            m_Picked = static_cast<long>(Ask(CB_GETCURSEL));
            m_Ending = Ending::Chosen;
        }
        break;
    case CBN_SELENDCANCEL:
        if (m_Ending == Ending::Unknown)
            m_Ending = Ending::Dismissed;
        break;
    case CBN_CLOSEUP:
        m_ClosedUp = m_Open;
        break;
    default:
        break;
    }
}

// After each message: finds out what the user has done, and tells it.
void OrmiskListBox::Settle() {
    const bool closed = std::exchange(m_ClosedUp, false);
    if (!m_Window || (m_Open && !closed))
        return;
    bool chosen = false;
    if (closed) {
        m_Open = false;
        chosen = m_Ending == Ending::Chosen && IsPosition(m_Picked);
        SetListIndex(chosen ? m_Picked : m_Index);
    } else if (const auto now = static_cast<long>(Ask(CB_GETCURSEL)); now != m_Index && IsPosition(now)) {
        chosen = true;
        SetListIndex(now);
    }
    if (chosen && !Tell([](ListBoxListener& to) { to.OnItemChosen(); }))
        return;
    if (closed)
        Tell([&](ListBoxListener& to) { to.OnListClosed(!chosen); });
}

Rect OrmiskListBox::ListPlace() {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(m_Window, MONITOR_DEFAULTTONEAREST), &monitor);
    ListWish wish;
    wish.entries = ListCount();
    wish.rowHeight = std::max(static_cast<long>(Ask(CB_GETITEMHEIGHT)), 1L);
    wish.frame = GetSystemMetrics(SM_CXBORDER);
    wish.scrollBar = GetSystemMetrics(SM_CXVSCROLL);
    const WindowDC dc(m_Window);
    const SelectGuard font(dc.Get(), m_Font.hFont());
    for (const Item& item : m_Items)
        wish.textWidth = std::max(wish.textWidth, MeasureText(dc.Get(), item.Text, false).cx + 2L * kTextMargin);
    return PlaceList(WindowRect(m_Window), FromRect(monitor.rcWork), wish);
}

// The whole face of the closed control: the text, and the button at the right.
void OrmiskListBox::Paint(HDC dc) {
    RECT area = ToRect(ClientRect(m_Window));
    const SelectGuard font(dc, m_Font.hFont());
    RECT button = area;
    button.left = std::max(area.right - GetSystemMetrics(SM_CXVSCROLL), area.left);
    DrawFrameControl(dc, &button, DFC_SCROLL,
                     DFCS_SCROLLCOMBOBOX | (m_Open ? DFCS_PUSHED | DFCS_FLAT : 0U) | (m_Enabled ? 0U : DFCS_INACTIVE));
    area.right = button.left;
    PaintText(dc, area, ItemText(m_Index), GetFocus() == m_Window && !m_Open);
}

void OrmiskListBox::PaintItem(const DRAWITEMSTRUCT& item) {
    // The closed control is painted as a whole.
    if (item.itemState & ODS_COMBOBOXEDIT) {
        Repaint();
        return;
    }
    const SelectGuard font(item.hDC, m_Font.hFont());
    PaintText(item.hDC, item.rcItem, ItemText(static_cast<long>(item.itemID)), (item.itemState & ODS_SELECTED) != 0);
}

void OrmiskListBox::PaintText(HDC dc, const RECT& area, const std::wstring& text, bool highlighted) {
    const SavedDC saved(dc);
    if (!highlighted)
        m_Background.UpdateInfo(TranslateColor(m_BackColor));
    FillRect(dc, &area, highlighted ? GetSysColorBrush(COLOR_HIGHLIGHT) : m_Background.hBrush());
    SetTextColor(dc, !m_Enabled    ? GetSysColor(COLOR_GRAYTEXT)
                     : highlighted ? GetSysColor(COLOR_HIGHLIGHTTEXT)
                                   : TranslateColor(m_ForeColor));
    SetBkMode(dc, TRANSPARENT);
    // Rows are of even height, and a text has its line of theirs: the line that the grid has taken counts.
    RECT rest = area;
    rest.bottom += (area.bottom - area.top) & 1;
    rest.left += kTextMargin;
    rest.right -= kTextMargin;
    DrawTextMultiLang(dc, text, rest, kTextFormat, false);
}

} // namespace ormisk
