#pragma once

#include "records/Odbc.h"
#include "records/SqlText.h"

#include <map>
#include <optional>

namespace ormisk::records {

using Row = std::vector<_variant_t>;
using Changes = std::map<std::size_t, _variant_t>; // by the number of the column, from 0

// How the text that a recordset is opened with is to be taken.
enum class SourceKind { Guess, Command, Table };

// The rows that a recordset goes over. Where the table has a key only the keys are held, and each row is read when it
// is asked for; the rows of anything else are read at once and cannot be written.
class RecordTable {
public:
    // A command that gives no rows has done its work then, and leaves a table without columns.
    RecordTable(const std::wstring& connection, const std::wstring& source, SourceKind kind);

    const std::vector<Column>& Columns() const { return m_Columns; }
    bool HasKey() const { return !m_Keys.empty(); }
    long Count() const { return static_cast<long>(m_Entries.size()); }
    // Numbers that stay with a row while others come and go, until the rows are read anew. No other table has them.
    double IdOf(long place) const { return m_Entries[static_cast<std::size_t>(place)].id; }
    std::optional<long> PlaceOf(double id) const;

    // Places are from 0.
    void Load();
    std::optional<Row> Read(long place); // nothing when somebody else deleted it
    void Update(long place, const Changes& changes);
    void Update(const std::map<double, Changes>& batch); // by the numbers of the rows, all of it or nothing
    void Insert(const Changes& changes);                 // becomes the last
    void Delete(long place);

private:
    struct Entry {
        double id;
        Row values; // of the key, or of the whole row where there is none
    };

    void Describe();
    std::vector<std::wstring> FindKeys();
    std::map<std::wstring, bool> FindNullable();
    void BindKey(Statement& statement, const Entry& entry) const;
    void BindChanges(Statement& statement, const Changes& changes) const;
    std::vector<std::wstring> NamesOf(const Changes& changes) const;
    void TakeKeys(Row& key, const Changes& changes) const;
    _variant_t LastIdentity();

    Connection m_Connection;
    std::wstring m_Quote;
    std::optional<TableQuery> m_Query;
    std::wstring m_Command; // of rows without a key
    std::vector<Column> m_Columns;
    std::vector<Column> m_Keys;
    std::vector<std::wstring> m_KeyNames;
    std::vector<Entry> m_Entries; // with rising numbers
};

} // namespace ormisk::records
