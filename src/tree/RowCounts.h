#pragma once

#include <cstddef>
#include <vector>

namespace ormisk {

// The numbers of rows that siblings take on screen, in their order. Sums and searches cost the logarithm of the count;
// appending costs next to nothing, removing moves all numbers. Positions count from 0.
class RowCounts {
public:
    std::size_t Size() const { return m_Sums.size(); }
    long Total() const { return m_Total; }
    long At(std::size_t position) const;
    long Before(std::size_t position) const; // the sum of all in front of the position

    struct Place {
        std::size_t position;
        long row; // within the sibling's own rows, from 0
    };
    // Whose row this is; `row` is from 0 to below Total.
    Place Find(long row) const;

    void Append(long rows);
    void Set(std::size_t position, long rows);
    void Remove(std::size_t position);

private:
    std::vector<long> m_Sums; // a Fenwick tree: entry i - 1 sums the lowbit(i) numbers that end at i
    long m_Total = 0;
};

} // namespace ormisk
