#include "tree/RowCounts.h"

namespace ormisk {

namespace {

std::size_t LowBit(std::size_t i) { return i & (~i + 1); }

} // namespace

long RowCounts::Before(std::size_t position) const {
    long sum = 0;
    for (std::size_t i = position; i > 0; i -= LowBit(i))
        sum += m_Sums[i - 1];
    return sum;
}

// What the entry sums, less the entries that it is made of.
long RowCounts::At(std::size_t position) const {
    const std::size_t entry = position + 1;
    const std::size_t end = entry - LowBit(entry);
    long rows = m_Sums[position];
    for (std::size_t i = position; i > end; i -= LowBit(i))
        rows -= m_Sums[i - 1];
    return rows;
}

RowCounts::Place RowCounts::Find(long row) const {
    std::size_t step = 1;
    while (step * 2 <= m_Sums.size())
        step *= 2;
    std::size_t position = 0;
    for (; step > 0; step /= 2) {
        if (position + step <= m_Sums.size() && m_Sums[position + step - 1] <= row) {
            position += step;
            row -= m_Sums[position - 1];
        }
    }
    return {position, row};
}

void RowCounts::Append(long rows) {
    const std::size_t entry = m_Sums.size() + 1;
    const std::size_t end = entry - LowBit(entry);
    long sum = rows;
    for (std::size_t i = entry - 1; i > end; i -= LowBit(i))
        sum += m_Sums[i - 1];
    m_Sums.push_back(sum);
    m_Total += rows;
}

void RowCounts::Set(std::size_t position, long rows) {
    const long more = rows - At(position);
    for (std::size_t i = position + 1; i <= m_Sums.size(); i += LowBit(i))
        m_Sums[i - 1] += more;
    m_Total += more;
}

// Entries in front of the gap end before it and stay; those behind are summed up anew.
void RowCounts::Remove(std::size_t position) {
    std::vector<long> behind;
    behind.reserve(m_Sums.size() - position - 1);
    for (std::size_t i = m_Sums.size(); i > position + 1; --i)
        behind.push_back(At(i - 1));
    m_Total = Before(position);
    m_Sums.resize(position);
    for (; !behind.empty(); behind.pop_back())
        Append(behind.back());
}

} // namespace ormisk
