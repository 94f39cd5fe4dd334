#pragma once

#include <windows.h>

namespace ormisk {

// Keeps the mouse to itself while a script moves it: movements and buttons of the device are swallowed for as long as
// the shield lives, yet no longer than a moment after the last input was sent, so that a user can answer what a click
// opened. This shuts out the echoes of sent movements, too, which some displays give back late and with an earlier
// place.
class MouseShield {
public:
    MouseShield();
    ~MouseShield();
    MouseShield(const MouseShield&) = delete;
    MouseShield& operator=(const MouseShield&) = delete;

private:
    static LRESULT CALLBACK OnMouse(int code, WPARAM message, LPARAM details);

    HHOOK m_Hook;
};

} // namespace ormisk
