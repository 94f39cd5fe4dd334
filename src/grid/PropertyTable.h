#pragma once

#include "grid/GridState.h"

#include <span>
#include <variant>

namespace ormisk {

// What a change of a property brings about, besides being stored.
enum Effect : unsigned {
    kNotifies = 1 << 0,          // the host hears that a persistent property changed
    kRepaintsRows = 1 << 1,      // unless refresh is locked
    kRepaintsSelection = 1 << 2, // the rows, when one is selected
    kRepaintsLines = 1 << 3,     // the rows, when lines are drawn
    kMarksCategories = 1 << 4,   // every category node gets the category settings; the rows, when they are on screen
    kColorsPanes = 1 << 5,       // panes take the colours; everything is repainted
    kChangesTabs = 1 << 6,       // tab widths, tab strip and access keys
    kRepaintsNameHeader = 1 << 7,
    kRepaintsValueHeader = 1 << 8,
    kLaysOut = 1 << 9,
    kChangesFrame = 1 << 10, // border and appearance of the windows
    kShowsTabs = 1 << 11,
    kShowsDescription = 1 << 12,
    kShowsToolbar = 1 << 13,
    kEnables = 1 << 14,
    kRepaintsAll = 1 << 15,
    kAlways = 1 << 16,  // also when the value is the present one
    kTrimmed = 1 << 17, // blanks at both ends do not count, and a blank text is refused
    kSorts = 1 << 18    // at run time the rows are sorted when it is true; scroll range and rows anew
};

using PropertyValue = std::variant<long, bool, std::wstring, float>;

// A property that is a plain value of the state.
struct PropertyEntry {
    using Field = std::variant<long GridState::*, bool GridState::*, std::wstring GridState::*, float GridState::*>;

    const wchar_t* name;
    Field field;
    unsigned effects;

    PropertyValue Read(const GridState& state) const;
    void Write(GridState& state, const PropertyValue& value) const;
};

// The one list of the plain properties. Setters, first defaults and change notices go by it.
std::span<const PropertyEntry> PropertyTable();
// The entry of a name; every name that is asked for is in the table.
const PropertyEntry& PropertyNamed(const wchar_t* name);
// The names in the order in which a new control sets its first defaults. Picture is among them.
std::span<const wchar_t* const> FirstDefaults();

} // namespace ormisk
