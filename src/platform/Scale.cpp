#include "platform/Scale.h"

#include "platform/AccessKey.h"

#include <algorithm>
#include <utility>

namespace ormisk {

namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kDefaultDpi = 96; // for a screen that does not tell

double UnitsPerInch(ScaleMode mode, double dpi, Axis axis) {
    switch (mode) {
    case ScaleMode::Twip:
        return kTwipsPerInch;
    case ScaleMode::Point:
        return 72;
    case ScaleMode::Character:
        return kTwipsPerInch / (axis == Axis::X ? 120 : 240);
    case ScaleMode::Inch:
        return 1;
    case ScaleMode::Millimeter:
        return 25.4;
    case ScaleMode::Centimeter:
        return 2.54;
    case ScaleMode::Himetric:
        return 2540;
    case ScaleMode::User:
    case ScaleMode::Pixel:
        break;
    }
    return dpi > 0 ? dpi : kDefaultDpi;
}

} // namespace

ScaleMode ScaleModeFromText(std::wstring_view text) {
    static constexpr std::pair<std::wstring_view, ScaleMode> kNames[] = {
        {L"TWIP", ScaleMode::Twip}, {L"POINT", ScaleMode::Point},           {L"CHARACTER", ScaleMode::Character},
        {L"INCH", ScaleMode::Inch}, {L"MILLIMETER", ScaleMode::Millimeter}, {L"CENTIMETER", ScaleMode::Centimeter},
    };
    for (const auto& [name, mode] : kNames)
        if (std::ranges::equal(text, name, {}, PlainUpper))
            return mode;
    return ScaleMode::Pixel;
}

double ConvertScale(double value, ScaleMode from, ScaleMode to, double dpi, Axis axis) {
    const double source = UnitsPerInch(from, dpi, axis);
    const double target = UnitsPerInch(to, dpi, axis);
    return source == target ? value : value * target / source;
}

float UnitScale::ToUnits(double pixels, Axis axis) const {
    return static_cast<float>(ConvertScale(pixels, ScaleMode::Pixel, mode, dpi, axis));
}

float UnitScale::ToPixels(float units, Axis axis) const {
    return static_cast<float>(ConvertScale(units, mode, ScaleMode::Pixel, dpi, axis));
}

} // namespace ormisk
