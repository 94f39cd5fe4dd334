#pragma once

#include "tree/CNode.h"

namespace ormisk {

class Grid;

// Which row is selected. The edit goes along: the open editor commits and hides before the selection moves, the host
// hears of another property, and then the new row gets its editor.
class Selection {
public:
    explicit Selection(Grid& grid) : m_Grid(grid) {}

    // Null selects nothing. On the selected row this brings back an editor that has gone.
    void SetSelectedNode(Ref<CNode> node);
    Ref<CNode> SelectedNode() const { return m_SelectedNode; }
    bool IsSelected(const CNode& node) const { return m_SelectedNode.Get() == &node; }
    CProperty* SelectedProperty() const; // null for a category row and without a selection
    // After the host was called: whether the row is still the selected one of a control that lives.
    bool IsOn(const Ref<CNode>& node) const;

    // What the host asks for. Raises InvalidAction for a hidden property, AlienProperty for one that is not ours.
    void SelectProperty(_CProperty* property);
    // Also raises InvalidPropertyObject for Nothing, InvalidAction for a property that cannot be edited.
    void StartPropertyEdit(_CProperty* property);

    // Without commit and without event: the row leaves the tree. The description pane follows.
    void Lose();
    void DropLostSelection();

private:
    bool Holds(const Ref<CNode>& node) const;

    Grid& m_Grid;
    Ref<CNode> m_SelectedNode;
};

} // namespace ormisk
