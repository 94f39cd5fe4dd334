#pragma once

#include "automation/ComPtr.h"
#include "model/PropertyOwner.h"
#include "model/Ref.h"

#include <comutil.h>

#include <initializer_list>
#include <vector>

namespace ormisk {

class ObjectHolder;

// What binds the model to its control. The way back: the control cuts it before it goes, however long a host keeps a
// property. And the list of all that holds objects for the control, so that they can be let go at its end: any of them
// may lead back to what holds it.
class OwnerLink : public RefCounted {
public:
    explicit OwnerLink(PropertyOwner* owner) : m_Owner(owner) {}
    PropertyOwner* Get() const { return m_Owner; } // null once cut
    void Cut() { m_Owner = nullptr; }

    // Every holder lets its objects go. That can call the host.
    void LetObjectsGo();
    // How often the control itself is among what is held.
    ULONG ControlReferences() const { return m_ControlReferences; }

private:
    friend class ObjectHolder;

    PropertyOwner* m_Owner;
    std::vector<ObjectHolder*> m_Holders;
    ULONG m_ControlReferences = 0;
};

// A part of the model with values that can be objects. It is listed with its control while it holds any, also when it
// has left the collection and only the host, or an object that it holds, keeps it.
class ObjectHolder {
public:
    ObjectHolder(const ObjectHolder&) = delete;
    ObjectHolder& operator=(const ObjectHolder&) = delete;

    // Of every object; plain values stay. That can call the host.
    virtual void LetObjectsGo() = 0;

protected:
    ObjectHolder() = default;
    ~ObjectHolder() { Unlist(); }

    // Once, before anything is held.
    void BindTo(const Ref<OwnerLink>& link) { m_Link = link; }
    const Ref<OwnerLink>& Link() const { return m_Link; }
    // After each change: all the values, and an object besides.
    void NowHolds(std::initializer_list<const VARIANT*> values, IUnknown* object = nullptr);
    // Before the first member of the holder is destroyed.
    void Unlist();
    // Puts Nothing in place of an object and Empty in place of an array that can have objects in it. What was there
    // comes back, else Empty.
    static _variant_t TakeObjects(_variant_t& value);

    virtual IUnknown* Identity() = 0;

private:
    friend class OwnerLink;

    Ref<OwnerLink> m_Link;
    ULONG m_Place = 0; // in the list, from 1; 0 while unlisted
    ULONG m_ControlReferences = 0;
};

} // namespace ormisk
