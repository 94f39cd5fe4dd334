#pragma once

#include <utility>
#include <windows.h>

// Owners of drawing handles: the destructor of each is the only place that frees what it holds.
namespace ormisk {

// A pen, brush, font or bitmap.
template <class Handle> class GdiObject {
public:
    GdiObject() = default;
    explicit GdiObject(Handle handle) : m_Handle(handle) {}
    GdiObject(GdiObject&& other) noexcept : m_Handle(std::exchange(other.m_Handle, nullptr)) {}
    GdiObject& operator=(GdiObject&& other) noexcept {
        std::swap(m_Handle, other.m_Handle);
        return *this;
    }
    ~GdiObject() { Reset(); }

    Handle Get() const { return m_Handle; }
    explicit operator bool() const { return m_Handle != nullptr; }

    // Frees the present object before the caller makes its successor.
    void Reset() {
        if (Handle old = std::exchange(m_Handle, nullptr))
            DeleteObject(old);
    }

private:
    Handle m_Handle = nullptr;
};

using UniqueBrush = GdiObject<HBRUSH>;
using UniquePen = GdiObject<HPEN>;
using UniqueFont = GdiObject<HFONT>;
using UniqueBitmap = GdiObject<HBITMAP>;
using UniqueRegion = GdiObject<HRGN>;

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
