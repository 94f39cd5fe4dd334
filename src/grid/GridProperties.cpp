#include "grid/GridProperties.h"

#include "grid/Grid.h"
#include "grid/PaintPrimitives.h"
#include "model/NumberText.h"

#include <algorithm>

namespace ormisk {

PropertyValue GridProperties::Get(const wchar_t* name) const { return PropertyNamed(name).Read(m_Grid.m_State); }

void GridProperties::Put(const wchar_t* name, PropertyValue value) {
    const PropertyEntry& entry = PropertyNamed(name);
    const std::wstring_view which = name;
    Check(entry, value);
    if (!(entry.effects & kAlways) && value == entry.Read(m_Grid.m_State))
        return;
    if (which == L"ActiveView")
        PutActiveView(std::get<long>(value));
    else if (which == L"CategorySeparator")
        PutCategorySeparator(std::get<std::wstring>(value));
    else if (which == L"LockRefresh")
        PutLockRefresh(std::get<bool>(value));
    else
        Store(entry, value);
}

void GridProperties::Check(const PropertyEntry& entry, PropertyValue& value) const {
    if (entry.effects & kTrimmed) {
        auto& text = std::get<std::wstring>(value);
        text = std::wstring(TrimBlanks(text));
        if (text.empty())
            Raise(ErrorCode::InvalidPropertyValue);
    }
    const std::wstring_view name = entry.name;
    if (name == L"CategorySeparator") {
        auto& text = std::get<std::wstring>(value);
        text = std::wstring(TrimBlanks(text));
        if (text.empty())
            Raise(ErrorNumber(ErrorCode::InvalidPropertyValue),
                  std::wstring(L"CategorySeparator : ") + ErrorText(ErrorCode::InvalidPropertyValue), kLibraryTitle,
                  L"16");
    }
    if (name == L"InspectionDepth")
        value = std::max(std::get<long>(value), 1L);
}

void GridProperties::Store(const PropertyEntry& entry, const PropertyValue& value) {
    entry.Write(m_Grid.m_State, value);
    if (entry.effects & kNotifies)
        m_Grid.m_Host.NotifyChanged(entry.name);
    if (m_Grid.IsAlive())
        Apply(entry);
}

void GridProperties::Apply(const PropertyEntry& entry) {
    Panes& panes = m_Grid.m_Panes;
    const unsigned effects = entry.effects;
    if (effects & kChangesFrame)
        panes.ApplyFrame();
    // First: hiding a window hands its focus to the one around it.
    if (effects & (kShowsDescription | kShowsTabs | kShowsToolbar | kLaysOut))
        m_Grid.m_FocusOrder.LeaveHidden();
    if (effects & kShowsDescription)
        panes.ApplyShowDescription();
    if (effects & kEnables)
        panes.ApplyEnabled();
    if (effects & kMarksCategories) {
        m_Grid.m_ModelView.MarkCategories(entry.name);
        if (m_Grid.m_State.activeView != omAlphabetic)
            panes.RepaintRows();
    }
    if (effects & (kChangesTabs | kShowsTabs | kShowsToolbar))
        panes.LayoutTabContainer();
    if (effects & kChangesTabs)
        m_Grid.m_Host.AccessKeysChanged();
    if (effects & kLaysOut)
        panes.RecalcLayout();
    if (effects & kColorsPanes)
        panes.ApplyColors();
    Repaint(effects);
    if (effects & kSorts && m_Grid.m_Host.UserMode()) {
        if (std::get<bool>(entry.Read(m_Grid.m_State)))
            m_Grid.m_ModelView.Sort(false);
        if (m_Grid.IsAlive())
            m_Grid.m_ModelView.RefreshView();
    }
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
    if (effects & kRepaintsRows || (effects & kRepaintsSelection && m_Grid.m_Session.SelectedNode()) ||
        (effects & kRepaintsLines && lines))
        panes.RepaintRows();
    if (effects & (kColorsPanes | kRepaintsAll))
        panes.Refresh();
}

void GridProperties::PutActiveView(long view) {
    m_Grid.m_Session.CloseEditor(false);
    m_Grid.m_State.activeView = view;
    m_Grid.m_ModelView.ViewChanged();
    m_Grid.m_Host.NotifyChanged(L"ActiveView");
    if (!m_Grid.m_CProperties)
        return; // a handler ended the control
    m_Grid.m_Panes.m_picTabContainer.Invalidate(true);
    m_Grid.m_Panes.m_picTreeContainer.Invalidate(true);
    m_Grid.m_Events.ActiveViewChanged();
}

// Rows that are there stay where they are.
void GridProperties::PutCategorySeparator(std::wstring separator) {
    if (m_Grid.m_CProperties)
        m_Grid.m_ModelView.ReplaceSeparator(m_Grid.m_State.categorySeparator, separator);
    m_Grid.m_State.categorySeparator = std::move(separator);
    m_Grid.m_Host.NotifyChanged(L"CategorySeparator");
}

void GridProperties::PutLockRefresh(bool lock) {
    m_Grid.m_State.lockRefresh = lock;
    if (m_Grid.IsAlive())
        m_Grid.m_ModelView.RefreshView();
}

float GridProperties::Indentation() const {
    return m_Grid.m_Panes.m_Control.PixelsToUnitsX(m_Grid.m_State.indentation);
}

void GridProperties::PutIndentation(float units) {
    if (!(units >= 0)) // also what is no number
        Raise(ErrorCode::InvalidPropertyValue, L"Indentation : ");
    Store(PropertyNamed(L"Indentation"), m_Grid.m_Panes.m_Control.UnitsToPixelsX(units));
}

void GridProperties::PutFont(IUnknown* font) {
    const FontDescription description = DescribeFont(font);
    if (!font || description == m_Grid.m_State.font)
        return;
    m_Grid.m_State.font = description;
    if (m_Grid.IsAlive()) {
        m_Grid.m_Panes.LayoutTabContainer();
        m_Grid.m_Panes.FontChanged();
    }
    m_Grid.m_Host.NotifyChanged(L"Font");
    if (m_Grid.IsAlive())
        m_Grid.m_Panes.Refresh();
}

void GridProperties::PutPicture(IPictureDisp* picture) {
    if (PictureType(picture) == PICTYPE_NONE)
        picture = nullptr;
    if (SameObject(m_Grid.m_State.picture.Get(), picture))
        return;
    m_Grid.m_State.picture = picture;
    m_Grid.m_Host.NotifyChanged(L"Picture");
    if (m_Grid.IsAlive())
        m_Grid.m_Panes.RepaintRows();
}

void GridProperties::RunFirstDefaults() {
    const GridState defaults;
    for (const wchar_t* name : FirstDefaults()) {
        const std::wstring_view which = name;
        if (which == L"Picture")
            PutPicture(nullptr);
        else if (which == L"Indentation")
            PutIndentation(m_Grid.m_Panes.m_Control.PixelsToUnitsX(defaults.indentation));
        else
            Put(name, PropertyNamed(name).Read(defaults));
    }
}

} // namespace ormisk
