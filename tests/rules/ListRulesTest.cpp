// Where a drop-down list goes, and which entry the typed letters mean.

#include "listbox/ListPlace.h"
#include "listbox/TypeAhead.h"

#include <gtest/gtest.h>

#include <vector>

namespace ormisk {
namespace {

constexpr Rect kWork{0, 0, 1000, 700};
constexpr ListWish kWish{.entries = 4, .rowHeight = 15, .textWidth = 50, .frame = 1, .scrollBar = 16};

TEST(ListPlace, AListHidesItsControlOrLeavesTheScreen) {
    EXPECT_EQ(PlaceList({100, 50, 200, 67}, kWork, kWish), (Rect{100, 67, 200, 129})) << "below";
    EXPECT_EQ(PlaceList({100, 650, 200, 667}, kWork, kWish), (Rect{100, 588, 200, 650})) << "above";
    ListWish many = kWish;
    many.entries = 5000;
    EXPECT_EQ(PlaceList({100, 50, 200, 67}, kWork, many).Height(), 12 * 15 + 2);
    EXPECT_EQ(PlaceList({100, 60, 200, 77}, {0, 0, 1000, 140}, many), (Rect{100, 77, 200, 77 + 4 * 15 + 2}))
        << "as many rows as there is room for, on the roomier side";
    EXPECT_EQ(PlaceList({100, 5, 200, 22}, {0, 0, 1000, 30}, many).Height(), 17) << "one row in any case";
    ListWish none = kWish;
    none.entries = 0;
    EXPECT_EQ(PlaceList({100, 50, 200, 67}, kWork, none).Height(), 17);
}

TEST(ListPlace, AListCutsItsWidestEntryOrRunsOverTheEdge) {
    ListWish wide = kWish;
    wide.textWidth = 300;
    EXPECT_EQ(PlaceList({100, 50, 200, 67}, kWork, wide).Width(), 302);
    wide.entries = 13;
    EXPECT_EQ(PlaceList({100, 50, 200, 67}, kWork, wide).Width(), 318) << "beside the scroll bar";
    EXPECT_EQ(PlaceList({900, 50, 990, 67}, kWork, wide), (Rect{682, 67, 1000, 67 + 182}));
    wide.textWidth = 5000;
    EXPECT_EQ(PlaceList({100, 50, 200, 67}, kWork, wide).Width(), 500) << "half of the screen at most";
    EXPECT_EQ(PlaceList({-50, 50, 750, 67}, kWork, wide), (Rect{0, 67, 800, 67 + 182})) << "but all of the control";
}

TEST(TypeAhead, TypedLettersMissTheirEntryOrStopAtTheFirst) {
    const std::vector<std::wstring> entries{L"Coal", L"cobalt", L"Copper", L"", L"apple", L"aaa"};
    TypeAhead typed;
    const auto type = [&](wchar_t letter, std::uint64_t now, long current) {
        return typed
            .Type(
                letter, now, current, static_cast<long>(entries.size()),
                [&](long index) { return std::wstring_view(entries[static_cast<std::size_t>(index)]); }, PlainUpper)
            .value_or(-7);
    };
    EXPECT_EQ(type(L'c', 5000, -1), 0);
    EXPECT_EQ(type(L'O', 5100, 0), 0) << "a word that grows may stay where it is";
    EXPECT_EQ(type(L'B', 5200, 0), 1);
    EXPECT_EQ(type(L'x', 5300, 1), -7);
    EXPECT_EQ(type(L'c', 6400, 1), 2) << "after a pause a new word begins, behind the present entry";
    EXPECT_EQ(type(L'c', 6500, 2), 0) << "the same letter goes round";
    EXPECT_EQ(type(L'C', 6600, 0), 1);
    EXPECT_EQ(type(L'a', 9000, 1), 4);
    EXPECT_EQ(type(L'a', 9100, 4), 5) << "a text that begins so comes before the next with the letter";
    EXPECT_EQ(TypeAhead().Type(L'a', 1, -1, 0, {}, PlainUpper), std::nullopt) << "an empty list";
}

} // namespace
} // namespace ormisk
