#include "grid/PaneTable.h"

#include "grid/Grid.h"

#include <algorithm>
#include <functional>

namespace ormisk {

namespace {

void PaintHeader(Grid& grid, const Pane& pane, HDC dc, const Rect&) {
    grid.m_ChromePainter.DrawColumnHeader(dc, &pane == &grid.m_Panes.m_picNameHeader);
}

constexpr PaneEntry ToolbarPane(PaneId id, omHitItem hitItem) {
    return {.id = id,
            .parent = PaneId::RSToolbar,
            .hitItem = hitItem,
            .paint = [](Grid& grid, const Pane& pane, HDC dc, const Rect&) { grid.m_RecordToolbar.Paint(pane, dc); }};
}

// Of a quick hand each press counts, also the second of a double click.
template <RecordButton button> constexpr PaneEntry ToolbarButton(PaneId id, omHitItem hitItem) {
    PaneEntry entry = ToolbarPane(id, hitItem);
    entry.clicked = entry.doubleClicked = [](Grid& grid) { grid.m_RecordToolbar.Click(button); };
    return entry;
}

} // namespace

constexpr std::array<PaneEntry, kPaneCount> kPaneTable = {{
    {.id = PaneId::Control,
     .parent = PaneId::Control, // which is the container's
     .options = {.takesFocus = true, .visible = false},
     .resized = [](Grid& grid) { grid.m_Panes.ControlResized(); },
     .focused =
         [](Grid& grid, bool gained) {
             if (gained)
                 grid.m_Panes.m_picTreeContainer.TakeFocus(); // the control itself has nothing to type into
         }},
    // What shows of it is the bar.
    {.id = PaneId::Background,
     .parent = PaneId::Control,
     .hitItem = omDescriptionSplitter,
     .splitter = &Panes::m_ContainerSplitter},
    {.id = PaneId::Description,
     .parent = PaneId::Background,
     .hitItem = omDescriptionPane,
     .paint = [](Grid& grid, const Pane&, HDC dc, const Rect&) { grid.m_ChromePainter.DrawDescription(dc); },
     .keyDown = [](Grid& grid, int key, int shift) { grid.m_FocusOrder.DescriptionKeyDown(key, shift); },
     .focused = [](Grid& grid, bool) { grid.m_Panes.m_picDescPane.Invalidate(true); }},
    {.id = PaneId::TabContainer,
     .parent = PaneId::Background,
     .options = {.takesFocus = true},
     .resized = [](Grid& grid) { grid.m_Panes.LayoutTabContainer(); },
     .paint = [](Grid& grid, const Pane&, HDC dc, const Rect&) { grid.m_ChromePainter.DrawTabs(dc); },
     .keyDown = [](Grid& grid, int key, int) { grid.m_Input.TabKeyDown(key); },
     .focused = [](Grid& grid, bool) { grid.m_Panes.m_picTabContainer.Invalidate(true); }},
    {.id = PaneId::RSToolbar, .parent = PaneId::TabContainer, .options = {.visible = false}, .hitItem = omRSToolbar},
    ToolbarButton<RecordButton::First>(PaneId::ShowFirst, omRSToolbarFirstButton),
    ToolbarButton<RecordButton::Previous>(PaneId::ShowPrevious, omRSToolbarPreviousButton),
    ToolbarPane(PaneId::TotalRecords, omRSToolbarInfo),
    ToolbarButton<RecordButton::Next>(PaneId::ShowNext, omRSToolbarNextButton),
    ToolbarButton<RecordButton::Last>(PaneId::ShowLast, omRSToolbarLastButton),
    {.id = PaneId::TreeContainer,
     .parent = PaneId::TabContainer,
     .options = {.takesFocus = true, .erases = false},
     .hitItem = omPropertiesArea,
     .resized = [](Grid& grid) { grid.m_Panes.RecalcLayout(); },
     .paint = [](Grid& grid, const Pane&, HDC dc, const Rect& clip) { grid.m_RowPainter.PaintTree(dc, clip); },
     .clicked = [](Grid& grid) { grid.m_Input.OnTreeClick(); },
     .doubleClicked = [](Grid& grid) { grid.m_Input.OnTreeDblClick(); },
     .keyDown = [](Grid& grid, int key, int shift) { grid.m_Input.OnTreeKeyDown(key, shift); }},
    {.id = PaneId::HeaderContainer,
     .parent = PaneId::TreeContainer,
     .hitItem = omHeaderSplitter,
     .splitter = &Panes::m_HeaderSplitter,
     .keyDown = [](Grid& grid, int key, int shift) { grid.m_FocusOrder.HeaderKeyDown(key, shift); },
     .focused = [](Grid& grid, bool) { grid.m_Panes.m_picNameHeader.Invalidate(true); }}, // which shows it
    {.id = PaneId::NameHeader,
     .parent = PaneId::HeaderContainer,
     .options = {.erases = false},
     .hitItem = omNameHeader,
     .paint = PaintHeader,
     .clicked = [](Grid& grid) { grid.m_ModelView.HeaderSort(true); }},
    {.id = PaneId::ValueHeader,
     .parent = PaneId::HeaderContainer,
     .options = {.erases = false},
     .hitItem = omValueHeader,
     .paint = PaintHeader,
     .clicked = [](Grid& grid) { grid.m_ModelView.HeaderSort(false); }},
}};

// All of them, each at its place.
static_assert(std::ranges::adjacent_find(kPaneTable, std::ranges::greater_equal(), &PaneEntry::id) == kPaneTable.end());

} // namespace ormisk
