#pragma once

#include "automation/ComPtr.h"

#include <initializer_list>

namespace ormisk::records {

// The published interfaces have had two identifiers each, of which the later has one more bit; their members are the
// same. An interface of fewer members is the beginning of a later one.
inline bool IsOneOf(REFIID iid, std::initializer_list<unsigned long> numbers) {
    constexpr unsigned long kLater = 0x1000;
    constexpr GUID kFamily = {0, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};
    GUID family = iid;
    family.Data1 = 0;
    if (family != kFamily)
        return false;
    for (const unsigned long number : numbers)
        if ((iid.Data1 & ~kLater) == number)
            return true;
    return false;
}

// Gives the object by such an identifier.
template <class Interface>
HRESULT GiveFormer(Interface* self, REFIID iid, void** object, std::initializer_list<unsigned long> numbers) {
    if (!IsOneOf(iid, numbers))
        return E_NOINTERFACE;
    *object = self;
    self->AddRef();
    return S_OK;
}

} // namespace ormisk::records
