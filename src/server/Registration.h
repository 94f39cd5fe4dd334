#pragma once

#include <windows.h>

namespace ormisk {

// Writes what the system needs to find the classes and the type library: for all users, or for the present one where
// the process may not do that. Undoing removes every key again, from both places.
HRESULT RegisterServer();
HRESULT UnregisterServer();

} // namespace ormisk
