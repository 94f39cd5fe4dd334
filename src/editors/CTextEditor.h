#pragma once

#include "automation/DispatchObject.h"
#include "editors/EditorContract.h"
#include "editors/TextRules.h"

namespace ormisk {

class TextBox;

// The editor of text rows and of number rows: one object for each, both on the same text box. What a row does not set
// keeps the value that an earlier row gave it.
class CTextEditor final : public DispatchObject<_CEditor, ::CEditor>, public BuiltInEditor {
public:
    // The box is borrowed. Without one every operation does nothing.
    void TextEdit(TextBox* box) { m_TextBox = box; }
    std::wstring Text() const;

    void Attach(const EditorWindows& windows) override;
    bool TakeFont(omEditorType type, const FontDescription& font) override;
    void Activate(bool dropDown) override;
    void BeginTyping() override;
    void KeyPress(int& keyAscii) override;
    bool IsModified() const override;

    STDMETHODIMP get_ScaleMode(long* pValue) override;
    STDMETHODIMP get_Value(VARIANT* pValue) override;
    STDMETHODIMP put_Value(VARIANT newValue) override;
    STDMETHODIMP get_Visible(VARIANT_BOOL* pValue) override;
    STDMETHODIMP put_Visible(VARIANT_BOOL newValue) override;
    STDMETHODIMP get_hwnd(long* pValue) override;
    STDMETHODIMP put_hFont(long newValue) override; // ignored: the box has its font from TakeFont
    STDMETHODIMP Reset(_CProperty* aProperty, _CEditorListener* anEditorListener) override;
    // Raises 0x80040002 with the reason when the text is refused.
    STDMETHODIMP Commit() override;
    STDMETHODIMP Cancel() override;
    STDMETHODIMP Move(float nLeft, float nTop, float nWidth, float nHeight) override;
    STDMETHODIMP init(long hParentWnd) override;

private:
    void ReadRow(_CProperty* property);
    bool Stands(unsigned text) const;
    void ReadNumberParams(_CProperty* property);
    void ReadTextParams(_CProperty* property);
    Verdict Validate() const;
    void CommitText();
    void CancelText();

    _CEditorListener* m_Listener = nullptr; // not counted: the control holds it
    TextBox* m_TextBox = nullptr;
    bool m_bNumberMode = false; // set by the first number row, never cleared
    NumberLimits m_NumberLimits;
    TextLimits m_TextLimits;
    long m_ShowSpinButtons = 0;
    float m_SpinStepValue = 0;
    std::wstring m_sError; // of the last validation that had one; said again by those that have none
};

} // namespace ormisk
