#pragma once

#include "Run.h"

#include <windows.h>

#include <functional>

namespace ormisk {

// The message loop of the host, in the doses in which a script asks for it. Every one ends at once when the run ends.
class MessagePump {
public:
    // `filter` is offered each message before it is dispatched and tells whether it was used up.
    MessagePump(Run& run, std::function<bool(MSG&)> filter) : m_Run(run), m_Filter(std::move(filter)) {}

    void UntilEnd();

    // With 0: what waits now.
    void For(DWORD milliseconds);

    // Until what was sent has been worked off and nothing but timers has come for a moment; at most about a second.
    void UntilQuiet();

    // Until the condition holds; after some seconds without it just the same.
    void Until(const std::function<bool()>& condition);

private:
    // Dispatches what waits; false when nothing but timers was there.
    bool Drain(ULONGLONG deadline);
    void Wait(ULONGLONG milliseconds);

    Run& m_Run;
    std::function<bool(MSG&)> m_Filter;
};

} // namespace ormisk
