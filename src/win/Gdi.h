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

// The context of a window's client area, or of the screen for no window.
class WindowDC {
public:
    explicit WindowDC(HWND window) : m_Window(window), m_Dc(GetDC(window)) {}
    WindowDC(const WindowDC&) = delete;
    WindowDC& operator=(const WindowDC&) = delete;
    ~WindowDC() {
        if (m_Dc)
            ReleaseDC(m_Window, m_Dc);
    }

    HDC Get() const { return m_Dc; }
    explicit operator bool() const { return m_Dc != nullptr; }

private:
    HWND m_Window;
    HDC m_Dc;
};

// A context in memory, compatible with the given one. Whatever is selected into it has to leave before it goes.
class MemoryDC {
public:
    explicit MemoryDC(HDC compatible) : m_Dc(CreateCompatibleDC(compatible)) {}
    MemoryDC(const MemoryDC&) = delete;
    MemoryDC& operator=(const MemoryDC&) = delete;
    ~MemoryDC() {
        if (m_Dc)
            DeleteDC(m_Dc);
    }

    HDC Get() const { return m_Dc; }
    explicit operator bool() const { return m_Dc != nullptr; }

private:
    HDC m_Dc;
};

// The context of one WM_PAINT.
class PaintDC {
public:
    explicit PaintDC(HWND window) : m_Window(window), m_Dc(BeginPaint(window, &m_Paint)) {}
    PaintDC(const PaintDC&) = delete;
    PaintDC& operator=(const PaintDC&) = delete;
    ~PaintDC() {
        if (m_Dc)
            EndPaint(m_Window, &m_Paint);
    }

    HDC Get() const { return m_Dc; }
    const RECT& UpdateRect() const { return m_Paint.rcPaint; }
    explicit operator bool() const { return m_Dc != nullptr; }

private:
    HWND m_Window;
    PAINTSTRUCT m_Paint{};
    HDC m_Dc;
};

} // namespace ormisk
