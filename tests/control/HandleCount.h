#pragma once

#include <cstdint>
#include <windows.h>

// What a test may not leave behind.
namespace ormisk::test {

// The contexts that the system keeps for windows hold on to what they last drew on: with that the number of handles
// goes up and down by itself. Here they are taken for a window of no use.
inline void EmptyContexts() {
    constexpr int kMany = 32;
    HDC contexts[kMany]{};
    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    for (HDC& context : contexts)
        context = GetDC(window);
    for (const HDC context : contexts)
        ReleaseDC(window, context);
    DestroyWindow(window);
}

// Drawing handles of this process. Where the system does not count them, it is asked about each: there the lower half
// of a handle, its place in the table of handles, stands for all of it.
inline unsigned LiveGdiHandles() {
    EmptyContexts();
    EmptyContexts(); // the ones used last come last
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return counted;
    constexpr std::uintptr_t kPlaces = 0x10000;
    unsigned live = 0;
    for (std::uintptr_t place = 1; place < kPlaces; ++place)
        live += GetObjectType(reinterpret_cast<HGDIOBJ>(place)) != 0;
    return live;
}

inline BOOL CALLBACK CountWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<unsigned*>(count);
    return TRUE;
}

inline BOOL CALLBACK CountWithChildren(HWND window, LPARAM count) {
    EnumChildWindows(window, CountWindow, count);
    return CountWindow(window, count);
}

// Windows of this thread, hidden ones and children included.
inline unsigned LiveWindows() {
    unsigned live = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountWithChildren, reinterpret_cast<LPARAM>(&live));
    return live;
}

} // namespace ormisk::test
