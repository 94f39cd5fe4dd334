#include "tree/CategoryPath.h"

#include <gtest/gtest.h>

#include <vector>

using namespace ormisk;

namespace {

using Segments = std::vector<std::wstring>;

Segments SegmentsOf(std::wstring_view category, std::wstring_view separator) {
    Segments segments;
    std::wstring_view segment;
    while (NextCategorySegment(category, separator, segment))
        segments.emplace_back(segment);
    return segments;
}

} // namespace

TEST(CategoryPath, OnlySeparatorsIsNoCategoryButBlanksAre) {
    EXPECT_FALSE(HasCategory(L"", L"|"));
    EXPECT_FALSE(HasCategory(L"|||", L"|"));
    EXPECT_FALSE(HasCategory(L"ababab", L"ab"));
    EXPECT_TRUE(HasCategory(L"aba", L"ab")) << "half a separator is left";
    EXPECT_TRUE(HasCategory(L"|a|", L"|"));
    EXPECT_TRUE(HasCategory(L" ", L"|"));
    EXPECT_TRUE(HasCategory(L"XX", L"x")) << "separators are taken out by exact case";
    EXPECT_TRUE(HasCategory(L"a", L""));
}

TEST(CategoryPath, SegmentsAreTrimmedAndBlankOnesPassedOver) {
    EXPECT_EQ(SegmentsOf(L" Font | Size ", L"|"), (Segments{L"Font", L"Size"}));
    EXPECT_EQ(SegmentsOf(L"|Font|| |Size|", L"|"), (Segments{L"Font", L"Size"}));
    EXPECT_EQ(SegmentsOf(L"  | ", L"|"), Segments{});
    EXPECT_EQ(SegmentsOf(L"Font", L"|"), Segments{L"Font"});
    EXPECT_EQ(SegmentsOf(L"a->b->c", L"->"), (Segments{L"a", L"b", L"c"}));
    EXPECT_EQ(SegmentsOf(L"a", L""), Segments{L"a"});
}

TEST(CategoryPath, ALetterAsSeparatorPartsInEitherCase) {
    EXPECT_EQ(SegmentsOf(L"1X2x3", L"x"), (Segments{L"1", L"2", L"3"}));
    EXPECT_EQ(SegmentsOf(L"1xY2Xy3", L"XY"), (Segments{L"1", L"2", L"3"}));
}
