#include "sources/TypeInformation.h"

#include "sources/TypeDescriptions.h"

#include <cwchar>

namespace ormisk {

namespace {

constexpr UINT kDualSide = static_cast<UINT>(-1); // asks a dual interface for its other side

std::wstring NameOfMember(ITypeInfo* info, MEMBERID id) {
    OwnedText name;
    const HRESULT hr = info->GetDocumentation(id, name.Slot(), nullptr, nullptr, nullptr);
    return SUCCEEDED(hr) ? name.Text() : std::wstring();
}

TypeInfo Implemented(ITypeInfo* info, UINT index) {
    HREFTYPE reference = 0;
    return SUCCEEDED(info->GetRefTypeOfImplType(index, &reference)) ? ReferredType(info, reference) : TypeInfo();
}

} // namespace

TypeInfo::TypeInfo(ComPtr<ITypeInfo> info) : m_Info(std::move(info)) {
    if (!m_Info)
        return;
    const TypeAttributes attributes(m_Info.Get());
    if (attributes)
        m_Kind = attributes->typekind;
    else
        m_Info = nullptr; // nothing can be asked of it
}

std::wstring TypeInfo::Name() const { return m_Info ? NameOfMember(m_Info.Get(), MEMBERID_NIL) : std::wstring(); }

TypeLibInfo TypeInfo::Parent() const {
    ComPtr<ITypeLib> library;
    UINT number = 0;
    if (!m_Info || FAILED(m_Info->GetContainingTypeLib(library.GetAddressOf(), &number)))
        return {};
    return TypeLibInfo(std::move(library));
}

TypeInfo ReferredType(ITypeInfo* info, HREFTYPE reference) {
    ComPtr<ITypeInfo> referred;
    if (FAILED(info->GetRefTypeInfo(reference, referred.GetAddressOf())))
        return {};
    return TypeInfo(std::move(referred));
}

TypeInfo TypeInfo::DefaultInterface() const {
    if (!m_Info)
        return {};
    if (m_Kind == TKIND_INTERFACE)
        return Implemented(m_Info.Get(), kDualSide);
    const TypeAttributes attributes(m_Info.Get());
    if (m_Kind != TKIND_COCLASS || !attributes)
        return {};
    // Without a mark it is the first that is no source of events.
    std::optional<UINT> unmarked;
    for (UINT i = 0; i < attributes->cImplTypes; ++i) {
        INT flags = 0;
        if (FAILED(m_Info->GetImplTypeFlags(i, &flags)) || flags & IMPLTYPEFLAG_FSOURCE)
            continue;
        if (flags & IMPLTYPEFLAG_FDEFAULT)
            return Implemented(m_Info.Get(), i);
        unmarked = unmarked.value_or(i);
    }
    return unmarked ? Implemented(m_Info.Get(), *unmarked) : TypeInfo{};
}

const std::vector<EnumConstant>& TypeInfo::Constants() const {
    if (!m_Constants)
        m_Constants = ReadConstants();
    return *m_Constants;
}

std::vector<EnumConstant> TypeInfo::ReadConstants() const {
    std::vector<EnumConstant> constants;
    if (!m_Info || m_Kind != TKIND_ENUM)
        return constants;
    const TypeAttributes attributes(m_Info.Get());
    const UINT count = attributes ? attributes->cVars : 0u;
    constants.reserve(count);
    for (UINT i = 0; i < count; ++i) {
        const Variable constant(m_Info.Get(), i);
        if (!constant || constant->varkind != VAR_CONST || !constant->lpvarValue)
            continue;
        const VARIANT& value = *constant->lpvarValue;
        constants.push_back({NameOfMember(m_Info.Get(), constant->memid), Plain(value), TextOf(value)});
    }
    return constants;
}

TypeLibInfo::TypeLibInfo(ComPtr<ITypeLib> library) : m_Library(std::move(library)) {
    if (!m_Library)
        return;
    const LibraryAttributes attributes(m_Library.Get());
    if (!attributes)
        return;
    m_Guid = attributes->guid;
    m_Major = attributes->wMajorVerNum;
    m_Minor = attributes->wMinorVerNum;
    m_Lcid = attributes->lcid;
}

TypeInfo TypeLibInfo::TypeAt(UINT number) const {
    ComPtr<ITypeInfo> info;
    if (!m_Library || FAILED(m_Library->GetTypeInfo(number, info.GetAddressOf())))
        return {};
    return TypeInfo(std::move(info));
}

std::optional<UINT> TypeLibInfo::TypeNumber(const std::wstring& name) const {
    for (UINT i = 0; i < TypeCount(); ++i) {
        OwnedText found;
        if (SUCCEEDED(m_Library->GetDocumentation(static_cast<INT>(i), found.Slot(), nullptr, nullptr, nullptr)) &&
            _wcsicmp(found.Text().c_str(), name.c_str()) == 0)
            return i;
    }
    return std::nullopt;
}

TypeInfo InterfaceInfoFromObject(IDispatch* object) {
    ComPtr<ITypeInfo> info;
    if (!object || FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.GetAddressOf())))
        return {};
    return TypeInfo(std::move(info));
}

TypeLibInfo TypeLibInfoFromRegistry(const GUID& guid, WORD majorVersion, WORD minorVersion, LCID lcid) {
    ComPtr<ITypeLib> library;
    if (FAILED(LoadRegTypeLib(guid, majorVersion, minorVersion, lcid, library.GetAddressOf())))
        return {};
    return TypeLibInfo(std::move(library));
}

TypeInfo GetObjectTypeInfo(IDispatch* object) {
    TypeInfo type = InterfaceInfoFromObject(object);
    if (!type || type.TypeKind() == TKIND_DISPATCH)
        return type;
    const TypeLibInfo parent = type.Parent();
    const TypeLibInfo registered =
        parent ? TypeLibInfoFromRegistry(parent.Guid(), parent.MajorVersion(), parent.MinorVersion(), parent.Lcid())
               : TypeLibInfo();
    const auto number = registered.TypeNumber(type.Name());
    TypeInfo found = number ? registered.TypeAt(*number) : TypeInfo();
    return found ? found : type;
}

} // namespace ormisk
