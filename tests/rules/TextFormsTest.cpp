#include "platform/TextForms.h"

#include <gtest/gtest.h>

namespace ormisk {

namespace {

std::wstring FromBytes(std::string_view bytes) {
    std::wstring text(RealCharacterCount(bytes.size()), L'?');
    TextOfBytes(bytes, text.data());
    return text;
}

} // namespace

TEST(TextForms, BytesOfATextGiveTheTextBack) {
    const std::wstring text(L"Misc \u00E9\u0416\u65E5\0end", 12);
    EXPECT_EQ(BytesOfText(L"A\u0416"), std::string("A\0\x16\x04", 4));
    EXPECT_EQ(FromBytes(BytesOfText(text)), text);
}

TEST(TextForms, OddNumberOfBytesCountsAsRoundedHalf) {
    EXPECT_EQ(FromBytes(std::string_view("A\0B", 3)), L"AB") << "one and a half is two: the missing byte is 0";
    EXPECT_EQ(FromBytes(std::string_view("A\0B\0C", 5)), L"AB") << "two and a half is two";
    EXPECT_EQ(FromBytes("A"), L"");
    EXPECT_EQ(FromBytes(""), L"");
}

TEST(TextForms, WideTextStartsWhereItsFormatAlignsIt) {
    const Rect cell{10, 20, 111, 40};
    EXPECT_EQ(WideTextOrigin(cell, {50, 13}, 0x8824), (Point{10, 24})) << "3.5 above the text, ties to even";
    EXPECT_EQ(WideTextOrigin(cell, {50, 13}, 0x8825), (Point{36, 24})) << "25.5 to the left of the text";
    EXPECT_EQ(WideTextOrigin(cell, {50, 13}, 0x8826), (Point{61, 24}));
    EXPECT_EQ(WideTextOrigin(cell, {50, 13}, 0x20020), (Point{61, 24})) << "right-to-left text stays at the right";
    EXPECT_EQ(WideTextOrigin(cell, {201, 13}, 0x8825), (Point{-40, 24})) << "too long a text is not shortened";
}

} // namespace ormisk
