#pragma once

#include <windows.h>

#include <comdef.h>

namespace ormisk {

// A failing call of the system leaves no description but a number: it becomes a _com_error where it happens.

// The error of the last call on this thread.
[[noreturn]] inline void ThrowLastError() {
    const HRESULT failure = HRESULT_FROM_WIN32(GetLastError());
    throw _com_error(FAILED(failure) ? failure : E_FAIL);
}

// The handle that the system gave, if it did.
template <class Handle> Handle Checked(Handle handle) {
    if (!handle)
        ThrowLastError();
    return handle;
}

} // namespace ormisk
