#include "Run.h"

#include "Text.h"

namespace ormisk {
namespace {

constexpr DWORD kPatience = 5000;

// A script engine that cannot be interrupted goes on in a script that ignores errors. The whole process is what remains
// to be stopped then.
void CALLBACK StopProcess(void* run, BOOLEAN) {
    PrintLine(Stream::Error, L"ormisk-host: the script did not stop when the run ended");
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(static_cast<const Run*>(run)->ExitCode()));
}

} // namespace

void Run::End(int exitCode) {
    if (Ending())
        return;
    m_ExitCode = exitCode;
    CreateTimerQueueTimer(&m_Watchdog, nullptr, StopProcess, this, kPatience, 0, WT_EXECUTEONLYONCE);
    PostQuitMessage(exitCode);
    if (m_Interrupt)
        m_Interrupt();
}

void Run::Fail(const std::wstring& text) {
    if (Ending())
        return;
    PrintLine(Stream::Error, text);
    End(1);
}

void Run::Unwound() {
    if (m_Watchdog)
        DeleteTimerQueueTimer(nullptr, m_Watchdog, INVALID_HANDLE_VALUE);
    m_Watchdog = nullptr;
}

} // namespace ormisk
