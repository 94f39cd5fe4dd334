#pragma once

#include "automation/Value.h"

namespace ormisk {

// Hands a value to an out argument of a COM method; it is the receiver's from then on. Raises E_POINTER without one.

template <class Out, class T>
    requires(std::is_arithmetic_v<T> || std::is_enum_v<T>)
void Give(Out* out, T value) {
    CheckPointer(out);
    *out = static_cast<Out>(value);
}
inline void Give(VARIANT_BOOL* out, bool value) {
    CheckPointer(out);
    *out = value ? VARIANT_TRUE : VARIANT_FALSE;
}
inline void Give(BSTR* out, const std::wstring& text) {
    CheckPointer(out);
    *out = nullptr;
    *out = NewBstr(text);
}
inline void Give(VARIANT* out, const VARIANT& value) {
    CheckPointer(out);
    *out = Plain(value).Detach();
}
template <class Interface, class Object> void Give(Interface** out, ComPtr<Object> object) {
    CheckPointer(out);
    *out = object.Detach();
}

// What the call makes; nothing if it raises.
template <class Out, class Make>
    requires std::is_invocable_v<Make&>
void Give(Out* out, Make make) {
    CheckPointer(out);
    *out = {};
    Give(out, make());
}

} // namespace ormisk
