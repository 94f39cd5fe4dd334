#pragma once

#include "grid/GridEvents.h"
#include "platform/TextBox.h"
#include "tree/CNode.h"

namespace ormisk {

class Grid;

// Turns mouse and keyboard into selection, expanding, scrolling and changes of the view, and passes both on to the
// host.
class Input final : public ChildWindowListener {
public:
    explicit Input(Grid& grid) : m_Grid(grid) {}

    // A mouse event of any pane.
    void PaneMouse(const Pane& pane, const MouseEvent& event);
    // The mouse on the rows, where the cursor is now.
    void OnTreeClick();
    void OnTreeDblClick();
    bool OnMouseWheel(WPARAM wParam); // false when there is nothing to scroll

    // A key in any pane: the host hears it first and may change it.
    void PaneKeyDown(const Pane& pane, int& keyCode, int shift);
    void OnTreeKeyDown(int keyCode, int shift);
    void TabKeyDown(int keyCode); // the arrows switch the view while the strip has the focus
    // An access key of the control was pressed.
    void OnAccessKey(wchar_t key);
    std::wstring AccessKeys() const;

private:
    // ChildWindowListener: the text box of the text and number editors.
    void OnKeyDown(int& keyCode, int shift) override;
    void OnKeyPress(int& keyAscii) override;
    void OnKeyUp(int& keyCode, int shift) override;
    void OnGotFocus() override;
    void OnLostFocus() override;

    void FireMouseEvent(const Pane& pane, const MouseEvent& event, MouseStage stage, omHitItem hitItem);
    omHitItem HitItemOf(const Pane& pane, const MouseEvent& event) const;
    void TabMouseDown(omHitItem tab);
    void SwitchView(omActiveView view);
    bool HandleNavigation(int keyCode, int shift, const Ref<CNode>& selected, Ref<CNode>& target);
    void HandleOtherKey(int keyCode, int shift, const Ref<CNode>& selected, Ref<CNode>& target);
    void DropDown(const Ref<CNode>& selected, Ref<CNode>& target);
    Ref<CNode> RowAt(long row) const;
    Ref<CNode> PageFrom(const CNode& node, int direction) const;
    Ref<CNode> FindRowByInitial(const CNode& node, int character) const;
    Ref<CNode> RowUnderCursor(POINT& point) const; // which is told, on the tree

    Grid& m_Grid;
};

} // namespace ormisk
