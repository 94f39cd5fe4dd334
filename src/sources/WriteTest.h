#pragma once

#include "automation/ByName.h"
#include "model/ValueRules.h"

namespace ormisk {

// Whether a property refuses what it holds itself: it is written back and has whatever effect the object gives that.
// With INVOKE_PROPERTYPUTREF among its kinds it is set as an object, else let. What cannot be read counts as refused.
bool IsReadOnlyMember(const NamedProperty& property, unsigned invokeKinds);

} // namespace ormisk
