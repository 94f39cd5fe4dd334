#pragma once

#include "automation/ComPtr.h"

#include <oaidl.h>

#include <vector>

namespace ormisk {

// A member of an interface, in one of its forms: as a method, or as one of the ways to get or put a property.
struct MemberForm {
    // An enumeration is VT_I4, an alias what it stands for, and an object, whatever its interface, VT_DISPATCH.
    struct Type {
        VARTYPE type = VT_EMPTY;
        IID object = GUID_NULL; // the interface of an object, where it has one of its own
    };

    DISPID id = DISPID_UNKNOWN;
    WORD kind = 0;                // one of the DISPATCH_ flags
    Type result;                  // VT_VOID without one
    std::vector<Type> parameters; // of a put the value is the last
};

// What the type library says of a dual interface and of its members.
class DispatchType {
public:
    explicit DispatchType(ComPtr<ITypeInfo> info);
    ITypeInfo* Info() const { return m_Info.Get(); }
    // The form that is one of these kinds; null when the member has none.
    const MemberForm* Find(DISPID id, WORD kinds) const;

private:
    ComPtr<ITypeInfo> m_Info;
    std::vector<MemberForm> m_Members;
};

} // namespace ormisk
