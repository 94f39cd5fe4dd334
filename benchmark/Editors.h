#pragma once

namespace ormisk::bench {

class GridWindow;

// A row selected, shown with its editor, and left again, for each kind of editor by turns. Leaves the grid empty.
void MeasureEditors(const GridWindow& window);

} // namespace ormisk::bench
