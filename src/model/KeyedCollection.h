#pragma once

#include "model/KeyTable.h"

#include <utility>

namespace ormisk {

// What a collection refuses; thrown.
enum class CollectionFault { BadPosition, UnknownKey, DuplicateKey };

// Items in the order in which they were added, found by 1-based position or by a key without regard to case. Handle is
// the counted or unique pointer that owns an item; KeyOf gives the item's FoldedKey. An item with an empty key is found
// by position only. Removal moves the handles behind the gap; everything else is constant time.
template <class Item, class Handle, auto KeyOf> class KeyedCollection {
public:
    long Count() const { return static_cast<long>(m_Items.size()); }

    // Throws DuplicateKey, with nothing added.
    Item* Add(Handle handle) {
        Item* item = Pointer(handle);
        const FoldedKey key = std::invoke(KeyOf, *item);
        if (!key.text.empty() && m_Table.Find(key))
            throw CollectionFault::DuplicateKey;
        m_Items.push_back(std::move(handle));
        if (!key.text.empty())
            m_Table.Insert(item);
        return item;
    }

    // Null when there is none.
    Item* Find(const FoldedKey& key) const { return key.text.empty() ? nullptr : m_Table.Find(key); }

    // Throws BadPosition.
    Item* At(long position) const { return Pointer(m_Items[Offset(position)]); }
    // Throws UnknownKey.
    Item* Get(const FoldedKey& key) const {
        if (Item* item = Find(key))
            return item;
        throw CollectionFault::UnknownKey;
    }

    // Throws BadPosition. The item is the caller's.
    Handle RemoveAt(long position) {
        const std::size_t offset = Offset(position);
        Handle handle = std::move(m_Items[offset]);
        m_Table.Erase(Pointer(handle));
        m_Items.erase(m_Items.begin() + static_cast<std::ptrdiff_t>(offset));
        return handle;
    }
    // Throws UnknownKey. The item is the caller's.
    Handle Remove(const FoldedKey& key) {
        const Item* item = Get(key);
        long position = 1;
        while (At(position) != item)
            ++position;
        return RemoveAt(position);
    }

    // Empties the collection; the items are the caller's.
    std::vector<Handle> TakeAll() {
        m_Table.Clear();
        return std::exchange(m_Items, {});
    }

    auto begin() const { return m_Items.begin(); }
    auto end() const { return m_Items.end(); }

private:
    static Item* Pointer(const Handle& handle) {
        if constexpr (requires { handle.Get(); })
            return handle.Get();
        else
            return handle.get();
    }
    std::size_t Offset(long position) const {
        if (position < 1 || position > Count())
            throw CollectionFault::BadPosition;
        return static_cast<std::size_t>(position) - 1;
    }

    std::vector<Handle> m_Items;
    KeyTable<Item, KeyOf> m_Table;
};

} // namespace ormisk
