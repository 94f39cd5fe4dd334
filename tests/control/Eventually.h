#pragma once

#include <windows.h>

// Waiting for what others bring about: other programs, the display, timers.
namespace ormisk::test {

// Lets messages through until the condition holds; false when it does not for very long, on a busy machine too.
template <class Condition> bool Eventually(const Condition& condition) {
    const ULONGLONG end = GetTickCount64() + 60'000;
    while (!condition()) {
        if (GetTickCount64() > end)
            return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return true;
}

} // namespace ormisk::test
