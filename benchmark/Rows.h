#pragma once

#include "ormisk.h"

#include <comutil.h>

#include <vector>

namespace ormisk::bench {

// What a host adds, made before the clock runs: names, texts and one of 100 categories for each row. The rows of a
// category stand together.
class Rows {
public:
    explicit Rows(int count);
    // The same rows, those of each category in an order by chance that is the same every time.
    static Rows Shuffled(int count);

    int Count() const { return static_cast<int>(m_Names.size()); }
    const wchar_t* Name(int row) const { return m_Names[static_cast<std::size_t>(row)]; }
    const wchar_t* Text(int row) const { return m_Values[static_cast<std::size_t>(row)].bstrVal; }
    BSTR Category(int row) const;
    int CategorySize() const; // of each but perhaps the last

    void Add(::_CProperties* properties, int row);
    // A row under another name beside the row that is told.
    void AddBeside(::_CProperties* properties, int row, BSTR name);
    void AddLateBound(IDispatch* properties, DISPID add, int row);

private:
    std::vector<_bstr_t> m_Names;
    std::vector<_variant_t> m_Values;
    std::vector<_bstr_t> m_Categories;
};

} // namespace ormisk::bench
