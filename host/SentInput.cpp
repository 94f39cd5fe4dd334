#include "SentInput.h"

#include "Failure.h"

#include <algorithm>
#include <iterator>

namespace ormisk {
namespace {

ULONGLONG g_LastMouseInput = 0;

void Send(INPUT& input) { CheckLast(SendInput(1, &input, sizeof input) == 1, L"The system does not take the input"); }

void SendMouse(DWORD flags, LONG x, LONG y, DWORD data, DWORD time = 0) {
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dx = x;
    input.mi.dy = y;
    input.mi.mouseData = data;
    input.mi.dwFlags = flags;
    input.mi.time = time;
    g_LastMouseInput = GetTickCount64();
    Send(input);
}

void SendKeyboard(int virtualKey, WORD scanCode, DWORD flags) {
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(virtualKey);
    input.ki.wScan = scanCode;
    input.ki.dwFlags = flags;
    Send(input);
}

// Keys of the extended keyboard share their scan codes with those of the number pad.
bool IsExtended(int virtualKey) {
    constexpr int kExtended[] = {VK_LEFT, VK_UP,     VK_RIGHT,  VK_DOWN,   VK_HOME,    VK_END, VK_PRIOR,
                                 VK_NEXT, VK_INSERT, VK_DELETE, VK_DIVIDE, VK_NUMLOCK, VK_APPS};
    return std::ranges::find(kExtended, virtualKey) != std::end(kExtended);
}

void SendVirtualKey(int virtualKey, bool down) {
    const UINT scanCode = MapVirtualKeyW(static_cast<UINT>(virtualKey), MAPVK_VK_TO_VSC);
    SendKeyboard(virtualKey, static_cast<WORD>(scanCode),
                 (down ? 0u : KEYEVENTF_KEYUP) | (IsExtended(virtualKey) ? KEYEVENTF_EXTENDEDKEY : 0u));
}

// The key that types a character on this keyboard; the stroke itself where there is none.
KeyStroke OnKeyboard(const KeyStroke& stroke) {
    const SHORT key = stroke.character ? VkKeyScanW(stroke.character) : static_cast<SHORT>(-1);
    if (key == -1 || (HIBYTE(key) & ~(KeyStroke::kShift | KeyStroke::kControl | KeyStroke::kAlt)))
        return stroke;
    return {stroke.modifiers | HIBYTE(key), LOBYTE(key), 0};
}

DWORD PressOf(int button) {
    return button == 1 ? MOUSEEVENTF_LEFTDOWN : button == 2 ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_MIDDLEDOWN;
}

} // namespace

void SendMouseTo(POINT screen) {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    // The screen is 65536 units wide and high; the middle of the pixel survives either rounding.
    const auto normalized = [](LONG position, int size) {
        return static_cast<LONG>((static_cast<LONGLONG>(position) * 65536 + 32768) / size);
    };
    // Where a hook looks at the input, the display is not told of it, and gives its own place back a moment later.
    SetCursorPos(screen.x, screen.y);
    SendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, normalized(screen.x, width), normalized(screen.y, height), 0);
}

void PressButton(int button, DWORD time) { SendMouse(PressOf(button), 0, 0, 0, time); }

void ReleaseButton(int button) {
    SendMouse(PressOf(button) << 1, 0, 0, 0); // each flag of a release follows that of its press
}

void SendWheel(int amount) { SendMouse(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>(amount)); }

ULONGLONG LastMouseInput() { return g_LastMouseInput; }

void SendModifiers(int modifiers, bool down) {
    if (modifiers & KeyStroke::kShift)
        SendVirtualKey(VK_SHIFT, down);
    if (modifiers & KeyStroke::kControl)
        SendVirtualKey(VK_CONTROL, down);
    if (modifiers & KeyStroke::kAlt)
        SendVirtualKey(VK_MENU, down);
}

void SendStroke(const KeyStroke& stroke) {
    const KeyStroke key = OnKeyboard(stroke);
    SendModifiers(key.modifiers, true);
    if (key.virtualKey) {
        SendVirtualKey(key.virtualKey, true);
        SendVirtualKey(key.virtualKey, false);
    } else {
        SendKeyboard(0, key.character, KEYEVENTF_UNICODE);
        SendKeyboard(0, key.character, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
    SendModifiers(key.modifiers, false);
}

} // namespace ormisk
