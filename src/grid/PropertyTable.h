#pragma once

#include "grid/GridState.h"

#include <array>
#include <variant>

#include <olectl.h>

namespace ormisk {

class CNode;

// What a change of a property brings about, besides being stored.
enum Effect : unsigned {
    kNotifies = 1 << 0,          // the host hears that a persistent property changed
    kRepaintsRows = 1 << 1,      // unless refresh is locked
    kRepaintsSelection = 1 << 2, // the rows, when one is selected
    kRepaintsLines = 1 << 3,     // the rows, when lines are drawn
    kColorsPanes = 1 << 4,       // panes take the colours; everything is repainted
    kChangesTabs = 1 << 5,       // tab widths, tab strip and access keys
    kRepaintsNameHeader = 1 << 6,
    kRepaintsValueHeader = 1 << 7,
    kLaysOut = 1 << 8,
    kChangesFrame = 1 << 9, // border and appearance of the windows
    kShowsTabs = 1 << 10,
    kShowsDescription = 1 << 11,
    kShowsToolbar = 1 << 12,
    kEnables = 1 << 13,
    kRepaintsAll = 1 << 14,
    kAlways = 1 << 15,            // also when the value is the present one
    kSorts = 1 << 16,             // at run time the rows are sorted when it is true; scroll range and rows anew
    kSwitchesView = 1 << 17,      // the edit ends first; the other tree comes on screen, and the host hears of that
    kReplacesSeparator = 1 << 18, // in the category texts of all properties
    kUnlocks = 1 << 19,           // scroll range and rows anew
    kChangesFont = 1 << 20,       // sizes that follow from it, and the layout
    kHidesTip = 1 << 21,
};

using PropertyValue =
    std::variant<long, bool, float, std::wstring, Microsoft::WRL::ComPtr<IPictureDisp>, FontDescription>;

// A property that is a value of the state.
struct PropertyEntry {
    using Field = std::variant<long GridState::*, bool GridState::*, float GridState::*, std::wstring GridState::*,
                               Microsoft::WRL::ComPtr<IPictureDisp> GridState::*, FontDescription GridState::*>;

    const wchar_t* name; // of its stored value
    DISPID id;
    Field field;
    int firstDefault; // place among those that a new control sets, from 1; 0 for none
    bool stored;      // among the settings that a host keeps, in the order of the table
    unsigned effects;
    // Puts a given value right; raises for one that is refused.
    void (*check)(PropertyValue& value) = nullptr;
    // Hands the value on to a category node that is there.
    void (*mark)(CNode& category, const GridState& state) = nullptr;

    PropertyValue Read(const GridState& state) const;
    void Write(GridState& state, PropertyValue value) const;
};

namespace checks {
void Caption(PropertyValue& value);     // trimmed; not blank
void Separator(PropertyValue& value);   // trimmed; not blank
void Indentation(PropertyValue& value); // not negative
void Depth(PropertyValue& value);       // at least 1
void Picture(PropertyValue& value);     // one without an image is none
} // namespace checks

namespace marks {
void Appearance(CNode& category, const GridState& state);
void BackColor(CNode& category, const GridState& state); // the default follows the rows
void Bold(CNode& category, const GridState& state);
void ForeColor(CNode& category, const GridState& state);
} // namespace marks

// The one list of the properties that are values. Setters, first defaults, change notices and stored settings go by it.
inline constexpr auto kProperties = std::to_array<PropertyEntry>({
    {L"ActiveView", 1, &GridState::activeView, 1, true, kNotifies | kSwitchesView},
    {L"AlphabeticTabCaption", 2, &GridState::alphabeticTabCaption, 2, true, kNotifies | kChangesTabs, checks::Caption},
    {L"Appearance", DISPID_APPEARANCE, &GridState::appearance, 3, true, kNotifies | kChangesFrame | kLaysOut},
    {L"BackColor", DISPID_BACKCOLOR, &GridState::backColor, 4, true, kNotifies | kColorsPanes},
    {L"BorderStyle", DISPID_BORDERSTYLE, &GridState::borderStyle, 5, true, kNotifies | kChangesFrame},
    {L"CategorizedTabCaption", 3, &GridState::categorizedTabCaption, 6, true, kNotifies | kChangesTabs,
     checks::Caption},
    {L"CategoryAppearance", 4, &GridState::categoryAppearance, 7, true, kNotifies, nullptr, marks::Appearance},
    {L"CategoryBackColor", 5, &GridState::categoryBackColor, 8, true, kNotifies, nullptr, marks::BackColor},
    {L"CategoryBold", 6, &GridState::categoryBold, 9, true, kNotifies, nullptr, marks::Bold},
    {L"CategoryForeColor", 7, &GridState::categoryForeColor, 10, true, kNotifies, nullptr, marks::ForeColor},
    {L"CategorySeparator", 8, &GridState::categorySeparator, 11, true, kNotifies | kReplacesSeparator,
     checks::Separator},
    {L"CustomSort", 9, &GridState::customSort, 12, true, kNotifies},
    {L"DefaultCategory", 10, &GridState::defaultCategory, 13, true, kNotifies},
    {L"Font", DISPID_FONT, &GridState::font, 0, true, kNotifies | kChangesFont | kRepaintsAll},
    {L"ForeColor", DISPID_FORECOLOR, &GridState::foreColor, 15, true, kNotifies | kColorsPanes},
    {L"Grid", 11, &GridState::grid, 16, true, kNotifies | kRepaintsRows},
    {L"Headers", 12, &GridState::headers, 17, true, kNotifies | kRepaintsNameHeader | kRepaintsValueHeader | kLaysOut},
    {L"HighlightBackColor", 13, &GridState::highlightBackColor, 18, true, kNotifies | kRepaintsSelection},
    {L"HighlightForeColor", 14, &GridState::highlightForeColor, 19, true, kNotifies | kRepaintsSelection},
    {L"Indentation", 15, &GridState::indentation, 20, true, kNotifies | kAlways | kRepaintsRows, checks::Indentation},
    {L"LineColor", 16, &GridState::lineColor, 21, true, kNotifies | kRepaintsLines},
    {L"NameCaption", 19, &GridState::nameCaption, 22, true, kNotifies | kRepaintsNameHeader},
    {L"Picture", 20, &GridState::picture, 26, true, kNotifies | kRepaintsRows, checks::Picture},
    {L"PictureLayout", 21, &GridState::pictureLayout, 27, true, kNotifies | kRepaintsRows},
    {L"PropertyBackColor", 23, &GridState::propertyBackColor, 23, true, kNotifies | kRepaintsRows},
    {L"PropertyForeColor", 24, &GridState::propertyForeColor, 24, true, kNotifies | kRepaintsRows},
    {L"ReadOnly", 49, &GridState::readOnly, 28, true, kNotifies | kRepaintsRows},
    {L"ShowDescription", 27, &GridState::showDescription, 30, true, kNotifies | kShowsDescription | kLaysOut},
    {L"ShowTabs", 28, &GridState::showTabs, 31, true, kNotifies | kShowsTabs | kLaysOut},
    {L"ShowToolTip", 29, &GridState::showToolTip, 32, true, kNotifies | kHidesTip},
    {L"Sorted", 30, &GridState::sorted, 33, true, kNotifies | kAlways | kRepaintsNameHeader | kSorts},
    {L"SortOnHeaderClick", 31, &GridState::sortOnHeaderClick, 34, true, kAlways},
    {L"SortOrder", 32, &GridState::sortOrder, 0, true, kNotifies | kRepaintsNameHeader},
    {L"TreeStyle", 33, &GridState::treeStyle, 29, true, kNotifies | kRepaintsRows},
    {L"ValueCaption", 35, &GridState::valueCaption, 35, true, kNotifies | kRepaintsValueHeader},
    {L"ReadOnlyPropertyColor", 39, &GridState::readOnlyPropertyColor, 25, true, kNotifies | kRepaintsRows},
    {L"RecordsetToolbar", 42, &GridState::recordsetToolbar, 36, true, kShowsToolbar},
    {L"InspectionDepth", 43, &GridState::inspectionDepth, 37, true, 0, checks::Depth},
    {L"Unicode", 50, &GridState::unicode, 0, true,
     kNotifies | kShowsTabs | kRepaintsNameHeader | kRepaintsValueHeader | kRepaintsAll},
    {L"Enabled", DISPID_ENABLED, &GridState::enabled, 14, false, kNotifies | kEnables},
    {L"LockRefresh", 18, &GridState::lockRefresh, 0, false, kUnlocks},
});

// The entry of a field; one that is not in the table does not compile.
template <auto Field> constexpr const PropertyEntry& EntryOf() {
    constexpr std::size_t place = [] {
        for (std::size_t i = 0; i < kProperties.size(); ++i) {
            const auto* field = std::get_if<decltype(Field)>(&kProperties[i].field);
            if (field && *field == Field)
                return i;
        }
        return kProperties.size();
    }();
    static_assert(place < kProperties.size());
    return kProperties[place];
}

} // namespace ormisk
