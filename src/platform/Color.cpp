#include "platform/Color.h"

#include "platform/Rounding.h"

#include <algorithm>

namespace ormisk {

namespace {

Color Channel(double value) { return static_cast<Color>(std::min(RoundToLong(value), 255L)) & 0xFF; }

Color Combine(Color red, Color green, Color blue) { return (blue * 256 + green) * 256 + red; }

} // namespace

Channels SplitColor(Color color) {
    return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF), static_cast<int>(color >> 16 & 0xFF)};
}

// The factor is a single-precision value, the product is not: so 15 times 1.1 is a little above 16.5 and becomes 17.
Color ScaleColor(Color color, float factor) {
    const double exact = factor;
    const Channels channels = SplitColor(color);
    return Combine(Channel(channels.Red * exact), Channel(channels.Green * exact), Channel(channels.Blue * exact));
}

Color DarkenColor(Color color) { return ScaleColor(color, 0.8f); }

Color LightenColor(Color color) { return ScaleColor(color, 1.1f); }

Color BlendColor(Color first, Color second, float weight) {
    const double part = std::clamp(weight, 0.0f, 1.0f);
    const auto mix = [part](int a, int b) { return Channel((1 - part) * b + part * a); };
    const Channels a = SplitColor(first);
    const Channels b = SplitColor(second);
    return Combine(mix(a.Red, b.Red), mix(a.Green, b.Green), mix(a.Blue, b.Blue));
}

// Rounding happens at every step, so three steps are not one step of the cubed factor.
Shades ShadesOf(Color base) {
    Shades shades;
    shades.Light = LightenColor(base);
    shades.Lighter = LightenColor(LightenColor(shades.Light));
    shades.Dark = DarkenColor(DarkenColor(base));
    shades.Darker = DarkenColor(shades.Dark);
    return shades;
}

} // namespace ormisk
