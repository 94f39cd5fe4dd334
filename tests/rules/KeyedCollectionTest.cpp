#include "model/KeyedCollection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>

using namespace ormisk;

namespace {

struct Entry {
    std::wstring key;
    int number = 0;
    FoldedKey Key() const { return FoldedKey(key); }
};
using Entries = KeyedCollection<Entry, std::unique_ptr<Entry>, &Entry::Key>;

Entry* Add(Entries& entries, const std::wstring& key, int number = 0) {
    return entries.Add(std::make_unique<Entry>(Entry{key, number}));
}

template <class F> bool Throws(CollectionFault expected, F&& body) {
    try {
        body();
    } catch (CollectionFault fault) {
        return fault == expected;
    }
    return false;
}

} // namespace

TEST(KeyedCollection, KeysCountInAnyCaseAndItemsKeepTheirOrder) {
    Entries entries;
    Entry* red = Add(entries, L"Red");
    Add(entries, L"blue");
    EXPECT_TRUE(Throws(CollectionFault::DuplicateKey, [&] { Add(entries, L"RED"); }));
    EXPECT_EQ(entries.Count(), 2) << "a refused item is not filed";
    EXPECT_EQ(entries.Find(FoldedKey(L"rED")), red);
    EXPECT_EQ(entries.At(2)->key, L"blue");
    EXPECT_EQ(entries.Find(FoldedKey(L"re")), nullptr);
    EXPECT_EQ(entries.Find(FoldedKey(std::wstring_view(L"red\0", 4))), nullptr) << "a zero counts as a character";
}

TEST(KeyedCollection, ItemsWithoutKeyAreFoundByPositionOnly) {
    Entries entries;
    Add(entries, L"", 1);
    Add(entries, L"", 2);
    EXPECT_EQ(entries.At(2)->number, 2);
    EXPECT_EQ(entries.Find(FoldedKey(L"")), nullptr);
    EXPECT_EQ(entries.RemoveAt(1)->number, 1);
    EXPECT_EQ(entries.At(1)->number, 2);
}

TEST(KeyedCollection, RefusesPositionsAndKeysThatAreNotThere) {
    Entries entries;
    Add(entries, L"a");
    for (const long position : {-1L, 0L, 2L}) {
        EXPECT_TRUE(Throws(CollectionFault::BadPosition, [&] { entries.At(position); })) << position;
        EXPECT_TRUE(Throws(CollectionFault::BadPosition, [&] { entries.RemoveAt(position); })) << position;
    }
    EXPECT_TRUE(Throws(CollectionFault::UnknownKey, [&] { entries.Get(FoldedKey(L"b")); }));
    EXPECT_TRUE(Throws(CollectionFault::UnknownKey, [&] { entries.Remove(FoldedKey(L"b")); }));
    EXPECT_TRUE(Throws(CollectionFault::UnknownKey, [&] { entries.Get(FoldedKey(L"")); }));
}

TEST(KeyedCollection, KeysAreFreeAgainOnceAllItemsAreTaken) {
    Entries entries;
    Add(entries, L"a", 1);
    EXPECT_EQ(entries.TakeAll().size(), 1u);
    EXPECT_EQ(entries.Count(), 0);
    EXPECT_EQ(entries.Find(FoldedKey(L"a")), nullptr);
    Add(entries, L"a", 3);
    EXPECT_EQ(entries.Find(FoldedKey(L"a"))->number, 3);
}

TEST(KeyedCollection, LookupStaysRightUnderRandomAdditionsAndRemovals) {
    Entries entries;
    std::vector<std::wstring> expected;
    std::mt19937 random(7);
    for (int step = 0; step < 20000; ++step) {
        const std::wstring key = L"Key" + std::to_wstring(random() % 500);
        const auto at = std::find(expected.begin(), expected.end(), key);
        if (at == expected.end()) {
            Add(entries, key);
            expected.push_back(key);
        } else if (random() % 2) {
            entries.Remove(FoldedKey(key));
            expected.erase(at);
        }
    }
    ASSERT_EQ(entries.Count(), static_cast<long>(expected.size()));
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(entries.At(static_cast<long>(i) + 1)->key, expected[i]);
        EXPECT_EQ(entries.Find(FoldedKey(expected[i])), entries.At(static_cast<long>(i) + 1));
    }
    for (int number = 0; number < 500; ++number) {
        const std::wstring key = L"Key" + std::to_wstring(number);
        const bool filed = std::find(expected.begin(), expected.end(), key) != expected.end();
        EXPECT_EQ(entries.Find(FoldedKey(key)) != nullptr, filed) << number;
    }
}
