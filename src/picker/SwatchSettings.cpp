#include "picker/SwatchSettings.h"

#include "automation/Value.h"

namespace ormisk {

namespace {

// Automation's form of each kind of setting.

_variant_t ToVariant(long value) { return value; }
_variant_t ToVariant(Color value) { return static_cast<long>(value); }
_variant_t ToVariant(bool value) { return value; }
// Before the host has told its font there is none.
_variant_t ToVariant(const FontDescription& value) {
    return static_cast<IDispatch*>(value.Name.empty() ? nullptr : MakeFont(value).Get());
}

void FromVariant(const _variant_t& value, long& setting) {
    _variant_t number;
    Check(ConvertValue(value, VT_I4, number));
    setting = V_I4(&number);
}
void FromVariant(const _variant_t& value, Color& setting) { Check(ReadColor(value, setting)); }
void FromVariant(const _variant_t& value, std::wstring& setting) { setting = TextOf(value); }
void FromVariant(const _variant_t& value, bool& setting) {
    _variant_t flag;
    Check(ConvertValue(value, VT_BOOL, flag));
    setting = V_BOOL(&flag) != VARIANT_FALSE;
}
void FromVariant(const _variant_t& value, FontDescription& setting) {
    if (IUnknown* const font = ObjectOf(value))
        setting = DescribeFont(font);
}

} // namespace

std::span<const SwatchSetting> SwatchSettingTable() {
    using S = SwatchSettings;
    static const SwatchSetting table[] = {
        {L"Appearance", L"Appearance", &S::Appearance},
        {L"ActiveTab", L"ActiveTab", &S::ActiveTab},
        {L"Backcolor", L"Backcolor", &S::BackColor},
        {L"BorderStyle", L"BorderStyle", &S::BorderStyle},
        {L"Font", L"Font", &S::Font},
        {L"Forecolor", L"Forecolor", &S::ForeColor},
        {L"HighlightColor", L"HighlightColor", &S::HighlightColor},
        {L"HighlightForeColor", L"HighlightForeColor", &S::HighlightForeColor},
        {L"PaletteBackColor", L"PaletteColor", &S::PaletteBackColor},
        {L"PaletteTabCaption", L"PaletteTabCaption", &S::PaletteTabCaption},
        {L"SystemTabCaption", L"SystemTabCaption", &S::SystemTabCaption},
        {L"SystemBackColor", L"SystemPaletteColor", &S::SystemBackColor},
        {L"SelectedColor", L"SelectedColor", &S::SelectedColor},
        {L"ToolTipBackColor", L"ToolTipBackColor", &S::ToolTipBackColor},
        {L"ToolTipForeColor", L"ToolTipForeColor", &S::ToolTipForeColor},
        {L"Unicode", L"Unicode", &S::Unicode},
    };
    return table;
}

void ReadSettings(NamedValues& store, SwatchSettings& settings) {
    for (const SwatchSetting& setting : SwatchSettingTable())
        std::visit(
            [&](auto field) {
                IgnoringFailures([&] {
                    auto value = settings.*field;
                    FromVariant(store.Read(setting.key, ToVariant(value)), value);
                    settings.*field = std::move(value);
                });
            },
            setting.field);
}

void WriteSettings(NamedValues& store, const SwatchSettings& settings, const SwatchSettings& initial) {
    for (const SwatchSetting& setting : SwatchSettingTable())
        std::visit([&](auto field) { store.Write(setting.key, ToVariant(settings.*field), ToVariant(initial.*field)); },
                   setting.field);
}

} // namespace ormisk
