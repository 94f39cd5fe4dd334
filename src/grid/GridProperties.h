#pragma once

#include "grid/PropertyTable.h"

namespace ormisk {

class Grid;

// The setters: compare, store, tell the host, repaint what is touched. What each property does stands in its table.
class GridProperties {
public:
    explicit GridProperties(Grid& grid) : m_Grid(grid) {}

    // Put<&GridState::sorted>(true). Raises InvalidPropertyValue for what the property refuses; it then keeps its
    // value.
    template <auto Field, class T> void Put(T value) {
        using Stored = std::remove_reference_t<decltype(std::declval<GridState&>().*Field)>;
        Put(EntryOf<Field>(), PropertyValue(std::in_place_type<Stored>, std::move(value)));
    }

    // The same of any entry; the value is of its field's type.
    void Put(const PropertyEntry& entry, PropertyValue value);

    // What a new control without stored settings does.
    void RunFirstDefaults();

private:
    void Apply(const PropertyEntry& entry);
    void Repaint(unsigned effects);
    void TellOfView();

    Grid& m_Grid;
};

} // namespace ormisk
