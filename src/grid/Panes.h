#pragma once

#include "grid/PaneTable.h"
#include "grid/RowLayout.h"
#include "listbox/OrmiskListBox.h"
#include "model/Ref.h"
#include "picker/OrmiskSwatch.h"
#include "platform/ScrollBar.h"
#include "platform/TextBox.h"

#include <optional>

namespace ormisk {

class CNode;
class Grid;

// The child windows of the control and their placing. All of `kPaneTable` report to `PaneEvents` and share the
// control's scale.
class Panes final {
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

    // In units of the scale.
    float ScrollBarUnits() const; // its width while it is shown, else 0
    float ColumnDividerPosition() const { return m_HeaderSplitter.SplitterLocation(); }
    void SetColumnDivider(float location); // negative fits the names
    float DescriptionPaneHeight() const;
    void SetDescriptionPaneHeight(float height); // 0 or less fits the help text of the selected property

    // Draws the whole control into any context, from its origin, as it is on screen.
    void Draw(HDC dc);

    // Repainting.
    void RepaintRows(); // unless refresh is locked
    void InvalidateNodeRow(CNode* node);
    // The rows that the body invalidates all at once at its end, wherever they are by then.
    void InvalidateTogether(const std::function<void()>& body);
    void InvalidateRowsFrom(const CNode& node);
    void Refresh(); // everything, unless refresh is locked

    // Scrolls a row into view; true if it was there already.
    bool EnsureRowVisible(const CNode& node);

private:
    std::array<Pane, kPaneCount> m_All; // by PaneId

public:
    Pane& m_Control = At(PaneId::Control);
    Pane& m_picBG = At(PaneId::Background);
    Pane& m_picDescPane = At(PaneId::Description);
    Pane& m_picTabContainer = At(PaneId::TabContainer);
    Pane& m_picRSToolbar = At(PaneId::RSToolbar);
    Pane& m_picShowFirst = At(PaneId::ShowFirst);
    Pane& m_picShowPrevious = At(PaneId::ShowPrevious);
    Pane& m_lblTotalRecords = At(PaneId::TotalRecords);
    Pane& m_picShowNext = At(PaneId::ShowNext);
    Pane& m_picShowLast = At(PaneId::ShowLast);
    Pane& m_picTreeContainer = At(PaneId::TreeContainer);
    Pane& m_picHeaderContainer = At(PaneId::HeaderContainer);
    Pane& m_picNameHeader = At(PaneId::NameHeader);
    Pane& m_picValueHeader = At(PaneId::ValueHeader);
    ScrollBar m_VScroll;
    TextBox m_TextEditor;
    OrmiskListBox m_ListEditor;
    OrmiskSwatch m_ColorEditor;
    CSplitter m_HeaderSplitter;
    CSplitter m_ContainerSplitter;

    // Whether the keys come to the control, the palette of its colour editor with it.
    bool HaveFocus() const;
    HWND TreeWnd() const { return m_picTreeContainer.hWnd(); }
    const PaneEntry& EntryOf(const Pane& pane) const { return kPaneTable[&pane - m_All.data()]; }

private:
    Pane& At(PaneId id) { return m_All[static_cast<std::size_t>(id)]; }
    std::optional<long> TextHeight() const;
    long ComputeAutoDividerWidth() const;
    long HeaderPixels() const; // of the strip, if there is one

    Grid& m_Grid;
    long m_RowHeight = 18;
    long m_HeaderHeight = 19;
    std::vector<Ref<CNode>>* m_Together = nullptr; // rows that are invalidated in the end
};

} // namespace ormisk
