#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <windows.h>

// What a test may not leave behind.
namespace ormisk::test {

// Drawing handles of this process. The contexts that the system keeps for windows, up to 64, hold on to what they last
// drew on, so that a count goes up and down by itself: all of them are taken for the screen first. Where the system
// does not count, it is asked about each handle: there the lower half, a place in the table of handles, stands for all
// of it.
inline unsigned LiveGdiHandles() {
    HDC contexts[64]{};
    for (HDC& context : contexts)
        context = GetDC(nullptr);
    for (const HDC context : contexts)
        ReleaseDC(nullptr, context);
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

// What there is at one time, of which a later one may have no more.
class Inventory {
public:
    void ExpectNoMore() const {
        EXPECT_EQ(LiveWindows(), m_Windows) << "windows leaked";
        EXPECT_EQ(LiveGdiHandles(), m_Handles) << "drawing handles leaked";
    }

private:
    unsigned m_Windows = LiveWindows();
    unsigned m_Handles = LiveGdiHandles();
};

} // namespace ormisk::test
