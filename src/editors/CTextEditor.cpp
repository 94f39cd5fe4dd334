#include "editors/CTextEditor.h"

#include "automation/Value.h"
#include "model/NumberText.h"
#include "platform/TextBox.h"

#include <algorithm>

namespace ormisk {
namespace {

constexpr long kPixels = 3; // the scale mode
constexpr int kLeftMargin = 2;
constexpr int kTopGap = 2; // between the upper edge of the cell and the box

template <class F> HRESULT EditorCall(F&& body) { return Guarded(__uuidof(_CEditor), std::forward<F>(body)); }

// A parameter of the row, "" when it is not set; raises what the property raises.
std::wstring Param(_CProperty* property, const wchar_t* name) {
    BSTR text = nullptr;
    Check(property->GetEditorParam(_bstr_t(name), &text));
    return FromBstr(_bstr_t(text, false));
}

// Raises when the text does not convert, as the empty text never does: the caller then keeps what it has.
_variant_t Param(_CProperty* property, const wchar_t* name, VARTYPE type) {
    _variant_t value(Param(property, name).c_str());
    value.ChangeType(type);
    return value;
}

template <class Target, class Number> void StoreIfFits(Target& target, const std::optional<Number>& number) {
    if (number)
        target = *number;
}

wchar_t DecimalPoint() {
    wchar_t point[4] = L".";
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, point, static_cast<int>(std::size(point)));
    return point[0];
}

} // namespace

std::wstring CTextEditor::Text() const { return m_TextBox ? m_TextBox->Text() : std::wstring(); }

void CTextEditor::Attach(const EditorWindows& windows) {
    TextEdit(windows.TextEditor);
    if (!m_TextBox)
        m_Listener = nullptr;
}

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
        CommitText();
    else if (verdict == KeyVerdict::Cancel)
        CancelText();
    keyAscii = 0;
    if (verdict != KeyVerdict::Swallow && m_TextBox)
        SetFocus(m_TextBox->Parent());
}

STDMETHODIMP CTextEditor::get_ScaleMode(long* pValue) {
    return EditorCall([&] {
        CheckPointer(pValue);
        *pValue = kPixels;
    });
}

STDMETHODIMP CTextEditor::get_Value(VARIANT* pValue) {
    return EditorCall([&] {
        CheckPointer(pValue);
        const std::wstring text = Text();
        *pValue = (m_bNumberMode ? _variant_t(NumberFromText(text)) : ToVariant(text)).Detach();
    });
}

// A value without a text, such as an array, leaves the box as it was. An object may do anything when it is asked for
// its own.
STDMETHODIMP CTextEditor::put_Value(VARIANT newValue) {
    return EditorCall([&] {
        if (!m_TextBox)
            return;
        const ComPtr<_CEditor> self(this);
        const unsigned before = m_TextBox->TextsSet();
        std::wstring text;
        const bool hasText = IgnoringFailures([&] { text = TextOf(newValue); });
        if (!Stands(before))
            return;
        if (hasText)
            m_TextBox->SetText(text);
        m_TextBox->SetModified(false);
    });
}

// After the host was called: whether the box is there, and serves no other row by now.
bool CTextEditor::Stands(unsigned text) const { return m_TextBox && m_TextBox->TextsSet() == text; }

STDMETHODIMP CTextEditor::get_Visible(VARIANT_BOOL* pValue) {
    return EditorCall([&] {
        CheckPointer(pValue);
        *pValue = m_TextBox && m_TextBox->IsVisible() ? VARIANT_TRUE : VARIANT_FALSE;
    });
}

STDMETHODIMP CTextEditor::put_Visible(VARIANT_BOOL newValue) {
    return EditorCall([&] {
        if (m_TextBox)
            m_TextBox->SetVisible(newValue != VARIANT_FALSE);
    });
}

STDMETHODIMP CTextEditor::get_hwnd(long* pValue) {
    return EditorCall([&] {
        CheckPointer(pValue);
        *pValue = m_TextBox ? HandleToLong(m_TextBox->hWnd()) : 0;
    });
}

STDMETHODIMP CTextEditor::put_hFont(long) { return S_OK; }

STDMETHODIMP CTextEditor::init(long) { return S_OK; }

STDMETHODIMP CTextEditor::Reset(_CProperty* aProperty, _CEditorListener* anEditorListener) {
    return EditorCall([&] {
        if (!m_TextBox)
            return;
        const ComPtr<_CEditor> self(this);
        m_Listener = anEditorListener;
        m_TextBox->SetText({});
        m_TextBox->SetLeftMargin(kLeftMargin);
        if (aProperty)
            ReadRow(aProperty);
    });
}

// The property may be any object, and reading a member of it call the host.
void CTextEditor::ReadRow(_CProperty* property) {
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
    IgnoringFailures([&] { limits.AllowFloatingPoint = Param(property, L"AllowFloatingPoint", VT_BOOL); });
    IgnoringFailures([&] { limits.AllowNegative = Param(property, L"AllowNegative", VT_BOOL); });
    IgnoringFailures([&] { limits.MinCheck = Param(property, L"EnableMinValueCheck", VT_BOOL); });
    if (limits.MinCheck)
        IgnoringFailures([&] { StoreIfFits(limits.MinValue, ToSingle(NumberFromText(Param(property, L"MinValue")))); });
    IgnoringFailures([&] { limits.MaxCheck = Param(property, L"EnableMaxValueCheck", VT_BOOL); });
    if (limits.MaxCheck)
        IgnoringFailures([&] { StoreIfFits(limits.MaxValue, ToSingle(NumberFromText(Param(property, L"MaxValue")))); });
    IgnoringFailures([&] { m_ShowSpinButtons = Param(property, L"ShowSpinButtons", VT_I4); });
    IgnoringFailures([&] { m_SpinStepValue = Param(property, L"SpinStepValue", VT_R4); });
}

void CTextEditor::ReadTextParams(_CProperty* property) {
    const auto read = [&](const wchar_t* name, std::int32_t& length) {
        IgnoringFailures([&] {
            const std::wstring text = Param(property, name);
            if (!text.empty())
                StoreIfFits(length, ToLong(NumberFromText(text)));
        });
    };
    read(L"MinLength", m_TextLimits.MinLength);
    read(L"MaxLength", m_TextLimits.MaxLength);
}

STDMETHODIMP CTextEditor::Move(float nLeft, float nTop, float nWidth, float nHeight) {
    return EditorCall([&] {
        const auto left = ToLong(nLeft);
        const auto top = ToLong(nTop + kTopGap);
        const auto width = ToLong(nWidth);
        const auto height = ToLong(nHeight - kTopGap);
        if (m_TextBox && left && top && width && height)
            m_TextBox->Move(*left, *top, *width, *height);
    });
}

STDMETHODIMP CTextEditor::Commit() {
    return EditorCall([&] { CommitText(); });
}

STDMETHODIMP CTextEditor::Cancel() {
    return EditorCall([&] { CancelText(); });
}

Verdict CTextEditor::Validate() const {
    const std::wstring text = Text();
    return m_bNumberMode ? ValidateText(text, m_NumberLimits, DecimalPoint()) : ValidateText(text, m_TextLimits);
}

void CTextEditor::CommitText() {
    const ComPtr<_CEditor> self(this);
    const ComPtr<_CEditorListener> listener(m_Listener);
    if (!m_TextBox || !listener)
        return;
    Verdict verdict = Validate();
    if (verdict.Valid) {
        Check(listener->NotifyCommit(this));
        return;
    }
    if (!verdict.Message.empty())
        m_sError = std::move(verdict.Message);
    if (m_sError.empty())
        m_sError = ErrorText(ErrorCode::InvalidPropertyValue);
    Raise(ErrorNumber(ErrorCode::InvalidPropertyValue), m_sError);
}

void CTextEditor::CancelText() {
    const ComPtr<_CEditor> self(this);
    const ComPtr<_CEditorListener> listener(m_Listener);
    if (m_TextBox && listener)
        Check(listener->NotifyCancel(this));
}

} // namespace ormisk
