#pragma once

#include "automation/DispatchObject.h"
#include "records/Recordset.h"

namespace ormisk::records {

// A part of a recordset, which owns it: who holds the part holds the recordset.
template <class Interface> class RecordsetPart : public DispatchObject<Interface, void> {
public:
    STDMETHODIMP_(ULONG) AddRef() override { return m_Recordset.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return m_Recordset.Release(); }

protected:
    explicit RecordsetPart(Recordset& recordset) : m_Recordset(recordset) {}

    // The recordset stays, whatever a handler lets go.
    template <class F> HRESULT Run(F body) {
        const ComPtr<Recordset> alive(&m_Recordset);
        return Guarded(__uuidof(Interface), body);
    }
    HRESULT Unavailable() {
        return Run([] { Raise(Failure::FeatureNotAvailable); });
    }

    Recordset& m_Recordset;
};

// One field of whatever record its recordset stands on. The number of the column is from 0.
class RecordField final : public RecordsetPart<::Field> {
public:
    RecordField(Recordset& recordset, std::size_t column) : RecordsetPart(recordset), m_Column(column) {}

    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) override;

    STDMETHODIMP get_ActualSize(ADO_LONGPTR* size) override;
    STDMETHODIMP get_Attributes(LONG* attributes) override;
    STDMETHODIMP get_DefinedSize(ADO_LONGPTR* size) override;
    STDMETHODIMP get_Name(BSTR* name) override;
    STDMETHODIMP get_Type(DataTypeEnum* type) override;
    STDMETHODIMP get_Value(VARIANT* value) override;
    STDMETHODIMP put_Value(VARIANT value) override;
    STDMETHODIMP get_Precision(unsigned char* precision) override;
    STDMETHODIMP get_NumericScale(unsigned char* scale) override;
    STDMETHODIMP get_OriginalValue(VARIANT* value) override;
    STDMETHODIMP get_UnderlyingValue(VARIANT* value) override;
    STDMETHODIMP get_Status(LONG* status) override;

    STDMETHODIMP get_Properties(::Properties**) override { return Unavailable(); }
    STDMETHODIMP AppendChunk(VARIANT) override { return Unavailable(); }
    STDMETHODIMP GetChunk(LONG, VARIANT*) override { return Unavailable(); }
    STDMETHODIMP get_DataFormat(IUnknown**) override { return Unavailable(); }
    STDMETHODIMP putref_DataFormat(IUnknown*) override { return Unavailable(); }
    STDMETHODIMP put_Precision(unsigned char) override { return Unavailable(); }
    STDMETHODIMP put_NumericScale(unsigned char) override { return Unavailable(); }
    STDMETHODIMP put_Type(DataTypeEnum) override { return Unavailable(); }
    STDMETHODIMP put_DefinedSize(ADO_LONGPTR) override { return Unavailable(); }
    STDMETHODIMP put_Attributes(LONG) override { return Unavailable(); }

private:
    HRESULT QueryOther(REFIID iid, void** object) override;
    RecordCursor& Cursor() const { return m_Recordset.Cursor(); }
    const Column& Described() const;

    const std::size_t m_Column;
};

class RecordFields final : public RecordsetPart<::Fields> {
public:
    explicit RecordFields(Recordset& recordset) : RecordsetPart(recordset) {}

    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) override;

    STDMETHODIMP get_Count(LONG* count) override;
    STDMETHODIMP _NewEnum(IUnknown** enumerator) override;
    STDMETHODIMP Refresh() override { return S_OK; }
    STDMETHODIMP get_Item(VARIANT index, ::Field** field) override;
    STDMETHODIMP Update() override { return m_Recordset.Update(Missing(), Missing()); }
    STDMETHODIMP CancelUpdate() override { return m_Recordset.CancelUpdate(); }

    STDMETHODIMP _Append(BSTR, DataTypeEnum, ADO_LONGPTR, FieldAttributeEnum) override { return Unavailable(); }
    STDMETHODIMP Delete(VARIANT) override { return Unavailable(); }
    STDMETHODIMP Append(BSTR, DataTypeEnum, ADO_LONGPTR, FieldAttributeEnum, VARIANT) override { return Unavailable(); }
    STDMETHODIMP Resync(ResyncEnum) override { return Unavailable(); }

private:
    HRESULT QueryOther(REFIID iid, void** object) override;
};

} // namespace ormisk::records
