#pragma once

#include "automation/Value.h"

#include <string_view>

namespace ormisk {

// How the library treats the values of properties.

// Whether a key would be taken for a position. A text with a zero in it is none.
bool IsNumericText(std::wstring_view text);

// Calls a member of an automation object; callType is DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT or
// DISPATCH_PROPERTYPUTREF. A member is read twice; a plain value is passed by reference as a variable of its own type,
// for members with a typed by-reference parameter. Raises what the object raised.
_variant_t InvokeProperty(IDispatch* object, const std::wstring& member, WORD callType, const VARIANT& value = {});

// A value as InvokeProperty passes it to a member: by reference, a plain one that is let as a variable of its own type.
class ReferenceArgument {
public:
    // Raises when the value cannot be copied.
    ReferenceArgument(const VARIANT& value, WORD callType);
    ReferenceArgument(const ReferenceArgument&) = delete;
    ReferenceArgument& operator=(const ReferenceArgument&) = delete;
    VARIANT* Get() { return &m_Reference; } // refers to this object

private:
    _variant_t m_Value;
    VARIANT m_Reference{};
};

// Whether an editor's value is what the property has: fonts by their description, pictures by their default members,
// other objects never.
bool ValuesEqual(const VARIANT& a, const VARIANT& b);

// A text goes as it is, into the buffer that the caller has, and no more of it than is asked for.
void AssignText(const VARIANT& value, std::size_t longest, std::wstring& text);
// The text of an object by its default member; "" when it has none.
std::wstring DefaultText(IUnknown* object);

// Puts `value` in place of what `target` holds. What it held is let go afterwards: that can call the host.
void Store(_variant_t& target, _variant_t value);
void SwapValues(_variant_t& a, _variant_t& b);

} // namespace ormisk
