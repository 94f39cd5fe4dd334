#include "records/FieldValue.h"

#include "records/Failures.h"

#include <cmath>
#include <limits>
#include <utility>

namespace ormisk::records {

namespace {

// Numbers of DataTypeEnum.
constexpr int kSmallInt = 2;
constexpr int kSingle = 4;
constexpr int kUnsignedTinyInt = 17;
constexpr int kBigInt = 20;

// The elements of an array of bytes, for as long as they are used.
class ArrayBytes {
public:
    explicit ArrayBytes(SAFEARRAY* array) : m_Array(array) { CheckSystem(SafeArrayAccessData(array, &m_Data)); }
    ArrayBytes(const ArrayBytes&) = delete;
    ArrayBytes& operator=(const ArrayBytes&) = delete;
    ~ArrayBytes() { SafeArrayUnaccessData(m_Array); }
    char* Data() const { return static_cast<char*>(m_Data); }

private:
    SAFEARRAY* m_Array;
    void* m_Data = nullptr;
};

VARTYPE TypeFor(const FieldType& type) {
    switch (type.transfer) {
    case Transfer::Integer:
        return VT_I8;
    case Transfer::Real:
        return VT_R8;
    case Transfer::Decimal:
        return VT_DECIMAL;
    case Transfer::Boolean:
        return VT_BOOL;
    case Transfer::Date:
    case Transfer::Time:
        return VT_DATE;
    default:
        return VT_BSTR;
    }
}

} // namespace

_variant_t NullValue() {
    _variant_t null;
    V_VT(&null) = VT_NULL;
    return null;
}

_variant_t IntegerValue(std::int64_t number, const FieldType& type) {
    if (type.type == kUnsignedTinyInt && std::in_range<std::uint8_t>(number))
        return static_cast<BYTE>(number);
    if (type.type == kSmallInt && std::in_range<std::int16_t>(number))
        return static_cast<short>(number);
    if (type.type != kBigInt && std::in_range<std::int32_t>(number))
        return static_cast<long>(number);
    _variant_t value;
    V_VT(&value) = VT_I8;
    V_I8(&value) = number;
    return value;
}

_variant_t RealValue(double number, const FieldType& type) {
    if (type.type == kSingle && std::abs(number) <= std::numeric_limits<float>::max())
        return static_cast<float>(number);
    return number;
}

_variant_t ToFieldValue(const VARIANT& value, const FieldType& type) {
    _variant_t plain;
    if (FAILED(ResolveDefault(value, plain)))
        Raise(Failure::DataConversion);
    if (V_VT(&plain) == VT_NULL || V_VT(&plain) == VT_EMPTY)
        return NullValue();
    if (type.transfer == Transfer::Binary) {
        if (V_VT(&plain) != (VT_ARRAY | VT_UI1) || SafeArrayGetDim(V_ARRAY(&plain)) != 1)
            Raise(Failure::DataConversion);
        return plain;
    }
    _variant_t converted;
    if (FAILED(ConvertValue(plain, TypeFor(type), converted)))
        Raise(Failure::DataConversion);
    if (type.transfer == Transfer::Integer)
        return IntegerValue(V_I8(&converted), type);
    return type.transfer == Transfer::Real ? RealValue(V_R8(&converted), type) : converted;
}

_variant_t FromBytes(const std::string& bytes) {
    SAFEARRAY* const array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    if (!array)
        throw std::bad_alloc();
    _variant_t value;
    V_VT(&value) = VT_ARRAY | VT_UI1;
    V_ARRAY(&value) = array;
    if (!bytes.empty())
        bytes.copy(ArrayBytes(array).Data(), bytes.size());
    return value;
}

std::string BytesOf(const VARIANT& value) {
    LONG first = 0;
    LONG last = 0;
    CheckSystem(SafeArrayGetLBound(V_ARRAY(&value), 1, &first));
    CheckSystem(SafeArrayGetUBound(V_ARRAY(&value), 1, &last));
    return last < first ? std::string()
                        : std::string(ArrayBytes(V_ARRAY(&value)).Data(), static_cast<std::size_t>(last - first) + 1);
}

} // namespace ormisk::records
