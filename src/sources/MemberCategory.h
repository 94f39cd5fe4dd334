#pragma once

#include "sources/TypeInformation.h"

namespace ormisk {

using PROPCAT = int;

// The standard interface by which an object sorts its properties into categories.
class ICategorizeProperties : public IUnknown {
public:
    virtual HRESULT STDMETHODCALLTYPE MapPropertyToCategory(DISPID id, PROPCAT* category) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCategoryName(PROPCAT category, LCID locale, BSTR* name) = 0;

protected:
    ~ICategorizeProperties() = default;
};

constexpr PROPCAT kNilCategory = -1; // hides a property

// The category of a member: its code, and its name unless the object tells none. What the object fails at is written to
// the debug output and passed over. `categories` is that interface of the object, null for an object without it.
PROPCAT MapMemberCategory(ICategorizeProperties* categories, const MemberInfo& member, LCID locale,
                          std::wstring& category);

} // namespace ormisk

__CRT_UUID_DECL(ormisk::ICategorizeProperties, 0x4d07fc10, 0xf931, 0x11ce, 0xb0, 0x01, 0x00, 0xaa, 0x00, 0x68, 0x84,
                0xe5)
