#include "grid/Panes.h"

#include "grid/Grid.h"
#include "platform/Rounding.h"
#include "platform/TextOutput.h"
#include "platform/WindowPicture.h"
#include "win/Handles.h"
#include "win/Meanwhile.h"

#include <algorithm>

namespace ormisk {

namespace {

Rect WithLineBelow(Rect row) { return {row.left, row.top, row.right, row.bottom + 1}; }

} // namespace

Panes::Panes(Grid& grid)
    : m_HeaderSplitter(&grid.m_PaneEvents), m_ContainerSplitter(&grid.m_PaneEvents), m_Grid(grid) {}

void Panes::Create(HWND parent) {
    for (const PaneEntry& entry : kPaneTable)
        At(entry.id).Create(entry.id == entry.parent ? parent : At(entry.parent).hWnd(), m_Grid.m_PaneEvents,
                            entry.options);
    m_Grid.m_RecordToolbar.Create();
    m_VScroll.Create(TreeWnd(), m_Grid.m_PaneEvents);
    m_TextEditor.Create(TreeWnd(), &m_Grid.m_Input);
    m_ListEditor.Create(TreeWnd(), &m_Grid.m_ListInput);
    m_ColorEditor.InitProperties(m_Grid.m_State.font);
    m_ColorEditor.Create(TreeWnd(), &m_Grid.m_ColorInput);
    m_picHeaderContainer.BringToTop();
    ApplyFrame();
    ApplyColors();
    m_Control.MovePixels({0, 0, 240, 320}); // until the host gives it another size
    RecalcRowHeight();
}

void Panes::CreateSplitters() {
    m_HeaderSplitter.init(&m_picHeaderContainer, &m_picNameHeader, &m_picValueHeader, SplitterOrientation::Vertical);
    m_HeaderSplitter.SplitterbarSize(m_picHeaderContainer.PixelsToUnitsX(1.0F));
    m_HeaderSplitter.SplitterLocation(m_picHeaderContainer.ScaleWidth() / 2);
    m_ContainerSplitter.init(&m_picBG, &m_picTabContainer, &m_picDescPane, SplitterOrientation::Horizontal);
    const float height = m_picBG.ScaleHeight();
    m_ContainerSplitter.SplitterLocation(height - 0.2F * height);
    ApplyShowDescription();
}

void Panes::SetPaneScaleMode(std::wstring_view scaleUnits) {
    const ScaleMode mode = ScaleModeFromText(scaleUnits);
    if (mode == m_Control.Scale())
        return;
    const float oldUnitX = m_picHeaderContainer.UnitsToPixelsX(1.0F);
    const float oldUnitY = m_picBG.UnitsToPixelsY(1.0F);
    for (Pane& pane : m_All)
        pane.SetScale(mode);
    if (!m_Control.IsAlive())
        return;
    m_HeaderSplitter.Rescale(m_picHeaderContainer.PixelsToUnitsX(oldUnitX), m_picHeaderContainer.PixelsToUnitsX(1.0F));
    // Whole units lose parts of the bar's size: so it comes from the system each time.
    const auto bar = static_cast<float>(GetSystemMetrics(SM_CYFRAME));
    m_ContainerSplitter.Rescale(m_picBG.PixelsToUnitsY(oldUnitY), m_picBG.PixelsToUnitsX(bar));
    LayoutTabContainer();
    m_picTabContainer.Invalidate(true); // its tabs are whole units wide
}

void Panes::FontChanged() {
    UpdateHeaderMetrics();
    RecalcRowHeight();
    RecalcLayout();
    // What keeps its size shows the font too, also while refresh is locked.
    for (Pane* pane : {&m_picNameHeader, &m_picValueHeader, &m_picDescPane, &m_picTabContainer})
        pane->Invalidate(true);
    m_Grid.m_Session.FontChanged();
}

// Of a line in the control's font.
std::optional<long> Panes::TextHeight() const {
    const WindowDC dc(TreeWnd());
    const HFONT font = m_Grid.m_ResourceMgr.GetFont(m_Grid.m_State.font, L"TreeFont");
    if (!dc || !font)
        return std::nullopt;
    const SelectGuard selected(dc.Get(), font);
    return MeasureText(dc.Get(), L"Ag", false).cy;
}

void Panes::RecalcRowHeight() {
    if (const auto height = TextHeight())
        m_RowHeight = RowHeightOfText(*height);
}

void Panes::UpdateHeaderMetrics() {
    const auto height = TextHeight();
    if (!height || HeaderHeightOfText(*height) == m_HeaderHeight)
        return;
    m_HeaderHeight = HeaderHeightOfText(*height);
    RecalcLayout();
}

void Panes::ControlResized() {
    const Size client = m_Control.ClientSize();
    m_picBG.MovePixels({0, 0, client.cx, client.cy});
    m_Grid.m_Session.CloseEditor(false);
    RecalcLayout();
}

bool Panes::RecordToolbarShown() const {
    const long toolbar = m_Grid.m_State.recordsetToolbar;
    return toolbar == omShow || (toolbar == omAutomatic && m_Grid.m_Records.IsLoaded());
}

long Panes::HeaderPixels() const { return m_Grid.m_State.headers != omHeadersNone ? m_HeaderHeight : 0; }

void Panes::LayoutTabContainer() {
    long tabHeight = 0;
    Size margin;
    if (m_Grid.m_State.showTabs) {
        m_Grid.m_ChromeMetrics.CalcTabRects();
        tabHeight = m_Grid.m_ChromeMetrics.Tabs().Tab(0).bottom;
        // A whole number of units; large units leave none.
        const auto four = [units = m_picTreeContainer.Units()](Axis axis) {
            return RoundToLong(units.ToPixels(static_cast<float>(RoundToLong(units.ToUnits(4, axis))), axis));
        };
        margin = {four(Axis::X), four(Axis::Y)};
    }
    const Size client = m_picTabContainer.ClientSize();
    long toolbarHeight = 0;
    m_picRSToolbar.SetVisible(RecordToolbarShown());
    if (RecordToolbarShown()) {
        m_Grid.m_RecordToolbar.LayoutRecordToolbar();
        toolbarHeight = RoundToLong(m_picRSToolbar.UnitsToPixelsY(m_picRSToolbar.Height()));
    }
    m_picTreeContainer.MovePixels(
        {margin.cx, tabHeight + margin.cy, client.cx - margin.cx, client.cy - margin.cy - toolbarHeight});
}

void Panes::RecalcLayout() {
    if (!m_picTreeContainer.IsAlive())
        return;
    // Without headers the strip is parked above the visible area.
    const long bottom = HeaderPixels();
    m_picHeaderContainer.MovePixels({0, bottom - m_HeaderHeight, m_picTreeContainer.ClientSize().cx, bottom});
    UpdateScrollBar();
    // Read anew: an edit that scrolling committed may have changed them.
    const LayoutMetrics now = Metrics();
    m_VScroll.MovePixels({now.client.cx - now.scrollBarWidth, now.headerHeight, now.client.cx, now.client.cy});
    m_VScroll.HideCaret();
    m_picTreeContainer.Invalidate(false);
}

void Panes::UpdateScrollBar() {
    const auto range = ScrollRangeFor(m_Grid.m_ActiveNodes->VisibleRowCount(), m_picTreeContainer.ClientSize().cy,
                                      HeaderPixels(), m_RowHeight);
    if (range)
        m_VScroll.SetVisible(range->shown);
    if (range && range->shown) {
        m_VScroll.HideCaret();
        // A value beyond the range is reported: it commits an edit, whose handlers may lay out anew.
        m_VScroll.SetRange(range->max, range->largeChange);
    }
    m_Grid.m_Session.FollowRow();
}

void Panes::ApplyFrame() {
    const bool raised = m_Grid.m_State.appearance == om3d;
    const Pane::Border border = raised ? Pane::Border::Sunken : Pane::Border::Line;
    m_Control.SetBorder(m_Grid.m_State.borderStyle == omFixedSingle ? border : Pane::Border::None);
    m_picTreeContainer.SetBorder(border);
}

void Panes::ApplyColors() {
    const auto color = static_cast<Color>(m_Grid.m_State.backColor);
    for (Pane& pane : m_All)
        pane.SetBackColor(color);
}

// The windows in the control get no mouse then, but keys, and paint themselves as before.
void Panes::ApplyEnabled() {
    const bool enabled = m_Grid.m_State.enabled;
    const HWND control = m_Control.hWnd();
    if (!control)
        return;
    EnableWindow(control, enabled);
    RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    m_TextEditor.SetEnabled(enabled);
    m_Grid.m_RecordToolbar.ApplyEnabled();
    m_ListEditor.SetEnabled(enabled);
    m_ColorEditor.SetEnabled(enabled);
    m_Grid.m_Session.m_Editors.SetEnabled(enabled);
}

void Panes::ApplyShowDescription() {
    m_ContainerSplitter.HidePane(m_Grid.m_State.showDescription ? HiddenPane::None : HiddenPane::Bottom);
}

LayoutMetrics Panes::Metrics() const {
    LayoutMetrics metrics;
    metrics.rowHeight = m_RowHeight;
    metrics.headerHeight = HeaderPixels();
    metrics.client = m_picTreeContainer.ClientSize();
    metrics.scrollBarWidth = GetSystemMetrics(SM_CXVSCROLL);
    metrics.scrollBarShown = m_VScroll.IsVisible();
    metrics.scrollValue = m_VScroll.Value();
    metrics.indentation = m_Grid.m_State.indentation;
    const long style = m_Grid.m_State.treeStyle;
    metrics.expanderStyle = style == omPlusMinusText || style == omTreeLinesPlusMinusText;
    metrics.divider = m_picHeaderContainer.UnitsToPixelsX(ColumnDividerPosition());
    return metrics;
}

RowGeometry Panes::GeometryOf(const CNode& node) const {
    return LayoutRow(Metrics(), m_Grid.m_ActiveNodes->RowOf(&node), node.Level(), m_Grid.m_RowLook.PictureSize(node));
}

std::optional<Rect> Panes::RowRectOf(const CNode* node) const {
    const long row = node ? m_Grid.m_ActiveNodes->RowOf(node) : -1;
    if (row < 0)
        return std::nullopt;
    return RowRect(Metrics(), row);
}

Ref<CNode> Panes::RowFromPoint(long x, long y) const {
    const auto row = RowAtPoint(Metrics(), x, y);
    if (!row || *row >= m_Grid.m_ActiveNodes->VisibleRowCount())
        return nullptr;
    return Ref<CNode>(m_Grid.m_ActiveNodes->NodeAtRow(*row));
}

float Panes::ScrollBarUnits() const {
    return m_VScroll.IsVisible() ? m_Control.Units().ToUnits(GetSystemMetrics(SM_CXVSCROLL), Axis::X) : 0.0F;
}

void Panes::SetColumnDivider(float location) {
    if (location < 0)
        location = m_picHeaderContainer.Units().ToUnits(ComputeAutoDividerWidth(), Axis::X);
    const double clamped =
        ClampDivider(location, m_Control.ScaleWidth(), ScrollBarUnits(), m_Control.PixelsToUnitsX(1.0F));
    m_HeaderSplitter.SplitterLocation(static_cast<float>(clamped));
    m_picTreeContainer.Invalidate(true);
}

long Panes::ComputeAutoDividerWidth() const {
    const WindowDC dc(TreeWnd());
    if (!dc)
        return 0;
    long widest = 0;
    const LayoutMetrics metrics = Metrics();
    for (Ref<CNode> node(m_Grid.m_ActiveNodes->NodeAtRow(0)); node; node = Ref<CNode>(node->NextVisible())) {
        const SelectGuard selected(dc.Get(), m_Grid.m_RowLook.FontOf(*node));
        const RowGeometry geometry = LayoutRow(metrics, 0, node->Level(), m_Grid.m_RowLook.PictureSize(*node));
        const CProperty* property = node->Property();
        const long extra = property && property->EditorKind() == omColorEditor ? geometry.name.Width() : 0;
        widest = std::max(widest, MeasureText(dc.Get(), node->Name(), false).cx + geometry.textLeft + extra + 5);
    }
    return widest;
}

float Panes::DescriptionPaneHeight() const { return m_picBG.ScaleHeight() - m_ContainerSplitter.SplitterLocation(); }

void Panes::SetDescriptionPaneHeight(float height) {
    if (height <= 0) {
        const CProperty* property = m_Grid.m_Selection.SelectedProperty();
        const long pixels = m_Grid.m_ChromeMetrics.CalcDescriptionHeight(property ? property->Help() : std::wstring());
        height = m_picBG.Units().ToUnits(pixels, Axis::Y);
    }
    m_ContainerSplitter.SplitterLocation(m_picBG.ScaleHeight() - height);
    UpdateScrollBar();
    if (const Ref<CNode> selected = m_Grid.m_Selection.SelectedNode())
        EnsureRowVisible(*selected);
}

void Panes::Draw(HDC dc) { DrawWindowPicture(m_Control.hWnd(), dc); }

void Panes::RepaintRows() {
    if (!m_Grid.m_State.lockRefresh)
        m_picTreeContainer.Invalidate(true);
}

void Panes::InvalidateNodeRow(CNode* node) {
    if (!node)
        return;
    if (m_Together)
        m_Together->emplace_back(node);
    else if (const auto rect = RowRectOf(node))
        m_picTreeContainer.Invalidate(WithLineBelow(*rect), true);
}

void Panes::InvalidateTogether(const std::function<void()>& body) {
    std::vector<Ref<CNode>> nodes;
    {
        const Meanwhile<std::vector<Ref<CNode>>*> together(m_Together, &nodes);
        body();
    }
    if (!m_Grid.IsAlive() || nodes.empty())
        return;
    const Unique<HRGN> rows(CreateRectRgn(0, 0, 0, 0));
    const Unique<HRGN> row(CreateRectRgn(0, 0, 0, 0));
    for (const Ref<CNode>& node : nodes) {
        const auto rect = RowRectOf(node.Get());
        if (!rect || !row)
            continue;
        const Rect place = WithLineBelow(*rect);
        SetRectRgn(row.get(), place.left, place.top, place.right, place.bottom);
        CombineRgn(rows.get(), rows.get(), row.get(), RGN_OR);
    }
    if (TreeWnd())
        InvalidateRgn(TreeWnd(), rows.get(), TRUE);
}

void Panes::InvalidateRowsFrom(const CNode& node) {
    if (m_Grid.m_ActiveNodes->RowOf(&node) < 0)
        return;
    // The expander's top counts from its own cell, so nearly all rows are painted anew: those above may have moved too,
    // when the scroll bar went.
    const Size client = m_picTreeContainer.ClientSize();
    m_picTreeContainer.Invalidate({0, GeometryOf(node).expander.top, client.cx, client.cy}, false);
}

void Panes::Refresh() {
    if (m_Grid.m_State.lockRefresh)
        return;
    for (Pane* pane : {&m_picTreeContainer, &m_picHeaderContainer, &m_picNameHeader, &m_picValueHeader, &m_picDescPane,
                       &m_picTabContainer, &m_picBG})
        pane->Refresh();
}

bool Panes::HaveFocus() const {
    const HWND focus = GetFocus();
    const HWND top = focus ? GetAncestor(focus, GA_ROOT) : nullptr;
    return focus && (IsChild(m_Control.hWnd(), focus) || top == m_Grid.m_Session.DropDownWindow());
}

bool Panes::EnsureRowVisible(const CNode& node) {
    const auto rect = RowRectOf(&node);
    const auto value = rect ? ScrollValueFor(Metrics(), *rect) : std::nullopt;
    if (value)
        m_VScroll.SetValue(*value);
    return !value;
}

} // namespace ormisk
