#pragma once

#include "GridWindow.h"
#include "Rows.h"

namespace ormisk::bench {

// Prints one measured case.
void Report(const char* name, int rows, double microseconds);

// Sorting so many rows, built-in and by the host, beside the bare sort of the same names; and additions to a sorted
// grid beside those to an unsorted one. Leaves the grid unsorted.
void MeasureSorting(const GridWindow& window, int count);

} // namespace ormisk::bench
