#pragma once

#include <windows.h>

namespace ormisk::test {

// Shuts the device out for its life, and with it the echoes of moved cursors, which some displays give back late. What
// a test sends passes.
class MouseShield {
public:
    MouseShield() : m_Hook(SetWindowsHookExW(WH_MOUSE_LL, SwallowDevice, GetModuleHandleW(nullptr), 0)) {}
    MouseShield(const MouseShield&) = delete;
    MouseShield& operator=(const MouseShield&) = delete;
    ~MouseShield() { UnhookWindowsHookEx(m_Hook); }

private:
    static LRESULT CALLBACK SwallowDevice(int code, WPARAM message, LPARAM details) {
        const bool sent = (reinterpret_cast<const MSLLHOOKSTRUCT*>(details)->flags & LLMHF_INJECTED) != 0;
        return code == HC_ACTION && !sent ? 1 : CallNextHookEx(nullptr, code, message, details);
    }

    HHOOK m_Hook;
};

} // namespace ormisk::test
