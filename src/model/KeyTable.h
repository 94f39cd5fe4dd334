#pragma once

#include "model/KeyFold.h"

#include <cstddef>
#include <functional>
#include <type_traits>
#include <vector>

namespace ormisk {

// Finds items by a key that they carry themselves, in constant time. The items are not owned. KeyOf is a member that
// gives the item's key: a FoldedKey, or anything else with a hash that compares; the key must not change while the item
// is filed.
template <class Item, auto KeyOf> class KeyTable {
public:
    using Key = std::invoke_result_t<decltype(KeyOf), const Item&>;

    // Null when nothing is filed under the key.
    Item* Find(const Key& key) const {
        if (m_Size == 0)
            return nullptr;
        for (std::size_t i = Home(key.hash); m_Slots[i].item; i = Next(i))
            if (m_Slots[i].hash == key.hash && std::invoke(KeyOf, *m_Slots[i].item) == key)
                return m_Slots[i].item;
        return nullptr;
    }

    // The caller has made sure that the key is free.
    void Insert(Item* item) {
        if ((m_Size + 1) * 4 > m_Slots.size() * 3)
            Grow();
        Place({item, std::invoke(KeyOf, *item).hash});
        ++m_Size;
    }

    // Does nothing when the item is not filed.
    void Erase(const Item* item) {
        if (m_Size == 0)
            return;
        std::size_t i = Home(std::invoke(KeyOf, *item).hash);
        while (m_Slots[i].item != item) {
            if (!m_Slots[i].item)
                return;
            i = Next(i);
        }
        CloseGap(i);
        --m_Size;
    }

    void Clear() {
        m_Slots = {};
        m_Size = 0;
    }

private:
    struct Slot {
        Item* item = nullptr;
        std::uint32_t hash = 0;
    };

    std::size_t Mask() const { return m_Slots.size() - 1; }
    std::size_t Next(std::size_t i) const { return (i + 1) & Mask(); }
    // The upper bits of the product depend on all bits of the hash.
    std::size_t Home(std::uint32_t hash) const { return ((hash * std::uint64_t{0x9E3779B97F4A7C15u}) >> 32) & Mask(); }

    void Place(Slot slot) {
        std::size_t i = Home(slot.hash);
        while (m_Slots[i].item)
            i = Next(i);
        m_Slots[i] = slot;
    }

    void Grow() {
        std::vector<Slot> old(m_Slots.empty() ? 16 : m_Slots.size() * 2);
        old.swap(m_Slots);
        for (const Slot& slot : old)
            if (slot.item)
                Place(slot);
    }

    // Moves back what was pushed on by the slot that falls free, so that every run stays unbroken.
    void CloseGap(std::size_t gap) {
        for (std::size_t i = Next(gap); m_Slots[i].item; i = Next(i)) {
            const std::size_t home = Home(m_Slots[i].hash);
            if (((i - home) & Mask()) >= ((i - gap) & Mask())) {
                m_Slots[gap] = m_Slots[i];
                gap = i;
            }
        }
        m_Slots[gap] = {};
    }

    std::vector<Slot> m_Slots; // a power of two, never full
    std::size_t m_Size = 0;
};

} // namespace ormisk
