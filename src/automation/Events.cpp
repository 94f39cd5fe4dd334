#include "automation/Events.h"

#include "automation/Give.h"
#include "automation/SnapshotEnumerator.h"
#include "automation/Unknown.h"

#include <algorithm>
#include <optional>

namespace ormisk {

// One source interface of an object: its sinks by cookie. Counted with the object that it belongs to.
class ConnectionPoint final : public IConnectionPoint {
public:
    struct Sink {
        DWORD cookie;
        ComPtr<IUnknown> object;
    };

    ConnectionPoint(ConnectionPoints& owner, REFIID source) : m_Owner(owner), m_Source(source) {}

    const IID& Source() const { return m_Source; }
    const std::vector<Sink>& Sinks() const { return m_Sinks; }
    bool IsConnected(DWORD cookie) const { return Position(cookie) != m_Sinks.end(); }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        return Answer<IConnectionPoint>(this, iid, object);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return m_Owner.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return m_Owner.Release(); }

    STDMETHODIMP GetConnectionInterface(IID* iid) override {
        if (!iid)
            return E_POINTER;
        *iid = m_Source;
        return S_OK;
    }
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override {
        if (!container)
            return E_POINTER;
        *container = &m_Owner;
        m_Owner.AddRef();
        return S_OK;
    }
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override {
        return Guarded(__uuidof(IConnectionPoint), [&]() -> HRESULT {
            if (!sink || !cookie)
                return E_POINTER;
            *cookie = 0;
            ComPtr<IUnknown> object;
            if (FAILED(sink->QueryInterface(m_Source, reinterpret_cast<void**>(object.GetAddressOf()))) || !object)
                return CONNECT_E_CANNOTCONNECT;
            m_Sinks.push_back({++m_LastCookie, std::move(object)});
            *cookie = m_LastCookie;
            return S_OK;
        });
    }
    STDMETHODIMP Unadvise(DWORD cookie) override {
        const auto found = Position(cookie);
        if (found == m_Sinks.end())
            return CONNECT_E_NOCONNECTION;
        // The reference goes only after the list is in order again: letting go can call back.
        const ComPtr<IUnknown> last = found->object;
        m_Sinks.erase(found);
        return S_OK;
    }
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override {
        return Guarded(__uuidof(IConnectionPoint), [&] {
            Give(connections, [&] {
                return SnapshotEnumerator<IEnumConnections, CONNECTDATA, Sink, CopyConnection>::Make(m_Sinks);
            });
        });
    }

private:
    struct CopyConnection {
        static HRESULT Copy(const Sink& from, CONNECTDATA* to) {
            to->dwCookie = from.cookie;
            to->pUnk = from.object.Get();
            to->pUnk->AddRef();
            return S_OK;
        }
        static void Clear(CONNECTDATA* to) { to->pUnk->Release(); }
    };

    std::vector<Sink>::const_iterator Position(DWORD cookie) const {
        return std::find_if(m_Sinks.begin(), m_Sinks.end(), [&](const Sink& sink) { return sink.cookie == cookie; });
    }

    ConnectionPoints& m_Owner;
    const IID m_Source;
    std::vector<Sink> m_Sinks;
    DWORD m_LastCookie = 0;
};

namespace {

// What a sink raised, if it did.
std::optional<AutomationError> CallSink(IUnknown* sink, DISPID id, DISPPARAMS arguments) {
    EXCEPINFO exception{};
    // A sink of a dispatch interface is an IDispatch.
    const HRESULT hr = static_cast<IDispatch*>(sink)->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                                             &arguments, nullptr, &exception, nullptr);
    return hr == DISP_E_EXCEPTION ? std::optional(TakeException(exception)) : std::nullopt;
}

} // namespace

ConnectionPoints::ConnectionPoints(REFIID source) { AddSource(source); }

ConnectionPoints::~ConnectionPoints() = default;

void ConnectionPoints::AddSource(REFIID source) {
    m_Points.push_back(std::make_unique<ConnectionPoint>(*this, source));
}

ConnectionPoint* ConnectionPoints::Find(REFIID source) const {
    const auto found =
        std::find_if(m_Points.begin(), m_Points.end(), [&](const auto& point) { return point->Source() == source; });
    return found == m_Points.end() ? nullptr : found->get();
}

HRESULT ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** points) {
    return Guarded(__uuidof(IConnectionPointContainer), [&] {
        Give(points, [&] {
            std::vector<ComPtr<IConnectionPoint>> snapshot;
            snapshot.reserve(m_Points.size());
            for (const auto& point : m_Points)
                snapshot.emplace_back(point.get());
            return SnapshotEnumerator<IEnumConnectionPoints, IConnectionPoint*, ComPtr<IConnectionPoint>,
                                      CopyReference<IConnectionPoint>>::Make(std::move(snapshot));
        });
    });
}

HRESULT ConnectionPoints::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (!point)
        return E_POINTER;
    *point = Find(iid);
    if (!*point)
        return CONNECT_E_NOCONNECTION;
    (*point)->AddRef();
    return S_OK;
}

bool ConnectionPoints::HasListeners() const { return m_Suspended == 0 && !m_Points.front()->Sinks().empty(); }

void ConnectionPoints::Fire(DISPID id, VARIANT* arguments, UINT count) {
    if (!HasListeners())
        return;
    const ComPtr<IConnectionPointContainer> alive(this);
    const ConnectionPoint& point = *m_Points.front();
    const std::vector<ConnectionPoint::Sink> sinks = point.Sinks();
    std::vector<VARIANT> reversed(std::make_reverse_iterator(arguments + count), std::make_reverse_iterator(arguments));
    std::optional<AutomationError> failure;
    for (const auto& sink : sinks) {
        if (!point.IsConnected(sink.cookie))
            continue;
        auto error = CallSink(sink.object.Get(), id, {reversed.data(), nullptr, count, 0});
        if (error && !failure)
            failure = std::move(error);
    }
    if (failure)
        throw *std::move(failure);
}

void ConnectionPoints::SuspendEvents(bool suspend) {
    if (suspend)
        ++m_Suspended;
    else if (m_Suspended > 0)
        --m_Suspended;
}

std::vector<ComPtr<IUnknown>> ConnectionPoints::SinksOf(REFIID source) const {
    std::vector<ComPtr<IUnknown>> sinks;
    if (const ConnectionPoint* point = Find(source))
        for (const auto& sink : point->Sinks())
            sinks.push_back(sink.object);
    return sinks;
}

} // namespace ormisk
