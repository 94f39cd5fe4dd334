#include "platform/ModalScope.h"

namespace ormisk {

ModalScope::ModalScope(DialogHost& host, Tells tells)
    : m_Keeper(host.Keeper()), m_Container(tells == Tells::Container ? host.Container() : nullptr),
      m_Window(host.Window()) {
    if (m_Container)
        m_Container->EnableModeless(FALSE);
}

ModalScope::~ModalScope() {
    if (m_Container)
        m_Container->EnableModeless(TRUE);
    if (!IsWindowVisible(m_Focus))
        return;
    // A frame that is activated again has the focus itself, or gives it to the control as a whole.
    const HWND frame = GetAncestor(m_Focus, GA_ROOT);
    const HWND focus = GetFocus();
    const bool astray = !focus || focus == frame || focus == m_Window || IsChild(m_Window, focus);
    if (astray && GetActiveWindow() == frame)
        SetFocus(m_Focus);
}

} // namespace ormisk
