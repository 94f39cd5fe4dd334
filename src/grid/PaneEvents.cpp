#include "grid/PaneEvents.h"

#include "grid/Grid.h"
#include "grid/PaintPrimitives.h"
#include "platform/Rounding.h"

#include <commctrl.h>
#include <cstring>

namespace ormisk {

namespace {

bool LeavesItsPlace(const WINDOWPOS& change) { return change.flags & SWP_HIDEWINDOW || !(change.flags & SWP_NOMOVE); }

} // namespace

STDMETHODIMP PaneEvents::QueryInterface(REFIID iid, void** object) { return Keeper()->QueryInterface(iid, object); }

STDMETHODIMP_(ULONG) PaneEvents::AddRef() { return Keeper()->AddRef(); }

STDMETHODIMP_(ULONG) PaneEvents::Release() { return Keeper()->Release(); }

IUnknown* PaneEvents::Keeper() { return m_Grid.m_Host.Outer(); }

void PaneEvents::Begin() {
    m_AtRunTime = m_Grid.m_Host.UserMode();
    if (m_AtRunTime)
        AddWindowsHook(WH_GETMESSAGE, this);
}

void PaneEvents::End() { RemoveWindowsHook(WH_GETMESSAGE, this); }

// Drivers of old mice post the wheel as a message of their own.
LRESULT PaneEvents::NotifyHookedEvent(int nHookType, int, WPARAM wParam, LPARAM lParam, bool&) {
    if (nHookType == WH_GETMESSAGE && lParam) {
        MSG message{};
        std::memcpy(&message, reinterpret_cast<const void*>(lParam), sizeof message);
        if (message.message == m_WheelMessage)
            PostMessageW(m_Grid.m_Panes.TreeWnd(), WM_MOUSEWHEEL, wParam, lParam);
    }
    return 0;
}

bool PaneEvents::OnMessage(Pane& pane, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    Panes& panes = m_Grid.m_Panes;
    if (m_AtRunTime && m_Grid.IsAlive() && OnRunTimeMessage(pane, message, wParam, lParam, result))
        return true;
    switch (message) {
    case WM_WINDOWPOSCHANGED:
        if (&pane == &panes.m_Control && LeavesItsPlace(*reinterpret_cast<const WINDOWPOS*>(lParam)))
            m_Grid.m_Session.CloseUp(); // palettes and calendars are no children of it
        return false;
    case WM_VSCROLL:
        return &pane == &panes.m_picTreeContainer && panes.m_VScroll.HandleScroll(wParam, lParam);
    case WM_CTLCOLOREDIT:
        for (TextBox* box : {&panes.m_TextEditor, &m_Grid.m_RecordToolbar.m_txtRecordNo}) {
            if (box->hWnd() == reinterpret_cast<HWND>(lParam)) {
                result = reinterpret_cast<LRESULT>(box->OnCtlColor(reinterpret_cast<HDC>(wParam)));
                return result != 0;
            }
        }
        return false;
    case WM_NOTIFY: {
        const auto& notice = *reinterpret_cast<const NMHDR*>(lParam);
        if (notice.code == DTN_DATETIMECHANGE)
            m_Grid.m_Session.Changed(notice.hwndFrom);
        return m_Grid.m_Tips.OnNotify(notice, result);
    }
    case WM_COMMAND:
    case WM_DRAWITEM:
    case WM_CTLCOLORLISTBOX:
        return panes.m_ListEditor.OnParentMessage(message, wParam, lParam, result);
    default:
        return false;
    }
}

bool PaneEvents::OnRunTimeMessage(Pane& pane, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    Panes& panes = m_Grid.m_Panes;
    if (message == WM_MOUSELEAVE)
        m_Grid.m_RecordToolbar.MouseLeft(pane.hWnd());
    if (&pane != &panes.m_picTreeContainer)
        return false;
    switch (message) {
    case WM_DESTROY:
        m_Grid.Release();
        return false;
    case WM_PAINT:
        // A failure must not keep the window from being painted: the message would come for ever.
        if (m_Grid.m_State.lockRefresh)
            IgnoringFailures([&] { panes.UpdateScrollBar(); });
        return false;
    case WM_SYSCOLORCHANGE:
        panes.Refresh();
        m_Grid.m_RecordToolbar.RefreshRecordToolbar();
        return false;
    case WM_CTLCOLORSTATIC:
        return ColorOfStatic(wParam, lParam, result);
    case WM_MOUSEWHEEL:
        return m_Grid.m_Input.OnMouseWheel(wParam); // without a bar to move, the wheel is the container's
    default:
        return false;
    }
}

// The caption of an editor that is a static window takes the colours of its row.
bool PaneEvents::ColorOfStatic(WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const HWND editor = m_Grid.m_Session.EditorWindow();
    const CProperty* property = m_Grid.m_Selection.SelectedProperty();
    if (!editor || editor != reinterpret_cast<HWND>(lParam) || !property)
        return false;
    auto* dc = reinterpret_cast<HDC>(wParam);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, TextColor(m_Grid.m_State, property->ResolvedForeColor()));
    result = reinterpret_cast<LRESULT>(
        m_Grid.m_ResourceMgr.GetBrush(TranslateColor(property->ResolvedBackColor()), L"EditorBackColor"));
    return true;
}

void PaneEvents::OnPaint(Pane& pane, HDC dc, const Rect& clip) {
    const SavedDC undone(dc); // whatever the painters set
    const Size client = pane.ClientSize();
    // A form that is being designed gets everything drawn.
    if (const auto paint = m_Grid.m_Panes.EntryOf(pane).paint)
        paint(m_Grid, pane, dc, m_AtRunTime ? clip : Rect{0, 0, client.cx, client.cy});
}

CSplitter* PaneEvents::SplitterIn(const Pane& pane) {
    const auto splitter = m_Grid.m_Panes.EntryOf(pane).splitter;
    return splitter ? &(m_Grid.m_Panes.*splitter) : nullptr;
}

// A splitter hears of its container's mouse before the host does.
void PaneEvents::OnMouse(Pane& pane, const MouseEvent& event) {
    static constexpr void (CSplitter::* kHears[])(int, int, float, float) = {
        &CSplitter::ContainerMouseDown, &CSplitter::ContainerMouseMove, &CSplitter::ContainerMouseUp};
    if (CSplitter* splitter = SplitterIn(pane))
        (splitter->*kHears[static_cast<int>(event.stage)])(event.button, event.shift,
                                                           pane.PixelsToUnitsX(static_cast<float>(event.x)),
                                                           pane.PixelsToUnitsY(static_cast<float>(event.y)));
    // A handler of what its bar laid out anew may have ended the control.
    if (!m_Grid.IsAlive())
        return;
    m_Grid.m_RecordToolbar.Mouse(pane, event);
    m_Grid.m_Input.PaneMouse(pane, event);
}

void PaneEvents::OnCaptureLost(Pane& pane) {
    if (CSplitter* splitter = SplitterIn(pane))
        splitter->ContainerCaptureLost();
    m_Grid.m_RecordToolbar.MouseUp();
}

void PaneEvents::OnClick(Pane& pane) {
    if (const auto clicked = m_Grid.m_Panes.EntryOf(pane).clicked)
        clicked(m_Grid);
}

void PaneEvents::OnDblClick(Pane& pane) {
    if (CSplitter* splitter = SplitterIn(pane))
        splitter->ContainerDblClick();
    else if (const auto doubleClicked = m_Grid.m_Panes.EntryOf(pane).doubleClicked)
        doubleClicked(m_Grid);
}

void PaneEvents::OnKeyDown(Pane& pane, int& keyCode, int shift) { m_Grid.m_Input.PaneKeyDown(pane, keyCode, shift); }

void PaneEvents::OnKeyUp(Pane&, int& keyCode, int shift) {
    if (m_Grid.m_State.enabled)
        m_Grid.m_Events.KeyUp(keyCode, shift);
}

void PaneEvents::OnKeyPress(Pane&, int& keyAscii) {
    if (m_Grid.m_State.enabled)
        m_Grid.m_Events.KeyPress(keyAscii);
}

void PaneEvents::OnFocusChange(Pane& pane, bool gained) {
    if (gained)
        m_Grid.m_Host.FocusEntered();
    else
        m_Grid.m_Host.FocusLeft();
    if (const auto focused = m_Grid.m_Panes.EntryOf(pane).focused)
        focused(m_Grid, gained);
}

void PaneEvents::OnResize(Pane& pane) {
    if (CSplitter* splitter = SplitterIn(pane))
        splitter->ContainerResize();
    else if (const auto resized = m_Grid.m_Panes.EntryOf(pane).resized)
        resized(m_Grid);
    if (&pane != &m_Grid.m_Panes.m_picTreeContainer && m_Grid.IsAlive())
        pane.Invalidate(true); // what is drawn in it follows its size
}

void PaneEvents::LocationChanged(CSplitter& splitter) {
    if (!m_Grid.IsAlive())
        return;
    if (&splitter == &m_Grid.m_Panes.m_HeaderSplitter)
        HeaderSplitterMoved();
    else
        m_Grid.m_Panes.m_picDescPane.Refresh();
}

void PaneEvents::SplitterDblClick(CSplitter& splitter) {
    if (&splitter == &m_Grid.m_Panes.m_HeaderSplitter)
        m_Grid.m_Panes.SetColumnDivider(-1.0F);
}

void PaneEvents::HeaderSplitterMoved() {
    Panes& panes = m_Grid.m_Panes;
    const float location = panes.ColumnDividerPosition();
    const auto limit = DividerLimit(location, panes.m_Control.ScaleWidth(), RoundToLong(panes.ScrollBarUnits()));
    // The bar keeps a pixel of the names: in a control narrower than its scroll bar no limit can be met.
    if (limit && location > panes.m_picHeaderContainer.PixelsToUnitsX(1)) {
        // The new location reports itself and does the rest.
        panes.m_HeaderSplitter.SplitterLocation(static_cast<float>(*limit));
    } else {
        m_Grid.m_Session.FollowRow();
        panes.m_picTreeContainer.Invalidate(true);
    }
    panes.m_picNameHeader.Invalidate(true);
    panes.m_picValueHeader.Invalidate(true);
}

void PaneEvents::OnScroll() {
    Panes& panes = m_Grid.m_Panes;
    panes.m_VScroll.HideCaret();
    const long value = panes.m_VScroll.Value();
    if (value == m_LastScrollValue || !m_Grid.IsAlive())
        return;
    const long distance = (m_LastScrollValue - value) * panes.RowHeight();
    m_LastScrollValue = value;
    if (m_Grid.m_State.picture)
        panes.RepaintRows(); // moved pixels would tear the background
    else
        ScrollWindowEx(panes.TreeWnd(), 0, distance, nullptr, nullptr, nullptr, nullptr, SW_INVALIDATE);
    m_Grid.m_Tips.Hide();
    m_Grid.m_Session.Scrolled();
}

void PaneEvents::OnScrollBarFocus() {
    const ComPtr<IUnknown> keeper(Keeper());
    m_Grid.m_Panes.m_picTreeContainer.TakeFocus();
    m_Grid.m_Panes.m_VScroll.HideCaret();
}

} // namespace ormisk
