#pragma once

#include "ComObject.h"

#include <comutil.h>
#include <oaidl.h>

namespace ormisk {

class CallArguments;
class ControlSite;

// A control as its form knows it: what belongs to the place of the control comes from here (Name, Parent, Object, Left,
// Top, Width, Height, Fills, Visible, TabIndex, TabStop, ToolTipText, Align, Tag, HelpContextID; Move and SetFocus),
// every other member is the control's own. Sizes are pixels of the window.
class ExtendedControl final : public UntypedObject<IDispatch> {
public:
    // Uncounted; CutOff comes before the site goes.
    explicit ExtendedControl(ControlSite& site) : m_Site(&site) {}
    void CutOff() { m_Site = nullptr; }

    // What comes from here, by name. Throw a Failure.
    _variant_t Value(const wchar_t* name) const;
    void SetValue(const wchar_t* name, const _variant_t& value);

    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* error, UINT* argumentError) override;

private:
    struct Member;
    static const Member kMembers[];

    static const Member* MemberOf(const wchar_t* name); // null when it is the control's
    ComPtr<IDispatch> Inner() const;                    // null when the control has no automation

    ControlSite* m_Site;
};

} // namespace ormisk
