#include "platform/AccessKey.h"

#include <windows.h>

namespace ormisk {

wchar_t SystemUpper(wchar_t letter) {
    CharUpperBuffW(&letter, 1);
    return letter;
}

} // namespace ormisk
