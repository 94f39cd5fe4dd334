#include "server/Registration.h"

#include "automation/ControlCore.h"
#include "automation/TypeLibrary.h"
#include "win/Module.h"

#include <array>
#include <bit>
#include <string>

#include <olectl.h>
#include <ormisk.h>
#include <shlwapi.h>

namespace ormisk {

namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes\\";

struct Class {
    const CLSID& id;
    const wchar_t* name;
    const wchar_t* description;
    bool control;
};

const std::array<Class, 2>& Classes() {
    static const std::array<Class, 2> classes = {{
        {__uuidof(::OrmiskGrid), L"OrmiskGrid", L"OrmiskGrid property grid control", true},
        {__uuidof(::CEditor), L"CEditor", L"OrmiskGrid in-place editor", false},
    }};
    return classes;
}

std::wstring Text(REFGUID id) {
    wchar_t text[40];
    StringFromGUID2(id, text, 40);
    return text;
}

// A registry under construction: the first failure is kept, and nothing is written after it.
class Writer {
public:
    explicit Writer(HKEY root) : m_Root(root) {}

    void Set(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
        const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
        if (SUCCEEDED(m_Result))
            m_Result = HRESULT_FROM_WIN32(
                RegSetKeyValueW(m_Root, (kClasses + key).c_str(), name, REG_SZ, value.c_str(), bytes));
    }
    HRESULT Result() const { return m_Result; }

private:
    HKEY m_Root;
    HRESULT m_Result = S_OK;
};

std::wstring ClassKey(const Class& c) { return L"CLSID\\" + Text(c.id); }

std::wstring ProgId(const Class& c) { return std::wstring(L"Ormisk.") + c.name; }

HRESULT WriteClasses(HKEY root, const TLIBATTR& library) {
    Writer writer(root);
    const std::wstring path = ModulePath();
    for (const Class& c : Classes()) {
        const std::wstring key = ClassKey(c);
        const std::wstring progId = ProgId(c);
        writer.Set(key, nullptr, c.description);
        writer.Set(key + L"\\InprocServer32", nullptr, path);
        writer.Set(key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
        writer.Set(key + L"\\ProgID", nullptr, progId + L".1");
        writer.Set(key + L"\\VersionIndependentProgID", nullptr, progId);
        writer.Set(key + L"\\TypeLib", nullptr, Text(library.guid));
        writer.Set(key + L"\\Version", nullptr,
                   std::to_wstring(library.wMajorVerNum) + L"." + std::to_wstring(library.wMinorVerNum));
        writer.Set(key + L"\\Programmable", nullptr, L"");
        if (c.control) {
            writer.Set(key + L"\\Control", nullptr, L"");
            writer.Set(key + L"\\MiscStatus", nullptr, L"0");
            writer.Set(key + L"\\MiscStatus\\1", nullptr, std::to_wstring(kControlMiscStatus));
        }
        writer.Set(progId, nullptr, c.description);
        writer.Set(progId + L"\\CLSID", nullptr, Text(c.id));
        writer.Set(progId + L"\\CurVer", nullptr, progId + L".1");
        writer.Set(progId + L".1", nullptr, c.description);
        writer.Set(progId + L".1\\CLSID", nullptr, Text(c.id));
    }
    return writer.Result();
}

void RemoveClasses(HKEY root) {
    for (const Class& c : Classes()) {
        SHDeleteKeyW(root, (kClasses + ClassKey(c)).c_str());
        SHDeleteKeyW(root, (kClasses + ProgId(c)).c_str());
        SHDeleteKeyW(root, (kClasses + ProgId(c) + L".1").c_str());
    }
}

using ForUser = HRESULT(STDAPICALLTYPE*)(ITypeLib*, OLECHAR*, OLECHAR*);
using UnForUser = HRESULT(STDAPICALLTYPE*)(REFGUID, WORD, WORD, LCID, SYSKIND);

template <class F> F FromOleAut(const char* name) {
    return std::bit_cast<F>(GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), name));
}

// Interfaces that are only dispatched need no entry but that of their library; registering one writes them all.
HRESULT RegisterLibrary(bool forAll) {
    std::wstring path = ModulePath();
    if (forAll)
        return ::RegisterTypeLib(Library(), path.data(), nullptr);
    const auto forUser = FromOleAut<ForUser>("RegisterTypeLibForUser");
    return forUser ? forUser(Library(), path.data(), nullptr) : E_ACCESSDENIED;
}

struct LibraryAttributes {
    LibraryAttributes() { Check(Library()->GetLibAttr(&m_Attributes)); }
    LibraryAttributes(const LibraryAttributes&) = delete;
    LibraryAttributes& operator=(const LibraryAttributes&) = delete;
    ~LibraryAttributes() { Library()->ReleaseTLibAttr(m_Attributes); }
    const TLIBATTR& operator*() const { return *m_Attributes; }

private:
    TLIBATTR* m_Attributes = nullptr;
};

} // namespace

HRESULT RegisterServer() {
    return Guarded(IID_IUnknown, []() -> HRESULT {
        const LibraryAttributes library;
        HRESULT result = WriteClasses(HKEY_LOCAL_MACHINE, *library);
        const bool forAll = SUCCEEDED(result);
        if (!forAll) {
            RemoveClasses(HKEY_LOCAL_MACHINE);
            result = WriteClasses(HKEY_CURRENT_USER, *library);
        }
        if (SUCCEEDED(result))
            result = RegisterLibrary(forAll);
        if (FAILED(result)) {
            UnregisterServer();
            return SELFREG_E_CLASS;
        }
        return S_OK;
    });
}

HRESULT UnregisterServer() {
    return Guarded(IID_IUnknown, []() -> HRESULT {
        const LibraryAttributes attributes;
        const TLIBATTR& library = *attributes;
        RemoveClasses(HKEY_LOCAL_MACHINE);
        RemoveClasses(HKEY_CURRENT_USER);
        UnRegisterTypeLib(library.guid, library.wMajorVerNum, library.wMinorVerNum, library.lcid, library.syskind);
        if (const auto forUser = FromOleAut<UnForUser>("UnRegisterTypeLibForUser"))
            forUser(library.guid, library.wMajorVerNum, library.wMinorVerNum, library.lcid, library.syskind);
        return S_OK;
    });
}

} // namespace ormisk
