#pragma once

#include <comdef.h>

namespace ormisk {

struct AutomationError;

// Where a control keeps its settings, each under a name. Both operations may call into the host.
class NamedValues {
public:
    // The default when there is no value of that name.
    virtual _variant_t Read(const wchar_t* name, const _variant_t& defaultValue) = 0;
    // A value that is the default need not be kept.
    virtual void Write(const wchar_t* name, const _variant_t& value, const _variant_t& defaultValue) = 0;
    // What was read could not be taken. Whoever keeps the values may want to know.
    virtual void Refused(const wchar_t*, const AutomationError&) {}

protected:
    ~NamedValues() = default;
};

} // namespace ormisk
