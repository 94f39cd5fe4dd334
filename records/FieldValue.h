#pragma once

#include "automation/Value.h"
#include "records/FieldTypes.h"

namespace ormisk::records {

// A value as a field of that type holds it. Empty counts as Null. Raises what cannot be converted.
_variant_t ToFieldValue(const VARIANT& value, const FieldType& type);
_variant_t NullValue();
// A number in the type that the contract has for the field, a wider one where it does not fit.
_variant_t IntegerValue(std::int64_t number, const FieldType& type);
_variant_t RealValue(double number, const FieldType& type);

// Bytes as an automation array, and the other way.
_variant_t FromBytes(const std::string& bytes);
std::string BytesOf(const VARIANT& value);

} // namespace ormisk::records
