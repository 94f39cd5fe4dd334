#include "MouseShield.h"

#include "SentInput.h"

namespace ormisk {
namespace {

constexpr ULONGLONG kMoment = 500;

} // namespace

MouseShield::MouseShield() : m_Hook(SetWindowsHookExW(WH_MOUSE_LL, OnMouse, GetModuleHandleW(nullptr), 0)) {}

MouseShield::~MouseShield() {
    if (m_Hook)
        UnhookWindowsHookEx(m_Hook);
}

LRESULT CALLBACK MouseShield::OnMouse(int code, WPARAM message, LPARAM details) {
    const bool sent = (reinterpret_cast<const MSLLHOOKSTRUCT*>(details)->flags & LLMHF_INJECTED) != 0;
    if (code == HC_ACTION && !sent && GetTickCount64() - LastMouseInput() < kMoment)
        return 1;
    return CallNextHookEx(nullptr, code, message, details);
}

} // namespace ormisk
