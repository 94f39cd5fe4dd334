#pragma once

#include <windows.h>

#include <string>

namespace ormisk {

// What a node tells the control. Both may call into the host, which may remove the node before they return.
class _CNodeListener {
public:
    virtual void NodePropertyChanged(const std::wstring& key, const wchar_t* propertyName) = 0;
    // Of a category about to open or close. Exactly VARIANT_TRUE in `cancel` keeps it as it is.
    virtual void NodeStateChanging(const std::wstring& key, VARIANT_BOOL& cancel) = 0;

protected:
    ~_CNodeListener() = default;
};

} // namespace ormisk
