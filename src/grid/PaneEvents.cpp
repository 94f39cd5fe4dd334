// What the windows report, and which room hears it.

#include "grid/Grid.h"
#include "platform/Rounding.h"
#include "platform/WindowPicture.h"

namespace ormisk {

IUnknown* Panes::Keeper() { return m_Grid.m_Host.Outer(); }

void Panes::PaintTree(UINT message, WPARAM wParam) {
    // A failure must not keep the window from being painted: the message would come for ever.
    if (message == WM_PAINT && m_Grid.m_State.lockRefresh)
        IgnoringFailures([&] { UpdateScrollBar(); });
    if (message == WM_PRINTCLIENT) {
        const Size client = m_picTreeContainer.ClientSize();
        m_Grid.m_RowPainter.PaintTree(reinterpret_cast<HDC>(wParam), {0, 0, client.cx, client.cy});
        return;
    }
    const PaintDC paint(TreeWnd());
    if (!paint)
        return;
    const RECT& clip = paint.UpdateRect();
    m_Grid.m_RowPainter.PaintTree(paint.Get(), {clip.left, clip.top, clip.right, clip.bottom});
}

void Panes::Draw(HDC dc) { DrawWindowPicture(m_Control.hWnd(), dc); }

void Panes::OnPaint(Pane& pane, HDC dc, const RECT&) {
    const SavedDC undone(dc);
    if (&pane == &m_picTreeContainer) {
        // While a form is being designed, nobody takes the message before the pane.
        const Size client = pane.ClientSize();
        m_Grid.m_RowPainter.PaintTree(dc, {0, 0, client.cx, client.cy});
    } else if (&pane == &m_picTabContainer) {
        m_Grid.m_ChromePainter.DrawTabs(dc);
    } else if (&pane == &m_picNameHeader || &pane == &m_picValueHeader) {
        m_Grid.m_ChromePainter.DrawColumnHeader(dc, &pane == &m_picNameHeader);
    } else if (&pane == &m_picDescPane) {
        m_Grid.m_ChromePainter.DrawDescription(dc);
    } else {
        m_Grid.m_RecordToolbar.Paint(pane, dc);
    }
}

CSplitter* Panes::SplitterIn(const Pane& pane) {
    if (&pane == &m_picBG)
        return &m_ContainerSplitter;
    return &pane == &m_picHeaderContainer ? &m_HeaderSplitter : nullptr;
}

// A splitter hears of its container's mouse before the host does. False when a handler of what its bar laid out anew
// ended the control.
bool Panes::ForwardMouse(Pane& pane, const MouseEvent& event, void (CSplitter::*hears)(int, int, float, float)) {
    if (CSplitter* splitter = SplitterIn(pane))
        (splitter->*hears)(event.button, event.shift, pane.PixelsToUnitsX(static_cast<float>(event.x)),
                           pane.PixelsToUnitsY(static_cast<float>(event.y)));
    return m_Grid.IsAlive();
}

void Panes::OnMouseDown(Pane& pane, const MouseEvent& event) {
    if (!ForwardMouse(pane, event, &CSplitter::ContainerMouseDown))
        return;
    if (event.button == 1)
        m_Grid.m_RecordToolbar.MouseDown(pane);
    m_Grid.m_Input.PaneMouse(pane, event, GridEvents::MouseStage::Down);
}

void Panes::OnMouseMove(Pane& pane, const MouseEvent& event) {
    if (!ForwardMouse(pane, event, &CSplitter::ContainerMouseMove))
        return;
    m_Grid.m_RecordToolbar.MouseMove(pane);
    m_Grid.m_Input.PaneMouse(pane, event, GridEvents::MouseStage::Move);
}

void Panes::OnMouseUp(Pane& pane, const MouseEvent& event) {
    if (!ForwardMouse(pane, event, &CSplitter::ContainerMouseUp))
        return;
    m_Grid.m_RecordToolbar.MouseUp();
    m_Grid.m_Input.PaneMouse(pane, event, GridEvents::MouseStage::Up);
}

void Panes::OnCaptureLost(Pane& pane) {
    if (CSplitter* splitter = SplitterIn(pane))
        splitter->ContainerCaptureLost();
    m_Grid.m_RecordToolbar.MouseUp();
}

void Panes::OnClick(Pane& pane) {
    if (&pane == &m_picTreeContainer)
        m_Grid.m_Input.OnTreeClick();
    else if (&pane == &m_picNameHeader || &pane == &m_picValueHeader)
        m_Grid.m_ModelView.HeaderSort(&pane == &m_picNameHeader);
}

void Panes::OnDblClick(Pane& pane) {
    if (CSplitter* splitter = SplitterIn(pane))
        splitter->ContainerDblClick();
    else if (&pane == &m_picTreeContainer)
        m_Grid.m_Input.OnTreeDblClick();
}

void Panes::OnKeyDown(Pane& pane, int& keyCode, int shift) { m_Grid.m_Input.PaneKeyDown(pane, keyCode, shift); }

void Panes::OnKeyUp(Pane&, int& keyCode, int shift) { m_Grid.m_Events.KeyUp(keyCode, shift); }

void Panes::OnKeyPress(Pane&, int& keyAscii) { m_Grid.m_Events.KeyPress(keyAscii); }

void Panes::OnFocusChange(Pane& pane, bool gained) {
    if (gained)
        m_Grid.m_Host.FocusEntered();
    // The control itself has nothing to type into.
    if (gained && &pane == &m_Control)
        m_picTreeContainer.TakeFocus();
    if (&pane == &m_picTabContainer) {
        if (gained)
            m_Grid.m_Input.TabsGotFocus();
        else
            m_Grid.m_Input.TabsLostFocus();
    }
    // What has the focus shows it.
    if (&pane == &m_picHeaderContainer)
        m_picNameHeader.Invalidate(true);
    else if (&pane == &m_picDescPane)
        m_picDescPane.Invalidate(true);
}

void Panes::OnResize(Pane& pane) {
    if (&pane == &m_Control)
        ControlResized();
    else if (&pane == &m_picBG)
        m_ContainerSplitter.ContainerResize();
    else if (&pane == &m_picTabContainer)
        LayoutTabContainer();
    else if (&pane == &m_picTreeContainer)
        RecalcLayout();
    else if (&pane == &m_picHeaderContainer)
        m_HeaderSplitter.ContainerResize();
    if (&pane != &m_picTreeContainer && m_Grid.IsAlive())
        pane.Invalidate(true); // what is drawn in it follows its size
}

bool Panes::OnChildMessage(Pane& pane, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (m_ListEditor.OnParentMessage(message, wParam, lParam, result))
        return true;
    switch (message) {
    case WM_VSCROLL:
        return &pane == &m_picTreeContainer && m_VScroll.HandleScroll(wParam, lParam);
    case WM_CTLCOLOREDIT:
        for (TextBox* box : {&m_TextEditor, &m_txtRecordNo}) {
            if (box->Hwnd() == reinterpret_cast<HWND>(lParam)) {
                result = reinterpret_cast<LRESULT>(box->OnCtlColor(reinterpret_cast<HDC>(wParam)));
                return result != 0;
            }
        }
        return false;
    default:
        return false;
    }
}

void Panes::LocationChanged(CSplitter& splitter) {
    if (!m_Grid.IsAlive())
        return;
    if (&splitter == &m_HeaderSplitter)
        HeaderSplitterMoved();
    else
        m_picDescPane.Refresh();
}

void Panes::SplitterDblClick(CSplitter& splitter) {
    if (&splitter == &m_HeaderSplitter)
        SetColumnDivider(-1.0F);
}

void Panes::HeaderSplitterMoved() {
    const long bar = RoundToLong(static_cast<double>(ScrollBarUnits()));
    const float location = m_HeaderSplitter.SplitterLocation();
    const auto limit = DividerLimit(static_cast<double>(location), static_cast<double>(m_Control.ScaleWidth()), bar);
    // The bar keeps a pixel of the names: in a control narrower than its scroll bar no limit can be met.
    if (limit && location > m_picHeaderContainer.PixelsToUnitsX(1)) {
        // The new location reports itself and does the rest.
        m_HeaderSplitter.SplitterLocation(static_cast<float>(*limit));
    } else {
        m_Grid.m_Session.FollowRow();
        m_picTreeContainer.Invalidate(true);
    }
    m_picNameHeader.Invalidate(true);
    m_picValueHeader.Invalidate(true);
}

void Panes::OnScroll() {
    m_VScroll.HideCaret();
    const long value = m_VScroll.Value();
    if (value == m_LastScrollValue || !m_Grid.IsAlive())
        return;
    const long distance = (m_LastScrollValue - value) * m_RowHeight;
    m_LastScrollValue = value;
    if (m_Grid.m_State.picture)
        RepaintRows(); // moved pixels would tear the background
    else
        ScrollWindowEx(TreeWnd(), 0, distance, nullptr, nullptr, nullptr, nullptr, SW_INVALIDATE);
    m_Grid.m_Session.Scrolled();
}

void Panes::OnScrollBarFocus() {
    const ComPtr<IUnknown> keeper(Keeper());
    m_picTreeContainer.TakeFocus();
    m_VScroll.HideCaret();
}

} // namespace ormisk
