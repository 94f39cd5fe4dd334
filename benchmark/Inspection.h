#pragma once

namespace ormisk::bench {

class GridWindow;

// Loads objects with 10, 100 and 1,000 members, and makes the bare calls that this asks of them: each member is read,
// written back and read again, by its name.
void MeasureInspection(const GridWindow& window);

} // namespace ormisk::bench
