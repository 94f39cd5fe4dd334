#include "automation/DispatchType.h"

#include "automation/Error.h"

#include <algorithm>
#include <memory>

namespace ormisk {

namespace {

MemberForm::Type Resolve(ITypeInfo* info, const TYPEDESC& type);

MemberForm::Type ResolveNamed(ITypeInfo* info, HREFTYPE reference) {
    ComPtr<ITypeInfo> named;
    TYPEATTR* found = nullptr;
    Check(info->GetRefTypeInfo(reference, named.GetAddressOf()));
    Check(named->GetTypeAttr(&found));
    const auto release = [&](TYPEATTR* attributes) { named->ReleaseTypeAttr(attributes); };
    const std::unique_ptr<TYPEATTR, decltype(release)> attributes(found, release);
    switch (attributes->typekind) {
    case TKIND_ENUM:
        return {VT_I4};
    case TKIND_ALIAS:
        return Resolve(named.Get(), attributes->tdescAlias);
    default:
        return {VT_DISPATCH, attributes->guid};
    }
}

MemberForm::Type Resolve(ITypeInfo* info, const TYPEDESC& type) {
    if (type.vt == VT_USERDEFINED)
        return ResolveNamed(info, type.hreftype);
    if (type.vt != VT_PTR)
        return {type.vt};
    MemberForm::Type target = Resolve(info, *type.lptdesc);
    // A pointer to a named object is the object itself.
    if (type.lptdesc->vt != VT_USERDEFINED || target.type != VT_DISPATCH)
        target.type |= VT_BYREF;
    return target;
}

MemberForm Describe(ITypeInfo* info, const FUNCDESC& member) {
    MemberForm form{member.memid, static_cast<WORD>(member.invkind), Resolve(info, member.elemdescFunc.tdesc), {}};
    for (SHORT i = 0; i < member.cParams; ++i)
        form.parameters.push_back(Resolve(info, member.lprgelemdescParam[i].tdesc));
    return form;
}

} // namespace

DispatchType::DispatchType(ComPtr<ITypeInfo> info) : m_Info(std::move(info)) {
    const auto release = [&](FUNCDESC* member) { m_Info->ReleaseFuncDesc(member); };
    FUNCDESC* found = nullptr;
    for (UINT i = 0; SUCCEEDED(m_Info->GetFuncDesc(i, &found)); ++i) {
        const std::unique_ptr<FUNCDESC, decltype(release)> member(found, release);
        // Those of IDispatch itself are not called by number; what is not for people has a negative one.
        if (member->memid < 0 || !(member->wFuncFlags & FUNCFLAG_FRESTRICTED))
            m_Members.push_back(Describe(m_Info.Get(), *member));
    }
}

const MemberForm* DispatchType::Find(DISPID id, WORD kinds) const {
    const auto found = std::ranges::find_if(
        m_Members, [&](const MemberForm& member) { return member.id == id && (member.kind & kinds) != 0; });
    return found == m_Members.end() ? nullptr : &*found;
}

} // namespace ormisk
