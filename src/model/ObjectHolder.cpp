#include "model/ObjectHolder.h"

#include "automation/Value.h"

#include <utility>

namespace ormisk {

namespace {

bool CanHoldObjects(const VARIANT& value) {
    switch (V_VT(&value)) {
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return ObjectOf(value) != nullptr;
    case VT_RECORD:
    case VT_ARRAY | VT_VARIANT:
    case VT_ARRAY | VT_DISPATCH:
    case VT_ARRAY | VT_UNKNOWN:
    case VT_ARRAY | VT_RECORD:
        return true;
    default:
        return false;
    }
}

} // namespace

// Whom letting go calls may change the list: each holder that is in it now is asked once.
void OwnerLink::LetObjectsGo() {
    const Ref<OwnerLink> alive(this);
    std::vector<std::pair<ObjectHolder*, ComPtr<IUnknown>>> holders;
    holders.reserve(m_Holders.size());
    for (ObjectHolder* holder : m_Holders)
        holders.emplace_back(holder, holder->Identity());
    for (const auto& holder : holders)
        holder.first->LetObjectsGo();
}

void ObjectHolder::NowHolds(std::initializer_list<const VARIANT*> values, IUnknown* object) {
    if (!m_Link)
        return;
    const PropertyOwner* owner = m_Link->Get();
    const IUnknown* control = owner ? owner->Control() : nullptr;
    bool any = object != nullptr;
    ULONG references = object && object == control ? 1 : 0;
    for (const VARIANT* value : values) {
        any = any || CanHoldObjects(*value);
        references += control && ObjectOf(*value) == control ? 1 : 0;
    }
    m_Link->m_ControlReferences += references - m_ControlReferences;
    m_ControlReferences = references;
    if (!any || !owner) {
        Unlist();
    } else if (m_Place == 0) {
        m_Link->m_Holders.push_back(this);
        m_Place = static_cast<ULONG>(m_Link->m_Holders.size());
    }
}

void ObjectHolder::Unlist() {
    if (m_Place == 0)
        return;
    m_Link->m_ControlReferences -= std::exchange(m_ControlReferences, 0);
    ObjectHolder* last = m_Link->m_Holders.back();
    last->m_Place = m_Place;
    m_Link->m_Holders[m_Place - 1] = last;
    m_Link->m_Holders.pop_back();
    m_Place = 0;
}

_variant_t ObjectHolder::TakeObjects(_variant_t& value) {
    _variant_t taken;
    if (CanHoldObjects(value)) {
        if (HoldsObject(value)) {
            V_VT(&taken) = VT_DISPATCH;
            V_DISPATCH(&taken) = nullptr;
        }
        std::swap(static_cast<VARIANT&>(taken), static_cast<VARIANT&>(value));
    }
    return taken;
}

} // namespace ormisk
