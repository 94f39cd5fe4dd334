#include "listbox/OrmiskListBox.h"

#include "listbox/ListPlace.h"
#include "platform/TextOutput.h"
#include "win/Checked.h"
#include "win/Rects.h"

#include <algorithm>
#include <windowsx.h>

namespace ormisk {
namespace {

constexpr int kTextMargin = 2; // beside a text, as in the cells of a row
constexpr int kItemAir = 2;    // above and below the texts of the list, together
constexpr UINT kTextFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;

bool IsUnderCursor(HWND window) {
    RECT place{};
    POINT cursor{};
    return GetWindowRect(window, &place) && GetCursorPos(&cursor) && PtInRect(&place, cursor);
}

} // namespace

void OrmiskListBox::Create(HWND parent, ListBoxListener* listener) {
    constexpr DWORD kStyle = WS_VSCROLL | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | CBS_NOINTEGRALHEIGHT;
    ChildWindow::Create(L"COMBOBOX", kStyle, parent, listener);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    Checked(GetComboBoxInfo(hWnd(), &parts));
    m_List = parts.hwndList;
    Subclass(m_List);
}

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
    if (!hWnd())
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

void OrmiskListBox::SetFont(const FontDescription& font) {
    ChildWindow::SetFont(font);
    const WindowDC dc(hWnd());
    const SelectGuard selected(dc.Get(), m_Font.hFont());
    Ask(CB_SETITEMHEIGHT, 0, MeasureText(dc.Get(), L"Ag", false).cy + kItemAir);
    Repaint();
}

void OrmiskListBox::SetVisible(bool visible) {
    const std::weak_ptr<char> life = m_Life;
    if (!visible)
        ShowList(false);
    if (!life.expired())
        ChildWindow::SetVisible(visible);
}

void OrmiskListBox::Move(int left, int top, int width, int height) {
    if (!hWnd() || PlaceInParent(hWnd()) == Rect{left, top, left + width, top + height})
        return;
    const std::weak_ptr<char> life = m_Life;
    ShowList(false);
    if (life.expired())
        return;
    SetHeight(height);
    // The height that is told is the one with the list, which ListPlace decides in the end.
    ChildWindow::Move(left, top, width, height + 100);
}

// The closed control is as high as its item and a frame, which is the system's affair: so it is tried out.
void OrmiskListBox::SetHeight(int height) {
    const int item = std::max(height, 1);
    Ask(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), item);
    const int frame = static_cast<int>(WindowRect(hWnd()).Height()) - item;
    Ask(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), std::max(height - frame, 1));
}

void OrmiskListBox::SetEnabled(bool enabled) {
    ChildWindow::SetEnabled(enabled);
    if (!enabled)
        ShowList(false);
}

void OrmiskListBox::ShowList(bool show) {
    if (!hWnd() || show == m_Open)
        return;
    if (!show) {
        CloseList(Ending::Dismissed);
        OnSettled();
    } else if (IsVisible()) {
        Ask(CB_SHOWDROPDOWN, TRUE);
    }
}

void OrmiskListBox::CloseList(Ending ending) {
    m_Ending = ending;
    m_Picked = static_cast<long>(Ask(CB_GETCURSEL));
    Ask(CB_SHOWDROPDOWN, FALSE);
}

LRESULT OrmiskListBox::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window == m_List)
        return OnListMessage(message, wParam, lParam);
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return OnKeyDown(message, wParam, lParam);
    case WM_CHAR:
        if (TellKey(message, wParam))
            OnChar(static_cast<wchar_t>(wParam));
        return 0;
    case WM_MOUSEWHEEL:
        return OnWheel(wParam, lParam);
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
        // The window that loses the focus may end this one, which must not happen to the system in mid-click.
        const std::weak_ptr<char> life = m_Life;
        if (GetFocus() != window)
            SetFocus();
        if (life.expired() || hWnd() != window)
            return 0;
        break;
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
    default:
        break;
    }
    return ChildWindow::OnMessage(window, message, wParam, lParam);
}

void OrmiskListBox::OnFocusChanged(bool) {
    Repaint();
    m_TypeAhead = {};
}

LRESULT OrmiskListBox::OnListMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND list = m_List;
    if (message == WM_NCDESTROY)
        m_List = nullptr;
    if (message == WM_MOUSEMOVE) {
        // A mouse that rests where the list came up does not take the highlight from the keys.
        POINT cursor{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
        ClientToScreen(list, &cursor);
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
    return Default(list, message, wParam, lParam);
}

LRESULT OrmiskListBox::OnKeyDown(UINT message, WPARAM wParam, LPARAM lParam) {
    WPARAM key = wParam;
    const bool open = m_Open;
    // A key for a list that a handler has closed must not change what the control shows now.
    if (!TellKey(message, key) || (open && !m_Open))
        return 0;
    const bool alt = message == WM_SYSKEYDOWN;
    if (alt ? key == VK_UP || key == VK_DOWN : key == VK_F4) {
        if (m_Open)
            CloseList(Ending::Chosen);
        else
            ShowList(true);
        // The system must see that ALT was not pressed alone, or its release goes to the menu.
        return alt ? DefWindowProcW(hWnd(), message, wParam, lParam) : 0;
    }
    if (m_Open && (key == VK_RETURN || key == VK_ESCAPE)) {
        CloseList(key == VK_RETURN ? Ending::Chosen : Ending::Dismissed);
        return 0;
    }
    return Default(hWnd(), message, key, lParam);
}

void OrmiskListBox::OnChar(wchar_t character) {
    if (character < L' ')
        return;
    const auto entry = m_TypeAhead.Type(
        character, GetTickCount64(), static_cast<long>(Ask(CB_GETCURSEL)), ListCount(),
        [&](long index) { return std::wstring_view(ItemText(index)); }, SystemUpper);
    if (entry)
        Highlight(*entry);
}

// Over the control that has the focus the wheel goes through the entries; elsewhere it is the parent's.
LRESULT OrmiskListBox::OnWheel(WPARAM wParam, LPARAM lParam) {
    if (m_Open)
        return SendMessageW(m_List, WM_MOUSEWHEEL, wParam, lParam);
    if (!m_Enabled || GetFocus() != hWnd() || !IsUnderCursor(hWnd()))
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
    if (!hWnd())
        return false;
    switch (message) {
    case WM_COMMAND:
        if (reinterpret_cast<HWND>(lParam) != hWnd())
            return false;
        OnNotice(HIWORD(wParam));
        result = 0;
        return true;
    case WM_DRAWITEM: {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        if (item.hwndItem != hWnd())
            return false;
        PaintItem(item);
        result = TRUE;
        return true;
    }
    case WM_CTLCOLORLISTBOX:
        if (reinterpret_cast<HWND>(lParam) != m_List)
            return false;
        result = reinterpret_cast<LRESULT>(OnCtlColor(reinterpret_cast<HDC>(wParam)));
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
void OrmiskListBox::OnSettled() {
    const bool closed = std::exchange(m_ClosedUp, false);
    if (!hWnd() || (m_Open && !closed))
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
    if (chosen && !Tell<ListBoxListener>([](ListBoxListener& to) { to.OnItemChosen(); }))
        return;
    if (closed)
        Tell<ListBoxListener>([&](ListBoxListener& to) { to.OnListClosed(!chosen); });
}

Rect OrmiskListBox::ListPlace() {
    ListWish wish;
    wish.entries = ListCount();
    wish.rowHeight = std::max(static_cast<long>(Ask(CB_GETITEMHEIGHT)), 1L);
    wish.frame = GetSystemMetrics(SM_CXBORDER);
    wish.scrollBar = GetSystemMetrics(SM_CXVSCROLL);
    const WindowDC dc(hWnd());
    const SelectGuard font(dc.Get(), m_Font.hFont());
    for (const Item& item : m_Items)
        wish.textWidth = std::max(wish.textWidth, MeasureText(dc.Get(), item.Text, false).cx + 2L * kTextMargin);
    return PlaceList(WindowRect(hWnd()), WorkArea(hWnd()), wish);
}

// The whole face of the closed control: the text, and the button at the right.
void OrmiskListBox::Paint(HDC dc) {
    RECT area = ToRect(ClientRect(hWnd()));
    const SelectGuard font(dc, m_Font.hFont());
    RECT button = area;
    button.left = std::max(area.right - GetSystemMetrics(SM_CXVSCROLL), area.left);
    DrawFrameControl(dc, &button, DFC_SCROLL,
                     DFCS_SCROLLCOMBOBOX | (m_Open ? DFCS_PUSHED | DFCS_FLAT : 0U) | (m_Enabled ? 0U : DFCS_INACTIVE));
    area.right = button.left;
    PaintText(dc, area, ItemText(m_Index), GetFocus() == hWnd() && !m_Open);
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
    const HBRUSH background = OnCtlColor(dc);
    FillRect(dc, &area, highlighted ? GetSysColorBrush(COLOR_HIGHLIGHT) : background);
    if (highlighted && m_Enabled)
        SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
    SetBkMode(dc, TRANSPARENT);
    // Rows are of even height, and a text has its line of theirs: the line that the grid has taken counts.
    RECT rest = area;
    rest.bottom += (area.bottom - area.top) & 1;
    rest.left += kTextMargin;
    rest.right -= kTextMargin;
    DrawTextMultiLang(dc, text, rest, kTextFormat, false);
}

} // namespace ormisk
