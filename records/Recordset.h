#pragma once

#include "records/FieldValue.h"
#include "records/RecordCursor.h"
#include "records/RecordsetBase.h"

#include <records.h>

namespace ormisk::records {

// An optional argument that is not given.
_variant_t Missing();

class RecordField;
class RecordFields;

// The recordset as scripts and grids know it.
class Recordset final : public RecordsetBase {
public:
    Recordset();
    ~Recordset() override;

    RecordCursor& Cursor() { return m_Cursor; }
    ComPtr<RecordField> FieldAt(std::size_t column);
    std::size_t FindField(const VARIANT& index); // by name, or by number from 0

    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) override;

    STDMETHODIMP get_AbsolutePosition(PositionEnum_Param* position) override;
    STDMETHODIMP put_AbsolutePosition(PositionEnum_Param position) override;
    STDMETHODIMP put_ActiveConnection(VARIANT connection) override;
    STDMETHODIMP get_ActiveConnection(VARIANT* connection) override;
    STDMETHODIMP get_BOF(VARIANT_BOOL* bof) override;
    STDMETHODIMP get_Bookmark(VARIANT* bookmark) override;
    STDMETHODIMP put_Bookmark(VARIANT bookmark) override;
    STDMETHODIMP get_CacheSize(LONG* size) override;
    STDMETHODIMP put_CacheSize(LONG size) override;
    STDMETHODIMP get_CursorType(CursorTypeEnum* type) override;
    STDMETHODIMP put_CursorType(CursorTypeEnum type) override;
    STDMETHODIMP get_EOF(VARIANT_BOOL* eof) override;
    STDMETHODIMP get_Fields(::Fields** fields) override;
    STDMETHODIMP get_LockType(LockTypeEnum* type) override;
    STDMETHODIMP put_LockType(LockTypeEnum type) override;
    STDMETHODIMP get_MaxRecords(ADO_LONGPTR* count) override;
    STDMETHODIMP put_MaxRecords(ADO_LONGPTR count) override;
    STDMETHODIMP get_RecordCount(ADO_LONGPTR* count) override;
    STDMETHODIMP put_Source(BSTR source) override;
    STDMETHODIMP get_Source(VARIANT* source) override;
    STDMETHODIMP AddNew(VARIANT fields, VARIANT values) override;
    STDMETHODIMP CancelUpdate() override;
    STDMETHODIMP Close() override;
    STDMETHODIMP Delete(AffectEnum affected) override;
    STDMETHODIMP Move(ADO_LONGPTR steps, VARIANT start) override;
    STDMETHODIMP MoveNext() override;
    STDMETHODIMP MovePrevious() override;
    STDMETHODIMP MoveFirst() override;
    STDMETHODIMP MoveLast() override;
    STDMETHODIMP Open(VARIANT source, VARIANT connection, CursorTypeEnum cursorType, LockTypeEnum lockType,
                      LONG options) override;
    STDMETHODIMP Requery(LONG options) override;
    STDMETHODIMP Update(VARIANT fields, VARIANT values) override;
    STDMETHODIMP get_EditMode(EditModeEnum* mode) override;
    STDMETHODIMP get_Status(LONG* status) override;
    STDMETHODIMP get_State(LONG* state) override;
    STDMETHODIMP get_CursorLocation(CursorLocationEnum* location) override;
    STDMETHODIMP put_CursorLocation(CursorLocationEnum location) override;
    STDMETHODIMP Supports(CursorOptionEnum options, VARIANT_BOOL* supported) override;
    STDMETHODIMP get_Collect(VARIANT index, VARIANT* value) override;
    STDMETHODIMP put_Collect(VARIANT index, VARIANT value) override;
    STDMETHODIMP Cancel() override { return S_OK; }
    STDMETHODIMP CompareBookmarks(VARIANT first, VARIANT second, CompareEnum* result) override;
    STDMETHODIMP UpdateBatch(AffectEnum affected) override;
    STDMETHODIMP CancelBatch(AffectEnum affected) override;
    STDMETHODIMP Resync(AffectEnum affected, ResyncEnum values) override;

private:
    HRESULT QueryOther(REFIID iid, void** object) override;
    void FinalRelease() override { m_Cursor.Drop(); }
    void NeedClosed() const;
    double BookmarkOf(const VARIANT& value) const;
    void PutFields(const VARIANT& fields, const VARIANT& values);

    RecordEvents m_Events;
    RecordCursor m_Cursor;
    // Made when they are first asked for. A field that a host keeps shows the column of its number, whatever is opened.
    std::unique_ptr<RecordFields> m_Fields;
    std::vector<std::unique_ptr<RecordField>> m_FieldOf;
    std::wstring m_Source;
    std::wstring m_Connection;
    CursorTypeEnum m_CursorType = adOpenForwardOnly;
    LockTypeEnum m_LockType = adLockReadOnly;
    CursorLocationEnum m_Location = adUseServer;
    LONG m_CacheSize = 1;
};

} // namespace ormisk::records
