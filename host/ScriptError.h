#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>

namespace ormisk {

// What a call failed with; frees its strings.
class ScriptError {
public:
    ScriptError() = default;
    ~ScriptError();
    ScriptError(const ScriptError&) = delete;
    ScriptError& operator=(const ScriptError&) = delete;

    EXCEPINFO* Receive() { return &m_Info; }

    // "text (source, &Hnumber)" after a call that returned `result`.
    std::wstring Describe(HRESULT result);

private:
    EXCEPINFO m_Info = {};
};

} // namespace ormisk
