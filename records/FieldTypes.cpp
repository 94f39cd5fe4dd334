#include "records/FieldTypes.h"

#include <algorithm>
#include <iterator>

namespace ormisk::records {

namespace {

// Numbers of DataTypeEnum.
enum Type {
    kSmallInt = 2,
    kInteger = 3,
    kSingle = 4,
    kDouble = 5,
    kBoolean = 11,
    kUnsignedTinyInt = 17,
    kBigInt = 20,
    kGuid = 72,
    kBinary = 128,
    kChar = 129,
    kWideChar = 130,
    kNumeric = 131,
    kDate = 133,
    kTime = 134,
    kTimestamp = 135,
    kVarChar = 200,
    kLongVarChar = 201,
    kVarWideChar = 202,
    kLongVarWideChar = 203,
    kVarBinary = 204,
    kLongVarBinary = 205,
};

struct Row {
    int sql;
    FieldType field;
};

// Dates have a number of the standard's and an older one.
constexpr Row kTypes[] = {
    {1, {kChar, Transfer::Text, true, false}},
    {2, {kNumeric, Transfer::Decimal, true, false}},
    {3, {kNumeric, Transfer::Decimal, true, false}},
    {4, {kInteger, Transfer::Integer, true, false}},
    {5, {kSmallInt, Transfer::Integer, true, false}},
    {6, {kDouble, Transfer::Real, true, false}},
    {7, {kSingle, Transfer::Real, true, false}},
    {8, {kDouble, Transfer::Real, true, false}},
    {9, {kDate, Transfer::Date, true, false}},
    {10, {kTime, Transfer::Time, true, false}},
    {11, {kTimestamp, Transfer::Date, true, false}},
    {12, {kVarChar, Transfer::Text, false, false}},
    {91, {kDate, Transfer::Date, true, false}},
    {92, {kTime, Transfer::Time, true, false}},
    {93, {kTimestamp, Transfer::Date, true, false}},
    {-1, {kLongVarChar, Transfer::Text, false, true}},
    {-2, {kBinary, Transfer::Binary, true, false}},
    {-3, {kVarBinary, Transfer::Binary, false, false}},
    {-4, {kLongVarBinary, Transfer::Binary, false, true}},
    {-5, {kBigInt, Transfer::Integer, true, false}},
    {-6, {kUnsignedTinyInt, Transfer::Integer, true, false}},
    {-7, {kBoolean, Transfer::Boolean, true, false}},
    {-8, {kWideChar, Transfer::Text, true, false}},
    {-9, {kVarWideChar, Transfer::Text, false, false}},
    {-10, {kLongVarWideChar, Transfer::Text, false, true}},
    {-11, {kGuid, Transfer::Text, true, false}},
};

} // namespace

FieldType TypeOfSql(int sqlType) {
    const auto* found = std::ranges::find(kTypes, sqlType, &Row::sql);
    // What a driver has of its own can be read and written as text.
    return found == std::end(kTypes) ? FieldType{kVarWideChar, Transfer::Text, false, false} : found->field;
}

std::int64_t DefinedSizeOf(const FieldType& type, std::uint64_t columnSize) {
    constexpr std::uint64_t kLongest = 0x7FFFFFFF;
    switch (type.type) {
    case kUnsignedTinyInt:
        return 1;
    case kSmallInt:
    case kBoolean:
        return 2;
    case kInteger:
    case kSingle:
        return 4;
    case kDouble:
    case kBigInt:
        return 8;
    case kDate:
    case kTime:
        return 6;
    case kTimestamp:
    case kGuid:
        return 16;
    case kNumeric:
        return 19;
    default:
        // Drivers that do not know the length say 0.
        return static_cast<std::int64_t>(columnSize == 0 ? kLongest : std::min(columnSize, kLongest));
    }
}

} // namespace ormisk::records
