#pragma once

namespace ormisk {

// Plain pixel geometry, so that arithmetic on it needs no window system.

struct Point {
    long x = 0;
    long y = 0;
    bool operator==(const Point&) const = default;
};

struct Size {
    long cx = 0;
    long cy = 0;
    bool operator==(const Size&) const = default;
};

// The right and bottom edges lie outside.
struct Rect {
    long left = 0;
    long top = 0;
    long right = 0;
    long bottom = 0;

    long Width() const { return right - left; }
    long Height() const { return bottom - top; }
    bool operator==(const Rect&) const = default;
};

} // namespace ormisk
