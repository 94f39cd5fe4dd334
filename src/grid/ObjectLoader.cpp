#include "grid/ObjectLoader.h"

#include "grid/Grid.h"
#include "win/Meanwhile.h"

namespace ormisk {

bool ObjectLoader::LoadObjectProperties(IDispatch* object, bool clear, bool autoUpdate) {
    if (m_Loads == kMostFills)
        return false;
    bool done = false;
    m_Grid.m_ModelView.Fill([&] {
        const Meanwhile loads(m_Loads, m_Loads + 1);
        m_Stopped = m_Stopped && m_Loads > 1;
        done = ObjectWalk(*this, m_Types)
                   .InspectObject(nullptr, object, clear, autoUpdate, m_Grid.m_State.inspectionDepth);
    });
    return done;
}

bool ObjectLoader::IsOpen() const { return !m_Stopped && m_Grid.IsAlive() && m_Grid.m_CProperties; }

void ObjectLoader::Clear() {
    m_Grid.m_Session.CancelAndHide();
    m_Grid.m_Records.Detach();
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
