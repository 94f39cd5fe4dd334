#pragma once

#include "automation/Error.h"

namespace ormisk {

// The locale of calls by name.
constexpr LCID kByNameLocale = 0x409;

// Calls a member of any automation object by its name: flags are DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT,
// DISPATCH_PROPERTYPUTREF or DISPATCH_METHOD; the argument, if any, is passed as it is and stays the caller's. Raises
// what the object raised, and E_POINTER without an object.
_variant_t InvokeByName(IDispatch* object, const std::wstring& member, WORD flags, VARIANT* argument = nullptr,
                        LCID locale = kByNameLocale);

// The default value of an object. Nothing is raised; Empty after a failure.
HRESULT GetDefaultValue(IDispatch* object, _variant_t& value);

// A property of an object that is called several times and may fail: the name is looked up once, nothing is raised, and
// of a failure only its number is kept. Holds the object.
class NamedProperty {
public:
    NamedProperty(IDispatch* object, const std::wstring& name);
    HRESULT Get(_variant_t& value) const; // Empty after a failure
    // The flags are DISPATCH_PROPERTYPUT or DISPATCH_PROPERTYPUTREF.
    HRESULT Put(WORD flags, VARIANT* value) const;

private:
    ComPtr<IDispatch> m_Object;
    DISPID m_Id = DISPID_UNKNOWN;
    HRESULT m_Found = E_POINTER;
};

} // namespace ormisk
