#include "model/CListItems.h"

#include "automation/EnumVariants.h"
#include "model/CollectionFailure.h"

namespace ormisk {

namespace {

constexpr DISPID kListModified = 1;

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
    return Guarded(__uuidof(_CListItems), [&] {
        CheckPointer(item);
        *item = nullptr;
        *item = AddItem(FromBstr(text), value).Detach();
    });
}

HRESULT CListItems::get_Item(long position, _CListItem** item) {
    return Guarded(__uuidof(_CListItems), [&] {
        CheckPointer(item);
        *item = nullptr;
        *item = ComPtr<CListItem>(At(position)).Detach();
    });
}

HRESULT CListItems::get_Count(long* count) {
    return Guarded(__uuidof(_CListItems), [&] {
        CheckPointer(count);
        *count = CountOf();
    });
}

HRESULT CListItems::Clear() {
    return Guarded(__uuidof(_CListItems), [&] { RemoveAll(); });
}

HRESULT CListItems::Remove(long position) {
    return Guarded(__uuidof(_CListItems), [&] { RemoveAt(position); });
}

HRESULT CListItems::get_NewEnum(IUnknown** enumerator) {
    return Guarded(__uuidof(_CListItems), [&] {
        CheckPointer(enumerator);
        *enumerator = nullptr;
        std::vector<_variant_t> items;
        for (const auto& item : m_Items)
            items.emplace_back(static_cast<IDispatch*>(item.Get()));
        *enumerator = MakeEnumerator(std::move(items)).Detach();
    });
}

} // namespace ormisk
