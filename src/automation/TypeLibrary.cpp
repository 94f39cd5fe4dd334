#include "automation/TypeLibrary.h"

#include "automation/Value.h"
#include "win/Module.h"

namespace ormisk {

namespace {

ComPtr<ITypeLib> LoadLibraryOfModule() {
    ComPtr<ITypeLib> library;
    Check(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.GetAddressOf()));
    return library;
}

} // namespace

ITypeLib* Library() {
    static const ComPtr<ITypeLib> library = LoadLibraryOfModule();
    return library.Get();
}

ComPtr<ITypeInfo> TypeInfoOf(REFGUID id) {
    ComPtr<ITypeInfo> info;
    Check(Library()->GetTypeInfoOfGuid(id, info.GetAddressOf()));
    return info;
}

std::wstring NameOf(ITypeInfo* info) {
    _bstr_t name;
    if (FAILED(info->GetDocumentation(MEMBERID_NIL, name.GetAddress(), nullptr, nullptr, nullptr)))
        return {};
    std::wstring text = FromBstr(name.GetBSTR());
    return text.starts_with(L'_') ? text.substr(1) : text;
}

} // namespace ormisk
