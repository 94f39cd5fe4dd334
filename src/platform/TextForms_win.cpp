#include "platform/TextForms.h"

#include <windows.h>

namespace ormisk {

std::wstring ExpandText(std::wstring_view plain) {
    const std::string bytes = BytesOfText(plain);
    if (bytes.empty())
        return {};
    const int length = static_cast<int>(bytes.size());
    std::wstring expanded(MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, expanded.data(), static_cast<int>(expanded.size()));
    return expanded;
}

std::wstring NarrowText(std::wstring_view expanded) {
    if (expanded.empty())
        return {};
    const int length = static_cast<int>(expanded.size());
    std::string bytes(WideCharToMultiByte(CP_ACP, 0, expanded.data(), length, nullptr, 0, nullptr, nullptr), '\0');
    WideCharToMultiByte(CP_ACP, 0, expanded.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                        nullptr);
    std::wstring text(RealCharacterCount(bytes.size()), L'\0');
    TextOfBytes(bytes, text.data());
    return text;
}

} // namespace ormisk
