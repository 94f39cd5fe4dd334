#include "editors/CDateEditor.h"

#include "automation/Value.h"
#include "model/NumberText.h"
#include "win/Keys.h"

namespace ormisk {
namespace {

_variant_t DateVariant(double date) { return {date, VT_DATE}; }

std::wstring TextOfDate(double date) { return TextOf(DateVariant(date)); }

// Raises what is no flag.
bool IsSet(const std::wstring& text) {
    _variant_t flag;
    if (!text.empty())
        CheckSystem(ConvertValue(ToVariant(text), VT_BOOL, flag));
    return !text.empty() && V_BOOL(&flag) != VARIANT_FALSE;
}

// Raises what is no date.
double DateFrom(const VARIANT& value) {
    _variant_t date;
    CheckSystem(ConvertValue(value, VT_DATE, date));
    return V_DATE(&date);
}

} // namespace

void CDateEditor::Activate(bool) {
    const ComPtr<_CEditor> self(this);
    NotePick();
    m_Picker.DropDown();
}

// Also to the day that the picker shows in place of something else.
void CDateEditor::Changed() {
    m_InPlace.reset();
    NotePick();
}

void CDateEditor::KeyDown(int& key, int shift) {
    if (key == VK_RETURN) {
        m_InPlace.reset(); // what the picker shows is the user's word now
        CommitAndLeave();
    } else if (key == VK_ESCAPE) {
        m_Picker.TakeTyped(); // or it would come when the focus goes
        CancelAndLeave();
    } else if (OpensEditor(key, shift)) {
        if (key == VK_DOWN)
            SettleAlt(Window());
        key = 0;
        m_Picker.OpenCalendar() ? m_Picker.CloseUp() : m_Picker.DropDown();
    }
}

// What is malformed reaches the caller.
void CDateEditor::ReadRow(_CProperty* property) {
    const bool checkBox = IsSet(Param(property, L"CheckBox"));
    if (checkBox != m_Picker.HasCheckBox())
        m_Picker.Create(GetParent(Window()), this, checkBox);
    OLE_COLOR backColor = 0;
    OLE_COLOR foreColor = 0;
    Check(property->get_BackColor(&backColor));
    Check(property->get_ForeColor(&foreColor));
    const std::wstring format(TrimBlanks(Param(property, L"DateFormat")));
    const auto limit = [&](const wchar_t* enable, const wchar_t* name) {
        return IsSet(Param(property, enable)) ? std::optional(DateFrom(ToVariant(Param(property, name))))
                                              : std::nullopt;
    };
    m_Limits.Min = limit(L"EnableMinValueCheck", L"MinValue");
    m_Limits.Max = limit(L"EnableMaxValueCheck", L"MaxValue");
    m_Picker.SetBackColor(backColor);
    m_Picker.SetForeColor(foreColor);
    m_Picker.SetFormat(format);
    m_Picker.SetCalendarColors();
}

_variant_t CDateEditor::Value() const {
    const std::optional<DATE> date = m_Picker.Date();
    return date ? DateVariant(*date) : _variant_t();
}

void CDateEditor::SetValue(const VARIANT& value) {
    const _variant_t plain = Plain(value);
    const bool none = V_VT(&plain) == VT_EMPTY || V_VT(&plain) == VT_NULL || IsMissing(plain);
    const bool maybe = V_VT(&plain) == VT_DATE || V_VT(&plain) == VT_BSTR;
    std::optional<DATE> date;
    const bool reads = none || (maybe && IgnoringFailures([&] { date = DateFrom(plain); }));
    m_InPlace.reset();
    m_LoadedPicks = Picks();
    if (!(reads ? m_Picker.SetDate(date) : m_Picker.SetToday()))
        m_InPlace = m_Picker.Date();
}

void CDateEditor::CommitEdit() {
    m_Picker.TakeTyped();
    const std::optional<DATE> date = m_Picker.Date();
    if (!Reports() || (m_InPlace && m_InPlace == date))
        return;
    const std::wstring fault = FaultOfDate(date, m_Limits, TextOfDate);
    if (!fault.empty())
        Raise(ErrorNumber(ErrorCode::InvalidPropertyValue), fault);
    BuiltInEditor::CommitEdit();
}

} // namespace ormisk
