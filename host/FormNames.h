#pragma once

#include "ComObject.h"

#include <oaidl.h>

#include <string>

namespace ormisk {

class ControlSite;

// Names of a form that a script uses without saying of what: each is the control that is there at the time, also when
// another one has taken its place.
class FormNames final : public UntypedObject<IDispatch> {
public:
    // The site outlives the object.
    explicit FormNames(const ControlSite& site) : m_Site(site) {}

    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* error, UINT* argumentError) override;

private:
    const ControlSite& m_Site;
};

} // namespace ormisk
