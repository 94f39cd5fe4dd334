#pragma once

#include "sources/ObjectWalk.h"

namespace ormisk {

class Grid;

// Fills the grid with the properties of an object. Meanwhile the rows are filed only; the view follows at the end.
class ObjectLoader final : private InspectionRows {
public:
    explicit ObjectLoader(Grid& grid) : m_Grid(grid) {}

    // True when the walk reached its end, whatever it found. A handler may load once more meanwhile; a load inside
    // that one is refused with False, for a handler that always loads would never come to its end.
    bool LoadObjectProperties(IDispatch* object, bool clear, bool autoUpdate);
    // Loads that are going on add no more rows.
    void Stop() { m_Stopped = m_Loads > 0; }

private:
    bool IsOpen() const override;
    void Clear() override;
    void RaiseAddingProperty(const std::wstring& name, std::wstring& category, omEditorType& editorType,
                             bool& cancel) override;
    ComPtr<CProperty> Add(CProperty* parent, const NewProperty& row) override;
    bool HasKey(const std::wstring& key) const override;

    Grid& m_Grid;
    KnownTypes m_Types;
    int m_Loads = 0; // one inside another
    bool m_Stopped = false;
};

} // namespace ormisk
