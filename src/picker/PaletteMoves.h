#pragma once

#include "picker/PaletteGeometry.h"

namespace ormisk {

// Where the keys go in the palette window.

enum class Direction { Left, Right, Up, Down };

// The cells are one ring, in which the column shifts by one where the custom cells end. From no cell to the first one.
PaletteCell MovedCell(PaletteCell from, Direction direction);

// Up and down only; the ends are ends. From no row to the first one.
int MovedRow(int from, Direction direction);

} // namespace ormisk
