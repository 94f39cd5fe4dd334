#include "platform/SplitterGeometry.h"

#include "platform/Rounding.h"

namespace ormisk {

// The dimension is the one across the bar's movement: only a first value, which the owner replaces.
float InitialSplitterLocation(float width, float height, float bar, SplitterOrientation orientation) {
    return (orientation == SplitterOrientation::Horizontal ? width : height) / 2 - bar;
}

float TurnedSplitterLocation(float location, float oldExtent, float newExtent) {
    return newExtent == 0 ? location : RoundToShort(static_cast<double>(oldExtent) * location / newExtent);
}

float ClampedSplitterLocation(float wanted, float extent, float bar, float minimum) {
    const float most = extent - bar - minimum;
    if (wanted >= minimum)
        return wanted <= most ? wanted : most;
    return minimum;
}

float ProportionalSplitterLocation(float location, float extent, float first, float second, float bar) {
    const float total = first + second + bar;
    return total == 0 ? location : static_cast<float>(static_cast<double>(location) * extent / total);
}

SplitPanes ArrangedPanes(float width, float height, float location, float bar, SplitterOrientation orientation) {
    const float second = bar + location;
    if (orientation == SplitterOrientation::Horizontal)
        return {{0, 0, width, location}, {0, second, width, height - second}};
    return {{0, 0, location, height}, {second, 0, width - second, height}};
}

} // namespace ormisk
