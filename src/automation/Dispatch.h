#pragma once

#include "automation/DispatchType.h"
#include "automation/Error.h"
#include "automation/LiveObject.h"

namespace ormisk {

// The parts of a dispatch object that do not depend on its types.

// What is called, and how, and where its outcome goes: the arguments of IDispatch::Invoke.
struct MemberCall {
    DISPID id;
    LCID locale;
    WORD flags;
};
struct CallOutcome {
    VARIANT* result;
    EXCEPINFO* exception;
    UINT* badArgument;
};

// IDispatch::Invoke through the type library: no stale error information before, a failed method as DISP_E_EXCEPTION
// with its number, source, description and help file afterwards. The instance is held during the call.
// - A member that only takes references takes an object, and Null for none, that is put without a word about them.
// - A colour comes in any form that a number of 32 bits has, signed or not, and goes out signed.
// - Arguments of a property that has no parameters are for the default member of the object that it gives.
HRESULT InvokeMember(const DispatchType& type, IDispatch* instance, const MemberCall& call, REFIID iid,
                     DISPPARAMS* parameters, const CallOutcome& outcome);
// Hands an error to the caller of IDispatch::Invoke. Returns DISP_E_EXCEPTION.
HRESULT GiveException(const AutomationError& error, EXCEPINFO* exception);
HRESULT FindMembers(ITypeInfo* info, REFIID iid, wchar_t** names, UINT count, DISPID* ids);
HRESULT GiveTypeInfo(ITypeInfo* info, UINT index, ITypeInfo** result);

// The count of an object, which starts at 1 for its maker to adopt.
class ReferenceCount : LiveObject {
public:
    ULONG Add() { return ++m_Count; }
    ULONG Remove() { return --m_Count; }
    // The object goes now: references taken and given back meanwhile cannot end it a second time.
    void HoldForever() { m_Count = kDying; }

private:
    static constexpr ULONG kDying = 0x40000000;
    ULONG m_Count = 1;
};

} // namespace ormisk
