#include "Run.h"

#include "Text.h"

#include <windows.h>

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace ormisk {
namespace {

constexpr std::chrono::seconds kPatience{5};

// A script engine that cannot be interrupted goes on in a script that ignores errors. The whole process is what remains
// to be stopped then.
void Watch(std::stop_token unwound, int exitCode) {
    std::mutex mutex;
    std::condition_variable_any wakeUp;
    std::unique_lock lock(mutex);
    if (wakeUp.wait_for(lock, unwound, kPatience, [&] { return unwound.stop_requested(); }))
        return;
    PrintLine(Stream::Error, L"ormisk-host: the script did not stop when the run ended");
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exitCode));
}

} // namespace

void Run::End(int exitCode) {
    if (Ending())
        return;
    m_ExitCode = exitCode;
    m_Watchdog = std::jthread(Watch, exitCode);
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

} // namespace ormisk
