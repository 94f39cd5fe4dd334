#include "automation/StoredForm.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>

namespace ormisk {
namespace {

using Bytes = std::vector<std::uint8_t>;

std::vector<StoredValue> Some() {
    std::vector<StoredValue> values;
    for (int i = 0; i < 12; ++i) {
        Bytes data;
        for (int k = 0; k < i * i; ++k)
            data.push_back(static_cast<std::uint8_t>(k % 3 ? k : 0xA5)); // with letters of marks in it
        values.push_back({"Setting" + std::to_string(i), static_cast<StoredType>(i % 6), data});
    }
    return values;
}

std::vector<StoredValue> Decoded(const Bytes& bytes) {
    const auto length = StoredLength(bytes);
    if (!length)
        return {};
    const auto rest = std::span(bytes).subspan(kStoredHeader);
    return DecodeStored(rest.first(std::min(*length, rest.size())));
}

TEST(StoredForm, BytesOfAnEarlierReleaseAreNotRead) {
    const Bytes bytes = {'O', 'm', 'S', 't', 1,   0,   17,  0,   0, 0,    0xA5, 'V',  4,   3,
                         1,   0,   0,   0,   'B', 'o', 'l', 'd', 1, 0x50, 0xF8, 0xB1, 0xE8};
    const std::vector<StoredValue> values = {{"Bold", StoredType::Boolean, {1}}};
    EXPECT_EQ(EncodeStored(values), bytes);
    EXPECT_EQ(Decoded(bytes), values);
}

TEST(StoredForm, ForeignOrEmptyStoresAreRead) {
    EXPECT_EQ(StoredLength({}), std::nullopt);
    Bytes bytes = EncodeStored(Some());
    const Bytes whole = bytes;
    bytes.resize(kStoredHeader - 1);
    EXPECT_EQ(StoredLength(bytes), std::nullopt);
    bytes = whole;
    bytes[0] = 'o';
    EXPECT_EQ(StoredLength(bytes), std::nullopt);
    bytes = whole;
    bytes[4] = 2; // a later version
    EXPECT_EQ(Decoded(bytes), Some());
    bytes[6] = bytes[7] = bytes[8] = bytes[9] = 0xFF; // more than there can be
    EXPECT_EQ(StoredLength(bytes), kMostStored);
}

TEST(StoredForm, UnknownTypesOrASecondValueOfANameTakeAPlace) {
    const std::vector<StoredValue> values = {
        {"A", StoredType::Long, {1, 0, 0, 0}}, {"B", static_cast<StoredType>(77), {1}},
        {"A", StoredType::Long, {2, 0, 0, 0}}, {"C", StoredType::Nothing, {}},
        {"", StoredType::Nothing, {}},         {std::string(256, 'x'), StoredType::Nothing, {}}};
    EXPECT_EQ(Decoded(EncodeStored(values)), (std::vector<StoredValue>{values[0], values[3]}));
}

// Each damage costs the record that it hits, at most.
TEST(StoredForm, DamageCostsMoreThanTheRecordThatItHits) {
    const std::vector<StoredValue> values = Some();
    const Bytes whole = EncodeStored(values);
    std::vector<std::size_t> ends; // of the records
    for (std::size_t i = 1; i <= values.size(); ++i)
        ends.push_back(EncodeStored({values.begin(), values.begin() + static_cast<std::ptrdiff_t>(i)}).size());
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        Bytes bytes = whole;
        const std::size_t at = kStoredHeader + random() % (whole.size() - kStoredHeader);
        const unsigned kind = random() % 4;
        if (kind == 0)
            bytes[at] ^= static_cast<std::uint8_t>(1U << random() % 8);
        else if (kind == 1)
            bytes.resize(at);
        else if (kind == 2)
            bytes.erase(bytes.begin() + static_cast<std::ptrdiff_t>(at));
        else
            bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(at), static_cast<std::uint8_t>(random()));
        const std::vector<StoredValue> found = Decoded(bytes);
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::size_t start = i ? ends[i - 1] : kStoredHeader;
            const bool hit = (at >= start && at < ends[i]) || (kind == 1 && at < ends[i]) ||
                             (kind == 3 && i + 1 == values.size()); // the length cuts off its last byte
            const bool there = std::ranges::find(found, values[i]) != found.end();
            ASSERT_TRUE(there || hit) << "round " << round << ", damage " << kind << " at " << at << ", record " << i;
        }
        ASSERT_LE(found.size(), values.size());
    }
}

// Heads that each promise all that follows, and keep nothing.
TEST(StoredForm, AHostileStreamIsReadForMinutes) {
    const Bytes head = {0xA5, 'V', 1, 1, 0, 0, 8, 0};
    Bytes records;
    for (int i = 0; i < 200000; ++i)
        records.insert(records.end(), head.begin(), head.end());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(DecodeStored(records).empty());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

} // namespace
} // namespace ormisk
