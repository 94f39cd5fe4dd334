#include "Server.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace ormisk::test {
namespace {

using Keys = std::map<std::wstring, std::wstring>; // path to values

std::wstring ValuesOf(HKEY key) {
    std::wstring values;
    wchar_t name[256];
    BYTE data[1024];
    for (DWORD i = 0;; ++i) {
        DWORD nameSize = ARRAYSIZE(name), dataSize = sizeof data, type = 0;
        const LONG error = RegEnumValueW(key, i, name, &nameSize, nullptr, &type, data, &dataSize);
        if (error == ERROR_NO_MORE_ITEMS)
            return values;
        values += std::wstring(name) + L"=" + std::to_wstring(type) + L":";
        if (error == ERROR_SUCCESS)
            values.append(data, data + dataSize);
        values += L";";
    }
}

void Collect(HKEY root, const std::wstring& path, Keys& keys) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return;
    keys[path] = ValuesOf(key);
    wchar_t name[256];
    for (DWORD i = 0, size = ARRAYSIZE(name);
         RegEnumKeyExW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++i, size = ARRAYSIZE(name))
        Collect(root, path + L"\\" + name, keys);
    RegCloseKey(key);
}

// All classes of this machine and of this user.
Keys Classes() {
    Keys keys;
    Collect(HKEY_LOCAL_MACHINE, L"Software\\Classes", keys);
    Keys own;
    Collect(HKEY_CURRENT_USER, L"Software\\Classes", own);
    for (const auto& [path, values] : own)
        keys[L"user\\" + path] = values;
    return keys;
}

// The keys that are in one and not, or otherwise, in the other.
std::vector<std::wstring> Difference(const Keys& before, const Keys& after) {
    std::vector<std::wstring> different;
    for (const auto& [path, values] : before) {
        const auto found = after.find(path);
        if (found == after.end() || found->second != values)
            different.push_back(path);
    }
    for (const auto& [path, values] : after) {
        if (!before.contains(path))
            different.push_back(path);
    }
    return different;
}

TEST(Registration, UndoingItTakesItsOwnKeysOnly) {
    ASSERT_EQ(Server::Unregister(), S_OK);
    const Keys before = Classes();
    ASSERT_EQ(Server::Register(), S_OK);
    const Keys registered = Classes();
    EXPECT_GE(Difference(before, registered).size(), 5u) << "class, name, type library and interfaces";
    ASSERT_EQ(Server::Register(), S_OK);
    EXPECT_EQ(Difference(registered, Classes()).size(), 0u) << "registered twice";
    ASSERT_EQ(Server::Unregister(), S_OK);
    for (const std::wstring& path : Difference(before, Classes()))
        ADD_FAILURE() << std::string(path.begin(), path.end());
    ASSERT_EQ(Server::Unregister(), S_OK) << "undone twice";
    ASSERT_EQ(Server::Register(), S_OK);
}

} // namespace
} // namespace ormisk::test
