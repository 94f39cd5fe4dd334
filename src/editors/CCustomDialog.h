#pragma once

#include "editors/DialogEditor.h"

namespace ormisk {

// The editor of custom dialog rows: the text of a value of any type, and a button that asks for the dialog of the host.
// What the host answers is set as the value, and waits for ENTER or for the row to be left.
class CCustomDialog final : public CaptionEditor {
public:
    bool Holds(const IUnknown* object) const override;
    void LetObjectsGo() override;

private:
    void ShowDialog() override;
    void ReadRow(_CProperty* property) override;
    _variant_t Value() const override { return m_Value; }
    void SetValue(const VARIANT& value) override;
    void SetVisible(bool visible) override;
    void KeyDown(int& key, int shift) override;
    void Borrow(const EditorTools& tools) override;

    _variant_t m_Value;
    CCusDialogListener* m_DialogListener = nullptr; // borrowed
};

} // namespace ormisk
