#include "grid/GridProperties.h"

#include "automation/Value.h"
#include "grid/Grid.h"

namespace ormisk {

namespace {

bool SameValue(const PropertyValue& a, const PropertyValue& b) {
    const auto* picture = std::get_if<ComPtr<IPictureDisp>>(&a);
    return picture ? SameObject(picture->Get(), std::get<ComPtr<IPictureDisp>>(b).Get()) : a == b;
}

} // namespace

void GridProperties::Put(const PropertyEntry& entry, PropertyValue value) {
    GridState& state = m_Grid.m_State;
    if (entry.check)
        entry.check(value);
    if (!(entry.effects & kAlways) && SameValue(value, entry.Read(state)))
        return;
    if (entry.effects & kSwitchesView)
        m_Grid.m_Session.CloseEditor(false);
    // Rows that are there stay where they are.
    if (entry.effects & kReplacesSeparator && m_Grid.m_CProperties)
        m_Grid.m_ModelView.ReplaceSeparator(state.categorySeparator, std::get<std::wstring>(value));
    entry.Write(state, std::move(value));
    std::exception_ptr failure; // of the editor that comes up; the view is another one all the same
    try {
        if (entry.effects & kSwitchesView)
            m_Grid.m_ModelView.ViewChanged();
    } catch (...) {
        failure = std::current_exception();
    }
    if (entry.effects & kNotifies)
        m_Grid.m_Host.NotifyChanged(entry.id);
    if (entry.effects & kSwitchesView)
        TellOfView();
    if (m_Grid.IsAlive())
        Apply(entry);
    if (failure)
        std::rethrow_exception(failure);
}

void GridProperties::TellOfView() {
    if (!m_Grid.m_CProperties)
        return; // a handler ended the control
    m_Grid.m_Panes.m_picTabContainer.Invalidate(true);
    m_Grid.m_Panes.m_picTreeContainer.Invalidate(true);
    m_Grid.m_Events.ActiveViewChanged();
}

void GridProperties::Apply(const PropertyEntry& entry) {
    Panes& panes = m_Grid.m_Panes;
    const unsigned effects = entry.effects;
    if (effects & kChangesFrame)
        panes.ApplyFrame();
    // First: hiding a window hands its focus to the one around it.
    if (effects & (kShowsDescription | kShowsTabs | kShowsToolbar | kLaysOut))
        m_Grid.m_FocusOrder.LeaveHidden();
    if (effects & kHidesTip)
        m_Grid.m_Tips.Hide();
    if (effects & kShowsDescription)
        panes.ApplyShowDescription();
    if (effects & kEnables)
        panes.ApplyEnabled();
    if (entry.mark)
        m_Grid.m_ModelView.MarkCategories(entry.mark);
    if (effects & (kChangesTabs | kShowsTabs | kShowsToolbar | kChangesFont))
        panes.LayoutTabContainer();
    if (effects & kChangesTabs)
        m_Grid.m_Host.AccessKeysChanged();
    if (effects & kChangesFont)
        panes.FontChanged();
    if (effects & kLaysOut)
        panes.RecalcLayout();
    if (effects & kColorsPanes)
        panes.ApplyColors();
    Repaint(effects);
    if (effects & kSorts && m_Grid.m_Host.UserMode()) {
        if (m_Grid.m_State.sorted)
            m_Grid.m_ModelView.Sort(false);
        if (m_Grid.IsAlive())
            m_Grid.m_ModelView.RefreshView();
    }
    if (effects & kUnlocks)
        m_Grid.m_ModelView.RefreshView();
}

void GridProperties::Repaint(unsigned effects) {
    Panes& panes = m_Grid.m_Panes;
    if (effects & (kChangesTabs | kShowsTabs | kShowsToolbar))
        panes.m_picTabContainer.Invalidate(true);
    if (effects & kRepaintsNameHeader)
        panes.m_picNameHeader.Invalidate(true);
    if (effects & kRepaintsValueHeader)
        panes.m_picValueHeader.Invalidate(true);
    const bool lines = m_Grid.m_State.grid != omGridNone || m_Grid.m_State.activeView != omAlphabetic;
    if (effects & kRepaintsRows || (effects & kRepaintsSelection && m_Grid.m_Selection.SelectedNode()) ||
        (effects & kRepaintsLines && lines))
        panes.RepaintRows();
    if (effects & (kColorsPanes | kRepaintsAll))
        panes.Refresh();
}

void GridProperties::RunFirstDefaults() {
    const GridState defaults;
    for (int place = 1; place <= static_cast<int>(kProperties.size()); ++place) {
        for (const PropertyEntry& entry : kProperties)
            if (entry.firstDefault == place)
                Put(entry, entry.Read(defaults));
    }
}

} // namespace ormisk
