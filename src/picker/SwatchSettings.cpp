#include "picker/SwatchSettings.h"

#include "automation/Error.h"
#include "platform/StoredSetting.h"

namespace ormisk {

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
                    FromStored(store.Read(setting.key, ToStored(value)), value);
                    settings.*field = std::move(value);
                });
            },
            setting.field);
}

void WriteSettings(NamedValues& store, const SwatchSettings& settings, const SwatchSettings& initial) {
    for (const SwatchSetting& setting : SwatchSettingTable())
        std::visit([&](auto field) { store.Write(setting.key, ToStored(settings.*field), ToStored(initial.*field)); },
                   setting.field);
}

} // namespace ormisk
