#include "sources/MemberEditor.h"

#include <cwchar>

namespace ormisk {

const wchar_t kFilterParam[] = L"Filter";
const wchar_t kPictureFilter[] = L"All Picture Files|*.bmp;*.ico;*.pcx;*.jpg;*.gif";

namespace {

struct EditorChoice {
    omEditorType type = omCustomDialog;
    bool allowsNegative = false;
    bool allowsFloatingPoint = false;
};

EditorChoice ChooseForType(const TypeInfo* type) {
    if (!type)
        return {};
    if (type->TypeKind() == TKIND_ENUM)
        return {omListEditor};
    const std::wstring name = type->Name();
    if (_wcsicmp(name.c_str(), L"FONT") == 0)
        return {omFontEditor};
    if (_wcsicmp(name.c_str(), L"PICTURE") == 0)
        return {omPictureEditor};
    return {};
}

EditorChoice Choose(const MemberInfo& member) {
    switch (member.returnType.varType) {
    case VT_I2:
    case VT_I4:
    case VT_DECIMAL:
    case VT_I1:
    case VT_I8:
    case VT_INT:
        return {omNumberEditor, true, false};
    case VT_R4:
    case VT_R8:
        return {omNumberEditor, true, true};
    case VT_UI1:
    case VT_UI2:
        return {omNumberEditor};
    case VT_DATE:
        return {omDateEditor};
    case VT_BSTR:
        return {omTextEditor};
    case VT_BOOL:
        return {omBooleanEditor};
    case VT_UI4:
        return {omColorEditor};
    case VT_EMPTY:
        return ChooseForType(member.returnType.type.get());
    default:
        return {};
    }
}

void OfferConstants(const TypeInfo& enumeration, CListItems& items) {
    items.RemoveAll();
    for (const EnumConstant& constant : enumeration.Constants())
        IgnoringFailures([&] { items.AddItem(constant.valueText + L" - " + constant.name, constant.value); });
}

} // namespace

omEditorType EditorTypeForMember(const MemberInfo& member) { return Choose(member).type; }

void ApplyMemberInfo(const MemberInfo& member, CProperty& row) {
    row.InitHelp(member.helpString, member.helpFile, static_cast<long>(member.helpContext));
    const EditorChoice choice = Choose(member);
    row.SetEditorType(choice.type);
    if (choice.allowsFloatingPoint)
        row.SetParam(L"AllowFloatingPoint", L"True");
    if (choice.allowsNegative)
        row.SetParam(L"AllowNegative", L"True");
    if (choice.type == omPictureEditor)
        row.SetParam(kFilterParam, kPictureFilter);
    if (choice.type == omListEditor)
        OfferConstants(*member.returnType.type, row.ListItems());
}

} // namespace ormisk
