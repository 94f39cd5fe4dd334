#include "InspectTools.h"

#include <bit>

namespace ormisk::test {

namespace {

FARPROC Export(const char* name) {
    static const HMODULE module = [] {
        std::wstring path(MAX_PATH, L'\0');
        path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
        return LoadLibraryW((path.substr(0, path.find_last_of(L"\\/") + 1) + L"TestObjects.dll").c_str());
    }();
    return module ? GetProcAddress(module, name) : nullptr;
}

} // namespace

ComPtr<IDispatch> TestServer::Make() {
    using Giver = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    ComPtr<IClassFactory> factory;
    ComPtr<IDispatch> object;
    const FARPROC give = Export("DllGetClassObject");
    if (!give)
        throw std::runtime_error("TestObjects.dll is not beside the tests");
    Check(std::bit_cast<Giver>(give)(__uuidof(::TestObject), IID_IClassFactory,
                                     reinterpret_cast<void**>(factory.GetAddressOf())));
    Check(factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(object.GetAddressOf())));
    return object;
}

bool TestServer::IsIdle() {
    const FARPROC ask = Export("DllCanUnloadNow");
    return !ask || std::bit_cast<HRESULT(WINAPI*)()>(ask)() == S_OK;
}

bool Load(OrmiskGrid* grid, IDispatch* object, long depth, bool clear) {
    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_EQ(grid->put_InspectionDepth(depth), S_OK);
    EXPECT_EQ(grid->LoadObjectProperties(object, clear ? VARIANT_TRUE : VARIANT_FALSE, VARIANT_TRUE, &done), S_OK);
    return done == VARIANT_TRUE;
}

} // namespace ormisk::test
