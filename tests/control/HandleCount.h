#pragma once

#include <cstdint>
#include <windows.h>

// What a test may not leave behind.
namespace ormisk::test {

// Drawing handles of this process. Where the system does not count them, its own table of them is read.
inline unsigned LiveGdiHandles() {
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return counted;
    struct Entry {
        std::uint64_t Object;
        std::uint32_t Owner;
        std::uint16_t Unique;
        std::uint8_t Type;
        std::uint8_t Flags;
        std::uint64_t UserPointer;
    };
    constexpr unsigned kEntries = 0x4000;
#ifdef _WIN64
    const auto* environment = reinterpret_cast<const char*>(__readgsqword(0x60));
    const auto* table = *reinterpret_cast<const Entry* const*>(environment + 0xF8);
#else
    const auto* environment = reinterpret_cast<const char*>(__readfsdword(0x30));
    const auto* table = *reinterpret_cast<const Entry* const*>(environment + 0x94);
#endif
    unsigned live = 0;
    for (unsigned i = 0; i < kEntries; ++i)
        live += table[i].Type != 0;
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
