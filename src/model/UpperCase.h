#pragma once

#include <string>
#include <windows.h>

namespace ormisk {

// The text in the system's upper case.
inline void MakeUpper(std::wstring& text) {
    // Nearly all names are plain letters: those take no call of the system.
    for (wchar_t& character : text) {
        if (character >= 0x80) {
            CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
            return;
        }
        if (character >= L'a' && character <= L'z')
            character = static_cast<wchar_t>(character - L'a' + L'A');
    }
}

} // namespace ormisk
