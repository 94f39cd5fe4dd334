#pragma once

#include <windows.h>

namespace ormisk::test {

// OrmiskGrid.ocx from the folder of this program. It stays loaded.
class Server {
public:
    static HRESULT Register();
    static HRESULT Unregister();

    // Whether no object of it lives any more.
    static bool IsIdle();
};

// The class by the name that hosts know it by.
inline constexpr wchar_t kProgId[] = L"Ormisk.OrmiskGrid";

// Works off what waits in the message queue of this thread.
void PumpMessages();

} // namespace ormisk::test
