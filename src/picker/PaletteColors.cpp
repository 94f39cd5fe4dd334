#include "picker/PaletteColors.h"

#include <string_view>

namespace ormisk {

namespace {

constexpr Color kSystemFlag = 0x80000000;

// Blue, green, red.
constexpr Color kPalette[kPaletteColors] = {
    0xFFFFFF, 0xC0C0FF, 0xC0E0FF, 0xC0FFFF, 0xC0FFC0, 0xFFFFC0, 0xFFC0C0, 0xFFC0FF, //
    0xE0E0E0, 0x8080FF, 0x80C0FF, 0x80FFFF, 0x80FF80, 0xFFFF80, 0xFF8080, 0xFF80FF, //
    0xC0C0C0, 0x0000FF, 0x0080FF, 0x00FFFF, 0x00FF00, 0xFFFF00, 0xFF0000, 0xFF00FF, //
    0x808080, 0x0000C0, 0x0040C0, 0x00C0C0, 0x00C000, 0xC0C000, 0xC00000, 0xC000C0, //
    0x404040, 0x000080, 0x004080, 0x008080, 0x008000, 0x808000, 0x800000, 0x800080, //
    0x000000, 0x000040, 0x404080, 0x004040, 0x004000, 0x404000, 0x400000, 0x400040, //
};

constexpr const wchar_t* kNames[kSystemColors] = {
    L"Scroll Bars",
    L"Desktop",
    L"Active Title Bar",
    L"Inactive Title Bar",
    L"Menu Bar",
    L"Window Background",
    L"Window Frame",
    L"Menu Text",
    L"Window Text",
    L"Active Title Bar Text",
    L"Active Border",
    L"Inactive Border",
    L"Application Workspace",
    L"Highlight",
    L"Highlight Text",
    L"Button Face",
    L"Button Shadow",
    L"Disabled Text",
    L"Button Text",
    L"Inactive Title Bar Text",
    L"Button Highlight",
    L"Button Dark Shadow",
    L"Button Light Shadow",
    L"ToolTip Text",
    L"ToolTip",
    L"Hot Light",
    L"Gradient Active Caption",
    L"Gradient Inactive Caption",
};

} // namespace

Color PaletteColor(int index) { return kPalette[index]; }

// The system has no colour of the number 25.
Color SystemColor(int index) {
    constexpr int kGap = 25;
    return kSystemFlag | static_cast<Color>(index < kGap ? index : index + 1);
}

SystemColorNames DefaultSystemColorNames() {
    SystemColorNames names;
    for (int i = 0; i < kSystemColors; ++i)
        names[static_cast<std::size_t>(i)] = kNames[i];
    return names;
}

bool IsSystemColor(Color color) { return (color & kSystemFlag) != 0; }

std::wstring ColorText(Color color) {
    constexpr std::wstring_view kDigits = L"0123456789ABCDEF";
    std::wstring text = L"&H00000000&";
    for (std::size_t digit = 9; digit > 1; --digit, color >>= 4)
        text[digit] = kDigits[color & 0xF];
    return text;
}

int CellOfPick(int picks) { return picks > kCustomColors - 2 ? 0 : picks; }

} // namespace ormisk
