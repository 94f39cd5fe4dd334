#pragma once

#include "automation/NamedValues.h"
#include "platform/Color.h"
#include "platform/FontDescription.h"

#include <span>
#include <string>
#include <variant>

namespace ormisk {

// What the host sets on the colour field, as a new one has it. The palette window takes it over before it opens.
struct SwatchSettings {
    long Appearance = 0;
    long ActiveTab = 0;
    Color BackColor = 0x80000005;
    long BorderStyle = 1;
    FontDescription Font;
    Color ForeColor = 0x80000012;
    Color HighlightColor = 0x8000000D;
    Color HighlightForeColor = 0x8000000E;
    Color PaletteBackColor = DarkenColor(TranslateColor(0x8000000F));
    std::wstring PaletteTabCaption = L"Palette";
    std::wstring SystemTabCaption = L"System";
    Color SystemBackColor = 0x80000005;
    Color SelectedColor = 0x8000000F;
    Color ToolTipBackColor = 0x80000018;
    Color ToolTipForeColor = 0;
    bool Unicode = false;
};

using SwatchField = std::variant<long SwatchSettings::*, Color SwatchSettings::*, std::wstring SwatchSettings::*,
                                 bool SwatchSettings::*, FontDescription SwatchSettings::*>;

// One setting: its name in a store, and the one by which a change of it is told.
struct SwatchSetting {
    const wchar_t* key;
    const wchar_t* notice;
    SwatchField field;
};

// In the order in which they are stored.
std::span<const SwatchSetting> SwatchSettingTable();

// A value that is none of its kind leaves the setting as it is.
void ReadSettings(NamedValues& store, SwatchSettings& settings);
void WriteSettings(NamedValues& store, const SwatchSettings& settings, const SwatchSettings& initial);

} // namespace ormisk
