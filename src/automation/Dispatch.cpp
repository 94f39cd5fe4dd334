#include "automation/Dispatch.h"

#include "automation/Value.h"

namespace ormisk {

namespace {

// Failures of the call itself, which tell of no failure inside the member.
bool IsFailureOfCall(HRESULT hr) { return HRESULT_FACILITY(hr) == FACILITY_DISPATCH && hr != DISP_E_EXCEPTION; }

bool GivesVariant(ITypeInfo* info, DISPID id) {
    FUNCDESC* member = nullptr;
    for (UINT i = 0; SUCCEEDED(info->GetFuncDesc(i, &member)); ++i) {
        const bool found = member->memid == id && !(member->invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF));
        const bool variant = member->elemdescFunc.tdesc.vt == VT_VARIANT;
        info->ReleaseFuncDesc(member);
        if (found) {
            return variant;
        }
    }
    return false;
}

// Scripts know a colour as a signed number of 32 bits, and cannot compare an unsigned one. What a host keeps in a
// Variant stays as it is.
void GiveSigned(ITypeInfo* info, DISPID id, VARIANT* result) {
    if (result && V_VT(result) == VT_UI4 && !GivesVariant(info, id)) {
        V_VT(result) = VT_I4;
    }
}

// A script's small number has 16 bits; a colour takes a negative one only in 32.
HRESULT PutWidened(ITypeInfo* info, IDispatch* instance, DISPID id, const DISPPARAMS& parameters, EXCEPINFO* exception,
                   UINT* badArgument) {
    VARIANT wide;
    V_VT(&wide) = VT_I4;
    V_I4(&wide) = V_I2(&parameters.rgvarg[0]);
    DISPPARAMS widened{&wide, parameters.rgdispidNamedArgs, 1, parameters.cNamedArgs};
    return info->Invoke(instance, id, DISPATCH_PROPERTYPUT, &widened, nullptr, exception, badArgument);
}

// Languages without an assignment of references put an object where a member only takes a reference. Their null means
// no object then. Anything else stays a member that was not found.
HRESULT PutAsReference(ITypeInfo* info, IDispatch* instance, DISPID id, const DISPPARAMS& parameters,
                       EXCEPINFO* exception, UINT* badArgument) {
    const VARIANT& given = parameters.rgvarg[0];
    if (!HoldsObject(given) && V_VT(&given) != VT_NULL) {
        return DISP_E_MEMBERNOTFOUND;
    }
    VARIANT object = given;
    if (V_VT(&given) == VT_NULL) {
        V_VT(&object) = VT_DISPATCH;
        V_DISPATCH(&object) = nullptr;
    }
    DISPPARAMS reference{&object, parameters.rgdispidNamedArgs, 1, parameters.cNamedArgs};
    return info->Invoke(instance, id, DISPATCH_PROPERTYPUTREF, &reference, nullptr, exception, badArgument);
}

} // namespace

HRESULT GiveException(const AutomationError& error, EXCEPINFO* exception) {
    if (exception) {
        *exception = {};
        exception->scode = error.number;
        exception->bstrSource = SysAllocString(error.source.c_str());
        exception->bstrDescription = SysAllocString(error.description.c_str());
        if (!error.helpFile.empty()) {
            exception->bstrHelpFile = SysAllocString(error.helpFile.c_str());
        }
    }
    return DISP_E_EXCEPTION;
}

HRESULT InvokeMember(ITypeInfo* info, IDispatch* instance, DISPID id, REFIID iid, WORD flags, DISPPARAMS* parameters,
                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) {
    if (iid != IID_NULL) {
        return DISP_E_UNKNOWNINTERFACE;
    }
    if (!parameters) {
        return E_POINTER;
    }
    const ComPtr<IDispatch> alive(instance);
    SetErrorInfo(0, nullptr);
    EXCEPINFO raised{};
    HRESULT hr = info->Invoke(instance, id, flags, parameters, result, &raised, badArgument);
    if (hr == DISP_E_MEMBERNOTFOUND && flags == DISPATCH_PROPERTYPUT && parameters->cArgs == 1) {
        hr = PutAsReference(info, instance, id, *parameters, &raised, badArgument);
    } else if (hr == DISP_E_OVERFLOW && flags == DISPATCH_PROPERTYPUT && parameters->cArgs == 1 &&
               V_VT(&parameters->rgvarg[0]) == VT_I2) {
        hr = PutWidened(info, instance, id, *parameters, &raised, badArgument);
    } else if (SUCCEEDED(hr)) {
        GiveSigned(info, id, result);
    }
    // An argument is an object of another kind; what a member fails at comes as an exception.
    if (hr == E_NOINTERFACE) {
        hr = DISP_E_TYPEMISMATCH;
    }
    if (SUCCEEDED(hr) || IsFailureOfCall(hr)) {
        return hr;
    }
    // The type library has taken the error information already, or left it to its caller.
    const bool taken = hr == DISP_E_EXCEPTION && (raised.bstrDescription || raised.bstrSource);
    const HRESULT number = hr == DISP_E_EXCEPTION && FAILED(raised.scode) ? raised.scode : hr;
    return Guarded(iid, [&]() -> HRESULT {
        return GiveException(taken ? TakeException(raised) : TakeErrorInfo(number), exception);
    });
}

HRESULT FindMembers(ITypeInfo* info, REFIID iid, wchar_t** names, UINT count, DISPID* ids) {
    if (iid != IID_NULL) {
        return DISP_E_UNKNOWNINTERFACE;
    }
    return names && ids ? info->GetIDsOfNames(names, count, ids) : E_POINTER;
}

HRESULT GiveTypeInfo(ITypeInfo* info, UINT index, ITypeInfo** result) {
    if (!result) {
        return E_POINTER;
    }
    *result = nullptr;
    if (index != 0) {
        return DISP_E_BADINDEX;
    }
    *result = info;
    info->AddRef();
    return S_OK;
}

} // namespace ormisk
