#include "model/CollectionFailure.h"

#include "automation/Error.h"

namespace ormisk {

void Raise(CollectionFault fault) {
    switch (fault) {
    case CollectionFault::BadPosition:
        RaiseBadPosition();
    case CollectionFault::DuplicateKey:
        Raise(static_cast<HRESULT>(0x800A01C9), L"This key is already associated with an element of this collection");
    case CollectionFault::UnknownKey:
        break;
    }
    Raise(static_cast<HRESULT>(0x800A0005), L"Invalid procedure call or argument");
}

} // namespace ormisk
