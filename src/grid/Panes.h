#pragma once

#include "grid/RowLayout.h"
#include "listbox/OrmiskListBox.h"
#include "model/Ref.h"
#include "platform/Pane.h"
#include "platform/ScrollBar.h"
#include "platform/SubclassWnd.h"
#include "platform/TextBox.h"

#include <optional>

namespace ormisk {

class CNode;
class Grid;

// The child windows of the control and their placing:
//
//   control
//     background, split into
//       tab container
//         record toolbar (first, previous, record number, total, next, last)
//         tree container: the rows, and over them the editors, the scroll bar and
//           header container, split into name header and value header
//       description pane
//
// The panes report to the room of input and paint through the painters. All share the control's scale.
class Panes final : public PaneListener, public SplitterListener, public ScrollBarListener {
public:
    explicit Panes(Grid& grid);

    // Makes all windows under a parent; raises when the system refuses one.
    void Create(HWND parent);
    void Destroy() { m_Control.Destroy(); }
    void CreateSplitters();

    // The scale of all panes, after the ambient text of the host.
    void SetPaneScaleMode(std::wstring_view scaleUnits);

    // Sizes that follow from the font: header height, row height, layout, and the place of an open editor.
    void FontChanged();
    void RecalcRowHeight();
    void UpdateHeaderMetrics();

    // Placing. All of it reads the state; nothing of it is undone by an error.
    void ControlResized();
    void LayoutTabContainer();
    void RecalcLayout();
    void UpdateScrollBar(); // to the rows as they are; an open editor goes along
    void ApplyFrame();      // border and appearance
    void ApplyColors();     // back colours
    void ApplyEnabled();    // to the control's window, and to what needs to know in it
    void ApplyShowDescription();
    bool RecordToolbarShown() const;

    // The rows' geometry as it is now, in pixels of the tree container.
    LayoutMetrics Metrics() const;
    RowGeometry GeometryOf(const CNode& node) const; // of a displayed node
    std::optional<Rect> RowRectOf(const CNode* node) const;
    // The first displayed row at a point, or null; edges find nothing.
    Ref<CNode> RowFromPoint(long x, long y) const;
    long RowHeight() const { return m_RowHeight; }
    long HeaderHeight() const { return m_HeaderHeight; }

    // In units of the scale.
    float ColumnDividerPosition() const { return m_HeaderSplitter.SplitterLocation(); }
    void SetColumnDivider(float location); // negative fits the names
    float DescriptionPaneHeight() const;
    void SetDescriptionPaneHeight(float height); // 0 or less fits the help text of the selected property

    // Draws the whole control into any context, from its origin, as it is on screen.
    void Draw(HDC dc);
    // WM_PAINT and WM_PRINTCLIENT of the tree container.
    void PaintTree(UINT message, WPARAM wParam);

    // Repainting.
    void RepaintRows(); // unless refresh is locked
    void InvalidateNodeRow(const CNode* node);
    void InvalidateRowsFrom(const CNode& node);
    void Refresh(); // everything, unless refresh is locked

    // Scrolls a row into view; true if it was there already.
    bool EnsureRowVisible(const CNode& node);

    Pane m_Control;
    Pane m_picBG;
    Pane m_picDescPane;
    Pane m_picTabContainer;
    Pane m_picRSToolbar;
    Pane m_picShowFirst;
    Pane m_picShowPrevious;
    Pane m_picShowNext;
    Pane m_picShowLast;
    Pane m_lblTotalRecords;
    Pane m_picTreeContainer;
    Pane m_picHeaderContainer;
    Pane m_picNameHeader;
    Pane m_picValueHeader;
    ScrollBar m_VScroll;
    TextBox m_TextEditor;
    OrmiskListBox m_ListEditor;
    TextBox m_txtRecordNo;
    CSplitter m_HeaderSplitter{this};
    CSplitter m_ContainerSplitter{this};

    HWND TreeWnd() const { return m_picTreeContainer.hWnd(); }

private:
    // PaneListener
    IUnknown* Keeper() override;
    void OnPaint(Pane& pane, HDC dc, const RECT& clip) override;
    void OnMouseDown(Pane& pane, const MouseEvent& event) override;
    void OnMouseMove(Pane& pane, const MouseEvent& event) override;
    void OnMouseUp(Pane& pane, const MouseEvent& event) override;
    void OnCaptureLost(Pane& pane) override;
    void OnClick(Pane& pane) override;
    void OnDblClick(Pane& pane) override;
    void OnKeyDown(Pane& pane, int& keyCode, int shift) override;
    void OnKeyUp(Pane& pane, int& keyCode, int shift) override;
    void OnKeyPress(Pane& pane, int& keyAscii) override;
    void OnFocusChange(Pane& pane, bool gained) override;
    void OnResize(Pane& pane) override;
    bool OnChildMessage(Pane& pane, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    // SplitterListener
    void LocationChanged(CSplitter& splitter) override;
    void SplitterDblClick(CSplitter& splitter) override;
    // ScrollBarListener
    void OnScroll() override;
    void OnScrollBarFocus() override;

    CSplitter* SplitterIn(const Pane& pane);
    bool ForwardMouse(Pane& pane, const MouseEvent& event, void (CSplitter::*hears)(int, int, float, float));
    void HeaderSplitterMoved();
    long ComputeAutoDividerWidth() const;
    double DividerPixels() const;
    float ScrollBarUnits() const; // its width while it is shown, else 0

    Grid& m_Grid;
    long m_RowHeight = 18;
    long m_HeaderHeight = 19;
    long m_LastScrollValue = 0;
};

} // namespace ormisk
