#include "platform/Color.h"

#include <gtest/gtest.h>
#include <limits>

namespace ormisk {

TEST(Color, ChannelsRoundWithTheSinglePrecisionFactor) {
    EXPECT_EQ(LightenColor(15), 17u) << "an exact 1.1 would round the tie to 16";
    EXPECT_EQ(LightenColor(5), 6u) << "5.5 and a little";
    EXPECT_EQ(DarkenColor(5), 4u);
    EXPECT_EQ(DarkenColor(128), 102u);
    EXPECT_EQ(ScaleColor(5, 0.5f), 2u) << "a true tie goes to the even neighbour";
    EXPECT_EQ(ScaleColor(7, 0.5f), 4u);
}

TEST(Color, ChannelsAreCappedAndKeepTheirPlaces) {
    EXPECT_EQ(DarkenColor(0x000000), 0x000000u);
    EXPECT_EQ(LightenColor(0xFFFFFF), 0xFFFFFFu);
    EXPECT_EQ(LightenColor(0x0000F0), 0x0000FFu);
    EXPECT_EQ(LightenColor(0xFF0000), 0xFF0000u);
    EXPECT_EQ(DarkenColor(0x640A00), 0x500800u);
    EXPECT_EQ(SplitColor(0x12345678), (Channels{0x78, 0x56, 0x34}));
}

TEST(Color, BlendTakesTheFirstColourAtFullWeightAndClampsTheWeight) {
    const Color a = 0x102030, b = 0xF0E0D0;
    EXPECT_EQ(BlendColor(a, b, 1.0f), a);
    EXPECT_EQ(BlendColor(a, b, 0.0f), b);
    EXPECT_EQ(BlendColor(a, b, 2.0f), a);
    EXPECT_EQ(BlendColor(a, b, -1.0f), b);
    EXPECT_EQ(BlendColor(0x0000C8, 0x640000, 0.75f), 0x190096u);
    EXPECT_EQ(BlendColor(0x000003, 0x000000, 0.5f), 0x000002u) << "1.5 to even";
    EXPECT_EQ(BlendColor(a, b, std::numeric_limits<float>::quiet_NaN()) & 0xFF000000, 0u);
}

TEST(Color, ShadesAreRoundedAtEveryStepOfTheChain) {
    // Red: 45 > 50 > 55 > 61 up (the cubed factor gives 60) and 45 > 36 > 29 > 23 down.
    const Shades shades = ShadesOf(45);
    EXPECT_EQ(shades, (Shades{50, 61, 29, 23}));
    const Shades white = ShadesOf(0xFFFFFF);
    EXPECT_EQ(white.Light, 0xFFFFFFu);
    EXPECT_EQ(white.Lighter, 0xFFFFFFu);
    EXPECT_EQ(white.Dark, 0xA3A3A3u);
}

} // namespace ormisk
