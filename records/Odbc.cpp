#include "records/Odbc.h"

#include "records/Failures.h"

#include <algorithm>
#include <array>

namespace ormisk::records {

namespace {

// Numbers that data libraries give to what a database refuses.
constexpr HRESULT kIntegrityViolation = static_cast<HRESULT>(0x80040E2F);
constexpr HRESULT kErrorsInCommand = static_cast<HRESULT>(0x80040E14);

HRESULT NumberOfState(std::wstring_view state) {
    if (state.starts_with(L"23"))
        return kIntegrityViolation;
    return state.starts_with(L"42") ? kErrorsInCommand : E_FAIL;
}

// The system's functions take a text to read as one that they could write.
SQLWCHAR* Text(const std::wstring& text) { return const_cast<SQLWCHAR*>(text.c_str()); }

} // namespace

void CheckOdbc(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle) {
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA)
        return;
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, SQL_MAX_MESSAGE_LENGTH> message{};
    std::wstring text;
    HRESULT number = E_FAIL;
    for (SQLSMALLINT record = 1;; ++record) {
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        const SQLRETURN found = SQLGetDiagRecW(kind, handle, record, state.data(), &native, message.data(),
                                               static_cast<SQLSMALLINT>(message.size()), &length);
        if (!SQL_SUCCEEDED(found))
            break;
        message.back() = 0;
        if (record == 1)
            number = NumberOfState(state.data());
        text += (text.empty() ? L"" : L"\r\n") + std::wstring(message.data());
    }
    ormisk::Raise(number, text.empty() ? L"The driver refused the call and says no more." : text, kTitle);
}

Environment::Environment() : m_Handle(SQL_HANDLE_ENV, SQL_NULL_HANDLE) {
    const auto version = static_cast<std::intptr_t>(SQL_OV_ODBC3);
    m_Handle.Check(SQLSetEnvAttr(m_Handle.Get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(version), 0));
}

Connection::Connection(const std::wstring& text) : m_Handle(SQL_HANDLE_ENV, m_Environment.Get()) {
    // How many milliseconds a driver that knows this waits for a lock, where the text itself says nothing before.
    const std::wstring whole = text + L";Timeout=2000";
    m_Handle.Check(
        SQLDriverConnectW(m_Handle.Get(), nullptr, Text(whole), SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT));
}

Connection::~Connection() { SQLDisconnect(m_Handle.Get()); }

std::wstring Connection::Information(SQLUSMALLINT item) const {
    std::array<SQLWCHAR, 256> text{};
    SQLSMALLINT bytes = 0;
    m_Handle.Check(SQLGetInfoW(m_Handle.Get(), item, text.data(), static_cast<SQLSMALLINT>(sizeof(text)), &bytes));
    text.back() = 0;
    return text.data();
}

namespace {

SQLRETURN SetAutoCommit(const Connection& connection, std::intptr_t mode) {
    return SQLSetConnectAttrW(connection.Get(), SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(mode),
                              SQL_IS_UINTEGER);
}

} // namespace

Transaction::Transaction(const Connection& connection) : m_Connection(connection) {
    connection.Check(SetAutoCommit(connection, SQL_AUTOCOMMIT_OFF));
}

Transaction::~Transaction() {
    SQLEndTran(SQL_HANDLE_DBC, m_Connection.Get(), SQL_ROLLBACK);
    SetAutoCommit(m_Connection, SQL_AUTOCOMMIT_ON);
}

void Transaction::Commit() const { m_Connection.Check(SQLEndTran(SQL_HANDLE_DBC, m_Connection.Get(), SQL_COMMIT)); }

Statement::Statement(const Connection& connection) : m_Handle(SQL_HANDLE_DBC, connection.Get()) {}

Statement::Statement(const Connection& connection, const std::wstring& text) : Statement(connection) {
    m_Handle.Check(SQLPrepareW(m_Handle.Get(), Text(text), SQL_NTS));
}

void Statement::Bind(const VARIANT& value, const Column& column) {
    Parameter& parameter = m_Parameters.emplace_back();
    Fill(parameter, value, column);
    const auto place = static_cast<SQLUSMALLINT>(m_Parameters.size());
    // A driver may want an address for an empty text, too.
    const auto bytes = static_cast<SQLLEN>(parameter.bytes.size());
    parameter.bytes.resize(parameter.bytes.size() + sizeof(wchar_t));
    m_Handle.Check(SQLBindParameter(m_Handle.Get(), place, SQL_PARAM_INPUT, parameter.hostType, parameter.sqlType,
                                    parameter.size, parameter.scale, parameter.bytes.data(), bytes, &parameter.length));
}

void Statement::Execute() { m_Handle.Check(SQLExecute(m_Handle.Get())); }

void Statement::Close() { m_Handle.Check(SQLFreeStmt(m_Handle.Get(), SQL_CLOSE)); }

void Statement::PrimaryKeys(const std::vector<std::wstring>& table) {
    const auto part = [&](std::size_t fromEnd) {
        return table.size() > fromEnd ? Text(table[table.size() - 1 - fromEnd]) : nullptr;
    };
    m_Handle.Check(SQLPrimaryKeysW(m_Handle.Get(), part(2), SQL_NTS, part(1), SQL_NTS, part(0), SQL_NTS));
}

void Statement::TableColumns(const std::vector<std::wstring>& table) {
    const auto part = [&](std::size_t fromEnd) {
        return table.size() > fromEnd ? Text(table[table.size() - 1 - fromEnd]) : nullptr;
    };
    m_Handle.Check(SQLColumnsW(m_Handle.Get(), part(2), SQL_NTS, part(1), SQL_NTS, part(0), SQL_NTS, nullptr, 0));
}

std::vector<Column> Statement::Columns() const {
    SQLSMALLINT count = 0;
    m_Handle.Check(SQLNumResultCols(m_Handle.Get(), &count));
    std::vector<Column> columns;
    for (SQLSMALLINT i = 1; i <= count; ++i) {
        std::array<SQLWCHAR, 512> name{};
        SQLSMALLINT length = 0;
        SQLSMALLINT type = 0;
        SQLSMALLINT scale = 0;
        SQLSMALLINT nullable = 0;
        SQLULEN size = 0;
        m_Handle.Check(SQLDescribeColW(m_Handle.Get(), static_cast<SQLUSMALLINT>(i), name.data(),
                                       static_cast<SQLSMALLINT>(name.size()), &length, &type, &size, &scale,
                                       &nullable));
        name.back() = 0;
        columns.push_back({name.data(), TypeOfSql(type), size, scale, nullable != SQL_NO_NULLS, false, false});
    }
    return columns;
}

bool Statement::Fetch() {
    const SQLRETURN result = SQLFetch(m_Handle.Get());
    m_Handle.Check(result);
    return result != SQL_NO_DATA;
}

SQLLEN Statement::RowsChanged() const {
    SQLLEN rows = 0;
    m_Handle.Check(SQLRowCount(m_Handle.Get(), &rows));
    return rows;
}

} // namespace ormisk::records
