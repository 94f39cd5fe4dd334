#pragma once

#include <oaidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <comutil.h>

#include <string>
#include <vector>

namespace ormisk::test {

using Microsoft::WRL::ComPtr;

// How a late-bound call ended: the caller's result, and for a failure inside the member what it told.
struct Outcome {
    HRESULT result = S_OK;
    HRESULT number = S_OK; // the member's own failure
    std::wstring source;
    std::wstring description;
    _variant_t value;

    bool Succeeded() const { return SUCCEEDED(result); }
};

// An object of which nothing is known but the names of its members.
class LateBound {
public:
    LateBound() = default;
    LateBound(IUnknown* object);

    // Arguments in the order in which they are written.
    Outcome Try(const wchar_t* member, WORD flags, std::vector<_variant_t> arguments = {}) const;

    // The same, of which success is expected.
    _variant_t Call(const wchar_t* member, std::vector<_variant_t> arguments = {}) const;
    _variant_t Get(const wchar_t* member, std::vector<_variant_t> arguments = {}) const;
    void Put(const wchar_t* member, const _variant_t& value) const;
    void PutRef(const wchar_t* member, const LateBound& value) const;

    // A member that is an object.
    LateBound Object(const wchar_t* member, std::vector<_variant_t> arguments = {}) const;

    explicit operator bool() const { return m_Object != nullptr; }
    IDispatch* Dispatch() const { return m_Object.Get(); }
    void Release() { m_Object.Reset(); }

private:
    _variant_t Expect(const wchar_t* member, const Outcome& outcome) const;

    ComPtr<IDispatch> m_Object;
};

} // namespace ormisk::test
