#pragma once

#include "automation/Value.h"

namespace ormisk {

// What type information lends or gives, released at the end of the block.

// Of GetTypeAttr, GetFuncDesc, GetVarDesc and GetLibAttr; empty when they fail.
template <class T, class Owner> class Lent {
public:
    using Giver = void (STDMETHODCALLTYPE Owner::*)(T*);
    Lent(Owner* owner, Giver release) : m_Owner(owner), m_Release(release) {}
    Lent(const Lent&) = delete;
    Lent& operator=(const Lent&) = delete;
    ~Lent() {
        if (m_Lent)
            (m_Owner->*m_Release)(m_Lent);
    }
    // For the call that lends.
    T** Slot() { return &m_Lent; }
    // What a call that failed may have left is not used.
    bool Took(HRESULT hr) {
        if (FAILED(hr))
            m_Lent = nullptr;
        return m_Lent != nullptr;
    }
    explicit operator bool() const { return m_Lent != nullptr; }
    const T* operator->() const { return m_Lent; }

private:
    Owner* m_Owner;
    Giver m_Release;
    T* m_Lent = nullptr;
};

class TypeAttributes : public Lent<TYPEATTR, ITypeInfo> {
public:
    explicit TypeAttributes(ITypeInfo* info) : Lent(info, &ITypeInfo::ReleaseTypeAttr) {
        Took(info->GetTypeAttr(Slot()));
    }
};

class Function : public Lent<FUNCDESC, ITypeInfo> {
public:
    Function(ITypeInfo* info, UINT index) : Lent(info, &ITypeInfo::ReleaseFuncDesc) {
        Took(info->GetFuncDesc(index, Slot()));
    }
};

class Variable : public Lent<VARDESC, ITypeInfo> {
public:
    Variable(ITypeInfo* info, UINT index) : Lent(info, &ITypeInfo::ReleaseVarDesc) {
        Took(info->GetVarDesc(index, Slot()));
    }
};

class LibraryAttributes : public Lent<TLIBATTR, ITypeLib> {
public:
    explicit LibraryAttributes(ITypeLib* library) : Lent(library, &ITypeLib::ReleaseTLibAttr) {
        Took(library->GetLibAttr(Slot()));
    }
};

// A text that the callee made.
class OwnedText {
public:
    OwnedText() = default;
    OwnedText(const OwnedText&) = delete;
    OwnedText& operator=(const OwnedText&) = delete;
    ~OwnedText() { SysFreeString(m_Text); }
    BSTR* Slot() { return &m_Text; }
    std::wstring Text() const { return FromBstr(m_Text); }

private:
    BSTR m_Text = nullptr;
};

class TypeInfo;
// A type that another one mentions; none when it cannot be loaded.
TypeInfo ReferredType(ITypeInfo* info, HREFTYPE reference);

} // namespace ormisk
