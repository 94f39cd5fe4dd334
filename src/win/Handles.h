#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace ormisk {

// The one place where handles are freed.
struct HandleDeleter {
    void operator()(HBRUSH brush) const { DeleteObject(brush); }
    void operator()(HPEN pen) const { DeleteObject(pen); }
    void operator()(HFONT font) const { DeleteObject(font); }
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
    void operator()(HRGN region) const { DeleteObject(region); }
    void operator()(HACCEL table) const { DestroyAcceleratorTable(table); }
    void operator()(HWND window) const { DestroyWindow(window); }
};

// Owns a handle: Unique<HBRUSH>, Unique<HWND>.
template <class Handle> using Unique = std::unique_ptr<std::remove_pointer_t<Handle>, HandleDeleter>;

} // namespace ormisk
