#pragma once

#include <unknwn.h>
#include <windows.h>
#include <windowsx.h>
#include <wrl/client.h>

#undef SubclassWindow // a macro of windowsx.h that would take the name

namespace ormisk {

// Hears the chosen messages of subclassed windows.
struct _cSubclassListener : IUnknown {
    // The result counts when `bRouteToOriginal`, True at first, was cleared; otherwise the message goes on to the
    // window's own procedure, whose result replaces it. A failure is swallowed and leaves the flag as it was.
    virtual LRESULT WindowMsgListener(HWND hwnd, UINT Msg, WPARAM wParam, LPARAM lParam, bool& bRouteToOriginal) = 0;

protected:
    ~_cSubclassListener() = default;
};

// Puts the shared procedure before the window's own. The listener is not counted: whoever subclasses takes the window
// out again before the listener goes. A second call replaces the first. Without handle or listener nothing happens;
// raises for a window that the system does not hand over.
void SubclassWindow(HWND hWnd, _cSubclassListener* aListener);

// Gives the window its own procedure back; a window that is not subclassed stays as it is. A destroyed window is
// forgotten by itself.
void UnSubclassWindow(HWND hWnd) noexcept;

bool IsWindowSubclassed(HWND hWnd) noexcept;

// Adds to the messages that reach the listener. Raises when windows are subclassed, but this one is not.
void AddMessageHook(HWND hWnd, UINT nMsg);
void RemoveMessageHook(HWND hWnd, UINT nMsg) noexcept;

// A counted reference from a raw pointer, and the raw pointer of an object.
template <class Interface> Microsoft::WRL::ComPtr<Interface> ObjFromPtr(LONG_PTR nPtr) {
    return reinterpret_cast<Interface*>(nPtr);
}
template <class Interface> LONG_PTR PtrFromObj(Interface* anObject) { return reinterpret_cast<LONG_PTR>(anObject); }

} // namespace ormisk

__CRT_UUID_DECL(ormisk::_cSubclassListener, 0x0e073f4a, 0x16c3, 0x4644, 0xba, 0xec, 0xcb, 0xb7, 0x41, 0xea, 0xb1, 0x95)
