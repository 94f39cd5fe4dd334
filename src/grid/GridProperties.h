#pragma once

#include "grid/PropertyTable.h"

namespace ormisk {

class Grid;

// The setters: compare, store, tell the host, repaint what is touched. What each property does stands in its table.
class GridProperties {
public:
    explicit GridProperties(Grid& grid) : m_Grid(grid) {}

    PropertyValue Get(const wchar_t* name) const;
    // Raises InvalidPropertyValue for what the property refuses; it then keeps its value.
    void Put(const wchar_t* name, PropertyValue value);
    void PutFont(IUnknown* font);
    void PutPicture(IPictureDisp* picture); // one of type 0 counts as none

    // Indentation in units of the control's scale. Raises InvalidPropertyValue when negative.
    float Indentation() const;
    void PutIndentation(float units);

    // What a new control without stored settings does.
    void RunFirstDefaults();

private:
    void Check(const PropertyEntry& entry, PropertyValue& value) const;
    void PutActiveView(long view);
    void PutCategorySeparator(std::wstring separator);
    void PutLockRefresh(bool lock);
    void Store(const PropertyEntry& entry, const PropertyValue& value);
    void Apply(const PropertyEntry& entry);
    void Repaint(unsigned effects);

    Grid& m_Grid;
};

} // namespace ormisk
