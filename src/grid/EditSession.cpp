#include "grid/EditSession.h"

#include "grid/Grid.h"
#include "model/ValueKind.h"
#include "model/ValueRules.h"
#include "win/Meanwhile.h"

namespace ormisk {

EditSession::EditSession(Grid& grid) : m_Grid(grid), m_Place(grid), m_editListener(MakeObject<CEditorListener>(this)) {}

void EditSession::CreateEditors() {
    m_Editors.CreateBuiltInEditors(m_Grid.m_Panes.TreeWnd(), {.TextEditor = &m_Grid.m_Panes.m_TextEditor,
                                                              .ListEditor = &m_Grid.m_Panes.m_ListEditor,
                                                              .ColorEditor = &m_Grid.m_Panes.m_ColorEditor,
                                                              .Keys = &m_Grid.m_FieldInput,
                                                              .Dialogs = &m_Grid.m_FieldInput,
                                                              .CustomDialog = &m_Grid.m_FieldInput});
    m_Editors.TakeControlFont(m_Grid.m_State.font);
    m_Grid.m_Panes.m_picHeaderContainer.BringToTop(); // above them
}

void EditSession::Release() {
    Drop();
    m_Grid.m_Panes.m_ListEditor.Clear();
    m_Editors.Clear();
    m_editListener->CutObserver();
}

// A text stays in its box as the user left it.
void EditSession::LetObjectsGo() {
    if (!m_Editors.BuiltIn(m_CurrentEditor.Get()) || IsOpen(omListEditor) || IsOpen(omCustomDialog))
        HideCurrentEditor();
    m_Editors.LetObjectsGo();
    m_Editors.EndUse();
}

void EditSession::FocusTree() { m_Grid.m_Panes.m_picTreeContainer.TakeFocus(); }

HWND EditSession::TabStop() const {
    const BuiltInEditor* builtIn = m_Editors.BuiltIn(m_CurrentEditor.Get());
    return builtIn ? builtIn->TabStop() : EditorWindow();
}

HWND EditSession::DropDownWindow() const {
    const BuiltInEditor* builtIn = m_Editors.BuiltIn(m_CurrentEditor.Get());
    return builtIn ? builtIn->DropDownWindow() : nullptr;
}

HWND EditSession::EditorWindow() const {
    HWND window = nullptr;
    if (m_CurrentEditor)
        IgnoringFailures([&] { window = EditorProxy(m_CurrentEditor.Get()).Hwnd(); });
    return window;
}

ComPtr<_CEditor> EditSession::FindEditor(CProperty& property) {
    const omEditorType type = property.EditorType();
    ComPtr<_CEditor> editor = m_Editors.Find(type, property.EditorKey());
    if (!editor && type == omCustomEditor) {
        m_Grid.Trapped([] { Raise(ErrorCode::EditorNotRegistered); });
        FocusTree();
    }
    return editor;
}

void EditSession::StartEditor() {
    const Selection& selection = m_Grid.m_Selection;
    const Ref<CNode> node = selection.SelectedNode();
    const ComPtr<CProperty> property(selection.SelectedProperty());
    if (node && property && !property->IsReadOnly() && !m_Grid.m_State.readOnly) {
        m_Grid.m_Tips.Hide(); // none over an editor
        const unsigned use = m_Editors.Uses();
        const auto goesOn = [&] { return selection.IsOn(node) && m_Editors.Uses() == use; };
        const ComPtr<_CEditor> editor = FindEditor(*property.Get());
        if (editor && goesOn()) {
            EditorProxy proxy(editor.Get());
            const HWND window = proxy.Hwnd();
            if (window && GetParent(window) != m_Grid.m_Panes.TreeWnd()) {
                SetParent(window, m_Grid.m_Panes.TreeWnd());
                m_Grid.m_Panes.m_picHeaderContainer.BringToTop(); // it came above them
            }
            GiveFont(editor.Get(), *node, property->EditorKind());
            ++m_Starts;
            proxy.Reset(property.Get(), m_editListener.Get());
            const bool loaded = goesOn() && LoadEditorValue(*property.Get(), editor.Get());
            if (goesOn() && loaded)
                proxy.SetVisible(true);
            if (!goesOn()) { // the row was left meanwhile
                HideUnused(editor.Get());
                return;
            }
            if (loaded) {
                m_EditNode = node; // never an editor on screen whose value would go to another row
                m_CurrentEditor = editor;
            } else {
                m_Grid.Trapped([] { Raise(ErrorCode::InvalidEditorValue); });
                FocusTree();
            }
            if (selection.IsOn(node))
                m_Place.Put(editor.Get(), *node);
        }
    }
    // Also when no editor came up.
    m_EditNode = selection.SelectedNode();
}

// The font of the control in the style of the row. An editor without a window for it gets a handle.
void EditSession::GiveFont(_CEditor* editor, const CNode& node, omEditorType type) {
    FontDescription font = m_Grid.m_State.font;
    font.Bold = node.Bold();
    font.Italic = node.Italic();
    BuiltInEditor* builtIn = m_Editors.BuiltIn(editor);
    if (!builtIn || !builtIn->TakeFont(type, font))
        EditorProxy(editor).SetFont(m_Grid.m_ResourceMgr.GetFont(font, L"EditorFont"));
}

// False when the value is not one for the property's editor. An object that is asked for it may do anything: what comes
// back is for no editor that serves another row by then.
bool EditSession::LoadEditorValue(CProperty& property, _CEditor* editor) {
    m_Asked.reset();
    const ComPtr<CProperty> held(&property);
    const Ref<CNode> selected = m_Grid.m_Selection.SelectedNode();
    if (!m_Grid.m_Records.IsPropertyValueValid(property))
        return false;
    if (!m_Grid.m_Selection.IsOn(selected))
        return true;
    const auto load = KindOf(property.EditorKind()).load;
    const _variant_t value = load ? load(property) : _variant_t(property.Value());
    if (!m_Grid.m_Selection.IsOn(selected))
        return true;
    const auto set = [&] { EditorProxy(editor).SetValue(value); };
    if (load) // what stands for a value need not come in
        IgnoringFailures(set);
    else
        set();
    return true;
}

void EditSession::PlaceOpenEditor() {
    const ComPtr<_CEditor> editor = m_CurrentEditor;
    const Ref<CNode> node = m_EditNode;
    if (editor && node)
        IgnoringFailures([&] { m_Place.Put(editor.Get(), *node); });
}

void EditSession::FollowRow() {
    m_Grid.m_Tips.Hide();
    if (!m_CurrentEditor || !m_EditNode || !m_Place.IsLeft(*m_EditNode))
        return;
    PlaceOpenEditor();
    if (m_Grid.m_State.lockRefresh)
        m_Grid.m_Panes.m_picTreeContainer.Invalidate(true); // it would stand between rows as they were
}

// The value is committed, the editor goes along with its row, and the headers stay above it.
void EditSession::Scrolled() {
    if (!m_CurrentEditor)
        return;
    CloseEditor(true);
    FollowRow();
    m_Grid.m_Panes.m_picHeaderContainer.BringToTop();
}

void EditSession::Changed(HWND window) {
    BuiltInEditor* builtIn = m_Editors.BuiltIn(m_CurrentEditor.Get());
    if (builtIn && window == EditorWindow())
        builtIn->Changed();
}

void EditSession::CloseUp() {
    if (BuiltInEditor* builtIn = m_Editors.BuiltIn(m_CurrentEditor.Get()))
        builtIn->CloseUp();
}

void EditSession::FontChanged() {
    m_Editors.TakeControlFont(m_Grid.m_State.font);
    const ComPtr<_CEditor> editor = m_CurrentEditor;
    const Ref<CNode> node = m_EditNode;
    const CProperty* property = node ? node->Property() : nullptr;
    if (!editor || !property)
        return;
    IgnoringFailures([&] { GiveFont(editor.Get(), *node, property->EditorKind()); });
    PlaceOpenEditor();
}

void EditSession::ReloadEditor(CProperty& property) {
    const ComPtr<_CEditor> editor = m_CurrentEditor;
    if (!editor)
        return;
    // A value that is none for the editor would be lost when the editor commits what it has.
    const auto hide = [&] {
        if (m_CurrentEditor == editor)
            HideCurrentEditor();
    };
    try {
        if (!LoadEditorValue(property, editor.Get()))
            hide();
    } catch (...) {
        hide();
        throw;
    }
}

void EditSession::ActivateEditor(bool dropDown) {
    const ComPtr<_CEditor> editor = m_CurrentEditor;
    if (!editor)
        return;
    const unsigned start = m_Starts;
    SetFocus(EditorProxy(editor.Get()).Hwnd());
    // A handler of the focus change may have closed the editor, or gone to another row.
    BuiltInEditor* builtIn = m_CurrentEditor == editor && m_Starts == start ? m_Editors.BuiltIn(editor.Get()) : nullptr;
    if (builtIn)
        builtIn->Activate(dropDown);
}

bool EditSession::BeginTyping() {
    const ComPtr<_CEditor> editor = m_CurrentEditor;
    SetFocus(EditorProxy(editor.Get()).Hwnd());
    // An editor that cannot have the focus gets no key: it would come back here.
    if (m_CurrentEditor != editor || m_Grid.m_Panes.m_picTreeContainer.HasFocus())
        return false;
    if (BuiltInEditor* builtIn = m_Editors.BuiltIn(editor.Get()))
        builtIn->BeginTyping();
    return true;
}

void EditSession::CloseEditor(bool keepOpen) {
    const ComPtr<_CEditor> editor = m_CurrentEditor;
    const Ref<CNode> node = m_EditNode;
    if (!editor)
        return;
    try {
        EditorProxy proxy(editor.Get());
        Collect(editor.Get());
        if (m_CurrentEditor != editor || m_EditNode != node)
            return; // a handler may have gone to another row
        const BuiltInEditor* builtIn = m_Editors.BuiltIn(editor.Get());
        const bool leavesFocus = builtIn && builtIn->LeavesFocus() && m_Grid.m_Panes.HaveFocus();
        if (!keepOpen) {
            // Hiding takes the focus away, and a lost focus commits the editor that is current.
            m_CurrentEditor = nullptr;
            proxy.SetVisible(false);
            m_Grid.m_Panes.InvalidateNodeRow(m_EditNode.Get());
        }
        if (leavesFocus && m_Grid.IsAlive())
            FocusTree();
    } catch (...) {
        // Whoever comes back here out of the report has been told.
        if (m_Grid.IsReporting())
            Abandon(editor.Get());
        else
            ReportAndAbandon(editor.Get(), node);
    }
}

void EditSession::HideCurrentEditor() {
    const ComPtr<_CEditor> editor = m_CurrentEditor;
    m_CurrentEditor = nullptr;
    if (editor)
        IgnoringFailures([&] { EditorProxy(editor.Get()).SetVisible(false); });
}

void EditSession::HideUnused(_CEditor* editor) {
    IgnoringFailures([&] {
        if (editor && editor != m_CurrentEditor.Get() && EditorProxy(editor).Hwnd() != EditorWindow())
            EditorProxy(editor).SetVisible(false);
    });
}

// Inside a catch block: the edit ends whatever becomes of the report.
void EditSession::ReportAndAbandon(_CEditor* editor, const Ref<CNode>& node) {
    try {
        m_Grid.ReportTrappedError(CurrentError());
    } catch (...) {
        Abandon(editor);
        throw;
    }
    // A handler may have gone to a row that the same editor serves.
    if (m_EditNode == node)
        Abandon(editor);
}

void EditSession::Abandon(_CEditor* editor) {
    if (m_CurrentEditor.Get() == editor)
        m_CurrentEditor = nullptr;
    IgnoringFailures([&] { EditorProxy(editor).SetVisible(false); });
    FocusTree();
}

// A refused text is reported and given up: the rows have changed under the editor.
void EditSession::CommitAndHide() {
    const ComPtr<_CEditor> editor = m_CurrentEditor;
    if (!editor)
        return;
    m_Grid.Trapped([&] { Collect(editor.Get()); });
    if (m_CurrentEditor == editor)
        HideCurrentEditor();
}

void EditSession::CommitForMove() {
    ++m_Moves;
    CloseUp();
    CloseEditor(true);
}

void EditSession::ShowMoved() {
    const ComPtr<_CEditor> former = m_CurrentEditor;
    const ComPtr<CProperty> property(m_EditNode ? m_EditNode->Property() : nullptr);
    if (!former || !property || !m_Grid.m_Selection.IsOn(m_EditNode))
        return;
    const bool valid = m_Grid.m_Records.IsPropertyValueValid(*property.Get());
    if (m_CurrentEditor != former)
        return; // a handler ended the edit
    // The row may take another editor by now, or none. One that goes on takes the focus along.
    m_CurrentEditor = nullptr;
    if (valid)
        m_Grid.Trapped([&] { StartEditor(); });
    HideUnused(former.Get());
}

void EditSession::CancelAndHide() {
    const ComPtr<_CEditor> editor = m_CurrentEditor;
    if (!editor)
        return;
    m_CurrentEditor = nullptr;
    EditorProxy proxy(editor.Get());
    proxy.SetVisible(false);
    proxy.Cancel();
    if (BuiltInEditor* builtIn = m_CurrentEditor == editor ? nullptr : m_Editors.BuiltIn(editor.Get()))
        builtIn->LetObjectsGo();
}

// A visit writes nothing into a record: an editor need not show all of its value, nor would it take each of them.
void EditSession::Collect(_CEditor* editor) {
    const BuiltInEditor* builtIn = m_Editors.BuiltIn(editor);
    if (m_Grid.m_Records.IsLoaded() && builtIn && !builtIn->IsTouched())
        return;
    const Meanwhile collecting(m_Collecting, true);
    EditorProxy(editor).Commit();
}

void EditSession::ApplyEditorValue(_CEditor* editor, bool cancel) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer()); // the host's editor calls from where it likes
    const ComPtr<_CEditor> held(editor);
    const Ref<CNode> node = m_EditNode;
    try {
        if (!cancel)
            ApplyValue(editor);
        else if (CProperty* property = m_EditNode ? m_EditNode->Property() : nullptr)
            LoadEditorValue(*property, editor);
    } catch (...) {
        ReportAndAbandon(editor, node);
    }
}

void EditSession::ApplyValue(_CEditor* editor) {
    const Ref<CNode> node = m_EditNode;
    const ComPtr<CProperty> property(node ? node->Property() : nullptr);
    // A handler of ValidateValue that leaves the row commits once more: its answer decides, when it comes.
    if (!property || property.Get() == m_Validated)
        return;
    _variant_t value = EditorProxy(editor).Value();
    const BuiltInEditor* builtIn = m_Editors.BuiltIn(editor);
    const unsigned picks = builtIn ? builtIn->Picks() : 0;
    const auto same = KindOf(property->EditorKind()).same;
    if ((same ? same(*property.Get(), value) : ValuesEqual(property->Value(), value)) ||
        (m_Collecting && m_Asked && m_AskedPicks == picks && ValuesEqual(*m_Asked, value)))
        return;
    m_Asked.reset();
    m_AskedPicks = picks;
    if (!HoldsObject(value) && !V_ISARRAY(&value)) // these equal nothing, and are not to be kept alive here
        m_Asked = value;
    bool typed = !builtIn || builtIn->IsModified();
    const unsigned start = m_Starts;
    const unsigned moves = m_Moves;
    bool cancel = false;
    {
        const Meanwhile<const CProperty*> asking(m_Validated, property.Get());
        m_Grid.m_Events.ValidateValue(*property.Get(), value, cancel);
    }
    if (cancel)
        return;
    // The property may be gone by now, or another record in it. The handler, or an editor of the host, may have made
    // the value fit.
    if (!m_Grid.IsAlive() || node->Property() != property.Get() || m_Moves != moves)
        return;
    // One that was started anew meanwhile shows the present value: what the user gave is not in it any more.
    if (m_EditNode == node && (!builtIn || (m_CurrentEditor.Get() == editor && m_Starts == start))) {
        value = EditorProxy(editor).Value();
        typed = !builtIn || builtIn->IsModified();
    }
    const auto store = KindOf(property->EditorType()).store;
    const auto stored = store ? store(*property.Get(), value, typed) : std::optional(value);
    if (stored)
        node->LetValue(*stored);
}

void EditSession::EditorKeyPress(int& keyAscii) {
    BuiltInEditor* builtIn = m_Editors.BuiltIn(m_CurrentEditor.Get());
    if (!builtIn)
        return;
    const ComPtr<_CEditor> held = m_CurrentEditor;
    m_Asked.reset(); // the same text, typed anew, is another one
    m_Grid.Trapped([&] { builtIn->KeyPress(keyAscii); });
}

void EditSession::TextLostFocus() {
    const ComPtr<_CEditor> editor = m_CurrentEditor;
    // While an error is on screen, it was its message box that took the focus.
    if (!editor || m_Grid.IsReporting())
        return;
    m_Grid.Trapped([&] { Collect(editor.Get()); });
}

void EditSession::UserPicked(omEditorType type) {
    if (!IsOpen(type))
        return;
    const ComPtr<_CEditor> held = m_CurrentEditor;
    const Meanwhile collecting(m_Collecting, true);
    m_Editors.BuiltIn(held.Get())->Picked();
}

void EditSession::NodeGoes(const CNode* node) {
    if (!node || m_EditNode.Get() != node)
        return;
    m_Grid.m_Selection.Lose();
    HideCurrentEditor();
}

void EditSession::ForgetLostRow() {
    if (m_EditNode && !m_EditNode->Tree())
        m_EditNode = nullptr;
}

void EditSession::Drop() {
    m_EditNode = nullptr;
    m_Grid.m_Selection.Lose();
    HideCurrentEditor();
}

} // namespace ormisk
