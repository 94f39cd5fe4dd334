// The properties that are plain values of the table: each hands its name to the setters that go by it.

#include "automation/Value.h"
#include "grid/OrmiskGrid.h"

namespace ormisk {

template <class T> HRESULT OrmiskGrid::Read(const wchar_t* name, T* value) {
    return Run([&] {
        CheckPointer(value);
        *value = static_cast<T>(std::get<long>(m_Grid.m_Properties.Get(name)));
    });
}

HRESULT OrmiskGrid::ReadFlag(const wchar_t* name, VARIANT_BOOL* value) {
    return Run([&] {
        CheckPointer(value);
        *value = std::get<bool>(m_Grid.m_Properties.Get(name)) ? VARIANT_TRUE : VARIANT_FALSE;
    });
}

HRESULT OrmiskGrid::ReadText(const wchar_t* name, BSTR* value) {
    return Run([&] {
        CheckPointer(value);
        *value = NewBstr(std::get<std::wstring>(m_Grid.m_Properties.Get(name)));
    });
}

HRESULT OrmiskGrid::Write(const wchar_t* name, PropertyValue value) {
    return Run([&] { m_Grid.m_Properties.Put(name, std::move(value)); });
}

// One pair of accessors a property.
#define ORMISK_NUMBER(Name, Type)                                                                                      \
    STDMETHODIMP OrmiskGrid::get_##Name(Type* value) { return Read(L"" #Name, value); }                                \
    STDMETHODIMP OrmiskGrid::put_##Name(Type value) { return Write(L"" #Name, static_cast<long>(value)); }
#define ORMISK_FLAG(Name)                                                                                              \
    STDMETHODIMP OrmiskGrid::get_##Name(VARIANT_BOOL* value) { return ReadFlag(L"" #Name, value); }                    \
    STDMETHODIMP OrmiskGrid::put_##Name(VARIANT_BOOL value) { return Write(L"" #Name, value != VARIANT_FALSE); }
#define ORMISK_TEXT(Name)                                                                                              \
    STDMETHODIMP OrmiskGrid::get_##Name(BSTR* value) { return ReadText(L"" #Name, value); }                            \
    STDMETHODIMP OrmiskGrid::put_##Name(BSTR value) { return Write(L"" #Name, FromBstr(value)); }

ORMISK_NUMBER(ActiveView, omActiveView)
ORMISK_NUMBER(Appearance, omAppearance)
ORMISK_NUMBER(BackColor, OLE_COLOR)
ORMISK_NUMBER(BorderStyle, omBorderStyle)
ORMISK_NUMBER(CategoryAppearance, omAppearance)
ORMISK_NUMBER(CategoryBackColor, OLE_COLOR)
ORMISK_NUMBER(CategoryForeColor, OLE_COLOR)
ORMISK_NUMBER(ForeColor, OLE_COLOR)
ORMISK_NUMBER(Grid, omGrid)
ORMISK_NUMBER(Headers, omHeaders)
ORMISK_NUMBER(HighlightBackColor, OLE_COLOR)
ORMISK_NUMBER(HighlightForeColor, OLE_COLOR)
ORMISK_NUMBER(LineColor, OLE_COLOR)
ORMISK_NUMBER(PictureLayout, omPictureLayout)
ORMISK_NUMBER(PropertyBackColor, OLE_COLOR)
ORMISK_NUMBER(PropertyForeColor, OLE_COLOR)
ORMISK_NUMBER(SortOrder, omSortOrder)
ORMISK_NUMBER(TreeStyle, omTreeStyle)
ORMISK_NUMBER(ReadOnlyPropertyColor, OLE_COLOR)
ORMISK_NUMBER(RecordsetToolbar, omRecorsetToolbar)
ORMISK_NUMBER(InspectionDepth, long)
ORMISK_FLAG(CategoryBold)
ORMISK_FLAG(CustomSort)
ORMISK_FLAG(Enabled)
ORMISK_FLAG(LockRefresh)
ORMISK_FLAG(ShowDescription)
ORMISK_FLAG(ShowTabs)
ORMISK_FLAG(ShowToolTip)
ORMISK_FLAG(Sorted)
ORMISK_FLAG(SortOnHeaderClick)
ORMISK_FLAG(ReadOnly)
ORMISK_FLAG(Unicode)
ORMISK_TEXT(AlphabeticTabCaption)
ORMISK_TEXT(CategorizedTabCaption)
ORMISK_TEXT(CategorySeparator)
ORMISK_TEXT(DefaultCategory)
ORMISK_TEXT(NameCaption)
ORMISK_TEXT(ValueCaption)

} // namespace ormisk
