#pragma once

#include "automation/DispatchObject.h"
#include "records/Failures.h"

#include <records.h>

namespace ormisk::records {

// A recordset without what this one cannot do.
class RecordsetBase : public DispatchObject<::_Recordset, ::OrmiskRecordset, ::RecordsetEvents> {
public:
    STDMETHODIMP get_Properties(::Properties**) override { return Unavailable(); }
    STDMETHODIMP putref_ActiveConnection(IDispatch*) override { return Unavailable(); }
    STDMETHODIMP putref_Source(IDispatch*) override { return Unavailable(); }
    STDMETHODIMP GetRows(LONG, VARIANT, VARIANT, VARIANT*) override { return Unavailable(); }
    STDMETHODIMP _xResync(AffectEnum) override { return Unavailable(); }
    STDMETHODIMP get_AbsolutePage(PositionEnum_Param*) override { return Unavailable(); }
    STDMETHODIMP put_AbsolutePage(PositionEnum_Param) override { return Unavailable(); }
    STDMETHODIMP get_Filter(VARIANT*) override { return Unavailable(); }
    STDMETHODIMP put_Filter(VARIANT) override { return Unavailable(); }
    STDMETHODIMP get_PageCount(ADO_LONGPTR*) override { return Unavailable(); }
    STDMETHODIMP get_PageSize(LONG*) override { return Unavailable(); }
    STDMETHODIMP put_PageSize(LONG) override { return Unavailable(); }
    STDMETHODIMP get_Sort(BSTR*) override { return Unavailable(); }
    STDMETHODIMP put_Sort(BSTR) override { return Unavailable(); }
    STDMETHODIMP _xClone(::_Recordset**) override { return Unavailable(); }
    STDMETHODIMP NextRecordset(VARIANT*, ::_Recordset**) override { return Unavailable(); }
    STDMETHODIMP get_MarshalOptions(MarshalOptionsEnum*) override { return Unavailable(); }
    STDMETHODIMP put_MarshalOptions(MarshalOptionsEnum) override { return Unavailable(); }
    STDMETHODIMP Find(BSTR, LONG, SearchDirectionEnum, VARIANT) override { return Unavailable(); }
    STDMETHODIMP get_DataSource(IUnknown**) override { return Unavailable(); }
    STDMETHODIMP putref_DataSource(IUnknown*) override { return Unavailable(); }
    STDMETHODIMP _xSave(BSTR, PersistFormatEnum) override { return Unavailable(); }
    STDMETHODIMP get_ActiveCommand(IDispatch**) override { return Unavailable(); }
    STDMETHODIMP put_StayInSync(VARIANT_BOOL) override { return Unavailable(); }
    STDMETHODIMP get_StayInSync(VARIANT_BOOL*) override { return Unavailable(); }
    STDMETHODIMP GetString(StringFormatEnum, LONG, BSTR, BSTR, BSTR, BSTR*) override { return Unavailable(); }
    STDMETHODIMP get_DataMember(BSTR*) override { return Unavailable(); }
    STDMETHODIMP put_DataMember(BSTR) override { return Unavailable(); }
    STDMETHODIMP Clone(LockTypeEnum, ::_Recordset**) override { return Unavailable(); }
    STDMETHODIMP Seek(VARIANT, SeekEnum) override { return Unavailable(); }
    STDMETHODIMP put_Index(BSTR) override { return Unavailable(); }
    STDMETHODIMP get_Index(BSTR*) override { return Unavailable(); }
    STDMETHODIMP Save(VARIANT, PersistFormatEnum) override { return Unavailable(); }

protected:
    // The recordset stays, whatever a handler lets go.
    template <class F> HRESULT Run(F body) {
        const ComPtr<RecordsetBase> alive(this);
        return Guarded(__uuidof(::_Recordset), body);
    }

private:
    HRESULT Unavailable() {
        return Run([] { Raise(Failure::FeatureNotAvailable); });
    }
};

} // namespace ormisk::records
