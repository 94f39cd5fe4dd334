#include "platform/VersionText.h"

#include <gtest/gtest.h>

namespace ormisk {

TEST(VersionText, MinorAndRevisionArePaddedOnTheLeftAndNeverCut) {
    EXPECT_EQ(VersionText(2, 3, 7), L"2.03.0007");
    EXPECT_EQ(VersionText(0, 0, 0), L"0.00.0000");
    EXPECT_EQ(VersionText(12, 345, 67890), L"12.345.67890");
}

} // namespace ormisk
