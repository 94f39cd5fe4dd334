#pragma once

#include "automation/Value.h"

#include <optional>
#include <string_view>
#include <vector>

namespace ormisk {

// A call that IDispatch::Invoke refuses before the member runs; thrown. `badArgument` is the place in the caller's
// list.
struct CallFailure {
    HRESULT result;
    UINT badArgument;
};

// The arguments of a late-bound call by the position of their parameter (from 0), given in order, by name or by
// reference, converted to what the parameter wants. What was left out or is missing gives the default. Texts and values
// are borrowed from the call or from this object.
class DispatchArguments {
public:
    // Throws for more arguments than parameters and for a name that is none.
    DispatchArguments(const DISPPARAMS& parameters, UINT parameterCount, LCID locale);

    const VARIANT* Given(UINT parameter) const; // null when left out; references to variables are followed
    std::wstring_view Text(UINT parameter, std::optional<std::wstring_view> otherwise = {});
    long Long(UINT parameter, long otherwise);
    bool Boolean(UINT parameter, bool otherwise);
    ComPtr<IDispatch> Object(UINT parameter);
    // Hands a text back through an argument that refers to a text.
    void PutText(UINT parameter, std::wstring_view text);

private:
    const VARIANT& Converted(UINT parameter, VARTYPE type);
    [[noreturn]] void Refuse(HRESULT result, UINT parameter) const;

    static constexpr UINT kLeftOut = ~0u;

    const DISPPARAMS& m_Parameters;
    LCID m_Locale;
    std::vector<UINT> m_Places; // in the caller's list, by parameter
    std::vector<_variant_t> m_Converted;
};

} // namespace ormisk
