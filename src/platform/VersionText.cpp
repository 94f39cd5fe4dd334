#include "platform/VersionText.h"

#include <cstddef>

namespace ormisk {

namespace {

std::wstring Padded(unsigned number, std::size_t digits) {
    std::wstring text = std::to_wstring(number);
    return text.size() < digits ? std::wstring(digits - text.size(), L'0') + text : text;
}

} // namespace

std::wstring VersionText(unsigned major, unsigned minor, unsigned revision) {
    return std::to_wstring(major) + L"." + Padded(minor, 2) + L"." + Padded(revision, 4);
}

} // namespace ormisk
