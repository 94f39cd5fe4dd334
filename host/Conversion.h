#pragma once

#include <comutil.h>

namespace ormisk {

// The value as one of a plain type, as automation converts it. Of an object its default value is taken, and that one's
// in turn, but only for a few steps: an object can be its own.
HRESULT ConvertValue(const VARIANT& value, VARTYPE type, USHORT flags, _variant_t& converted);

} // namespace ormisk
