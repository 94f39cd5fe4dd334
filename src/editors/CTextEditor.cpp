#include "editors/CTextEditor.h"

#include "automation/Value.h"
#include "model/NumberText.h"
#include "platform/TextBox.h"

#include <algorithm>

namespace ormisk {
namespace {

constexpr int kLeftMargin = 2;
constexpr int kTopGap = 2; // between the upper edge of the cell and the box

// Raises when the text does not convert, as the empty text never does: the caller then keeps what it has.
_variant_t Converted(const std::wstring& text, VARTYPE type) {
    _variant_t value(text.c_str());
    value.ChangeType(type);
    return value;
}

wchar_t DecimalPoint() {
    wchar_t point[4] = L".";
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, point, static_cast<int>(std::size(point)));
    return point[0];
}

} // namespace

HWND CTextEditor::Window() const { return m_TextBox ? m_TextBox->hWnd() : nullptr; }

std::wstring CTextEditor::Text() const { return m_TextBox ? m_TextBox->Text() : std::wstring(); }

bool CTextEditor::TakeFont(omEditorType, const FontDescription& font) {
    if (m_TextBox)
        m_TextBox->SetFont(font);
    return true;
}

void CTextEditor::Activate(bool) {
    if (m_TextBox)
        m_TextBox->SelectAll();
}

void CTextEditor::BeginTyping() {
    if (m_TextBox)
        m_TextBox->SetText({});
}

bool CTextEditor::IsModified() const { return m_TextBox && m_TextBox->IsModified(); }

void CTextEditor::KeyPress(int& keyAscii) {
    if (!m_TextBox)
        return;
    const ComPtr<_CEditor> self(this);
    std::wstring text;
    BoxState box;
    box.Modified = IsModified();
    if (m_bNumberMode) {
        text = m_TextBox->Text();
        box.Text = text;
        box.SelStart = static_cast<std::size_t>(m_TextBox->SelStart());
        box.SelLength = static_cast<std::size_t>(m_TextBox->SelLength());
    }
    const KeyVerdict verdict = DecideKey(keyAscii, box, m_bNumberMode ? &m_NumberLimits : nullptr);
    if (verdict == KeyVerdict::Pass)
        return;
    if (verdict == KeyVerdict::Commit)
        CommitEdit();
    else if (verdict == KeyVerdict::Cancel)
        CancelEdit();
    keyAscii = 0;
    if (verdict != KeyVerdict::Swallow)
        FocusRows();
}

_variant_t CTextEditor::Value() const {
    const std::wstring text = Text();
    return m_bNumberMode ? _variant_t(NumberFromText(text)) : ToVariant(text);
}

// A value without a text, such as an array, leaves the box as it was. An object may do anything when it is asked for
// its own.
void CTextEditor::SetValue(const VARIANT& value) {
    if (!m_TextBox)
        return;
    const unsigned before = m_TextBox->TextsSet();
    std::wstring text;
    const bool hasText = IgnoringFailures([&] { text = TextOf(value); });
    if (!Stands(before))
        return;
    if (hasText)
        m_TextBox->SetText(text);
    m_TextBox->SetModified(false);
}

// After the host was called: whether the box is there, and serves no other row by now.
bool CTextEditor::Stands(unsigned text) const { return m_TextBox && m_TextBox->TextsSet() == text; }

// The property may be any object, and reading a member of it call the host.
void CTextEditor::ReadRow(_CProperty* property) {
    m_TextBox->SetText({});
    m_TextBox->SetLeftMargin(kLeftMargin);
    if (!property)
        return;
    const unsigned text = m_TextBox->TextsSet();
    OLE_COLOR color = 0;
    if (SUCCEEDED(property->get_BackColor(&color)) && Stands(text))
        m_TextBox->SetBackColor(color);
    if (SUCCEEDED(property->get_ForeColor(&color)) && Stands(text))
        m_TextBox->SetForeColor(color);
    omEditorType type = omTextEditor;
    const bool number = SUCCEEDED(property->get_EditorType(&type)) && type == omNumberEditor;
    if (!Stands(text))
        return;
    if (number)
        ReadNumberParams(property);
    else
        ReadTextParams(property);
    const bool limited = !number && m_TextLimits.MaxLength >= m_TextLimits.MinLength;
    if (Stands(text))
        m_TextBox->SetMaxLength(limited ? m_TextLimits.MaxLength : 0);
}

void CTextEditor::ReadNumberParams(_CProperty* property) {
    m_bNumberMode = true;
    NumberLimits& limits = m_NumberLimits;
    const auto read = [&](auto& target, const wchar_t* name, VARTYPE type) {
        IgnoringFailures([&] { target = Converted(Param(property, name), type); });
    };
    const auto readLimit = [&](float& limit, const wchar_t* name) {
        IgnoringFailures([&] { limit = ToSingle(NumberFromText(Param(property, name))).value_or(limit); });
    };
    read(limits.AllowFloatingPoint, L"AllowFloatingPoint", VT_BOOL);
    read(limits.AllowNegative, L"AllowNegative", VT_BOOL);
    read(limits.MinCheck, L"EnableMinValueCheck", VT_BOOL);
    if (limits.MinCheck)
        readLimit(limits.MinValue, L"MinValue");
    read(limits.MaxCheck, L"EnableMaxValueCheck", VT_BOOL);
    if (limits.MaxCheck)
        readLimit(limits.MaxValue, L"MaxValue");
}

void CTextEditor::ReadTextParams(_CProperty* property) {
    const auto read = [&](const wchar_t* name, std::int32_t& length) {
        IgnoringFailures([&] {
            const std::wstring text = Param(property, name);
            if (!text.empty())
                length = ToLong(NumberFromText(text)).value_or(length);
        });
    };
    read(L"MinLength", m_TextLimits.MinLength);
    read(L"MaxLength", m_TextLimits.MaxLength);
}

void CTextEditor::Place(int left, int top, int width, int height) {
    if (m_TextBox)
        m_TextBox->Move(left, top + kTopGap, width, height - kTopGap);
}

void CTextEditor::CommitEdit() {
    if (!Reports())
        return;
    const std::wstring text = Text();
    Verdict verdict =
        m_bNumberMode ? ValidateText(text, m_NumberLimits, DecimalPoint()) : ValidateText(text, m_TextLimits);
    if (verdict.Valid) {
        BuiltInEditor::CommitEdit();
        return;
    }
    if (!verdict.Message.empty())
        m_sError = std::move(verdict.Message);
    if (m_sError.empty())
        m_sError = ErrorText(ErrorCode::InvalidPropertyValue);
    Raise(ErrorNumber(ErrorCode::InvalidPropertyValue), m_sError);
}

} // namespace ormisk
