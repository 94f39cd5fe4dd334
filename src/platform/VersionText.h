#pragma once

#include <string>

namespace ormisk {

// Major, minor in two digits and revision in four: "2.03.0007".
std::wstring VersionText(unsigned major, unsigned minor, unsigned revision);

} // namespace ormisk
