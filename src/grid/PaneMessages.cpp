#include "grid/PaneMessages.h"

#include "grid/Grid.h"
#include "grid/PaintPrimitives.h"

#include <array>
#include <cstring>

namespace ormisk {

namespace {

std::array<HWND, 4> ButtonWindows(const Panes& panes) {
    return {panes.m_picShowFirst.hWnd(), panes.m_picShowLast.hWnd(), panes.m_picShowNext.hWnd(),
            panes.m_picShowPrevious.hWnd()};
}

constexpr UINT kTreeMessages[] = {WM_DESTROY,     WM_NOTIFY,         WM_SYSCOLORCHANGE,    WM_PAINT,
                                  WM_PRINTCLIENT, WM_CTLCOLORSTATIC, WM_CTLCOLORSCROLLBAR, WM_MOUSEWHEEL};

} // namespace

STDMETHODIMP PaneMessages::QueryInterface(REFIID iid, void** object) {
    return m_Grid.m_Host.Outer()->QueryInterface(iid, object);
}

STDMETHODIMP_(ULONG) PaneMessages::AddRef() { return m_Grid.m_Host.Outer()->AddRef(); }

STDMETHODIMP_(ULONG) PaneMessages::Release() { return m_Grid.m_Host.Outer()->Release(); }

// While a form is being designed, the windows are left to themselves.
void PaneMessages::HookPanes() {
    if (m_Hooked || !m_Grid.m_Host.UserMode())
        return;
    m_Hooked = true;
    const HWND tree = m_Grid.m_Panes.TreeWnd();
    SubclassWindow(tree, this);
    for (const UINT message : kTreeMessages)
        AddMessageHook(tree, message);
    AddMessageHook(tree, m_WheelMessage);
    for (const HWND button : ButtonWindows(m_Grid.m_Panes)) {
        SubclassWindow(button, this);
        AddMessageHook(button, WM_DESTROY);
        AddMessageHook(button, WM_MOUSELEAVE);
    }
    AddWindowsHook(WH_GETMESSAGE, this);
}

void PaneMessages::UnhookButtons() {
    for (const HWND button : ButtonWindows(m_Grid.m_Panes)) {
        if (!button)
            continue;
        RemoveMessageHook(button, WM_DESTROY);
        RemoveMessageHook(button, WM_MOUSELEAVE);
        UnSubclassWindow(button);
    }
    if (m_Hooked)
        RemoveWindowsHook(WH_GETMESSAGE, this);
}

void PaneMessages::UnhookTree() {
    if (!m_Hooked)
        return;
    m_Hooked = false;
    const HWND tree = m_Grid.m_Panes.TreeWnd();
    for (const UINT message : kTreeMessages)
        RemoveMessageHook(tree, message);
    RemoveMessageHook(tree, m_WheelMessage);
    UnSubclassWindow(tree);
}

LRESULT PaneMessages::WindowMsgListener(HWND hwnd, UINT Msg, WPARAM wParam, LPARAM lParam, bool& bRouteToOriginal) {
    Panes& panes = m_Grid.m_Panes;
    if (hwnd != panes.TreeWnd() && Msg == WM_DESTROY)
        UnSubclassWindow(hwnd); // a button of the record toolbar
    if (!m_Grid.IsAlive())
        return 0;
    if (hwnd != panes.TreeWnd()) {
        if (Msg == WM_MOUSELEAVE)
            m_Grid.m_RecordToolbar.MouseLeft(hwnd);
        return 0;
    }
    switch (Msg) {
    case WM_DESTROY:
        m_Grid.Release();
        return 0;
    case WM_PAINT:
    case WM_PRINTCLIENT:
        bRouteToOriginal = false;
        panes.PaintTree(Msg, wParam);
        return 0;
    case WM_SYSCOLORCHANGE:
        panes.Refresh();
        RedrawWindow(panes.m_picRSToolbar.hWnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
        return 0;
    case WM_CTLCOLORSCROLLBAR:
        if (reinterpret_cast<HWND>(lParam) != panes.m_VScroll.hWnd())
            return 0;
        bRouteToOriginal = false;
        return DefWindowProcW(hwnd, Msg, wParam, lParam);
    case WM_CTLCOLORSTATIC:
        return ColorOfStatic(wParam, lParam, bRouteToOriginal);
    case WM_MOUSEWHEEL:
        // Without a bar to move, the wheel is the container's.
        bRouteToOriginal = !m_Grid.m_Input.OnMouseWheel(wParam);
        return 0;
    default:
        return 0;
    }
}

// The caption of an editor that is a static window takes the colours of its row.
LRESULT PaneMessages::ColorOfStatic(WPARAM wParam, LPARAM lParam, bool& bRouteToOriginal) {
    const HWND editor = m_Grid.m_Session.EditorWindow();
    CProperty* property = m_Grid.m_Selection.SelectedProperty();
    if (!editor || editor != reinterpret_cast<HWND>(lParam) || !property)
        return 0;
    auto* dc = reinterpret_cast<HDC>(wParam);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, TextColor(m_Grid.m_State, property->ResolvedForeColor()));
    bRouteToOriginal = false;
    return reinterpret_cast<LRESULT>(
        m_Grid.m_ResourceMgr.GetBrush(TranslateColor(property->ResolvedBackColor()), L"EditorBackColor"));
}

// Drivers of old mice post the wheel as a message of their own.
LRESULT PaneMessages::NotifyHookedEvent(int nHookType, int, WPARAM wParam, LPARAM lParam, bool&) {
    if (nHookType == WH_GETMESSAGE && lParam) {
        MSG message{};
        std::memcpy(&message, reinterpret_cast<const void*>(lParam), sizeof message);
        if (message.message == m_WheelMessage)
            PostMessageW(m_Grid.m_Panes.TreeWnd(), WM_MOUSEWHEEL, wParam, lParam);
    }
    return 0;
}

} // namespace ormisk
