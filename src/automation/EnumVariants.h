#pragma once

#include "automation/Error.h"

#include <vector>

namespace ormisk {

// An IEnumVARIANT over the values as they are now, for the NewEnum member of a collection.
ComPtr<IUnknown> MakeEnumerator(std::vector<_variant_t> values);
template <class Collection> ComPtr<IUnknown> EnumeratorOf(const Collection& objects) {
    std::vector<_variant_t> values;
    for (const auto& object : objects)
        values.emplace_back(static_cast<IDispatch*>(object.Get()));
    return MakeEnumerator(std::move(values));
}

} // namespace ormisk
