#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace ormisk {

// Nearest whole number, ties to the even one. What does not fit becomes the nearest value that does; not-a-number is 0.
template <class Whole> Whole RoundTo(double value) {
    using Limits = std::numeric_limits<Whole>;
    if (std::isnan(value))
        return 0;
    const double whole = std::nearbyint(value);
    if (whole <= static_cast<double>(Limits::min()))
        return Limits::min();
    if (whole >= static_cast<double>(Limits::max()))
        return Limits::max();
    return static_cast<Whole>(whole);
}

// For the 32-bit whole numbers of the public surface and for pixels.
inline long RoundToLong(double value) { return RoundTo<std::int32_t>(value); }

// For the few sizes that are kept in 16 bits.
inline std::int16_t RoundToShort(double value) { return RoundTo<std::int16_t>(value); }

} // namespace ormisk
