#pragma once

#include <string>

namespace ormisk {

// Writes a line to the debug output, in the system's code page.
void WriteDebugLine(const std::wstring& text);

} // namespace ormisk
