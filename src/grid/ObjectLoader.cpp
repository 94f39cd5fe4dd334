#include "grid/ObjectLoader.h"

#include "grid/Grid.h"
#include "win/Meanwhile.h"

namespace ormisk {

namespace {

constexpr int kMostLoads = 2;

} // namespace

bool ObjectLoader::LoadObjectProperties(IDispatch* object, bool clear, bool autoUpdate) {
    if (m_Loads == kMostLoads)
        return false;
    bool done = false;
    {
        const Meanwhile loads(m_Loads, m_Loads + 1);
        const Meanwhile locked(m_Grid.m_State.lockRefresh, true); // what the host had set comes back
        m_Stopped = m_Stopped && m_Loads > 1;
        done = ObjectWalk(*this, m_Types)
                   .InspectObject(nullptr, object, clear, autoUpdate, m_Grid.m_State.inspectionDepth);
    }
    // Once, with the rows unlocked again.
    if (m_Grid.IsAlive()) {
        m_Grid.m_Panes.RecalcLayout();
        m_Grid.m_Panes.m_picDescPane.Invalidate(true); // a new row may be selected by now
        m_Grid.m_Panes.RepaintRows();
    }
    return done;
}

bool ObjectLoader::IsOpen() const { return !m_Stopped && m_Grid.IsAlive() && m_Grid.m_CProperties; }

void ObjectLoader::Clear() {
    m_Grid.m_Session.CancelAndHide();
    if (const ComPtr<CProperties> properties = m_Grid.m_CProperties)
        properties->RemoveAll();
}

void ObjectLoader::RaiseAddingProperty(const std::wstring& name, std::wstring& category, omEditorType& editorType,
                                       bool& cancel) {
    m_Grid.m_Events.AddingProperty(name, category, editorType, cancel);
}

ComPtr<CProperty> ObjectLoader::Add(CProperty* parent, const NewProperty& row) {
    return m_Grid.m_CProperties ? m_Grid.m_CProperties->AddProperty(parent, row) : nullptr;
}

bool ObjectLoader::HasKey(const std::wstring& key) const {
    bool found = false;
    IgnoringFailures([&] { found = m_Grid.m_CProperties && m_Grid.m_CProperties->FindItem(ToVariant(key)); });
    return found;
}

} // namespace ormisk
