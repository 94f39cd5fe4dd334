#pragma once

#include "FormFile.h"

#include <comutil.h>

#include <optional>

namespace ormisk {

// The value as a form file keeps it: numbers, flags, texts, fonts, pictures and Nothing. None for what it has no form
// of, such as another object.
std::optional<FormValue> ToFormValue(const VARIANT& value);

// The same for automation; fonts and pictures are objects of their own. Throws a Failure when one cannot be made.
_variant_t FromFormValue(const FormValue& value);

} // namespace ormisk
