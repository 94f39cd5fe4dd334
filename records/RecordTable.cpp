#include "records/RecordTable.h"

#include "records/Failures.h"
#include "records/FieldValue.h"

#include <algorithm>
#include <atomic>

namespace ormisk::records {

namespace {

constexpr HRESULT kConcurrencyViolation = static_cast<HRESULT>(0x80040E38);
// Of the catalog's rows.
constexpr SQLUSMALLINT kTableColumn = 3;
constexpr SQLUSMALLINT kNameColumn = 4;
constexpr SQLUSMALLINT kNullableColumn = 11;
constexpr FieldType kCatalogText = {0, Transfer::Text, false, false};

std::wstring Folded(const std::wstring& name) {
    std::wstring folded = name;
    CharUpperBuffW(folded.data(), static_cast<DWORD>(folded.size()));
    return folded;
}

double NewId() {
    static std::atomic<std::int64_t> last = 0;
    return static_cast<double>(++last);
}

std::vector<Column> ColumnsOf(const Connection& connection, const std::wstring& command) {
    Statement statement(connection, command);
    statement.Execute();
    return statement.Columns();
}

Row ReadAll(Statement& statement, const std::vector<Column>& columns) {
    Row row;
    row.reserve(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i)
        row.push_back(statement.Read(static_cast<SQLUSMALLINT>(i + 1), columns[i].type));
    return row;
}

void CheckOneRow(const Statement& statement) {
    if (statement.RowsChanged() == 0)
        ormisk::Raise(kConcurrencyViolation, L"The record was deleted, or its key changed, by someone else.", kTitle);
}

} // namespace

RecordTable::RecordTable(const std::wstring& connection, const std::wstring& source, SourceKind kind)
    : m_Connection(connection), m_Quote(m_Connection.Information(SQL_IDENTIFIER_QUOTE_CHAR)) {
    const bool command = kind == SourceKind::Command || (kind == SourceKind::Guess && IsCommand(source));
    m_Query = command ? ParseSelect(source) : QueryOfTable(source);
    m_Command = command ? source : SelectAll(*m_Query, m_Quote);
    if (m_Query)
        Describe();
    Load();
}

// Keys and columns of a table that has a key, when all that is asked for are columns of it: a database may take any
// other name between quotes for a text.
void RecordTable::Describe() {
    std::vector<std::wstring> keys = FindKeys();
    const std::map<std::wstring, bool> nullable = FindNullable();
    const auto isColumn = [&](const std::wstring& name) { return nullable.contains(Folded(name)); };
    if (keys.empty() || !std::ranges::all_of(m_Query->columns, isColumn))
        return;
    TableQuery query = *m_Query;
    query.columns = keys;
    m_Keys = ColumnsOf(m_Connection, SelectNone(query, m_Quote));
    m_KeyNames = std::move(keys);
    m_Columns = ColumnsOf(m_Connection, SelectNone(*m_Query, m_Quote));
    for (Column& column : m_Columns) {
        const std::wstring name = Folded(column.name);
        column.writable = true;
        column.key = std::ranges::find(m_KeyNames, name, Folded) != m_KeyNames.end();
        // Drivers know of a result less than of the table.
        if (const auto found = nullable.find(name); found != nullable.end())
            column.nullable = found->second;
    }
}

std::vector<std::wstring> RecordTable::FindKeys() {
    std::vector<std::wstring> names;
    Statement catalog(m_Connection);
    catalog.PrimaryKeys(m_Query->table);
    while (catalog.Fetch())
        names.push_back(TextOf(catalog.Read(kNameColumn, kCatalogText)));
    return names;
}

// Whether each column of the table, by its folded name, may be Null.
std::map<std::wstring, bool> RecordTable::FindNullable() {
    const std::wstring table = Folded(m_Query->table.back());
    std::map<std::wstring, bool> found;
    Statement catalog(m_Connection);
    catalog.TableColumns(m_Query->table);
    while (catalog.Fetch()) {
        if (Folded(TextOf(catalog.Read(kTableColumn, kCatalogText))) != table)
            continue;
        const std::wstring name = Folded(TextOf(catalog.Read(kNameColumn, kCatalogText)));
        found[name] = TextOf(catalog.Read(kNullableColumn, kCatalogText)) != std::to_wstring(SQL_NO_NULLS);
    }
    return found;
}

void RecordTable::Load() {
    Statement statement(m_Connection, HasKey() ? SelectKeys(*m_Query, m_KeyNames, m_Quote) : m_Command);
    statement.Execute();
    std::vector<Column> columns = HasKey() ? m_Keys : statement.Columns();
    std::vector<Entry> entries;
    while (!columns.empty() && statement.Fetch()) {
        entries.push_back({NewId(), ReadAll(statement, columns)});
        if (HasKey() && std::ranges::any_of(entries.back().values, IsNull)) {
            // Null equals nothing, so it finds no row.
            m_Keys.clear();
            statement.Close();
            return Load();
        }
    }
    m_Entries = std::move(entries);
    if (!HasKey())
        m_Columns = std::move(columns);
}

std::optional<long> RecordTable::PlaceOf(double id) const {
    const auto found = std::ranges::lower_bound(m_Entries, id, {}, &Entry::id);
    if (found == m_Entries.end() || found->id != id)
        return std::nullopt;
    return static_cast<long>(found - m_Entries.begin());
}

void RecordTable::BindKey(Statement& statement, const Entry& entry) const {
    for (std::size_t i = 0; i < m_Keys.size(); ++i)
        statement.Bind(entry.values[i], m_Keys[i]);
}

void RecordTable::BindChanges(Statement& statement, const Changes& changes) const {
    for (const auto& [column, value] : changes)
        statement.Bind(value, m_Columns[column]);
}

std::vector<std::wstring> RecordTable::NamesOf(const Changes& changes) const {
    std::vector<std::wstring> names;
    names.reserve(changes.size());
    for (const auto& [column, value] : changes)
        names.push_back(m_Columns[column].name);
    return names;
}

std::optional<Row> RecordTable::Read(long place) {
    const Entry& entry = m_Entries[static_cast<std::size_t>(place)];
    if (!HasKey())
        return entry.values;
    Statement statement(m_Connection, SelectRow(*m_Query, m_KeyNames, m_Quote));
    BindKey(statement, entry);
    statement.Execute();
    return statement.Fetch() ? std::optional(ReadAll(statement, m_Columns)) : std::nullopt;
}

void RecordTable::TakeKeys(Row& key, const Changes& changes) const {
    for (const auto& [column, value] : changes)
        for (std::size_t i = 0; i < m_Keys.size(); ++i)
            if (Folded(m_KeyNames[i]) == Folded(m_Columns[column].name))
                key[i] = value;
}

void RecordTable::Update(long place, const Changes& changes) {
    Entry& entry = m_Entries[static_cast<std::size_t>(place)];
    Row key = entry.values;
    TakeKeys(key, changes);
    Statement statement(m_Connection, UpdateRow(*m_Query, NamesOf(changes), m_KeyNames, m_Quote));
    BindChanges(statement, changes);
    BindKey(statement, entry);
    statement.Execute();
    CheckOneRow(statement);
    entry.values = std::move(key);
}

void RecordTable::Update(const std::map<double, Changes>& batch) {
    const std::vector<Entry> before = m_Entries;
    try {
        Transaction transaction(m_Connection);
        for (const auto& [id, changes] : batch)
            Update(*PlaceOf(id), changes);
        transaction.Commit();
    } catch (...) {
        m_Entries = before; // with the keys that the rows still have
        throw;
    }
}

void RecordTable::Insert(const Changes& changes) {
    Row key(m_Keys.size(), NullValue());
    TakeKeys(key, changes);
    {
        Statement statement(m_Connection, InsertRow(*m_Query, NamesOf(changes), m_Quote));
        BindChanges(statement, changes);
        statement.Execute();
    }
    if (key.size() == 1 && IsNull(key[0]) && m_Keys[0].type.transfer == Transfer::Integer)
        key[0] = LastIdentity();
    m_Entries.push_back({NewId(), std::move(key)});
}

_variant_t RecordTable::LastIdentity() {
    const std::wstring command = SelectIdentity(m_Connection.Information(SQL_DBMS_NAME));
    if (command.empty())
        return NullValue();
    Statement statement(m_Connection, command);
    statement.Execute();
    return statement.Fetch() ? statement.Read(1, m_Keys[0].type) : NullValue();
}

void RecordTable::Delete(long place) {
    const auto entry = m_Entries.begin() + place;
    Statement statement(m_Connection, DeleteRow(*m_Query, m_KeyNames, m_Quote));
    BindKey(statement, *entry);
    statement.Execute();
    CheckOneRow(statement);
    m_Entries.erase(entry);
}

} // namespace ormisk::records
