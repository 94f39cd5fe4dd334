#pragma once

#include "automation/Value.h"

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace ormisk {

// Type information as the walk over an object reads it. Everything that cannot be read is left out or empty; nothing
// here raises for it.

struct EnumConstant {
    std::wstring name;
    _variant_t value;
    std::wstring valueText;
};

class Members;
class TypeLibInfo;

// A type of a type library.
class TypeInfo {
public:
    TypeInfo() = default; // no type
    explicit TypeInfo(ComPtr<ITypeInfo> info);

    explicit operator bool() const { return m_Info != nullptr; }
    ITypeInfo* Get() const { return m_Info.Get(); }
    TYPEKIND TypeKind() const { return m_Kind; } // TKIND_ENUM is 0, TKIND_DISPATCH 4
    std::wstring Name() const;
    TypeLibInfo Parent() const;
    // The interface of a class that hosts use, and the dispatch side of a dual interface; else no type.
    TypeInfo DefaultInterface() const;
    // Of an enumeration, in the order of the type; read when first asked for.
    const std::vector<EnumConstant>& Constants() const;

private:
    std::vector<EnumConstant> ReadConstants() const;

    ComPtr<ITypeInfo> m_Info;
    TYPEKIND m_Kind = TKIND_MAX;
    mutable std::optional<std::vector<EnumConstant>> m_Constants;
};

// A type library, perhaps none.
class TypeLibInfo {
public:
    TypeLibInfo() = default;
    explicit TypeLibInfo(ComPtr<ITypeLib> library);

    explicit operator bool() const { return m_Library != nullptr; }
    const GUID& Guid() const { return m_Guid; }
    WORD MajorVersion() const { return m_Major; }
    WORD MinorVersion() const { return m_Minor; }
    LCID Lcid() const { return m_Lcid; }
    UINT TypeCount() const { return m_Library ? m_Library->GetTypeInfoCount() : 0; }
    TypeInfo TypeAt(UINT number) const;                             // from 0
    std::optional<UINT> TypeNumber(const std::wstring& name) const; // in any case of letters

private:
    ComPtr<ITypeLib> m_Library;
    GUID m_Guid{};
    WORD m_Major = 0;
    WORD m_Minor = 0;
    LCID m_Lcid = 0;
};

// The type of a value: its variant type, or 0 and the named type, if that can be loaded. Typedefs and pointers are
// followed to what they stand for.
struct VarTypeInfo {
    VARTYPE varType = VT_EMPTY;
    std::shared_ptr<const TypeInfo> type;
};

// A property that can be read.
struct MemberInfo {
    std::wstring name;
    MEMBERID memberId = MEMBERID_NIL;
    long parameterCount = 0; // without the result
    VarTypeInfo returnType;
    unsigned attributeMask = 0; // FUNCFLAGS, of a variable VARFLAGS: above the first two bits they mean the same
    std::wstring helpString;
    std::wstring helpFile;
    DWORD helpContext = 0;
};

// All members of one name.
struct SearchItem {
    std::wstring name;
    unsigned invokeKinds = 0; // of all of them: INVOKE_FUNC, INVOKE_PROPERTYGET and so on
    // The reader is not for users; without a reader, the first member.
    bool hidden = false;
    std::optional<std::size_t> reader;
};

// The members of an interface, inherited ones included, read once and found by name without a search.
class Members {
public:
    explicit Members(const TypeInfo& type);

    // One entry for each name, in the order in which the names first stand in the type; those that begin with an
    // underscore only when they are asked for.
    const std::vector<SearchItem>& SearchItems() const { return m_Items; }
    std::vector<const SearchItem*> GetFilteredMembers(bool showHidden) const;
    // The member whose kind is INVOKE_PROPERTYGET; null when there is none.
    const MemberInfo* Reader(const SearchItem& item) const { return item.reader ? &m_Readers[*item.reader] : nullptr; }

private:
    class Builder;

    std::vector<SearchItem> m_Items;
    std::vector<MemberInfo> m_Readers;
    std::unordered_map<std::wstring, std::size_t> m_ByName;
};

// The interface description of a live object; no type for nothing and for an object without type information.
TypeInfo InterfaceInfoFromObject(IDispatch* object);
TypeLibInfo TypeLibInfoFromRegistry(const GUID& guid, WORD majorVersion, WORD minorVersion, LCID lcid);

// The type to walk: what the object says of itself, as its registered library has it where that is no dispatch
// interface.
TypeInfo GetObjectTypeInfo(IDispatch* object);

} // namespace ormisk
