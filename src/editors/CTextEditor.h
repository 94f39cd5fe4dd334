#pragma once

#include "editors/BuiltInEditor.h"
#include "editors/TextRules.h"

namespace ormisk {

// The editor of text rows and of number rows: one object for each, both on the same text box. What a row does not set
// keeps the value that an earlier row gave it. Commit raises 0x80040002 with the reason when the text is refused.
class CTextEditor final : public BuiltInEditor {
public:
    bool TakeFont(omEditorType type, const FontDescription& font) override;
    void Activate(bool dropDown) override;
    void BeginTyping() override;
    void KeyPress(int& keyAscii) override;
    bool IsModified() const override;
    bool IsTouched() const override { return IsModified(); }

private:
    void Borrow(const EditorTools& tools) override { m_TextBox = tools.TextEditor; }
    _variant_t Value() const override;
    void SetValue(const VARIANT& value) override;
    HWND Window() const override;
    void ReadRow(_CProperty* property) override;
    void CommitEdit() override;
    void Place(int left, int top, int width, int height) override;

    std::wstring Text() const;
    bool Stands(unsigned text) const;
    void ReadNumberParams(_CProperty* property);
    void ReadTextParams(_CProperty* property);

    TextBox* m_TextBox = nullptr;
    bool m_bNumberMode = false; // set by the first number row, never cleared
    NumberLimits m_NumberLimits;
    TextLimits m_TextLimits;
    std::wstring m_sError; // of the last validation that had one; said again by those that have none
};

} // namespace ormisk
