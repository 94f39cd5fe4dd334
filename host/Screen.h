#pragma once

#include "Bitmap.h"

#include <string>

namespace ormisk {

// Whether the screen shows at a point what the window there has drawn. A window that was just made or moved is on the
// screen a little later; a window of another program is taken as it is.
bool ScreenIsCurrent(POINT screen);

// The same for points spread over a part of the screen.
bool ScreenIsCurrent(const RECT& part);

// The colour that a point of the screen shows. Throws a Failure for a point that is not on it.
COLORREF ScreenColor(POINT screen);

// A picture of a part of the screen, with all that lies over it. Throws a Failure.
Bitmap CopyScreen(const RECT& part);

// The caret of this thread, kept from blinking for as long as the object lives: pictures come out the same every time.
class HiddenCaret {
public:
    HiddenCaret();
    ~HiddenCaret();
    HiddenCaret(const HiddenCaret&) = delete;
    HiddenCaret& operator=(const HiddenCaret&) = delete;

    bool IsCurrent() const; // the caret is where it was when it was hidden

private:
    HWND m_Window = nullptr;
};

} // namespace ormisk
