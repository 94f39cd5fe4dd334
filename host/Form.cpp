#include "Form.h"

#include "Failure.h"

#include <algorithm>
#include <cwchar>

namespace ormisk {

Form::Form(HostWindow& window) : m_Window(window), m_Frame(MakeCom<ControlFrame>(window.Handle())) {}

Form::~Form() {
    while (!m_Sites.empty()) {
        const ComPtr<ControlSite> last = m_Sites.back();
        m_Sites.pop_back();
        last->Unload();
    }
    m_Frame->SetActiveObject(nullptr, nullptr);
}

ControlSite& Form::Add(const std::wstring& progId, const std::wstring& name, std::optional<RECT> place,
                       SettingsBag* stored) {
    if (name.empty() || Find(name))
        throw Failure{L"A control needs a name of its own"};
    const ComPtr<ControlSite> site = MakeCom<ControlSite>(*this, name, place);
    m_Sites.push_back(site);
    try {
        Layout();
        site->Load(progId, stored);
    } catch (...) {
        m_Sites.erase(std::find(m_Sites.begin(), m_Sites.end(), site));
        if (m_UiActive == site.Get())
            m_UiActive = nullptr;
        site->Unload();
        Layout();
        throw;
    }
    return *site.Get();
}

ControlSite* Form::Find(const std::wstring& name) const {
    for (const ComPtr<ControlSite>& site : m_Sites)
        if (_wcsicmp(site->Name().c_str(), name.c_str()) == 0)
            return site.Get();
    return nullptr;
}

// Aligned controls take the edges in turn; one without a place fills the rest.
void Form::Layout() {
    RECT rest = m_Window.ClientRect();
    const std::vector<ComPtr<ControlSite>> sites = m_Sites;
    for (const ComPtr<ControlSite>& site : sites)
        if (site->IsVisible() && site->Alignment() != ControlSite::Align::None)
            site->TakeEdge(rest);
    for (const ComPtr<ControlSite>& site : sites)
        site->Place(rest);
}

bool Form::Filter(MSG& message) {
    RelayToTip(message);
    return TranslateKey(message);
}

bool Form::TranslateKey(MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST)
        return false;
    if (message.hwnd != m_Window.Handle() && !IsChild(m_Window.Handle(), message.hwnd))
        return false;
    const ComPtr<IOleInPlaceActiveObject> active(m_Frame->Active());
    if (active && active->TranslateAccelerator(&message) == S_OK)
        return true;
    if (message.message == WM_KEYDOWN && message.wParam == VK_TAB && GetKeyState(VK_CONTROL) >= 0)
        return FocusNext(message);
    const std::vector<ComPtr<ControlSite>> sites = m_Sites;
    return std::any_of(sites.begin(), sites.end(),
                       [&](const ComPtr<ControlSite>& site) { return site->TranslateAccessKey(message); });
}

// Behind the last control the first one is next; one control alone follows on itself.
bool Form::FocusNext(MSG& tab) {
    const bool backward = GetKeyState(VK_SHIFT) < 0;
    const std::vector<ComPtr<ControlSite>> sites = m_Sites;
    const std::size_t count = sites.size();
    std::size_t at = 0;
    while (at < count && sites[at].Get() != m_UiActive)
        ++at;
    if (at == count)
        at = backward ? 0 : count - 1;
    for (std::size_t step = 1; step <= count; ++step) {
        ControlSite& next = *sites[(at + (backward ? count - step : step)) % count].Get();
        if (next.IsVisible() && next.IsTabStop())
            return next.Activate(OLEIVERB_UIACTIVATE, &tab);
    }
    return false;
}

void Form::FollowActivation(bool active) {
    if (!active && m_UiActive && m_UiActive->IsOfControl(GetFocus()))
        m_LastFocus = GetFocus();
    if (const ComPtr<IOleInPlaceActiveObject> object{m_Frame->Active()}) {
        object->OnFrameWindowActivate(active);
        object->OnDocWindowActivate(active);
    }
}

void Form::TakeFocus() {
    if (m_Sites.empty())
        return;
    const ComPtr<ControlSite> site(m_UiActive ? m_UiActive : m_Sites.front().Get());
    if (!m_Frame->Active())
        site->Activate(OLEIVERB_UIACTIVATE, nullptr);
    const HWND last = std::exchange(m_LastFocus, nullptr);
    if (site->IsOfControl(last) && IsWindowVisible(last) && IsWindowEnabled(last))
        SetFocus(last);
    else if (!site->IsOfControl(GetFocus()))
        SetFocus(site->ControlWindow());
}

void Form::UiActivated(ControlSite& site) {
    ControlSite* const before = std::exchange(m_UiActive, &site);
    if (before && before != &site)
        before->DeactivateUi();
}

long Form::TabIndexOf(const ControlSite& site) const {
    const auto at = std::find_if(m_Sites.begin(), m_Sites.end(), [&](const auto& s) { return s.Get() == &site; });
    return static_cast<long>(at - m_Sites.begin());
}

void Form::MoveTo(const ControlSite& site, long tabIndex) {
    const auto from = m_Sites.begin() + TabIndexOf(site);
    if (from == m_Sites.end())
        return;
    ComPtr<ControlSite> moved = std::move(*from);
    m_Sites.erase(from);
    m_Sites.insert(m_Sites.begin() + std::clamp(tabIndex, 0L, static_cast<long>(m_Sites.size())), std::move(moved));
    Layout();
}

void Form::Arrange(const std::vector<ComPtr<ControlSite>>& order) {
    auto next = order.begin();
    for (ComPtr<ControlSite>& place : m_Sites)
        if (next != order.end() && std::find(order.begin(), order.end(), place) != order.end())
            place = *next++;
    Layout();
}

// The tip belongs to the control as a whole: messages of the windows in it are told as the control's own.
void Form::SetToolTip(const ControlSite& site, const std::wstring& text) {
    if (!m_Tip)
        m_Tip.reset(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                                    CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, m_Window.Handle(),
                                    nullptr, nullptr, nullptr));
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = m_Window.Handle();
    tool.uId = reinterpret_cast<UINT_PTR>(site.ControlWindow());
    SendMessageW(m_Tip.get(), TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    std::wstring shown = text;
    tool.lpszText = shown.data();
    if (!text.empty() && tool.uId)
        SendMessageW(m_Tip.get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void Form::RelayToTip(const MSG& message) const {
    if (!m_Tip || message.message < WM_MOUSEFIRST || message.message > WM_MOUSELAST)
        return;
    for (const ComPtr<ControlSite>& site : m_Sites) {
        if (!site->IsOfControl(message.hwnd))
            continue;
        MSG relayed = message;
        relayed.hwnd = site->ControlWindow();
        SendMessageW(m_Tip.get(), TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
    }
}

} // namespace ormisk
