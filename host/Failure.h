#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>

namespace ormisk {

// Why something cannot be done, in one sentence for the user.
struct Failure {
    std::wstring text;
};

// The system's own sentence for an error number, or "Unknown error" where it has none.
std::wstring SystemText(HRESULT number);

// Throws a Failure "what: the system's sentence" when the call failed.
void Check(HRESULT result, const wchar_t* what);

// The same for functions that leave their reason in GetLastError.
void CheckLast(bool succeeded, const wchar_t* what);

// Fills what a failed late-bound call tells, and gives its result. The error information may be null.
HRESULT Explain(EXCEPINFO* error, const std::wstring& text);

} // namespace ormisk
