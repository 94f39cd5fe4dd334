#pragma once

#include "automation/Error.h"

#include <cstdint>

namespace ormisk {

// What the library asks of an automation value (Variant). A value may be held by reference everywhere here.

bool HoldsObject(const VARIANT& v);   // an object, Nothing included
IUnknown* ObjectOf(const VARIANT& v); // borrowed; null for Nothing and for a plain value
// The object's IDispatch, null when it has none. Where the value holds one it is that very pointer, which lives as long
// as the value: an interface asked for again may be another that does not.
ComPtr<IDispatch> DispatchOf(const VARIANT& v);
bool IsNull(const VARIANT& v);
bool IsMissing(const VARIANT& v);          // an optional argument that was not given
bool SameObject(IUnknown* a, IUnknown* b); // COM identity; two nulls are the same

enum class Comparison { Equal, Different, Null };
// Automation comparison of plain values: 1 equals "1", Empty equals "" and 0, texts differ by case. A comparison with
// Null is Null. Values that cannot be compared, arrays and objects among them, are Different.
Comparison CompareValues(const VARIANT& a, const VARIANT& b);

_variant_t Plain(const VARIANT& v); // a copy that refers to nobody's memory; raises

// Steps from an object to its default value, from that one to its own, and so on: an object can be its own default.
inline constexpr int kDeepestDefault = 8;
// A plain value: of an object the default value at the end of these steps, DISP_E_TYPEMISMATCH when none comes. The
// object may do anything meanwhile.
HRESULT ResolveDefault(const VARIANT& v, _variant_t& plain);
// The value as one of a plain type, as automation converts it; an object by its default value.
HRESULT ConvertValue(const VARIANT& v, VARTYPE type, _variant_t& converted, LCID locale = LOCALE_USER_DEFAULT,
                     USHORT flags = 0);
// The bits of a colour, given as a number between -2^31 and 2^32 - 1 or as its text.
HRESULT ReadColor(const VARIANT& v, std::uint32_t& color);

std::wstring TextOf(const VARIANT& v); // value & "": Empty and Null give "", an object its default value; raises
// Numbers, booleans, Empty and texts that read as a number; no dates. Of an object its default value decides.
bool IsNumeric(const VARIANT& v);
// "Integer", "Long", "String", "Nothing", "Byte()" and so on; of an object the name of its class, else "Object".

// Strings keep their length, embedded zeros too. A null BSTR is the empty string.
std::wstring FromBstr(BSTR text);
_bstr_t ToBstr(const std::wstring& text);
BSTR NewBstr(const std::wstring& text); // for an out argument: the receiver frees it
_variant_t ToVariant(const std::wstring& text);

} // namespace ormisk
