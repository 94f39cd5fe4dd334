#pragma once

#include <unknwn.h>
#include <windows.h>

namespace ormisk {

// Hears the events of the thread's hooks.
struct _IHookListener : IUnknown {
    // Set `bNoCallNextHook`, False at first, to end the walk through the listeners and keep the event from hooks
    // outside.
    virtual LRESULT NotifyHookedEvent(int nHookType, int nCode, WPARAM wParam, LPARAM lParam,
                                      bool& bNoCallNextHook) = 0;

protected:
    ~_IHookListener() = default;
};

// Registers for WH_KEYBOARD, WH_GETMESSAGE, WH_CALLWNDPROC, WH_CBT, WH_MOUSE or WH_CALLWNDPROCRET of this thread; other
// types are ignored. The system's hook stands while a type has listeners. The listener is not counted: it leaves before
// it goes.
void AddWindowsHook(int nHookType, _IHookListener* aListener);
void RemoveWindowsHook(int nHookType, _IHookListener* aListener) noexcept;

} // namespace ormisk

__CRT_UUID_DECL(ormisk::_IHookListener, 0x1fb8527e, 0x13b8, 0x4d17, 0x82, 0x10, 0x67, 0x43, 0x8f, 0xf2, 0x3d, 0x2c)
