#pragma once

#include <windows.h>

#include <wrl/client.h>

namespace ormisk {

using Microsoft::WRL::ComPtr;

// Takes over the caller's reference. (The toolchain's ComPtr::Attach adds one of its own.)
template <class T> ComPtr<T> Adopt(T* object) {
    ComPtr<T> result;
    *result.GetAddressOf() = object;
    return result;
}

// The interface of an object, null when there is no object or it has no such interface.
template <class T, class U> ComPtr<T> Query(U* object) {
    ComPtr<T> result;
    if (object && FAILED(object->QueryInterface(__uuidof(T), reinterpret_cast<void**>(result.GetAddressOf()))))
        *result.GetAddressOf() = nullptr;
    return result;
}
template <class T, class U> ComPtr<T> Query(const ComPtr<U>& object) { return Query<T>(object.Get()); }

} // namespace ormisk

// The toolchain's ComPtr has no comparison of its own, and would compare whether there are objects at all.
namespace Microsoft::WRL {

template <class T, class U> bool operator==(const ComPtr<T>& a, const ComPtr<U>& b) { return a.Get() == b.Get(); }

} // namespace Microsoft::WRL
