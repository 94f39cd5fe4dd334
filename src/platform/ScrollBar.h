#pragma once

#include "platform/ChildWindow.h"
#include "win/Geometry.h"

namespace ormisk {

class ScrollBarListener {
public:
    // The value changed, by the user or by code.
    virtual void OnScroll() = 0;
    virtual void OnScrollBarFocus() = 0;

protected:
    ~ScrollBarListener() = default;
};

// A vertical scroll bar whose values run from 0 to Max.
class ScrollBar final : public ChildWindow {
public:
    // Makes the window, hidden. Raises when the system refuses it.
    void Create(HWND parent, ScrollBarListener& listener);

    long Value() const { return m_Value; }
    long Min() const { return 0; }
    long Max() const { return m_Max; }
    long LargeChange() const { return m_LargeChange; }

    // A value beyond the new end becomes the end, and is reported.
    void SetRange(long max, long largeChange);
    // Kept within the range; a change is reported.
    void SetValue(long value);
    void MovePixels(const Rect& place); // to the top
    void HideCaret();

    // WM_VSCROLL of the parent window, if it comes from this bar.
    bool HandleScroll(WPARAM wParam, LPARAM lParam);

private:
    LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

    ScrollBarListener* m_ScrollListener = nullptr;
    long m_Value = 0;
    long m_Max = 0;
    long m_LargeChange = 1;
};

} // namespace ormisk
