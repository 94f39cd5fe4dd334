#pragma once

#include "automation/Error.h"
#include "records/FieldTypes.h"

#include <deque>
#include <string>
#include <vector>

#include <sqlext.h>

namespace ormisk::records {

// Raises what the driver says of a failed call.
void CheckOdbc(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle);

// Owns a handle of one kind.
template <SQLSMALLINT Kind> class OdbcHandle {
public:
    explicit OdbcHandle(SQLSMALLINT parentKind, SQLHANDLE parent) {
        CheckOdbc(SQLAllocHandle(Kind, parent, &m_Handle), parentKind, parent);
    }
    OdbcHandle(const OdbcHandle&) = delete;
    OdbcHandle& operator=(const OdbcHandle&) = delete;
    ~OdbcHandle() { SQLFreeHandle(Kind, m_Handle); }
    SQLHANDLE Get() const { return m_Handle; }
    void Check(SQLRETURN result) const { CheckOdbc(result, Kind, m_Handle); }

private:
    SQLHANDLE m_Handle = SQL_NULL_HANDLE;
};

class Environment {
public:
    Environment();
    SQLHANDLE Get() const { return m_Handle.Get(); }

private:
    OdbcHandle<SQL_HANDLE_ENV> m_Handle;
};

// A connection, open for its life. Each command is complete in itself.
class Connection {
public:
    explicit Connection(const std::wstring& text);
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();
    SQLHANDLE Get() const { return m_Handle.Get(); }
    void Check(SQLRETURN result) const { m_Handle.Check(result); }
    std::wstring Information(SQLUSMALLINT item) const;

private:
    Environment m_Environment;
    OdbcHandle<SQL_HANDLE_DBC> m_Handle;
};

// The commands of a connection from here on, which count together or not at all.
class Transaction {
public:
    explicit Transaction(const Connection& connection);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction(); // undoes what was not committed
    void Commit() const;

private:
    const Connection& m_Connection;
};

struct Column {
    std::wstring name;
    FieldType type{};
    std::uint64_t size = 0;
    int scale = 0;
    bool nullable = true;
    bool key = false;
    bool writable = false;
};

// One command and its rows. Closed, it holds no lock on the database.
class Statement {
public:
    explicit Statement(const Connection& connection);
    Statement(const Connection& connection, const std::wstring& text);

    void Bind(const VARIANT& value, const Column& column);
    void Execute();
    void Close(); // gives up the rows that were not fetched
    // The columns of a table's primary key, in the order of the key, as rows of a catalog.
    void PrimaryKeys(const std::vector<std::wstring>& table);
    // The columns of a table, as rows of a catalog. In the name % and _ stand for others, too.
    void TableColumns(const std::vector<std::wstring>& table);

    std::vector<Column> Columns() const;
    bool Fetch();
    _variant_t Read(SQLUSMALLINT column, const FieldType& type); // columns from left to right, each once
    SQLLEN RowsChanged() const;

private:
    struct Parameter {
        SQLSMALLINT hostType = SQL_C_WCHAR;
        SQLSMALLINT sqlType = SQL_WVARCHAR;
        SQLULEN size = 1;
        SQLSMALLINT scale = 0;
        std::vector<BYTE> bytes;
        SQLLEN length = SQL_NULL_DATA;
    };

    void Fill(Parameter& parameter, const VARIANT& value, const Column& column);
    bool ReadPlain(SQLUSMALLINT column, SQLSMALLINT hostType, void* value, SQLLEN size);
    bool ReadLong(SQLUSMALLINT column, SQLSMALLINT hostType, SQLLEN end, std::string& bytes);
    _variant_t ReadText(SQLUSMALLINT column);
    _variant_t ReadBinary(SQLUSMALLINT column);
    _variant_t ReadMoment(SQLUSMALLINT column, const FieldType& type);

    OdbcHandle<SQL_HANDLE_STMT> m_Handle;
    std::deque<Parameter> m_Parameters; // where the driver finds them
};

} // namespace ormisk::records
