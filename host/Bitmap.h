#pragma once

#include <windows.h>

#include <memory>

namespace ormisk {

struct FreeBitmap {
    using pointer = HBITMAP;
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};

struct FreeContext {
    using pointer = HDC;
    void operator()(HDC context) const { DeleteDC(context); }
};

struct ReleaseScreen {
    using pointer = HDC;
    void operator()(HDC context) const { ReleaseDC(nullptr, context); }
};

using Bitmap = std::unique_ptr<HBITMAP, FreeBitmap>;
using MemoryContext = std::unique_ptr<HDC, FreeContext>;
using ScreenContext = std::unique_ptr<HDC, ReleaseScreen>;

// An object selected into a context for as long as the object lives.
class Selected {
public:
    Selected(HDC context, HGDIOBJ object) : m_Context(context), m_Before(SelectObject(context, object)) {}
    ~Selected() { SelectObject(m_Context, m_Before); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC m_Context;
    HGDIOBJ m_Before;
};

} // namespace ormisk
