#include "grid/ObjectLoader.h"

#include "grid/Grid.h"

namespace ormisk {

namespace {

constexpr int kMostLoads = 2;

} // namespace

// Counts the load and locks the view; what the host had set comes back at the end.
class ObjectLoader::Loading {
public:
    explicit Loading(ObjectLoader& loader) : m_Loader(loader), m_Locked(loader.m_Grid.m_State.lockRefresh) {
        ++m_Loader.m_Loads;
        m_Loader.m_Grid.m_State.lockRefresh = true;
    }
    Loading(const Loading&) = delete;
    Loading& operator=(const Loading&) = delete;
    ~Loading() {
        if (--m_Loader.m_Loads == 0)
            m_Loader.m_Stopped = false;
        m_Loader.m_Grid.m_State.lockRefresh = m_Locked;
    }

private:
    ObjectLoader& m_Loader;
    bool m_Locked;
};

bool ObjectLoader::LoadObjectProperties(IDispatch* object, bool clear, bool autoUpdate) {
    if (m_Loads == kMostLoads)
        return false;
    bool done = false;
    {
        const Loading loading(*this);
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
