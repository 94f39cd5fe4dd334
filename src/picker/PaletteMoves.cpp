#include "picker/PaletteMoves.h"

#include <algorithm>

namespace ormisk {

namespace {

constexpr int kLastCell = kPaletteColors - 1;
constexpr int kLastCustom = kCustomColors - 1;
constexpr int kBottomRow = kPaletteColors - kCellsPerRow; // its first cell

PaletteCell MovedInPalette(int i, Direction direction) {
    switch (direction) {
    case Direction::Right:
        return i < kLastCell ? PaletteCell{false, i + 1} : PaletteCell{true, 0};
    case Direction::Left:
        return i > 0 ? PaletteCell{false, i - 1} : PaletteCell{true, kLastCustom};
    case Direction::Down:
        return i < kBottomRow ? PaletteCell{false, i + kCellsPerRow} : PaletteCell{true, i - kBottomRow};
    case Direction::Up:
        if (i >= kCellsPerRow)
            return {false, i - kCellsPerRow};
        return {true, i == 0 ? kLastCustom : i + kCellsPerRow - 1};
    }
    return {};
}

PaletteCell MovedInCustom(int i, Direction direction) {
    switch (direction) {
    case Direction::Right:
        return i < kLastCustom ? PaletteCell{true, i + 1} : PaletteCell{false, 0};
    case Direction::Left:
        return i > 0 ? PaletteCell{true, i - 1} : PaletteCell{false, kLastCell};
    case Direction::Down:
        if (i < kCellsPerRow)
            return {true, i + kCellsPerRow};
        return {false, i == kLastCustom ? 0 : i - kCellsPerRow + 1};
    case Direction::Up:
        return i < kCellsPerRow ? PaletteCell{false, i + kBottomRow} : PaletteCell{true, i - kCellsPerRow};
    }
    return {};
}

} // namespace

PaletteCell MovedCell(PaletteCell from, Direction direction) {
    if (!from)
        return {false, 0};
    return from.custom ? MovedInCustom(from.index, direction) : MovedInPalette(from.index, direction);
}

int MovedRow(int from, Direction direction) {
    return from < 0 ? 0 : std::clamp(from + (direction == Direction::Down ? 1 : -1), 0, kSystemColors - 1);
}

} // namespace ormisk
