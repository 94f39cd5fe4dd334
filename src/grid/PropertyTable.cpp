#include "grid/PropertyTable.h"

#include <algorithm>
#include <cwchar>
#include <stdexcept>

namespace ormisk {

namespace {

constexpr unsigned kCategory = kNotifies | kMarksCategories;

constexpr PropertyEntry kTable[] = {
    {L"ActiveView", &GridState::activeView, kNotifies},
    {L"AlphabeticTabCaption", &GridState::alphabeticTabCaption, kNotifies | kTrimmed | kChangesTabs},
    {L"Appearance", &GridState::appearance, kNotifies | kChangesFrame | kLaysOut},
    {L"BackColor", &GridState::backColor, kNotifies | kColorsPanes},
    {L"BorderStyle", &GridState::borderStyle, kNotifies | kChangesFrame},
    {L"CategorizedTabCaption", &GridState::categorizedTabCaption, kNotifies | kTrimmed | kChangesTabs},
    {L"CategoryAppearance", &GridState::categoryAppearance, kCategory},
    {L"CategoryBackColor", &GridState::categoryBackColor, kCategory},
    {L"CategoryBold", &GridState::categoryBold, kCategory},
    {L"CategoryForeColor", &GridState::categoryForeColor, kCategory},
    {L"CustomSort", &GridState::customSort, kNotifies},
    {L"DefaultCategory", &GridState::defaultCategory, kNotifies},
    {L"Enabled", &GridState::enabled, kNotifies | kEnables},
    {L"ForeColor", &GridState::foreColor, kNotifies | kColorsPanes},
    {L"Grid", &GridState::grid, kNotifies | kRepaintsRows},
    {L"Headers", &GridState::headers, kNotifies | kRepaintsNameHeader | kRepaintsValueHeader | kLaysOut},
    {L"HighlightBackColor", &GridState::highlightBackColor, kNotifies | kRepaintsSelection},
    {L"HighlightForeColor", &GridState::highlightForeColor, kNotifies | kRepaintsSelection},
    {L"InspectionDepth", &GridState::inspectionDepth, 0},
    {L"LineColor", &GridState::lineColor, kNotifies | kRepaintsLines},
    {L"LockRefresh", &GridState::lockRefresh, 0},
    {L"NameCaption", &GridState::nameCaption, kNotifies | kRepaintsNameHeader},
    {L"PictureLayout", &GridState::pictureLayout, kNotifies | kRepaintsRows},
    {L"PropertyBackColor", &GridState::propertyBackColor, kNotifies | kRepaintsRows},
    {L"PropertyForeColor", &GridState::propertyForeColor, kNotifies | kRepaintsRows},
    {L"ReadOnly", &GridState::readOnly, kNotifies | kRepaintsRows},
    {L"ReadOnlyPropertyColor", &GridState::readOnlyPropertyColor, kNotifies | kRepaintsRows},
    {L"RecordsetToolbar", &GridState::recordsetToolbar, kShowsToolbar},
    {L"ShowDescription", &GridState::showDescription, kNotifies | kShowsDescription | kLaysOut},
    {L"ShowTabs", &GridState::showTabs, kNotifies | kShowsTabs | kLaysOut},
    {L"ShowToolTip", &GridState::showToolTip, kNotifies},
    {L"Sorted", &GridState::sorted, kNotifies | kAlways | kRepaintsNameHeader | kSorts},
    {L"SortOnHeaderClick", &GridState::sortOnHeaderClick, kAlways},
    {L"SortOrder", &GridState::sortOrder, kNotifies | kRepaintsNameHeader},
    {L"TreeStyle", &GridState::treeStyle, kNotifies | kRepaintsRows},
    {L"Unicode", &GridState::unicode,
     kNotifies | kShowsTabs | kRepaintsNameHeader | kRepaintsValueHeader | kRepaintsAll},
    {L"ValueCaption", &GridState::valueCaption, kNotifies | kRepaintsValueHeader},
    {L"CategorySeparator", &GridState::categorySeparator, kNotifies},
    {L"Indentation", &GridState::indentation, kNotifies | kAlways | kRepaintsRows},
};

constexpr const wchar_t* kFirstDefaults[] = {
    L"ActiveView",
    L"AlphabeticTabCaption",
    L"Appearance",
    L"BackColor",
    L"BorderStyle",
    L"CategorizedTabCaption",
    L"CategoryAppearance",
    L"CategoryBackColor",
    L"CategoryBold",
    L"CategoryForeColor",
    L"CategorySeparator",
    L"CustomSort",
    L"DefaultCategory",
    L"Enabled",
    L"ForeColor",
    L"Grid",
    L"Headers",
    L"HighlightBackColor",
    L"HighlightForeColor",
    L"Indentation",
    L"LineColor",
    L"NameCaption",
    L"PropertyBackColor",
    L"PropertyForeColor",
    L"ReadOnlyPropertyColor",
    L"Picture",
    L"PictureLayout",
    L"ReadOnly",
    L"TreeStyle",
    L"ShowDescription",
    L"ShowTabs",
    L"ShowToolTip",
    L"Sorted",
    L"SortOnHeaderClick",
    L"ValueCaption",
    L"RecordsetToolbar",
    L"InspectionDepth",
};

} // namespace

PropertyValue PropertyEntry::Read(const GridState& state) const {
    return std::visit([&](auto member) { return PropertyValue(state.*member); }, field);
}

void PropertyEntry::Write(GridState& state, const PropertyValue& value) const {
    std::visit(
        [&](auto member) {
            using T = std::remove_reference_t<decltype(state.*member)>;
            state.*member = std::get<T>(value);
        },
        field);
}

std::span<const PropertyEntry> PropertyTable() { return kTable; }

const PropertyEntry& PropertyNamed(const wchar_t* name) {
    const auto found =
        std::ranges::find_if(kTable, [&](const PropertyEntry& entry) { return std::wcscmp(entry.name, name) == 0; });
    if (found == std::end(kTable))
        throw std::logic_error("no such property");
    return *found;
}

std::span<const wchar_t* const> FirstDefaults() { return kFirstDefaults; }

} // namespace ormisk
