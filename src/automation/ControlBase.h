#pragma once

#include "automation/ControlCore.h"
#include "automation/DispatchObject.h"

namespace ormisk {

// A windowed control in the world of OLE. The base owns site, extents, activation, ambient properties and dirty flag;
// the control implements Primary and the hooks of ControlCore.
template <class Primary, class CoClass, class Source>
class ControlBase : public DispatchObject<Primary, CoClass, Source, ControlCore> {
    using Base = DispatchObject<Primary, CoClass, Source, ControlCore>;

public:
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = Base::Release();
        if (left == 0 || !this->OwnsReferences(left))
            return left;
        this->AddRef();
        IgnoringFailures([&] { this->OnUseEnded(); });
        return Base::Release();
    }

protected:
    ControlBase() { this->AddSource(__uuidof(IPropertyNotifySink)); }

    // Destroys the control's window. A control that overrides this calls it first.
    void FinalRelease() override { this->CloseForever(); }

private:
    const CLSID& ClassId() const override { return __uuidof(CoClass); }
    const IID& EventSource() const override { return __uuidof(Source); }
    ConnectionPoints& Points() override { return *this; }
};

} // namespace ormisk
