#include "LateBound.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace ormisk::test {
namespace {

std::wstring Taken(BSTR text) {
    std::wstring taken(text ? text : L"", SysStringLen(text));
    SysFreeString(text);
    return taken;
}

} // namespace

LateBound::LateBound(IUnknown* object) {
    if (object) {
        EXPECT_EQ(object->QueryInterface(IID_PPV_ARGS(&m_Object)), S_OK);
    }
}

Outcome LateBound::Try(const wchar_t* member, WORD flags, std::vector<_variant_t> arguments) const {
    Outcome outcome;
    DISPID id = DISPID_UNKNOWN;
    auto* name = const_cast<LPOLESTR>(member);
    outcome.result = m_Object ? m_Object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id)
                              : static_cast<HRESULT>(E_POINTER);
    if (FAILED(outcome.result))
        return outcome;
    std::reverse(arguments.begin(), arguments.end());
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters = {arguments.data(), puts ? &put : nullptr, static_cast<UINT>(arguments.size()),
                             puts ? 1u : 0u};
    EXCEPINFO raised = {};
    outcome.result = m_Object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                      puts ? nullptr : &outcome.value, &raised, nullptr);
    if (outcome.result == DISP_E_EXCEPTION) {
        if (raised.pfnDeferredFillIn)
            raised.pfnDeferredFillIn(&raised);
        outcome.number = raised.scode;
        outcome.source = Taken(raised.bstrSource);
        outcome.description = Taken(raised.bstrDescription);
        SysFreeString(raised.bstrHelpFile);
    }
    return outcome;
}

_variant_t LateBound::Expect(const wchar_t* member, const Outcome& outcome) const {
    EXPECT_EQ(outcome.result, S_OK) << member << L": " << std::hex << outcome.number << L" " << outcome.description;
    return outcome.value;
}

_variant_t LateBound::Call(const wchar_t* member, std::vector<_variant_t> arguments) const {
    return Expect(member, Try(member, DISPATCH_METHOD, std::move(arguments)));
}

_variant_t LateBound::Get(const wchar_t* member, std::vector<_variant_t> arguments) const {
    return Expect(member, Try(member, DISPATCH_PROPERTYGET, std::move(arguments)));
}

void LateBound::Put(const wchar_t* member, const _variant_t& value) const {
    Expect(member, Try(member, DISPATCH_PROPERTYPUT, {value}));
}

void LateBound::PutRef(const wchar_t* member, const LateBound& value) const {
    Expect(member, Try(member, DISPATCH_PROPERTYPUTREF, {_variant_t(value.Dispatch())}));
}

LateBound LateBound::Object(const wchar_t* member, std::vector<_variant_t> arguments) const {
    const _variant_t value = Expect(member, Try(member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, std::move(arguments)));
    return V_VT(&value) == VT_DISPATCH ? LateBound(V_DISPATCH(&value)) : LateBound();
}

} // namespace ormisk::test
