#pragma once

#include "model/KeyedCollection.h"

#include <utility>

namespace ormisk {

// Raises what a collection refused as the automation error that hosts know for it.
[[noreturn]] void Raise(CollectionFault fault);

// Runs a body that works on a KeyedCollection; what the collection refuses is raised.
template <class F> decltype(auto) RaisingFaults(F&& body) {
    try {
        return std::forward<F>(body)();
    } catch (CollectionFault fault) {
        Raise(fault);
    }
}

} // namespace ormisk
