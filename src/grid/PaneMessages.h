#pragma once

#include "platform/SubclassWnd.h"
#include "platform/WndHooks.h"

namespace ormisk {

class Grid;

// The window messages that the control takes before its panes, at run time only: painting of the rows, the wheel,
// colours of child windows, and the end of the tree pane. As an object it is the control: references to it are
// references to that.
class PaneMessages final : public _cSubclassListener, public _IHookListener {
public:
    explicit PaneMessages(Grid& grid) : m_Grid(grid) {}

    void HookPanes();
    bool Hooked() const { return m_Hooked; }
    // At the end of the control's life, in two steps.
    void UnhookButtons();
    void UnhookTree();

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    LRESULT WindowMsgListener(HWND hwnd, UINT Msg, WPARAM wParam, LPARAM lParam, bool& bRouteToOriginal) override;
    LRESULT NotifyHookedEvent(int nHookType, int nCode, WPARAM wParam, LPARAM lParam, bool& bNoCallNextHook) override;

private:
    LRESULT ColorOfStatic(WPARAM wParam, LPARAM lParam, bool& bRouteToOriginal);

    Grid& m_Grid;
    UINT m_WheelMessage = RegisterWindowMessageA("MSWHEEL_ROLLMSG");
    bool m_Hooked = false;
};

} // namespace ormisk
