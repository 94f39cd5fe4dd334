#include "automation/ClassFactory.h"
#include "automation/TypeLibrary.h"
#include "records/Recordset.h"
#include "win/Module.h"

namespace {

constexpr wchar_t kProgId[] = L"Ormisk.Recordset";
constexpr wchar_t kClasses[] = L"Software\\Classes\\";

std::wstring ClassKey() {
    wchar_t id[40] = L"";
    StringFromGUID2(__uuidof(::OrmiskRecordset), id, 40);
    return id;
}

bool Write(HKEY root, const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    return RegSetKeyValueW(root, (kClasses + key).c_str(), name, REG_SZ, text.c_str(),
                           static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

bool WriteClass(HKEY root) {
    const std::wstring id = ClassKey();
    const std::wstring key = L"CLSID\\" + id;
    const std::wstring progId = kProgId;
    return Write(root, key, nullptr, L"Ormisk recordset over ODBC") &&
           Write(root, key + L"\\InprocServer32", nullptr, ormisk::ModulePath()) &&
           Write(root, key + L"\\InprocServer32", L"ThreadingModel", L"Apartment") &&
           Write(root, key + L"\\ProgID", nullptr, progId) && Write(root, key + L"\\Programmable", nullptr, L"") &&
           Write(root, progId, nullptr, L"Ormisk recordset over ODBC") && Write(root, progId + L"\\CLSID", nullptr, id);
}

void RemoveClass(HKEY root) {
    RegDeleteTreeW(root, (kClasses + (L"CLSID\\" + ClassKey())).c_str());
    RegDeleteTreeW(root, (kClasses + std::wstring(kProgId)).c_str());
}

} // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (classId == __uuidof(::OrmiskRecordset))
        return ormisk::ClassFactory<ormisk::records::Recordset>::Give(iid, object);
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return ormisk::LiveObjects() == 0 ? S_OK : S_FALSE; }

STDAPI DllUnregisterServer() {
    RemoveClass(HKEY_LOCAL_MACHINE);
    RemoveClass(HKEY_CURRENT_USER);
    return S_OK;
}

// For all users, or for the present one where the process may not do that.
STDAPI DllRegisterServer() {
    if (WriteClass(HKEY_LOCAL_MACHINE))
        return S_OK;
    RemoveClass(HKEY_LOCAL_MACHINE);
    if (WriteClass(HKEY_CURRENT_USER))
        return S_OK;
    DllUnregisterServer();
    return E_FAIL;
}
