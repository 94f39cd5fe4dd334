#pragma once

#include "automation/Error.h"
#include "automation/LiveObject.h"

namespace ormisk {

// The parts of a dispatch object that do not depend on its types.

// IDispatch::Invoke through the type library: no stale error information before, a failed method as DISP_E_EXCEPTION
// with its number, source, description and help file afterwards. A member that only takes references takes an object
// that is put without a word about references as well. The instance is held during the call.
HRESULT InvokeMember(ITypeInfo* info, IDispatch* instance, DISPID id, REFIID iid, WORD flags, DISPPARAMS* parameters,
                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument);
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
