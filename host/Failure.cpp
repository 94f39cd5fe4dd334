#include "Failure.h"

#include <oleauto.h>
#include <olectl.h>

namespace ormisk {

std::wstring SystemText(HRESULT number) {
    wchar_t text[512];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                  static_cast<DWORD>(number), 0, text, ARRAYSIZE(text), nullptr);
    while (length > 0 && (text[length - 1] == L'\r' || text[length - 1] == L'\n' || text[length - 1] == L' '))
        --length;
    if (length > 0)
        return std::wstring(text, length);
    return L"Unknown error";
}

void Check(HRESULT result, const wchar_t* what) {
    if (FAILED(result))
        throw Failure{std::wstring(what) + L": " + SystemText(result)};
}

void CheckLast(bool succeeded, const wchar_t* what) {
    if (!succeeded)
        Check(HRESULT_FROM_WIN32(GetLastError()), what);
}

HRESULT Explain(EXCEPINFO* error, const std::wstring& text) {
    if (error) {
        *error = {};
        error->scode = CTL_E_ILLEGALFUNCTIONCALL;
        error->bstrSource = SysAllocString(L"Host");
        error->bstrDescription = SysAllocString(text.c_str());
    }
    return DISP_E_EXCEPTION;
}

} // namespace ormisk
