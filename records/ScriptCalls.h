#pragma once

#include "automation/Dispatch.h"
#include "automation/Value.h"

#include <contract.h>

namespace ormisk::records {

// Numbers of the published interfaces that are as wide as a pointer: scripts get them as they know numbers.
void NarrowForScripts(DISPID member, VARIANT* result);

// rs("Name") = value: the value is put to the field of that name. Nothing when the call is no such one.
bool IsPutOfField(DISPID member, WORD flags, const DISPPARAMS* parameters);
HRESULT PutField(::Fields* fields, LCID locale, WORD flags, DISPPARAMS* parameters, EXCEPINFO* exception);

// An array's elements, or the one value itself.
std::vector<_variant_t> ElementsOf(const VARIANT& value);

} // namespace ormisk::records
