#include "platform/DatePicker.h"

#include "win/Gdi.h"
#include "win/Keys.h"
#include "win/Rects.h"

#include <algorithm>
#include <commctrl.h>
#include <utility>

namespace ormisk {
namespace {

constexpr UINT kCloseMonthCal = DTM_FIRST + 13; // not in the headers of every toolchain
constexpr std::size_t kLongestFormat = 80;      // more than any picture of a date

SYSTEMTIME Today() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return now;
}

bool IsSameDay(const SYSTEMTIME& a, const SYSTEMTIME& b) {
    return a.wYear == b.wYear && a.wMonth == b.wMonth && a.wDay == b.wDay;
}

DATE DateOf(SYSTEMTIME day) {
    day.wHour = day.wMinute = day.wSecond = day.wMilliseconds = 0;
    DATE date = 0;
    SystemTimeToVariantTime(&day, &date);
    return date;
}

// By what an arrow or page key moves in the calendar; nothing for another key.
std::optional<DATE> Moved(DATE date, WPARAM key) {
    switch (key) {
    case VK_LEFT:
        return date - 1;
    case VK_RIGHT:
        return date + 1;
    case VK_UP:
        return date - 7;
    case VK_DOWN:
        return date + 7;
    case VK_PRIOR:
        return date - 28;
    case VK_NEXT:
        return date + 28;
    default:
        return {};
    }
}

} // namespace

void DatePicker::Create(HWND parent, ChildWindowListener* listener, bool checkBox) {
    if (hWnd())
        Destroy();
    m_Calendar = nullptr;
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_DATE_CLASSES};
    InitCommonControlsEx(&classes);
    const DWORD style = DTS_RIGHTALIGN | (checkBox ? DTS_SHOWNONE : 0U);
    ChildWindow::Create(DATETIMEPICK_CLASSW, style, parent, listener);
    SetWindowLongPtrW(hWnd(), GWL_EXSTYLE, 0);
    SetWindowPos(hWnd(), nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    SetFontHandle(m_FontHandle);
    m_Calendar = reinterpret_cast<HWND>(Ask(DTM_GETMONTHCAL));
    if (m_Calendar)
        Subclass(m_Calendar);
    for (HWND box = GetWindow(hWnd(), GW_CHILD); box; box = GetWindow(box, GW_HWNDNEXT))
        Subclass(box); // the check box may be a window, with the keys
}

bool DatePicker::HasCheckBox() const { return hWnd() && GetWindowLongPtrW(hWnd(), GWL_STYLE) & DTS_SHOWNONE; }

void DatePicker::SetFormat(const std::wstring& format) {
    const std::wstring fitting = format.substr(0, kLongestFormat);
    Ask(DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(fitting.empty() ? nullptr : fitting.c_str()));
}

void DatePicker::SetCalendarColors() {
    const std::pair<int, COLORREF> colors[] = {
        {MCSC_MONTHBK, BackColor()},
        {MCSC_TEXT, ForeColor()},
        {MCSC_TITLEBK, GetSysColor(COLOR_HIGHLIGHT)},
        {MCSC_TITLETEXT, GetSysColor(COLOR_HIGHLIGHTTEXT)},
        {MCSC_TRAILINGTEXT, GetSysColor(COLOR_GRAYTEXT)},
    };
    for (const auto& [part, color] : colors)
        Ask(DTM_SETMCCOLOR, static_cast<WPARAM>(part), static_cast<LPARAM>(color));
}

void DatePicker::SetFontHandle(HFONT font) {
    m_FontHandle = font;
    ChildWindow::SetFontHandle(font);
}

bool DatePicker::Show(SYSTEMTIME day) {
    day.wMilliseconds = 0;
    Ask(DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&day));
    SYSTEMTIME now{}; // it says that it took days which it does not know
    return Ask(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&now)) == GDT_VALID && IsSameDay(now, day);
}

bool DatePicker::SetToday() { return Show(Today()); }

bool DatePicker::SetDate(std::optional<DATE> date) {
    SYSTEMTIME day = Today();
    if (!date && HasCheckBox()) // which wants a day all the same
        return Ask(DTM_SETSYSTEMTIME, GDT_NONE, reinterpret_cast<LPARAM>(&day)) != 0;
    if (date && VariantTimeToSystemTime(*date, &day) && Show(day))
        return true;
    SetToday(); // not the day of whatever was shown before
    return false;
}

std::optional<DATE> DatePicker::Date() const {
    SYSTEMTIME day{};
    if (!hWnd() || SendMessageW(hWnd(), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&day)) != GDT_VALID)
        return {};
    return DateOf(day);
}

HWND DatePicker::OpenCalendar() const {
    const HWND calendar = hWnd() ? reinterpret_cast<HWND>(SendMessageW(hWnd(), DTM_GETMONTHCAL, 0, 0)) : nullptr;
    return calendar && IsWindowVisible(calendar) ? calendar : nullptr;
}

// By the button, which every system's picker has; not every one knows a key for it.
void DatePicker::DropDown() {
    if (!IsWindowVisible(hWnd()) || !IsWindowEnabled(GetAncestor(hWnd(), GA_PARENT)) || !IsEnabled() || OpenCalendar())
        return;
    Click(std::max(ClientRect(hWnd()).right - 4, 0L));
}

void DatePicker::Click(long x) {
    const std::weak_ptr<char> life = m_Life;
    const LPARAM at = MAKELPARAM(x, ClientRect(hWnd()).bottom / 2);
    Ask(WM_LBUTTONDOWN, MK_LBUTTON, at);
    if (!life.expired())
        Ask(WM_LBUTTONUP, 0, at);
}

// Digits go to the part of the date that is selected; without the mouse not every system selects one.
void DatePicker::OnFocusChanged(bool gained) {
    constexpr long kInFirstPart = 4;
    constexpr long kLeastBox = 18;
    long box = HasCheckBox() ? std::max(ClientRect(hWnd()).bottom, kLeastBox) : 0;
    long button = ClientRect(hWnd()).right - GetSystemMetrics(SM_CXVSCROLL);
    DATETIMEPICKERINFO info{}; // which not every system gives
    info.cbSize = sizeof info;
    Ask(DTM_GETDATETIMEPICKERINFO, 0, reinterpret_cast<LPARAM>(&info));
    if (info.rcButton.right > 0) {
        box = std::max(info.rcCheck.right, 0L);
        button = info.rcButton.left;
    }
    const bool byKey = gained && GetFocus() == hWnd() && !IsKeyDown(VK_LBUTTON) && !OpenCalendar();
    if (!byKey || box + kInFirstPart >= button)
        return;
    UpdateWindow(hWnd()); // where its parts are it knows when it has drawn them
    Click(box + kInFirstPart);
}

// As it does when the focus goes.
void DatePicker::TakeTyped() {
    if (!hWnd() || GetFocus() != hWnd())
        return;
    const HWND picker = hWnd();
    Default(picker, WM_KILLFOCUS, 0, 0);
    if (hWnd() == picker)
        Default(picker, WM_SETFOCUS, 0, 0);
}

void DatePicker::CloseUp() {
    if (!OpenCalendar())
        return;
    const std::weak_ptr<char> life = m_Life; // the host may end it all when the focus moves
    Ask(kCloseMonthCal);
    if (!life.expired() && OpenCalendar())
        Default(hWnd(), WM_KEYDOWN, VK_ESCAPE, 0); // where that message is not known
    if (const HWND calendar = life.expired() ? nullptr : OpenCalendar())
        ShowWindow(calendar, SW_HIDE);
}

void DatePicker::Move(int left, int top, int width, int height) {
    if (PlaceInParent(hWnd()) != Rect{left, top, left + width, top + height})
        CloseUp();
    ChildWindow::Move(left, top, width, height);
}

void DatePicker::SetVisible(bool visible) {
    if (!visible)
        CloseUp();
    else if (hWnd() && m_Calendar) // which was made when the picker was in another frame
        SetWindowLongPtrW(m_Calendar, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(GetAncestor(hWnd(), GA_ROOT)));
    ChildWindow::SetVisible(visible);
}

void DatePicker::SetEnabled(bool enabled) {
    if (!enabled)
        CloseUp();
    ChildWindow::SetEnabled(enabled);
}

LRESULT DatePicker::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window == m_Calendar)
        return OnCalendar(window, message, wParam, lParam);
    if (message == WM_ERASEBKGND && window == hWnd()) {
        const RECT client = ToRect(ClientRect(window));
        FillRect(reinterpret_cast<HDC>(wParam), &client, BackBrush());
        return 1;
    }
    return ChildWindow::OnMessage(window, message, wParam, lParam);
}

// Of a calendar that takes the focus; on other systems the picker keeps it, and does all this itself.
LRESULT DatePicker::OnCalendar(HWND calendar, UINT message, WPARAM wParam, LPARAM lParam) {
    const std::weak_ptr<char> life = m_Life;
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return OnCalendarKey(calendar, wParam) ? 0 : Default(calendar, message, wParam, lParam);
    case WM_ACTIVATE:
        if (LOWORD(wParam) == WA_INACTIVE && !IsPressed()) { // a press on the picker closes the calendar by itself
            m_Leaving = true;
            CloseUp();
            if (!life.expired())
                m_Leaving = false;
        }
        break;
    case WM_WINDOWPOSCHANGING:
        if (reinterpret_cast<const WINDOWPOS*>(lParam)->flags & SWP_HIDEWINDOW)
            m_GivesBack = !m_Leaving && GetFocus() == calendar;
        break;
    case WM_WINDOWPOSCHANGED: // the focus has gone to the frame by now
        if (reinterpret_cast<const WINDOWPOS*>(lParam)->flags & SWP_HIDEWINDOW && std::exchange(m_GivesBack, false) &&
            IsWindowVisible(hWnd()))
            SetFocus();
        break;
    default:
        break;
    }
    return life.expired() ? 0 : Default(calendar, message, wParam, lParam);
}

bool DatePicker::IsPressed() const {
    POINT mouse{};
    GetCursorPos(&mouse);
    const RECT own = ToRect(WindowRect(hWnd()));
    return IsKeyDown(VK_LBUTTON) && PtInRect(&own, mouse);
}

// As the picker does for a day that is picked by mouse.
void DatePicker::TellChange(const SYSTEMTIME& day) {
    NMDATETIMECHANGE change{};
    change.nmhdr.hwndFrom = hWnd();
    change.nmhdr.code = DTN_DATETIMECHANGE;
    change.dwFlags = GDT_VALID;
    change.st = day;
    SendMessageW(Parent(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&change));
}

bool DatePicker::OnCalendarKey(HWND calendar, WPARAM key) {
    SYSTEMTIME day{};
    if (key == VK_ESCAPE || key == VK_F4) {
        CloseUp();
        return true;
    }
    if (!SendMessageW(calendar, MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&day)))
        return false;
    if (key == VK_RETURN) {
        SetDate(DateOf(day));
        TellChange(day);
        CloseUp();
        return true;
    }
    const std::optional<DATE> moved = Moved(DateOf(day), key);
    if (moved && VariantTimeToSystemTime(*moved, &day))
        SendMessageW(calendar, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&day));
    return moved.has_value();
}

} // namespace ormisk
