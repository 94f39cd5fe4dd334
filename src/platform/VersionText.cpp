#include "platform/VersionText.h"

#include <cwchar>
#include <iterator>

namespace ormisk {

std::wstring VersionText(unsigned major, unsigned minor, unsigned revision) {
    wchar_t text[40];
    std::swprintf(text, std::size(text), L"%u.%02u.%04u", major, minor, revision);
    return text;
}

} // namespace ormisk
