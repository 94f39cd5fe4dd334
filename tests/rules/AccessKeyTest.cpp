#include "platform/AccessKey.h"

#include <gtest/gtest.h>

namespace ormisk {

namespace {

struct Key {
    std::wstring Letter;
    long Position;
    bool operator==(const Key&) const = default;
};

Key KeyOf(const wchar_t* caption) {
    long position = 7;
    const std::wstring letter = GetAccessKey(caption, position);
    return {letter, position};
}

} // namespace

TEST(AccessKey, LastLetterBehindAnOddRunOfAmpersandsIsTheKey) {
    EXPECT_EQ(KeyOf(L"&alphabetic"), (Key{L"A", 1}));
    EXPECT_EQ(KeyOf(L"A&&B &Cat"), (Key{L"C", 6}));
    EXPECT_EQ(KeyOf(L"&One &two"), (Key{L"T", 6}));
    EXPECT_EQ(KeyOf(L"R&&&d"), (Key{L"D", 4}));
    EXPECT_EQ(KeyOf(L"& x"), (Key{L" ", 1}));
}

TEST(AccessKey, CaptionWithoutAMarkedLetterHasNone) {
    EXPECT_EQ(KeyOf(L""), (Key{L"", -1}));
    EXPECT_EQ(KeyOf(L"Plain"), (Key{L"", -1}));
    EXPECT_EQ(KeyOf(L"A&&B"), (Key{L"", -1})) << "a literal ampersand";
    EXPECT_EQ(KeyOf(L"&"), (Key{L"", -1}));
    EXPECT_EQ(KeyOf(L"&Save&"), (Key{L"", -1})) << "the scan ends before the first letter";
}

TEST(AccessKey, UpperCasingIsThatOfTheCaller) {
    long position = 0;
    EXPECT_EQ(GetAccessKey(L"&\u0431", position, [](wchar_t) { return L'\u0411'; }), L"\u0411");
}

} // namespace ormisk
