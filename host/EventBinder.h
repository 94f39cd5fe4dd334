#pragma once

#include "ComObject.h"
#include "Run.h"
#include "ScriptEngine.h"

#include <string>

namespace ormisk {

// Hands each event of a control to the script's procedure "<prefix><event name>", for as long as the binder lives. What
// a procedure assigns to a by-reference argument reaches the control, converted to the argument's type; a value that
// cannot be converted is an error of the script.
class EventBinder {
public:
    // Throws a Failure when the control does not describe its events.
    EventBinder(IUnknown* control, const std::wstring& prefix, ScriptEngine& script, Run& run);
    ~EventBinder();
    EventBinder(const EventBinder&) = delete;
    EventBinder& operator=(const EventBinder&) = delete;

private:
    ComPtr<IConnectionPoint> m_Source;
    DWORD m_Cookie = 0;
};

} // namespace ormisk
