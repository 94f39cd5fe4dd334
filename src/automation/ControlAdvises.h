#pragma once

#include "automation/Error.h"

#include <oleidl.h>

namespace ormisk {

// The advisory connections of a control: any number through IOleObject, one for the view through IViewObject.
class ControlAdvises {
public:
    HRESULT Advise(IAdviseSink* sink, DWORD* cookie);
    HRESULT Unadvise(DWORD cookie);
    HRESULT EnumAdvise(IEnumSTATDATA** connections);
    void TellSaved() const;
    void TellClosed() const;

    HRESULT SetViewAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink);
    HRESULT GetViewAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const;
    void TellViewChanged();

private:
    IOleAdviseHolder* Holder();

    ComPtr<IOleAdviseHolder> m_Holder;
    ComPtr<IAdviseSink> m_ViewSink;
    DWORD m_ViewAspects = 0;
    DWORD m_ViewFlags = 0;
};

} // namespace ormisk
