#pragma once

#include "platform/Color.h"

#include <array>
#include <string>

namespace ormisk {

// The colours that the palette offers, each in a table of its own.

inline constexpr int kPaletteColors = 48; // in rows of eight
inline constexpr int kCustomColors = 16;  // the user's, two rows more
inline constexpr int kSystemColors = 28;
inline constexpr Color kUnsetCustomColor = 0xFFFFFF;

using CustomColors = std::array<Color, kCustomColors>;
using SystemColorNames = std::array<std::wstring, kSystemColors>;

Color PaletteColor(int index);
Color SystemColor(int index);
SystemColorNames DefaultSystemColorNames();
bool IsSystemColor(Color color);

// "&H000000FF&" for red.
std::wstring ColorText(Color color);

// The custom cell that the dialog fills, when it has filled `picks` since it last began with the first. The last cell
// is never its turn.
int CellOfPick(int picks);

} // namespace ormisk
