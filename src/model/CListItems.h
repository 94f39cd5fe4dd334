#pragma once

#include "model/CListItem.h"
#include "model/KeyedCollection.h"

namespace ormisk {

// The entries offered by a list editor, in the order in which they were added. Positions count from 1.
class CListItems : public DispatchObject<_CListItems, ::CListItems, __CListItems> {
public:
    explicit CListItems(const Ref<OwnerLink>& link = {}) : m_Link(link) {}

    // Raises when an entry with this text, in any case, is there already; any number of entries may have no text. An
    // object as value is refused: it can be given to the entry afterwards.
    ComPtr<CListItem> AddItem(const std::wstring& text, const VARIANT& value);
    long CountOf() const { return m_Items.Count(); }
    CListItem* At(long position) const; // raises
    void RemoveAt(long position);       // raises
    void RemoveAll();

    STDMETHODIMP Add(BSTR text, VARIANT value, _CListItem** item) override;
    STDMETHODIMP get_Item(long position, _CListItem** item) override;
    STDMETHODIMP get_Count(long* count) override;
    STDMETHODIMP Clear() override;
    STDMETHODIMP Remove(long position) override;
    STDMETHODIMP get_NewEnum(IUnknown** enumerator) override;

private:
    void FireModified();

    const Ref<OwnerLink> m_Link; // of the control whose property has the list
    KeyedCollection<CListItem, ComPtr<CListItem>, &CListItem::FiledKey> m_Items;
};

} // namespace ormisk
