#include "model/KeyFold.h"

#include <cwctype>

namespace ormisk {

wchar_t FoldKeyChar(wchar_t character) { return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(character))); }

} // namespace ormisk
