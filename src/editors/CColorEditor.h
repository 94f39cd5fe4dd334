#pragma once

#include "editors/BuiltInEditor.h"

namespace ormisk {

// The editor of colour rows, on the colour field: its value is a 32-bit number, of a system colour the reference. What
// the user picks is committed at once.
class CColorEditor final : public BuiltInEditor {
public:
    bool TakeFont(omEditorType type, const FontDescription& font) override;
    void Activate(bool dropDown) override; // opens the palette in any case
    void KeyPress(int& keyAscii) override; // ENTER and ESC give the focus to the rows; never cleared, raises nothing
    void Picked() override;
    HWND DropDownWindow() const override;
    void CloseUp() override;
    bool LeavesFocus() const override { return true; }

private:
    void Borrow(const EditorTools& tools) override { m_Picker = tools.ColorEditor; }
    _variant_t Value() const override;
    // Empty and Null count as 0. What is no colour leaves the field as it is: there is nothing to commit then until the
    // user picks something.
    void SetValue(const VARIANT& value) override;
    HWND Window() const override;
    void SetVisible(bool visible) override;
    void ReadRow(_CProperty* property) override;
    void CommitEdit() override;
    void Place(int left, int top, int width, int height) override;

    OrmiskSwatch* m_Picker = nullptr;
    bool m_HasValue = false; // of the row, or of the user
    bool m_Loading = false;  // what comes from the row is no pick
};

} // namespace ormisk
