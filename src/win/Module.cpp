#include "win/Module.h"

// The linker's symbol for the start of the module.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace ormisk {

HINSTANCE ThisModule() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(ThisModule(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

} // namespace ormisk
