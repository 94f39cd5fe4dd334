#pragma once

#include "win/Handles.h"

namespace ormisk {

// Where the window of a control is: in the host's window while in-place active, else hidden in a parking window of the
// control's own. The control's window may be gone, or go, at any time: a null window is let pass everywhere.
class ControlPlacing {
public:
    // The hidden top-level window; made at the first call. Raises.
    HWND Parking();
    // Hides the window and moves it to the parking window. A focus within goes to the host's window first.
    void Park(HWND window);
    // Moves the window into the host's, without showing it. False when that failed.
    bool Unpark(HWND window, HWND parent);
    // Position in the parent, in pixels; what lies outside clip, if given, is cut off. True when the size is a new one.
    bool Move(HWND window, const RECT& position, const RECT* clip);
    // As Move, with the present position.
    bool Resize(HWND window, SIZE size);

private:
    Unique<HWND> m_Parking;
    SIZE m_Size{-1, -1};
};

bool HasFocusWithin(HWND window);

} // namespace ormisk
