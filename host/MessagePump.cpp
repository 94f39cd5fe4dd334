#include "MessagePump.h"

#include <algorithm>

namespace ormisk {
namespace {

constexpr ULONGLONG kNever = ~0ULL;
constexpr ULONGLONG kQuiet = 15;
constexpr ULONGLONG kPatience = 1000;
constexpr UINT kCaretTimer = 0x0118; // the undocumented timer message behind blinking carets

bool IsTimer(const MSG& message) { return message.message == WM_TIMER || message.message == kCaretTimer; }

} // namespace

void MessagePump::UntilEnd() {
    while (!m_Run.Ending()) {
        Drain(kNever);
        if (!m_Run.Ending())
            WaitMessage();
    }
}

void MessagePump::For(DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    Drain(milliseconds ? end : end + kPatience);
    for (ULONGLONG now = GetTickCount64(); now < end && !m_Run.Ending(); now = GetTickCount64()) {
        Wait(end - now);
        Drain(end);
    }
}

void MessagePump::UntilQuiet() {
    const ULONGLONG end = GetTickCount64() + kPatience;
    ULONGLONG quietAt = 0;
    do {
        const bool busy = Drain(end);
        const ULONGLONG now = GetTickCount64();
        if (busy || quietAt == 0)
            quietAt = now + kQuiet;
        if (now >= std::min(quietAt, end))
            return;
        Wait(std::min(quietAt, end) - now);
    } while (!m_Run.Ending());
}

void MessagePump::Until(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + 3 * kPatience;
    Drain(end);
    while (!m_Run.Ending() && !condition() && GetTickCount64() < end) {
        Wait(kQuiet);
        Drain(end);
    }
}

bool MessagePump::Drain(ULONGLONG deadline) {
    bool busy = false;
    MSG message;
    while (!m_Run.Ending() && GetTickCount64() <= deadline && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            m_Run.End(static_cast<int>(message.wParam));
            break;
        }
        busy = busy || !IsTimer(message);
        if (!m_Filter(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return busy;
}

void MessagePump::Wait(ULONGLONG milliseconds) {
    MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(milliseconds), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
}

} // namespace ormisk
