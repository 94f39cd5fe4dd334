#include "sources/KnownTypes.h"

#include <algorithm>

namespace ormisk {

KnownTypes::Type KnownTypes::Of(IDispatch* object) {
    const TypeInfo info = GetObjectTypeInfo(object);
    const auto known = std::ranges::find_if(m_Types, [&](const Type& type) { return type.info.Get() == info.Get(); });
    if (known != m_Types.end()) {
        m_Types.splice(m_Types.begin(), m_Types, known);
        return m_Types.front();
    }
    Type type{info, nullptr, info.Parent().Lcid()};
    type.members = std::make_shared<const Members>(info.TypeKind() == TKIND_DISPATCH ? info : info.DefaultInterface());
    if (m_Types.size() == kMost)
        m_Types.pop_back();
    return m_Types.emplace_front(std::move(type));
}

} // namespace ormisk
