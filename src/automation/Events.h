#pragma once

#include "automation/Error.h"

#include <memory>
#include <vector>

namespace ormisk {

class ConnectionPoint;

// The IConnectionPointContainer of an object that raises events. It is a base of that object and lives as long as it;
// its points keep the object alive.
class ConnectionPoints : public IConnectionPointContainer {
public:
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

    // Whether an event raised now would be heard by anyone.
    bool HasListeners() const;

    // Calls every sink of the first source interface; arguments in the order of the declaration. A by-reference
    // argument is a VT_BYREF variant made by the caller. A sink that is disconnected by an earlier one is left out.
    // An exception of a sink is raised as AutomationError when all were called; a member that a sink does not have is
    // no failure. The object stays alive during the call, but nobody else's hold on it is sure afterwards.
    void Fire(DISPID id, VARIANT* arguments = nullptr, UINT count = 0);

    // While suspended, events are dropped. Each true is undone by a false.
    void SuspendEvents(bool suspend);

    // The sinks now connected to a source.
    std::vector<ComPtr<IUnknown>> SinksOf(REFIID source) const;

protected:
    explicit ConnectionPoints(REFIID source);
    ~ConnectionPoints();
    ConnectionPoints(const ConnectionPoints&) = delete;
    ConnectionPoints& operator=(const ConnectionPoints&) = delete;

    // One more interface that sinks can be connected to. Only in the constructor of the object.
    void AddSource(REFIID source);

private:
    ConnectionPoint* Find(REFIID source) const;

    std::vector<std::unique_ptr<ConnectionPoint>> m_Points;
    long m_Suspended = 0;
};

} // namespace ormisk
