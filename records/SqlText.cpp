#include "records/SqlText.h"

#include "records/SqlTokens.h"

#include <algorithm>

namespace ormisk::records {

namespace {

bool IsBlankText(std::wstring_view text) { return text.find_first_not_of(L' ') == text.npos; }

std::wstring TableText(const TableQuery& query, std::wstring_view quote) {
    std::wstring text;
    for (const std::wstring& part : query.table)
        text += (text.empty() ? L"" : L".") + QuoteName(part, quote);
    return text;
}

std::wstring List(const std::vector<std::wstring>& names, std::wstring_view quote, std::wstring_view behind = {}) {
    std::wstring text;
    for (const std::wstring& name : names)
        text += (text.empty() ? L"" : L", ") + QuoteName(name, quote) + std::wstring(behind);
    return text;
}

std::wstring Where(const std::vector<std::wstring>& keys, std::wstring_view quote) {
    std::wstring text;
    for (const std::wstring& key : keys)
        text += (text.empty() ? L" WHERE " : L" AND ") + QuoteName(key, quote) + L" = ?";
    return text;
}

std::wstring SelectFrom(const TableQuery& query, std::wstring_view quote) {
    return L"SELECT " + (query.columns.empty() ? L"*" : List(query.columns, quote)) + L" FROM " +
           TableText(query, quote);
}

std::wstring From(const TableQuery& query, std::wstring_view quote) {
    std::wstring text = L" FROM " + TableText(query, quote);
    if (!query.alias.empty())
        text += L" " + QuoteName(query.alias, quote);
    return text + (query.conditions.empty() ? L"" : L" " + query.conditions);
}

// Reads a SELECT from its words on.
class SelectReader {
public:
    explicit SelectReader(std::wstring_view text) : m_Text(text) { Step(); }

    std::optional<TableQuery> Read() {
        Step(); // SELECT
        if (!ReadColumns() || !ReadTable() || !ReadConditions())
            return std::nullopt;
        return std::move(m_Query);
    }
    bool AtSelect() const { return m_Token.Is(L"SELECT"); }

private:
    void Step() { m_Token = NextToken(m_Text, m_Token.end); }
    bool AtKeyword() const {
        return std::ranges::any_of(kKeywords, [&](std::wstring_view keyword) { return m_Token.Is(keyword); });
    }

    // a.b.c
    bool ReadName(std::vector<std::wstring>& parts) {
        while (m_Token.IsName() && !AtKeyword()) {
            parts.push_back(std::move(m_Token.text));
            Step();
            if (!m_Token.IsSign(L'.'))
                return true;
            Step();
        }
        return false;
    }

    bool ReadColumns() {
        if (m_Token.IsSign(L'*')) {
            Step();
        } else {
            for (;;) {
                std::vector<std::wstring> name;
                // A name before that of the column is the table's, which is the only one.
                if (!ReadName(name))
                    return false;
                m_Query.columns.push_back(name.back());
                if (!m_Token.IsSign(L','))
                    break;
                Step();
            }
        }
        if (!m_Token.Is(L"FROM"))
            return false;
        Step();
        return true;
    }

    bool ReadTable() {
        if (!ReadName(m_Query.table))
            return false;
        if (m_Token.Is(L"AS"))
            Step();
        if (m_Token.IsName() && !AtKeyword()) {
            m_Query.alias = m_Token.text;
            Step();
        }
        return true;
    }

    bool ReadConditions() {
        const std::size_t start = m_Token.start;
        if (m_Token.kind == SqlToken::Kind::End)
            return true;
        std::size_t end = start;
        if (!m_Token.IsSign(L';') && !m_Token.Is(L"WHERE") && !m_Token.Is(L"ORDER"))
            return false;
        for (; m_Token.kind != SqlToken::Kind::End; Step()) {
            if (m_Token.IsSign(L';')) {
                Step();
                break;
            }
            if (std::ranges::any_of(kJoining, [&](std::wstring_view keyword) { return m_Token.Is(keyword); }))
                return false;
            if (std::ranges::any_of(kOrdering, [&](std::wstring_view keyword) { return m_Token.Is(keyword); }))
                m_Query.ordered = true;
            end = m_Token.end;
        }
        m_Query.conditions = m_Text.substr(start, end - start);
        return m_Token.kind == SqlToken::Kind::End;
    }

    static constexpr std::wstring_view kKeywords[] = {
        L"FROM",  L"WHERE",   L"ORDER", L"GROUP", L"HAVING",  L"UNION",    L"EXCEPT", L"INTERSECT",
        L"JOIN",  L"LEFT",    L"INNER", L"CROSS", L"NATURAL", L"DISTINCT", L"ALL",    L"AS",
        L"LIMIT", L"OFFSET",  L"FETCH", L"FOR",   L"RIGHT",   L"FULL",     L"OUTER",  L"ON",
        L"TOP",   L"INDEXED", L"USING", L"NULL",  L"CASE",    L"NOT",      L"CAST",   L"WINDOW",
    };
    // What makes rows of more than rows of the table.
    static constexpr std::wstring_view kJoining[] = {L"GROUP", L"HAVING", L"UNION", L"EXCEPT", L"INTERSECT", L"WINDOW"};
    static constexpr std::wstring_view kOrdering[] = {L"ORDER", L"LIMIT", L"OFFSET", L"FETCH", L"FOR"};

    std::wstring_view m_Text;
    SqlToken m_Token;
    TableQuery m_Query;
};

} // namespace

std::wstring QuoteName(std::wstring_view name, std::wstring_view quote) {
    if (IsBlankText(quote))
        return std::wstring(name);
    std::wstring text(quote);
    for (std::size_t place = 0; place < name.size(); ++place) {
        if (name.substr(place).starts_with(quote))
            text += quote;
        text += name[place];
    }
    return text.append(quote);
}

bool IsCommand(std::wstring_view source) {
    static constexpr std::wstring_view kVerbs[] = {L"SELECT", L"WITH",   L"VALUES", L"INSERT", L"UPDATE",
                                                   L"DELETE", L"CREATE", L"DROP",   L"ALTER"};
    const SqlToken first = NextToken(source, 0);
    return std::ranges::any_of(kVerbs, [&](std::wstring_view verb) { return first.Is(verb); }) &&
           NextToken(source, first.end).kind != SqlToken::Kind::End;
}

TableQuery QueryOfTable(std::wstring_view name) {
    // A name that is quoted as a whole, with its schema, is read as in a command; any other is taken as it is.
    TableQuery query;
    const SqlToken first = NextToken(name, 0);
    if (first.kind == SqlToken::Kind::QuotedName) {
        const auto parsed = ParseSelect(L"SELECT * FROM " + std::wstring(name));
        if (parsed && parsed->conditions.empty() && parsed->alias.empty())
            return *parsed;
    }
    query.table.emplace_back(name);
    return query;
}

std::optional<TableQuery> ParseSelect(std::wstring_view text) {
    SelectReader reader(text);
    return reader.AtSelect() ? reader.Read() : std::nullopt;
}

std::wstring SelectAll(const TableQuery& query, std::wstring_view quote) {
    return L"SELECT " + (query.columns.empty() ? L"*" : List(query.columns, quote)) + From(query, quote);
}

std::wstring SelectKeys(const TableQuery& query, const std::vector<std::wstring>& keys, std::wstring_view quote) {
    // Databases may find the keys in an index that has an order of its own.
    const std::wstring order = query.ordered ? L"" : L" ORDER BY " + List(keys, quote);
    return L"SELECT " + List(keys, quote) + From(query, quote) + order;
}

std::wstring SelectNone(const TableQuery& query, std::wstring_view quote) {
    return SelectFrom(query, quote) + L" WHERE 1 = 0";
}

std::wstring SelectRow(const TableQuery& query, const std::vector<std::wstring>& keys, std::wstring_view quote) {
    return SelectFrom(query, quote) + Where(keys, quote);
}

std::wstring UpdateRow(const TableQuery& query, const std::vector<std::wstring>& columns,
                       const std::vector<std::wstring>& keys, std::wstring_view quote) {
    return L"UPDATE " + TableText(query, quote) + L" SET " + List(columns, quote, L" = ?") + Where(keys, quote);
}

std::wstring InsertRow(const TableQuery& query, const std::vector<std::wstring>& columns, std::wstring_view quote) {
    const std::wstring text = L"INSERT INTO " + TableText(query, quote);
    if (columns.empty())
        return text + L" DEFAULT VALUES";
    std::wstring places = L"?";
    for (std::size_t i = 1; i < columns.size(); ++i)
        places += L", ?";
    return text + L" (" + List(columns, quote) + L") VALUES (" + places + L")";
}

std::wstring DeleteRow(const TableQuery& query, const std::vector<std::wstring>& keys, std::wstring_view quote) {
    return L"DELETE FROM " + TableText(query, quote) + Where(keys, quote);
}

std::wstring SelectIdentity(std::wstring_view database) {
    if (database.starts_with(L"SQLite"))
        return L"SELECT last_insert_rowid()";
    if (database.starts_with(L"MySQL") || database.starts_with(L"MariaDB"))
        return L"SELECT LAST_INSERT_ID()";
    if (database.starts_with(L"PostgreSQL"))
        return L"SELECT lastval()";
    const bool asks = database.starts_with(L"Microsoft SQL Server") || database.starts_with(L"ACCESS");
    return asks ? L"SELECT @@IDENTITY" : L"";
}

} // namespace ormisk::records
