#include "model/CListItems.h"

#include "automation/EnumVariants.h"
#include "automation/Give.h"
#include "model/CollectionFailure.h"

namespace ormisk {

namespace {

constexpr DISPID kListModified = 1;

template <class F> HRESULT Member(F&& body) { return Guarded(__uuidof(_CListItems), std::forward<F>(body)); }

} // namespace

ComPtr<CListItem> CListItems::AddItem(const std::wstring& text, const VARIANT& value) {
    if (HoldsObject(value))
        Raise(static_cast<HRESULT>(0x800A01A8), L"Object required");
    ComPtr<CListItem> item = MakeObject<CListItem>(text, value, m_Link);
    RaisingFaults([&] { m_Items.Add(item); });
    FireModified();
    return item;
}

CListItem* CListItems::At(long position) const {
    return RaisingFaults([&] { return m_Items.At(position); });
}

void CListItems::RemoveAt(long position) {
    const ComPtr<CListItem> removed = RaisingFaults([&] { return m_Items.RemoveAt(position); });
    FireModified();
}

void CListItems::RemoveAll() { m_Items.TakeAll(); }

void CListItems::FireModified() {
    if (HasListeners())
        Fire(kListModified);
}

HRESULT CListItems::Add(BSTR text, VARIANT value, _CListItem** item) {
    return Member([&] { Give(item, [&] { return AddItem(FromBstr(text), value); }); });
}

HRESULT CListItems::get_Item(long position, _CListItem** item) {
    return Member([&] { Give(item, [&] { return ComPtr<CListItem>(At(position)); }); });
}

HRESULT CListItems::get_Count(long* count) {
    return Member([&] { Give(count, CountOf()); });
}

HRESULT CListItems::Clear() {
    return Member([&] { RemoveAll(); });
}

HRESULT CListItems::Remove(long position) {
    return Member([&] { RemoveAt(position); });
}

HRESULT CListItems::get_NewEnum(IUnknown** enumerator) {
    return Member([&] { Give(enumerator, [&] { return EnumeratorOf(m_Items); }); });
}

} // namespace ormisk
