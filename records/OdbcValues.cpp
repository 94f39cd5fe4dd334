// How values pass between the driver and automation.

#include "records/FieldValue.h"
#include "records/Odbc.h"

#include <algorithm>
#include <cstring>

namespace ormisk::records {

namespace {

constexpr LCID kNeutralEnglish = 0x409;
constexpr int kDate = 133; // of DataTypeEnum: a day without a time

template <class T> std::vector<BYTE> ToBytes(const T& value) {
    std::vector<BYTE> bytes(sizeof(value));
    std::memcpy(bytes.data(), &value, sizeof(value));
    return bytes;
}

std::vector<BYTE> TextBytes(const std::wstring& text) {
    std::vector<BYTE> bytes(text.size() * sizeof(wchar_t));
    if (!text.empty())
        std::memcpy(bytes.data(), text.data(), bytes.size());
    return bytes;
}

_variant_t Converted(const VARIANT& value, VARTYPE type) {
    _variant_t converted;
    CheckSystem(ConvertValue(value, type, converted));
    return converted;
}

// Decimals go as text with a point, whatever the user's own sign is.
std::wstring DecimalText(const VARIANT& value) {
    _variant_t decimal = Converted(value, VT_DECIMAL);
    _bstr_t text;
    CheckSystem(VarBstrFromDec(&V_DECIMAL(&decimal), kNeutralEnglish, LOCALE_NOUSEROVERRIDE, text.GetAddress()));
    return FromBstr(text.GetBSTR());
}

SYSTEMTIME MomentOf(const VARIANT& value) {
    SYSTEMTIME moment{};
    if (!VariantTimeToSystemTime(V_DATE(&value), &moment))
        CheckSystem(DISP_E_OVERFLOW);
    return moment;
}

_variant_t DateValue(const SYSTEMTIME& moment) {
    double date = 0;
    // A driver finds no date in a text that is none.
    return SystemTimeToVariantTime(const_cast<SYSTEMTIME*>(&moment), &date) ? _variant_t(date, VT_DATE) : NullValue();
}

} // namespace

void Statement::Fill(Parameter& parameter, const VARIANT& value, const Column& column) {
    if (V_VT(&value) == VT_NULL || V_VT(&value) == VT_EMPTY)
        return;
    const auto fill = [&](SQLSMALLINT hostType, SQLSMALLINT sqlType, SQLULEN size, std::vector<BYTE> bytes) {
        parameter = {hostType, sqlType, size, 0, std::move(bytes), 0};
        parameter.length = static_cast<SQLLEN>(parameter.bytes.size());
    };
    switch (column.type.transfer) {
    case Transfer::Integer:
        return fill(SQL_C_SBIGINT, SQL_BIGINT, 19, ToBytes(V_I8(&Converted(value, VT_I8).GetVARIANT())));
    case Transfer::Real:
        return fill(SQL_C_DOUBLE, SQL_DOUBLE, 15, ToBytes(V_R8(&Converted(value, VT_R8).GetVARIANT())));
    case Transfer::Boolean:
        return fill(SQL_C_BIT, SQL_BIT, 1, {static_cast<BYTE>(V_BOOL(&value) ? 1 : 0)});
    case Transfer::Date:
    case Transfer::Time: {
        const SYSTEMTIME m = MomentOf(value);
        const auto year = static_cast<SQLSMALLINT>(m.wYear);
        if (column.type.transfer == Transfer::Time)
            return fill(SQL_C_TYPE_TIME, SQL_TYPE_TIME, 8, ToBytes(TIME_STRUCT{m.wHour, m.wMinute, m.wSecond}));
        if (column.type.type == kDate)
            return fill(SQL_C_TYPE_DATE, SQL_TYPE_DATE, 10, ToBytes(DATE_STRUCT{year, m.wMonth, m.wDay}));
        return fill(SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, 19,
                    ToBytes(TIMESTAMP_STRUCT{year, m.wMonth, m.wDay, m.wHour, m.wMinute, m.wSecond, 0}));
    }
    case Transfer::Binary: {
        const std::string bytes = BytesOf(value);
        return fill(SQL_C_BINARY, SQL_LONGVARBINARY, std::max<SQLULEN>(bytes.size(), 1), {bytes.begin(), bytes.end()});
    }
    case Transfer::Decimal:
    case Transfer::Text:
        break;
    }
    const bool decimal = column.type.transfer == Transfer::Decimal;
    const std::wstring text = decimal ? DecimalText(value) : TextOf(value);
    fill(SQL_C_WCHAR, static_cast<SQLSMALLINT>(decimal ? SQL_DECIMAL : SQL_WLONGVARCHAR),
         decimal ? column.size : std::max<SQLULEN>(text.size(), 1), TextBytes(text));
    parameter.scale = static_cast<SQLSMALLINT>(decimal ? column.scale : 0);
}

bool Statement::ReadPlain(SQLUSMALLINT column, SQLSMALLINT hostType, void* value, SQLLEN size) {
    SQLLEN length = 0;
    m_Handle.Check(SQLGetData(m_Handle.Get(), column, hostType, value, size, &length));
    return length != SQL_NULL_DATA;
}

// In pieces, each of which but the last ends with as many bytes of zero as a text has behind it.
bool Statement::ReadLong(SQLUSMALLINT column, SQLSMALLINT hostType, SQLLEN end, std::string& bytes) {
    std::string piece(16384, '\0');
    const auto size = static_cast<SQLLEN>(piece.size());
    for (;;) {
        SQLLEN length = 0;
        const SQLRETURN result = SQLGetData(m_Handle.Get(), column, hostType, piece.data(), size, &length);
        m_Handle.Check(result);
        if (result == SQL_NO_DATA)
            return true;
        if (length == SQL_NULL_DATA)
            return false;
        const bool more = length == SQL_NO_TOTAL || length > size - end;
        bytes.append(piece, 0, static_cast<std::size_t>(more ? size - end : length));
        if (!more)
            return true;
    }
}

_variant_t Statement::ReadText(SQLUSMALLINT column) {
    std::string bytes;
    if (!ReadLong(column, SQL_C_WCHAR, sizeof(wchar_t), bytes))
        return NullValue();
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    if (!text.empty())
        std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
    return ToVariant(text);
}

_variant_t Statement::ReadBinary(SQLUSMALLINT column) {
    std::string bytes;
    return ReadLong(column, SQL_C_BINARY, 0, bytes) ? FromBytes(bytes) : NullValue();
}

_variant_t Statement::ReadMoment(SQLUSMALLINT column, const FieldType& type) {
    if (type.transfer == Transfer::Time) {
        TIME_STRUCT time{};
        if (!ReadPlain(column, SQL_C_TYPE_TIME, &time, sizeof(time)))
            return NullValue();
        return _variant_t((time.hour * 3600 + time.minute * 60 + time.second) / 86400.0, VT_DATE);
    }
    TIMESTAMP_STRUCT m{};
    if (!ReadPlain(column, SQL_C_TYPE_TIMESTAMP, &m, sizeof(m)))
        return NullValue();
    return DateValue({static_cast<WORD>(m.year), m.month, 0, m.day, m.hour, m.minute, m.second, 0});
}

_variant_t Statement::Read(SQLUSMALLINT column, const FieldType& type) {
    switch (type.transfer) {
    case Transfer::Integer: {
        std::int64_t number = 0;
        return ReadPlain(column, SQL_C_SBIGINT, &number, sizeof(number)) ? IntegerValue(number, type) : NullValue();
    }
    case Transfer::Real: {
        double number = 0;
        if (!ReadPlain(column, SQL_C_DOUBLE, &number, sizeof(number)))
            return NullValue();
        return RealValue(number, type);
    }
    case Transfer::Boolean: {
        unsigned char bit = 0;
        return ReadPlain(column, SQL_C_BIT, &bit, sizeof(bit)) ? _variant_t(bit != 0) : NullValue();
    }
    case Transfer::Date:
    case Transfer::Time:
        return ReadMoment(column, type);
    case Transfer::Binary:
        return ReadBinary(column);
    case Transfer::Decimal: {
        _variant_t text = ReadText(column);
        _variant_t number;
        const bool read = V_VT(&text) == VT_BSTR &&
                          SUCCEEDED(ConvertValue(text, VT_DECIMAL, number, kNeutralEnglish, VARIANT_NOUSEROVERRIDE));
        return read ? number : text;
    }
    case Transfer::Text:
        break;
    }
    return ReadText(column);
}

} // namespace ormisk::records
