#pragma once

#include <cstdint>

namespace ormisk {

// A colour: red in the low byte, then green, then blue. A set top bit makes it a reference to a system colour.
using Color = std::uint32_t;

struct Channels {
    int Red = 0;
    int Green = 0;
    int Blue = 0;

    bool operator==(const Channels&) const = default;
};

// The RGB value of a colour or of the system colour that it refers to. "Not set" (-1) has to be resolved before.
Color TranslateColor(Color color);

// The following take RGB values only: a system colour has to be translated first.

Channels SplitColor(Color color);

// Each channel times the factor, rounded to nearest with ties to even, at most 255.
Color ScaleColor(Color color, float factor);
Color DarkenColor(Color color);
Color LightenColor(Color color);

// The mixture of two colours; weight 1 gives the first, 0 the second, and weights beyond are taken as these.
Color BlendColor(Color first, Color second, float weight);

// What a relief on a base colour is drawn with.
struct Shades {
    Color Light = 0;   // one step up
    Color Lighter = 0; // three steps up
    Color Dark = 0;    // two steps down
    Color Darker = 0;  // three steps down

    bool operator==(const Shades&) const = default;
};

Shades ShadesOf(Color base);

} // namespace ormisk
