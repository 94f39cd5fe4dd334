#include "records/RecordFields.h"

#include "automation/EnumVariants.h"
#include "automation/Give.h"
#include "records/FormerInterfaces.h"
#include "records/ScriptCalls.h"

namespace ormisk::records {

const Column& RecordField::Described() const {
    const std::vector<Column>& columns = Cursor().Table().Columns();
    if (m_Column >= columns.size())
        Raise(Failure::ItemNotFound); // the recordset was opened anew, on something else
    return columns[m_Column];
}

HRESULT RecordField::QueryOther(REFIID iid, void** object) {
    return GiveFormer(static_cast<::Field*>(this), iid, object, {0x534, 0x54C, 0x569});
}

STDMETHODIMP RecordField::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                 VARIANT* result, EXCEPINFO* exception, UINT* badArgument) {
    const HRESULT hr = DispatchObject::Invoke(id, iid, locale, flags, parameters, result, exception, badArgument);
    if (SUCCEEDED(hr))
        NarrowForScripts(id, result);
    return hr;
}

STDMETHODIMP RecordField::get_ActualSize(ADO_LONGPTR* size) {
    return Run([&] {
        Give(size, [&]() -> ADO_LONGPTR {
            const Column& column = Described();
            const _variant_t value = Cursor().Value(m_Column);
            if (IsNull(value))
                return 0;
            if (V_VT(&value) == (VT_ARRAY | VT_UI1))
                return static_cast<ADO_LONGPTR>(BytesOf(value).size());
            if (column.type.transfer == Transfer::Text)
                return static_cast<ADO_LONGPTR>(SysStringByteLen(V_BSTR(&value)));
            return static_cast<ADO_LONGPTR>(DefinedSizeOf(column.type, column.size));
        });
    });
}

STDMETHODIMP RecordField::get_Attributes(LONG* attributes) {
    return Run([&] {
        Give(attributes, [&] {
            const Column& column = Described();
            long bits = column.type.fixed ? adFldFixed : 0;
            if (column.writable && Cursor().Writes())
                bits |= adFldUpdatable;
            if (column.nullable)
                bits |= adFldIsNullable | adFldMayBeNull;
            if (column.type.large)
                bits |= adFldLong;
            if (column.key)
                bits |= adFldKeyColumn;
            return bits;
        });
    });
}

STDMETHODIMP RecordField::get_DefinedSize(ADO_LONGPTR* size) {
    return Run([&] { Give(size, [&] { return DefinedSizeOf(Described().type, Described().size); }); });
}

STDMETHODIMP RecordField::get_Name(BSTR* name) {
    return Run([&] { Give(name, [&] { return Described().name; }); });
}

STDMETHODIMP RecordField::get_Type(DataTypeEnum* type) {
    return Run([&] { Give(type, [&] { return Described().type.type; }); });
}

STDMETHODIMP RecordField::get_Value(VARIANT* value) {
    return Run([&] {
        CheckPointer(value);
        Described();
        *value = Cursor().Value(m_Column).Detach();
    });
}

STDMETHODIMP RecordField::put_Value(VARIANT value) {
    return Run([&] {
        Described();
        Cursor().Put(m_Column, value, this);
    });
}

STDMETHODIMP RecordField::get_Precision(unsigned char* precision) {
    return Run([&] { Give(precision, [&] { return std::min<std::uint64_t>(Described().size, 255); }); });
}

STDMETHODIMP RecordField::get_NumericScale(unsigned char* scale) {
    return Run([&] { Give(scale, [&] { return Described().scale; }); });
}

STDMETHODIMP RecordField::get_OriginalValue(VARIANT* value) {
    return Run([&] {
        CheckPointer(value);
        Described();
        *value = Cursor().Original(m_Column).Detach();
    });
}

STDMETHODIMP RecordField::get_UnderlyingValue(VARIANT* value) {
    return Run([&] {
        CheckPointer(value);
        Described();
        *value = Cursor().Underlying(m_Column).Detach();
    });
}

STDMETHODIMP RecordField::get_Status(LONG* status) {
    return Run([&] { Give(status, 0); });
}

HRESULT RecordFields::QueryOther(REFIID iid, void** object) {
    return GiveFormer(static_cast<::Fields*>(this), iid, object, {0x512, 0x506, 0x54D, 0x564});
}

STDMETHODIMP RecordFields::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                  VARIANT* result, EXCEPINFO* exception, UINT* badArgument) {
    if (IsPutOfField(id, flags, parameters))
        return PutField(this, locale, flags, parameters, exception);
    return DispatchObject::Invoke(id, iid, locale, flags, parameters, result, exception, badArgument);
}

STDMETHODIMP RecordFields::get_Count(LONG* count) {
    return Run([&] {
        Give(count, [&] {
            const RecordCursor& cursor = m_Recordset.Cursor();
            return cursor.IsOpen() ? cursor.Table().Columns().size() : 0;
        });
    });
}

STDMETHODIMP RecordFields::_NewEnum(IUnknown** enumerator) {
    return Run([&] {
        Give(enumerator, [&] {
            std::vector<_variant_t> fields(m_Recordset.Cursor().Table().Columns().size());
            for (std::size_t i = 0; i < fields.size(); ++i)
                fields[i] = static_cast<IDispatch*>(m_Recordset.FieldAt(i).Get());
            return MakeEnumerator(std::move(fields));
        });
    });
}

STDMETHODIMP RecordFields::get_Item(VARIANT index, ::Field** field) {
    return Run([&] { Give(field, [&] { return m_Recordset.FieldAt(m_Recordset.FindField(index)); }); });
}

} // namespace ormisk::records
