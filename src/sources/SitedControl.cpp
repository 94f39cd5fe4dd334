#include "sources/SitedControl.h"

#include "automation/ByName.h"
#include "automation/Value.h"

#include <ocidl.h>

namespace ormisk {

namespace {

const wchar_t kInnerMember[] = L"object";

ComPtr<IDispatch> InnerMember(IDispatch* object) {
    _variant_t value;
    if (FAILED(NamedProperty(object, kInnerMember).Get(value)))
        return nullptr;
    return Query<IDispatch>(ObjectOf(value));
}

bool Extends(IDispatch* object, IUnknown* control) {
    const ComPtr<IOleObject> embedded = Query<IOleObject>(control);
    ComPtr<IOleClientSite> site;
    if (!embedded || FAILED(embedded->GetClientSite(site.GetAddressOf())))
        return false;
    const ComPtr<IOleControlSite> controlSite = Query<IOleControlSite>(site);
    ComPtr<IDispatch> extended;
    if (!controlSite || FAILED(controlSite->GetExtendedControl(extended.GetAddressOf())))
        return false;
    return SameObject(extended.Get(), object);
}

} // namespace

std::optional<ComPtr<IDispatch>> InnerControl(IDispatch* object) {
    if (!object)
        return std::nullopt;
    const bool aggregates = Extends(object, object);
    ComPtr<IDispatch> inner = InnerMember(object);
    if (!aggregates && !(inner && Extends(object, inner.Get())))
        return std::nullopt;
    return inner ? std::move(inner) : ComPtr<IDispatch>(object);
}

} // namespace ormisk
