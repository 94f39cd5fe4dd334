#include "automation/InPlaceSession.h"

#include <utility>

namespace ormisk {

HRESULT InPlaceSession::Begin(IOleClientSite* clientSite, Place& place) {
    const auto site = Query<IOleInPlaceSite>(clientSite);
    if (!site || site->CanInPlaceActivate() != S_OK || IsActive())
        return E_FAIL;
    m_Site = site;
    const auto extended = Query<IOleInPlaceSiteEx>(site);
    BOOL noRedraw = FALSE;
    HRESULT hr = extended ? extended->OnInPlaceActivateEx(&noRedraw, 0) : site->OnInPlaceActivate();
    if (SUCCEEDED(hr))
        hr = Enter(site.Get(), place);
    else if (m_Site.Get() == site.Get())
        m_Site.Reset(); // never begun in the host's eyes
    return hr;
}

HRESULT InPlaceSession::Enter(IOleInPlaceSite* site, Place& place) {
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    HRESULT hr = site->GetWindow(&place.parent);
    if (SUCCEEDED(hr))
        hr = site->GetWindowContext(frame.GetAddressOf(), document.GetAddressOf(), &place.position, &place.clip, &info);
    if (m_Site.Get() != site)
        return E_FAIL;
    if (FAILED(hr) || !IsWindow(place.parent)) {
        End();
        site->OnInPlaceDeactivate();
        return FAILED(hr) ? hr : E_FAIL;
    }
    m_Frame = std::move(frame);
    m_Document = std::move(document);
    return S_OK;
}

HRESULT InPlaceSession::BeginUi(IOleInPlaceActiveObject* object, const wchar_t* name) {
    const auto site = m_Site;
    if (!site || m_UiActive)
        return site ? S_OK : E_FAIL;
    const auto stands = [&] { return m_Site.Get() == site.Get() && m_UiActive; };
    m_UiActive = true;
    const auto extended = Query<IOleInPlaceSiteEx>(site);
    if (extended && extended->RequestUIActivate() == S_FALSE) {
        m_UiActive = false;
        extended->OnUIDeactivate(FALSE);
        return S_FALSE;
    }
    const HRESULT hr = site->OnUIActivate();
    if (FAILED(hr)) {
        if (stands())
            m_UiActive = false;
        return hr;
    }
    const auto frame = m_Frame;
    const auto document = m_Document;
    if (stands() && frame)
        frame->SetActiveObject(object, name);
    if (stands() && document)
        document->SetActiveObject(object, name);
    if (stands() && frame)
        frame->SetBorderSpace(nullptr); // the control has no tools of its own for the frame's border
    return stands() ? S_OK : S_FALSE;
}

void InPlaceSession::EndUi() {
    if (!std::exchange(m_UiActive, false))
        return;
    const auto site = m_Site;
    const auto frame = m_Frame;
    const auto document = m_Document;
    if (frame)
        frame->SetActiveObject(nullptr, nullptr);
    if (document)
        document->SetActiveObject(nullptr, nullptr);
    if (site)
        site->OnUIDeactivate(FALSE);
}

ComPtr<IOleInPlaceSite> InPlaceSession::End() {
    m_UiActive = false;
    const auto frame = std::exchange(m_Frame, nullptr);
    const auto document = std::exchange(m_Document, nullptr);
    return std::exchange(m_Site, nullptr);
}

} // namespace ormisk
