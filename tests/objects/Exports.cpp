// The test objects as a server that registers itself.

#include "TestObject.h"
#include "automation/TypeLibrary.h"
#include "win/Module.h"

namespace {

constexpr wchar_t kProgId[] = L"OrmiskTest.TestObject";

std::wstring ClassKey() {
    wchar_t id[40] = L"";
    StringFromGUID2(__uuidof(TestObject), id, 40);
    return id;
}

bool Write(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    return RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, text.c_str(),
                           static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

} // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    *object = nullptr;
    if (classId == __uuidof(TestObject))
        return ormisk::ClassFactory<ormisk::test::TestObject>::Give(iid, object);
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return ormisk::LiveObjects() == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() {
    const std::wstring id = ClassKey();
    const std::wstring server = L"CLSID\\" + id + L"\\InprocServer32";
    const bool written = Write(std::wstring(kProgId) + L"\\CLSID", nullptr, id) &&
                         Write(server, nullptr, ormisk::ModulePath()) && Write(server, L"ThreadingModel", L"Apartment");
    return written ? S_OK : E_FAIL;
}

STDAPI DllUnregisterServer() {
    RegDeleteTreeW(HKEY_CLASSES_ROOT, (L"CLSID\\" + ClassKey()).c_str());
    RegDeleteTreeW(HKEY_CLASSES_ROOT, kProgId);
    return S_OK;
}
