#include "ControlSite.h"

#include "Failure.h"
#include "Form.h"

#include <ole2.h>
#include <olectl.h>

#include <algorithm>
#include <string>
#include <utility>

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

// A control gets its stored state, or learns that there is none for it. One without bags has none.
void Initialize(IUnknown* control, SettingsBag* stored) {
    ComPtr<IPersistStreamInit> stream;
    ComPtr<IPersistPropertyBag> bag;
    HRESULT result = S_OK;
    if (stored && SUCCEEDED(control->QueryInterface(IID_PPV_ARGS(&bag)))) {
        Check(bag->Load(stored, stored), L"The control refuses its settings");
        return;
    }
    if (SUCCEEDED(control->QueryInterface(IID_PPV_ARGS(&stream))))
        result = stream->InitNew();
    else if (SUCCEEDED(control->QueryInterface(IID_PPV_ARGS(&bag))))
        result = bag->InitNew();
    if (result != E_NOTIMPL)
        Check(result, L"The control cannot be initialised");
}

} // namespace

ControlSite::ControlSite(Form& form, std::wstring name, std::optional<RECT> place)
    : m_Form(form), m_Extended(MakeCom<ExtendedControl>(*this)), m_Font(MakeAmbientFont()), m_Name(std::move(name)),
      m_Place(place.value_or(RECT{})), m_Fills(!place) {}

void ControlSite::Load(const std::wstring& progId, SettingsBag* stored) {
    const ComPtr<ControlSite> alive(this);
    CLSID classId;
    Loaded loaded;
    const std::wstring trouble = L"The control " + progId + L" cannot be created; it may not be registered";
    Check(CLSIDFromProgID(progId.c_str(), &classId), trouble.c_str());
    Check(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&loaded.control)), trouble.c_str());
    Check(loaded.control.As(&loaded.object), L"The class is not a control");

    const bool focused = IsOfControl(GetFocus());
    const Loaded before = std::exchange(m_Loaded, loaded);
    try {
        BringUp(stored);
    } catch (...) {
        m_Loaded = before;
        Close(loaded.object.Get());
        throw;
    }
    m_Events.reset();
    m_ProgId = progId;
    if (!m_ToolTip.empty())
        m_Form.SetToolTip(*this, m_ToolTip);
    Close(before.object.Get());
    if (focused)
        Activate(OLEIVERB_UIACTIVATE, nullptr);
}

void ControlSite::BringUp(SettingsBag* stored) {
    const ComPtr<IOleObject> object = m_Loaded.object;
    DWORD status = 0;
    object->GetMiscStatus(DVASPECT_CONTENT, &status);
    const bool siteFirst = (status & OLEMISC_SETCLIENTSITEFIRST) != 0;
    if (siteFirst)
        Check(object->SetClientSite(this), L"The control refuses its site");
    Initialize(m_Loaded.control.Get(), stored);
    const SIZE density = PixelsPerInch();
    SIZEL extent = {MulDiv(m_Place.right - m_Place.left, kHimetricPerInch, density.cx),
                    MulDiv(m_Place.bottom - m_Place.top, kHimetricPerInch, density.cy)};
    object->SetExtent(DVASPECT_CONTENT, &extent);
    if (!siteFirst)
        Check(object->SetClientSite(this), L"The control refuses its site");
    Check(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, m_Form.Window().Handle(), &m_Place),
          L"The control cannot be activated");
    if (!m_Visible)
        object->DoVerb(OLEIVERB_HIDE, nullptr, this, 0, m_Form.Window().Handle(), &m_Place);
}

void ControlSite::Close(IOleObject* object) {
    ComPtr<IOleInPlaceObject> inPlace;
    if (!object)
        return;
    if (SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&inPlace))))
        inPlace->InPlaceDeactivate();
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
}

// The site stands until the control has let go of it.
void ControlSite::Unload() {
    const ComPtr<ControlSite> alive(this);
    m_Events.reset();
    Close(m_Loaded.object.Get());
    m_Extended->CutOff();
    m_Loaded = {};
}

HWND ControlSite::ControlWindow() const {
    ComPtr<IOleInPlaceObject> inPlace;
    HWND window = nullptr;
    if (m_Loaded.object && SUCCEEDED(m_Loaded.object.As(&inPlace)) && FAILED(inPlace->GetWindow(&window)))
        window = nullptr;
    return window;
}

bool ControlSite::Activate(LONG verb, MSG* cause) {
    const ComPtr<ControlSite> alive(this);
    return m_Loaded.object &&
           SUCCEEDED(m_Loaded.object->DoVerb(verb, cause, this, 0, m_Form.Window().Handle(), &m_Place));
}

void ControlSite::DeactivateUi() {
    ComPtr<IOleInPlaceObject> inPlace;
    if (m_Loaded.object && SUCCEEDED(m_Loaded.object.As(&inPlace)))
        inPlace->UIDeactivate();
}

ComPtr<IDispatch> ControlSite::Automation() const {
    ComPtr<IDispatch> automation;
    if (m_Loaded.control)
        m_Loaded.control.As(&automation);
    return automation;
}

bool ControlSite::IsOfControl(HWND window) const {
    const HWND control = ControlWindow();
    return control && window && (window == control || IsChild(control, window));
}

bool ControlSite::TranslateAccessKey(MSG& message) {
    ComPtr<IOleControl> control;
    return m_Loaded.control && IsAccessKey(message) && SUCCEEDED(m_Loaded.control.As(&control)) &&
           SUCCEEDED(control->OnMnemonic(&message));
}

bool ControlSite::IsAccessKey(MSG& message) const {
    if (message.message != WM_SYSKEYDOWN && message.message != WM_SYSCHAR)
        return false;
    ComPtr<IOleControl> control;
    CONTROLINFO info = {};
    info.cb = sizeof info;
    if (FAILED(m_Loaded.control.As(&control)) || FAILED(control->GetControlInfo(&info)) || !info.hAccel ||
        info.cAccel == 0)
        return false;
    return IsAccelerator(info.hAccel, info.cAccel, &message, nullptr) != FALSE;
}

void ControlSite::MoveTo(const RECT& place) {
    if (m_Align == Align::None && !EqualRect(&place, &m_Place))
        m_Fills = false;
    m_Place = place;
    m_Form.Layout();
}

void ControlSite::SetFills(bool fills) {
    m_Fills = fills;
    m_Form.Layout();
}

void ControlSite::TakeEdge(RECT& rest) {
    const LONG width = std::min(m_Place.right - m_Place.left, rest.right - rest.left);
    const LONG height = std::min(m_Place.bottom - m_Place.top, rest.bottom - rest.top);
    m_Place = rest;
    switch (m_Align) {
    case Align::Top:
        rest.top = m_Place.bottom = m_Place.top + height;
        break;
    case Align::Bottom:
        rest.bottom = m_Place.top = m_Place.bottom - height;
        break;
    case Align::Left:
        rest.left = m_Place.right = m_Place.left + width;
        break;
    default:
        rest.right = m_Place.left = m_Place.right - width;
        break;
    }
}

void ControlSite::Place(const RECT& rest) {
    if (m_Fills && m_Align == Align::None)
        m_Place = rest;
    ComPtr<IOleInPlaceObject> inPlace;
    if (m_Loaded.object && SUCCEEDED(m_Loaded.object.As(&inPlace)))
        inPlace->SetObjectRects(&m_Place, &m_Place);
}

void ControlSite::Show(bool visible) {
    if (m_Visible == visible)
        return;
    m_Visible = visible;
    m_Form.Layout();
    Activate(visible ? OLEIVERB_INPLACEACTIVATE : OLEIVERB_HIDE, nullptr);
}

IDispatch* ControlSite::Parent() const { return m_Form.Parent(); }

long ControlSite::TabIndex() const { return m_Form.TabIndexOf(*this); }

void ControlSite::SetTabIndex(long index) { m_Form.MoveTo(*this, index); }

void ControlSite::SetAlignment(long align) {
    if (align < static_cast<long>(Align::None) || align > static_cast<long>(Align::Right))
        throw Failure{L"An alignment is from 0 to 4"};
    m_Align = static_cast<Align>(align);
    m_Form.Layout();
}

void ControlSite::SetToolTip(const std::wstring& text) {
    m_ToolTip = text;
    m_Form.SetToolTip(*this, text);
}

void* ControlSite::Find(REFIID iid) {
    if (IsEqualIID(iid, IID_IOleWindow) || IsEqualIID(iid, IID_IOleInPlaceSite))
        return static_cast<IOleInPlaceSite*>(this);
    return ComObject::Find(iid);
}

// IOleClientSite. Nothing is stored.

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
    *window = m_Form.Window().Handle();
    return S_OK;
}

STDMETHODIMP ControlSite::ContextSensitiveHelp(BOOL) { return S_OK; }
STDMETHODIMP ControlSite::CanInPlaceActivate() { return S_OK; }
STDMETHODIMP ControlSite::OnInPlaceActivate() { return S_OK; }
STDMETHODIMP ControlSite::OnUIActivate() {
    m_Form.UiActivated(*this);
    return S_OK;
}

STDMETHODIMP ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* position,
                                           RECT* clip, OLEINPLACEFRAMEINFO* info) {
    *document = nullptr;
    *position = *clip = m_Place;
    info->fMDIApp = FALSE;
    info->hwndFrame = m_Form.Window().Handle();
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return m_Form.Frame().QueryInterface(IID_PPV_ARGS(frame));
}

STDMETHODIMP ControlSite::Scroll(SIZE) { return S_FALSE; }
STDMETHODIMP ControlSite::OnUIDeactivate(BOOL) { return S_OK; } // who is active next says so to the frame
STDMETHODIMP ControlSite::OnInPlaceDeactivate() { return S_OK; }
STDMETHODIMP ControlSite::DiscardUndoState() { return S_OK; }
STDMETHODIMP ControlSite::DeactivateAndUndo() { return E_NOTIMPL; }

STDMETHODIMP ControlSite::OnPosRectChange(LPCRECT position) {
    // One that fills the window takes the window along.
    if (m_Fills && m_Align == Align::None) {
        HostWindow& window = m_Form.Window();
        const RECT client = window.ClientRect();
        window.ResizeClient(client.right + position->right - position->left - (m_Place.right - m_Place.left),
                            client.bottom + position->bottom - position->top - (m_Place.bottom - m_Place.top));
    } else {
        MoveTo(*position);
    }
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
    return m_Extended->QueryInterface(IID_PPV_ARGS(extended));
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
