#pragma once

#include "automation/Error.h"

namespace ormisk {

// Calls a member of any automation object by its name: flags are DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT,
// DISPATCH_PROPERTYPUTREF or DISPATCH_METHOD; the argument, if any, is passed as it is and stays the caller's. Raises
// what the object raised, and E_POINTER without an object.
_variant_t InvokeByName(IDispatch* object, const std::wstring& member, WORD flags, VARIANT* argument = nullptr,
                        LCID locale = 0x409);

} // namespace ormisk
