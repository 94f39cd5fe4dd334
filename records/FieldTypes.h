#pragma once

#include <cstdint>

namespace ormisk::records {

// How a value travels between the driver and an automation value.
enum class Transfer { Integer, Real, Decimal, Text, Boolean, Date, Time, Binary };

// What a column's type in SQL means to a host. The type is a number of DataTypeEnum.
struct FieldType {
    int type;
    Transfer transfer;
    bool fixed; // values have one length
    bool large; // values can be longer than a host wants to have at once
};

FieldType TypeOfSql(int sqlType);

// The size that the contract gives a field: bytes of a value of fixed length, else the length that the column has.
std::int64_t DefinedSizeOf(const FieldType& type, std::uint64_t columnSize);

} // namespace ormisk::records
