#pragma once

#include "ControlSite.h"
#include "HostWindow.h"

#include <commctrl.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ormisk {

// The controls in the host's window: where each stands, which one is active, and where TAB goes. The order of the
// controls is that of TAB.
class Form {
public:
    explicit Form(HostWindow& window);
    // Takes the controls out again.
    ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    // Creates a control of that class, new or with what the bag holds, and activates it in place. A place is in pixels
    // of the window; without one the control fills what the aligned ones leave. Throws a Failure, also for a name in
    // use.
    ControlSite& Add(const std::wstring& progId, const std::wstring& name, std::optional<RECT> place,
                     SettingsBag* stored = nullptr);
    ControlSite* Find(const std::wstring& name) const; // in any case; null when there is none

    const std::vector<ComPtr<ControlSite>>& Sites() const { return m_Sites; }

    // Offered each message before it is dispatched: tips follow the mouse, and a key goes to the active control's own
    // handling, to TAB, and to access keys. True when it was used up.
    bool Filter(MSG& message);

    // The window has another size, or a control another place.
    void Layout();
    void FollowActivation(bool active);
    // Gives the focus to where it was, or to the first control.
    void TakeFocus();

    // What the controls know as their parent, uncounted; null for none.
    void SetParent(IDispatch* parent) { m_Parent = parent; }

    // What a site asks of the form.
    IDispatch* Parent() const { return m_Parent; }
    HostWindow& Window() const { return m_Window; }
    ControlFrame& Frame() const { return *m_Frame.Get(); }
    void UiActivated(ControlSite& site); // the one that was active is told
    long TabIndexOf(const ControlSite& site) const;
    void MoveTo(const ControlSite& site, long tabIndex); // cut off at the ends
    // These controls follow one another in this order, on the places that they have among all.
    void Arrange(const std::vector<ComPtr<ControlSite>>& order);
    void SetToolTip(const ControlSite& site, const std::wstring& text);

private:
    struct DestroyTip {
        void operator()(HWND window) const { DestroyWindow(window); }
    };

    bool TranslateKey(MSG& message);
    bool FocusNext(MSG& tab);
    void RelayToTip(const MSG& message) const;

    HostWindow& m_Window;
    ComPtr<ControlFrame> m_Frame;
    std::vector<ComPtr<ControlSite>> m_Sites;
    ControlSite* m_UiActive = nullptr;
    IDispatch* m_Parent = nullptr;
    HWND m_LastFocus = nullptr;
    std::unique_ptr<std::remove_pointer_t<HWND>, DestroyTip> m_Tip;
};

} // namespace ormisk
