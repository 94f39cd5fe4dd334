#include "grid/Selection.h"

#include "grid/Grid.h"

namespace ormisk {

CProperty* Selection::SelectedProperty() const { return m_SelectedNode ? m_SelectedNode->Property() : nullptr; }

// A handler may have taken a node out of the tree or hidden it, or another tree may be on screen.
bool Selection::Holds(const Ref<CNode>& node) const {
    return node && node->Tree() == m_Grid.m_ActiveNodes && !node->IsWithinHidden();
}

bool Selection::IsOn(const Ref<CNode>& node) const { return m_Grid.IsAlive() && m_SelectedNode == node; }

void Selection::SetSelectedNode(Ref<CNode> node) {
    EditSession& session = m_Grid.m_Session;
    if (node == m_SelectedNode) {
        if (!session.IsEditorOpen() && m_SelectedNode)
            session.StartEditor();
        return;
    }
    const ComPtr<_CEditor> prevEditor = session.CurrentEditor();
    ComPtr<CProperty> prevProperty;
    if (m_SelectedNode) {
        prevProperty = SelectedProperty();
        const Ref<CNode> old = m_SelectedNode;
        session.CloseEditor(false);
        if (node && m_SelectedNode == node)
            return; // a handler selected the row itself
        // A handler that moved the selection elsewhere has shown an editor of its own.
        if (session.IsEditorOpen())
            session.CloseEditor(false);
        if (!m_Grid.IsAlive())
            return;
        m_Grid.m_Panes.InvalidateNodeRow(old.Get());
    }
    if (node && !Holds(node))
        node = nullptr;
    m_SelectedNode = node;
    ComPtr<CProperty> newProperty;
    if (node) {
        newProperty = node->Property();
        m_Grid.m_ModelView.ExpandParents(*node);
        if (!IsOn(node))
            return; // a handler ended the control, or moved the selection and told of that
        m_Grid.m_Panes.EnsureRowVisible(*node);
        m_Grid.m_Panes.InvalidateNodeRow(node.Get());
    }
    m_Grid.m_Panes.m_picDescPane.Invalidate(true);
    if (prevProperty != newProperty) {
        m_Grid.m_Events.SelChanged(newProperty.Get());
        if (!m_Grid.IsAlive())
            return;
        session.HideUnused(prevEditor.Get());
    }
    if (!session.IsEditorOpen() && m_SelectedNode)
        session.StartEditor();
}

void Selection::SelectProperty(_CProperty* property) {
    if (!property) {
        SetSelectedNode(nullptr);
        return;
    }
    const ComPtr<CProperty> present(SelectedProperty());
    if (SameObject(property, static_cast<_CProperty*>(present.Get())))
        return;
    VARIANT_BOOL visible = VARIANT_FALSE;
    Check(property->get_Visible(&visible));
    if (visible == VARIANT_FALSE)
        Raise(ErrorCode::InvalidAction);
    const CProperty* own = m_Grid.m_CProperties ? m_Grid.m_CProperties->Own(property) : nullptr;
    if (!own)
        Raise(ErrorCode::AlienProperty);
    const Ref<CNode> node(m_Grid.m_ActiveNodes->ItemOf(*own));
    if (node && node->IsWithinHidden())
        Raise(ErrorCode::InvalidAction);
    SetSelectedNode(node);
}

void Selection::StartPropertyEdit(_CProperty* property) {
    if (!property)
        Raise(ErrorCode::InvalidPropertyObject);
    VARIANT_BOOL visible = VARIANT_FALSE;
    VARIANT_BOOL readOnly = VARIANT_TRUE;
    Check(property->get_Visible(&visible));
    Check(property->get_ReadOnly(&readOnly));
    if (visible == VARIANT_FALSE || readOnly != VARIANT_FALSE || m_Grid.m_State.readOnly)
        Raise(ErrorCode::InvalidAction);
    const ComPtr<CProperty> present(SelectedProperty());
    const bool isSelected = SameObject(property, static_cast<_CProperty*>(present.Get()));
    SelectProperty(property);
    if (isSelected)
        m_Grid.m_Session.OpenAndActivate(true);
    else
        m_Grid.m_Session.ActivateEditor(true); // one that failed to start has been reported
}

void Selection::Lose() {
    m_SelectedNode = nullptr;
    m_Grid.m_Panes.m_picDescPane.Invalidate(true);
}

void Selection::DropLostSelection() {
    if (m_SelectedNode && !m_SelectedNode->Tree())
        Lose();
    m_Grid.m_Session.ForgetLostRow();
}

} // namespace ormisk
