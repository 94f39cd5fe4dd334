#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ormisk::records {

// A name as the database writes it between quotes. The quote is empty or blank for one that has none.
std::wstring QuoteName(std::wstring_view name, std::wstring_view quote);

// A table and what is asked of it.
struct TableQuery {
    std::vector<std::wstring> table;   // its name without quotes, behind those of its schema and catalog
    std::vector<std::wstring> columns; // without quotes; none for all
    std::wstring alias;                // as the table is called in the conditions, without quotes
    std::wstring conditions;           // WHERE and ORDER BY, as they were given
    bool ordered = false;              // they say an order, or something that stands behind one
};

// Whether a source is a command rather than the name of a table.
bool IsCommand(std::wstring_view source);
TableQuery QueryOfTable(std::wstring_view name);
// The query of a SELECT that gives rows of one table by the names of its columns; none for any other, whose rows have
// no key.
std::optional<TableQuery> ParseSelect(std::wstring_view text);

// Commands of a query. Rows are found by the columns of a key, whose values come as parameters behind all others.
std::wstring SelectAll(const TableQuery& query, std::wstring_view quote);
std::wstring SelectNone(const TableQuery& query, std::wstring_view quote); // for its columns only
std::wstring SelectKeys(const TableQuery& query, const std::vector<std::wstring>& keys, std::wstring_view quote);
std::wstring SelectRow(const TableQuery& query, const std::vector<std::wstring>& keys, std::wstring_view quote);
std::wstring UpdateRow(const TableQuery& query, const std::vector<std::wstring>& columns,
                       const std::vector<std::wstring>& keys, std::wstring_view quote);
std::wstring InsertRow(const TableQuery& query, const std::vector<std::wstring>& columns, std::wstring_view quote);
std::wstring DeleteRow(const TableQuery& query, const std::vector<std::wstring>& keys, std::wstring_view quote);

// Asks a database for the number that it gave to the row inserted last; empty where that is not known.
std::wstring SelectIdentity(std::wstring_view database);

} // namespace ormisk::records
