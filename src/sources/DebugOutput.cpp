#include "sources/DebugOutput.h"

#include <windows.h>

namespace ormisk {

void WriteDebugLine(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    const int needed = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string line(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, line.data(), needed, nullptr, nullptr);
    OutputDebugStringA((line + "\r\n").c_str());
}

} // namespace ormisk
