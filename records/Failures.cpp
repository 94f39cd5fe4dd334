#include "records/Failures.h"

namespace ormisk::records {

const wchar_t kTitle[] = L"OrmiskRecords";

namespace {

const wchar_t* TextOf(Failure failure) {
    switch (failure) {
    case Failure::InvalidArgument:
        return L"An argument is of the wrong type or out of range, or contradicts another.";
    case Failure::NoCurrentRecord:
        return L"There is no current record: the recordset stands at one of its ends, or the record was deleted.";
    case Failure::IllegalOperation:
        return L"This cannot be done in the present state of the recordset.";
    case Failure::FeatureNotAvailable:
        return L"This recordset cannot do that.";
    case Failure::ItemNotFound:
        return L"There is no field of that name or number.";
    case Failure::DataConversion:
        return L"The value cannot be converted to the type of the field.";
    case Failure::ObjectClosed:
        return L"The recordset is closed.";
    case Failure::ObjectOpen:
        return L"The recordset is open.";
    case Failure::InvalidConnection:
        return L"An ODBC connection string is needed.";
    case Failure::OperationCancelled:
        return L"An event handler cancelled the operation.";
    }
    return L"";
}

} // namespace

void Raise(Failure failure) {
    constexpr HRESULT kBase = static_cast<HRESULT>(0x800A0000L);
    ormisk::Raise(kBase + static_cast<long>(failure), TextOf(failure), kTitle);
}

} // namespace ormisk::records
