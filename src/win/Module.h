#pragma once

#include <windows.h>

#include <string>

namespace ormisk {

// The module that this code is linked into.
HINSTANCE ThisModule();
std::wstring ModulePath();

} // namespace ormisk
