#pragma once

#include <string_view>

namespace ormisk {

// What siblings are sorted by.
struct SiblingKey {
    bool category;
    std::wstring_view name;
};

// Whether two neighbours are to be exchanged: categories go in front of properties, names by character code with case
// counting; descending turns both. Equal ones stay.
inline bool OutOfOrder(const SiblingKey& first, const SiblingKey& second, bool descending) {
    if (first.category != second.category)
        return first.category == descending;
    const int order = first.name.compare(second.name);
    return descending ? order < 0 : order > 0;
}

} // namespace ormisk
