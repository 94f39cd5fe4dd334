// What a recordset is opened with, and what it says of its state.

#include "automation/Give.h"
#include "records/Recordset.h"

namespace ormisk::records {

STDMETHODIMP Recordset::put_ActiveConnection(VARIANT connection) {
    return Run([&] {
        NeedClosed();
        const _variant_t plain = Plain(connection);
        if (V_VT(&plain) != VT_BSTR)
            Raise(Failure::InvalidConnection);
        m_Connection = TextOf(plain);
    });
}

STDMETHODIMP Recordset::get_ActiveConnection(VARIANT* connection) {
    return Run([&] { Give(connection, ToVariant(m_Connection)); });
}

STDMETHODIMP Recordset::put_Source(BSTR source) {
    return Run([&] {
        NeedClosed();
        m_Source = FromBstr(source);
    });
}

STDMETHODIMP Recordset::get_Source(VARIANT* source) {
    return Run([&] { Give(source, ToVariant(m_Source)); });
}

STDMETHODIMP Recordset::get_CacheSize(LONG* size) {
    return Run([&] { Give(size, m_CacheSize); });
}

STDMETHODIMP Recordset::put_CacheSize(LONG size) {
    return Run([&] {
        if (size < 1)
            Raise(Failure::InvalidArgument);
        m_CacheSize = size;
    });
}

// An open recordset tells what it is, whatever was asked for.
STDMETHODIMP Recordset::get_CursorType(CursorTypeEnum* type) {
    return Run([&] {
        Give(type, [&] {
            if (!m_Cursor.IsOpen())
                return m_CursorType;
            if (m_Cursor.IsForwardOnly())
                return adOpenForwardOnly;
            return m_Cursor.Table().HasKey() ? adOpenKeyset : adOpenStatic;
        });
    });
}

STDMETHODIMP Recordset::put_CursorType(CursorTypeEnum type) {
    return Run([&] {
        NeedClosed();
        m_CursorType = type;
    });
}

STDMETHODIMP Recordset::get_LockType(LockTypeEnum* type) {
    return Run([&] {
        Give(type, [&] {
            if (!m_Cursor.IsOpen())
                return m_LockType;
            if (m_Cursor.IsBatch())
                return adLockBatchOptimistic;
            return m_Cursor.Writes() ? adLockOptimistic : adLockReadOnly;
        });
    });
}

STDMETHODIMP Recordset::put_LockType(LockTypeEnum type) {
    return Run([&] {
        NeedClosed();
        m_LockType = type;
    });
}

// Without a limit; none can be set.
STDMETHODIMP Recordset::get_MaxRecords(ADO_LONGPTR* count) {
    return Run([&] { Give(count, 0); });
}

STDMETHODIMP Recordset::put_MaxRecords(ADO_LONGPTR count) {
    return Run([&] {
        if (count != 0)
            Raise(Failure::FeatureNotAvailable);
    });
}

STDMETHODIMP Recordset::get_EditMode(EditModeEnum* mode) {
    return Run([&] { Give(mode, [&] { return m_Cursor.EditMode(); }); });
}

STDMETHODIMP Recordset::get_Status(LONG* status) {
    return Run([&] { Give(status, 0); });
}

STDMETHODIMP Recordset::get_State(LONG* state) {
    return Run([&] { Give(state, m_Cursor.IsOpen() ? adStateOpen : adStateClosed); });
}

STDMETHODIMP Recordset::get_CursorLocation(CursorLocationEnum* location) {
    return Run([&] { Give(location, m_Location); });
}

STDMETHODIMP Recordset::put_CursorLocation(CursorLocationEnum location) {
    return Run([&] {
        NeedClosed();
        m_Location = location;
    });
}

} // namespace ormisk::records
