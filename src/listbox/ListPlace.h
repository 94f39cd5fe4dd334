#pragma once

#include "win/Geometry.h"

namespace ormisk {

// What a drop-down list asks for, in pixels.
struct ListWish {
    long entries = 0;
    long rowHeight = 1;
    long textWidth = 0; // of the widest entry, with its margins
    long frame = 1;     // on each side
    long scrollBar = 0; // width of the bar that a list with hidden rows needs
};

// Where the list of a control goes, in screen coordinates: below it, or above where that has more room and below has
// too little. Some rows at a time, the others behind the scroll bar; as wide as its widest entry, but at least as the
// control and at most half of the work area, inside which it is kept.
Rect PlaceList(const Rect& control, const Rect& work, const ListWish& wish);

} // namespace ormisk
