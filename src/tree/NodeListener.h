#pragma once

#include <windows.h>

namespace ormisk {

class CNode;

// What a node tells the control. Both may call into the host, which may remove the node before they return.
class _CNodeListener {
public:
    virtual void NodePropertyChanged(CNode& node) = 0; // it opened or closed
    // Of a category about to open or close. Exactly VARIANT_TRUE in `cancel` keeps it as it is.
    virtual void NodeStateChanging(CNode& node, VARIANT_BOOL& cancel) = 0;

protected:
    ~_CNodeListener() = default;
};

} // namespace ormisk
