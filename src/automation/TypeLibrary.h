#pragma once

#include "automation/ComPtr.h"

#include <oleauto.h>

#include <string>

namespace ormisk {

// The type library in the resources of the module that this code is linked into, loaded once, registered or not.

ITypeLib* Library();                      // borrowed; raises when the module carries none
ComPtr<ITypeInfo> TypeInfoOf(REFGUID id); // of an interface or class of the library; raises
std::wstring NameOf(ITypeInfo* info);     // without a leading underscore, "" when it has none

} // namespace ormisk
