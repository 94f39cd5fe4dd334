#pragma once

#include "automation/Error.h"

#include <ocidl.h>
#include <oleidl.h>

namespace ormisk {

// One in-place activation of a control: the host's in-place site, frame and document, and how far it has got. Each step
// calls the host, which may end the session from within; the step then says so.
class InPlaceSession {
public:
    // Where the host wants the control's window.
    struct Place {
        HWND parent = nullptr;
        RECT position{};
        RECT clip{};
    };

    bool IsActive() const { return m_Site.Get() != nullptr; }
    bool IsUiActive() const { return m_UiActive; }
    ComPtr<IOleInPlaceFrame> Frame() const { return m_Frame; } // null when the host has none

    // S_OK when the session stands. A failure leaves none.
    HRESULT Begin(IOleClientSite* site, Place& place);
    // S_OK when the control is the active object of the host's frame; S_FALSE when the host does not want it to be.
    HRESULT BeginUi(IOleInPlaceActiveObject* object, const wchar_t* name);
    void EndUi();
    // Ends the session, so that the window can be taken back. The caller then tells the site that was given back, null
    // when there was no session.
    ComPtr<IOleInPlaceSite> End();

private:
    HRESULT Enter(IOleInPlaceSite* site, Place& place);

    ComPtr<IOleInPlaceSite> m_Site;
    ComPtr<IOleInPlaceFrame> m_Frame;
    ComPtr<IOleInPlaceUIWindow> m_Document;
    bool m_UiActive = false;
};

} // namespace ormisk
