#pragma once

#include "sources/TypeInformation.h"

#include <list>

namespace ormisk {

// The types that were walked last, with their members: hosts look at one object after the other, mostly of few types.
class KnownTypes {
public:
    struct Type {
        TypeInfo info; // of the object
        std::shared_ptr<const Members> members;
        LCID locale = 0; // of its library
    };
    // The type to walk of an object, without members when it has none.
    Type Of(IDispatch* object);

private:
    static constexpr std::size_t kMost = 16;
    std::list<Type> m_Types; // the latest first
};

} // namespace ormisk
