#include "platform/Rounding.h"

#include <gtest/gtest.h>
#include <limits>

namespace ormisk {

TEST(Rounding, TiesGoToTheEvenNeighbourOnBothSidesOfZero) {
    EXPECT_EQ(RoundToLong(0.5), 0);
    EXPECT_EQ(RoundToLong(1.5), 2);
    EXPECT_EQ(RoundToLong(2.5), 2);
    EXPECT_EQ(RoundToLong(-0.5), 0);
    EXPECT_EQ(RoundToLong(-1.5), -2);
    EXPECT_EQ(RoundToLong(2.5000001), 3);
}

TEST(Rounding, ValuesBeyondTheTypeStopAtItsLimits) {
    EXPECT_EQ(RoundToLong(2147483647.4), 2147483647);
    EXPECT_EQ(RoundToLong(1e300), 2147483647);
    EXPECT_EQ(RoundToLong(-std::numeric_limits<double>::infinity()), -2147483647L - 1);
    EXPECT_EQ(RoundToLong(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(RoundToShort(40000), 32767);
    EXPECT_EQ(RoundToShort(-40000), -32768);
    EXPECT_EQ(RoundTo<std::int64_t>(1e19), std::numeric_limits<std::int64_t>::max());
}

} // namespace ormisk
