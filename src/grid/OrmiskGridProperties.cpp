// The properties that are values of the state: each hands its field to the setters that go by the table.

#include "automation/Give.h"
#include "grid/OrmiskGrid.h"

namespace ormisk {

namespace {

long ToStored(long value) { return value; }
template <class T>
    requires std::is_enum_v<T>
long ToStored(T value) {
    return static_cast<long>(value);
}
long ToStored(OLE_COLOR value) { return static_cast<long>(value); }
bool ToStored(VARIANT_BOOL value) { return value != VARIANT_FALSE; }
std::wstring ToStored(BSTR value) { return FromBstr(value); }

} // namespace

template <auto Field, class T> HRESULT OrmiskGrid::Read(T* value) {
    return Run([&] { Give(value, m_Grid.m_State.*Field); });
}

template <auto Field, class T> HRESULT OrmiskGrid::Write(T value) {
    return Run([&] { m_Grid.m_Properties.Put<Field>(ToStored(value)); });
}

// One pair of accessors a property.
#define ORMISK_PROPERTY(Name, field, Type)                                                                             \
    STDMETHODIMP OrmiskGrid::get_##Name(Type* value) { return Read<&GridState::field>(value); }                        \
    STDMETHODIMP OrmiskGrid::put_##Name(Type value) { return Write<&GridState::field>(value); }

ORMISK_PROPERTY(ActiveView, activeView, omActiveView)
ORMISK_PROPERTY(Appearance, appearance, omAppearance)
ORMISK_PROPERTY(BackColor, backColor, OLE_COLOR)
ORMISK_PROPERTY(BorderStyle, borderStyle, omBorderStyle)
ORMISK_PROPERTY(CategoryAppearance, categoryAppearance, omAppearance)
ORMISK_PROPERTY(CategoryBackColor, categoryBackColor, OLE_COLOR)
ORMISK_PROPERTY(CategoryForeColor, categoryForeColor, OLE_COLOR)
ORMISK_PROPERTY(ForeColor, foreColor, OLE_COLOR)
ORMISK_PROPERTY(Grid, grid, omGrid)
ORMISK_PROPERTY(Headers, headers, omHeaders)
ORMISK_PROPERTY(HighlightBackColor, highlightBackColor, OLE_COLOR)
ORMISK_PROPERTY(HighlightForeColor, highlightForeColor, OLE_COLOR)
ORMISK_PROPERTY(LineColor, lineColor, OLE_COLOR)
ORMISK_PROPERTY(PictureLayout, pictureLayout, omPictureLayout)
ORMISK_PROPERTY(PropertyBackColor, propertyBackColor, OLE_COLOR)
ORMISK_PROPERTY(PropertyForeColor, propertyForeColor, OLE_COLOR)
ORMISK_PROPERTY(SortOrder, sortOrder, omSortOrder)
ORMISK_PROPERTY(TreeStyle, treeStyle, omTreeStyle)
ORMISK_PROPERTY(ReadOnlyPropertyColor, readOnlyPropertyColor, OLE_COLOR)
ORMISK_PROPERTY(RecordsetToolbar, recordsetToolbar, omRecorsetToolbar)
ORMISK_PROPERTY(InspectionDepth, inspectionDepth, long)
ORMISK_PROPERTY(CategoryBold, categoryBold, VARIANT_BOOL)
ORMISK_PROPERTY(CustomSort, customSort, VARIANT_BOOL)
ORMISK_PROPERTY(Enabled, enabled, VARIANT_BOOL)
ORMISK_PROPERTY(LockRefresh, lockRefresh, VARIANT_BOOL)
ORMISK_PROPERTY(ShowDescription, showDescription, VARIANT_BOOL)
ORMISK_PROPERTY(ShowTabs, showTabs, VARIANT_BOOL)
ORMISK_PROPERTY(ShowToolTip, showToolTip, VARIANT_BOOL)
ORMISK_PROPERTY(Sorted, sorted, VARIANT_BOOL)
ORMISK_PROPERTY(SortOnHeaderClick, sortOnHeaderClick, VARIANT_BOOL)
ORMISK_PROPERTY(ReadOnly, readOnly, VARIANT_BOOL)
ORMISK_PROPERTY(Unicode, unicode, VARIANT_BOOL)
ORMISK_PROPERTY(AlphabeticTabCaption, alphabeticTabCaption, BSTR)
ORMISK_PROPERTY(CategorizedTabCaption, categorizedTabCaption, BSTR)
ORMISK_PROPERTY(CategorySeparator, categorySeparator, BSTR)
ORMISK_PROPERTY(DefaultCategory, defaultCategory, BSTR)
ORMISK_PROPERTY(NameCaption, nameCaption, BSTR)
ORMISK_PROPERTY(ValueCaption, valueCaption, BSTR)

} // namespace ormisk
