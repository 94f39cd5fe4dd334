#include "records/SqlTokens.h"

#include <algorithm>

namespace ormisk::records {

namespace {

bool IsBlank(wchar_t c) { return c == L' ' || (c >= L'\t' && c <= L'\r'); }

bool IsWordPart(wchar_t c) {
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') || c == L'_' || c == L'$' ||
           c >= 0x80;
}

std::size_t Behind(std::wstring_view statement, std::wstring_view end, std::size_t from) {
    const std::size_t found = statement.find(end, from);
    return found == statement.npos ? statement.size() : found + end.size();
}

std::size_t SkipBlanks(std::wstring_view statement, std::size_t place) {
    while (place < statement.size()) {
        const std::wstring_view rest = statement.substr(place);
        if (rest.starts_with(L"--"))
            place = Behind(statement, L"\n", place);
        else if (rest.starts_with(L"/*"))
            place = Behind(statement, L"*/", place + 2);
        else if (IsBlank(rest[0]))
            ++place;
        else
            break;
    }
    return place;
}

// What stands between quotes; a closing one that is doubled is part of it.
void ReadQuoted(std::wstring_view statement, wchar_t close, SqlToken& token) {
    std::size_t place = token.start + 1;
    for (; place < statement.size(); ++place) {
        if (statement[place] == close) {
            if (place + 1 >= statement.size() || statement[place + 1] != close)
                break;
            ++place;
        }
        token.text += statement[place];
    }
    token.end = std::min(place + 1, statement.size());
}

} // namespace

bool SqlToken::Is(std::wstring_view keyword) const {
    return kind == Kind::Word && std::ranges::equal(text, keyword, [](wchar_t a, wchar_t b) {
               return (a >= L'a' && a <= L'z' ? static_cast<wchar_t>(a - L'a' + L'A') : a) == b;
           });
}

SqlToken NextToken(std::wstring_view statement, std::size_t place) {
    SqlToken token;
    token.start = token.end = SkipBlanks(statement, place);
    if (token.start == statement.size())
        return token;
    const wchar_t first = statement[token.start];
    if (first == L'"' || first == L'`' || first == L'[' || first == L'\'') {
        token.kind = first == L'\'' ? SqlToken::Kind::Literal : SqlToken::Kind::QuotedName;
        ReadQuoted(statement, first == L'[' ? L']' : first, token);
        return token;
    }
    const bool word = IsWordPart(first);
    const bool number = first >= L'0' && first <= L'9';
    token.kind = number ? SqlToken::Kind::Literal : word ? SqlToken::Kind::Word : SqlToken::Kind::Sign;
    do
        token.text += statement[token.end++];
    while (word && token.end < statement.size() && IsWordPart(statement[token.end]));
    return token;
}

} // namespace ormisk::records
