#pragma once

#include "automation/Error.h"

#include <vector>

namespace ormisk {

// An IEnumVARIANT over the values as they are now, for the NewEnum member of a collection.
ComPtr<IUnknown> MakeEnumerator(std::vector<_variant_t> values);

} // namespace ormisk
