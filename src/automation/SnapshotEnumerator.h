#pragma once

#include "automation/Error.h"
#include "automation/Unknown.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace ormisk {

// An IEnumXxx over a snapshot of items. Policy::Copy(const Stored &, Item *) hands an item out, with a reference of the
// receiver's own, and returns an HRESULT; Policy::Clear(Item *) takes back what was handed out before a failure.
template <class Interface, class Item, class Stored, class Policy>
class SnapshotEnumerator final : public Unknown<Interface> {
public:
    using Items = std::shared_ptr<const std::vector<Stored>>;

    explicit SnapshotEnumerator(Items items, size_t next = 0) : m_Items(std::move(items)), m_Next(next) {}

    static ComPtr<Interface> Make(std::vector<Stored> items, size_t next = 0) {
        return Adopt<Interface>(
            new SnapshotEnumerator(std::make_shared<const std::vector<Stored>>(std::move(items)), next));
    }

    STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) override {
        if (fetched)
            *fetched = 0;
        if (!items || (!fetched && count != 1))
            return E_POINTER;
        const ULONG given = static_cast<ULONG>(std::min<size_t>(count, m_Items->size() - m_Next));
        for (ULONG i = 0; i < given; ++i) {
            const HRESULT hr = Policy::Copy((*m_Items)[m_Next + i], &items[i]);
            if (FAILED(hr)) {
                while (i > 0)
                    Policy::Clear(&items[--i]);
                return hr;
            }
        }
        m_Next += given;
        if (fetched)
            *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) override {
        const size_t left = m_Items->size() - m_Next;
        m_Next += std::min<size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override {
        m_Next = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(Interface** copy) override {
        return Guarded(__uuidof(Interface), [&] {
            CheckPointer(copy);
            *copy = nullptr;
            *copy = new SnapshotEnumerator(m_Items, m_Next);
        });
    }

private:
    Items m_Items;
    size_t m_Next;
};

// The policy of interface pointers.
template <class Interface> struct CopyReference {
    static HRESULT Copy(const ComPtr<Interface>& from, Interface** to) {
        *to = from.Get();
        (*to)->AddRef();
        return S_OK;
    }
    static void Clear(Interface** to) { (*to)->Release(); }
};

} // namespace ormisk
