#include "platform/SubclassWnd.h"

#include "automation/Error.h"

#include <memory>
#include <set>
#include <unordered_map>
#include <utility>

namespace ormisk {

namespace {

// One subclassed window.
class cSubclassInfo {
public:
    cSubclassInfo(HWND window, _cSubclassListener* listener)
        : m_hWnd(window), m_Listener(PtrFromObj(listener)), m_Unicode(IsWindowUnicode(window)) {}

    LONG_PTR Listener() const { return m_Listener; }

    // The procedure is exchanged in the window's own kind of character, so that no text is converted on its way.
    bool Install(WNDPROC procedure) {
        m_Previous = Exchange(procedure);
        return m_Previous != nullptr;
    }
    void Restore() { Exchange(m_Previous); }
    LRESULT CallPrevious(UINT message, WPARAM wParam, LPARAM lParam) const {
        return (m_Unicode ? CallWindowProcW : CallWindowProcA)(m_Previous, m_hWnd, message, wParam, lParam);
    }

    void AddMessage(UINT message) {
        if (message != 0)
            m_Messages.insert(message);
    }
    void RemoveMessage(UINT message) { m_Messages.erase(message); }
    bool IsMessageHooked(UINT message) const { return m_Messages.contains(message); }

private:
    WNDPROC Exchange(WNDPROC procedure) {
        const auto value = reinterpret_cast<LONG_PTR>(procedure);
        return reinterpret_cast<WNDPROC>(
            (m_Unicode ? SetWindowLongPtrW : SetWindowLongPtrA)(m_hWnd, GWLP_WNDPROC, value));
    }

    HWND m_hWnd;
    LONG_PTR m_Listener;
    bool m_Unicode;
    WNDPROC m_Previous = nullptr;
    std::set<UINT> m_Messages;
};

using SubclassTable = std::unordered_map<HWND, std::shared_ptr<cSubclassInfo>>;

// There while the thread has subclassed windows. A plain pointer: nothing is left to run when the thread ends.
thread_local SubclassTable* m_SubclassTable = nullptr;

std::shared_ptr<cSubclassInfo> FindInfo(HWND window) {
    if (!m_SubclassTable)
        return nullptr;
    const auto found = m_SubclassTable->find(window);
    return found == m_SubclassTable->end() ? nullptr : found->second;
}

void Forget(HWND window) {
    m_SubclassTable->erase(window);
    if (m_SubclassTable->empty())
        delete std::exchange(m_SubclassTable, nullptr);
}

// Everything is looked up anew for each message, and the entry and the listener are held for the time of the call:
// so a listener may unhook, subclass again, destroy the window or let go of itself.
LRESULT CALLBACK SubclassWndProc(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam) {
    const std::shared_ptr<cSubclassInfo> anInfo = FindInfo(hWnd);
    if (!anInfo)
        return 0;
    const auto aListener = ObjFromPtr<_cSubclassListener>(anInfo->Listener());
    bool bRoute = true;
    LRESULT nResult = 0;
    if (anInfo->IsMessageHooked(Msg))
        IgnoringFailures([&] { nResult = aListener->WindowMsgListener(hWnd, Msg, wParam, lParam, bRoute); });
    if (Msg == WM_NCDESTROY) {
        UnSubclassWindow(hWnd);
        bRoute = true;
    }
    return bRoute ? anInfo->CallPrevious(Msg, wParam, lParam) : nResult;
}

} // namespace

void SubclassWindow(HWND hWnd, _cSubclassListener* aListener) {
    if (!hWnd || !aListener)
        return;
    UnSubclassWindow(hWnd);
    const auto anInfo = std::make_shared<cSubclassInfo>(hWnd, aListener);
    if (!m_SubclassTable)
        m_SubclassTable = new SubclassTable;
    m_SubclassTable->emplace(hWnd, anInfo);
    if (!anInfo->Install(SubclassWndProc)) {
        const HRESULT failure = HRESULT_FROM_WIN32(GetLastError());
        Forget(hWnd);
        CheckSystem(failure);
    }
}

void UnSubclassWindow(HWND hWnd) noexcept {
    const std::shared_ptr<cSubclassInfo> anInfo = FindInfo(hWnd);
    if (!anInfo)
        return;
    anInfo->Restore();
    Forget(hWnd);
}

bool IsWindowSubclassed(HWND hWnd) noexcept { return FindInfo(hWnd) != nullptr; }

void AddMessageHook(HWND hWnd, UINT nMsg) {
    if (!m_SubclassTable)
        return;
    const std::shared_ptr<cSubclassInfo> anInfo = FindInfo(hWnd);
    if (!anInfo)
        CheckSystem(E_INVALIDARG);
    anInfo->AddMessage(nMsg);
}

void RemoveMessageHook(HWND hWnd, UINT nMsg) noexcept {
    if (const std::shared_ptr<cSubclassInfo> anInfo = FindInfo(hWnd))
        anInfo->RemoveMessage(nMsg);
}

} // namespace ormisk
