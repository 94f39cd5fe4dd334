#pragma once

#include <string_view>

namespace ormisk {

// The coordinate system of a drawing surface, with the numbers that hosts know it by.
enum class ScaleMode : int {
    User = 0,
    Twip = 1,
    Point = 2,
    Pixel = 3,
    Character = 4, // 120 twips wide, 240 twips high
    Inch = 5,
    Millimeter = 6,
    Centimeter = 7,
    Himetric = 8, // hundredths of a millimetre, in which pictures tell their size
};

enum class Axis { X, Y };

// The scale mode that a host's ambient text names, in any case of letters; pixels for every other text.
ScaleMode ScaleModeFromText(std::wstring_view text);

// A length on one axis, told in another unit. `dpi` are the screen's pixels per inch on that axis; a mode without a
// size of its own counts as pixels. The result is not rounded.
double ConvertScale(double value, ScaleMode from, ScaleMode to, double dpi, Axis axis);

// What a surface measures in. Units are told in single precision, as hosts hear of them.
struct UnitScale {
    ScaleMode mode = ScaleMode::Pixel;
    double dpi = 96;

    float ToUnits(double pixels, Axis axis) const;
    float ToPixels(float units, Axis axis) const;
};

} // namespace ormisk
