// The in-place side of a control: verbs, activation, place, keys, focus.

#include "automation/ControlCore.h"

#include <algorithm>
#include <vector>

namespace ormisk {

namespace {

wchar_t UpperCase(wchar_t character) {
    // The form of CharUpper for a single character, which is passed and given back in place of a pointer.
    return static_cast<wchar_t>(
        reinterpret_cast<ULONG_PTR>(CharUpperW(reinterpret_cast<LPWSTR>(ULONG_PTR{character}))));
}

// The character of a key message in upper case, 0 for any other message.
wchar_t CharacterOf(const MSG& message) {
    switch (message.message) {
    case WM_CHAR:
    case WM_SYSCHAR:
        return UpperCase(static_cast<wchar_t>(message.wParam));
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return UpperCase(static_cast<wchar_t>(MapVirtualKeyW(static_cast<UINT>(message.wParam), MAPVK_VK_TO_CHAR)));
    default:
        return 0;
    }
}

// ALT and a key of the keyboard where there is one for the character, else ALT and the character.
ACCEL AcceleratorOf(wchar_t character, WORD command) {
    const SHORT key = VkKeyScanW(character);
    const bool plain = key != -1 && (HIBYTE(key) & ~1) == 0;
    if (plain)
        return {FALT | FVIRTKEY, static_cast<WORD>(LOBYTE(key)), command};
    return {FALT, static_cast<WORD>(character), command};
}

} // namespace

HRESULT ControlCore::DoVerb(LONG verb, LPMSG cause, IOleClientSite*, LONG, HWND, LPCRECT) {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IOleObject), [&]() -> HRESULT {
        switch (verb) {
        case OLEIVERB_PRIMARY:
        case OLEIVERB_UIACTIVATE:
            return ActivateUi(cause);
        case OLEIVERB_SHOW:
        case OLEIVERB_OPEN: // there is no window of the control's own to open
        case OLEIVERB_INPLACEACTIVATE:
            return ActivateInPlace();
        case OLEIVERB_HIDE:
            m_Session.EndUi();
            ShowWindow(Window(), SW_HIDE);
            return S_OK;
        case OLEIVERB_DISCARDUNDOSTATE:
            return S_OK; // there is none
        default:
            break;
        }
        if (verb < 0)
            return E_NOTIMPL;
        const HRESULT hr = ActivateUi(cause);
        return hr == S_OK ? OLEOBJ_S_INVALIDVERB : hr;
    });
}

HRESULT ControlCore::ActivateInPlace() {
    if (!m_Site.IsSited())
        return OLEOBJ_S_CANNOT_DOVERB_NOW;
    if (!Window())
        return OLEOBJ_S_CANNOT_DOVERB_NOW;
    if (!m_Session.IsActive()) {
        InPlaceSession::Place place;
        const HRESULT hr = m_Session.Begin(m_Site.Get(), place);
        if (FAILED(hr))
            return hr;
        if (!m_Placing.Unpark(Window(), place.parent)) {
            Deactivate();
            return E_FAIL;
        }
        Place(place.position, &place.clip);
        ShowWindow(Window(), SW_SHOWNA);
        m_Site.AskToShow();
    } else {
        ShowWindow(Window(), SW_SHOWNA);
    }
    return m_Session.IsActive() ? S_OK : E_FAIL;
}

HRESULT ControlCore::ActivateUi(const MSG* cause) {
    HRESULT hr = ActivateInPlace();
    if (hr != S_OK)
        return hr;
    hr = m_Session.BeginUi(this, UserTypeName(USERCLASSTYPE_SHORT).c_str());
    if (hr == S_OK && Window() && !HasFocusWithin(Window()))
        SetFocus(Window());
    if (hr == S_OK && cause && cause->message == WM_KEYDOWN && cause->wParam == VK_TAB)
        OnTabbedInto(GetKeyState(VK_SHIFT) < 0);
    return FAILED(hr) ? hr : S_OK;
}

void ControlCore::Deactivate() {
    m_Session.EndUi();
    if (const auto site = m_Session.End()) {
        m_Placing.Park(Window());
        site->OnInPlaceDeactivate();
    }
}

void ControlCore::Place(const RECT& position, const RECT* clip) {
    if (m_Placing.Move(Window(), position, clip)) {
        const SIZE size = SizeOf(position);
        OnSize(size.cx, size.cy);
    }
}

HRESULT ControlCore::GetWindow(HWND* window) {
    if (!window)
        return E_POINTER;
    *window = Window();
    return *window ? S_OK : E_FAIL;
}

HRESULT ControlCore::ContextSensitiveHelp(BOOL) { return E_NOTIMPL; }

HRESULT ControlCore::InPlaceDeactivate() {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IOleInPlaceObject), [&] { Deactivate(); });
}

HRESULT ControlCore::UIDeactivate() {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IOleInPlaceObject), [&] { m_Session.EndUi(); });
}

HRESULT ControlCore::SetObjectRects(LPCRECT position, LPCRECT clip) {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IOleInPlaceObject), [&] {
        CheckPointer(position);
        Place(*position, clip);
    });
}

HRESULT ControlCore::ReactivateAndUndo() { return INPLACE_E_NOTUNDOABLE; }

HRESULT ControlCore::TranslateAccelerator(LPMSG message) {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IOleInPlaceActiveObject), [&] {
        CheckPointer(message);
        return OnTranslateKey(*message) == S_OK || TranslateByHost(*message) ? S_OK : S_FALSE;
    });
}

HRESULT ControlCore::OnFrameWindowActivate(BOOL) { return S_OK; }

HRESULT ControlCore::OnDocWindowActivate(BOOL) { return S_OK; }

HRESULT ControlCore::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) { return S_OK; }

HRESULT ControlCore::EnableModeless(BOOL) { return S_OK; }

// The table stays the control's; the host asks again when it is told of other keys.
HRESULT ControlCore::GetControlInfo(CONTROLINFO* info) {
    return Guarded(__uuidof(IOleControl), [&] {
        CheckPointer(info);
        std::vector<ACCEL> keys;
        for (const wchar_t key : AccessKeys())
            keys.push_back(AcceleratorOf(key, static_cast<WORD>(keys.size())));
        m_Accelerators.reset(keys.empty() ? nullptr
                                          : CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size())));
        info->cb = sizeof *info;
        info->hAccel = m_Accelerators.get();
        info->cAccel = static_cast<USHORT>(m_Accelerators ? keys.size() : 0);
        info->dwFlags = KeysEaten();
    });
}

HRESULT ControlCore::OnMnemonic(MSG* message) {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IOleControl), [&] {
        CheckPointer(message);
        const wchar_t pressed = CharacterOf(*message);
        const std::wstring keys = AccessKeys();
        if (pressed && std::any_of(keys.begin(), keys.end(), [&](wchar_t key) { return UpperCase(key) == pressed; }))
            OnAccessKey(pressed);
    });
}

HRESULT ControlCore::OnAmbientPropertyChange(DISPID id) {
    const ComPtr<IUnknown> alive(Self());
    return Guarded(__uuidof(IOleControl), [&] {
        if (m_WindowsMade && IsSited())
            OnAmbientChange(id);
    });
}

HRESULT ControlCore::FreezeEvents(BOOL freeze) {
    Points().SuspendEvents(freeze != FALSE);
    return S_OK;
}

void ControlCore::UiActivate() {
    if (!m_Session.IsActive())
        return;
    const ComPtr<IUnknown> alive(Self());
    IgnoringFailures([&] { return m_Session.BeginUi(this, UserTypeName(USERCLASSTYPE_SHORT).c_str()); });
    if (!std::exchange(m_Focused, true))
        m_Site.TellFocus(true);
}

void ControlCore::FocusLost() {
    const ComPtr<IUnknown> alive(Self());
    if (std::exchange(m_Focused, false))
        m_Site.TellFocus(false);
}

} // namespace ormisk
