#pragma once

#include "automation/DispatchObject.h"
#include "records/Recordset.h"

namespace ormisk::records {

// One field of whatever record its recordset stands on. The number of the column is from 0.
class RecordField final : public DispatchObject<::Field, void> {
public:
    RecordField(ComPtr<Recordset> recordset, std::size_t column)
        : m_Recordset(std::move(recordset)), m_Column(column) {}

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
    template <class F> static HRESULT Run(F body) { return Guarded(__uuidof(::Field), body); }
    static HRESULT Unavailable() {
        return Run([] { Raise(Failure::FeatureNotAvailable); });
    }
    HRESULT QueryOther(REFIID iid, void** object) override;
    RecordCursor& Cursor() const { return m_Recordset->Cursor(); }
    const Column& Described() const;

    const ComPtr<Recordset> m_Recordset;
    const std::size_t m_Column;
};

class RecordFields final : public DispatchObject<::Fields, void> {
public:
    explicit RecordFields(ComPtr<Recordset> recordset) : m_Recordset(std::move(recordset)) {}

    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) override;

    STDMETHODIMP get_Count(LONG* count) override;
    STDMETHODIMP _NewEnum(IUnknown** enumerator) override;
    STDMETHODIMP Refresh() override { return S_OK; }
    STDMETHODIMP get_Item(VARIANT index, ::Field** field) override;
    STDMETHODIMP Update() override { return m_Recordset->Update(Missing(), Missing()); }
    STDMETHODIMP CancelUpdate() override { return m_Recordset->CancelUpdate(); }

    STDMETHODIMP _Append(BSTR, DataTypeEnum, ADO_LONGPTR, FieldAttributeEnum) override { return Unavailable(); }
    STDMETHODIMP Delete(VARIANT) override { return Unavailable(); }
    STDMETHODIMP Append(BSTR, DataTypeEnum, ADO_LONGPTR, FieldAttributeEnum, VARIANT) override { return Unavailable(); }
    STDMETHODIMP Resync(ResyncEnum) override { return Unavailable(); }

private:
    template <class F> static HRESULT Run(F body) { return Guarded(__uuidof(::Fields), body); }
    static HRESULT Unavailable() {
        return Run([] { Raise(Failure::FeatureNotAvailable); });
    }
    HRESULT QueryOther(REFIID iid, void** object) override;

    const ComPtr<Recordset> m_Recordset;
};

} // namespace ormisk::records
