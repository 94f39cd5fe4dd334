#include "automation/TypeLibrary.h"

#include "automation/Value.h"

// The linker's symbol for the start of the module.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace ormisk {

namespace {} // namespace

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(ThisModule(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

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
    if (FAILED(info->GetDocumentation(MEMBERID_NIL, name.GetAddress(), nullptr, nullptr, nullptr))) {
        return {};
    }
    std::wstring text = FromBstr(name.GetBSTR());
    return text.starts_with(L'_') ? text.substr(1) : text;
}

HMODULE ThisModule() { return reinterpret_cast<HMODULE>(&__ImageBase); }

} // namespace ormisk
