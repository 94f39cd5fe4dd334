#include "grid/Input.h"

#include "grid/Grid.h"
#include "platform/AccessKey.h"
#include "platform/Rounding.h"
#include "win/Keys.h"

#include <algorithm>

namespace ormisk {

namespace {

wchar_t FirstUpper(const std::wstring& text) { return text.empty() ? L'\0' : SystemUpper(text.front()); }

// To the window that has the focus by now, with the modifiers of the key's event.
void TypeAgain(int keyCode, int shift) {
    // A quick hand has let go of them by now, and Shift or Ctrl and a letter would come as a small letter.
    static constexpr std::pair<int, BYTE> kModifiers[] = {
        {kShiftKey, VK_SHIFT}, {kCtrlKey, VK_CONTROL}, {kAltKey, VK_MENU}};
    std::vector<BYTE> keys;
    for (const auto& [bit, key] : kModifiers)
        if (shift & bit && GetAsyncKeyState(key) >= 0)
            keys.push_back(key);
    for (const BYTE key : keys)
        keybd_event(key, 0, 0, 0);
    keybd_event(static_cast<BYTE>(keyCode), 0, 0, 0);
    for (const BYTE key : keys)
        keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
}

} // namespace

omHitItem Input::HitItemOf(const Pane& pane, const MouseEvent& event) const {
    const Panes& panes = m_Grid.m_Panes;
    if (&pane != &panes.m_picTabContainer)
        return panes.EntryOf(pane).hitItem;
    if (!m_Grid.m_State.showTabs)
        return omNowhere;
    if (InRect(event.x, event.y, m_Grid.m_ChromeMetrics.Tabs().Tab(0)))
        return omAlphabeticTab;
    return InRect(event.x, event.y, m_Grid.m_ChromeMetrics.Tabs().Tab(1)) ? omCategorizedTab : omNowhere;
}

void Input::PaneMouse(const Pane& pane, const MouseEvent& event) {
    const omHitItem item = HitItemOf(pane, event);
    MouseStage stage = event.stage;
    if (stage == MouseStage::Down && event.button == 1 && (item == omAlphabeticTab || item == omCategorizedTab))
        TabMouseDown(item);
    if (!m_Grid.IsAlive())
        return;
    // Hosts know the value header by this: a move is told as a release, and a release as a press.
    if (item == omValueHeader && stage != MouseStage::Down)
        stage = stage == MouseStage::Move ? MouseStage::Up : MouseStage::Down;
    FireMouseEvent(pane, event, stage, item);
    const bool tips = m_Grid.m_State.showToolTip && &pane == &m_Grid.m_Panes.m_picTreeContainer;
    if (tips && event.stage == MouseStage::Move && event.button == 0 && m_Grid.IsAlive())
        m_Grid.m_Tips.UpdateTooltip(event.x, event.y);
}

// In the control's coordinates and scale.
void Input::FireMouseEvent(const Pane& pane, const MouseEvent& event, MouseStage stage, omHitItem hitItem) {
    const Pane& control = m_Grid.m_Panes.m_Control;
    POINT point{event.x, event.y};
    ClientToScreen(pane.hWnd(), &point);
    ScreenToClient(control.hWnd(), &point);
    m_Grid.m_Events.Mouse(stage, event.button, event.shift, control.PixelsToUnitsX(static_cast<float>(point.x)),
                          control.PixelsToUnitsY(static_cast<float>(point.y)), hitItem);
}

void Input::SwitchView(omActiveView view) { m_Grid.m_Properties.Put<&GridState::activeView>(view); }

void Input::TabMouseDown(omHitItem tab) {
    const omActiveView view = tab == omAlphabeticTab ? omAlphabetic : omCatagorized;
    Pane& strip = m_Grid.m_Panes.m_picTabContainer;
    if (m_Grid.m_State.activeView == view && strip.HasFocus())
        return;
    IgnoringFailures([&] { SwitchView(view); });
    strip.Invalidate(true);
}

void Input::TabKeyDown(int keyCode) {
    if (!m_Grid.m_Panes.m_picTabContainer.HasFocus())
        return;
    if (keyCode == VK_LEFT && m_Grid.m_State.activeView != omAlphabetic)
        SwitchView(omAlphabetic);
    else if (keyCode == VK_RIGHT && m_Grid.m_State.activeView == omAlphabetic)
        SwitchView(omCatagorized);
}

std::wstring Input::AccessKeys() const {
    long position = 0;
    return GetAccessKey(m_Grid.m_State.alphabeticTabCaption, position, SystemUpper) +
           GetAccessKey(m_Grid.m_State.categorizedTabCaption, position, SystemUpper);
}

void Input::OnAccessKey(wchar_t key) {
    if (!m_Grid.m_State.showTabs || !m_Grid.m_State.enabled)
        return;
    const std::wstring pressed(1, SystemUpper(key));
    long position = 0;
    if (pressed == GetAccessKey(m_Grid.m_State.alphabeticTabCaption, position, SystemUpper))
        SwitchView(omAlphabetic);
    // A key that both tabs have ends at the second.
    if (m_Grid.IsAlive() && pressed == GetAccessKey(m_Grid.m_State.categorizedTabCaption, position, SystemUpper))
        SwitchView(omCatagorized);
}

Ref<CNode> Input::RowUnderCursor(POINT& point) const {
    GetCursorPos(&point);
    ScreenToClient(m_Grid.m_Panes.TreeWnd(), &point);
    return m_Grid.m_Panes.RowFromPoint(point.x, point.y);
}

void Input::OnTreeClick() {
    POINT at{};
    const Ref<CNode> node = RowUnderCursor(at);
    if (!node)
        return;
    const RowGeometry geometry = m_Grid.m_Panes.GeometryOf(*node);
    if (InRect(at.x - geometry.name.left, at.y - geometry.name.top, geometry.expander))
        node->SetExpanded(!node->Expanded());
    else
        m_Grid.m_Selection.SetSelectedNode(node);
}

void Input::OnTreeDblClick() {
    POINT at{};
    const Ref<CNode> node = RowUnderCursor(at);
    if (!node)
        return;
    node->SetExpanded(!node->Expanded());
    if (m_Grid.m_Selection.IsOn(node) && node->Property() && m_Grid.m_Session.IsEditorOpen())
        m_Grid.m_Session.ActivateEditor(false);
}

bool Input::OnMouseWheel(WPARAM wParam) {
    ScrollBar& bar = m_Grid.m_Panes.m_VScroll;
    if (!bar.IsVisible() || bar.Min() >= bar.Max())
        return false;
    bar.SetValue(bar.Value() + WheelSteps(GET_WHEEL_DELTA_WPARAM(wParam), bar.Value(), bar.Max()));
    return true;
}

void Input::PaneKeyDown(const Pane& pane, int& keyCode, int shift) {
    // A control that is disabled while it has the focus keeps the focus, but takes no keys.
    if (!m_Grid.m_State.enabled)
        return;
    // Help is asked for in place of the key.
    if (&pane == &m_Grid.m_Panes.m_picTreeContainer && keyCode == VK_F1 && m_Grid.m_Selection.SelectedNode()) {
        keyCode = 0;
        if (const ComPtr<CProperty> property{m_Grid.m_Selection.SelectedProperty()})
            m_Grid.m_Tips.RequestHelp(*property.Get());
        return;
    }
    m_Grid.m_Events.KeyDown(keyCode, shift);
    const auto hears = m_Grid.m_Panes.EntryOf(pane).keyDown;
    if (hears && keyCode != 0 && m_Grid.IsAlive())
        hears(m_Grid, keyCode, shift);
}

void Input::OnTreeKeyDown(int keyCode, int shift) {
    const Ref<CNode> selected = m_Grid.m_Selection.SelectedNode();
    if (!selected) {
        // The first key only finds a place to start from.
        if (const Ref<CNode> first = RowAt(0))
            m_Grid.m_Selection.SetSelectedNode(first);
        return;
    }
    Ref<CNode> target;
    if (!HandleNavigation(keyCode, shift, selected, target))
        HandleOtherKey(keyCode, shift, selected, target);
    if (target && m_Grid.IsAlive())
        m_Grid.m_Selection.SetSelectedNode(target);
}

Ref<CNode> Input::RowAt(long row) const { return Ref<CNode>(m_Grid.m_ActiveNodes->NodeAtRow(row)); }

Ref<CNode> Input::PageFrom(const CNode& node, int direction) const {
    const ScrollBar& bar = m_Grid.m_Panes.m_VScroll;
    if (!bar.IsVisible())
        return nullptr;
    const long row = m_Grid.m_ActiveNodes->RowOf(&node) + direction * PageStep(bar.LargeChange());
    return RowAt(std::clamp(row, 0L, m_Grid.m_ActiveNodes->VisibleRowCount() - 1));
}

// The keys that move among the rows and open or close them; false for any other key.
bool Input::HandleNavigation(int keyCode, int shift, const Ref<CNode>& selected, Ref<CNode>& target) {
    CNode& node = *selected;
    const bool parent = node.ChildCount() > 0;
    RecordBinding& records = m_Grid.m_Records;
    if (shift & kCtrlKey && (keyCode == VK_LEFT || keyCode == VK_RIGHT) && records.IsLoaded()) {
        IgnoringFailures([&] { keyCode == VK_LEFT ? records.MovePrevious() : records.MoveNext(); });
        return true;
    }
    switch (keyCode) {
    case VK_PRIOR:
    case VK_NEXT:
        target = PageFrom(node, keyCode == VK_NEXT ? 1 : -1);
        return true;
    case VK_END:
        target = RowAt(m_Grid.m_ActiveNodes->VisibleRowCount() - 1);
        return true;
    case VK_HOME:
        target = RowAt(0);
        return true;
    case VK_LEFT:
        if (parent && node.Expanded())
            node.SetExpanded(false);
        else
            target = Ref<CNode>(node.PrevVisible());
        return true;
    case VK_RIGHT:
        if (node.Expanded())
            target = Ref<CNode>(node.NextVisible());
        else
            node.SetExpanded(true);
        return true;
    case VK_UP:
        target = Ref<CNode>(node.PrevVisible());
        return true;
    case VK_DOWN:
        if (shift & kAltKey && node.Property())
            DropDown(selected, target);
        else
            target = Ref<CNode>(node.NextVisible());
        return true;
    case VK_ADD:
    case VK_SUBTRACT:
        if (parent)
            node.SetExpanded(keyCode == VK_ADD);
        return true;
    default:
        return false;
    }
}

void Input::DropDown(const Ref<CNode>& selected, Ref<CNode>& target) {
    if (selected->Property()->IsReadOnly()) {
        target = Ref<CNode>(selected->NextVisible());
        return;
    }
    SettleAlt(m_Grid.m_Panes.TreeWnd());
    m_Grid.m_Session.OpenAndActivate(true);
}

void Input::HandleOtherKey(int keyCode, int shift, const Ref<CNode>& selected, Ref<CNode>& target) {
    const CProperty* property = selected->Property();
    const bool letterOrDigit = (keyCode >= '0' && keyCode <= '9') || (keyCode >= 'A' && keyCode <= 'Z');
    const bool searching = (shift & (kCtrlKey | kShiftKey)) == (kCtrlKey | kShiftKey);
    if (keyCode == VK_F4 && property && !property->IsReadOnly() && !(shift & kAltKey)) {
        m_Grid.m_Session.OpenAndActivate(true);
    } else if (searching) {
        if (letterOrDigit)
            target = FindRowByInitial(*selected, keyCode);
    } else if (keyCode >= VK_SPACE && m_Grid.m_Session.IsEditorOpen() &&
               (shift & (kCtrlKey | kAltKey)) != kAltKey) { // with both, a key has characters on many keyboards
        if (m_Grid.m_Session.BeginTyping())
            TypeAgain(keyCode, shift);
    }
}

Ref<CNode> Input::FindRowByInitial(const CNode& node, int character) const {
    for (CNode* start : {node.NextVisible(), m_Grid.m_ActiveNodes->NodeAtRow(0)}) {
        for (CNode* row = start; row; row = row->NextVisible())
            if (FirstUpper(row->Name()) == static_cast<wchar_t>(character))
                return Ref<CNode>(row);
    }
    return nullptr;
}

// The text box is no pane: the control is held here while the host is told.
void Input::OnKeyDown(int& keyCode, int shift) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    m_Grid.m_Events.KeyDown(keyCode, shift);
    // The system has to see it too: it would take ALT for a key pressed alone, which opens the menu.
    if (keyCode == VK_DOWN && shift & kAltKey)
        m_Grid.m_Panes.m_TextEditor.SelectAll();
}

void Input::OnKeyPress(int& keyAscii) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    m_Grid.m_Events.KeyPress(keyAscii);
    if (keyAscii != 0 && m_Grid.IsAlive())
        m_Grid.m_Session.EditorKeyPress(keyAscii);
}

void Input::OnKeyUp(int& keyCode, int shift) { m_Grid.m_Events.KeyUp(keyCode, shift); }

void Input::OnGotFocus() { m_Grid.m_Host.FocusEntered(); }

void Input::OnLostFocus() {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    m_Grid.m_Session.TextLostFocus();
    m_Grid.m_Host.FocusLeft();
}

} // namespace ormisk
