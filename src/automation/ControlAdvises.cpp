#include "automation/ControlAdvises.h"

namespace ormisk {

IOleAdviseHolder* ControlAdvises::Holder() {
    if (!m_Holder)
        Check(CreateOleAdviseHolder(m_Holder.GetAddressOf()));
    return m_Holder.Get();
}

HRESULT ControlAdvises::Advise(IAdviseSink* sink, DWORD* cookie) {
    return sink && cookie ? Holder()->Advise(sink, cookie) : E_POINTER;
}

HRESULT ControlAdvises::Unadvise(DWORD cookie) { return m_Holder ? m_Holder->Unadvise(cookie) : OLE_E_NOCONNECTION; }

HRESULT ControlAdvises::EnumAdvise(IEnumSTATDATA** connections) {
    return connections ? Holder()->EnumAdvise(connections) : E_POINTER;
}

void ControlAdvises::TellSaved() const {
    if (const auto holder = m_Holder)
        holder->SendOnSave();
}

void ControlAdvises::TellClosed() const {
    if (const auto holder = m_Holder)
        holder->SendOnClose();
}

HRESULT ControlAdvises::SetViewAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    const ComPtr<IAdviseSink> old = m_ViewSink;
    m_ViewSink = sink;
    m_ViewAspects = aspects;
    m_ViewFlags = flags;
    if (flags & ADVF_PRIMEFIRST)
        TellViewChanged();
    return S_OK;
}

HRESULT ControlAdvises::GetViewAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const {
    if (aspects)
        *aspects = m_ViewAspects;
    if (flags)
        *flags = m_ViewFlags;
    if (sink)
        m_ViewSink.CopyTo(sink);
    return S_OK;
}

void ControlAdvises::TellViewChanged() {
    if (!(m_ViewAspects & DVASPECT_CONTENT))
        return;
    const ComPtr<IAdviseSink> sink = m_ViewSink;
    if (m_ViewFlags & ADVF_ONLYONCE)
        m_ViewSink.Reset();
    if (sink)
        sink->OnViewChange(DVASPECT_CONTENT, -1);
}

} // namespace ormisk
