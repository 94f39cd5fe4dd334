#include "records/RecordTable.h"

#include "records/Failures.h"
#include "records/FieldValue.h"

#include <algorithm>

namespace ormisk::records {

namespace {

constexpr HRESULT kConcurrencyViolation = static_cast<HRESULT>(0x80040E38);
// Of the catalog's rows.
constexpr SQLUSMALLINT kTableColumn = 3;
constexpr SQLUSMALLINT kNameColumn = 4;
constexpr SQLUSMALLINT kNullableColumn = 11;

std::vector<std::wstring> NamesOf(const std::vector<Column>& columns) {
    std::vector<std::wstring> names;
    for (const Column& column : columns)
        names.push_back(column.name);
    return names;
}

bool SameName(const std::wstring& a, const std::wstring& b) {
    return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

Row ReadAll(Statement& statement, const std::vector<Column>& columns) {
    Row row;
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
    const bool command = kind == SourceKind::Command || (kind == SourceKind::Guess && IsSelect(source));
    m_Query = command ? ParseSelect(source) : QueryOfTable(source);
    m_Command = command ? source : SelectAll(*m_Query, m_Quote);
    if (m_Query)
        FindKeys();
    Describe();
    Load();
}

void RecordTable::FindKeys() {
    std::vector<std::wstring> names;
    {
        Statement catalog(m_Connection);
        catalog.PrimaryKeys(m_Query->table);
        while (catalog.Fetch())
            names.push_back(TextOf(catalog.Read(kNameColumn, {0, Transfer::Text, false, false})));
    }
    if (names.empty())
        return;
    std::vector<KeyColumn> none;
    for (const std::wstring& name : names)
        none.push_back({name, true});
    TableQuery keys = *m_Query;
    keys.columns = names;
    // Of no rows: what the columns are is all that is asked.
    Statement statement(m_Connection, SelectRow(keys, none, m_Quote));
    statement.Execute();
    m_Keys = statement.Columns();
}

void RecordTable::Describe() {
    if (!HasKey())
        return; // comes with the rows
    std::vector<KeyColumn> none;
    for (const Column& key : m_Keys)
        none.push_back({key.name, true});
    Statement statement(m_Connection, SelectRow(*m_Query, none, m_Quote));
    statement.Execute();
    m_Columns = statement.Columns();
    for (Column& column : m_Columns) {
        column.writable = true;
        column.key = std::ranges::any_of(m_Keys, [&](const Column& key) { return SameName(key.name, column.name); });
    }
    FindNullable();
}

// Drivers know of a result less than of the table.
void RecordTable::FindNullable() {
    constexpr FieldType kText = {0, Transfer::Text, false, false};
    Statement catalog(m_Connection);
    catalog.TableColumns(m_Query->table);
    while (catalog.Fetch()) {
        if (!SameName(TextOf(catalog.Read(kTableColumn, kText)), m_Query->table.back()))
            continue;
        const std::wstring name = TextOf(catalog.Read(kNameColumn, kText));
        if (TextOf(catalog.Read(kNullableColumn, kText)) == std::to_wstring(SQL_NO_NULLS))
            for (Column& column : m_Columns)
                if (SameName(column.name, name))
                    column.nullable = false;
    }
}

void RecordTable::Load() {
    Statement statement(m_Connection, HasKey() ? SelectKeys(*m_Query, records::NamesOf(m_Keys), m_Quote) : m_Command);
    statement.Execute();
    std::vector<Column> columns = HasKey() ? m_Keys : statement.Columns();
    std::vector<Entry> entries;
    double id = m_LastId;
    while (statement.Fetch())
        entries.push_back({++id, ReadAll(statement, columns)});
    m_Entries = std::move(entries);
    m_LastId = id;
    if (!HasKey())
        m_Columns = std::move(columns);
}

std::optional<long> RecordTable::PlaceOf(double id) const {
    const auto found = std::ranges::find(m_Entries, id, &Entry::id);
    return found == m_Entries.end() ? std::nullopt : std::optional(static_cast<long>(found - m_Entries.begin()));
}

std::vector<KeyColumn> RecordTable::KeyOf(const Entry& entry) const {
    std::vector<KeyColumn> key;
    for (std::size_t i = 0; i < m_Keys.size(); ++i)
        key.push_back({m_Keys[i].name, IsNull(entry.values[i])});
    return key;
}

void RecordTable::BindKey(Statement& statement, const Entry& entry) const {
    for (std::size_t i = 0; i < m_Keys.size(); ++i)
        if (!IsNull(entry.values[i]))
            statement.Bind(entry.values[i], m_Keys[i]);
}

void RecordTable::BindChanges(Statement& statement, const Changes& changes) const {
    for (const auto& [column, value] : changes)
        statement.Bind(value, m_Columns[column]);
}

std::vector<std::wstring> RecordTable::NamesOf(const Changes& changes) const {
    std::vector<std::wstring> names;
    for (const auto& [column, value] : changes)
        names.push_back(m_Columns[column].name);
    return names;
}

std::optional<Row> RecordTable::Read(long place) {
    const Entry& entry = m_Entries[static_cast<std::size_t>(place)];
    if (!HasKey())
        return entry.values;
    Statement statement(m_Connection, SelectRow(*m_Query, KeyOf(entry), m_Quote));
    BindKey(statement, entry);
    statement.Execute();
    return statement.Fetch() ? std::optional(ReadAll(statement, m_Columns)) : std::nullopt;
}

void RecordTable::TakeKeys(Row& key, const Changes& changes) const {
    for (const auto& [column, value] : changes)
        for (std::size_t i = 0; i < m_Keys.size(); ++i)
            if (SameName(m_Keys[i].name, m_Columns[column].name))
                key[i] = value;
}

void RecordTable::Update(long place, const Changes& changes) {
    Entry& entry = m_Entries[static_cast<std::size_t>(place)];
    Row key = entry.values;
    TakeKeys(key, changes);
    Statement statement(m_Connection, UpdateRow(*m_Query, NamesOf(changes), KeyOf(entry), m_Quote));
    BindChanges(statement, changes);
    BindKey(statement, entry);
    statement.Execute();
    CheckOneRow(statement);
    entry.values = std::move(key);
}

void RecordTable::Insert(const Changes& changes) {
    Row key(m_Keys.size(), NullValue());
    TakeKeys(key, changes);
    {
        Statement statement(m_Connection, InsertRow(*m_Query, NamesOf(changes), m_Quote));
        BindChanges(statement, changes);
        statement.Execute();
    }
    if (key.size() == 1 && IsNull(key[0]))
        key[0] = LastIdentity();
    m_Entries.push_back({++m_LastId, std::move(key)});
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
    Statement statement(m_Connection, DeleteRow(*m_Query, KeyOf(*entry), m_Quote));
    BindKey(statement, *entry);
    statement.Execute();
    CheckOneRow(statement);
    m_Entries.erase(entry);
}

} // namespace ormisk::records
