#include "platform/SplitterGeometry.h"

#include <gtest/gtest.h>
#include <limits>

namespace ormisk {

TEST(SplitterGeometry, LocationStaysOnePixelInsideTheContainer) {
    EXPECT_EQ(ClampedSplitterLocation(40, 100, 4, 1), 40);
    EXPECT_EQ(ClampedSplitterLocation(1, 100, 4, 1), 1);
    EXPECT_EQ(ClampedSplitterLocation(0.5f, 100, 4, 1), 1);
    EXPECT_EQ(ClampedSplitterLocation(-1000, 100, 4, 1), 1);
    EXPECT_EQ(ClampedSplitterLocation(95, 100, 4, 1), 95);
    EXPECT_EQ(ClampedSplitterLocation(96, 100, 4, 1), 95);
    EXPECT_EQ(ClampedSplitterLocation(std::numeric_limits<float>::quiet_NaN(), 100, 4, 1), 1);
}

TEST(SplitterGeometry, ContainerWithoutRoomKeepsTheSecondPanesPixel) {
    EXPECT_EQ(ClampedSplitterLocation(10, 0, 4, 1), -5);
    EXPECT_EQ(ClampedSplitterLocation(0, 0, 4, 1), 1) << "too small a wish is still the least location";
}

TEST(SplitterGeometry, TurnedLocationsUseTheDimensionsGivenToThem) {
    EXPECT_EQ(TurnedSplitterLocation(96, 200, 100), 192);
    EXPECT_EQ(TurnedSplitterLocation(5, 100, 200), 2) << "2.5 to even";
    EXPECT_EQ(TurnedSplitterLocation(7, 100, 0), 7);
}

TEST(SplitterGeometry, ResizeKeepsTheFractionThatThePanesMeasure) {
    EXPECT_EQ(ProportionalSplitterLocation(48, 200, 48, 48, 4), 96);
    EXPECT_EQ(ProportionalSplitterLocation(30, 100, 60, 136, 4), 15) << "not the fraction of the old container";
    EXPECT_EQ(ProportionalSplitterLocation(30, 100, 0, 0, 0), 30);
}

} // namespace ormisk
