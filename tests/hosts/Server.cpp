#include "Server.h"

#include <gtest/gtest.h>

#include <string>

namespace ormisk::test {
namespace {

HMODULE Module() {
    static const HMODULE module = [] {
        wchar_t path[MAX_PATH];
        const std::wstring own(path, GetModuleFileNameW(nullptr, path, MAX_PATH));
        return LoadLibraryW((own.substr(0, own.find_last_of(L"\\/") + 1) + L"OrmiskGrid.ocx").c_str());
    }();
    return module;
}

HRESULT CallExport(const char* name) {
    const FARPROC found = GetProcAddress(Module(), name);
    if (!found)
        return E_NOINTERFACE;
    return reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(found))();
}

// The tests need the control registered; it stays so.
class Registered : public testing::Environment {
public:
    void SetUp() override { ASSERT_EQ(Server::Register(), S_OK); }
};

[[maybe_unused]] const testing::Environment* const kRegistered = testing::AddGlobalTestEnvironment(new Registered);

} // namespace

HRESULT Server::Register() { return CallExport("DllRegisterServer"); }

HRESULT Server::Unregister() { return CallExport("DllUnregisterServer"); }

bool Server::IsIdle() { return CallExport("DllCanUnloadNow") == S_OK; }

void PumpMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace ormisk::test
