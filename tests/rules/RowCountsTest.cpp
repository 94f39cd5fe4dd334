#include "tree/RowCounts.h"

#include <gtest/gtest.h>

#include <random>

using namespace ormisk;

namespace {

// Every sum and every row of the counts against the plain numbers.
void ExpectAgrees(const RowCounts& counts, const std::vector<long>& numbers) {
    ASSERT_EQ(counts.Size(), numbers.size());
    long row = 0;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        ASSERT_EQ(counts.At(i), numbers[i]) << i;
        ASSERT_EQ(counts.Before(i), row) << i;
        for (long own = 0; own < numbers[i]; ++own, ++row) {
            const RowCounts::Place place = counts.Find(row);
            ASSERT_EQ(place.position, i) << row;
            ASSERT_EQ(place.row, own) << row;
        }
    }
    ASSERT_EQ(counts.Total(), row);
}

} // namespace

TEST(RowCounts, SumsAndSearchesStayRightUnderRandomChanges) {
    RowCounts counts;
    std::vector<long> numbers;
    std::mt19937 random(3);
    for (int step = 0; step < 3000; ++step) {
        const long rows = static_cast<long>(random() % 4);
        const std::size_t position = numbers.empty() ? 0 : random() % numbers.size();
        const unsigned choice = random() % 5;
        if (numbers.empty() || choice < 2) {
            counts.Append(rows);
            numbers.push_back(rows);
        } else if (choice < 4) {
            counts.Set(position, rows);
            numbers[position] = rows;
        } else {
            counts.Remove(position);
            numbers.erase(numbers.begin() + static_cast<std::ptrdiff_t>(position));
        }
        if (step % 20 == 0)
            ExpectAgrees(counts, numbers);
    }
    while (!numbers.empty()) {
        counts.Remove(0);
        numbers.erase(numbers.begin());
    }
    ExpectAgrees(counts, {});
}
