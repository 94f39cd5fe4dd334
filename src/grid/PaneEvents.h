#pragma once

#include "grid/PaneTable.h"
#include "platform/ScrollBar.h"
#include "platform/WndHooks.h"

namespace ormisk {

// What the windows report, and which room hears it. As an object it is the control: references to it are references to
// that.
class PaneEvents final : public PaneListener, public SplitterListener, public ScrollBarListener, public _IHookListener {
public:
    explicit PaneEvents(Grid& grid) : m_Grid(grid) {}

    // Around the life of the windows. While a form is being designed, the wheel, the colours of the system and the end
    // of the windows are left to themselves.
    void Begin();
    void End();
    bool AtRunTime() const { return m_AtRunTime; }

private:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    LRESULT NotifyHookedEvent(int nHookType, int nCode, WPARAM wParam, LPARAM lParam, bool& bNoCallNextHook) override;
    // PaneListener
    IUnknown* Keeper() override;
    bool OnMessage(Pane& pane, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void OnPaint(Pane& pane, HDC dc, const Rect& clip) override;
    void OnMouse(Pane& pane, const MouseEvent& event) override;
    void OnCaptureLost(Pane& pane) override;
    void OnClick(Pane& pane) override;
    void OnDblClick(Pane& pane) override;
    void OnKeyDown(Pane& pane, int& keyCode, int shift) override;
    void OnKeyUp(Pane& pane, int& keyCode, int shift) override;
    void OnKeyPress(Pane& pane, int& keyAscii) override;
    void OnFocusChange(Pane& pane, bool gained) override;
    void OnResize(Pane& pane) override;
    // SplitterListener
    void LocationChanged(CSplitter& splitter) override;
    void SplitterDblClick(CSplitter& splitter) override;
    // ScrollBarListener
    void OnScroll() override;
    void OnScrollBarFocus() override;

    bool OnRunTimeMessage(Pane& pane, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool ColorOfStatic(WPARAM wParam, LPARAM lParam, LRESULT& result);
    CSplitter* SplitterIn(const Pane& pane);
    void HeaderSplitterMoved();

    Grid& m_Grid;
    UINT m_WheelMessage = RegisterWindowMessageA("MSWHEEL_ROLLMSG");
    long m_LastScrollValue = 0;
    bool m_AtRunTime = false;
};

} // namespace ormisk
