#pragma once

#include <string>
#include <string_view>

namespace ormisk::records {

// One token of a statement: a quoted name without its quotes, anything else as it stands.
struct SqlToken {
    enum class Kind { End, Word, QuotedName, Literal, Sign };
    Kind kind = Kind::End;
    std::wstring text;
    std::size_t start = 0; // of the token and of what follows it, in the statement
    std::size_t end = 0;

    bool IsName() const { return kind == Kind::Word || kind == Kind::QuotedName; }
    bool Is(std::wstring_view keyword) const; // in capitals
    bool IsSign(wchar_t sign) const { return kind == Kind::Sign && text[0] == sign; }
};

// Reads the token at a place or behind the blanks and comments there. What a quote opens and nobody closes ends with
// the statement.
SqlToken NextToken(std::wstring_view statement, std::size_t place);

} // namespace ormisk::records
