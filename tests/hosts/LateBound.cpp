#include "LateBound.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ormisk::test {

LateBound::LateBound(IUnknown* object) {
    if (object) {
        EXPECT_EQ(object->QueryInterface(IID_PPV_ARGS(&m_Object)), S_OK);
    }
}

HRESULT LateBound::Try(const wchar_t* member, WORD flags, std::vector<_variant_t> arguments, _variant_t* value) const {
    DISPID id = DISPID_UNKNOWN;
    auto* name = const_cast<LPOLESTR>(member);
    const HRESULT known = m_Object ? m_Object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id)
                                   : static_cast<HRESULT>(E_POINTER);
    if (FAILED(known))
        return known;
    std::reverse(arguments.begin(), arguments.end());
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters = {arguments.data(), puts ? &put : nullptr, static_cast<UINT>(arguments.size()),
                             puts ? 1u : 0u};
    EXCEPINFO raised = {};
    const HRESULT result =
        m_Object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, value, &raised, nullptr);
    for (const BSTR text : {raised.bstrSource, raised.bstrDescription, raised.bstrHelpFile})
        SysFreeString(text);
    return result;
}

_variant_t LateBound::Call(const wchar_t* member, std::vector<_variant_t> arguments) const {
    _variant_t value;
    EXPECT_EQ(Try(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(arguments), &value), S_OK) << member;
    return value;
}

_variant_t LateBound::Get(const wchar_t* member) const { return Call(member); }

void LateBound::Put(const wchar_t* member, const _variant_t& value) const {
    EXPECT_EQ(Try(member, DISPATCH_PROPERTYPUT, {value}), S_OK) << member;
}

LateBound LateBound::Object(const wchar_t* member, std::vector<_variant_t> arguments) const {
    const _variant_t value = Call(member, std::move(arguments));
    return V_VT(&value) == VT_DISPATCH ? LateBound(V_DISPATCH(&value)) : LateBound();
}

} // namespace ormisk::test
