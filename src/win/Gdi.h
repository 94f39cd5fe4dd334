#pragma once

#include "win/Handles.h"

// Drawing contexts, and what is changed in one for a time.
namespace ormisk {

// Selects an object into a context for the life of the guard. No object: nothing is selected.
class SelectGuard {
public:
    SelectGuard(HDC dc, HGDIOBJ object) : m_Dc(dc), m_Previous(object ? SelectObject(dc, object) : nullptr) {}
    SelectGuard(const SelectGuard&) = delete;
    SelectGuard& operator=(const SelectGuard&) = delete;
    ~SelectGuard() {
        if (m_Previous)
            SelectObject(m_Dc, m_Previous);
    }

private:
    HDC m_Dc;
    HGDIOBJ m_Previous;
};

// Whatever is changed in a context during the life of the guard is undone.
class SavedDC {
public:
    explicit SavedDC(HDC dc) : m_Dc(dc), m_State(SaveDC(dc)) {}
    SavedDC(const SavedDC&) = delete;
    SavedDC& operator=(const SavedDC&) = delete;
    ~SavedDC() { RestoreDC(m_Dc, m_State); }

private:
    HDC m_Dc;
    int m_State;
};

// A context, which its kind lets go.
class OwnedDC {
public:
    OwnedDC(const OwnedDC&) = delete;
    OwnedDC& operator=(const OwnedDC&) = delete;

    HDC Get() const { return m_Dc; }
    explicit operator bool() const { return m_Dc != nullptr; }

protected:
    explicit OwnedDC(HDC dc) : m_Dc(dc) {}
    ~OwnedDC() = default;

private:
    HDC m_Dc;
};

// The context of a window's client area, or of the screen for no window.
class WindowDC : public OwnedDC {
public:
    explicit WindowDC(HWND window) : OwnedDC(GetDC(window)), m_Window(window) {}
    ~WindowDC() { ReleaseDC(m_Window, Get()); }

private:
    HWND m_Window;
};

// A context in memory, compatible with the given one. Whatever is selected into it has to leave before it goes.
class MemoryDC : public OwnedDC {
public:
    explicit MemoryDC(HDC compatible) : OwnedDC(CreateCompatibleDC(compatible)) {}
    ~MemoryDC() { DeleteDC(Get()); }
};

// The context of one WM_PAINT.
class PaintDC : private PAINTSTRUCT, public OwnedDC {
public:
    explicit PaintDC(HWND window) : PAINTSTRUCT{}, OwnedDC(BeginPaint(window, this)), m_Window(window) {}
    ~PaintDC() {
        if (Get())
            EndPaint(m_Window, this);
    }

    const RECT& UpdateRect() const { return rcPaint; }

private:
    HWND m_Window;
};

} // namespace ormisk
