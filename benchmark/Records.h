#pragma once

namespace ormisk::bench {

class GridWindow;

// Moves of a recordset on a real table, bare with all fields read by name, and as the grid shows them.
void MeasureRecords(const GridWindow& window);

} // namespace ormisk::bench
