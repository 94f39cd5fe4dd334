#pragma once

#include "win/Geometry.h"

#include <windows.h>

namespace ormisk {

class ScrollBarListener {
public:
    // The value changed, by the user or by code.
    virtual void OnScroll() = 0;
    virtual void OnScrollBarFocus() = 0;

protected:
    ~ScrollBarListener() = default;
};

// A vertical scroll bar whose values run from 0 to Max. The window is owned.
class ScrollBar {
public:
    ScrollBar() = default;
    ScrollBar(const ScrollBar&) = delete;
    ScrollBar& operator=(const ScrollBar&) = delete;
    ~ScrollBar() { Destroy(); }

    // Makes the window, hidden. Raises when the system refuses it.
    void Create(HWND parent, ScrollBarListener& listener);
    void Destroy();
    HWND hWnd() const { return m_hWnd; }

    long Value() const { return m_Value; }
    long Min() const { return 0; }
    long Max() const { return m_Max; }
    long LargeChange() const { return m_LargeChange; }
    bool IsShown() const { return m_Shown; }

    // A value beyond the new end becomes the end, and is reported.
    void SetRange(long max, long largeChange);
    // Kept within the range; a change is reported.
    void SetValue(long value);
    void Show(bool show);
    void MovePixels(const Rect& place);
    void HideCaret();

    // WM_VSCROLL of the parent window, if it comes from this bar.
    bool HandleScroll(WPARAM wParam, LPARAM lParam);

private:
    static LRESULT CALLBACK SubclassProc(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);

    HWND m_hWnd = nullptr;
    ScrollBarListener* m_Listener = nullptr;
    long m_Value = 0;
    long m_Max = 0;
    long m_LargeChange = 1;
    bool m_Shown = false;
};

} // namespace ormisk
