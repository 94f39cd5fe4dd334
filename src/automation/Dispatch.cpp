#include "automation/Dispatch.h"

#include "automation/Value.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace ormisk {

namespace {

constexpr WORD kGets = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

// Failures of the call itself, which tell of no failure inside the member.
bool IsFailureOfCall(HRESULT hr) { return HRESULT_FACILITY(hr) == FACILITY_DISPATCH && hr != DISP_E_EXCEPTION; }

// The form of the member that a call is for. Languages without an assignment of references put an object where a member
// only takes a reference; their null means no object then. Those that say both put an object by reference if they can.
const MemberForm* FindForm(const DispatchType& type, const MemberCall& call, const DISPPARAMS& parameters) {
    if (call.flags & kGets)
        return type.Find(call.id, call.flags & kGets);
    if (parameters.cArgs == 0)
        return nullptr;
    const VARIANT& value = parameters.rgvarg[0];
    const MemberForm* put = type.Find(call.id, call.flags & DISPATCH_PROPERTYPUT);
    const bool refers = call.flags & DISPATCH_PROPERTYPUTREF || (!put && (HoldsObject(value) || IsNull(value)));
    const MemberForm* reference = refers ? type.Find(call.id, DISPATCH_PROPERTYPUTREF) : nullptr;
    return reference && (!put || HoldsObject(value)) ? reference : put;
}

HRESULT ConvertColor(const VARIANT& given, _variant_t& converted) {
    std::uint32_t color = 0;
    const HRESULT hr = ReadColor(given, color);
    V_VT(&converted) = VT_UI4;
    V_UI4(&converted) = color;
    return hr;
}

// Null counts as no object.
HRESULT ConvertObject(const VARIANT& given, REFIID iid, _variant_t& converted) {
    IUnknown* const object = ObjectOf(given);
    IDispatch* asked = nullptr;
    if (object && FAILED(object->QueryInterface(iid, reinterpret_cast<void**>(&asked))))
        return DISP_E_TYPEMISMATCH; // an object of another kind
    V_VT(&converted) = VT_DISPATCH;
    V_DISPATCH(&converted) = asked;
    return S_OK;
}

// Empty when the type library converts the argument as the rules of automation are.
std::optional<HRESULT> ConvertArgument(const VARIANT& given, const MemberForm::Type& wanted, WORD kind,
                                       _variant_t& converted) {
    if (wanted.type == VT_DISPATCH) {
        const bool none = kind == DISPATCH_PROPERTYPUTREF && IsNull(given);
        const bool named = HoldsObject(given) && wanted.object != GUID_NULL;
        return none || named ? std::optional(ConvertObject(given, wanted.object, converted)) : std::nullopt;
    }
    if (wanted.type == VT_UI4 && !IsMissing(given))
        return ConvertColor(given, converted);
    const bool takesObjects = wanted.type == VT_VARIANT || wanted.type == VT_UNKNOWN || wanted.type & VT_BYREF;
    return HoldsObject(given) && !takesObjects ? std::optional(ResolveDefault(given, converted)) : std::nullopt;
}

// The arguments of a call as the type library gets them.
class Arguments {
public:
    Arguments(const MemberForm& form, const DISPPARAMS& given) : m_Form(form), m_Given(given) {
        m_Values.reserve(given.cArgs);
        m_Owned.reserve(given.cArgs);
    }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;
    ~Arguments() {
        for (std::size_t place = 0; place < m_Values.size(); ++place)
            if (m_Owned[place])
                VariantClear(&m_Values[place]); // the type library may have put another interface of an object there
    }

    HRESULT Convert(UINT* badArgument) {
        if (m_Given.cArgs > m_Form.parameters.size() || m_Given.cNamedArgs > m_Given.cArgs)
            return DISP_E_BADPARAMCOUNT;
        for (UINT place = 0; place < m_Given.cArgs; ++place) {
            const VARIANT& given = m_Given.rgvarg[place];
            const MemberForm::Type* wanted = TypeAt(place);
            _variant_t converted;
            const auto done = wanted ? ConvertArgument(given, *wanted, m_Form.kind, converted) : std::nullopt;
            if (done && FAILED(*done)) {
                if (badArgument)
                    *badArgument = place;
                return *done;
            }
            m_Owned.push_back(done.has_value());
            m_Values.push_back(done ? converted.Detach() : given);
        }
        return S_OK;
    }

    DISPPARAMS Parameters() { return {m_Values.data(), m_Given.rgdispidNamedArgs, m_Given.cArgs, m_Given.cNamedArgs}; }

private:
    // Named arguments come first in the list, the others behind them from the last to the first. Null for a name that
    // is none.
    const MemberForm::Type* TypeAt(UINT place) const {
        auto parameter = static_cast<std::size_t>(m_Given.cArgs - 1 - place);
        if (place < m_Given.cNamedArgs) {
            const DISPID name = m_Given.rgdispidNamedArgs[place];
            parameter = name == DISPID_PROPERTYPUT ? m_Form.parameters.size() - 1 : static_cast<std::size_t>(name);
        }
        return parameter < m_Form.parameters.size() ? &m_Form.parameters[parameter] : nullptr;
    }

    const MemberForm& m_Form;
    const DISPPARAMS& m_Given;
    std::vector<VARIANT> m_Values;
    std::vector<bool> m_Owned; // the others are borrowed from the caller
};

// Scripts know a colour as a signed number of 32 bits, and cannot compare an unsigned one. What a host keeps in a
// Variant stays as it is.
void GiveSigned(const MemberForm& form, VARIANT* result) {
    if (result && form.result.type == VT_UI4 && V_VT(result) == VT_UI4)
        V_VT(result) = VT_I4;
}

// Runs the member. What it fails at comes as DISP_E_EXCEPTION.
HRESULT Run(ITypeInfo* info, IDispatch* instance, const MemberForm& form, DISPPARAMS& parameters,
            const CallOutcome& outcome) {
    SetErrorInfo(0, nullptr);
    EXCEPINFO raised{};
    const HRESULT hr =
        info->Invoke(instance, form.id, form.kind, &parameters, outcome.result, &raised, outcome.badArgument);
    if (SUCCEEDED(hr))
        GiveSigned(form, outcome.result);
    if (SUCCEEDED(hr) || IsFailureOfCall(hr))
        return hr;
    // The type library has taken the error information already, or left it to its caller.
    const bool taken = hr == DISP_E_EXCEPTION && (raised.bstrDescription || raised.bstrSource);
    const HRESULT number = hr == DISP_E_EXCEPTION && FAILED(raised.scode) ? raised.scode : hr;
    return GiveException(taken ? TakeException(raised) : TakeErrorInfo(number), outcome.exception);
}

// Arguments of a property that has no parameters: they go to the default member of its object, whose own may give an
// object again, and that may be the first one.
HRESULT RunDefaultOf(ITypeInfo* info, IDispatch* instance, const MemberForm& form, const MemberCall& call,
                     DISPPARAMS& parameters, const CallOutcome& outcome) {
    thread_local int depth = 0;
    const struct Hop {
        Hop() { ++depth; }
        Hop(const Hop&) = delete;
        Hop& operator=(const Hop&) = delete;
        ~Hop() { --depth; }
    } hop;
    DISPPARAMS none{};
    _variant_t given;
    const HRESULT hr = Run(info, instance, form, none, {&given, outcome.exception, outcome.badArgument});
    if (FAILED(hr))
        return hr;
    const ComPtr<IDispatch> object = DispatchOf(given);
    if (!object || depth > kDeepestDefault)
        return DISP_E_NOTACOLLECTION;
    return object->Invoke(DISPID_VALUE, IID_NULL, call.locale, call.flags, &parameters, outcome.result,
                          outcome.exception, outcome.badArgument);
}

} // namespace

HRESULT GiveException(const AutomationError& error, EXCEPINFO* exception) {
    if (exception) {
        *exception = {};
        exception->scode = error.number;
        exception->bstrSource = SysAllocString(error.source.c_str());
        exception->bstrDescription = SysAllocString(error.description.c_str());
        if (!error.helpFile.empty())
            exception->bstrHelpFile = SysAllocString(error.helpFile.c_str());
    }
    return DISP_E_EXCEPTION;
}

HRESULT InvokeMember(const DispatchType& type, IDispatch* instance, const MemberCall& call, REFIID iid,
                     DISPPARAMS* parameters, const CallOutcome& outcome) {
    if (iid != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (!parameters)
        return E_POINTER;
    const ComPtr<IDispatch> alive(instance);
    const MemberForm* form = FindForm(type, call, *parameters);
    if (!form)
        return DISP_E_MEMBERNOTFOUND;
    if (form->kind == DISPATCH_PROPERTYGET && form->parameters.empty() && parameters->cArgs > 0)
        return RunDefaultOf(type.Info(), instance, *form, call, *parameters, outcome);
    Arguments arguments(*form, *parameters);
    const HRESULT hr = arguments.Convert(outcome.badArgument);
    if (FAILED(hr))
        return hr;
    DISPPARAMS converted = arguments.Parameters();
    return Run(type.Info(), instance, *form, converted, outcome);
}

HRESULT FindMembers(ITypeInfo* info, REFIID iid, wchar_t** names, UINT count, DISPID* ids) {
    if (iid != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    return names && ids ? info->GetIDsOfNames(names, count, ids) : E_POINTER;
}

HRESULT GiveTypeInfo(ITypeInfo* info, UINT index, ITypeInfo** result) {
    if (!result)
        return E_POINTER;
    *result = nullptr;
    if (index != 0)
        return DISP_E_BADINDEX;
    *result = info;
    info->AddRef();
    return S_OK;
}

} // namespace ormisk
