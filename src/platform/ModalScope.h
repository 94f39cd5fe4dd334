#pragma once

#include "automation/ComPtr.h"

#include <oleidl.h>

namespace ormisk {

// Whose dialogs are opened: a control in a container.
class DialogHost {
public:
    virtual IUnknown* Keeper() = 0;                   // held while a dialog is up
    virtual ComPtr<IOleInPlaceFrame> Container() = 0; // the frame around the control; null without one
    virtual HWND Window() = 0;                        // of the control

protected:
    ~DialogHost() = default;
};

// The life of a dialog of a control: the control lives as long, the windows of its container that know no dialog are
// out of use, and in the end the window of the control that had the focus has it again, unless the user or the host has
// gone elsewhere.
class ModalScope {
public:
    enum class Tells { Container, Nobody }; // nobody: the host opens the dialog itself
    explicit ModalScope(DialogHost& host, Tells tells = Tells::Container);
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;
    ~ModalScope();

private:
    ComPtr<IUnknown> m_Keeper;
    ComPtr<IOleInPlaceFrame> m_Container;
    HWND m_Window;
    HWND m_Focus = GetFocus();
};

} // namespace ormisk
