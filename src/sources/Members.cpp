#include "sources/DebugOutput.h"
#include "sources/TypeDescriptions.h"
#include "sources/TypeInformation.h"

#include <map>

namespace ormisk {

namespace {

constexpr int kMostTypedefs = 16; // on the way from a type to what it stands for; a longer way is a circle
constexpr std::size_t kNoItem = static_cast<std::size_t>(-1);

constexpr unsigned kHiddenFunction = FUNCFLAG_FHIDDEN | FUNCFLAG_FRESTRICTED;
constexpr unsigned kHiddenVariable = VARFLAG_FHIDDEN | VARFLAG_FRESTRICTED;

} // namespace

// Reads a type once, from its first member to its last.
class Members::Builder {
public:
    Builder(Members& members, ITypeInfo* info) : m_Members(members), m_Info(info) {}

    void Read() {
        const TypeAttributes attributes(m_Info);
        if (!attributes)
            return;
        for (UINT i = 0; i < attributes->cVars; ++i)
            ReadVariable(i);
        for (UINT i = 0; i < attributes->cFuncs; ++i)
            ReadFunction(i);
    }

private:
    // The members of one number share its texts.
    struct Texts {
        std::size_t item = kNoItem;
        std::wstring help;
        std::wstring helpFile;
        DWORD helpContext = 0;
    };

    Texts& TextsOf(MEMBERID id);
    SearchItem* Add(const Texts& texts, unsigned kinds, bool hidden);
    void AddReader(SearchItem& item, Texts& texts, MemberInfo reader);
    void ReadVariable(UINT index);
    void ReadFunction(UINT index);
    VarTypeInfo Resolve(ITypeInfo* info, const TYPEDESC& type, int typedefs);
    VarTypeInfo ResolveNamed(ITypeInfo* info, HREFTYPE reference, int typedefs);

    Members& m_Members;
    ITypeInfo* m_Info;
    std::unordered_map<MEMBERID, Texts> m_Texts;
    std::map<HREFTYPE, VarTypeInfo> m_NamedTypes; // that this type mentions
};

Members::Builder::Texts& Members::Builder::TextsOf(MEMBERID id) {
    const auto [place, fresh] = m_Texts.try_emplace(id);
    Texts& texts = place->second;
    if (!fresh)
        return texts;
    OwnedText name;
    OwnedText help;
    OwnedText helpFile;
    if (FAILED(m_Info->GetDocumentation(id, name.Slot(), help.Slot(), &texts.helpContext, helpFile.Slot())))
        return texts;
    texts.help = help.Text();
    texts.helpFile = helpFile.Text();
    std::wstring text = name.Text();
    if (text.empty())
        return texts;
    const auto [known, added] = m_Members.m_ByName.try_emplace(text, m_Members.m_Items.size());
    if (added)
        m_Members.m_Items.push_back({std::move(text), 0, false, std::nullopt});
    texts.item = known->second;
    return texts;
}

// A member without a name cannot be called, so it is none. Of several members of a name the reader decides whether
// they are hidden.
SearchItem* Members::Builder::Add(const Texts& texts, unsigned kinds, bool hidden) {
    if (texts.item == kNoItem)
        return nullptr;
    SearchItem& item = m_Members.m_Items[texts.item];
    const bool firstReader = (kinds & INVOKE_PROPERTYGET) != 0 && !item.reader;
    if (firstReader || item.invokeKinds == 0)
        item.hidden = hidden;
    item.invokeKinds |= kinds;
    return firstReader ? &item : nullptr;
}

void Members::Builder::AddReader(SearchItem& item, Texts& texts, MemberInfo reader) {
    reader.name = item.name;
    reader.helpString = std::move(texts.help);
    reader.helpFile = std::move(texts.helpFile);
    reader.helpContext = texts.helpContext;
    item.reader = m_Members.m_Readers.size();
    m_Members.m_Readers.push_back(std::move(reader));
}

// A variable of a dispatch interface is a property that can be read and, unless it says otherwise, be written.
void Members::Builder::ReadVariable(UINT index) {
    const Variable variable(m_Info, index);
    if (!variable || variable->varkind != VAR_DISPATCH)
        return;
    MemberInfo member;
    member.returnType = Resolve(m_Info, variable->elemdescVar.tdesc, 0);
    const bool object = member.returnType.varType == VT_DISPATCH || member.returnType.varType == VT_UNKNOWN ||
                        (member.returnType.type && member.returnType.type->TypeKind() != TKIND_ENUM);
    unsigned kinds = INVOKE_PROPERTYGET;
    if (!(variable->wVarFlags & VARFLAG_FREADONLY))
        kinds |= object ? INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF : INVOKE_PROPERTYPUT;
    Texts& texts = TextsOf(variable->memid);
    SearchItem* item = Add(texts, kinds, (variable->wVarFlags & kHiddenVariable) != 0);
    if (!item)
        return;
    member.memberId = variable->memid;
    member.attributeMask = variable->wVarFlags;
    AddReader(*item, texts, std::move(member));
}

void Members::Builder::ReadFunction(UINT index) {
    const Function function(m_Info, index);
    if (!function)
        return;
    Texts& texts = TextsOf(function->memid);
    SearchItem* item =
        Add(texts, static_cast<unsigned>(function->invkind), (function->wFuncFlags & kHiddenFunction) != 0);
    if (!item)
        return;
    MemberInfo member;
    // A function of a dual interface may still give its result through its last parameter.
    const TYPEDESC* result = &function->elemdescFunc.tdesc;
    for (SHORT i = 0; i < function->cParams; ++i) {
        const ELEMDESC& parameter = function->lprgelemdescParam[i];
        if (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL)
            result = &parameter.tdesc;
        else if (!(parameter.paramdesc.wParamFlags & PARAMFLAG_FLCID))
            ++member.parameterCount;
    }
    member.memberId = function->memid;
    member.returnType = Resolve(m_Info, *result, 0);
    member.attributeMask = function->wFuncFlags;
    AddReader(*item, texts, std::move(member));
}

VarTypeInfo Members::Builder::Resolve(ITypeInfo* info, const TYPEDESC& type, int typedefs) {
    switch (type.vt) {
    case VT_PTR:
        return type.lptdesc ? Resolve(info, *type.lptdesc, typedefs) : VarTypeInfo{VT_PTR, nullptr};
    case VT_SAFEARRAY:
    case VT_CARRAY:
        return {VT_ARRAY, nullptr};
    case VT_USERDEFINED:
        return ResolveNamed(info, type.hreftype, typedefs);
    default:
        return {type.vt, nullptr};
    }
}

VarTypeInfo Members::Builder::ResolveNamed(ITypeInfo* info, HREFTYPE reference, int typedefs) {
    const bool ours = info == m_Info; // references are numbered by each type for itself
    if (ours) {
        const auto known = m_NamedTypes.find(reference);
        if (known != m_NamedTypes.end())
            return known->second;
    }
    VarTypeInfo resolved;
    TypeInfo type = ReferredType(info, reference);
    if (type && type.TypeKind() == TKIND_ALIAS) {
        const TypeAttributes attributes(type.Get());
        if (attributes && typedefs < kMostTypedefs)
            resolved = Resolve(type.Get(), attributes->tdescAlias, typedefs + 1);
    } else if (type) {
        resolved.type = std::make_shared<const TypeInfo>(std::move(type));
    }
    if (ours)
        m_NamedTypes.emplace(reference, resolved);
    return resolved;
}

Members::Members(const TypeInfo& type) {
    if (type)
        Builder(*this, type.Get()).Read();
}

std::vector<const SearchItem*> Members::GetFilteredMembers(bool showHidden) const {
    std::vector<const SearchItem*> items;
    items.reserve(m_Items.size());
    for (const SearchItem& item : m_Items)
        if (showHidden || !item.name.starts_with(L'_'))
            items.push_back(&item);
    return items;
}

} // namespace ormisk
