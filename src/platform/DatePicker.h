#pragma once

#include "platform/ChildWindow.h"

#include <optional>
#include <string>

namespace ormisk {

// The system's date picker with the calendar that drops down from it, without a border. Dates are automation dates;
// what is shown is a day, without its time.
class DatePicker final : public ChildWindow {
public:
    // Makes the window, hidden; another one when there is one already, with the font of that. The listener is borrowed.
    // Raises the system's error. With the check box there can be no date.
    void Create(HWND parent, ChildWindowListener* listener, bool checkBox);
    bool HasCheckBox() const;

    void SetFormat(const std::wstring& format); // of the system's pictures of dates; "" for the system's own
    void SetCalendarColors();                   // after the colours of the window
    void SetFontHandle(HFONT font) override;

    // Shows a day, or none. False when something else is shown: without a check box there is always a day, and the
    // system knows none before 1601.
    bool SetDate(std::optional<DATE> date);
    bool SetToday();
    std::optional<DATE> Date() const;
    void TakeTyped(); // digits of a part that is not complete, which are not in the date before

    // The calendar is a window of its own; the focus may go to it.
    void DropDown();           // unless it is hidden or disabled
    HWND OpenCalendar() const; // null while it is closed
    void CloseUp();
    void Move(int left, int top, int width, int height) override; // the calendar does not go along: it closes
    void SetVisible(bool visible) override;                       // hidden, it has no calendar
    void SetEnabled(bool enabled) override;                       // nor disabled

private:
    LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnFocusChanged(bool gained) override;
    LRESULT OnCalendar(HWND calendar, UINT message, WPARAM wParam, LPARAM lParam);
    void TellChange(const SYSTEMTIME& day);
    bool OnCalendarKey(HWND calendar, WPARAM key);
    bool IsPressed() const;
    void Click(long x);

    bool Show(SYSTEMTIME day);

    HFONT m_FontHandle = nullptr;
    HWND m_Calendar = nullptr; // where the picker keeps one all the time
    bool m_Leaving = false;    // the user goes to another window
    bool m_GivesBack = false;  // the calendar has the focus while it closes
};

} // namespace ormisk
