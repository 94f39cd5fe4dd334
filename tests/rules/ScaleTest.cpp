#include "platform/Scale.h"

#include <gtest/gtest.h>

namespace ormisk {

TEST(Scale, ModeTextIsFoundInAnyCaseAndAnythingElseMeansPixels) {
    EXPECT_EQ(ScaleModeFromText(L"Twip"), ScaleMode::Twip);
    EXPECT_EQ(ScaleModeFromText(L"point"), ScaleMode::Point);
    EXPECT_EQ(ScaleModeFromText(L"CHARACTER"), ScaleMode::Character);
    EXPECT_EQ(ScaleModeFromText(L"Inch"), ScaleMode::Inch);
    EXPECT_EQ(ScaleModeFromText(L"millimeter"), ScaleMode::Millimeter);
    EXPECT_EQ(ScaleModeFromText(L"CentiMeter"), ScaleMode::Centimeter);
    EXPECT_EQ(ScaleModeFromText(L"PIXEL"), ScaleMode::Pixel);
    EXPECT_EQ(ScaleModeFromText(L"twips"), ScaleMode::Pixel);
    EXPECT_EQ(ScaleModeFromText(L"TWI"), ScaleMode::Pixel);
    EXPECT_EQ(ScaleModeFromText(L""), ScaleMode::Pixel);
}

TEST(Scale, LengthsConvertThroughTheInch) {
    const auto convert = [](double value, ScaleMode from, ScaleMode to, double dpi = 96, Axis axis = Axis::X) {
        return ConvertScale(value, from, to, dpi, axis);
    };
    EXPECT_EQ(convert(1, ScaleMode::Pixel, ScaleMode::Twip), 15);
    EXPECT_EQ(convert(1, ScaleMode::Pixel, ScaleMode::Twip, 120), 12);
    EXPECT_EQ(convert(72, ScaleMode::Point, ScaleMode::Inch), 1);
    EXPECT_DOUBLE_EQ(convert(2.54, ScaleMode::Centimeter, ScaleMode::Pixel), 96);
    EXPECT_DOUBLE_EQ(convert(25.4, ScaleMode::Millimeter, ScaleMode::Point), 72);
    EXPECT_EQ(convert(2540, ScaleMode::Himetric, ScaleMode::Pixel), 96);
    EXPECT_EQ(convert(-3.25, ScaleMode::Pixel, ScaleMode::Pixel), -3.25);
    EXPECT_EQ(convert(1, ScaleMode::Character, ScaleMode::Twip), 120);
    EXPECT_EQ(convert(1, ScaleMode::Character, ScaleMode::Twip, 96, Axis::Y), 240);
    EXPECT_EQ(convert(1, ScaleMode::Twip, ScaleMode::Character, 96, Axis::Y), 1.0 / 240);
}

TEST(Scale, ModesWithoutASizeAndScreensWithoutAnAnswerStillGiveAFiniteLength) {
    EXPECT_EQ(ConvertScale(15, ScaleMode::Twip, ScaleMode::Pixel, 0, Axis::X), 1);
    EXPECT_EQ(ConvertScale(7, ScaleMode::User, ScaleMode::Pixel, 96, Axis::X), 7);
    EXPECT_EQ(ConvertScale(96, static_cast<ScaleMode>(77), ScaleMode::Inch, 96, Axis::X), 1);
}

} // namespace ormisk
