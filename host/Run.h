#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

namespace ormisk {

// One run of a script, from its start until it is asked to end: by the script, by an error or by the user. From then on
// nothing more is started: message loops return, events are not delivered and the script is unwound.
class Run {
public:
    Run() = default;
    ~Run() { Unwound(); }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    // What interrupts the running script; called once, when the run is asked to end.
    void WhenEnding(std::function<void()> interrupt) { m_Interrupt = std::move(interrupt); }

    // Asks the run to end; only the first exit code counts. Modal loops below the caller are left, too. A script that
    // does not let go within seconds takes the process with it.
    void End(int exitCode);

    // Prints why the run fails and ends it with 1; silent when it is ending already.
    void Fail(const std::wstring& text);

    bool Ending() const { return m_ExitCode.has_value(); }
    int ExitCode() const { return m_ExitCode.value_or(0); }

    // The script is unwound: what is left to do is ours.
    void Unwound();

private:
    std::optional<int> m_ExitCode;
    std::function<void()> m_Interrupt;
    HANDLE m_Watchdog = nullptr; // a timer of the system's own pool
};

} // namespace ormisk
