#include "model/CListItem.h"

#include "automation/Give.h"
#include "model/ValueRules.h"

namespace ormisk {

CListItem::CListItem(std::wstring text, const VARIANT& value, const Ref<OwnerLink>& link)
    : m_Text(std::move(text)), m_Value(Plain(value)) {
    BindTo(link);
    NowHolds({&m_Value});
}

void CListItem::LetObjectsGo() {
    const _variant_t gone = TakeObjects(m_Value);
    NowHolds({&m_Value});
}

HRESULT CListItem::get_Value(VARIANT* value) {
    return Guarded(__uuidof(_CListItem), [&] { Give(value, m_Value); });
}

HRESULT CListItem::put_Value(VARIANT value) {
    return Guarded(__uuidof(_CListItem), [&] {
        _variant_t exchanged = Plain(value); // what was held goes last: that can call the host
        SwapValues(m_Value, exchanged);
        NowHolds({&m_Value});
    });
}

HRESULT CListItem::get_Text(BSTR* text) {
    return Guarded(__uuidof(_CListItem), [&] { Give(text, m_Text); });
}

HRESULT CListItem::put_Text(BSTR text) {
    return Guarded(__uuidof(_CListItem), [&] {
        if (!m_Key)
            m_Key = std::make_unique<const std::wstring>(m_Text);
        m_Text = FromBstr(text);
    });
}

} // namespace ormisk
