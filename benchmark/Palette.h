#pragma once

namespace ormisk::bench {

class GridWindow;

// The palette of a colour row: opening, painting, a step of the mouse over its cells; beside a bare window that opens
// and paints the same cells. Leaves the grid empty.
void MeasurePalette(const GridWindow& window);

} // namespace ormisk::bench
