#pragma once

#include <oaidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <comutil.h>

#include <string>
#include <vector>

namespace ormisk::test {

using Microsoft::WRL::ComPtr;

// An object of which nothing is known but the names of its members.
class LateBound {
public:
    LateBound() = default;
    LateBound(IUnknown* object);

    // Arguments in the order in which they are written. What the member returns stays in `value`.
    HRESULT Try(const wchar_t* member, WORD flags, std::vector<_variant_t> arguments = {},
                _variant_t* value = nullptr) const;

    // The same, of which success is expected.
    _variant_t Call(const wchar_t* member, std::vector<_variant_t> arguments = {}) const;
    _variant_t Get(const wchar_t* member) const;
    void Put(const wchar_t* member, const _variant_t& value) const;

    // A member that is an object.
    LateBound Object(const wchar_t* member, std::vector<_variant_t> arguments = {}) const;

    IDispatch* Dispatch() const { return m_Object.Get(); }
    void Release() { m_Object.Reset(); }

private:
    ComPtr<IDispatch> m_Object;
};

} // namespace ormisk::test
