#pragma once

#include <string>
#include <string_view>

namespace ormisk {

// Whether a text of this width shows whole in a cell, all in pixels. `before` is what lies before it in the cell.
bool FitsInCell(long textWidth, long before, long cellWidth);

// The program that shows a help file, by the end of its name.
enum class HelpViewer { None, Html, Classic };
HelpViewer HelpViewerFor(std::wstring_view file);

// The name of a help file as a property has it: up to a zero, without blanks at its ends.
std::wstring HelpFileName(std::wstring_view file);

} // namespace ormisk
