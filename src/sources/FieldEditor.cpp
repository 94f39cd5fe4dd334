#include "sources/FieldEditor.h"

#include <algorithm>
#include <limits>

namespace ormisk {

namespace {

// Numbers of DataTypeEnum.
enum DataType : std::int32_t {
    adSmallInt = 2,
    adInteger = 3,
    adSingle = 4,
    adDouble = 5,
    adCurrency = 6,
    adDate = 7,
    adBSTR = 8,
    adBoolean = 11,
    adDecimal = 14,
    adTinyInt = 16,
    adUnsignedTinyInt = 17,
    adUnsignedSmallInt = 18,
    adUnsignedInt = 19,
    adBigInt = 20,
    adUnsignedBigInt = 21,
    adChar = 129,
    adNumeric = 131,
    adDBDate = 133,
    adDBTimeStamp = 135,
    adVarNumeric = 139,
    adVarChar = 200,
    adLongVarChar = 201,
    adVarWChar = 202,
};

struct EditorChoice {
    omEditorType type = omCustomDialog;
    bool allowsNegative = false;
    bool allowsFloatingPoint = false;
};

EditorChoice Choose(std::int32_t type) {
    switch (type) {
    case adSmallInt:
    case adInteger:
    case adCurrency:
    case adTinyInt:
    case adBigInt:
    case adNumeric:
    case adVarNumeric:
        return {omNumberEditor, true, false};
    case adSingle:
    case adDouble:
    case adDecimal:
        return {omNumberEditor, false, true};
    case adUnsignedTinyInt:
    case adUnsignedSmallInt:
    case adUnsignedInt:
    case adUnsignedBigInt:
        return {omNumberEditor};
    case adDate:
    case adDBDate:
    case adDBTimeStamp:
        return {omDateEditor};
    case adBSTR:
    case adChar:
    case adVarChar:
    case adLongVarChar:
    case adVarWChar:
        return {omTextEditor};
    case adBoolean:
        return {omBooleanEditor};
    default:
        return {};
    }
}

} // namespace

omEditorType EditorTypeForField(const RecordField& field, bool& readOnly) {
    const omEditorType type = Choose(field.Type()).type;
    if (type == omCustomDialog)
        readOnly = true;
    return type;
}

void ConfigureFieldRow(const RecordField& field, CProperty& row) {
    const EditorChoice choice = Choose(field.Type());
    if (choice.allowsNegative)
        row.SetParam(L"AllowNegative", L"True");
    if (choice.allowsFloatingPoint)
        row.SetParam(L"AllowFloatingPoint", L"True");
    if (choice.type == omTextEditor) { // the editor counts in 32 bits
        constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
        row.SetParam(L"MaxLength", std::to_wstring(std::min(field.DefinedSize(), kMost)));
    }
}

} // namespace ormisk
