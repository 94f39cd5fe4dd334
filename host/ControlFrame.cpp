#include "ControlFrame.h"

namespace ormisk {

void* ControlFrame::Find(REFIID iid) {
    if (IsEqualIID(iid, IID_IOleWindow) || IsEqualIID(iid, IID_IOleInPlaceUIWindow))
        return static_cast<IOleInPlaceFrame*>(this);
    return ComObject::Find(iid);
}

STDMETHODIMP ControlFrame::GetWindow(HWND* window) {
    *window = m_Window;
    return S_OK;
}

STDMETHODIMP ControlFrame::ContextSensitiveHelp(BOOL) { return S_OK; }
STDMETHODIMP ControlFrame::GetBorder(RECT*) { return INPLACE_E_NOTOOLSPACE; }
STDMETHODIMP ControlFrame::RequestBorderSpace(LPCBORDERWIDTHS) { return INPLACE_E_NOTOOLSPACE; }
STDMETHODIMP ControlFrame::SetBorderSpace(LPCBORDERWIDTHS widths) { return widths ? OLE_E_INVALIDRECT : S_OK; }

STDMETHODIMP ControlFrame::SetActiveObject(IOleInPlaceActiveObject* active, LPCOLESTR) {
    m_Active = active;
    return S_OK;
}

STDMETHODIMP ControlFrame::InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) { return E_NOTIMPL; }
STDMETHODIMP ControlFrame::SetMenu(HMENU, HOLEMENU, HWND) { return S_OK; }
STDMETHODIMP ControlFrame::RemoveMenus(HMENU) { return S_OK; }
STDMETHODIMP ControlFrame::SetStatusText(LPCOLESTR) { return S_OK; }
STDMETHODIMP ControlFrame::EnableModeless(BOOL) { return S_OK; }
STDMETHODIMP ControlFrame::TranslateAccelerator(MSG*, WORD) { return S_FALSE; }

} // namespace ormisk
