#include "platform/ModalScope.h"

namespace ormisk {

ModalScope::ModalScope(DialogHost& host) : m_Keeper(host.Keeper()), m_Container(host.Container()) {
    if (m_Container)
        m_Container->EnableModeless(FALSE);
}

ModalScope::~ModalScope() {
    if (m_Container)
        m_Container->EnableModeless(TRUE);
    // A frame that is activated again takes the focus itself.
    if (IsWindow(m_Focus) && IsWindowVisible(m_Focus) && GetActiveWindow() == GetAncestor(m_Focus, GA_ROOT))
        SetFocus(m_Focus);
}

} // namespace ormisk
