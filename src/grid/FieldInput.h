#pragma once

#include "editors/BuiltInEditor.h"
#include "platform/ChildWindow.h"
#include "platform/ModalScope.h"

namespace ormisk {

class Grid;

// What the editors with windows of their own need of the control: whoever hears their keys, stands behind their
// dialogs, and asks the host for one of its own.
class FieldInput final : public ChildWindowListener, public DialogHost, public CCusDialogListener {
public:
    explicit FieldInput(Grid& grid) : m_Grid(grid) {}

    void OnKeyDown(int& keyCode, int shift) override;
    void OnKeyPress(int& keyAscii) override;
    void OnKeyUp(int& keyCode, int shift) override;
    void OnGotFocus() override;
    void OnLostFocus() override;

    IUnknown* Keeper() override;
    ComPtr<IOleInPlaceFrame> Container() override;
    HWND Window() override;

    bool RaiseCustomDialogEvent() override;

private:
    void TakeAnswer(_CEditor* editor, const _variant_t& given, const _variant_t& answer);

    Grid& m_Grid;
};

} // namespace ormisk
