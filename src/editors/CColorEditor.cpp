#include "editors/CColorEditor.h"

#include "automation/Value.h"
#include "picker/OrmiskSwatch.h"

#include <array>

namespace ormisk {

HWND CColorEditor::Window() const { return m_Picker ? m_Picker->hwnd() : nullptr; }

bool CColorEditor::TakeFont(omEditorType, const FontDescription& font) {
    if (m_Picker)
        m_Picker->Font(font);
    return true;
}

void CColorEditor::Activate(bool) {
    if (m_Picker)
        m_Picker->ShowDropDown(true);
}

HWND CColorEditor::DropDownWindow() const { return m_Picker ? m_Picker->PaletteWindow() : nullptr; }

void CColorEditor::CloseUp() {
    if (m_Picker)
        m_Picker->ShowDropDown(false);
}

void CColorEditor::KeyPress(int& keyAscii) {
    const ComPtr<_CEditor> self(this);
    if (keyAscii != VK_RETURN && keyAscii != VK_ESCAPE)
        return;
    if (keyAscii == VK_ESCAPE)
        Cancel();
    FocusRows();
}

_variant_t CColorEditor::Value() const {
    return m_Picker ? _variant_t(static_cast<long>(m_Picker->SelectedColor())) : _variant_t();
}

void CColorEditor::SetValue(const VARIANT& value) {
    Color color = 0;
    const bool none = V_VT(&value) == VT_EMPTY || V_VT(&value) == VT_NULL;
    const bool reads = none || IgnoringFailures([&] { return ReadColor(value, color); });
    m_HasValue = reads;
    if (!reads || !m_Picker)
        return;
    m_Loading = true;
    m_Picker->SelectedColor(color);
    m_Loading = false;
}

void CColorEditor::Picked() {
    if (m_Loading)
        return;
    m_HasValue = true;
    BuiltInEditor::Picked();
}

void CColorEditor::CommitEdit() {
    if (m_HasValue)
        BuiltInEditor::CommitEdit();
}

void CColorEditor::SetVisible(bool visible) {
    if (m_Picker)
        m_Picker->SetVisible(visible);
}

void CColorEditor::ReadRow(_CProperty* property) {
    OLE_COLOR backColor = 0;
    OLE_COLOR foreColor = 0;
    VARIANT_BOOL unicode = VARIANT_FALSE;
    Check(property->get_BackColor(&backColor));
    Check(property->get_ForeColor(&foreColor));
    Check(property->get_Unicode(&unicode));
    const std::wstring paletteCaption = Param(property, L"PaletteTabCaption");
    const std::wstring systemCaption = Param(property, L"SystemTabCaption");
    std::array<std::wstring, kSystemColors> names;
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i] = Param(property, std::to_wstring(i).c_str());
    if (!m_Picker)
        return;
    m_Picker->BackColor(backColor);
    m_Picker->ForeColor(foreColor);
    m_Picker->SystemTabCaption(systemCaption.empty() ? L"System" : systemCaption);
    m_Picker->PaletteTabCaption(paletteCaption.empty() ? L"Palette" : paletteCaption);
    m_Picker->Unicode(unicode != VARIANT_FALSE);
    m_Picker->ResetSystemColorsNames();
    for (std::size_t i = 0; i < names.size(); ++i)
        if (!names[i].empty())
            m_Picker->SystemColorName(static_cast<long>(i), names[i]);
}

void CColorEditor::Place(int left, int top, int width, int height) {
    if (m_Picker)
        m_Picker->Move(left, top, width, height);
}

} // namespace ormisk
