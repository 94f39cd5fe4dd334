#include "ControlSite.h"

#include "Failure.h"

#include <ole2.h>
#include <olectl.h>

#include <string>

namespace ormisk {
namespace {

constexpr int kHimetricPerInch = 2540;

// The font that a container offers to its controls.
ComPtr<IDispatch> MakeAmbientFont() {
    wchar_t name[] = L"MS Sans Serif";
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name;
    description.cySize.int64 = 80000; // 8 points
    description.sWeight = FW_NORMAL;
    description.sCharset = ANSI_CHARSET;
    ComPtr<IDispatch> font;
    Check(OleCreateFontIndirect(&description, IID_IDispatch, reinterpret_cast<void**>(font.GetAddressOf())),
          L"The ambient font cannot be created");
    return font;
}

SIZE PixelsPerInch() {
    const HDC screen = GetDC(nullptr);
    const SIZE density = {GetDeviceCaps(screen, LOGPIXELSX), GetDeviceCaps(screen, LOGPIXELSY)};
    ReleaseDC(nullptr, screen);
    return density;
}

// A new control learns that there is no stored state for it.
void InitNew(IUnknown* control) {
    ComPtr<IPersistStreamInit> stream;
    ComPtr<IPersistPropertyBag> bag;
    HRESULT result = S_OK;
    if (SUCCEEDED(control->QueryInterface(IID_PPV_ARGS(&stream))))
        result = stream->InitNew();
    else if (SUCCEEDED(control->QueryInterface(IID_PPV_ARGS(&bag))))
        result = bag->InitNew();
    if (result != E_NOTIMPL)
        Check(result, L"The control cannot be initialised");
}

} // namespace

ControlSite::ControlSite(HostWindow& window)
    : m_Window(window), m_Frame(MakeCom<ControlFrame>(window.Handle())), m_Font(MakeAmbientFont()) {}

void ControlSite::Load(const wchar_t* progId) {
    CLSID classId;
    const std::wstring trouble =
        L"The control " + std::wstring(progId) + L" cannot be created; it may not be registered";
    Check(CLSIDFromProgID(progId, &classId), trouble.c_str());
    Check(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&m_Control)), trouble.c_str());
    Check(m_Control.As(&m_Object), L"The class is not a control");

    DWORD status = 0;
    m_Object->GetMiscStatus(DVASPECT_CONTENT, &status);
    const bool siteFirst = (status & OLEMISC_SETCLIENTSITEFIRST) != 0;
    if (siteFirst)
        Check(m_Object->SetClientSite(this), L"The control refuses its site");
    InitNew(m_Control.Get());
    const RECT client = m_Window.ClientRect();
    const SIZE density = PixelsPerInch();
    SIZEL extent = {MulDiv(client.right, kHimetricPerInch, density.cx),
                    MulDiv(client.bottom, kHimetricPerInch, density.cy)};
    m_Object->SetExtent(DVASPECT_CONTENT, &extent);
    if (!siteFirst)
        Check(m_Object->SetClientSite(this), L"The control refuses its site");
    Activate(OLEIVERB_INPLACEACTIVATE);
}

void ControlSite::Unload() {
    // The site stands until the control has let go of it.
    const ComPtr<ControlSite> alive(this);
    if (m_Object) {
        ComPtr<IOleInPlaceObject> inPlace;
        if (SUCCEEDED(m_Object.As(&inPlace)))
            inPlace->InPlaceDeactivate();
        m_Object->Close(OLECLOSE_NOSAVE);
        m_Object->SetClientSite(nullptr);
    }
    m_Frame->SetActiveObject(nullptr, nullptr);
    m_Object.Reset();
    m_Control.Reset();
}

HWND ControlSite::ControlWindow() const {
    ComPtr<IOleInPlaceObject> inPlace;
    HWND window = nullptr;
    if (m_Object && SUCCEEDED(m_Object.As(&inPlace)) && FAILED(inPlace->GetWindow(&window)))
        window = nullptr;
    return window;
}

void ControlSite::Activate(LONG verb) {
    const RECT client = m_Window.ClientRect();
    Check(m_Object->DoVerb(verb, nullptr, this, 0, m_Window.Handle(), &client), L"The control cannot be activated");
}

bool ControlSite::IsOfControl(HWND window) const {
    const HWND control = ControlWindow();
    return control && window && (window == control || IsChild(control, window));
}

bool ControlSite::TranslateKey(MSG& message) {
    if (!m_Object || message.message < WM_KEYFIRST || message.message > WM_KEYLAST)
        return false;
    if (message.hwnd != m_Window.Handle() && !IsChild(m_Window.Handle(), message.hwnd))
        return false;
    const ComPtr<IOleInPlaceActiveObject> active(m_Frame->Active());
    if (active && active->TranslateAccelerator(&message) == S_OK)
        return true;
    // Behind its end the control is the next one again.
    if (message.message == WM_KEYDOWN && message.wParam == VK_TAB) {
        const RECT client = m_Window.ClientRect();
        return SUCCEEDED(m_Object->DoVerb(OLEIVERB_UIACTIVATE, &message, this, 0, m_Window.Handle(), &client));
    }
    if (!IsAccessKey(message))
        return false;
    ComPtr<IOleControl> control;
    return SUCCEEDED(m_Control.As(&control)) && SUCCEEDED(control->OnMnemonic(&message));
}

bool ControlSite::IsAccessKey(MSG& message) const {
    if (message.message != WM_SYSKEYDOWN && message.message != WM_SYSCHAR)
        return false;
    ComPtr<IOleControl> control;
    CONTROLINFO info = {};
    info.cb = sizeof info;
    if (FAILED(m_Control.As(&control)) || FAILED(control->GetControlInfo(&info)) || !info.hAccel || info.cAccel == 0)
        return false;
    return IsAccelerator(info.hAccel, info.cAccel, &message, nullptr) != FALSE;
}

void ControlSite::FollowWindowSize() {
    ComPtr<IOleInPlaceObject> inPlace;
    if (!m_Object || FAILED(m_Object.As(&inPlace)))
        return;
    const RECT client = m_Window.ClientRect();
    inPlace->SetObjectRects(&client, &client);
}

void ControlSite::FollowActivation(bool active) {
    if (!active && IsOfControl(GetFocus()))
        m_LastFocus = GetFocus();
    const ComPtr<IOleInPlaceActiveObject> object(m_Frame->Active());
    if (object) {
        object->OnFrameWindowActivate(active);
        object->OnDocWindowActivate(active);
    }
}

void ControlSite::TakeFocus() {
    if (!m_Object)
        return;
    if (!m_Frame->Active())
        Activate(OLEIVERB_UIACTIVATE);
    const HWND last = std::exchange(m_LastFocus, nullptr);
    if (IsOfControl(last) && IsWindowVisible(last) && IsWindowEnabled(last))
        SetFocus(last);
    else if (!IsOfControl(GetFocus()))
        SetFocus(ControlWindow());
}

void* ControlSite::Find(REFIID iid) {
    if (IsEqualIID(iid, IID_IOleWindow) || IsEqualIID(iid, IID_IOleInPlaceSite))
        return static_cast<IOleInPlaceSite*>(this);
    return ComObject::Find(iid);
}

// IOleClientSite. Nothing is stored and there are no neighbours.

STDMETHODIMP ControlSite::SaveObject() { return E_FAIL; }

STDMETHODIMP ControlSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    *moniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::GetContainer(IOleContainer** container) {
    *container = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP ControlSite::ShowObject() { return S_OK; }
STDMETHODIMP ControlSite::OnShowWindow(BOOL) { return S_OK; }
STDMETHODIMP ControlSite::RequestNewObjectLayout() { return E_NOTIMPL; }

// IOleInPlaceSiteEx.

STDMETHODIMP ControlSite::GetWindow(HWND* window) {
    *window = m_Window.Handle();
    return S_OK;
}

STDMETHODIMP ControlSite::ContextSensitiveHelp(BOOL) { return S_OK; }
STDMETHODIMP ControlSite::CanInPlaceActivate() { return S_OK; }
STDMETHODIMP ControlSite::OnInPlaceActivate() { return S_OK; }
STDMETHODIMP ControlSite::OnUIActivate() { return S_OK; }

STDMETHODIMP ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* position,
                                           RECT* clip, OLEINPLACEFRAMEINFO* info) {
    *document = nullptr;
    *position = *clip = m_Window.ClientRect();
    info->fMDIApp = FALSE;
    info->hwndFrame = m_Window.Handle();
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return m_Frame.CopyTo(frame);
}

STDMETHODIMP ControlSite::Scroll(SIZE) { return S_FALSE; }
STDMETHODIMP ControlSite::OnUIDeactivate(BOOL) { return m_Frame->SetActiveObject(nullptr, nullptr); }
STDMETHODIMP ControlSite::OnInPlaceDeactivate() { return S_OK; }
STDMETHODIMP ControlSite::DiscardUndoState() { return S_OK; }
STDMETHODIMP ControlSite::DeactivateAndUndo() { return E_NOTIMPL; }

STDMETHODIMP ControlSite::OnPosRectChange(LPCRECT position) {
    m_Window.ResizeClient(position->right - position->left, position->bottom - position->top);
    return S_OK;
}

STDMETHODIMP ControlSite::OnInPlaceActivateEx(BOOL* noRedraw, DWORD) {
    if (noRedraw)
        *noRedraw = FALSE;
    return S_OK;
}

STDMETHODIMP ControlSite::OnInPlaceDeactivateEx(BOOL) { return S_OK; }
STDMETHODIMP ControlSite::RequestUIActivate() { return S_OK; }

// IOleControlSite.

STDMETHODIMP ControlSite::OnControlInfoChanged() { return S_OK; } // the access keys are asked for at each key
STDMETHODIMP ControlSite::LockInPlaceActive(BOOL) { return S_OK; }

STDMETHODIMP ControlSite::GetExtendedControl(IDispatch** extended) {
    *extended = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::TransformCoords(POINTL* himetric, POINTF* pixels, DWORD flags) {
    const SIZE density = PixelsPerInch();
    if (flags & XFORMCOORDS_HIMETRICTOCONTAINER) {
        pixels->x = static_cast<float>(MulDiv(himetric->x, density.cx, kHimetricPerInch));
        pixels->y = static_cast<float>(MulDiv(himetric->y, density.cy, kHimetricPerInch));
    } else if (flags & XFORMCOORDS_CONTAINERTOHIMETRIC) {
        himetric->x = MulDiv(static_cast<int>(pixels->x), kHimetricPerInch, density.cx);
        himetric->y = MulDiv(static_cast<int>(pixels->y), kHimetricPerInch, density.cy);
    } else {
        return E_INVALIDARG;
    }
    return S_OK;
}

STDMETHODIMP ControlSite::TranslateAccelerator(MSG*, DWORD) { return S_FALSE; }
STDMETHODIMP ControlSite::OnFocus(BOOL) { return S_OK; }
STDMETHODIMP ControlSite::ShowPropertyFrame() { return E_NOTIMPL; }

STDMETHODIMP ControlSite::QueryService(REFGUID, REFIID, void** result) {
    *result = nullptr;
    return E_NOINTERFACE;
}

} // namespace ormisk
