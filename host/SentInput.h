#pragma once

#include "KeySequence.h"

#include <windows.h>

namespace ormisk {

// Single acts of input, sent to the system as a device would. All throw a Failure when the system takes none.

// Moves the mouse to a point of the main screen.
void SendMouseTo(POINT screen);

// Presses or releases a mouse button: 1 left, 2 right, 4 middle. The press is told as of a time of GetTickCount's.
void PressButton(int button, DWORD time);
void ReleaseButton(int button);

// Turns the wheel; forward is positive, 120 is a notch.
void SendWheel(int amount);

// When the mouse was last moved or its button or wheel used from here, in GetTickCount64's time.
ULONGLONG LastMouseInput();

// Holds or releases the modifiers of KeyStroke.
void SendModifiers(int modifiers, bool down);

// Presses and releases a key with its modifiers. A character that the keyboard does not have is sent as such.
void SendStroke(const KeyStroke& stroke);

} // namespace ormisk
